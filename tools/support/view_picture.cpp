#include "support/view_picture.h"

#include <cstddef>

#include "orvalix/orvalix.h"

namespace orvalix {

Picture TakePicture(const CChartView3D& view) {
  const CDIBSection& dib = *view.GetDIBSection();
  const std::ptrdiff_t bytesPerPixel = dib.GetDIBHeader().biBitCount / 8;
  Picture picture{.width = dib.DIBWidth(), .height = dib.DIBHeight(), .rgb = {}};
  picture.rgb.reserve(static_cast<std::size_t>(picture.width) *
                      static_cast<std::size_t>(picture.height) * 3);
  for (int y = picture.height - 1; y >= 0; --y) {
    const auto* in = static_cast<const unsigned char*>(dib.FindDIBBits()) +
                     static_cast<std::ptrdiff_t>(y) * dib.StorageWidth();
    for (int x = 0; x < picture.width; ++x, in += bytesPerPixel) {
      picture.rgb.insert(picture.rgb.end(), {in[2], in[1], in[0]});
    }
  }
  return picture;
}

}  // namespace orvalix
