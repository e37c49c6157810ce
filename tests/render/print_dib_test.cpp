#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <initializer_list>
#include <vector>

#include "orvalix/render/section_info_internal.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/pages.h"
#include "support/section.h"

namespace {

using orvalix::test::AllocationMeter;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::kNoError;
using orvalix::test::PageCaps;
using orvalix::test::PixelPage;
using orvalix::test::RecordingPage;
using orvalix::test::Section;
using orvalix::test::Strip;

constexpr unsigned short kFit = 1;
constexpr unsigned short kWholePage = 2;
constexpr unsigned short kNormalised = 3;

const CaughtError kNoBitmap{8, 9, "PrintDIB"};
const CaughtError kNoPrinter{9, 9, "PrintDIB"};

std::vector<LONG> Edges(const RecordingPage& page) {
  std::vector<LONG> edges;
  for (const Strip& strip : page.strips) {
    edges.push_back(strip.place.top);
    edges.push_back(strip.place.bottom);
  }
  return edges;
}

TEST(PrintDIB, ASmallBitmapIsOneStrip) {
  const Section section(100, 60);
  RecordingPage page({4800, 6600, 600, 600});
  section.dib.PrintDIB(&page, kFit, "title");
  ASSERT_EQ(page.strips.size(), 1U);
  const Strip& strip = page.strips[0];
  // As CalculatePrintRect() tells: 60 * 4800 / 100 = 2880 high, less 200 on each side.
  EXPECT_EQ(strip.place.left, 200);
  EXPECT_EQ(strip.place.top, 200);
  EXPECT_EQ(strip.place.right, 4600);
  EXPECT_EQ(strip.place.bottom, 2680);
  EXPECT_EQ(strip.sourceX, 0);
  EXPECT_EQ(strip.sourceY, 0);
  EXPECT_EQ(strip.sourceWidth, 100);
  EXPECT_EQ(strip.sourceHeight, 60);
  EXPECT_EQ(strip.bits, section.dib.FindDIBBits());
  EXPECT_EQ(strip.header.biSize, 40U);
  EXPECT_EQ(strip.header.biWidth, 100);
  EXPECT_EQ(strip.header.biHeight, 60);
  EXPECT_EQ(strip.header.biBitCount, 32);
  EXPECT_EQ(strip.header.biCompression, BI_RGB);
  EXPECT_EQ(strip.usage, DIB_RGB_COLORS);
  EXPECT_EQ(strip.operation, SRCCOPY);
}

TEST(PrintDIB, TakesTheNormalisedRectangle) {
  Section section(100, 60);
  section.dib.SetNormPrintRect({0.1, 0.1, 0.5, 0.5});
  RecordingPage page({4800, 6600, 600, 600});
  section.dib.PrintDIBSection(&page, kNormalised, nullptr);
  ASSERT_EQ(page.strips.size(), 1U);
  EXPECT_EQ(page.strips[0].place.left, 680);
  EXPECT_EQ(page.strips[0].place.top, 860);
  EXPECT_EQ(page.strips[0].place.right, 2680);
  EXPECT_EQ(page.strips[0].place.bottom, 3760);
}

TEST(PrintDIB, TheTitleChangesNothing) {
  const Section section(10, 10);
  for (const char* const title : {static_cast<const char*>(nullptr), "", "a title"}) {
    RecordingPage page({100, 100});
    section.dib.PrintDIB(&page, kWholePage, title);
    EXPECT_EQ(page.strips.size(), 1U);
  }
}

TEST(PrintDIB, LargeBitmapsGoInStripsOfBoundedSize) {
  // 1024 pixels of 4 bytes: 1024 rows are 4 MiB.
  const Section section(1024, 2500);
  RecordingPage page({2048, 5000});
  section.dib.PrintDIB(&page, kWholePage, "");
  // Every row has two pixels.
  EXPECT_EQ(Edges(page), (std::vector<LONG>{0, 2048, 2048, 4096, 4096, 5000}));
  const std::array<int, 3> rows{1024, 1024, 452};
  int first = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const Strip& strip = page.strips[i];
    EXPECT_EQ(strip.place.left, 0);
    EXPECT_EQ(strip.place.right, 2048);
    EXPECT_EQ(strip.sourceHeight, rows[i]);
    EXPECT_EQ(strip.header.biHeight, rows[i]);
    first += rows[i];
    // The strip's bottom row stands first.
    EXPECT_EQ(strip.bits, section.Row(first - 1));
  }
}

TEST(PrintDIB, StripsMeetOnSmallerPages) {
  const Section section(1024, 2500);
  RecordingPage page({100, 1000});
  section.dib.PrintDIB(&page, kWholePage, "");
  // (2 * 1024 * 1000 + 2499) / 5000 = 410.1 and (2 * 2048 * 1000 + 2499) / 5000 = 819.7.
  EXPECT_EQ(Edges(page), (std::vector<LONG>{0, 410, 410, 819, 819, 1000}));
}

TEST(PrintDIB, StripsWithoutAPixelAreLeftOut) {
  const Section section(1024, 2500);
  RecordingPage page({100, 1});
  section.dib.PrintDIB(&page, kWholePage, "");
  // The middle of the one pixel shows row 1250, which is in the second strip.
  EXPECT_EQ(Edges(page), (std::vector<LONG>{0, 1}));
  EXPECT_EQ(page.strips[0].bits, section.Row(2047));
}

TEST(PrintDIB, EveryDepthHasItsColors) {
  for (const int bits : {8, 24, 32}) {
    SCOPED_TRACE(bits);
    Section section(5, 3, bits);
    const RGBQUAD color{1, 2, 3, 0};
    SetDIBColorTable(section.memory.GetSafeHdc(), 200, 1, &color);
    section.FillRow(0, 200);
    RecordingPage page({50, 30});
    section.dib.PrintDIB(&page, kWholePage, "");
    ASSERT_EQ(page.strips.size(), 1U);
    EXPECT_EQ(page.strips[0].header.biBitCount, bits);
    PixelPage paper(50, 30);
    section.dib.PrintDIB(&paper, kWholePage, "");
    EXPECT_EQ(paper.GetPixel(49, 9), bits == 8 ? RGB(3, 2, 1) : RGB(200, 200, 200));
    EXPECT_EQ(paper.GetPixel(49, 10), RGB(0, 0, 0));
    if (bits != 8) continue;
    EXPECT_EQ(page.strips[0].colors[200].rgbRed, 3);
  }
}

TEST(PrintDIB, ColorsLastReadStandInForABitmapThatIsNotSelected) {
  Section section(1, 1, 8);
  const RGBQUAD color{1, 2, 3, 0};
  SetDIBColorTable(section.memory.GetSafeHdc(), 0, 1, &color);
  section.dib.GetCDIBColorTable();
  section.memory.DeleteDC();
  PixelPage paper(1, 1);
  section.dib.PrintDIB(&paper, kWholePage, "");
  EXPECT_EQ(paper.GetPixel(0, 0), RGB(3, 2, 1));
}

TEST(PrintDIB, StandsInItsPlaceTheRightWayUp) {
  Section section(2, 2);
  section.Row(0)[2] = 10;  // red, upper left
  section.Row(0)[6] = 20;
  section.Row(1)[2] = 30;
  section.Row(1)[6] = 40;
  PixelPage page(12, 10, 6, 3);
  section.dib.PrintDIB(&page, kWholePage, "");
  // Margins of 2 and 1 leave 8 x 8 pixels.
  EXPECT_EQ(page.Row(0), std::vector<int>(12, 255));
  EXPECT_EQ(page.Row(9), std::vector<int>(12, 255));
  const std::vector<int> upper{255, 255, 10, 10, 10, 10, 20, 20, 20, 20, 255, 255};
  const std::vector<int> lower{255, 255, 30, 30, 30, 30, 40, 40, 40, 40, 255, 255};
  for (int y = 1; y < 9; ++y) EXPECT_EQ(page.Row(y), y < 5 ? upper : lower) << y;
}

TEST(PrintDIB, StripsShowWhatTheWholeBitmapWould) {
  // Four rows a strip: strips of 4, 4 and 2 rows.
  constexpr int kRows = 10;
  const Section section(262144, kRows);
  for (int y = 0; y < kRows; ++y) section.FillRow(y, y + 1);
  orvalix::SectionInfo whole{section.dib.GetDIBHeader(), {}};
  for (int height = 1; height <= 45; ++height) {
    SCOPED_TRACE(height);
    PixelPage page(3, height);
    section.dib.PrintDIB(&page, kWholePage, "");
    PixelPage expected(3, height);
    expected.StretchDIBits(0, 0, 3, height, 0, 0, 262144, kRows, section.dib.FindDIBBits(),
                           whole.Get(), DIB_RGB_COLORS, SRCCOPY);
    const std::vector<int> printed = page.Column(1);
    const std::vector<int> wanted = expected.Column(1);
    EXPECT_EQ(page.Column(0), printed);
    EXPECT_EQ(page.Column(2), printed);
    EXPECT_TRUE(std::is_sorted(printed.begin(), printed.end()));
    for (std::size_t i = 0; i < printed.size(); ++i) {
      // A strip begins and ends where it does within the whole; between, rounding may take the
      // neighbouring row.
      EXPECT_LE(std::abs(printed[i] - wanted[i]), 1) << i;
      EXPECT_EQ((printed[i] - 1) / 4, (wanted[i] - 1) / 4) << i;
    }
    if (height % kRows == 0) {
      EXPECT_EQ(printed, wanted);
    }
  }
}

/// A page of another toolkit that is given finished pictures.
class PicturePage : public CDC {
 public:
  PicturePage() { CreateHostDC(); }
  int GetDeviceCaps(int index) const override {
    return PageCaps{6000, 6000}.Answer(index, CDC::GetDeviceCaps(index));
  }
  BOOL PutImage(const RECT& destination, const void*, int, int height, int) override {
    edges.push_back(destination.top);
    edges.push_back(destination.bottom);
    rows += height;
    return TRUE;
  }
  std::vector<LONG> edges;
  int rows = 0;
};

TEST(PrintDIB, MemoryIsBoundedByAStrip) {
  const Section section(1024, 3000, 24);
  PicturePage page;
  const AllocationMeter meter;
  section.dib.PrintDIB(&page, kWholePage, "");
  EXPECT_LE(meter.Largest(), std::size_t{4} << 20);
  EXPECT_EQ(page.rows, 3000);
  // Every row has two pixels.
  EXPECT_EQ(page.edges, (std::vector<LONG>{0, 2048, 2048, 4096, 4096, 6000}));
}

TEST(PrintDIB, NothingIsPrintedInAPlaceWithoutAnArea) {
  Section section(10, 10);
  section.dib.SetNormPrintRect({0.5, 0.5, 0.0, 1.0});
  RecordingPage page({100, 100});
  section.dib.PrintDIB(&page, kNormalised, "");
  EXPECT_TRUE(page.strips.empty());
  RecordingPage small({30, 400, 96, 96});  // (32, 32, -2, 368)
  section.dib.PrintDIB(&small, kWholePage, "");
  RecordingPage low({400, 30, 96, 96});  // (32, 32, 368, -2)
  section.dib.PrintDIB(&low, kWholePage, "");
  EXPECT_TRUE(small.strips.empty());
  EXPECT_TRUE(low.strips.empty());
}

TEST(PrintDIB, PlacesBeyondEveryPageAreHarmless) {
  Section section(10, 10);
  RecordingPage page({4800, 6600});
  PixelPage paper(20, 20);
  for (const double huge : {1e300, -1e300}) {
    for (const double extent : {1e300, 1.0, -1e300}) {
      section.dib.SetNormPrintRect({huge, huge, extent, extent});
      EXPECT_EQ(Catch([&] { section.dib.PrintDIB(&page, kNormalised, ""); }), kNoError);
      EXPECT_EQ(Catch([&] { section.dib.PrintDIB(&paper, kNormalised, ""); }), kNoError);
    }
  }
}

TEST(PrintDIB, StretchesByDroppingPixelsAndPutsTheModeBack) {
  const Section section(10, 10);
  RecordingPage page({100, 100});
  page.SetStretchBltMode(HALFTONE);
  section.dib.PrintDIB(&page, kWholePage, "");
  ASSERT_EQ(page.strips.size(), 1U);
  EXPECT_EQ(page.strips[0].stretchMode, COLORONCOLOR);
  EXPECT_EQ(page.StretchMode(), HALFTONE);
}

TEST(PrintDIB, NeedsABitmap) {
  const CDIBSection empty(nullptr, nullptr, 10, 10, 32);
  RecordingPage page({100, 100});
  EXPECT_EQ(Catch([&] { empty.PrintDIB(&page, kFit, ""); }), kNoBitmap);
  EXPECT_EQ(Catch([&] { empty.PrintDIBSection(&page, kFit, ""); }), kNoBitmap);
  EXPECT_EQ(Catch([&] { empty.PrintDIB(nullptr, kFit, ""); }), kNoBitmap);
  // Anyone can delete a bitmap by its handle.
  CWnd window;
  window.CreateOffscreen(1, 1);
  const CDIBSection deleted(window.GetDC(), nullptr, 10, 10, 32);
  ASSERT_TRUE(DeleteObject(deleted.GetBitmapHandle()));
  EXPECT_EQ(Catch([&] { deleted.PrintDIB(&page, kFit, ""); }), kNoBitmap);
}

TEST(PrintDIB, NeedsAPrinter) {
  const Section section(10, 10);
  CDC none;
  EXPECT_EQ(Catch([&] { section.dib.PrintDIB(nullptr, kFit, ""); }), kNoPrinter);
  EXPECT_EQ(Catch([&] { section.dib.PrintDIBSection(nullptr, kFit, ""); }), kNoPrinter);
  EXPECT_EQ(Catch([&] { section.dib.PrintDIB(&none, kFit, ""); }), kNoPrinter);
}

TEST(PrintDIB, ARefusedStripEndsThePrinting) {
  const Section section(1024, 2500);
  for (const int answer : {0, -1}) {
    for (const int refused : {0, 1, 2}) {
      RecordingPage page({2048, 5000});
      page.SetStretchBltMode(HALFTONE);
      page.refusedStrip = refused;
      page.answerOfRefusal = answer;
      EXPECT_EQ(Catch([&] { section.dib.PrintDIB(&page, kWholePage, ""); }), kNoPrinter);
      EXPECT_EQ(page.strips.size(), static_cast<std::size_t>(refused));
      EXPECT_EQ(page.StretchMode(), HALFTONE);
    }
  }
}

}  // namespace
