#include "support/colors.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>

namespace examples {
namespace {

/// The colour at `share` of a ramp of evenly spaced colours.
RGBDType Blend(std::span<const RGBDType> ramp, double share) {
  const double place = std::clamp(share, 0.0, 1.0) * static_cast<double>(ramp.size() - 1);
  const auto below = std::min(static_cast<std::size_t>(place), ramp.size() - 2);
  const double t = place - static_cast<double>(below);
  const RGBDType& a = ramp[below];
  const RGBDType& b = ramp[below + 1];
  return {std::lerp(a.red, b.red, t), std::lerp(a.green, b.green, t), std::lerp(a.blue, b.blue, t),
          1.0};
}

}  // namespace

RGBDType Viridis(double share) {
  static constexpr std::array<RGBDType, 9> kRamp{{{0.27, 0.00, 0.33, 1.0},
                                                  {0.28, 0.18, 0.48, 1.0},
                                                  {0.23, 0.32, 0.55, 1.0},
                                                  {0.17, 0.45, 0.56, 1.0},
                                                  {0.13, 0.57, 0.55, 1.0},
                                                  {0.15, 0.68, 0.51, 1.0},
                                                  {0.36, 0.79, 0.39, 1.0},
                                                  {0.67, 0.86, 0.20, 1.0},
                                                  {0.99, 0.91, 0.15, 1.0}}};
  return Blend(kRamp, share);
}

RGBDType BlueToRed(double share) {
  static constexpr std::array<RGBDType, 7> kRamp{{{0.10, 0.27, 0.58, 1.0},
                                                  {0.30, 0.53, 0.78, 1.0},
                                                  {0.66, 0.81, 0.91, 1.0},
                                                  {0.96, 0.94, 0.88, 1.0},
                                                  {0.98, 0.76, 0.55, 1.0},
                                                  {0.88, 0.43, 0.29, 1.0},
                                                  {0.68, 0.09, 0.15, 1.0}}};
  return Blend(kRamp, share);
}

RGBDType Heights(double share) {
  static constexpr std::array<RGBDType, 6> kRamp{{{0.20, 0.42, 0.34, 1.0},
                                                  {0.45, 0.62, 0.42, 1.0},
                                                  {0.82, 0.80, 0.55, 1.0},
                                                  {0.76, 0.58, 0.38, 1.0},
                                                  {0.58, 0.40, 0.32, 1.0},
                                                  {0.97, 0.96, 0.95, 1.0}}};
  return Blend(kRamp, share);
}

}  // namespace examples
