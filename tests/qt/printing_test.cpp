#include <QtCore/QTemporaryDir>
#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>
#include <QtPrintSupport/QPrintPreviewWidget>
#include <QtPrintSupport/QPrinter>

#include "orvalix/qt/qt_dc.h"
#include "qt/qt_fixture.h"

namespace {

using namespace orvalix::test;

constexpr int kFit = 1;
constexpr int kWholePage = 2;
constexpr int kNormalised = 3;
constexpr int kDotsPerInch = 300;

const QColor kPaper(255, 255, 255);
const QColor kInk(0, 128, 255);

/// A blue view whose upper left quarter is red, 400 x 300 pixels.
void FillWithColors(CChartView3D& view) {
  view.EnableBorder(0);
  view.SetViewBkColor(COLORREFtoRGDB(RGB(0, 128, 255)));
  CChart3D* chart = view.NewChart3D();
  chart->EnableBorder(0);
  chart->SetChartPosition({0.0, 0.5, 0.5, 0.5});
  chart->SetChartBkColor(SetRGBD(1.0, 0.0, 0.0, 1.0));
}

/// The extent of the picture on a rasterised page.
QRect PictureOn(const QImage& page) {
  QRect extent;
  for (int y = 0; y < page.height(); ++y) {
    for (int x = 0; x < page.width(); ++x) {
      if (page.pixelColor(x, y) != kPaper) extent |= QRect(x, y, 1, 1);
    }
  }
  return extent;
}

class QtPrinting : public ::testing::Test {
 protected:
  QtPrinting() : widget(QSize(400, 300)) { FillWithColors(*widget.GetView()); }

  QString Path() const { return folder.filePath("page.pdf"); }

  /// The one page of the file, at the resolution that it was printed with.
  QImage Rasterise() {
    RunProgram("pdftoppm", {"-r", QString::number(kDotsPerInch), "-png", "-singlefile", Path(),
                            folder.filePath("page")});
    return QImage(folder.filePath("page.png"));
  }

  QTemporaryDir folder;
  ChartWidget widget;
};

TEST_F(QtPrinting, APrinterTellsItsPage) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(Path());
  printer.setResolution(kDotsPerInch);
  printer.setPageSize(QPageSize(QPageSize::A4));
  printer.setPageMargins(QMarginsF(25.4, 12.7, 25.4, 25.4), QPageLayout::Millimeter);
  QPainter painter(&printer);
  const CQtDC dc(&painter);
  // A4 has 2480 x 3508 pixels; the margins take 300 + 300 and 150 + 300.
  EXPECT_NEAR(dc.GetDeviceCaps(HORZRES), 1880, 2);
  EXPECT_NEAR(dc.GetDeviceCaps(VERTRES), 3058, 2);
  EXPECT_EQ(dc.GetDeviceCaps(LOGPIXELSX), kDotsPerInch);
  EXPECT_EQ(dc.GetDeviceCaps(LOGPIXELSY), kDotsPerInch);
  EXPECT_EQ(dc.GetDeviceCaps(BITSPIXEL), 32);
  EXPECT_EQ(dc.GetDeviceCaps(PLANES), 1);
}

/// The page of a PDF file, printed in a scale mode, has the picture where CalculatePrintRect()
/// says.
class PrintedPage : public QtPrinting, public ::testing::WithParamInterface<int> {
 protected:
  void ExpectPictureInPlace(const RECT& place, const QPoint& margin) {
    const QImage page = Rasterise();
    ASSERT_FALSE(page.isNull());
    const QRect extent = PictureOn(page);
    EXPECT_NEAR(extent.left(), margin.x() + place.left, 1);
    EXPECT_NEAR(extent.top(), margin.y() + place.top, 1);
    EXPECT_NEAR(extent.right() + 1, margin.x() + place.right, 1);
    EXPECT_NEAR(extent.bottom() + 1, margin.y() + place.bottom, 1);
    const QPoint middle = extent.center();
    const int inward = 12;
    EXPECT_EQ(page.pixelColor(extent.topLeft() + QPoint(inward, inward)), QColor(255, 0, 0));
    EXPECT_EQ(page.pixelColor(middle - QPoint(inward, inward)), QColor(255, 0, 0));
    EXPECT_EQ(page.pixelColor(middle + QPoint(inward, inward)), kInk);
    EXPECT_EQ(page.pixelColor(extent.bottomRight() - QPoint(inward, inward)), kInk);
    EXPECT_EQ(page.pixelColor(middle.x() + inward, extent.top() + inward), kInk);
    EXPECT_EQ(page.pixelColor(extent.left() + inward, middle.y() + inward), kInk);
  }
};

TEST_P(PrintedPage, HasThePictureInItsPlace) {
  if (!IsInstalled("pdftoppm")) GTEST_SKIP() << "there is no pdftoppm";
  const REALRECT part{0.1, 0.2, 0.5, 0.4};
  widget.GetView()->SetPrintScaleMode(GetParam());
  widget.GetView()->SetNormPrintRect(part);
  for (const auto orientation : {QPageLayout::Portrait, QPageLayout::Landscape}) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(Path());
    printer.setResolution(kDotsPerInch);
    printer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), orientation,
                                      QMarginsF(20, 15, 10, 25), QPageLayout::Millimeter));
    RECT place{};
    QPoint margin;
    {
      QPainter painter(&printer);
      CQtDC dc(&painter);
      widget.GetView()->GetDIBSection()->CalculatePrintRect(
          &dc, place, static_cast<unsigned short>(GetParam()), part);
      margin = printer.pageLayout().paintRectPixels(kDotsPerInch).topLeft();
    }
    ASSERT_TRUE(widget.Print(printer));
    ExpectPictureInPlace(place, margin);
  }
}

TEST_P(PrintedPage, OfAPdfWriterToo) {
  if (!IsInstalled("pdftoppm")) GTEST_SKIP() << "there is no pdftoppm";
  widget.GetView()->SetPrintScaleMode(GetParam());
  QPdfWriter pages(Path());
  pages.setResolution(kDotsPerInch);
  pages.setPageSize(QPageSize(QPageSize::A5));
  RECT place{};
  {
    QPainter painter(&pages);
    CQtDC dc(&painter);
    widget.GetView()->GetDIBSection()->CalculatePrintRect(
        &dc, place, static_cast<unsigned short>(GetParam()), {0.0, 0.0, 1.0, 1.0});
  }
  ASSERT_TRUE(widget.Print(pages));
  ExpectPictureInPlace(place, pages.pageLayout().paintRectPixels(kDotsPerInch).topLeft());
}

INSTANTIATE_TEST_SUITE_P(Modes, PrintedPage, ::testing::Values(kFit, kWholePage, kNormalised));

// 2000 x 1500 pixels of 4 bytes go to the page in three strips of at most 4 MiB.
TEST_F(QtPrinting, StripsMeetWithoutAGap) {
  if (!IsInstalled("pdftoppm")) GTEST_SKIP() << "there is no pdftoppm";
  ChartWidget large(QSize(2000, 1500));
  large.GetView()->EnableBorder(0);
  large.GetView()->SetViewBkColor(SetRGBD(0.0, 0.0, 0.0, 1.0));
  QPdfWriter pages(Path());
  pages.setResolution(kDotsPerInch);
  ASSERT_TRUE(large.Print(pages));
  const QImage page = Rasterise();
  const QRect extent = PictureOn(page);
  ASSERT_GT(extent.height(), 1000);
  const int x = extent.center().x();
  for (int y = extent.top() + 2; y < extent.bottom() - 2; ++y) {
    ASSERT_EQ(page.pixelColor(x, y), QColor(0, 0, 0)) << "row " << y - extent.top();
  }
}

TEST_F(QtPrinting, LosesNothingOfThePicture) {
  if (!IsInstalled("pdfimages")) GTEST_SKIP() << "there is no pdfimages";
  ChartWidget bars(QSize(400, 300));
  FillWithBars(*bars.GetView());
  QPdfWriter pages(Path());
  ASSERT_TRUE(bars.Print(pages));
  RunProgram("pdfimages", {"-png", Path(), folder.filePath("image")});
  EXPECT_EQ(QImage(folder.filePath("image-000.png")).convertToFormat(QImage::Format_RGB32),
            OffscreenPicture(400, 300, FillWithBars));
}

TEST_F(QtPrinting, TheWindowIsRepaintedAfterwards) {
  widget.resize(200, 100);
  ShowOnScreen(widget);
  QPdfWriter pages(Path());
  EXPECT_TRUE(widget.Print(pages));
  EXPECT_EQ(Screenshot(widget), OffscreenPicture(200, 100, FillWithColors));
}

TEST_F(QtPrinting, AFileThatCannotBeWrittenIsReported) {
  QPdfWriter pages(folder.filePath("no/such/folder/page.pdf"));
  EXPECT_FALSE(widget.Print(pages));
}

TEST_F(QtPrinting, APreviewShowsThePage) {
  QPrinter printer(QPrinter::ScreenResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  QPrintPreviewWidget preview(&printer);
  ChartWidget large(QSize(1600, 1200));
  FillWithColors(*large.GetView());
  int painted = 0;
  QObject::connect(&preview, &QPrintPreviewWidget::paintRequested, [&](QPrinter* page) {
    ++painted;
    EXPECT_TRUE(large.Print(*page));
  });
  preview.resize(400, 500);
  ShowOnScreen(preview);
  EXPECT_EQ(painted, 1);
  const QImage shown = Screenshot(preview);
  int blue = 0;
  int red = 0;
  for (int y = 0; y < shown.height(); ++y) {
    for (int x = 0; x < shown.width(); ++x) {
      blue += shown.pixelColor(x, y) == kInk ? 1 : 0;
      red += shown.pixelColor(x, y) == QColor(255, 0, 0) ? 1 : 0;
    }
  }
  EXPECT_GT(red, 1000);
  EXPECT_NEAR(blue, 3 * red, red / 5);
}

}  // namespace
