#include "orvalix/axes/label_justification_internal.h"

#include <algorithm>
#include <cstddef>

namespace orvalix {
namespace {

constexpr LabelJustificationTable kDefaults{{
    {{{1, 2, 0, 1}, {1, 2, 0, 1}, {2, 2, 2, 0}, {1, 2, 0, 1}}},  // x axis
    {{{2, 1, 2, 1}, {2, 2, 2, 0}, {1, 2, 2, 1}, {2, 2, 2, 0}}},  // y axis
    {{{2, 1, 1, 2}, {2, 1, 1, 2}, {2, 1, 1, 0}, {2, 1, 1, 2}}},  // z axis
}};

/// Positions in an entry; the ones for turned texts follow these two.
constexpr std::size_t kX = 0;
constexpr std::size_t kY = 1;
constexpr std::size_t kTurned = 2;

/// True from 45 degrees to below 135 either way.
bool IsTurned(int rotation) {
  return (rotation >= 45 && rotation < 135) || (rotation <= -45 && rotation > -135);
}

int Justify(const LabelJustificationTable& table, int axis, int plane, int rotation,
            std::size_t direction) {
  const auto& entry = table[static_cast<std::size_t>(std::clamp(axis, 0, 2))]
                           [static_cast<std::size_t>(std::clamp(plane, 0, 3))];
  const int justify = entry[IsTurned(rotation) ? direction + kTurned : direction];
  return rotation < 0 ? SwapTextJust(justify) : justify;
}

}  // namespace

const LabelJustificationTable& DefaultLabelJustification() { return kDefaults; }

int SwapTextJust(int justify) {
  if (justify == 0) return 2;
  if (justify == 2) return 0;
  return justify;
}

int LabelXJustify(const LabelJustificationTable& table, int axis, int plane, int rotation) {
  return Justify(table, axis, plane, rotation, kX);
}

int LabelYJustify(const LabelJustificationTable& table, int axis, int plane, int rotation) {
  return Justify(table, axis, plane, rotation, kY);
}

}  // namespace orvalix
