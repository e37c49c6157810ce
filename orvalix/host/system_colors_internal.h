/// @file
/// The static colours of the system.
#pragma once

#include <array>

#include "orvalix/host/host_types.h"

namespace orvalix {

/// The 20 colours that every palette device holds. On 8-bit devices the first ten stand at the
/// indices 0 to 9, the last ten at 246 to 255.
inline constexpr std::array<PALETTEENTRY, 20> kSystemColors = {
    {{0, 0, 0, 0},       {128, 0, 0, 0},     {0, 128, 0, 0},     {128, 128, 0, 0},
     {0, 0, 128, 0},     {128, 0, 128, 0},   {0, 128, 128, 0},   {192, 192, 192, 0},
     {192, 220, 192, 0}, {166, 202, 240, 0}, {255, 251, 240, 0}, {160, 160, 164, 0},
     {128, 128, 128, 0}, {255, 0, 0, 0},     {0, 255, 0, 0},     {255, 255, 0, 0},
     {0, 0, 255, 0},     {255, 0, 255, 0},   {0, 255, 255, 0},   {255, 255, 255, 0}}};

}  // namespace orvalix
