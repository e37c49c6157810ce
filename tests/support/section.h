/// @file
/// A bitmap section in its device context, without a rendering context: of any size.
#pragma once

#include <cstddef>
#include <cstring>

#include "orvalix/host/host.h"
#include "orvalix/render/dib_section.h"

namespace orvalix::test {

/// Members are made in this order, and the device context lets go of the bitmap first.
class Section {
 public:
  Section(int width, int height, int bitsPerPixel = 32)
      : hasWindow(window.CreateOffscreen(1, 1, bitsPerPixel)),
        dib(window.GetDC(), &memory, width, height, bitsPerPixel) {
    memory.CreateCompatibleDC(window.GetDC());
    ::SelectObject(memory.GetSafeHdc(), dib.GetBitmapHandle());
  }

  /// The first byte of a row, counted from the top.
  unsigned char* Row(int y) const {
    const std::ptrdiff_t fromBottom = dib.DIBHeight() - 1 - y;
    return static_cast<unsigned char*>(dib.FindDIBBits()) + fromBottom * dib.StorageWidth();
  }
  /// Fills every byte of a row.
  void FillRow(int y, int value) const {
    std::memset(Row(y), value, static_cast<std::size_t>(dib.StorageWidth()));
  }
  /// Fills all rows with bytes that look random, the same ones every time.
  void FillWithNoise() const {
    unsigned state = 1;
    for (int y = 0; y < dib.DIBHeight(); ++y) {
      for (int i = 0; i < dib.StorageWidth(); ++i) {
        state = state * 1664525U + 1013904223U;
        Row(y)[i] = static_cast<unsigned char>(state >> 24);
      }
    }
  }

  CWnd window;
  BOOL hasWindow;
  CDIBSection dib;
  CDC memory;
};

}  // namespace orvalix::test
