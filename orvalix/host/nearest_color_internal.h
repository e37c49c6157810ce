/// @file
/// Which colour of a table comes closest to a given one.
#pragma once

#include <array>
#include <cstdint>

#include "orvalix/host/surface_internal.h"

namespace orvalix {

/// The index of the colour with the smallest sum of squared differences, the smallest one among
/// equals. Compares with the whole table: for single pixels.
int NearestIndex(const ColorTable& table, const RGBQUAD& color);

/// Finds the same indices for many colours: only looks at colours of similar green, and remembers
/// answers.
class NearestColor {
 public:
  explicit NearestColor(const ColorTable& table);
  /// The index for a colour.
  std::uint8_t operator()(const RGBQUAD& color);

 private:
  struct Entry {
    int blue;
    int green;
    int red;
    int index;
  };
  struct Answer {
    std::uint32_t key;  ///< the colour, and a bit that tells it from no answer
    std::uint8_t index;
  };
  std::uint8_t Search(const RGBQUAD& color) const;

  std::array<Entry, 256> m_byGreen;      ///< sorted by green
  std::array<int, 256> m_firstOfGreen;   ///< first entry with that much green or more
  std::array<Answer, 4096> m_answers{};  ///< by a hash of the colour
};

}  // namespace orvalix
