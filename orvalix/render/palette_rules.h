/// @file
/// How the palette of an 8-bit picture follows from the colour layout of its pixel format.
#pragma once

#include <array>

#include "orvalix/host/host.h"

namespace orvalix {

/// The tables behind 8-bit palettes. Each palette index holds a red, a green and a blue component
/// of 1 to 3 bits; twelve slots of the 3-3-2 layout are given to colours of the system.
struct PaletteRules {
  std::array<unsigned char, 8> threeBits;      ///< intensity by 3-bit component
  std::array<unsigned char, 4> twoBits;        ///< intensity by 2-bit component
  std::array<unsigned char, 2> oneBit;         ///< intensity by 1-bit component
  std::array<int, 13> overrideIndices;         ///< slots of system colours 1 to 12; 0 is not used
  std::array<PALETTEENTRY, 20> systemEntries;  ///< the static colours of the system
};

/// The tables as every picture uses them.
PaletteRules DefaultPaletteRules();

/// Intensity (0 to 255) of the component that `index` holds in `bits` bits above bit `shift`; 0
/// for a width other than 1, 2 or 3.
unsigned char ComponentFromIndex(const PaletteRules& rules, int index, unsigned bits,
                                 unsigned shift);

/// Writes version, count and `count` entries into `palette`, which has room for them.
void FillLogPalette(const PaletteRules& rules, const PIXELFORMATDESCRIPTOR& format,
                    LOGPALETTE* palette, int count);

/// Makes the palette that `format` asks for.
/// @return null when the format needs no palette or the system refuses it
/// @throws std::bad_alloc
HPALETTE CreatePaletteFor(const PaletteRules& rules, const PIXELFORMATDESCRIPTOR& format);

}  // namespace orvalix
