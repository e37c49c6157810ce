/// Any bytes as a bitmap file: loaded, made a palette and a texture of, and painted.

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "orvalix/foundation/err_3d.h"
#include "orvalix/render/dib.h"

namespace {

/// A file in memory, reached by a name.
class InputFile {
 public:
  InputFile()
      : m_descriptor(memfd_create("dib_fuzz", MFD_CLOEXEC)),
        m_path("/proc/self/fd/" + std::to_string(m_descriptor)) {
    if (m_descriptor == -1) std::abort();
  }
  ~InputFile() { close(m_descriptor); }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  void Fill(const std::uint8_t* data, std::size_t size) const {
    const bool isFilled = ftruncate(m_descriptor, 0) == 0 &&
                          pwrite(m_descriptor, data, size, 0) == static_cast<ssize_t>(size);
    if (!isFilled) std::abort();
  }
  const char* Path() const { return m_path.c_str(); }

 private:
  int m_descriptor;
  std::string m_path;
};

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
  static const InputFile file;
  CErr3D::nErrorReportMode = 0;
  SetMessageBoxHandler([](const char*) { return 0; });
  file.Fill(data, size);
  CDib dib(file.Path());  // a file that can be opened throws nothing
  Use(dib);
  SetMessageBoxHandler(nullptr);
  return 0;
}
