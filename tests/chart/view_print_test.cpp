#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "chart/view_fixture.h"
#include "support/caught_error.h"
#include "support/pages.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

constexpr int kFit = 1;
constexpr int kWholePage = 2;
constexpr int kNormalised = 3;

const CaughtError kNoBitmap{8, 6, "OnPrint"};
const CaughtError kNoPrinter{9, 9, "PrintDIB"};

/// A window that takes down who asks for redrawing and who borrows its device context.
class PrintingWindow : public CWnd {
 public:
  PrintingWindow() { CreateOffscreen(40, 30); }
  CDC* GetDC() override {
    ++borrowed;
    return CWnd::GetDC();
  }
  int ReleaseDC(CDC* dc) override {
    --borrowed;
    return CWnd::ReleaseDC(dc);
  }
  void InvalidateRect(const RECT* rect, BOOL erase) override {
    requests.emplace_back(rect == nullptr, erase != FALSE);
  }

  int borrowed = 0;
  std::vector<std::pair<bool, bool>> requests;  ///< for the whole window, with erasing
};

const std::vector<std::pair<bool, bool>> kWholeWindowErased{{true, true}};

/// A view of 100 x 60 pixels on a window of 40 x 30.
class ViewPrint : public ::testing::Test {
 protected:
  ViewPrint() : view(&window, 100, 60) { view.EnableBorder(0); }

  void ExpectViewSize(int expectedWidth, int expectedHeight) const {
    int width = 0;
    int height = 0;
    view.GetViewSize(width, height);
    EXPECT_EQ(width, expectedWidth);
    EXPECT_EQ(height, expectedHeight);
  }

  PrintingWindow window;
  CChartView3D view;
  RecordingPage page{{4800, 6600, 600, 600}};
};

TEST_F(ViewPrint, HasItsDefaults) {
  const CChartView3D other;
  EXPECT_EQ(other.GetPrintScaleMode(), kFit);
  EXPECT_EQ(other.GetPrintingState(), 0);
  REALRECT rectangle{9, 9, 9, 9};
  other.GetNormPrintRect(rectangle);
  EXPECT_EQ(rectangle.x, 0.0);
  EXPECT_EQ(rectangle.y, 0.0);
  EXPECT_EQ(rectangle.width, 1.0);
  EXPECT_EQ(rectangle.height, 1.0);
}

TEST_F(ViewPrint, KeepsItsPropertiesOutOfFiles) {
  const TemporaryFile before;
  view.Save(before.Path());
  view.SetPrintScaleMode(-7);
  view.SetNormPrintRect({0.1, 0.2, 0.3, 0.4});
  EXPECT_EQ(view.GetPrintScaleMode(), -7);
  REALRECT rectangle{};
  view.GetNormPrintRect(rectangle);
  EXPECT_EQ(rectangle.x, 0.1);
  EXPECT_EQ(rectangle.y, 0.2);
  EXPECT_EQ(rectangle.width, 0.3);
  EXPECT_EQ(rectangle.height, 0.4);
  const TemporaryFile after;
  view.Save(after.Path());
  EXPECT_EQ(after.Read(), before.Read());
  view.Load(before.Path());
  EXPECT_EQ(view.GetPrintScaleMode(), -7);
}

TEST_F(ViewPrint, FitsThePictureOnThePage) {
  view.OnPrint(&page, nullptr);
  ASSERT_EQ(page.strips.size(), 1U);
  // 60 * 4800 / 100 = 2880, less margins of 200.
  EXPECT_EQ(page.strips[0].place.left, 200);
  EXPECT_EQ(page.strips[0].place.top, 200);
  EXPECT_EQ(page.strips[0].place.right, 4600);
  EXPECT_EQ(page.strips[0].place.bottom, 2680);
}

TEST_F(ViewPrint, HandsModeAndRectangleOn) {
  view.SetNormPrintRect({0.1, 0.1, 0.5, 0.5});
  CPrintInfo info;
  // Only the lowest 16 bits of a mode count: 65536 + 3.
  for (const int mode : {kNormalised, 65539}) {
    view.SetPrintScaleMode(mode);
    page.strips.clear();
    view.OnPrint(&page, &info);
    ASSERT_EQ(page.strips.size(), 1U);
    EXPECT_EQ(page.strips[0].place.left, 680);
    EXPECT_EQ(page.strips[0].place.top, 860);
    EXPECT_EQ(page.strips[0].place.right, 2680);
    EXPECT_EQ(page.strips[0].place.bottom, 3760);
  }
  REALRECT rectangle{};
  view.GetDIBSection()->GetNormPrintRect(rectangle);
  EXPECT_EQ(rectangle.x, 0.1);
  EXPECT_EQ(rectangle.height, 0.5);
  view.SetPrintScaleMode(kWholePage);
  view.OnPrint(&page, &info);
  EXPECT_EQ(page.strips.back().place.right, 4600);
  EXPECT_EQ(page.strips.back().place.bottom, 6400);
}

TEST_F(ViewPrint, DrawsAtTheBitmapsSize) {
  view.NewChart3D()->SetChartPosition({0.0, 0.5, 0.5, 0.5});  // the upper left quarter
  view.GetChart(0)->EnableBorder(0);
  view.GetChart(0)->SetChartBkColor(SetRGBD(0, 1, 1, 1));
  view.DrawViewScreen();
  ExpectViewSize(40, 30);
  PixelPage paper(200, 120);
  view.SetPrintScaleMode(kWholePage);
  view.OnPrint(&paper, nullptr);
  ExpectViewSize(100, 60);
  for (int y = 0; y < 120; ++y) {
    for (int x = 0; x < 200; ++x) {
      const bool inChart = x < 100 && y < 60;
      ASSERT_EQ(paper.GetPixel(x, y), inChart ? RGB(0, 255, 255) : RGB(255, 255, 255))
          << x << ", " << y;
    }
  }
}

TEST_F(ViewPrint, PrintsInsideOnPrintOnly) {
  view.DrawViewScreen();
  view.DrawViewPrinter(&page);
  view.DrawViewPrinter(nullptr);
  EXPECT_TRUE(page.strips.empty());
  ExpectViewSize(40, 30);
  CChartView3D().DrawViewPrinter(&page);
  view.OnEndPrinting(&page, nullptr);
  view.OnEndPrinting(nullptr, nullptr);
  EXPECT_TRUE(page.strips.empty());
  EXPECT_TRUE(window.requests.empty());
}

TEST_F(ViewPrint, TheScreenWaitsUntilItIsDone) {
  view.DrawViewScreen();
  CDC* const screen = window.CWnd::GetDC();
  ASSERT_EQ(screen->GetPixel(0, 0), RGB(255, 255, 255));
  view.SetViewBkColor(SetRGBD(1, 0, 0, 1));
  int asked = 0;
  page.whilePrinting = [&] {
    ++asked;
    EXPECT_EQ(view.GetPrintingState(), 1);
    view.DrawViewScreen();
    view.DrawViewScreen(screen);
    view.DrawViewScreen(screen, 0, 0, 10, 10);
    view.DrawViewScreen(nullptr);
    view.DrawViewScreen(nullptr, 0, 0, 10, 10);
    EXPECT_EQ(screen->GetPixel(0, 0), RGB(255, 255, 255));
    EXPECT_EQ(window.borrowed, 0);
    ExpectViewSize(100, 60);
    EXPECT_TRUE(window.requests.empty());
  };
  view.OnPrint(&page, nullptr);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(view.GetPrintingState(), 0);
  EXPECT_EQ(window.requests, kWholeWindowErased);
  view.DrawViewScreen();
  EXPECT_EQ(screen->GetPixel(0, 0), RGB(255, 0, 0));
  ExpectViewSize(40, 30);
}

TEST_F(ViewPrint, AFailureEndsThePrinting) {
  page.refusedStrip = 0;
  EXPECT_EQ(Catch([&] { view.OnPrint(&page, nullptr); }), kNoPrinter);
  EXPECT_EQ(view.GetPrintingState(), 0);
  EXPECT_EQ(window.requests, kWholeWindowErased);
  CDC none;
  for (CDC* const printer : {static_cast<CDC*>(nullptr), &none}) {
    window.requests.clear();
    EXPECT_EQ(Catch([&] { view.OnPrint(printer, nullptr); }), kNoPrinter);
    EXPECT_EQ(view.GetPrintingState(), 0);
    EXPECT_EQ(window.requests, kWholeWindowErased);
  }
  view.DrawViewScreen();
  ExpectViewSize(40, 30);
}

TEST_F(ViewPrint, NeedsABitmap) {
  CChartView3D nowhere;
  EXPECT_EQ(Catch([&] { nowhere.OnPrint(&page, nullptr); }), kNoBitmap);
  EXPECT_EQ(nowhere.GetPrintingState(), 0);
  CWnd later;
  CChartView3D waiting(&later);
  EXPECT_EQ(Catch([&] { waiting.OnPrint(&page, nullptr); }), kNoBitmap);
  EXPECT_TRUE(page.strips.empty());
}

TEST_F(ViewPrint, ThePageHasTheViewsPaletteMeanwhile) {
  ViewOn target(16, 8, 8);
  const HPALETTE own = target.view->GetDIBSection()->GetPaletteHandle();
  ASSERT_NE(own, nullptr);
  const auto stock = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
  HPALETTE meanwhile = nullptr;
  page.whilePrinting = [&] {
    meanwhile = SelectPalette(page.m_hDC, stock, FALSE);
    SelectPalette(page.m_hDC, meanwhile, FALSE);
  };
  target.view->OnPrint(&page, nullptr);
  EXPECT_EQ(meanwhile, own);
  EXPECT_EQ(SelectPalette(page.m_hDC, stock, FALSE), stock);
}

TEST_F(ViewPrint, ViewsOfEveryDepthArePrinted) {
  for (const int bits : {8, 24, 32}) {
    SCOPED_TRACE(bits);
    ViewOn target(20, 10, bits);
    target.view->EnableBorder(0);
    target.view->SetViewBkColor(SetRGBD(0, 0, 1, 1));
    PixelPage paper(20, 10);
    target.view->OnPrint(&paper, nullptr);
    EXPECT_EQ(paper.GetPixel(0, 0), RGB(0, 0, 255));
    EXPECT_EQ(paper.GetPixel(19, 9), RGB(0, 0, 255));
  }
}

}  // namespace
