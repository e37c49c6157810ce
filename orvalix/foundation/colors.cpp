#include "orvalix/foundation/colors.h"

#include <cmath>

namespace {

constexpr double kLargest = 255.0;

unsigned char ToByte(double component) {
  constexpr double kBeyondInt64 = 9.2e18;
  const double scaled = component * kLargest;
  // Written so that an undefined number fails the test too.
  if (!(std::abs(scaled) < kBeyondInt64)) return 0;
  return static_cast<unsigned char>(static_cast<std::int64_t>(scaled) & 0xFF);
}

std::uint32_t Pack(RGBBType const& color) {
  return static_cast<std::uint32_t>(color.red) | (static_cast<std::uint32_t>(color.green) << 8) |
         (static_cast<std::uint32_t>(color.blue) << 16);
}

}  // namespace

RGBDType SetRGBD(double red, double green, double blue, double alpha) {
  return {red, green, blue, alpha};
}

RGBFType SetRGBF(float red, float green, float blue, float alpha) {
  return {red, green, blue, alpha};
}

RGBFType RGBDtoRGBF(RGBDType const& color) {
  return {static_cast<float>(color.red), static_cast<float>(color.green),
          static_cast<float>(color.blue), static_cast<float>(color.alpha)};
}

RGBDType RGBFtoRGBD(RGBFType const& color) {
  return {static_cast<double>(color.red), static_cast<double>(color.green),
          static_cast<double>(color.blue), static_cast<double>(color.alpha)};
}

RGBBType RGBDtoRGBB(RGBDType const& color) {
  return {ToByte(color.red), ToByte(color.green), ToByte(color.blue), ToByte(color.alpha)};
}

RGBDType RGBBtoRGBD(RGBBType const& color) {
  return {color.red / kLargest, color.green / kLargest, color.blue / kLargest,
          color.alpha / kLargest};
}

std::uint32_t RGBDtoCOLORREF(RGBDType const& color) { return Pack(RGBDtoRGBB(color)); }

RGBDType COLORREFtoRGDB(std::uint32_t const& color) {
  return {(color & 0xFF) / kLargest, ((color >> 8) & 0xFF) / kLargest,
          ((color >> 16) & 0xFF) / kLargest, 1.0};
}

std::uint32_t RGBD2INT(RGBDType const& color) { return Pack(RGBDtoRGBB(color)); }
