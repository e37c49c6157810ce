#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/dib_section.h"
#include "orvalix/render/print_rectangle_internal.h"
#include "orvalix/render/section_info_internal.h"

namespace {

/// What a strip takes as a picture of 32 bits, as which devices are given it.
constexpr std::int64_t kMostStripBytes = std::int64_t{4} << 20;
constexpr std::int64_t kPictureBytesPerPixel = 4;

int RowsOfStrip(int width) {
  const std::int64_t rows = kMostStripBytes / (kPictureBytesPerPixel * width);
  return static_cast<int>(std::max<std::int64_t>(rows, 1));
}

/// Pixels between two edges; 0 when they are the wrong way round.
int Extent(LONG from, LONG to) {
  return static_cast<int>(
      std::clamp<std::int64_t>(std::int64_t{to} - from, 0, std::numeric_limits<int>::max()));
}

/// Sets a device context's stretch mode while it lives.
class StretchMode {
 public:
  StretchMode(CDC& dc, int mode) : m_dc(dc), m_previous(dc.SetStretchBltMode(mode)) {}
  ~StretchMode() { m_dc.SetStretchBltMode(m_previous); }
  StretchMode(const StretchMode&) = delete;
  StretchMode& operator=(const StretchMode&) = delete;

 private:
  CDC& m_dc;
  int m_previous;
};

[[noreturn]] void ThrowPrintError(CErr3DTypes type) {
  orvalix::ThrowError(type, ERR3DCLASS_DIBSECTION, "PrintDIB");
}

}  // namespace

void CDIBSection::SetNormPrintRect(const REALRECT& rectangle) { m_normPrintRect = rectangle; }

void CDIBSection::GetNormPrintRect(REALRECT& rectangle) const { rectangle = m_normPrintRect; }

void CDIBSection::CalculatePrintRect(CDC* printer, RECT& out, unsigned short mode,
                                     const REALRECT& normalised) const {
  if (printer == nullptr) return;
  const orvalix::PageSize page{printer->GetDeviceCaps(HORZRES), printer->GetDeviceCaps(VERTRES),
                               printer->GetDeviceCaps(LOGPIXELSX),
                               printer->GetDeviceCaps(LOGPIXELSY)};
  const BITMAPINFOHEADER header = GetDIBHeader();
  out = orvalix::PrintRectangle(page, {header.biWidth, header.biHeight}, mode, normalised);
}

void CDIBSection::PrintDIB(CDC* printer, unsigned short mode, const char*) const {
  const BITMAPINFOHEADER header = GetDIBHeader();
  if (GetBitmapHandle() == nullptr || header.biSize == 0) ThrowPrintError(ERR3D_DIB_HANDLE);
  if (printer == nullptr || printer->GetSafeHdc() == nullptr) ThrowPrintError(ERR3D_PRINT_DC);

  const StretchMode stretchMode(*printer, COLORONCOLOR);
  RECT place{};
  CalculatePrintRect(printer, place, mode, m_normPrintRect);
  const int rowsAtOnce = RowsOfStrip(header.biWidth);
  for (int first = 0; first < header.biHeight;) {
    const int rows = std::min(rowsAtOnce, header.biHeight - first);
    if (!PrintBand(printer, place, first, rows)) ThrowPrintError(ERR3D_PRINT_DC);
    first += rows;
  }
}

void CDIBSection::PrintDIBSection(CDC* printer, unsigned short mode, const char* title) const {
  PrintDIB(printer, mode, title);
}

bool CDIBSection::PrintBand(CDC* printer, const RECT& place, int firstRow, int rows) const {
  orvalix::SectionInfo info{GetDIBHeader(), {}};
  const int width = info.header.biWidth;
  const int height = info.header.biHeight;
  const int placeWidth = Extent(place.left, place.right);
  const int placeHeight = Extent(place.top, place.bottom);
  const int top = orvalix::FirstPixelOfRow(firstRow, height, placeHeight);
  const int bottom = orvalix::FirstPixelOfRow(firstRow + rows, height, placeHeight);
  // A place that is too small or inside out shows nothing of these rows.
  if (placeWidth == 0 || bottom == top) return true;

  CopyColors(info.colors.data());
  info.header.biHeight = rows;
  info.header.biSizeImage = 0;  // of an uncompressed bitmap, told by its extents
  const int rowsBelow = height - firstRow - rows;
  const auto* bits =
      static_cast<const std::byte*>(FindDIBBits()) + std::int64_t{rowsBelow} * StorageWidth();
  return printer->StretchDIBits(place.left, place.top + top, placeWidth, bottom - top, 0, 0, width,
                                rows, bits, info.Get(), DIB_RGB_COLORS, SRCCOPY) > 0;
}
