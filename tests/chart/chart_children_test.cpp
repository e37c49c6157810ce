/// Axes frames and texts of a chart: made, bound, drawn in order, saved and loaded.

#include <gtest/gtest.h>

#include <string>

#include "chart/view_fixture.h"
#include "orvalix/axes/axes_3d.h"
#include "orvalix/axes/axis_3d.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "support/caught_error.h"
#include "support/feedback.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

class ChartChildren : public ::testing::Test {
 protected:
  ChartChildren() : target(100, 100), chart(target.view->NewChart3D()) {}

  ViewOn target;
  CChart3D* chart;
};

TEST_F(ChartChildren, AxesSpanTheirTransformOrTheirOwnRange) {
  CTransform3D* first = chart->NewTransform({1, 2, 3, 0}, {4, 5, 6, 0});
  CTransform3D* last = chart->NewTransform({0, 0, 0, 0}, {1, 1, 1, 0});
  CAxes3D* whole = chart->NewAxes(first);
  EXPECT_EQ(whole->GetAxisMin(1), 2.0);
  EXPECT_EQ(whole->GetAxisMax(2), 6.0);
  EXPECT_EQ(whole->GetTransformID(), first->GetTransformID());
  CAxes3D* own = chart->NewAxes(first, {7, 7, 7, 0}, {8, 8, 8, 0});
  EXPECT_EQ(own->GetAxisMax(0), 8.0);
  EXPECT_EQ(own->GetTransformID(), first->GetTransformID());
  // Kept: without a transform, axes take the one made last, texts the first.
  CAxes3D* ofLast = chart->NewAxes({7, 7, 7, 0}, {8, 8, 8, 0});
  EXPECT_EQ(ofLast->GetTransformID(), last->GetTransformID());
  EXPECT_EQ(chart->NewChartTextObj("a")->GetTransformID(), first->GetTransformID());
  EXPECT_EQ(chart->NewChartTextObj(last, "b")->GetTransformID(), last->GetTransformID());
  CAxes3D* unbound = chart->NewAxes();
  EXPECT_EQ(unbound->GetTransformID(), 0);
  CTextObj3D* empty = chart->NewChartTextObj();
  EXPECT_STREQ(empty->GetString(), "");
  EXPECT_EQ(chart->GetNumAxes(), 4);
  EXPECT_EQ(chart->GetAxes(3), unbound);
  EXPECT_EQ(chart->GetAxes(4), nullptr);
  EXPECT_EQ(chart->GetNumChartTextObjs(), 3);
  EXPECT_STREQ(chart->GetChartTextObj(1)->GetString(), "b");
  EXPECT_EQ(chart->GetChartTextObj(2), empty);
  target.view->DrawViewScreen();  // what is bound to nothing isn't drawn
}

TEST_F(ChartChildren, NeedATransform) {
  const CaughtError axes{15, 4, "NewAxes"};
  const CaughtError text{15, 4, "NewChartTextObj"};
  EXPECT_EQ(Catch([&] { chart->NewAxes(); }), axes);
  EXPECT_EQ(Catch([&] { chart->NewAxes({0, 0, 0, 0}, {1, 1, 1, 0}); }), axes);
  EXPECT_EQ(Catch([&] { chart->NewAxes(nullptr); }), axes);
  EXPECT_EQ(Catch([&] { chart->NewAxes(nullptr, {0, 0, 0, 0}, {1, 1, 1, 0}); }), axes);
  EXPECT_EQ(Catch([&] { chart->NewChartTextObj("a"); }), text);
  EXPECT_EQ(Catch([&] { chart->NewChartTextObj(nullptr, "a"); }), text);
  chart->NewChartTextObj();  // this one needs none
  EXPECT_EQ(chart->GetNumAxes(), 0);
}

TEST_F(ChartChildren, AreDrawnInTheirOrder) {
  // Everything lies at the same depth and place, so the colours tell the order.
  chart->EnableBorder(0);
  target.view->EnableBorder(0);
  CTransform3D* transform = chart->NewTransform({0, 0, 0, 0}, {10, 10, 10, 0});
  CTextObj3D* text = chart->NewChartTextObj(transform, "H");
  text->SetColor(SetRGBD(0, 0, 1, 1));
  double x = 5;
  double y = 5;
  CChartObj3D* bars = chart->NewChartObj(transform);
  bars->BarChart25D(&x, &y, 0, 5, 1, 2, 2, SetRGBD(0, 1, 0, 1), SetRGBD(0, 1, 0, 1), 0, 0, 0);
  CAxes3D* axes = chart->NewAxes(transform);
  axes->SetAxisTics(0, 0, 5, 1, 0.02, 0.04, 2);
  axes->SetAxisAttrib(0, SetRGBD(1, 0, 0, 1), SetRGBD(1, 0, 0, 1), 1, 0);
  chart->GetHeader()->SetTitle1("H");
  chart->GetHeader()->GetTitle1Obj()->SetColor(SetRGBD(1, 1, 0, 1));
  target.view->DrawViewScreen();
  target.view->GetOpenGLPntr()->MakeCurrent();
  std::string order;
  for (const FeedbackPrimitive& primitive : CaptureFeedback([&] { chart->DrawChart(); })) {
    const FeedbackVertex& vertex = primitive.vertices[0];
    char letter = 'b';
    if (vertex.red > 0.4) letter = vertex.green > 0.4 ? 'H' : 'A';
    if (vertex.red < 0.1 && vertex.green > 0.1) letter = 'S';
    if (vertex.blue > 0.4) letter = 'T';
    if (order.empty() || order.back() != letter) order += letter;
  }
  EXPECT_EQ(order, "HAST");  // header, axes, series, texts
}

TEST_F(ChartChildren, ComeBackFromTheirRecord) {
  CTransform3D* transform = chart->NewTransform({0, 0, 0, 0}, {10, 10, 10, 0});
  CAxes3D* axes = chart->AutoAxes(transform);
  axes->SetAxisLimits(0, 9, 2);  // an axis's own limits
  axes->SetAxisTitleString(0, "x");
  axes->SetWallPlane(1, SetRGBD(0.5, 0.6, 0.7, 1), SetRGBD(0, 0, 0, 1));
  CTextObj3D* text = chart->NewChartTextObj(transform, "text");
  text->SetLocation({5, 5, 5, 0});
  chart->GetHeader()->SetTitle1("title");
  target.view->DrawViewScreen();
  const Bytes record = Saved(*chart);
  std::vector<Pixel> before;
  for (int i = 0; i < 100; ++i) {
    for (int k = 0; k < 100; ++k) before.push_back(target.BitmapPixel(i, k));
  }

  CChart3D* loaded = target.view->NewChart3D();
  LoadFrom(*loaded, record);
  EXPECT_EQ(Saved(*loaded), record);
  ASSERT_EQ(loaded->GetNumAxes(), 1);
  ASSERT_EQ(loaded->GetNumChartTextObjs(), 1);
  EXPECT_EQ(loaded->GetAxes(0)->GetAxisStart(0), 9.0);
  EXPECT_EQ(loaded->GetAxes(0)->GetAxisMin(0), 2.0);
  chart->EnableChart(0);
  target.view->DrawViewScreen();
  int different = 0;
  for (int i = 0; i < 100; ++i) {
    for (int k = 0; k < 100; ++k) {
      different += before[static_cast<std::size_t>(i * 100 + k)] != target.BitmapPixel(i, k);
    }
  }
  EXPECT_EQ(different, 0);
}

TEST_F(ChartChildren, AreNotDrawnWithoutTheirTransform) {
  CTransform3D* transform = chart->NewTransform({0, 0, 0, 0}, {10, 10, 10, 0});
  chart->AutoAxes(transform);
  chart->NewChartTextObj(transform, "text");
  CChart3D plain;
  Bytes record = Saved(*chart);
  CChart3D* loaded = target.view->NewChart3D();
  LoadFrom(*loaded, record);
  // A transform of the same place in the file with another id.
  const int id = transform->GetTransformID();
  CChart3D* other = target.view->NewChart3D();
  constexpr std::size_t kOwnFields = 268 + 258 * 32 + 24;
  constexpr std::size_t kFirstTransform = kOwnFields + 44 + 3 * 152 + 4;
  ASSERT_EQ(record[kFirstTransform], static_cast<unsigned char>(id));
  record[kFirstTransform + 3] = 0x70;
  LoadFrom(*other, record);
  EXPECT_EQ(other->GetNumAxes(), 1);
  target.view->GetOpenGLPntr()->MakeCurrent();
  other->EnableBorder(0);
  EXPECT_FALSE(CaptureFeedback([&] { loaded->DrawChart(); }).empty());
  EXPECT_TRUE(CaptureFeedback([&] { other->DrawChart(); }).empty());
}

}  // namespace
