#include "orvalix/foundation/logarithms.h"

#include <cmath>

double log10Ex(double x) {
  constexpr double kSmallest = 1e-30;
  constexpr double kLargest = 1e30;
  if (x <= 0.0) return 0.0;
  if (x <= kSmallest) return kSmallest;
  if (x > kLargest) return kLargest;
  return std::log10(x);
}

double Antilog10Ex(double x) { return std::pow(10.0, x); }

double AntilogLog10Ex(double x) { return Antilog10Ex(log10Ex(x)); }
