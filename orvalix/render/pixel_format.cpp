#include "orvalix/render/pixel_format_internal.h"

namespace orvalix {
namespace {

constexpr BYTE kDepthBits = 32;

struct Component {
  BYTE bits;
  BYTE shift;
};

void SetComponents(PIXELFORMATDESCRIPTOR& format, Component red, Component green, Component blue) {
  format.cRedBits = red.bits;
  format.cRedShift = red.shift;
  format.cGreenBits = green.bits;
  format.cGreenShift = green.shift;
  format.cBlueBits = blue.bits;
  format.cBlueShift = blue.shift;
}

}  // namespace

PIXELFORMATDESCRIPTOR WantedPixelFormat(int colorBits) {
  PIXELFORMATDESCRIPTOR format{};
  format.nSize = sizeof(PIXELFORMATDESCRIPTOR);
  format.nVersion = 1;
  format.dwFlags = PFD_DRAW_TO_BITMAP | PFD_SUPPORT_GDI | PFD_SUPPORT_OPENGL;
  format.iPixelType = PFD_TYPE_RGBA;
  format.cColorBits = static_cast<BYTE>(colorBits);
  format.cDepthBits = kDepthBits;
  format.iLayerType = PFD_MAIN_PLANE;
  return format;
}

PIXELFORMATDESCRIPTOR StoredPixelFormat(int colorBits) {
  PIXELFORMATDESCRIPTOR format = WantedPixelFormat(colorBits);
  switch (colorBits) {
    case 8:
      format.dwFlags |= PFD_NEED_PALETTE;
      SetComponents(format, {3, 0}, {3, 3}, {2, 6});
      return format;
    case 24:
    case 32:
      SetComponents(format, {8, 16}, {8, 8}, {8, 0});
      return format;
    default:
      return {};
  }
}

bool IsUsable(const PIXELFORMATDESCRIPTOR& format) { return format.nSize != 0; }

bool NeedsPalette(const PIXELFORMATDESCRIPTOR& format) {
  return (format.dwFlags & PFD_NEED_PALETTE) != 0 && format.cColorBits <= 8;
}

}  // namespace orvalix
