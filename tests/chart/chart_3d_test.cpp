#include "orvalix/chart/chart_3d.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "chart/view_fixture.h"
#include "orvalix/axes/axes_3d.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/render/gl_api_internal.h"
#include "support/caught_error.h"
#include "support/feedback.h"

namespace {

using namespace orvalix::test;

const point3Dtype kZero{0, 0, 0, 0};
const point3Dtype kTen{10, 10, 10, 0};

std::array<float, 4> Light(GLenum component) {
  std::array<float, 4> values{};
  glGetLightfv(GL_LIGHT0, component, values.data());
  return values;
}

TEST(Chart3D, StartsWithItsDefaults) {
  const int before = CChart3D::nSelfID;
  const CChart3D chart;
  EXPECT_EQ(CChart3D::nSelfID, before + 1);
  EXPECT_EQ(chart.GetClassTag(), 505);
  EXPECT_EQ(chart.GetChartEnable(), 1);
  EXPECT_EQ(chart.GetBorderEnable(), 1);
  EXPECT_EQ(chart.GetBorderThickness(), 1.0);
  EXPECT_EQ(chart.GetFontSize(), 0.1);
  EXPECT_EQ(chart.GetTextureMode(), -1);
  EXPECT_EQ(chart.GetNumTextureColors(), 0);
  GLViewportType viewport{};
  chart.GetChartViewport(viewport);
  EXPECT_EQ(viewport.x, 0);
  EXPECT_EQ(viewport.y, 0);
  EXPECT_EQ(viewport.width, 100);
  EXPECT_EQ(viewport.height, 100);
  GLViewRType position{};
  chart.GetChartPosition(position);
  EXPECT_EQ(position.x, 0.0);
  EXPECT_EQ(position.y, 0.0);
  EXPECT_EQ(position.width, 1.0);
  EXPECT_EQ(position.height, 1.0);
  point3Dtype light{};
  chart.GetLightPosition(light);
  EXPECT_EQ(light.x, 0.0);
  EXPECT_EQ(light.y, 1.0);
  EXPECT_EQ(light.z, 1.0);
  EXPECT_EQ(chart.GetChartBkColor().green, 1.0);
  EXPECT_EQ(chart.GetChartBkColor().alpha, 1.0);
  EXPECT_EQ(chart.GetBorderColor().green, 0.0);
  EXPECT_EQ(chart.GetBorderColor().alpha, 1.0);
  EXPECT_EQ(chart.GetLightComponent(GL_DIFFUSE).red, 1.0);
  EXPECT_EQ(chart.GetLightComponent(12345).red, 0.4);
  EXPECT_EQ(chart.GetLightComponent(12345).alpha, 1.0);
  double min = 7;
  double max = 7;
  chart.GetTextureColorArray(nullptr, &min, &max);
  EXPECT_EQ(min, 0.0);
  EXPECT_EQ(max, 1.0);
  EXPECT_EQ(chart.GetNumTransforms(), 0);
  EXPECT_EQ(chart.GetNumChartObjs(), 0);
  EXPECT_EQ(chart.GetNumAxes(), 0);
  EXPECT_EQ(chart.GetNumChartTextObjs(), 0);
  ASSERT_NE(chart.GetHeader(), nullptr);
  EXPECT_STREQ(chart.GetHeader()->GetTitle1(), "");
}

TEST(Chart3D, NeedsAView) {
  const CaughtError expected{12, 4, "InitChart3D"};
  EXPECT_EQ(Catch([] { CChart3D chart(nullptr); }), expected);
  alignas(CChartView3D) static std::array<unsigned char, sizeof(CChartView3D)> untagged{};
  CChart3D chart;
  EXPECT_EQ(Catch([&] { chart.InitChart3D(reinterpret_cast<CChartView3D*>(untagged.data())); }),
            expected);
  chart.DrawChart();  // belongs to no view: draws nothing
}

TEST(Chart3D, ShadesSmoothlyAndLoadsTheLight) {
  ViewOn target(20, 20);
  glShadeModel(GL_FLAT);
  glDisable(GL_DEPTH_TEST);
  glClearDepth(0.5);
  const std::array<float, 4> odd{0.5, 0.5, 0.5, 0.5};
  for (const int component : {GL_AMBIENT, GL_DIFFUSE, GL_SPECULAR}) {
    glLightfv(GL_LIGHT0, static_cast<GLenum>(component), odd.data());
  }
  target.view->NewChart3D();
  GLint model = 0;
  glGetIntegerv(GL_SHADE_MODEL, &model);
  EXPECT_EQ(model, GL_SMOOTH);
  EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
  GLdouble depth = 0;
  glGetDoublev(GL_DEPTH_CLEAR_VALUE, &depth);
  EXPECT_EQ(depth, 1.0);
  EXPECT_EQ(Light(GL_AMBIENT)[0], 0.1F);
  EXPECT_EQ(Light(GL_DIFFUSE)[0], 1.0F);
  EXPECT_EQ(Light(GL_SPECULAR)[0], 0.0F);
}

TEST(Chart3D, ConstructorsMakeATransformAndAxes) {
  ViewOn target(20, 20);
  const CChart3D* plain = target.view->NewChart3D();
  EXPECT_EQ(plain->GetNumTransforms(), 0);
  CTransform3D* transform = nullptr;
  const CChart3D* chart = target.view->NewChart3D(kZero, kTen, &transform);
  ASSERT_NE(transform, nullptr);
  EXPECT_EQ(chart->GetNumTransforms(), 1);
  EXPECT_EQ(chart->GetTransform(0), transform);
  EXPECT_EQ(transform->GetScaleMax().y, 10.0);
  ASSERT_EQ(chart->GetNumAxes(), 1);
  EXPECT_EQ(chart->GetAxes(0)->GetAxisMax(1), 10.0);
  EXPECT_EQ(chart->GetAxes(0)->GetTransformID(), transform->GetTransformID());
  const CChart3D* other = target.view->NewChart3D(kZero, kTen);
  EXPECT_EQ(other->GetNumTransforms(), 1);
  EXPECT_EQ(other->GetNumAxes(), 1);
  CAxes3D* axes = nullptr;
  const CChart3D* both = target.view->NewChart3D(kZero, kTen, &transform, &axes);
  EXPECT_EQ(both->GetTransform(0), transform);
  EXPECT_EQ(both->GetAxes(0), axes);
  target.view->NewChart3D(kZero, kTen, nullptr, nullptr);
}

TEST(Chart3D, FactoriesBindTheirObjects) {
  ViewOn target(20, 20);
  CChart3D* chart = target.view->NewChart3D();
  CTransform3D* defaults = chart->NewTransform();
  EXPECT_EQ(defaults->GetScaleMin().x, 0.0);
  EXPECT_EQ(defaults->GetScaleMax().x, 1.0);
  CTransform3D* transform = chart->NewTransform(kZero, kTen);
  CChartObj3D* bound = chart->NewChartObj(transform);
  CChartObj3D* unbound = chart->NewChartObj();
  EXPECT_EQ(chart->GetNumChartObjs(), 2);
  EXPECT_EQ(chart->GetChartObj(0), bound);
  EXPECT_EQ(chart->GetChartObj(1), unbound);
  EXPECT_EQ(chart->GetChartObj(2), nullptr);
  EXPECT_EQ(bound->GetOwnerID(), transform->GetTransformID());
  EXPECT_EQ(unbound->GetOwnerID(), 0);
  EXPECT_EQ(chart->MatchTransformID(transform->GetTransformID()), transform);
  EXPECT_EQ(chart->MatchTransformID(defaults->GetTransformID()), defaults);
  EXPECT_EQ(chart->MatchTransformID(-1), nullptr);
  target.view->DrawViewScreen();  // an unbound object draws nothing
}

TEST(Chart3D, FactoriesNeedATransform) {
  ViewOn target(20, 20);
  CChart3D* chart = target.view->NewChart3D();
  const CaughtError expected{15, 4, "NewChartObj"};
  EXPECT_EQ(Catch([&] { chart->NewChartObj(nullptr); }), expected);
  alignas(CTransform3D) static std::array<unsigned char, sizeof(CTransform3D)> untagged{};
  EXPECT_EQ(Catch([&] { chart->NewChartObj(reinterpret_cast<CTransform3D*>(untagged.data())); }),
            expected);
  EXPECT_EQ(chart->GetNumChartObjs(), 0);
  CChart3D homeless;
  EXPECT_EQ(Catch([&] { homeless.NewTransform(kZero, kTen); }),
            (CaughtError{16, 20, "InitTransform"}));
}

TEST(Chart3D, PositionsRoundDown) {
  ViewOn target(101, 101);
  CChart3D* chart = target.view->NewChart3D();
  chart->SetChartPosition({0.5, 0.5, 0.5, 0.5});
  target.view->DrawViewScreen();
  GLViewportType viewport{};
  chart->GetChartViewport(viewport);
  EXPECT_EQ(viewport.x, 50);
  EXPECT_EQ(viewport.y, 50);
  EXPECT_EQ(viewport.width, 50);
  EXPECT_EQ(viewport.height, 50);
}

TEST(Chart3D, AViewportLastsUntilTheNextDrawing) {
  ViewOn target(40, 20);
  CChart3D* chart = target.view->NewChart3D();
  chart->SetChartViewport({1, 2, 3, 4});
  GLViewportType viewport{};
  chart->GetChartViewport(viewport);
  EXPECT_EQ(viewport.width, 3);
  target.view->DrawViewScreen();
  chart->GetChartViewport(viewport);
  EXPECT_EQ(viewport.width, 40);
  EXPECT_EQ(viewport.height, 20);
}

TEST(Chart3D, StrangePositionsDrawNothing) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  ViewOn target(20, 20);
  target.view->SetViewBkColor(SetRGBD(0, 1, 0, 1));
  target.view->EnableBorder(0);
  CTransform3D* transform = nullptr;
  CChart3D* chart = target.view->NewChart3D(kZero, kTen, &transform);
  for (const double bad : {-1.0, 0.0, nan, -kInfinity}) {
    chart->SetChartPosition({0, 0, bad, bad});
    target.view->DrawViewScreen();
    EXPECT_EQ(target.WindowPixel(10, 10), kGreen) << bad;
  }
  chart->SetChartPosition({nan, kInfinity, kInfinity, 1e300});
  target.view->DrawViewScreen();
  EXPECT_EQ(target.WindowPixel(10, 10), kGreen);
}

TEST(Chart3D, ChartsClearOnlyTheirOwnRectangles) {
  ViewOn target(100, 50);
  target.view->SetViewBkColor(SetRGBD(0, 0, 1, 1));
  CChart3D* left = target.view->NewChart3D();
  CChart3D* right = target.view->NewChart3D();
  left->SetChartPosition({0.1, 0.2, 0.3, 0.6});
  right->SetChartPosition({0.6, 0.2, 0.3, 0.6});
  left->SetChartBkColor(SetRGBD(1, 0, 0, 1));
  right->SetChartBkColor(SetRGBD(0, 1, 0, 1));
  target.view->DrawViewScreen();
  EXPECT_EQ(target.WindowPixel(25, 25), kRed);
  EXPECT_EQ(target.WindowPixel(75, 25), kGreen);
  EXPECT_EQ(target.WindowPixel(50, 25), kBlue);
  EXPECT_EQ(target.WindowPixel(25, 5), kBlue);
  EXPECT_EQ(target.WindowPixel(25, 45), kBlue);
  // The view's frame is still there.
  int black = 0;
  for (int x = 0; x < 4; ++x) black += target.WindowPixel(x, 25) == kBlack ? 1 : 0;
  EXPECT_EQ(black, 1);
}

TEST(Chart3D, YCountsFromTheBottomOfTheView) {
  ViewOn target(20, 20);
  CChart3D* chart = target.view->NewChart3D();
  chart->SetChartPosition({0, 0, 1, 0.5});
  chart->SetChartBkColor(SetRGBD(1, 0, 0, 1));
  target.view->DrawViewScreen();
  EXPECT_EQ(target.WindowPixel(10, 15), kRed);
  EXPECT_EQ(target.WindowPixel(10, 5), kWhite);
}

TEST(Chart3D, ADisabledChartLeavesItsRectangleAlone) {
  ViewOn target(20, 20);
  CChart3D* chart = target.view->NewChart3D();
  chart->SetChartBkColor(SetRGBD(1, 0, 0, 1));
  chart->EnableChart(0);
  target.view->DrawViewScreen();
  EXPECT_EQ(target.WindowPixel(10, 10), kWhite);
  chart->EnableChart(1);
  target.view->DrawViewScreen();
  EXPECT_EQ(target.WindowPixel(10, 10), kRed);
}

TEST(Chart3D, FramesItself) {
  ViewOn target(100, 100);
  target.view->EnableBorder(0);
  CChart3D* chart = target.view->NewChart3D();
  chart->SetChartPosition({0, 0, 0.5, 0.5});
  chart->SetBorderColor(SetRGBD(1, 0, 0, 1));
  chart->SetBorderThickness(2.0);
  target.view->DrawViewScreen();
  const auto drawn = CaptureFeedback([&] { target.view->DrawViewScreen(); });
  ASSERT_EQ(drawn.size(), 4U);
  // 0.999 - 2 / (50 - 2) in a viewport of 50 pixels.
  EXPECT_NEAR(drawn[0].vertices[1].x, (0.999 - 2.0 / 48.0 + 1.0) / 2.0 * 50.0, 1e-3);
  EXPECT_NEAR(drawn[0].vertices[0].z, 0.999, 1e-6);
  EXPECT_EQ(drawn[0].vertices[0].red, 1.0);
  chart->EnableBorder(0);
  EXPECT_TRUE(CaptureFeedback([&] { target.view->DrawViewScreen(); }).empty());
}

TEST(Chart3D, ItsLightIsLoadedEachFrame) {
  ViewOn target(20, 20);
  CChart3D* chart = target.view->NewChart3D();
  chart->SetLightPosition({1, 2, 3, 0});
  chart->SetLightComponent(GL_DIFFUSE, SetRGBD(0.5, 0.25, 0.125, 1));
  chart->SetLightComponent(12345, SetRGBD(0.25, 0.5, 0.75, 1));
  chart->SetLightComponent(GL_AMBIENT, SetRGBD(9, 9, 9, 9));  // no such key
  EXPECT_EQ(chart->GetLightComponent(GL_AMBIENT).red, 0.0);
  EXPECT_EQ(chart->GetLightComponent(GL_AMBIENT).alpha, 0.0);
  target.view->DrawViewScreen();
  EXPECT_EQ(Light(GL_POSITION), (std::array<float, 4>{1, 3, -2, 0}));
  EXPECT_EQ(Light(GL_DIFFUSE), (std::array<float, 4>{0.5, 0.25, 0.125, 1}));
  std::array<float, 4> model{};
  glGetFloatv(GL_LIGHT_MODEL_AMBIENT, model.data());
  EXPECT_EQ(model, (std::array<float, 4>{0.25, 0.5, 0.75, 1}));
  EXPECT_EQ(Light(GL_AMBIENT)[0], 0.1F);
}

TEST(Chart3D, GivesItsFontFactorsToContextAndTransforms) {
  ViewOn target(40, 20);
  CTransform3D* first = nullptr;
  CChart3D* chart = target.view->NewChart3D(kZero, kTen, &first);
  CTransform3D* second = chart->NewTransform(kZero, kTen);
  first->SetFontHeightSF(9);
  chart->SetFontSize(0.3);
  target.view->DrawViewScreen();
  EXPECT_EQ(target.view->GetOpenGLPntr()->GetFontScaleFactor(), 0.3);
  for (const CTransform3D* transform : {first, second}) {
    EXPECT_EQ(transform->GetFontAspect(), 0.5);  // 20 / 40
    EXPECT_EQ(transform->GetFontHeightSF(), 1.0);
  }
}

TEST(Chart3D, ColorsByValueOnlyWithATextureMode) {
  ViewOn target(20, 20);
  CChart3D* chart = target.view->NewChart3D();
  const std::vector<RGBDType> colors{SetRGBD(1, 0, 0, 1), SetRGBD(0, 1, 0, 1), SetRGBD(0, 0, 1, 1)};
  chart->SetTextureColorArray(colors.data(), 2.0, 5.0, 3);
  EXPECT_EQ(chart->GetNumTextureColors(), 3);
  target.view->DrawViewScreen();
  GLint size = -1;
  glGetTexLevelParameteriv(GL_TEXTURE_1D, 0, GL_TEXTURE_WIDTH, &size);
  EXPECT_EQ(size, 0);
  GLint filter = 0;
  glGetTexParameteriv(GL_TEXTURE_1D, GL_TEXTURE_MAG_FILTER, &filter);
  EXPECT_EQ(filter, GL_LINEAR);
  chart->SetTextureMode(0);
  target.view->DrawViewScreen();
  glGetTexLevelParameteriv(GL_TEXTURE_1D, 0, GL_TEXTURE_WIDTH, &size);
  EXPECT_EQ(size, 4);
  glGetTexParameteriv(GL_TEXTURE_1D, GL_TEXTURE_MAG_FILTER, &filter);
  EXPECT_EQ(filter, GL_NEAREST);
}

TEST(Chart3D, KeepsWhatFitsOfATexture) {
  CChart3D chart;
  std::vector<RGBDType> colors(300, SetRGBD(0.1, 0.2, 0.3, 0.4));
  chart.SetTextureColorArray(colors.data(), -1.0, 1.0, 300);
  EXPECT_EQ(chart.GetNumTextureColors(), 258);
  chart.SetTextureColorArray(colors.data(), 5.0, 6.0, -3);
  chart.SetTextureColorArray(nullptr, 5.0, 6.0, 3);
  EXPECT_EQ(chart.GetNumTextureColors(), 258);
  std::vector<RGBDType> out(258);
  double min = 0;
  double max = 0;
  chart.GetTextureColorArray(out.data(), &min, &max);
  EXPECT_EQ(out[257].blue, 0.3);
  EXPECT_EQ(min, -1.0);
  EXPECT_EQ(max, 1.0);
  chart.GetTextureColorArray(nullptr, nullptr, nullptr);
}

// Three bars of a known height in a chart that looks straight at the x-z plane: the box of the
// transform spans half of the view in each direction.
TEST(Chart3D, BarsStandAtTheRightPixels) {
  ViewOn target(400, 400);
  CTransform3D* transform = nullptr;
  CChart3D* chart = target.view->NewChart3D({0, 0, 0, 0}, {4, 1, 10, 0}, &transform);
  const std::array<double, 3> x{1, 2, 3};
  const std::array<double, 3> height{2.5, 10, 5};
  CChartObj3D* bars = chart->NewChartObj(transform);
  std::array<double, 3> xs = x;
  std::array<double, 3> heights = height;
  bars->BarChart25D(xs.data(), heights.data(), 0.0, 0.5, 3, 0.5, 0.5, SetRGBD(1, 0, 0, 1),
                    SetRGBD(0, 0, 0, 1), 1, 1, 0);
  bars->SetColorMode(0);
  bars->SetOutlineMode(0);
  target.view->DrawViewScreen();
  // x of the scale lies at 100 + 50 x pixels, z at 100 + 20 z pixels from the bottom. A bar of
  // width 0.5, centred: 25 pixels wide.
  for (std::size_t i = 0; i < 3; ++i) {
    SCOPED_TRACE(i);
    const int centre = static_cast<int>(100 + 50 * x[i]);
    const int top = static_cast<int>(100 + 20 * height[i]);
    EXPECT_EQ(target.BitmapPixel(centre, 101), kRed);
    EXPECT_EQ(target.BitmapPixel(centre, top - 2), kRed);
    EXPECT_EQ(target.BitmapPixel(centre, top + 1), kWhite);
    EXPECT_EQ(target.BitmapPixel(centre, 98), kWhite);
    EXPECT_EQ(target.BitmapPixel(centre - 12, 110), kRed);
    EXPECT_EQ(target.BitmapPixel(centre + 11, 110), kRed);
    EXPECT_EQ(target.BitmapPixel(centre - 14, 110), kWhite);
    EXPECT_EQ(target.BitmapPixel(centre + 14, 110), kWhite);
  }
}

TEST(Chart3D, SeriesAreDrawnInOrder) {
  ViewOn target(100, 100);
  CTransform3D* transform = nullptr;
  CChart3D* chart = target.view->NewChart3D({0, 0, 0, 0}, {1, 1, 1, 0}, &transform);
  double x = 0;
  double height = 1;
  for (const RGBDType& color : {SetRGBD(1, 0, 0, 1), SetRGBD(0, 0, 1, 1)}) {
    CChartObj3D* bar = chart->NewChartObj(transform);
    bar->BarChart25D(&x, &height, 0.0, 0.0, 1, 1.0, 1.0, color, color, 0, 0, 0);
    bar->SetColorMode(0);
  }
  // Equal depth: the later one wins, as the depth test passes equal depths.
  target.view->DrawViewScreen();
  EXPECT_EQ(target.WindowPixel(50, 50), kBlue);
  chart->GetChartObj(1)->EnableChartObj(0);
  target.view->DrawViewScreen();
  EXPECT_EQ(target.WindowPixel(50, 50), kRed);
}

}  // namespace
