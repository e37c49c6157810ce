/// @file
/// A view on an off-screen window, and the pixels of its last picture.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <memory>

#include "orvalix/chart/chart_3d.h"
#include "orvalix/chart/chart_view_3d.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/render/dib_section.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

namespace orvalix::test {

/// Red, green, blue.
using Pixel = std::array<int, 3>;

inline constexpr Pixel kWhite{255, 255, 255};
inline constexpr Pixel kBlack{0, 0, 0};
inline constexpr Pixel kRed{255, 0, 0};
inline constexpr Pixel kGreen{0, 255, 0};
inline constexpr Pixel kBlue{0, 0, 255};

class ViewOn {
 public:
  ViewOn(int width, int height, int bitsPerPixel = 32) {
    window.CreateOffscreen(width, height, bitsPerPixel);
    view = std::make_unique<CChartView3D>(&window);
  }

  /// Draws and returns the pixel of the bitmap at (x, y) from its lower left corner.
  Pixel BitmapPixel(int x, int y) const {
    const CDIBSection& dib = *view->GetDIBSection();
    const auto* at = static_cast<const unsigned char*>(dib.FindDIBBits()) +
                     static_cast<std::ptrdiff_t>(y) * dib.StorageWidth() + std::ptrdiff_t{4} * x;
    return {at[2], at[1], at[0]};
  }

  /// The window's pixel at (x, y) from its upper left corner.
  Pixel WindowPixel(int x, int y) {
    const COLORREF color = window.GetDC()->GetPixel(x, y);
    return {static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
            static_cast<int>((color >> 16) & 0xFF)};
  }

  CWnd window;
  std::unique_ptr<CChartView3D> view;
};

}  // namespace orvalix::test
