#include <algorithm>
#include <bit>
#include <cstring>
#include <span>

#include "orvalix/render/packed_dib_internal.h"

namespace orvalix {
namespace {

using ByteSpan = std::span<const unsigned char>;

constexpr int kRunBits4 = 4;
constexpr int kTrueColorBits = 24;

/// The decoded bitmap with its header and colours, its pixels all 0.
PackedDib MakeDib(const std::vector<unsigned char>& file, const DibLayout& layout, int bitCount) {
  PackedDib dib;
  dib.colorsAt = sizeof(BITMAPINFOHEADER);
  dib.numColors = layout.numColors;
  dib.bitsAt = dib.colorsAt + dib.numColors * sizeof(RGBQUAD);
  const std::int64_t pixelBytes = DibRowBytes(layout.width, bitCount) * layout.height;
  dib.bytes.resize(dib.bitsAt + static_cast<std::size_t>(pixelBytes));

  BITMAPINFOHEADER header = layout.header;
  header.biSize = sizeof(BITMAPINFOHEADER);
  header.biPlanes = 1;
  header.biBitCount = static_cast<WORD>(bitCount);
  header.biCompression = BI_RGB;
  header.biSizeImage = static_cast<DWORD>(pixelBytes);
  header.biClrUsed = static_cast<DWORD>(layout.numColors);
  std::memcpy(dib.bytes.data(), &header, sizeof(header));
  for (std::size_t i = 0; i < layout.numColors; ++i) {
    const unsigned char* from = &file[layout.colorsAt + i * layout.bytesPerColor];
    std::copy_n(from, layout.bytesPerColor, &dib.bytes[dib.colorsAt + i * sizeof(RGBQUAD)]);
  }
  return dib;
}

/// The same pixels behind another header.
PackedDib CopyPixels(const std::vector<unsigned char>& file, const DibLayout& layout) {
  PackedDib dib = MakeDib(file, layout, layout.header.biBitCount);
  const auto from = file.begin() + static_cast<std::ptrdiff_t>(layout.bitsAt);
  const auto to = dib.bytes.begin() + static_cast<std::ptrdiff_t>(dib.bitsAt);
  std::copy_n(from, dib.bytes.end() - to, to);
  return dib;
}

/// The bits of a pixel that hold one component.
class Component {
 public:
  explicit Component(std::uint32_t mask)
      : m_mask(mask),
        m_shift(mask == 0 ? 0 : std::countr_zero(mask)),
        m_bits(static_cast<int>(std::bit_width(mask >> m_shift))) {}

  /// True for bits that follow one another, and for none.
  bool IsContiguous() const { return std::popcount(m_mask) == m_bits; }

  /// As 8 bits: the highest ones, or fewer repeated.
  unsigned char Of(std::uint32_t pixel) const {
    const std::uint32_t value = (pixel & m_mask) >> m_shift;
    if (m_bits == 0) return 0;
    if (m_bits >= kByteBits) return static_cast<unsigned char>(value >> (m_bits - kByteBits));
    std::uint32_t widened = value << (kByteBits - m_bits);
    for (int filled = m_bits; filled < kByteBits; filled *= 2) widened |= widened >> filled;
    return static_cast<unsigned char>(widened);
  }

 private:
  static constexpr int kByteBits = 8;
  std::uint32_t m_mask;
  int m_shift;  ///< where the component starts
  int m_bits;   ///< from its first bit to its last
};

std::uint32_t PixelAt(const unsigned char* bytes, std::size_t size) {
  std::uint32_t pixel = 0;
  for (std::size_t i = size; i-- > 0;) pixel = pixel << 8 | bytes[i];
  return pixel;
}

/// Pixels told by masks, as 24 bits each. A fourth component, the alpha, is passed over.
std::optional<PackedDib> DecodeMasks(const std::vector<unsigned char>& file,
                                     const DibLayout& layout) {
  const std::array<Component, 3> components{Component(layout.masks[2]), Component(layout.masks[1]),
                                            Component(layout.masks[0])};
  const bool isUsable = std::all_of(components.begin(), components.end(),
                                    [](const Component& part) { return part.IsContiguous(); });
  if (!isUsable || layout.masks == std::array<std::uint32_t, 3>{}) return std::nullopt;
  const std::int64_t toRowBytes = DibRowBytes(layout.width, kTrueColorBits);
  if (layout.height > kMostPixelBytes / toRowBytes) return std::nullopt;

  PackedDib dib = MakeDib(file, layout, kTrueColorBits);
  const auto pixelBytes = static_cast<std::size_t>(layout.header.biBitCount / 8);
  const std::int64_t fromRowBytes = DibRowBytes(layout.width, layout.header.biBitCount);
  for (std::int64_t y = 0; y < layout.height; ++y) {
    const unsigned char* from = &file[layout.bitsAt + static_cast<std::size_t>(y * fromRowBytes)];
    unsigned char* to = &dib.bytes[dib.bitsAt + static_cast<std::size_t>(y * toRowBytes)];
    for (std::int64_t x = 0; x < layout.width; ++x, from += pixelBytes) {
      const std::uint32_t pixel = PixelAt(from, pixelBytes);
      for (const Component& part : components) *to++ = part.Of(pixel);
    }
  }
  return dib;
}

/// Fills rows of 4 or 8 bits per pixel, all 0 before, from runs. Pixels outside are passed over.
/// Pixels that no run reaches, because the runs pass over them or end early, stay 0.
class RunDecoder {
 public:
  RunDecoder(ByteSpan runs, std::span<unsigned char> rows, const DibLayout& layout)
      : m_runs(runs),
        m_rows(rows),
        m_width(layout.width),
        m_height(layout.height),
        m_bits(layout.header.biBitCount),
        m_rowBytes(DibRowBytes(layout.width, m_bits)) {}

  void Decode() {
    while (m_y < m_height && Has(2)) {
      const unsigned char count = Next();
      const unsigned char value = Next();
      if (count > 0) {
        RepeatValue(count, value);
      } else if (!Escape(value)) {
        return;
      }
    }
  }

 private:
  enum EscapeCode : unsigned char { kEndOfRow = 0, kEndOfBitmap = 1, kMove = 2 };

  bool Has(std::size_t bytes) const { return m_runs.size() - m_at >= bytes; }
  unsigned char Next() { return m_runs[m_at++]; }

  /// Obeys the code behind a count of 0; false at the end.
  bool Escape(unsigned char code) {
    switch (code) {
      case kEndOfRow:
        m_x = 0;
        ++m_y;
        return true;
      case kEndOfBitmap:
        return false;
      case kMove:
        if (!Has(2)) return false;
        m_x += Next();
        m_y += Next();
        return true;
      default:
        return CopyValues(code);
    }
  }

  /// A run of one value; of 4 bits, of its two halves in turn.
  void RepeatValue(int count, unsigned char value) {
    for (int i = 0; i < count; ++i) Put(m_bits == kRunBits4 ? Half(value, i) : value);
  }

  /// Single values, padded to a whole number of two bytes; false when the file ends in them.
  bool CopyValues(int count) {
    const int bytes = m_bits == kRunBits4 ? (count + 1) / 2 : count;
    const auto padded = static_cast<std::size_t>((bytes + 1) / 2 * 2);
    const ByteSpan values = m_runs.subspan(m_at, std::min(padded, m_runs.size() - m_at));
    for (int i = 0; i < count; ++i) {
      const auto at = static_cast<std::size_t>(m_bits == kRunBits4 ? i / 2 : i);
      if (at >= values.size()) return false;
      Put(m_bits == kRunBits4 ? Half(values[at], i) : values[at]);
    }
    m_at += values.size();
    return true;
  }

  static unsigned char Half(unsigned char value, int index) {
    return static_cast<unsigned char>(index % 2 == 0 ? value >> 4 : value & 0xF);
  }

  void Put(unsigned char value) {
    const std::int64_t x = m_x++;
    if (x >= m_width || m_y >= m_height) return;
    const std::int64_t inRow = m_bits == kRunBits4 ? x / 2 : x;
    unsigned char& byte = m_rows[static_cast<std::size_t>(m_y * m_rowBytes + inRow)];
    if (m_bits != kRunBits4) {
      byte = value;
    } else if (x % 2 == 0) {
      byte = static_cast<unsigned char>((byte & 0x0F) | value << 4);
    } else {
      byte = static_cast<unsigned char>((byte & 0xF0) | value);
    }
  }

  ByteSpan m_runs;
  std::span<unsigned char> m_rows;
  std::int64_t m_width;
  std::int64_t m_height;
  int m_bits;
  std::int64_t m_rowBytes;
  std::size_t m_at = 0;  ///< next byte of m_runs
  std::int64_t m_x = 0;
  std::int64_t m_y = 0;  ///< row, as they stand in the file
};

std::optional<PackedDib> DecodeRuns(const std::vector<unsigned char>& file,
                                    const DibLayout& layout) {
  const std::int64_t rowBytes = DibRowBytes(layout.width, layout.header.biBitCount);
  const ByteSpan runs = ByteSpan(file).subspan(layout.bitsAt);
  const std::int64_t mostBytes =
      std::min(static_cast<std::int64_t>(runs.size()) * kMostBytesPerRunByte, kMostPixelBytes);
  if (layout.height > mostBytes / rowBytes) return std::nullopt;
  PackedDib dib = MakeDib(file, layout, layout.header.biBitCount);
  RunDecoder(runs, std::span(dib.bytes).subspan(dib.bitsAt), layout).Decode();
  return dib;
}

}  // namespace

std::optional<PackedDib> DecodeDib(const std::vector<unsigned char>& file,
                                   const DibLayout& layout) {
  const DWORD compression = layout.header.biCompression;
  if (compression == BI_RLE4 || compression == BI_RLE8) return DecodeRuns(file, layout);
  const auto left = static_cast<std::int64_t>(file.size() - layout.bitsAt);
  if (layout.height > left / DibRowBytes(layout.width, layout.header.biBitCount)) {
    return std::nullopt;
  }
  return compression == BI_RGB ? CopyPixels(file, layout) : DecodeMasks(file, layout);
}

}  // namespace orvalix
