#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <vector>

#include "chart/full_view.h"
#include "orvalix/render/gl_api_internal.h"

// Views with one of everything: drawn at changing sizes, loaded anew, lost, and deleted.

namespace {

using namespace orvalix::test;

struct Size {
  int width, height;
};

constexpr int kLargest = 320;

/// A view whose window is large enough for every size here.
struct SizedView : ViewOn {
  SizedView() : ViewOn(kLargest, kLargest), bitmap(Encode(FourColors())) {
    FillView(*view, bitmap.Path());
    view->GetHeader()->SetTitle1("View");
  }

  /// What the view is at that size, pixel by pixel.
  std::vector<unsigned char> Picture(Size size) {
    view->DrawViewScreen(window.GetDC(), 0, 0, size.width, size.height);
    const CDIBSection& dib = *view->GetDIBSection();
    const auto* bits = static_cast<const unsigned char*>(dib.FindDIBBits());
    std::vector<unsigned char> pixels;
    for (int y = 0; y < size.height; ++y) {
      const unsigned char* row = bits + std::ptrdiff_t{y} * dib.StorageWidth();
      pixels.insert(pixels.end(), row, row + std::ptrdiff_t{4} * size.width);
    }
    return pixels;
  }

  TemporaryFile bitmap;
};

int DifferingPixels(const std::vector<unsigned char>& a, const std::vector<unsigned char>& b) {
  EXPECT_EQ(a.size(), b.size());
  int differing = 0;
  for (std::size_t i = 0; i + 3 < a.size() && i + 3 < b.size(); i += 4) {
    if (a[i] != b[i] || a[i + 1] != b[i + 1] || a[i + 2] != b[i + 2]) ++differing;
  }
  return differing;
}

/// One of a thousand.
int MostDiffering(Size size) { return size.width * size.height / 1000; }

TEST(GatheredViews, FollowTheSizeOfTheWindow) {
  SizedView view;
  for (const Size size : {Size{320, 320},
                          {160, 320},
                          {320, 100},
                          {0, 0},
                          {1, 1},
                          {320, 1},
                          {-5, 7},
                          {250, 250},
                          {320, 320}}) {
    SCOPED_TRACE(::testing::Message() << size.width << " x " << size.height);
    if (size.width < 1 || size.height < 1) {
      view.view->DrawViewScreen(view.window.GetDC(), 0, 0, size.width, size.height);
      continue;
    }
    SizedView fresh;
    const auto picture = view.Picture(size);
    EXPECT_EQ(DifferingPixels(picture, fresh.Picture(size)), 0);
    EXPECT_EQ(DifferingPixels(picture, view.Picture(size)), 0) << "the second frame differs";
    if (MostDiffering(size) < 1) continue;  // too few pixels to tell edges from the rest
    fresh.view->GetOpenGLPntr()->SetGathering(0);
    EXPECT_LE(DifferingPixels(picture, fresh.Picture(size)), MostDiffering(size));
  }
}

TEST(GatheredViews, TurnAsOneByOne) {
  SizedView gathered;
  SizedView single;
  single.view->GetOpenGLPntr()->SetGathering(0);
  constexpr Size kSize{300, 300};
  const auto turn = [](CChartView3D& view, double degrees) {
    for (int chart = 0; chart < view.GetNumCharts(); ++chart) {
      for (int i = 0; i < 2; ++i) {
        CTransform3D* const transform = view.GetChart(chart)->GetTransform(i);
        if (transform != nullptr) transform->SetRotate({degrees, 5, 2 * degrees, 0});
      }
    }
  };
  for (int frame = 0; frame < 12; ++frame) {
    SCOPED_TRACE(frame);
    turn(*gathered.view, 30.0 * frame);
    turn(*single.view, 30.0 * frame);
    EXPECT_LE(DifferingPixels(gathered.Picture(kSize), single.Picture(kSize)),
              MostDiffering(kSize));
  }
}

TEST(GatheredViews, ShowAFileThatIsLoadedOverWhatWasDrawn) {
  constexpr Size kSize{300, 300};
  SizedView source;
  source.view->GetChart(0)->GetChartObj(0)->SetDepData(0, 2.0);
  source.view->GetHeader()->SetTitle1("Loaded");
  const Bytes file = SavedFile(*source.view);
  SizedView view;
  view.Picture(kSize);
  LoadFile(*view.view, file);
  const auto picture = view.Picture(kSize);
  SizedView fresh;
  LoadFile(*fresh.view, file);
  EXPECT_EQ(DifferingPixels(picture, fresh.Picture(kSize)), 0);
  EXPECT_EQ(DifferingPixels(picture, view.Picture(kSize)), 0);
  LoadFile(*view.view, file);
  EXPECT_EQ(DifferingPixels(picture, view.Picture(kSize)), 0) << "the same again";
}

TEST(GatheredViews, DrawInTurnAsAlone) {
  constexpr Size kSize{200, 150};
  constexpr Size kOther{300, 300};
  SizedView first;
  SizedView second;
  second.view->GetChart(0)->GetTransform(0)->SetRotate({-30, 0, 100, 0});
  const auto onFirst = first.Picture(kSize);
  const auto onSecond = second.Picture(kOther);
  for (int frame = 0; frame < 3; ++frame) {
    EXPECT_EQ(DifferingPixels(first.Picture(kSize), onFirst), 0);
    EXPECT_EQ(DifferingPixels(second.Picture(kOther), onSecond), 0);
  }
  // What is made for one while another is current.
  auto third = std::make_unique<SizedView>();
  third->Picture(kSize);
  second.view->GetChart(0)->GetChartObj(0)->SetDepData(0, 1.0);
  third.reset();
  const auto changed = second.Picture(kOther);
  EXPECT_GT(DifferingPixels(changed, onSecond), 0);
  SizedView fresh;
  fresh.view->GetChart(0)->GetTransform(0)->SetRotate({-30, 0, 100, 0});
  fresh.view->GetChart(0)->GetChartObj(0)->SetDepData(0, 1.0);
  EXPECT_EQ(DifferingPixels(changed, fresh.Picture(kOther)), 0);
}

/// Series and axes of a program's own, which live on after the view that they were drawn in.
TEST(GatheredViews, MayBeDeletedBeforeOrAfterWhatIsDrawnInThem) {
  constexpr Size kSize{300, 300};
  const std::array<double, 3> values{8.0, 3.0, 6.0};
  const auto draw = [&](SizedView& on, CChartObj3D& series, CAxes3D& axes) {
    COpenGL& gl = *on.view->GetOpenGLPntr();
    gl.MakeCurrent();
    gl.SetViewport({0, 0, kSize.width, kSize.height});
    gl.SetClearColor(1.0, 1.0, 1.0, 1.0);
    gl.Clear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    gl.LoadIdentity();
    axes.DrawAxes();
    series.DrawChartObj();
    std::vector<unsigned char> pixels(std::size_t{4} * kSize.width * kSize.height);
    glReadPixels(0, 0, kSize.width, kSize.height, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    return pixels;
  };
  auto first = std::make_unique<SizedView>();
  SizedView second;
  first->Picture(kSize);
  second.Picture(kSize);
  const auto makeTransform = [](SizedView& on) {
    auto transform = std::make_unique<CTransform3D>(
        on.view->GetOpenGLPntr(), point3Dtype{0, 0, 0, 0}, point3Dtype{10, 10, 10, 0});
    transform->SetRotate({20, 10, 30, 0});
    return transform;
  };
  auto transform = makeTransform(*first);
  CChartObj3D series(first->view->GetOpenGLPntr(), transform.get());
  series.BarChart25D(values.data(), values.data(), 0.0, 1.0, 3, 1.0, 1.0, {1, 0, 0, 1},
                     {0, 0, 0, 1}, 0, 0, 0);
  CAxes3D axes(first->view->GetOpenGLPntr(), transform.get(), {0, 0, 0, 0}, {10, 10, 10, 0});
  axes.SetAxisTics(0, 0.0, 1.0, 5, 0.02, 0.04, 0);
  auto early = std::make_unique<CChartObj3D>(series);
  draw(*first, *early, axes);
  const auto onFirst = draw(*first, series, axes);
  early.reset();  // before its view
  EXPECT_EQ(DifferingPixels(draw(*first, series, axes), onFirst), 0);
  auto late = std::make_unique<CChartObj3D>(series);
  draw(*first, *late, axes);
  first.reset();
  late.reset();  // after its view
  transform = makeTransform(second);
  series.InitChartObj3D(second.view->GetOpenGLPntr(), transform.get());
  axes.BindAxes(second.view->GetOpenGLPntr(), transform.get());
  EXPECT_EQ(DifferingPixels(draw(second, series, axes), onFirst), 0);
  EXPECT_EQ(DifferingPixels(draw(second, series, axes), onFirst), 0) << "the next frame";
}

TEST(GatheredViews, WhoseWindowIsLostDrawNothingUntilTheyGo) {
  constexpr Size kSize{300, 300};
  SizedView view;
  const auto picture = view.Picture(kSize);
  view.view->DrawViewScreen();
  view.window.DestroyWindow();
  view.view->DrawViewScreen();
  // A device context of another window will do.
  SizedView other;
  view.view->DrawViewScreen(other.window.GetDC(), 0, 0, kSize.width, kSize.height);
  EXPECT_EQ(DifferingPixels(other.Picture(kSize), picture), 0);
}

}  // namespace
