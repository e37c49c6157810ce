#include "orvalix/chart/chart_view_3d.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "chart/view_fixture.h"
#include "orvalix/render/font_3d.h"
#include "orvalix/render/gl_api_internal.h"
#include "support/caught_error.h"
#include "support/feedback.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

TEST(ChartView3D, StartsWithItsDefaults) {
  const CChartView3D view;
  EXPECT_EQ(view.GetVersionNumber(), 1.0);
  EXPECT_EQ(view.GetClassTag(), 707);
  EXPECT_EQ(view.GetViewBkColor().red, 1.0);
  EXPECT_EQ(view.GetViewBkColor().alpha, 1.0);
  EXPECT_EQ(view.GetViewBkMode(), 2);
  EXPECT_EQ(view.GetViewBorderColor().blue, 0.0);
  EXPECT_EQ(view.GetViewBorderColor().alpha, 1.0);
  EXPECT_EQ(view.GetViewBorderThickness(), 1.0);
  EXPECT_EQ(view.GetBorderEnable(), 1);
  EXPECT_EQ(view.GetFontItalics(), 0);
  EXPECT_EQ(view.GetFontUnderline(), 0);
  EXPECT_EQ(view.GetFontWeight(), 700);
  EXPECT_STREQ(view.GetFontName(), "Arial");
  EXPECT_EQ(view.GetOpenGLPntr(), nullptr);
  EXPECT_EQ(view.GetDIBSection(), nullptr);
  EXPECT_EQ(view.GetNumCharts(), 0);
  EXPECT_EQ(view.GetChart(0), nullptr);
}

TEST(ChartView3D, NeedsAWindow) {
  const CaughtError expected{11, 6, "CChartView3D"};
  EXPECT_EQ(Catch([] { CChartView3D view(nullptr); }), expected);
  EXPECT_EQ(Catch([] { CChartView3D view(nullptr, 10, 10); }), expected);
}

/// A window that has a handle but no device context.
class WindowWithoutDC : public CWnd {
 public:
  WindowWithoutDC() { CreateOffscreen(10, 10); }
  CDC* GetDC() override { return nullptr; }
  int ReleaseDC(CDC*) override { return 0; }
};

TEST(ChartView3D, NeedsADeviceContext) {
  WindowWithoutDC window;
  EXPECT_EQ(Catch([&] { CChartView3D view(&window); }), (CaughtError{14, 6, "InitDeviceContext"}));
  EXPECT_EQ(Catch([&] { CChartView3D view(&window, 5, 5); }),
            (CaughtError{14, 6, "InitDeviceContext"}));
  ViewOn target(10, 10);
  EXPECT_EQ(Catch([&] { target.view->DrawViewScreen(nullptr); }),
            (CaughtError{14, 6, "DrawViewScreen"}));
  EXPECT_EQ(Catch([&] { target.view->DrawViewScreen(nullptr, 0, 0, 5, 5); }),
            (CaughtError{14, 6, "DrawViewScreen"}));
}

TEST(ChartView3D, ReportsBitmapsThatCannotBeMade) {
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(10, 10));
  EXPECT_EQ(Catch([&] { CChartView3D view(&window, -10, 10); }),
            (CaughtError{3, 6, "MakeCompatibleBitmap"}));
  EXPECT_EQ(Catch([&] { CChartView3D view(&window, 10, -10); }),
            (CaughtError{3, 6, "MakeCompatibleBitmap"}));
  EXPECT_EQ(Catch([&] { CChartView3D view(&window, 2000000000, 2000000000); }),
            (CaughtError{3, 6, "MakeCompatibleBitmap"}));
  // Possible as a bitmap, but wider than OpenGL can draw.
  EXPECT_EQ(Catch([&] { CChartView3D view(&window, 1 << 20, 1); }),
            (CaughtError{18, 17, "InitContext"}));
}

TEST(ChartView3D, MakesABitmapOfTheScreensSize) {
  ViewOn target(40, 30);
  ASSERT_NE(target.view->GetDIBSection(), nullptr);
  EXPECT_EQ(target.view->GetDIBSection()->DIBWidth(), 40);
  EXPECT_EQ(target.view->GetDIBSection()->DIBHeight(), 30);
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(40, 30));
  const CChartView3D sized(&window, 100, 50);
  EXPECT_EQ(sized.GetDIBSection()->DIBWidth(), 100);
  EXPECT_EQ(sized.GetDIBSection()->DIBHeight(), 50);
}

TEST(ChartView3D, IsInitialisedByTheFirstDrawingWhenItsWindowWasNotMadeYet) {
  CWnd window;
  CChartView3D view(&window);
  EXPECT_EQ(view.GetDIBSection(), nullptr);
  view.DrawViewScreen();  // doesn't initialise
  EXPECT_EQ(view.GetDIBSection(), nullptr);
  CWnd other;
  ASSERT_TRUE(other.CreateOffscreen(40, 30));
  view.DrawViewScreen(other.GetDC());  // still no handle
  EXPECT_EQ(view.GetDIBSection(), nullptr);
  EXPECT_EQ(Catch([&] { view.SaveToFile("never.bmp"); }), (CaughtError{8, 6, "SaveToFile"}));

  ASSERT_TRUE(window.CreateOffscreen(40, 30));
  view.DrawViewScreen();
  EXPECT_EQ(view.GetDIBSection(), nullptr);
  view.DrawViewScreen(window.GetDC());
  ASSERT_NE(view.GetDIBSection(), nullptr);
  EXPECT_EQ(view.GetDIBSection()->DIBWidth(), 40);
  CDIBSection* const made = view.GetDIBSection();
  view.DrawViewScreen(window.GetDC(), 0, 0, 10, 10);
  EXPECT_EQ(view.GetDIBSection(), made);  // made once
}

TEST(ChartView3D, DeferredViewsWithASizeTakeTheScreensSize) {
  CWnd window;
  CChartView3D view(&window, 7, 5);
  ASSERT_TRUE(window.CreateOffscreen(40, 30));
  view.DrawViewScreen(window.GetDC(), 0, 0, 10, 10);
  ASSERT_NE(view.GetDIBSection(), nullptr);
  EXPECT_EQ(view.GetDIBSection()->DIBWidth(), 40);
}

TEST(ChartView3D, AnEmptyViewHasBackgroundAndFrame) {
  ViewOn target(100, 60);
  target.view->SetViewBkColor(SetRGBD(0, 0, 1, 0));
  target.view->SetViewBorderColor(SetRGBD(1, 0, 0, 1));
  target.view->DrawViewScreen();
  EXPECT_EQ(target.WindowPixel(50, 30), kBlue);
  // The frame: dx = 2 / (100 - 1), half a pixel or so inside the edge.
  int red = 0;
  for (int x = 0; x < 5; ++x) red += target.WindowPixel(x, 30) == kRed ? 1 : 0;
  EXPECT_EQ(red, 1);
  target.view->EnableBorder(0);
  target.view->DrawViewScreen();
  for (int x = 0; x < 5; ++x) EXPECT_EQ(target.WindowPixel(x, 30), kBlue);
}

TEST(ChartView3D, TheFrameStandsJustInsideTheViewVolume) {
  ViewOn target(101, 51);
  target.view->SetViewBorderThickness(3.0);
  target.view->SetViewBorderColor(SetRGBD(1, 0, 0, 1));
  target.view->DrawViewScreen();
  const auto drawn = CaptureFeedback([&] { target.view->DrawViewScreen(); });
  ASSERT_EQ(drawn.size(), 4U);
  // dx = 2 / 98, dy = 2 / 48: x = 0.999 - dx, y = 0.999 - dy, z = 0.998.
  const double x = (0.999 - 2.0 / 98.0 + 1.0) / 2.0 * 101.0;
  const double y = (0.999 - 2.0 / 48.0 + 1.0) / 2.0 * 51.0;
  const std::array<std::array<double, 2>, 5> corners{
      {{101 - x, y}, {x, y}, {x, 51 - y}, {101 - x, 51 - y}, {101 - x, y}}};
  for (std::size_t i = 0; i < 4; ++i) {
    for (std::size_t end = 0; end < 2; ++end) {
      EXPECT_NEAR(drawn[i].vertices[end].x, corners[i + end][0], 1e-3);
      EXPECT_NEAR(drawn[i].vertices[end].y, corners[i + end][1], 1e-3);
      EXPECT_NEAR(drawn[i].vertices[end].z, 0.999, 1e-6);
      EXPECT_EQ(drawn[i].vertices[end].red, 1.0);
    }
  }
  GLfloat width = 0;
  glGetFloatv(GL_LINE_WIDTH, &width);
  EXPECT_EQ(width, 3.0F);
}

TEST(ChartView3D, TheBackgroundsAlphaIsNotUsed) {
  ViewOn target(10, 10);
  target.view->SetViewBkColor(SetRGBD(0.5, 0.25, 1, 1));
  target.view->DrawViewScreen();
  std::array<float, 4> color{};
  glGetFloatv(GL_COLOR_CLEAR_VALUE, color.data());
  EXPECT_EQ(color, (std::array<float, 4>{0.5, 0.25, 1, 0}));
}

TEST(ChartView3D, DrawsAtTheSizeOfTheWindow) {
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(40, 30));
  CChartView3D view(&window, 100, 100);
  view.EnableBorder(0);
  view.SetViewBkColor(SetRGBD(1, 0, 0, 1));
  view.DrawViewScreen();
  int width = 0;
  int height = 0;
  view.GetViewSize(width, height);
  EXPECT_EQ(width, 40);
  EXPECT_EQ(height, 30);
  // The picture is the lower left corner of the bitmap; the rest keeps its zeros.
  const auto* bits = static_cast<const unsigned char*>(view.GetDIBSection()->FindDIBBits());
  const std::ptrdiff_t row = view.GetDIBSection()->StorageWidth();
  EXPECT_EQ(bits[29 * row + 39 * 4 + 2], 255);
  EXPECT_EQ(bits[29 * row + 40 * 4 + 2], 0);
  EXPECT_EQ(bits[30 * row + 39 * 4 + 2], 0);
  EXPECT_EQ(window.GetDC()->GetPixel(0, 0), 255U);
  EXPECT_EQ(window.GetDC()->GetPixel(39, 29), 255U);
}

TEST(ChartView3D, CopiesToAPlaceInsideTheWindow) {
  ViewOn target(40, 30);
  target.view->EnableBorder(0);
  target.view->SetViewBkColor(SetRGBD(0, 1, 0, 1));
  target.view->DrawViewScreen(target.window.GetDC(), 10, 5, 20, 15);
  EXPECT_EQ(target.WindowPixel(9, 5), kBlack);
  EXPECT_EQ(target.WindowPixel(10, 4), kBlack);
  EXPECT_EQ(target.WindowPixel(10, 5), kGreen);
  EXPECT_EQ(target.WindowPixel(29, 19), kGreen);
  EXPECT_EQ(target.WindowPixel(30, 19), kBlack);
  EXPECT_EQ(target.WindowPixel(29, 20), kBlack);
}

TEST(ChartView3D, ALargerWindowIsDrawnOnlyUpToTheBitmap) {
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(60, 50));
  CChartView3D view(&window, 20, 10);
  view.EnableBorder(0);
  view.DrawViewScreen();
  // The bitmap's 20 x 10 pixels stand at the window's lower left.
  const auto isWhite = [&](int x, int y) { return window.GetDC()->GetPixel(x, y) == 0xFFFFFFU; };
  EXPECT_TRUE(isWhite(0, 49));
  EXPECT_TRUE(isWhite(19, 40));
  EXPECT_FALSE(isWhite(20, 49));
  EXPECT_FALSE(isWhite(0, 39));
}

TEST(ChartView3D, ViewsWithoutAnAreaDrawNothing) {
  ViewOn empty(0, 0);
  empty.view->NewChart3D();
  empty.view->DrawViewScreen();
  ViewOn target(10, 10);
  target.view->EnableBorder(0);
  target.view->DrawViewScreen();
  target.view->SetViewBkColor(SetRGBD(1, 0, 0, 1));
  constexpr int kLowest = std::numeric_limits<int>::min();
  for (const auto& [width, height] : std::initializer_list<std::pair<int, int>>{
           {0, 0}, {0, 5}, {5, 0}, {-5, -5}, {-5, 5}, {5, -5}, {kLowest, 5}, {5, kLowest}}) {
    target.view->DrawViewScreen(target.window.GetDC(), 0, 0, width, height);
    for (int i = 0; i < 100; ++i) {
      ASSERT_EQ(target.WindowPixel(i % 10, i / 10), kWhite) << width << " x " << height;
    }
  }
  target.view->DrawViewScreen(target.window.GetDC(), 0, 0, 1, 1);
  EXPECT_EQ(target.WindowPixel(0, 0), kRed);
  EXPECT_EQ(target.WindowPixel(1, 0), kWhite);
  target.view->DrawViewScreen(target.window.GetDC(), 0, 0, std::numeric_limits<int>::max(), 1);
  EXPECT_EQ(target.WindowPixel(9, 0), kRed);
  EXPECT_EQ(target.WindowPixel(0, 1), kWhite);
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(10, 10));
  CChartView3D pixel(&window, 0, 0);
  EXPECT_EQ(pixel.GetDIBSection()->DIBWidth(), 1);
  pixel.NewChart3D({0, 0, 0, 0}, {1, 1, 1, 0});
  pixel.DrawViewScreen();
}

TEST(ChartView3D, RegistersAChangedFontOnce) {
  ViewOn target(20, 20);
  COpenGL& gl = *target.view->GetOpenGLPntr();
  const auto registered = [&] {
    gl.GetFont()->SetNumFontChars(-1);
    target.view->DrawViewScreen();
    return gl.GetFont()->GetNumFontChars();
  };
  EXPECT_EQ(registered(), 128);
  EXPECT_EQ(registered(), -1);  // unchanged: not again
  target.view->SetFont("Courier", 400, 100);
  EXPECT_EQ(target.view->GetFontWeight(), 400);
  EXPECT_STREQ(target.view->GetFontName(), "Courier");
  EXPECT_EQ(registered(), 100);
  EXPECT_EQ(registered(), -1);
  target.view->SetFont("Arial", 700, 1, 2, 90);
  EXPECT_EQ(target.view->GetFontItalics(), 1);
  EXPECT_EQ(target.view->GetFontUnderline(), 2);
  EXPECT_EQ(registered(), 90);
  target.view->SetFontItalics(0);
  EXPECT_EQ(registered(), 90);
  target.view->SetFontUnderline(0);
  EXPECT_EQ(registered(), 90);
  EXPECT_EQ(registered(), -1);
}

TEST(ChartView3D, DrawsChartsInOrder) {
  ViewOn target(20, 20);
  CChart3D* first = target.view->NewChart3D();
  CChart3D* second = target.view->NewChart3D();
  EXPECT_EQ(target.view->GetNumCharts(), 2);
  EXPECT_EQ(target.view->GetChart(0), first);
  EXPECT_EQ(target.view->GetChart(1), second);
  EXPECT_EQ(target.view->GetChart(2), nullptr);
  EXPECT_EQ(target.view->GetChart(-1), nullptr);
  first->SetChartBkColor(SetRGBD(1, 0, 0, 1));
  second->SetChartBkColor(SetRGBD(0, 1, 0, 1));
  target.view->DrawViewScreen();
  EXPECT_EQ(target.WindowPixel(10, 10), kGreen);
}

TEST(ChartView3D, SeveralViewsDrawInTurn) {
  ViewOn first(20, 20);
  ViewOn second(30, 30);
  first.view->SetViewBkColor(SetRGBD(1, 0, 0, 1));
  second.view->SetViewBkColor(SetRGBD(0, 0, 1, 1));
  first.view->NewChart3D()->SetChartPosition({0, 0, 0.5, 1});
  for (int i = 0; i < 3; ++i) {
    first.view->DrawViewScreen();
    second.view->DrawViewScreen();
  }
  EXPECT_EQ(first.WindowPixel(15, 10), kRed);
  EXPECT_EQ(first.WindowPixel(5, 10), kWhite);
  EXPECT_EQ(second.WindowPixel(15, 15), kBlue);
  { const ViewOn third(5, 5); }
  first.view->DrawViewScreen();
  EXPECT_EQ(first.WindowPixel(15, 10), kRed);
}

TEST(ChartView3D, AnotherViewsContextIsNotTouched) {
  ViewOn first(20, 20);
  const ViewOn second(20, 20);
  // The second context is current; making a chart in the first one must not shade the second.
  glShadeModel(GL_FLAT);
  first.view->NewChart3D();
  second.view->GetOpenGLPntr()->MakeCurrent();
  GLint model = 0;
  glGetIntegerv(GL_SHADE_MODEL, &model);
  EXPECT_EQ(model, GL_FLAT);
}

TEST(ChartView3D, SavesPicturesAtTheBitmapsSize) {
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(10, 10));
  CChartView3D view(&window, 40, 30);
  view.SetViewBkColor(SetRGBD(0, 0, 1, 1));
  const TemporaryFile file;
  view.SaveToFile(file.Path());
  const Bytes bytes = file.Read();
  ASSERT_EQ(bytes.size(), 1078U + 40 * 30 * 4);
  EXPECT_EQ(bytes[18], 40);
  // The middle pixel is blue: blue, green, red, opaque.
  const std::size_t middle = 1078 + (15 * 40 + 20) * 4;
  EXPECT_EQ(Bytes(bytes.begin() + static_cast<std::ptrdiff_t>(middle),
                  bytes.begin() + static_cast<std::ptrdiff_t>(middle) + 4),
            (Bytes{255, 0, 0, 255}));
  int width = 0;
  int height = 0;
  view.GetViewSize(width, height);
  EXPECT_EQ(width, 40);
  EXPECT_EQ(height, 30);
  EXPECT_EQ(Catch([&] { view.SaveToFile("/no/such/folder/picture.bmp"); }),
            (CaughtError{6, 9, "SaveDIB"}));
}

TEST(ChartView3D, DrawsIntoWindowsOfEveryDepth) {
  for (const int bits : {8, 24, 32}) {
    SCOPED_TRACE(bits);
    ViewOn target(21, 11, bits);
    target.view->EnableBorder(0);
    target.view->SetViewBkColor(SetRGBD(1, 0, 0, 1));
    target.view->DrawViewScreen();
    EXPECT_EQ(target.view->GetDIBSection()->GetDIBHeader().biBitCount, bits);
    EXPECT_EQ(target.WindowPixel(0, 0), kRed);
    EXPECT_EQ(target.WindowPixel(20, 10), kRed);
  }
}

TEST(ChartView3D, DrawsIntoPixelsOfTheCaller) {
  ViewOn target(20, 20);
  target.view->EnableBorder(0);
  target.view->SetViewBkColor(SetRGBD(0, 1, 0, 1));
  constexpr int kStride = 100;  // larger than 20 pixels take
  std::array<unsigned char, kStride * 20> pixels{};
  CDC dc;
  ASSERT_TRUE(dc.CreateOnPixels(pixels.data(), 20, 20, kStride));
  target.view->DrawViewScreen(&dc);
  const auto at = [&](std::size_t x, std::size_t y, std::size_t component) {
    return static_cast<int>(pixels[y * kStride + x * 4 + component]);
  };
  for (const std::size_t y : {0U, 19U}) {
    EXPECT_EQ(at(19, y, 0), 0);
    EXPECT_EQ(at(19, y, 1), 255);
    EXPECT_EQ(at(19, y, 2), 0);
    EXPECT_EQ(at(19, y, 3), 255);
    EXPECT_EQ(at(20, y, 1), 0);
  }
}

}  // namespace
