/// @file
/// Where labels stand against the tics that they belong to, unless the caller says so.
#pragma once

#include <array>

namespace orvalix {

/// By axis, then by text plane: codes for x and y, and those for a text turned by 45 degrees or
/// more. A code tells what of the text lies at its place: 0 its beginning, 1 its middle, 2 its end.
using LabelJustificationTable = std::array<std::array<std::array<int, 4>, 4>, 3>;

/// The table that every labels object starts with.
const LabelJustificationTable& DefaultLabelJustification();

/// Exchanges beginning and end.
int SwapTextJust(int justify);

/// x justification of labels of an axis in a text plane, turned by `rotation` degrees. Axes and
/// planes out of range act as the nearest.
int LabelXJustify(const LabelJustificationTable& table, int axis, int plane, int rotation);
/// The same for y.
int LabelYJustify(const LabelJustificationTable& table, int axis, int plane, int rotation);

}  // namespace orvalix
