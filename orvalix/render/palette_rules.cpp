#include "orvalix/render/palette_rules.h"

#include <cstddef>
#include <new>
#include <vector>

#include "orvalix/host/system_colors_internal.h"
#include "orvalix/render/pixel_format_internal.h"

namespace orvalix {
namespace {

constexpr WORD kPaletteVersion = 0x300;

/// The one layout whose palette has slots for the system: red in bits 0 to 2, green in 3 to 5,
/// blue in 6 and 7.
bool Is332(const PIXELFORMATDESCRIPTOR& format) {
  return format.cColorBits == 8 && format.cRedBits == 3 && format.cRedShift == 0 &&
         format.cGreenBits == 3 && format.cGreenShift == 3 && format.cBlueBits == 2 &&
         format.cBlueShift == 6;
}

}  // namespace

PaletteRules DefaultPaletteRules() {
  return {.threeBits = {0, 36, 73, 109, 146, 182, 219, 255},
          .twoBits = {0, 85, 170, 255},
          .oneBit = {0, 255},
          .overrideIndices = {0, 3, 24, 27, 64, 67, 88, 173, 181, 236, 247, 164, 91},
          .systemEntries = kSystemColors};
}

unsigned char ComponentFromIndex(const PaletteRules& rules, int index, unsigned bits,
                                 unsigned shift) {
  const unsigned value = shift < 32 ? static_cast<unsigned>(index) >> shift : 0;
  switch (bits) {
    case 1:
      return rules.oneBit[value & 1];
    case 2:
      return rules.twoBits[value & 3];
    case 3:
      return rules.threeBits[value & 7];
    default:
      return 0;
  }
}

void FillLogPalette(const PaletteRules& rules, const PIXELFORMATDESCRIPTOR& format,
                    LOGPALETTE* palette, int count) {
  palette->palVersion = kPaletteVersion;
  palette->palNumEntries = static_cast<WORD>(count);
  for (int i = 0; i < count; ++i) {
    palette->palPalEntry[i] = {ComponentFromIndex(rules, i, format.cRedBits, format.cRedShift),
                               ComponentFromIndex(rules, i, format.cGreenBits, format.cGreenShift),
                               ComponentFromIndex(rules, i, format.cBlueBits, format.cBlueShift),
                               0};
  }
  if (!Is332(format)) return;
  for (std::size_t i = 1; i < rules.overrideIndices.size(); ++i) {
    const int slot = rules.overrideIndices[i];
    if (slot < count) palette->palPalEntry[slot] = rules.systemEntries[i];
  }
}

HPALETTE CreatePaletteFor(const PaletteRules& rules, const PIXELFORMATDESCRIPTOR& format) {
  if (!NeedsPalette(format)) return nullptr;
  const int count = 1 << format.cColorBits;
  // LOGPALETTE holds the first entry itself.
  const std::size_t entries =
      (static_cast<std::size_t>(count) * sizeof(PALETTEENTRY)) / sizeof(LOGPALETTE) + 1;
  std::vector<LOGPALETTE> storage(entries + 1);
  FillLogPalette(rules, format, storage.data(), count);
  const HPALETTE palette = CreatePalette(storage.data());
  // With entries to copy, nothing but a lack of memory stands in the way.
  if (palette == nullptr) throw std::bad_alloc();
  return palette;
}

}  // namespace orvalix
