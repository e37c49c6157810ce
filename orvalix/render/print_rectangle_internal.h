/// @file
/// Where on a page a picture is printed.
#pragma once

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

namespace orvalix {

/// What a page tells about itself: its printable size in pixels, and pixels per inch.
struct PageSize {
  int width;
  int height;
  int pixelsPerInchX;
  int pixelsPerInchY;
};

/// The rectangle of a picture of `picture` pixels on a page: see
/// CDIBSection::CalculatePrintRect().
RECT PrintRectangle(const PageSize& page, const SIZE& picture, unsigned short mode,
                    const REALRECT& normalised);

/// The row of pixels, of a rectangle `extent` pixels high, with which row `row` of a picture of
/// `rows` rows begins: the first one whose middle shows that row. Rows meet without a gap, and
/// row `rows` begins where the rectangle ends.
int FirstPixelOfRow(int row, int rows, int extent);

}  // namespace orvalix
