/// @file
/// Pages to print on.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "orvalix/host/host.h"

namespace orvalix::test {

/// What a page answers about itself.
struct PageCaps {
  int width;
  int height;
  int pixelsPerInchX = 0;
  int pixelsPerInchY = 0;

  /// The answer for `index`, or that of another device.
  int Answer(int index, int other) const {
    switch (index) {
      case HORZRES:
        return width;
      case VERTRES:
        return height;
      case LOGPIXELSX:
        return pixelsPerInchX;
      case LOGPIXELSY:
        return pixelsPerInchY;
      default:
        return other;
    }
  }
};

/// One call of StretchDIBits().
struct Strip {
  RECT place;
  int sourceX, sourceY, sourceWidth, sourceHeight;
  const void* bits;
  BITMAPINFOHEADER header;
  std::vector<RGBQUAD> colors;  ///< of 8 bits
  UINT usage;
  DWORD operation;
  int stretchMode;
};

/// A page of any size that takes down what is printed on it.
class RecordingPage : public CDC {
 public:
  explicit RecordingPage(const PageCaps& answers) : caps(answers) { CreateHostDC(); }

  int GetDeviceCaps(int index) const override {
    return caps.Answer(index, CDC::GetDeviceCaps(index));
  }
  int StretchDIBits(int x, int y, int width, int height, int sourceX, int sourceY, int sourceWidth,
                    int sourceHeight, const void* bits, const BITMAPINFO* info, UINT usage,
                    DWORD operation) override {
    if (static_cast<int>(strips.size()) == refusedStrip) return answerOfRefusal;
    Strip strip{{x, y, x + width, y + height},
                sourceX,
                sourceY,
                sourceWidth,
                sourceHeight,
                bits,
                info->bmiHeader,
                {},
                usage,
                operation,
                StretchMode()};
    if (info->bmiHeader.biBitCount == 8) {
      strip.colors.assign(info->bmiColors, info->bmiColors + 256);
    }
    strips.push_back(strip);
    if (whilePrinting) whilePrinting();
    return sourceHeight;
  }
  /// The stretch mode at present.
  int StretchMode() {
    const int mode = SetStretchBltMode(BLACKONWHITE);
    SetStretchBltMode(mode);
    return mode;
  }

  PageCaps caps;
  std::vector<Strip> strips;
  int refusedStrip = -1;    ///< the index of the strip that it doesn't take
  int answerOfRefusal = 0;  ///< what it then answers
  std::function<void()> whilePrinting;
};

/// A page of white pixels in memory.
class PixelPage : public CDC {
 public:
  PixelPage(int width, int height, int pixelsPerInchX = 0, int pixelsPerInchY = 0)
      : m_caps{width, height, pixelsPerInchX, pixelsPerInchY},
        m_pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4, 0xFF) {
    CreateOnPixels(m_pixels.data(), width, height, width * 4);
  }

  int GetDeviceCaps(int index) const override {
    return m_caps.Answer(index, CDC::GetDeviceCaps(index));
  }
  /// The red of each pixel of a column, from the top.
  std::vector<int> Column(int x) const {
    std::vector<int> column;
    for (int y = 0; y < m_caps.height; ++y) column.push_back(GetRValue(GetPixel(x, y)));
    return column;
  }
  /// The red of each pixel of a row.
  std::vector<int> Row(int y) const {
    std::vector<int> row;
    for (int x = 0; x < m_caps.width; ++x) row.push_back(GetRValue(GetPixel(x, y)));
    return row;
  }

 private:
  PageCaps m_caps;
  std::vector<unsigned char> m_pixels;
};

}  // namespace orvalix::test
