#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <functional>
#include <ostream>

#include "chart/full_view.h"
#include "orvalix/render/gl_api_internal.h"
#include "support/allocation_failure.h"

// A thousand frames of a view with one of everything take no more than ten.

namespace {

using namespace orvalix::test;

/// Names that a thousand frames may come to: OpenGL need not give any of them twice.
constexpr unsigned kNames = 50000;

/// Buffers of the current context.
int BuffersAlive() {
  int alive = 0;
  for (unsigned name = 1; name <= kNames; ++name) alive += glIsBuffer(name) == GL_TRUE ? 1 : 0;
  return alive;
}

/// Display lists of the current context.
int ListsAlive() {
  int alive = 0;
  for (unsigned name = 1; name <= kNames; ++name) alive += glIsList(name) == GL_TRUE ? 1 : 0;
  return alive;
}

struct FrameCost {
  std::size_t bytes;
  int buffers;
  int lists;
  friend bool operator==(const FrameCost&, const FrameCost&) = default;
  friend std::ostream& operator<<(std::ostream& out, const FrameCost& cost) {
    return out << cost.bytes << " bytes, " << cost.buffers << " buffers, " << cost.lists
               << " display lists";
  }
};

/// @param change of each frame, told its number
void ExpectNoGrowth(const std::function<void(CChartView3D&, int)>& change) {
  FullView on;
  CChartView3D& view = *on.view;
  CDC* const dc = on.window.GetDC();
  const auto draw = [&] { view.DrawViewScreen(dc, 0, 0, 160, 80); };
  const auto cost = [&] {
    FrameCost frame{};
    {
      const AllocationMeter meter;
      draw();
      frame.bytes = meter.Total();
    }
    view.GetOpenGLPntr()->MakeCurrent();
    frame.buffers = BuffersAlive();
    frame.lists = ListsAlive();
    return frame;
  };
  FrameCost early{};
  for (int frame = 1; frame < 1000; ++frame) {
    change(view, frame);
    if (frame == 10) {
      early = cost();
    } else {
      draw();
    }
  }
  change(view, 1000);
  EXPECT_EQ(cost(), early);
  EXPECT_LE(early.buffers, 40);
}

TEST(ViewGrowth, IsNoneInTurningViews) {
  ExpectNoGrowth([](CChartView3D& view, int frame) {
    for (int chart = 0; chart < view.GetNumCharts(); ++chart) {
      view.GetChart(chart)->GetTransform(0)->SetRotate({20, 5, 0.36 * frame, 0});
    }
  });
}

TEST(ViewGrowth, IsNoneWhereDataChange) {
  ExpectNoGrowth([](CChartView3D& view, int frame) {
    for (int chart = 0; chart < view.GetNumCharts(); ++chart) {
      for (int i = 0; i < view.GetChart(chart)->GetNumChartObjs(); ++i) {
        CChartObj3D& series = *view.GetChart(chart)->GetChartObj(i);
        series.SetDepData(0, 1.0 + frame * 1e-3);
        series.Set3DPoint(0, {1, 2, 1.0 + frame * 1e-3, 0});
        series.SetPolysurfacePoint(0, {4, 1, 1.0 + frame * 1e-3, 0});
      }
    }
  });
}

TEST(ViewGrowth, IsNoneWhereAxesAndScalesChange) {
  ExpectNoGrowth([](CChartView3D& view, int frame) {
    CChart3D& chart = *view.GetChart(0);
    chart.GetTransform(0)->SetScaleMax({10.0 + frame * 1e-4, 10, 10, 0});
    chart.GetAxes(0)->SetAxisColor(0, {frame * 1e-3, 0, 0, 1});
    chart.GetAxes(0)->SetAxisLabelsColor(0, {frame * 1e-3, 0, 0, 1});
  });
}

TEST(ViewGrowth, IsNoneWhereTextsChange) {
  ExpectNoGrowth([](CChartView3D& view, int frame) {
    // Of the same characters, so that they are as many triangles.
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "%s", frame % 2 == 0 ? "AVAVA" : "VAVAA");
    view.GetHeader()->SetTitle1(text.data());
    view.GetLegend(0)->SetText(0, text.data());
    view.GetLegend(0)->SetTitle1(text.data());
    CAxes3D& axes = *view.GetChart(0)->GetAxes(0);
    axes.SetAxisTitleString(0, text.data());
    axes.GetAxisLabelsStrings(0)[0] = text.data();
    view.GetChart(1)->GetChartObj(kTexts)->SetScatterTextString(0, text.data());
  });
}

TEST(ViewGrowth, IsNoneWhereGatheringComesAndGoes) {
  ExpectNoGrowth([](CChartView3D& view, int frame) {
    view.GetOpenGLPntr()->SetGathering(frame % 10 == 0 ? 1 : frame % 2);
  });
}

}  // namespace
