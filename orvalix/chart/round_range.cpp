#include <algorithm>
#include <array>
#include <cmath>

#include "orvalix/chart/round_range_internal.h"

namespace orvalix {
namespace {

/// Ranges below this have no extent.
constexpr double kLeastExtent = 1e-20;

/// How a range is divided: minor steps of `multiplier` grid units, `divisions` of them to a major
/// step.
struct StepPattern {
  double leastSpan;  ///< in grid units
  double multiplier;
  int divisions;
};

using StepPatterns = std::array<StepPattern, 5>;

// Kept: the tables differ in the first row alone; saved charts were laid out with both.
constexpr StepPatterns kRoundPatterns{
    {{81.0, 5.0, 8}, {41.0, 5.0, 4}, {21.0, 2.0, 5}, {11.0, 1.0, 5}, {-HUGE_VAL, 1.0, 2}}};
constexpr StepPatterns kTicPatterns{
    {{81.0, 5.0, 10}, {41.0, 5.0, 4}, {21.0, 2.0, 5}, {11.0, 1.0, 5}, {-HUGE_VAL, 1.0, 2}}};

const StepPattern& PatternFor(const StepPatterns& patterns, double span) {
  return *std::find_if(patterns.begin(), patterns.end(),
                       [span](const StepPattern& pattern) { return span >= pattern.leastSpan; });
}

/// A range moved to where all numbers are positive, on a grid of a hundredth of its decade. Grid
/// positions are whole numbers held as double, which has room for those of any range.
class PositiveGrid {
 public:
  PositiveGrid(Range range, int decade)
      : m_shift(range.min < 0.0 && range.max >= 0.0 ? std::pow(10.0, decade) : 0.0),
        m_mirrored(range.min < 0.0 && range.max < 0.0),
        m_unit(std::pow(10.0, decade - 2)) {
    const double low = m_mirrored ? -range.max : range.min + m_shift;
    const double high = m_mirrored ? -range.min : range.max + m_shift;
    m_low = std::trunc(low / m_unit);
    m_high = std::trunc(high / m_unit);
  }

  bool IsUsable() const {
    return m_unit > 0.0 && std::isfinite(m_shift) && std::isfinite(m_low) && std::isfinite(m_high);
  }
  double Unit() const { return m_unit; }
  double Low() const { return m_low; }
  double High() const { return m_high; }
  bool IsMirrored() const { return m_mirrored; }

  /// Back from numbers on the positive side.
  Range Return(double low, double high) const {
    return m_mirrored ? Range{-high, -low} : Range{low - m_shift, high - m_shift};
  }

 private:
  double m_shift;
  bool m_mirrored;
  double m_unit;
  double m_low;
  double m_high;
};

/// In the right order, and wide enough to be divided.
Range Widened(Range range) {
  if (range.min > range.max) std::swap(range.min, range.max);
  if (!(std::abs(range.min - range.max) < kLeastExtent)) return range;
  if (std::abs(range.max) < kLeastExtent) return {0.0, 10.0};
  if (range.min >= 0.0) return {0.0, range.max * 2.0};
  return {range.min * 2.0, 0.0};
}

bool IsFinite(Range range) { return std::isfinite(range.max - range.min); }

}  // namespace

Range RoundRange(Range range, bool toMinorStep) {
  if (!IsFinite(range)) return range;
  const Range wide = Widened(range);
  if (!IsFinite(wide)) return range;
  const double magnitude = std::log10(wide.max - wide.min);
  const int decade = static_cast<int>(magnitude > 0.0 ? magnitude + 0.99999 : magnitude + 0.5);
  const PositiveGrid grid(wide, decade);
  if (!grid.IsUsable()) return wide;
  const StepPattern& pattern = PatternFor(kRoundPatterns, grid.High() + 1.0 - grid.Low());
  const double step = toMinorStep ? pattern.multiplier : pattern.multiplier * pattern.divisions;
  const double high = (std::trunc(grid.High() / step) + 1.0) * step * grid.Unit();
  const double low = std::trunc((grid.Low() - 1.0) / step) * step * grid.Unit();
  const Range rounded = grid.Return(low, high);
  if (!IsFinite(rounded)) return wide;
  // Far from 0 the grid is finer than numbers are. Adding 0 turns -0 into 0.
  return {std::min(rounded.min, wide.min) + 0.0, std::max(rounded.max, wide.max) + 0.0};
}

TicMarks ChooseTicMarks(Range range) {
  if (!IsFinite(range)) return {};
  const Range wide = Widened(range);
  if (!IsFinite(wide)) return {};
  const int decade = static_cast<int>(std::ceil(std::log10(wide.max - wide.min)));
  const PositiveGrid grid(wide, decade);
  if (!grid.IsUsable()) return {};
  const StepPattern& pattern = PatternFor(kTicPatterns, grid.High() - grid.Low());
  const double major = pattern.multiplier * pattern.divisions;
  const double excess = std::fmod(grid.Low(), major);
  const double first = (excess == 0.0 ? grid.Low() : grid.Low() - excess + major) * grid.Unit();

  Range rounded = grid.Return(grid.Low() * grid.Unit(), grid.High() * grid.Unit());
  if (wide.min >= 0.0) rounded.min = std::max(rounded.min, 0.0);
  if (wide.max <= 0.0) rounded.max = std::min(rounded.max, 0.0);

  TicMarks marks;
  marks.spacing = pattern.multiplier * grid.Unit();
  marks.divisions = pattern.divisions;
  marks.decimals = std::max(0, -static_cast<int>(std::floor(std::log10(major * grid.Unit()))));
  // Kept: only a range that has 0 inside starts there; one that ends at 0 keeps the number of the
  // positive side, which lies outside of it.
  if (!(rounded.min < 0.0 && rounded.max > 0.0)) {
    marks.first = (grid.IsMirrored() ? -first : first) + 0.0;
  }
  return marks;
}

void RangeFinder::Add(double value) {
  if (!std::isfinite(value)) return;
  m_range.min = m_empty ? value : std::min(m_range.min, value);
  m_range.max = m_empty ? value : std::max(m_range.max, value);
  m_empty = false;
}

Range RangeFinder::Get() const { return m_range; }

Range FiniteRange(const double* values, int count) {
  RangeFinder finder;
  for (int i = 0; values != nullptr && i < count; ++i) finder.Add(values[i]);
  return finder.Get();
}

}  // namespace orvalix
