#include "orvalix/render/print_rectangle_internal.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace orvalix {
namespace {

constexpr unsigned short kFitMode = 1;
constexpr unsigned short kNormalisedMode = 3;
/// The margin is an inch divided by this.
constexpr int kMarginsPerInch = 3;

constexpr LONG kLowest = std::numeric_limits<LONG>::min();
constexpr LONG kHighest = std::numeric_limits<LONG>::max();

LONG ToLong(std::int64_t value) {
  return static_cast<LONG>(std::clamp<std::int64_t>(value, kLowest, kHighest));
}

/// Drops the fraction; what is no number becomes 0.
LONG Truncate(double value) {
  if (std::isnan(value)) return 0;
  return static_cast<LONG>(
      std::clamp(value, static_cast<double>(kLowest), static_cast<double>(kHighest)));
}

/// Pixels per inch, of which only the ratio counts.
struct Resolution {
  double across;
  double down;
};

/// A device that doesn't tell its resolution counts as one with square pixels.
Resolution ResolutionOf(const PageSize& page) {
  if (page.pixelsPerInchX < 1 || page.pixelsPerInchY < 1) return {1.0, 1.0};
  return {static_cast<double>(page.pixelsPerInchX), static_cast<double>(page.pixelsPerInchY)};
}

/// `extent` * `numerator` / `denominator`; 0 for a picture without an extent.
LONG Scale(LONG extent, double numerator, double denominator) {
  return denominator > 0.0 ? Truncate(extent * numerator / denominator) : 0;
}

RECT FitRectangle(const PageSize& page, const SIZE& picture) {
  const Resolution resolution = ResolutionOf(page);
  // kept: the page alone decides which extent is filled. Looking at the picture's proportions as
  // well would move every printout of a picture that is flatter or taller than its page.
  const bool isTall = page.height * resolution.across >= page.width * resolution.down;
  if (isTall) {
    const LONG height =
        Scale(picture.cy, page.width * resolution.down, picture.cx * resolution.across);
    return {0, 0, page.width, height};
  }
  const LONG width =
      Scale(picture.cx, page.height * resolution.across, picture.cy * resolution.down);
  return {0, 0, width, page.height};
}

RECT NormalisedRectangle(const PageSize& page, const REALRECT& normalised) {
  const LONG left = Truncate(page.width * normalised.x);
  const LONG top = Truncate(page.height * normalised.y);
  return {left, top, ToLong(std::int64_t{Truncate(page.width * normalised.width)} + left),
          ToLong(std::int64_t{Truncate(page.height * normalised.height)} + top)};
}

RECT Inset(const RECT& rectangle, int marginX, int marginY) {
  return {ToLong(std::int64_t{rectangle.left} + marginX),
          ToLong(std::int64_t{rectangle.top} + marginY),
          ToLong(std::int64_t{rectangle.right} - marginX),
          ToLong(std::int64_t{rectangle.bottom} - marginY)};
}

RECT RectangleOfMode(const PageSize& page, const SIZE& picture, unsigned short mode,
                     const REALRECT& normalised) {
  switch (mode) {
    case kFitMode:
      return FitRectangle(page, picture);
    case kNormalisedMode:
      return NormalisedRectangle(page, normalised);
    default:
      return {0, 0, page.width, page.height};
  }
}

}  // namespace

RECT PrintRectangle(const PageSize& page, const SIZE& picture, unsigned short mode,
                    const REALRECT& normalised) {
  return Inset(RectangleOfMode(page, picture, mode, normalised),
               page.pixelsPerInchX / kMarginsPerInch, page.pixelsPerInchY / kMarginsPerInch);
}

int FirstPixelOfRow(int row, int rows, int extent) {
  // Pixel i shows the row under its middle, (i + 1/2) * rows / extent: the first one of a row is
  // row * extent / rows - 1/2, rounded up.
  const std::int64_t doubled = 2 * std::int64_t{row} * extent;
  return static_cast<int>((doubled + rows - 1) / (2 * std::int64_t{rows}));
}

}  // namespace orvalix
