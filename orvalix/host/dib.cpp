#include "orvalix/host/dib_internal.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <new>

namespace orvalix {
namespace {

constexpr DWORD kShortestHeader = sizeof(BITMAPINFOHEADER);
constexpr DWORD kLongestHeader = 124;
constexpr int kMostIndexBits = 8;

bool IsDibDepth(int bits) {
  return bits == 1 || bits == 4 || bits == 16 || PixelMemory::IsDepth(bits);
}

/// Pixel `x` of a row of indices of 1 or 4 bits, the leftmost one in the highest bits.
std::uint8_t IndexAt(const std::uint8_t* row, int x, int bits) {
  const int pixelsPerByte = 8 / bits;
  const int shift = 8 - bits * (x % pixelsPerByte + 1);
  return static_cast<std::uint8_t>((row[x / pixelsPerByte] >> shift) & ((1 << bits) - 1));
}

/// A component of 5 bits as one of 8.
std::uint8_t Widen(int fiveBits) {
  const int low = fiveBits & 31;
  return static_cast<std::uint8_t>(low << 3 | low >> 2);
}

void ExpandIndices(const std::uint8_t* from, std::uint8_t* to, int width, int bits) {
  for (int x = 0; x < width; ++x) to[x] = IndexAt(from, x, bits);
}

void ExpandColors(const std::uint8_t* from, std::uint8_t* to, int width) {
  for (int x = 0; x < width; ++x, from += 2, to += 3) {
    const int color = from[0] | from[1] << 8;
    to[0] = Widen(color);
    to[1] = Widen(color >> 5);
    to[2] = Widen(color >> 10);
  }
}

}  // namespace

std::optional<DibFormat> ReadDibFormat(const BITMAPINFO* info, UINT usage) {
  if (info == nullptr || usage != DIB_RGB_COLORS) return std::nullopt;
  const BITMAPINFOHEADER& header = info->bmiHeader;
  if (header.biSize < kShortestHeader || header.biSize > kLongestHeader) return std::nullopt;
  if (header.biCompression != BI_RGB || !IsDibDepth(header.biBitCount)) return std::nullopt;
  if (header.biWidth < 1 || header.biHeight == 0) return std::nullopt;

  const std::int64_t height = header.biHeight;
  DibFormat format{header.biWidth, height < 0 ? -height : height,
                   height < 0 ? RowOrder::kTopFirst : RowOrder::kBottomFirst, header.biBitCount, 0};
  format.rowBytes = (format.width * format.bitsPerPixel + 31) / 32 * 4;
  constexpr std::int64_t kMostBytes = std::numeric_limits<std::int32_t>::max();
  if (format.height > kMostBytes / format.rowBytes) return std::nullopt;
  return format;
}

ColorTable ReadDibColors(const BITMAPINFO& info, int bitsPerPixel) {
  ColorTable colors{};
  if (bitsPerPixel > kMostIndexBits) return colors;
  const std::size_t most = std::size_t{1} << bitsPerPixel;
  const std::size_t used = info.bmiHeader.biClrUsed;
  const std::size_t count = used == 0 ? most : std::min(used, most);
  // The table follows the header, however long that is.
  const auto* table = reinterpret_cast<const std::uint8_t*>(&info) + info.bmiHeader.biSize;
  std::memcpy(colors.data(), table, count * sizeof(RGBQUAD));
  return colors;
}

std::unique_ptr<DibSource> DibSource::Create(const DibFormat& format, const BITMAPINFO& info,
                                             const void* bits, std::int64_t rows) {
  if (bits == nullptr || rows < 1 || rows > format.height) return nullptr;
  std::unique_ptr<DibSource> source(new (std::nothrow) DibSource);
  if (!source) return nullptr;
  source->m_colors = ReadDibColors(info, format.bitsPerPixel);

  Surface& surface = source->m_surface;
  // A source is only ever read.
  surface.top = const_cast<std::uint8_t*>(static_cast<const std::uint8_t*>(bits));
  surface.stride = static_cast<std::ptrdiff_t>(format.rowBytes);
  if (format.order == RowOrder::kBottomFirst) {
    surface.top += format.rowBytes * (rows - 1);
    surface.stride = -surface.stride;
  }
  surface.width = static_cast<int>(format.width);
  surface.height = static_cast<int>(rows);
  surface.bitsPerPixel = format.bitsPerPixel;
  surface.colors = format.bitsPerPixel <= kMostIndexBits ? &source->m_colors : nullptr;
  if (!PixelMemory::IsDepth(format.bitsPerPixel) && !source->Expand(format)) return nullptr;
  return source;
}

bool DibSource::Expand(const DibFormat& format) {
  const bool isIndexed = format.bitsPerPixel <= kMostIndexBits;
  m_expanded = PixelMemory::Create(m_surface.width, m_surface.height, isIndexed ? 8 : 24,
                                   RowOrder::kTopFirst, 1);
  if (!m_expanded) return false;
  Surface expanded = m_expanded->GetSurface();
  for (int y = 0; y < m_surface.height; ++y) {
    if (isIndexed) {
      ExpandIndices(m_surface.Row(y), expanded.Row(y), m_surface.width, format.bitsPerPixel);
    } else {
      ExpandColors(m_surface.Row(y), expanded.Row(y), m_surface.width);
    }
  }
  if (isIndexed) expanded.colors = &m_colors;
  m_surface = expanded;
  return true;
}

}  // namespace orvalix
