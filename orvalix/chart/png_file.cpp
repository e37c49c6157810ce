#include "orvalix/chart/png_file_internal.h"

#include <png.h>

#include <csetjmp>
#include <cstddef>
#include <new>
#include <vector>

#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/foundation/write_file_internal.h"
#include "orvalix/render/dib_section.h"

namespace orvalix {
namespace {

constexpr int kBitsPerComponent = 8;
constexpr std::size_t kComponents = 3;
constexpr int kIndexBits = 8;

/// The rows of a bitmap, top row first, as red, green and blue bytes.
class RgbRows {
 public:
  explicit RgbRows(CDIBSection& dib)
      : m_bits(static_cast<const unsigned char*>(dib.FindDIBBits())),
        m_rowBytes(dib.StorageWidth()),
        m_width(dib.DIBWidth()),
        m_height(dib.DIBHeight()),
        m_bitsPerPixel(dib.GetDIBHeader().biBitCount),
        m_colors(dib.GetColorTable()) {
    if (m_bitsPerPixel == kIndexBits) dib.GetCDIBColorTable();
  }

  int Width() const { return m_width; }
  int Height() const { return m_height; }

  /// Fills `rgb` with row `y`, counted from the top.
  void Convert(int y, unsigned char* rgb) const {
    const unsigned char* const row = m_bits + std::ptrdiff_t{m_height - 1 - y} * m_rowBytes;
    if (m_bitsPerPixel == kIndexBits) {
      ConvertIndices(row, rgb);
    } else {
      ConvertColors(row, rgb);
    }
  }

 private:
  void ConvertIndices(const unsigned char* row, unsigned char* rgb) const {
    for (int x = 0; x < m_width; ++x, rgb += kComponents) {
      const RGBQUAD& color = m_colors[row[x]];
      rgb[0] = color.rgbRed;
      rgb[1] = color.rgbGreen;
      rgb[2] = color.rgbBlue;
    }
  }
  void ConvertColors(const unsigned char* bgr, unsigned char* rgb) const {
    const int pixelBytes = m_bitsPerPixel / 8;
    for (int x = 0; x < m_width; ++x, bgr += pixelBytes, rgb += kComponents) {
      rgb[0] = bgr[2];
      rgb[1] = bgr[1];
      rgb[2] = bgr[0];
    }
  }

  const unsigned char* m_bits;
  std::ptrdiff_t m_rowBytes;
  int m_width;
  int m_height;
  int m_bitsPerPixel;
  const RGBQUAD* m_colors;  ///< of 8 bits
};

enum class Outcome { kDone, kNoMemory, kWriteFailed };

/// What the encoder calls back with: where it writes to, and why it gave up.
struct Sink {
  CFile& file;
  Outcome outcome = Outcome::kDone;
};

// No exception may cross the encoder's C code: its callbacks catch all of them and leave through
// png_error(), which jumps back to where the encoder was called.

void Write(png_structp png, png_bytep bytes, png_size_t size) {
  auto& sink = *static_cast<Sink*>(png_get_io_ptr(png));
  bool isWritten = false;
  try {
    sink.file.Write(bytes, static_cast<UINT>(size));
    isWritten = true;
  } catch (CFileException* error) {
    error->Delete();
  } catch (const std::bad_alloc&) {
    // The failure of the file could not even be told.
  }
  if (!isWritten) png_error(png, "write");
}

void Flush(png_structp) {}

[[noreturn]] void Fail(png_structp png, png_const_charp) {
  auto& sink = *static_cast<Sink*>(png_get_error_ptr(png));
  if (sink.outcome == Outcome::kDone) sink.outcome = Outcome::kWriteFailed;
  png_longjmp(png, 1);
}

void IgnoreWarning(png_structp, png_const_charp) {}

png_voidp Allocate(png_structp png, png_alloc_size_t size) {
  void* const memory = ::operator new(size, std::nothrow);
  if (memory == nullptr) {
    static_cast<Sink*>(png_get_mem_ptr(png))->outcome = Outcome::kNoMemory;
  }
  return memory;
}

void Free(png_structp, png_voidp memory) { ::operator delete(memory); }

/// Owns the encoder's state.
class PngWriter {
 public:
  explicit PngWriter(Sink& sink)
      : m_png(png_create_write_struct_2(PNG_LIBPNG_VER_STRING, &sink, Fail, IgnoreWarning, &sink,
                                        Allocate, Free)),
        m_info(m_png != nullptr ? png_create_info_struct(m_png) : nullptr) {
    if (m_png != nullptr) png_set_write_fn(m_png, &sink, Write, Flush);
  }
  ~PngWriter() { png_destroy_write_struct(&m_png, &m_info); }
  PngWriter(const PngWriter&) = delete;
  PngWriter& operator=(const PngWriter&) = delete;

  /// Encodes all rows; what went wrong is told by the sink. Nothing that this function makes needs
  /// destroying: a failure jumps out of it.
  /// @param rgb room for a row
  /// @return false on failure
  bool Encode(const RgbRows& rows, unsigned char* rgb) {
    if (m_png == nullptr || m_info == nullptr) return false;
    if (setjmp(png_jmpbuf(m_png)) != 0) return false;
    png_set_user_limits(m_png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    png_set_IHDR(m_png, m_info, static_cast<png_uint_32>(rows.Width()),
                 static_cast<png_uint_32>(rows.Height()), kBitsPerComponent, PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(m_png, m_info);
    for (int y = 0; y < rows.Height(); ++y) {
      rows.Convert(y, rgb);
      png_write_row(m_png, rgb);
    }
    png_write_end(m_png, m_info);
    return true;
  }

 private:
  png_structp m_png;
  png_infop m_info;
};

/// @throws std::bad_alloc
Outcome WriteRows(const RgbRows& rows, CFile& file) {
  std::vector<unsigned char> rgb(static_cast<std::size_t>(rows.Width()) * kComponents);
  Sink sink{file};
  PngWriter writer(sink);
  if (writer.Encode(rows, rgb.data())) return Outcome::kDone;
  return sink.outcome == Outcome::kDone ? Outcome::kNoMemory : sink.outcome;
}

}  // namespace

void WritePngFile(CDIBSection& dib, const CString& fileName, CErr3DClass errorClass,
                  const char* place) {
  WriteWholeFile(fileName, errorClass, place, [&](CFile& file) {
    const Outcome outcome = WriteRows(RgbRows(dib), file);
    if (outcome == Outcome::kNoMemory) ThrowError(ERR3D_ARRAY_NEW, errorClass, place);
    if (outcome == Outcome::kWriteFailed) ThrowError(ERR3D_DISK_IO, errorClass, place);
  });
}

}  // namespace orvalix
