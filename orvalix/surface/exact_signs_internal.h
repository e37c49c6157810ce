/// @file
/// Signs of what triangulating computes, free of rounding errors.
#pragma once

#include <cmath>

namespace orvalix {

/// A place on the grid on which points are triangulated: two whole numbers of at most 2^59 in size.
struct GridPoint {
  double x;
  double y;

  friend bool operator==(const GridPoint&, const GridPoint&) = default;
};

/// Half the distance from 1 to the next double: the largest relative error of one operation.
constexpr double kRounding = 0x1p-53;

/// LiesOutside() in whole numbers.
bool LiesOutsideExactly(const GridPoint& from, const GridPoint& to, const GridPoint& p);
/// ExceedHalfTurn() in whole numbers.
bool ExceedHalfTurnExactly(const GridPoint& a, const GridPoint& b, const GridPoint& c,
                           const GridPoint& p);

/// True when p lies to the right of the edge, that is outside a triangle which the edge is an
/// anticlockwise part of.
inline bool LiesOutside(const GridPoint& from, const GridPoint& to, const GridPoint& p) {
  // Each product has been rounded three times (two differences of far points, itself), and their
  // difference once: 4 errors, doubled for their products and for the bound's own rounding.
  constexpr double kErrors = 8 * kRounding;
  const double left = (to.x - p.x) * (from.y - p.y);
  const double right = (from.x - p.x) * (to.y - p.y);
  const double difference = left - right;
  const double error = kErrors * (std::abs(left) + std::abs(right));
  if (difference > error) return true;
  if (difference < -error) return false;
  return LiesOutsideExactly(from, to, p);
}

/// True when the angles at c and p, over the edge from a to b that lies between them, exceed half a
/// turn together: when p lies inside the circle through a, b and c.
inline bool ExceedHalfTurn(const GridPoint& a, const GridPoint& b, const GridPoint& c,
                           const GridPoint& p) {
  // The sine of the sum of both angles has been rounded 10 times in each of its two products, each
  // of which is at most the product of all lengths: 20 errors, and some for the bound itself.
  constexpr double kErrors = 32 * kRounding;
  const GridPoint ac{a.x - c.x, a.y - c.y};
  const GridPoint bc{b.x - c.x, b.y - c.y};
  const GridPoint ap{a.x - p.x, a.y - p.y};
  const GridPoint bp{b.x - p.x, b.y - p.y};
  const double cosC = ac.x * bc.x + ac.y * bc.y;
  const double cosP = bp.x * ap.x + ap.y * bp.y;
  const double sinC = ac.x * bc.y - bc.x * ac.y;
  const double sinP = bp.x * ap.y - ap.x * bp.y;
  const double sum = sinC * cosP + sinP * cosC;
  const auto length = [](const GridPoint& v) { return std::abs(v.x) + std::abs(v.y); };
  const double error = kErrors * (length(ac) * length(bc)) * (length(ap) * length(bp));
  if (sum > error) return false;
  if (sum < -error) return true;
  return ExceedHalfTurnExactly(a, b, c, p);
}

}  // namespace orvalix
