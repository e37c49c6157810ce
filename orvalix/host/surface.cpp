#include <algorithm>
#include <limits>
#include <new>

#include "orvalix/host/surface_internal.h"
#include "orvalix/host/system_colors_internal.h"

namespace orvalix {

bool PixelMemory::IsDepth(int bitsPerPixel) {
  return bitsPerPixel == 8 || bitsPerPixel == 24 || bitsPerPixel == 32;
}

std::unique_ptr<PixelMemory> PixelMemory::Create(std::int64_t width, std::int64_t height,
                                                 int bitsPerPixel, RowOrder order, int alignment) {
  constexpr std::int64_t kMostBytes = std::numeric_limits<std::int32_t>::max();
  if (width < 0 || height < 0 || !IsDepth(bitsPerPixel)) return nullptr;
  if (width > kMostBytes || height > kMostBytes) return nullptr;
  const std::int64_t rowBytes =
      (width * (bitsPerPixel / 8) + alignment - 1) / alignment * alignment;
  if (rowBytes != 0 && height > kMostBytes / rowBytes) return nullptr;

  std::unique_ptr<PixelMemory> memory(new (std::nothrow) PixelMemory);
  if (!memory) return nullptr;
  const auto size = static_cast<std::size_t>(rowBytes * height);
  memory->m_bytes.reset(new (std::nothrow) std::uint8_t[size]());
  if (!memory->m_bytes) return nullptr;
  memory->m_rowBytes = rowBytes;

  Surface& surface = memory->m_surface;
  const bool bottomFirst = order == RowOrder::kBottomFirst && height > 0;
  surface.top = memory->m_bytes.get() + (bottomFirst ? rowBytes * (height - 1) : 0);
  surface.stride = static_cast<std::ptrdiff_t>(bottomFirst ? -rowBytes : rowBytes);
  surface.width = static_cast<int>(width);
  surface.height = static_cast<int>(height);
  surface.bitsPerPixel = bitsPerPixel;
  surface.colors = bitsPerPixel == 8 ? &memory->m_colors : nullptr;
  return memory;
}

ColorTable SystemColorTable() {
  ColorTable table{};
  constexpr std::size_t kHalf = kSystemColors.size() / 2;
  for (std::size_t i = 0; i < kSystemColors.size(); ++i) {
    const PALETTEENTRY& entry = kSystemColors[i];
    const std::size_t index = i < kHalf ? i : table.size() - kSystemColors.size() + i;
    table[index] = {entry.peBlue, entry.peGreen, entry.peRed, 0};
  }
  return table;
}

}  // namespace orvalix
