#include <cstdint>

#include "orvalix/surface/exact_signs_internal.h"

namespace orvalix {

namespace {

__extension__ using Wide = __int128;
__extension__ using UnsignedWide = unsigned __int128;

constexpr int kHalfBits = 64;

/// The way from one point to another: differences of coordinates, below 2^61.
struct Step {
  Wide x;
  Wide y;
};

Step StepBetween(const GridPoint& from, const GridPoint& to) {
  return {static_cast<std::int64_t>(to.x) - static_cast<std::int64_t>(from.x),
          static_cast<std::int64_t>(to.y) - static_cast<std::int64_t>(from.y)};
}

Wide Dot(const Step& a, const Step& b) { return a.x * b.x + a.y * b.y; }

Wide Cross(const Step& a, const Step& b) { return a.x * b.y - b.x * a.y; }

int Sign(Wide value) { return value > 0 ? 1 : (value < 0 ? -1 : 0); }

UnsignedWide Size(Wide value) { return static_cast<UnsignedWide>(value < 0 ? -value : value); }

/// A product of 256 bits.
struct Product {
  UnsignedWide high;
  UnsignedWide low;
};

Product Multiply(UnsignedWide a, UnsignedWide b) {
  const auto lowHalf = [](UnsignedWide value) {
    return UnsignedWide{static_cast<std::uint64_t>(value)};
  };
  const UnsignedWide aHigh = a >> kHalfBits;
  const UnsignedWide bHigh = b >> kHalfBits;
  const UnsignedWide lows = lowHalf(a) * lowHalf(b);
  const UnsignedWide cross = aHigh * lowHalf(b) + (lows >> kHalfBits);
  const UnsignedWide middle = lowHalf(a) * bHigh + lowHalf(cross);
  return {aHigh * bHigh + (cross >> kHalfBits) + (middle >> kHalfBits),
          (middle << kHalfBits) | lowHalf(lows)};
}

int Compare(const Product& a, const Product& b) {
  if (a.high != b.high) return a.high > b.high ? 1 : -1;
  if (a.low != b.low) return a.low > b.low ? 1 : -1;
  return 0;
}

/// The sign of a * b + c * d.
int SignOfSum(Wide a, Wide b, Wide c, Wide d) {
  const int first = Sign(a) * Sign(b);
  const int second = Sign(c) * Sign(d);
  if (first != -second) return first != 0 ? first : second;
  return first * Compare(Multiply(Size(a), Size(b)), Multiply(Size(c), Size(d)));
}

}  // namespace

bool LiesOutsideExactly(const GridPoint& from, const GridPoint& to, const GridPoint& p) {
  return Cross(StepBetween(p, to), StepBetween(p, from)) > 0;
}

bool ExceedHalfTurnExactly(const GridPoint& a, const GridPoint& b, const GridPoint& c,
                           const GridPoint& p) {
  const Step ac = StepBetween(c, a);
  const Step bc = StepBetween(c, b);
  const Step ap = StepBetween(p, a);
  const Step bp = StepBetween(p, b);
  const Wide cosC = Dot(ac, bc);
  const Wide cosP = Dot(ap, bp);
  if (cosC >= 0 && cosP >= 0) return false;
  if (cosC < 0 && cosP < 0) return true;
  return SignOfSum(Cross(ac, bc), cosP, Cross(bp, ap), cosC) < 0;
}

}  // namespace orvalix
