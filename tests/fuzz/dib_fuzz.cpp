/// Any bytes as a bitmap file: loaded, made a palette and a texture of, and painted.

#include <array>
#include <cstddef>
#include <cstdint>

#include "orvalix/foundation/err_3d.h"
#include "orvalix/render/dib.h"
#include "support/memory_file.h"

namespace {

/// Reads every byte that the object says it has.
unsigned SumOf(const void* bytes, std::size_t size) {
  unsigned sum = 0;
  for (std::size_t i = 0; i < size; ++i) sum += static_cast<const unsigned char*>(bytes)[i];
  return sum;
}

void Use(CDib& dib) {
  CPalette* palette = dib.CreateDibPalette();
  const unsigned char* texture = dib.TranslateDIBToOGL(palette);
  const auto colors = static_cast<std::size_t>(dib.GetDibNumColors());
  const auto width = static_cast<std::size_t>(dib.GetTextureWidth());
  const auto height = static_cast<std::size_t>(dib.GetTextureHeight());
  volatile unsigned sum = SumOf(dib.GetDibRGBTablePtr(), colors * sizeof(RGBQUAD));
  sum = SumOf(dib.GetDibBitsPtr(), dib.GetDibSizeImage());
  sum = SumOf(texture, width * height * 4);
  static_cast<void>(sum);

  std::array<std::uint32_t, 16> pixels{};
  CDC dc;
  dc.CreateOnPixels(pixels.data(), 4, 4, 16);
  const RECT destination{-1, -1, 5, 6};
  const RECT source{-3, 1, dib.GetDibWidth(), dib.GetDibHeight()};
  dib.PaintDIB(dc.GetSafeHdc(), &destination, &source, palette);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const orvalix::test::MemoryFile file;
  CErr3D::nErrorReportMode = 0;
  SetMessageBoxHandler([](const char*) { return 0; });
  file.Fill(data, size);
  CDib dib(file.Path());  // a file that can be opened throws nothing
  Use(dib);
  SetMessageBoxHandler(nullptr);
  return 0;
}
