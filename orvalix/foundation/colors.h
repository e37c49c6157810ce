/// @file
/// Building and converting colours. Nothing is clamped or rounded: a component outside 0 to 1
/// wraps when it becomes a byte (1.2 becomes 50), a fraction is cut off. An undefined or infinite
/// component becomes 0, and so does one beyond 64 bits, whose low 8 bits are 0 anyway.
#pragma once

#include <cstdint>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/export.h"

/// The colour of these components, as they are.
ORVALIX_API RGBDType SetRGBD(double red, double green, double blue, double alpha);
/// The colour of these components, as they are.
ORVALIX_API RGBFType SetRGBF(float red, float green, float blue, float alpha);
/// Each component as a float.
ORVALIX_API RGBFType RGBDtoRGBF(RGBDType const& color);
/// Each component as a double.
ORVALIX_API RGBDType RGBFtoRGBD(RGBFType const& color);
/// Each component times 255, its fraction cut off, its low 8 bits kept.
ORVALIX_API RGBBType RGBDtoRGBB(RGBDType const& color);
/// Each byte divided by 255.
ORVALIX_API RGBDType RGBBtoRGBD(RGBBType const& color);
/// Red in bits 0 to 7, green in 8 to 15, blue in 16 to 23; alpha is lost.
ORVALIX_API std::uint32_t RGBDtoCOLORREF(RGBDType const& color);
/// From a packed colour; alpha is 1. The name is spelled so.
ORVALIX_API RGBDType COLORREFtoRGDB(std::uint32_t const& color);
/// The same value as RGBDtoCOLORREF().
ORVALIX_API std::uint32_t RGBD2INT(RGBDType const& color);
