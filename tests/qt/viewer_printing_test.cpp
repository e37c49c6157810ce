// On a screen of 1920 x 1080 pixels, and so with a bitmap that is flatter than a page.

#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>
#include <QtPrintSupport/QPrintPreviewWidget>
#include <algorithm>
#include <cmath>

#include "orvalix/qt/qt_dc.h"
#include "qt/viewer_fixture.h"
#include "support/allocation_failure.h"
#include "viewer/page_fit.h"

namespace {

using namespace orvalix::test;
using orvalix::PrintedSize;
using orvalix::SetPrintedSize;

constexpr int kDotsPerInch = 72;

const QColor kPaper(255, 255, 255);
const QColor kGreen(0, 255, 0);
const QColor kRed(255, 0, 0);

/// A blue view with a green tenth at the left and a red one at the right.
void FillWithEdges(CChartView3D& view) {
  view.EnableBorder(0);
  view.SetViewBkColor(SetRGBD(0.0, 0.0, 1.0, 1.0));
  const auto add = [&view](double left, const RGBDType& color) {
    CChart3D* const chart = view.NewChart3D();
    chart->EnableBorder(0);
    chart->SetChartPosition({left, 0.0, 0.1, 1.0});
    chart->SetChartBkColor(color);
  };
  add(0.0, SetRGBD(0.0, 1.0, 0.0, 1.0));
  add(0.9, SetRGBD(1.0, 0.0, 0.0, 1.0));
}

/// The extent of the pixels for which `wanted` holds.
QRect ExtentOf(const QImage& picture, const std::function<bool(const QColor&)>& wanted) {
  QRect extent;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (wanted(picture.pixelColor(x, y))) extent |= QRect(x, y, 1, 1);
    }
  }
  return extent;
}

QRect ExtentOf(const QImage& picture, const QColor& color) {
  return ExtentOf(picture, [&](const QColor& pixel) { return pixel == color; });
}

class PrintingViewer : public Viewer {
 protected:
  void SetUp() override {
    ASSERT_TRUE(window->OpenFile(ChartFile("edges.chart", FillWithEdges)));
    ASSERT_EQ(window->GetChart()->GetView()->GetDIBSection()->DIBWidth(), 1920);
  }

  /// Prints into a file through the menu.
  void Print() {
    dialogs.printAnswer = [this](QPrintDialog& dialog) {
      auto* const file = dialog.findChild<QLineEdit*>("filename");
      ASSERT_NE(file, nullptr);
      file->setText(Path("page.pdf"));
    };
    ActionNamed("&Print\u2026")->trigger();
  }
  QImage PrintedPage() {
    RunProgram("pdftoppm", {"-r", QString::number(kDotsPerInch), "-png", "-singlefile",
                            Path("page.pdf"), Path("page")});
    return QImage(Path("page.png"));
  }
};

// A third of an inch, 24 dots, is free at the left and at the right beside the margin of the paper,
// which may differ from side to side; the rest of the height is shared out above and below.
TEST_F(PrintingViewer, AFlatPictureIsWhollyOnAWidePage) {
  if (!IsInstalled("pdftoppm")) GTEST_SKIP() << "there is no pdftoppm";
  Print();
  const QImage page = PrintedPage();
  ASSERT_GT(page.width(), page.height());
  const QRect picture = ExtentOf(page, [](const QColor& pixel) { return pixel != kPaper; });
  EXPECT_NEAR(picture.width() / static_cast<double>(picture.height()), 1920.0 / 1080.0, 0.01);
  EXPECT_GE(picture.left(), 24);
  EXPECT_GE(page.width() - 1 - picture.right(), 24);
  EXPECT_GT(picture.width(), page.width() * 0.85);
  // Both edges of the chart are there.
  EXPECT_NEAR(ExtentOf(page, kGreen).width(), picture.width() / 10, 2);
  EXPECT_NEAR(ExtentOf(page, kRed).width(), picture.width() / 10, 2);
  EXPECT_NEAR(ExtentOf(page, kRed).right(), picture.right(), 1);
  EXPECT_EQ(dialogs.said, QStringList{});
}

TEST_F(PrintingViewer, FillsThePageWhenItIsToldSo) {
  if (!IsInstalled("pdftoppm")) GTEST_SKIP() << "there is no pdftoppm";
  EXPECT_TRUE(ActionNamed("&Fit in Proportion")->isChecked());
  ActionNamed("Fill the &Page")->trigger();
  EXPECT_FALSE(ActionNamed("&Fit in Proportion")->isChecked());
  Print();
  const QImage page = PrintedPage();
  const QRect picture = ExtentOf(page, [](const QColor& pixel) { return pixel != kPaper; });
  EXPECT_LT(picture.width() / static_cast<double>(picture.height()), 1.55);
  EXPECT_GT(picture.height(), page.height() * 0.8);
  EXPECT_NEAR(ExtentOf(page, kRed).width(), picture.width() / 10, 2);
}

TEST_F(PrintingViewer, ThePreviewShowsTheWholePicture) {
  QRect green;
  QRect red;
  QRect paper;
  dialogs.previewAnswer = [&](QPrintPreviewDialog& dialog) {
    auto* const preview = dialog.findChild<QPrintPreviewWidget*>();
    ASSERT_NE(preview, nullptr);
    Wait(300);
    const QImage shown = Screenshot(*preview);
    green = ExtentOf(shown, kGreen);
    red = ExtentOf(shown, kRed);
    paper = ExtentOf(shown, kPaper);
  };
  ActionNamed("Print Pre&view\u2026")->trigger();
  EXPECT_GT(green.width(), 20);
  EXPECT_NEAR(green.width(), red.width(), 2);
  EXPECT_GT(green.left() - paper.left(), 5);
  EXPECT_GT(paper.right() - red.right(), 5);
}

TEST_F(PrintingViewer, SaysThatItCouldNotPrint) {
  FillWithContours(*window->GetChart()->GetView());
  const LargeAllocationFailure poor(kPoor);
  Print();
  EXPECT_TRUE(dialogs.said.contains(
      "The chart could not be printed. Check that the printer is ready, or that the file can be "
      "written, and try again."))
      << dialogs.said.join('|').toStdString();
  EXPECT_FALSE(QFile::exists(Path("page.pdf")));
}

/// Where a picture goes on a page of 300 dots per inch: 100 dots of margin.
class PageFit : public ::testing::Test {
 protected:
  RECT PlaceOf(const QSize& picture, const QSize& pageInDots, PrintedSize size) {
    ChartWidget widget(picture);
    CChartView3D& view = *widget.GetView();
    QPdfWriter page(folder.filePath("page.pdf"));
    page.setResolution(300);
    page.setPageMargins(QMarginsF());
    page.setPageSize(QPageSize(QSizeF(pageInDots) / 300.0, QPageSize::Inch));
    EXPECT_EQ(page.width(), pageInDots.width());
    EXPECT_EQ(page.height(), pageInDots.height());
    SetPrintedSize(view, page, size);
    QPainter painter(&page);
    CQtDC dc(&painter);
    REALRECT part{};
    view.GetNormPrintRect(part);
    RECT place{};
    view.GetDIBSection()->CalculatePrintRect(
        &dc, place, static_cast<unsigned short>(view.GetPrintScaleMode()), part);
    return place;
  }
  static void ExpectPlace(const RECT& place, int left, int top, int right, int bottom) {
    EXPECT_NEAR(place.left, left, 1);
    EXPECT_NEAR(place.top, top, 1);
    EXPECT_NEAR(place.right, right, 1);
    EXPECT_NEAR(place.bottom, bottom, 1);
  }

  QTemporaryDir folder;
};

// 1600 x 900 in 3600 x 2400 would be 4266 wide. 3400 between the margins are 3400 * 900 / 1600 =
// 1912.5 high, which leaves 487.5 to share.
TEST_F(PageFit, AFlatPictureStandsInTheMiddleOfAWidePage) {
  ExpectPlace(PlaceOf({1600, 900}, {3600, 2400}, PrintedSize::kFit), 100, 244, 3500, 2156);
}

// 300 x 600 in 1800 x 1800 would be 3600 high. 1600 between the margins are 800 wide.
TEST_F(PageFit, ATallPictureStandsInTheMiddleOfASquarePage) {
  ExpectPlace(PlaceOf({300, 600}, {1800, 1800}, PrintedSize::kFit), 500, 100, 1300, 1700);
}

// Scale mode 1 holds: the height is filled, 2400 * 400 / 300 = 3200, or the width, 2400 * 300 / 400
// = 1800, less the margins.
TEST_F(PageFit, WhatFitsStandsAtTheUpperLeft) {
  ExpectPlace(PlaceOf({400, 300}, {3600, 2400}, PrintedSize::kFit), 100, 100, 3100, 2300);
  ExpectPlace(PlaceOf({400, 300}, {2400, 3600}, PrintedSize::kFit), 100, 100, 2300, 1700);
}

TEST_F(PageFit, AWholePageIsFilled) {
  ExpectPlace(PlaceOf({1600, 900}, {3600, 2400}, PrintedSize::kWholePage), 100, 100, 3500, 2300);
}

}  // namespace
