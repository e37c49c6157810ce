#include "orvalix/host/pixel_rows_internal.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

namespace orvalix {
namespace {

constexpr int kIndexBytes = 1;
constexpr int kOpaqueBytes = 4;

bool SameColors(const ColorTable& a, const ColorTable& b) {
  return std::equal(a.begin(), a.end(), b.begin(), [](const RGBQUAD& left, const RGBQUAD& right) {
    return left.rgbBlue == right.rgbBlue && left.rgbGreen == right.rgbGreen &&
           left.rgbRed == right.rgbRed;
  });
}

bool SameFormat(const Surface& a, const Surface& b) {
  if (a.bitsPerPixel != b.bitsPerPixel) return false;
  return a.colors == b.colors || a.colors == nullptr || b.colors == nullptr ||
         SameColors(*a.colors, *b.colors);
}

RGBQUAD ColorAt(const std::uint8_t* pixel) { return {pixel[0], pixel[1], pixel[2], 0}; }

void StoreColor(std::uint8_t* pixel, int bytes, const RGBQUAD& color) {
  pixel[0] = color.rgbBlue;
  pixel[1] = color.rgbGreen;
  pixel[2] = color.rgbRed;
  if (bytes == kOpaqueBytes) pixel[3] = kOpaque;
}

}  // namespace

void MakeOpaque(std::uint8_t* row, int count) {
  using Pair = std::uint64_t;
  constexpr auto kOpaquePair = std::bit_cast<Pair>(
      std::array<std::uint8_t, sizeof(Pair)>{0, 0, 0, kOpaque, 0, 0, 0, kOpaque});
  for (; count >= 2; count -= 2, row += sizeof(Pair)) {
    Pair pixels = 0;
    std::memcpy(&pixels, row, sizeof(Pair));
    pixels |= kOpaquePair;
    std::memcpy(row, &pixels, sizeof(Pair));
  }
  if (count == 1) row[3] = kOpaque;
}

RGBQUAD ReadPixel(const Surface& surface, std::int64_t x, std::int64_t y) {
  const std::uint8_t* pixel = surface.Pixel(x, y);
  return surface.colors != nullptr ? (*surface.colors)[*pixel] : ColorAt(pixel);
}

void WritePixel(const Surface& surface, std::int64_t x, std::int64_t y, const RGBQUAD& color) {
  std::uint8_t* pixel = surface.Pixel(x, y);
  if (surface.colors != nullptr) {
    *pixel = static_cast<std::uint8_t>(NearestIndex(*surface.colors, color));
  } else {
    StoreColor(pixel, surface.BytesPerPixel(), color);
  }
}

RowConverter::RowConverter(const Surface& from, const Surface& to)
    : m_fromBytes(from.BytesPerPixel()),
      m_toBytes(to.BytesPerPixel()),
      m_sameFormat(SameFormat(from, to)),
      m_fromColors(from.colors) {
  if (m_sameFormat || to.colors == nullptr) return;
  m_nearest.emplace(*to.colors);
  if (m_fromColors == nullptr) return;
  std::transform(m_fromColors->begin(), m_fromColors->end(), m_indexByIndex.begin(),
                 [this](const RGBQUAD& color) { return (*m_nearest)(color); });
}

void RowConverter::Convert(const std::uint8_t* from, std::uint8_t* to, int count) {
  if (m_sameFormat) {
    std::memmove(to, from, static_cast<std::size_t>(count) * static_cast<std::size_t>(m_toBytes));
  } else if (m_toBytes == kIndexBytes) {
    ConvertToIndices(from, to, count);
  } else {
    ConvertToColors(from, to, count);
  }
}

void RowConverter::ConvertToIndices(const std::uint8_t* from, std::uint8_t* to, int count) {
  if (m_fromColors != nullptr) {
    std::transform(from, from + count, to,
                   [this](std::uint8_t index) { return m_indexByIndex[index]; });
    return;
  }
  for (int i = 0; i < count; ++i, from += m_fromBytes) to[i] = (*m_nearest)(ColorAt(from));
}

void RowConverter::ConvertToColors(const std::uint8_t* from, std::uint8_t* to, int count) const {
  for (int i = 0; i < count; ++i, from += m_fromBytes, to += m_toBytes) {
    StoreColor(to, m_toBytes, m_fromColors != nullptr ? (*m_fromColors)[*from] : ColorAt(from));
  }
}

}  // namespace orvalix
