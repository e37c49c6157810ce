#include "orvalix/render/packed_dib_internal.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace orvalix {
namespace {

using Bytes = std::vector<unsigned char>;

constexpr std::size_t kFileHeaderBytes = 14;
constexpr std::size_t kCoreHeaderBytes = 12;
constexpr std::size_t kInfoHeaderBytes = sizeof(BITMAPINFOHEADER);
/// A header that goes on with fields of its own where others have masks.
constexpr std::size_t kOtherHeaderBytes = 64;
constexpr std::array<std::size_t, 7> kHeaderBytes{
    kCoreHeaderBytes, kInfoHeaderBytes, 52, 56, kOtherHeaderBytes, 108, 124};
/// As BI_BITFIELDS, with a fourth mask.
constexpr DWORD kAlphaBitfields = 6;
constexpr int kMostIndexBits = 8;

/// `size` bytes of a number, least significant one first. The caller knows that they are there.
std::uint32_t NumberAt(const Bytes& file, std::size_t at, std::size_t size) {
  std::uint32_t number = 0;
  for (std::size_t i = size; i-- > 0;) number = number << 8 | file[at + i];
  return number;
}

bool HasMasks(DWORD compression) {
  return compression == BI_BITFIELDS || compression == kAlphaBitfields;
}

/// Reads the header itself; false when it isn't there or no known one.
bool ReadHeader(const Bytes& file, DibLayout& layout) {
  if (file.size() < kCoreHeaderBytes) return false;
  const std::size_t size = NumberAt(file, 0, sizeof(DWORD));
  if (std::find(kHeaderBytes.begin(), kHeaderBytes.end(), size) == kHeaderBytes.end()) return false;
  if (file.size() < size) return false;
  BITMAPINFOHEADER& header = layout.header;
  if (size > kCoreHeaderBytes) {
    std::memcpy(&header, file.data(), sizeof(header));
    return true;
  }
  header.biSize = static_cast<DWORD>(size);
  header.biWidth = static_cast<LONG>(NumberAt(file, 4, sizeof(WORD)));
  header.biHeight = static_cast<LONG>(NumberAt(file, 6, sizeof(WORD)));
  header.biPlanes = static_cast<WORD>(NumberAt(file, 8, sizeof(WORD)));
  header.biBitCount = static_cast<WORD>(NumberAt(file, 10, sizeof(WORD)));
  return true;
}

bool IsKnownFormat(const BITMAPINFOHEADER& header) {
  const int bits = header.biBitCount;
  switch (header.biCompression) {
    case BI_RGB:
      return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
    case BI_RLE8:
      return bits == 8;
    case BI_RLE4:
      return bits == 4;
    case BI_BITFIELDS:
    case kAlphaBitfields:
      return (bits == 16 || bits == 32) && header.biSize != kOtherHeaderBytes;
    default:
      return false;
  }
}

/// Reads the masks, which end where the colour table starts; false when they aren't there.
bool ReadMasks(const Bytes& file, DibLayout& layout) {
  const BITMAPINFOHEADER& header = layout.header;
  layout.colorsAt = header.biSize;
  if (!HasMasks(header.biCompression)) return true;
  if (header.biSize == kInfoHeaderBytes) {
    const std::size_t count = layout.masks.size() + (header.biCompression == kAlphaBitfields);
    layout.colorsAt += count * sizeof(DWORD);
    if (layout.colorsAt > file.size()) return false;
  }
  for (std::size_t i = 0; i < layout.masks.size(); ++i) {
    layout.masks[i] = NumberAt(file, kInfoHeaderBytes + i * sizeof(DWORD), sizeof(DWORD));
  }
  return true;
}

/// Finds the end of the colour table, which is the start of the pixels; false when that is behind
/// the end of the file.
bool FindPixels(const Bytes& file, std::uint32_t pixelOffset, DibLayout& layout) {
  const BITMAPINFOHEADER& header = layout.header;
  layout.bytesPerColor = header.biSize == kCoreHeaderBytes ? 3 : sizeof(RGBQUAD);
  std::size_t tableBytes = 0;
  if (header.biClrUsed != 0) {
    tableBytes = header.biClrUsed * layout.bytesPerColor;
  } else if (header.biBitCount <= kMostIndexBits) {
    tableBytes = (std::size_t{1} << header.biBitCount) * layout.bytesPerColor;
  } else {
    const std::size_t tableStart = kFileHeaderBytes + layout.colorsAt;
    tableBytes = pixelOffset > tableStart ? pixelOffset - tableStart : 0;
  }
  if (tableBytes > file.size() - layout.colorsAt) return false;
  layout.numColors = tableBytes / layout.bytesPerColor;
  layout.bitsAt = layout.colorsAt + tableBytes;
  return true;
}

std::optional<DibLayout> ReadLayout(const Bytes& file, std::uint32_t pixelOffset) {
  DibLayout layout;
  if (!ReadHeader(file, layout) || !IsKnownFormat(layout.header)) return std::nullopt;
  if (!ReadMasks(file, layout) || !FindPixels(file, pixelOffset, layout)) return std::nullopt;
  const BITMAPINFOHEADER& header = layout.header;
  if (header.biWidth < 1 || header.biHeight == 0) return std::nullopt;
  layout.width = header.biWidth;
  layout.height = std::abs(std::int64_t{header.biHeight});
  layout.isPacked = header.biCompression == BI_RGB && header.biSize != kCoreHeaderBytes;
  return layout;
}

}  // namespace

std::optional<PackedDib> ReadPackedDib(Bytes file, std::uint32_t pixelOffset) {
  const std::optional<DibLayout> layout = ReadLayout(file, pixelOffset);
  if (!layout) return std::nullopt;
  if (!layout->isPacked) return DecodeDib(file, *layout);
  const std::int64_t rowBytes = DibRowBytes(layout->width, layout->header.biBitCount);
  const auto left = static_cast<std::int64_t>(file.size() - layout->bitsAt);
  if (layout->height > left / rowBytes) return std::nullopt;
  BITMAPINFOHEADER header = layout->header;
  header.biSizeImage = static_cast<DWORD>(rowBytes * layout->height);
  header.biClrUsed = static_cast<DWORD>(layout->numColors);
  std::memcpy(file.data(), &header, sizeof(header));
  return PackedDib{std::move(file), layout->colorsAt, layout->numColors, layout->bitsAt};
}

}  // namespace orvalix
