/// @file
/// An order of places in which those that follow each other are close.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace orvalix {

/// How far along the Hilbert curve a cell of a square lies. The curve begins in the cell (0, 0),
/// ends in the last one with y = 0, and goes from each cell to one beside it.
/// @param x, y cell, of 2^levels by 2^levels; higher bits don't matter
/// @param levels at most 32
constexpr std::uint64_t HilbertPosition(std::uint64_t x, std::uint64_t y, int levels) {
  /// Where one quarter of a square comes in the curve, and how the curve is turned within.
  struct Quarter {
    std::uint8_t place;
    std::uint8_t turn;
  };
  // Turns: 0 none, 1 about the rising diagonal, 2 about the falling one, 3 half a turn. Quarters:
  // two bits, x and y.
  constexpr std::array<std::array<Quarter, 4>, 4> kQuarters{{{{{0, 1}, {1, 0}, {3, 2}, {2, 0}}},
                                                             {{{0, 0}, {3, 3}, {1, 1}, {2, 1}}},
                                                             {{{2, 2}, {1, 2}, {3, 0}, {0, 3}}},
                                                             {{{2, 3}, {3, 1}, {1, 3}, {0, 2}}}}};
  std::uint64_t position = 0;
  std::size_t turn = 0;
  for (int level = levels - 1; level >= 0; --level) {
    const std::uint64_t quarter = ((x >> level) & 1) << 1 | ((y >> level) & 1);
    const Quarter& found = kQuarters[turn][quarter];
    position = position << 2 | found.place;
    turn = found.turn;
  }
  return position;
}

}  // namespace orvalix
