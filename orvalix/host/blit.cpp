#include "orvalix/host/blit_internal.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>
#include <vector>

#include "orvalix/host/pixel_rows_internal.h"

namespace orvalix {
namespace {

/// Keeps the part of a range that lies within 0 to `limit`, and moves another start along.
void Clip(std::int64_t& start, std::int64_t& count, std::int64_t limit, std::int64_t& other) {
  const std::int64_t cut = start < 0 ? -start : 0;
  start += cut;
  other += cut;
  count = std::min(count - cut, limit - start);
}

bool SameMemory(const Surface& a, const Surface& b) {
  return a.top == b.top && a.stride == b.stride && a.bitsPerPixel == b.bitsPerPixel &&
         a.colors == b.colors;
}

struct AddressRange {
  std::uintptr_t begin;
  std::uintptr_t end;
};

AddressRange AddressesOf(const Surface& surface) {
  const auto first = reinterpret_cast<std::uintptr_t>(surface.Row(0));
  const auto last = reinterpret_cast<std::uintptr_t>(surface.Row(surface.height - 1));
  const auto rowBytes = static_cast<std::uintptr_t>(surface.width) *
                        static_cast<std::uintptr_t>(surface.BytesPerPixel());
  return {std::min(first, last), std::max(first, last) + rowBytes};
}

bool ShareMemory(const Surface& a, const Surface& b) {
  const AddressRange left = AddressesOf(a);
  const AddressRange right = AddressesOf(b);
  return left.begin < right.end && right.begin < left.end;
}

bool HasPixels(const Surface& surface) {
  return surface.top != nullptr && surface.width > 0 && surface.height > 0;
}

/// A copy of a whole surface, for a source that is overwritten while it is read.
std::unique_ptr<PixelMemory> CopyOf(const Surface& surface) {
  auto copy = PixelMemory::Create(surface.width, surface.height, surface.bitsPerPixel,
                                  RowOrder::kTopFirst, 1);
  if (!copy) return nullptr;
  if (surface.colors != nullptr) copy->Colors() = *surface.colors;
  for (int y = 0; y < surface.height; ++y) {
    std::memcpy(copy->GetSurface().Row(y), surface.Row(y),
                static_cast<std::size_t>(copy->RowBytes()));
  }
  return copy;
}

/// A run of destination pixels and where each comes from.
struct SourcePixels {
  std::int64_t first = 0;          ///< first destination pixel
  std::vector<std::int64_t> from;  ///< by destination pixel from the first one on
};

/// The part of an axis that lies within both surfaces.
/// @throws std::bad_alloc
SourcePixels Resolve(const StretchAxis& axis, std::int64_t toLimit, std::int64_t fromLimit) {
  SourcePixels pixels;
  const std::int64_t begin = std::max<std::int64_t>(0, -axis.to);
  const std::int64_t end = std::min(axis.toCount, toLimit - axis.to);
  for (std::int64_t i = begin; i < end; ++i) {
    const std::int64_t source = axis.SourceOf(i);
    if (source < 0 || source >= fromLimit) continue;
    // Sources rise or fall steadily, so those inside follow one another.
    if (pixels.from.empty()) {
      pixels.first = axis.to + i;
      pixels.from.reserve(static_cast<std::size_t>(end - i));
    }
    pixels.from.push_back(source);
  }
  return pixels;
}

/// Picks pixels out of a row.
void Gather(const Surface& surface, std::int64_t y, const std::vector<std::int64_t>& columns,
            std::vector<std::uint8_t>& row) {
  const auto bytes = static_cast<std::size_t>(surface.BytesPerPixel());
  const std::uint8_t* const source = surface.Row(y);
  std::uint8_t* next = row.data();
  for (const std::int64_t column : columns) {
    const std::uint8_t* const pixel = source + static_cast<std::size_t>(column) * bytes;
    for (std::size_t i = 0; i < bytes; ++i) *next++ = pixel[i];
  }
}

/// @throws std::bad_alloc
void StretchApart(const Surface& to, const Surface& from, const StretchAxis& across,
                  const StretchAxis& down) {
  const SourcePixels columns = Resolve(across, to.width, from.width);
  const SourcePixels rows = Resolve(down, to.height, from.height);
  if (columns.from.empty() || rows.from.empty()) return;
  RowConverter converter(from, to);
  const int count = static_cast<int>(columns.from.size());
  std::vector<std::uint8_t> gathered(columns.from.size() *
                                     static_cast<std::size_t>(from.BytesPerPixel()));
  std::int64_t gatheredRow = -1;
  for (std::size_t i = 0; i < rows.from.size(); ++i) {
    if (rows.from[i] != gatheredRow) {
      gatheredRow = rows.from[i];
      Gather(from, gatheredRow, columns.from, gathered);
    }
    converter.Convert(gathered.data(),
                      to.Pixel(columns.first, rows.first + static_cast<std::int64_t>(i)), count);
  }
}

}  // namespace

bool CopyPixels(const Surface& to, std::int64_t x, std::int64_t y, const Surface& from,
                const PixelRect& source) {
  if (!HasPixels(to) || !HasPixels(from)) return true;
  PixelRect part = source;
  Clip(part.x, part.width, from.width, x);
  Clip(x, part.width, to.width, part.x);
  Clip(part.y, part.height, from.height, y);
  Clip(y, part.height, to.height, part.y);
  if (part.width <= 0 || part.height <= 0) return true;

  const bool sameMemory = SameMemory(to, from);
  if (!sameMemory && ShareMemory(to, from)) {
    const auto copy = CopyOf(from);
    return copy && CopyPixels(to, x, y, copy->GetSurface(), part);
  }
  // Moved down within one picture, the lower rows go first, before they are overwritten.
  const bool upwards = sameMemory && y > part.y;
  RowConverter converter(from, to);
  for (std::int64_t i = 0; i < part.height; ++i) {
    const std::int64_t row = upwards ? part.height - 1 - i : i;
    converter.Convert(from.Pixel(part.x, part.y + row), to.Pixel(x, y + row),
                      static_cast<int>(part.width));
  }
  return true;
}

StretchAxis StretchAxis::FromExtents(int to, int toExtent, int from, int fromExtent) {
  StretchAxis axis{to, toExtent, from, fromExtent, (toExtent < 0) != (fromExtent < 0)};
  if (axis.toCount < 0) {
    axis.to += axis.toCount + 1;
    axis.toCount = -axis.toCount;
  }
  if (axis.fromCount < 0) {
    axis.from += axis.fromCount + 1;
    axis.fromCount = -axis.fromCount;
  }
  return axis;
}

std::int64_t StretchAxis::SourceOf(std::int64_t index) const {
  // Both counts are 2^31 at most, so that the product stays below 2^63.
  const std::int64_t offset = (2 * index + 1) * fromCount / (2 * toCount);
  return from + (isMirrored ? fromCount - 1 - offset : offset);
}

bool StretchPixels(const Surface& to, const Surface& from, const StretchAxis& across,
                   const StretchAxis& down) {
  if (!HasPixels(to) || !HasPixels(from) || across.IsEmpty() || down.IsEmpty()) return true;
  std::unique_ptr<PixelMemory> copy;
  if (ShareMemory(to, from)) {
    copy = CopyOf(from);
    if (!copy) return false;
  }
  try {
    StretchApart(to, copy ? copy->GetSurface() : from, across, down);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

}  // namespace orvalix
