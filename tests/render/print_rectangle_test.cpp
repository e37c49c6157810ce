#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <ostream>

#include "orvalix/render/print_rectangle_internal.h"
#include "support/pages.h"
#include "support/section.h"

/// For the messages of failing tests.
void PrintTo(const RECT& rect, std::ostream* out) {
  *out << "(" << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ")";
}

bool operator==(const RECT& a, const RECT& b) {
  return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

namespace {

using orvalix::FirstPixelOfRow;
using orvalix::test::PageCaps;
using orvalix::test::RecordingPage;
using orvalix::test::Section;

constexpr int kLargest = std::numeric_limits<int>::max();
constexpr int kLowest = std::numeric_limits<int>::min();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr unsigned short kFit = 1;
constexpr unsigned short kNormalised = 3;
const REALRECT kWholePage{0.0, 0.0, 1.0, 1.0};

RECT Place(const PageCaps& caps, const CDIBSection& dib, unsigned short mode,
           const REALRECT& normalised = kWholePage) {
  RecordingPage page(caps);
  RECT place{-1, -2, -3, -4};
  dib.CalculatePrintRect(&page, place, mode, normalised);
  return place;
}

RECT Place(const PageCaps& caps, int width, int height, unsigned short mode) {
  const Section section(width, height);
  return Place(caps, section.dib, mode);
}

TEST(PrintRectangle, NormalisedTakesAShareOfThePage) {
  const Section section(100, 60);
  // 4800 * 0.1 = 480, 6600 * 0.1 = 660, 4800 * 0.5 = 2400, 6600 * 0.5 = 3300; 600 / 3 = 200.
  EXPECT_EQ(Place({4800, 6600, 600, 600}, section.dib, kNormalised, {0.1, 0.1, 0.5, 0.5}),
            (RECT{480 + 200, 660 + 200, 2400 + 480 - 200, 3300 + 660 - 200}));
}

TEST(PrintRectangle, NormalisedDropsFractionsOfAPixel) {
  const Section section(100, 60);
  // 999 * 0.25 = 249.75, 999 * 0.5 = 499.5, 999 * -0.25 = -249.75: all towards zero.
  EXPECT_EQ(Place({999, 999, 0, 0}, section.dib, kNormalised, {0.25, -0.25, 0.5, 0.5}),
            (RECT{249, -249, 249 + 499, -249 + 499}));
}

TEST(PrintRectangle, FitFillsTheWidthOfATallPage) {
  // 8 x 11 inches: the height is 60 * 4800 / 100 = 2880.
  EXPECT_EQ(Place({4800, 6600, 600, 600}, 100, 60, kFit), (RECT{200, 200, 4800 - 200, 2880 - 200}));
}

TEST(PrintRectangle, FitFillsTheHeightOfAWidePage) {
  // 11 x 8 inches: the width is 40 * 4800 / 60 = 3200.
  EXPECT_EQ(Place({6600, 4800, 600, 600}, 40, 60, kFit), (RECT{200, 200, 3200 - 200, 4800 - 200}));
}

TEST(PrintRectangle, FitFillsTheWidthOfASquarePage) {
  EXPECT_EQ(Place({900, 900, 300, 300}, 100, 50, kFit), (RECT{100, 100, 900 - 100, 450 - 100}));
}

TEST(PrintRectangle, FitLooksAtThePageAlone) {
  // A tall picture on a tall page: 100 * 4800 / 60 = 8000, more than the page has.
  EXPECT_EQ(Place({4800, 6600, 600, 600}, 60, 100, kFit), (RECT{200, 200, 4600, 8000 - 200}));
  // A flat picture on a wide page: 100 * 4800 / 60 = 8000.
  EXPECT_EQ(Place({6600, 4800, 600, 600}, 100, 60, kFit), (RECT{200, 200, 8000 - 200, 4600}));
}

TEST(PrintRectangle, FitMeasuresInInches) {
  // 4800 / 600 = 8 by 3300 / 300 = 11 inches, though it has more pixels across than down. The
  // height is 60 * 4800 * 300 / (100 * 600) = 1440; the margins are 200 and 100.
  EXPECT_EQ(Place({4800, 3300, 600, 300}, 100, 60, kFit), (RECT{200, 100, 4600, 1440 - 100}));
  // 3300 / 300 = 11 by 4800 / 600 = 8 inches: the width is 100 * 4800 * 300 / (60 * 600) = 4000.
  EXPECT_EQ(Place({3300, 4800, 300, 600}, 100, 60, kFit), (RECT{100, 200, 4000 - 100, 4600}));
}

TEST(PrintRectangle, FitDropsFractionsOfAPixel) {
  // 3 * 1000 / 7 = 428.57; 7 * 999 / 3 = 2331, and 5 * 999 / 7 = 713.57.
  EXPECT_EQ(Place({1000, 1000, 0, 0}, 7, 3, kFit), (RECT{0, 0, 1000, 428}));
  EXPECT_EQ(Place({1000, 999, 0, 0}, 7, 3, kFit), (RECT{0, 0, 2331, 999}));
  EXPECT_EQ(Place({1000, 999, 0, 0}, 5, 7, kFit), (RECT{0, 0, 713, 999}));
}

TEST(PrintRectangle, OtherModesTakeTheWholePage) {
  const Section section(100, 60);
  for (const int mode : {0, 2, 4, 65535}) {
    EXPECT_EQ(Place({4800, 6600, 600, 300}, section.dib, static_cast<unsigned short>(mode),
                    {0.1, 0.1, 0.5, 0.5}),
              (RECT{200, 100, 4800 - 200, 6600 - 100}));
  }
}

TEST(PrintRectangle, MarginIsWholePixels) {
  // 100 / 3 = 33, 98 / 3 = 32.
  EXPECT_EQ(Place({1000, 1000, 100, 98}, 10, 10, 0), (RECT{33, 32, 1000 - 33, 1000 - 32}));
}

TEST(PrintRectangle, SmallPagesTurnInsideOut) {
  EXPECT_EQ(Place({30, 40, 96, 96}, 10, 10, 0), (RECT{32, 32, -2, 8}));
}

TEST(PrintRectangle, NoPrinterChangesNothing) {
  const Section section(10, 10);
  RECT place{1, 2, 3, 4};
  section.dib.CalculatePrintRect(nullptr, place, kFit, kWholePage);
  EXPECT_EQ(place, (RECT{1, 2, 3, 4}));
}

TEST(PrintRectangle, ABitmapWithoutPixelsHasNoExtent) {
  const CDIBSection empty(nullptr, nullptr, 10, 10, 32);
  EXPECT_EQ(Place({4800, 6600, 600, 600}, empty, kFit), (RECT{200, 200, 4600, -200}));
  EXPECT_EQ(Place({6600, 4800, 600, 600}, empty, kFit), (RECT{200, 200, -200, 4600}));
  EXPECT_EQ(Place({4800, 6600, 600, 600}, empty, 0), (RECT{200, 200, 4600, 6400}));
}

TEST(PrintRectangle, NoResolutionIsSquarePixelsWithoutMargins) {
  for (const auto& [x, y] :
       std::initializer_list<std::pair<int, int>>{{0, 0}, {0, 2}, {2, 0}, {-1, -1}}) {
    EXPECT_EQ(Place({800, 1000, x, y}, 100, 50, kFit), (RECT{0, 0, 800, 400})) << x << ", " << y;
    EXPECT_EQ(Place({1000, 800, x, y}, 50, 100, kFit), (RECT{0, 0, 400, 800})) << x << ", " << y;
  }
}

TEST(PrintRectangle, ADeviceContextWithoutADeviceHasNoPage) {
  const Section section(10, 10);
  CDC none;
  RECT place{1, 2, 3, 4};
  section.dib.CalculatePrintRect(&none, place, kFit, kWholePage);
  EXPECT_EQ(place, (RECT{0, 0, 0, 0}));
}

TEST(PrintRectangle, HugeNumbersBecomeTheNearestCoordinate) {
  const Section section(1, 1000);
  const auto normalised = [&](const REALRECT& rectangle) {
    return Place({4800, 6600, 0, 0}, section.dib, kNormalised, rectangle);
  };
  EXPECT_EQ(normalised({1e300, -1e300, 1.0, 1.0}),
            (RECT{kLargest, kLowest, kLargest, kLowest + 6600}));
  EXPECT_EQ(normalised({kInfinity, -kInfinity, kInfinity, -kInfinity}),
            (RECT{kLargest, kLowest, kLargest, kLowest}));
  EXPECT_EQ(normalised({kNaN, kNaN, kNaN, kNaN}), (RECT{0, 0, 0, 0}));
  EXPECT_EQ(normalised({-1e300, 0.0, 1e300, 1e300}), (RECT{kLowest, 0, -1, kLargest}));
  // 1000 * 2^31 rows.
  EXPECT_EQ(Place({kLargest, kLargest, 0, 0}, section.dib, kFit), (RECT{0, 0, kLargest, kLargest}));
  EXPECT_EQ(Place({kLowest, kLowest, kLargest, kLargest}, section.dib, 0),
            (RECT{kLargest / 3, kLargest / 3, kLowest, kLowest}));
  EXPECT_EQ(Place({kLargest, kLargest, kLowest, kLowest}, section.dib, 0),
            (RECT{kLowest / 3, kLowest / 3, kLargest, kLargest}));
}

TEST(PrintRectangle, RowsBeginAtThePixelWhoseMiddleShowsThem) {
  // Three rows over 6 pixels: two each.
  EXPECT_EQ(FirstPixelOfRow(0, 3, 6), 0);
  EXPECT_EQ(FirstPixelOfRow(1, 3, 6), 2);
  EXPECT_EQ(FirstPixelOfRow(2, 3, 6), 4);
  EXPECT_EQ(FirstPixelOfRow(3, 3, 6), 6);
  // Three rows over 4 pixels: the middles 0.5, 1.5, 2.5, 3.5 times 3 / 4 are 0.375, 1.125, 1.875
  // and 2.625, so that row 0 has pixel 0, row 1 the pixels 1 and 2, row 2 pixel 3.
  EXPECT_EQ(FirstPixelOfRow(1, 3, 4), 1);
  EXPECT_EQ(FirstPixelOfRow(2, 3, 4), 3);
  EXPECT_EQ(FirstPixelOfRow(3, 3, 4), 4);
  // Four rows over 2 pixels: the middles are at 1 and 3, where the rows 1 and 3 begin; rows 0 and 2
  // have no pixel.
  EXPECT_EQ(FirstPixelOfRow(1, 4, 2), 0);
  EXPECT_EQ(FirstPixelOfRow(2, 4, 2), 1);
  EXPECT_EQ(FirstPixelOfRow(3, 4, 2), 1);
  EXPECT_EQ(FirstPixelOfRow(4, 4, 2), 2);
  // Largest extents.
  EXPECT_EQ(FirstPixelOfRow(1 << 29, 1 << 29, kLargest), kLargest);
  EXPECT_EQ(FirstPixelOfRow(1 << 29, 1 << 29, 0), 0);
}

TEST(PrintRectangle, NormalisedRectangleIsStored) {
  Section section(1, 1);
  REALRECT rectangle{9, 9, 9, 9};
  section.dib.GetNormPrintRect(rectangle);
  EXPECT_EQ(rectangle.x, 0.0);
  EXPECT_EQ(rectangle.y, 0.0);
  EXPECT_EQ(rectangle.width, 1.0);
  EXPECT_EQ(rectangle.height, 1.0);
  section.dib.SetNormPrintRect({0.1, 0.2, 0.3, 0.4});
  section.dib.GetNormPrintRect(rectangle);
  EXPECT_EQ(rectangle.x, 0.1);
  EXPECT_EQ(rectangle.y, 0.2);
  EXPECT_EQ(rectangle.width, 0.3);
  EXPECT_EQ(rectangle.height, 0.4);
}

}  // namespace
