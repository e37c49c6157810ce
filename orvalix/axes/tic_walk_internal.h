/// @file
/// Where tics, grid lines and labels stand along an axis. All values are in world coordinates; each
/// walk calls a function for every value, in the order in which they are drawn.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace orvalix {

/// Limits of an axis and the value from which its tics are counted. On logarithmic axes all three
/// are legal ones, above 0.
struct TicRange {
  double min;
  double max;
  double center;
};

/// More values in one direction than any picture can show apart.
inline constexpr int kMostTics = 10000;
/// Share of a step, or of a value on a logarithmic axis, that rounding may have added up to: a
/// value on a limit isn't lost to it.
inline constexpr double kTicRounding = 1e-6;

/// True within the limits of a logarithmic axis.
inline bool Contains(const TicRange& range, double value) {
  return value >= range.min * (1.0 - kTicRounding) && value <= range.max * (1.0 + kTicRounding);
}

/// True where a walk by decades goes on.
inline bool HasDecadeAt(const TicRange& range, double value) {
  constexpr double kShare = 0.9;
  return value > 0.0 && value < kShare * range.max && value > kShare * range.min;
}

/// Calls `visit(value, count)` for centre, centre + step, ... with counts 0, 1, ... and then for
/// centre - step, ... with counts 1, 2, ..., each series as long as it stays within the limits: a
/// series that begins outside of them is empty. Steps of 0 or without a number give nothing.
template <class Visit>
void VisitLinearTics(const TicRange& range, double step, Visit visit) {
  if (step == 0.0 || !std::isfinite(step)) return;
  const double tolerance = std::abs(step) * kTicRounding;
  const auto visitSeries = [&](double signedStep, int first) {
    for (int count = first; count < first + kMostTics; ++count) {
      const double value = range.center + signedStep * count;
      if (!(value >= range.min - tolerance && value <= range.max + tolerance)) return;
      visit(std::abs(value) <= tolerance ? 0.0 : value, count);
    }
  };
  visitSeries(step, 0);
  visitSeries(-step, 1);
}

/// Two walks over the decades of a logarithmic axis. Calls `decade(value)` at each decade and
/// `minor(value, multiple)` at each of its multiples within the limits, 2 to 9 times a decade.
///
/// Kept: the first walk goes up from the centre; the second goes down by tenths of the centre to
/// 0.1 centre and from there up again over everything; further down there is nothing.
template <class Decade, class Minor>
void VisitDecades(const TicRange& range, Decade decade, Minor minor) {
  constexpr int kMinorsPerDecade = 8;
  for (const double firstStep : {range.center, -range.center / 10.0}) {
    double value = range.center;
    double step = firstStep;
    while (HasDecadeAt(range, value)) {
      decade(value);
      for (int i = 0; i < kMinorsPerDecade; ++i) {
        value += step;
        const int multiple = step < 0.0 ? 9 - i : 2 + i;
        if (Contains(range, value)) minor(value, multiple);
      }
      step += value;
      value = step;
    }
  }
}

/// Calls `visit(value, major)` for the tics of a logarithmic axis; decades are major ones.
template <class Visit>
void VisitLogarithmicTics(const TicRange& range, Visit visit) {
  VisitDecades(
      range, [&](double value) { visit(value, true); },
      [&](double value, int) { visit(value, false); });
}

/// Calls `visit(value)` for the grid lines at every `nth` tic of a logarithmic axis: 1, 2 and 5 per
/// decade for 5; decades alone for 10 and above (nthMajor / 10 decades apart, at least one, and
/// only upwards, twice); otherwise as the tics; none for 0.
template <class Visit>
void VisitLogarithmicGrid(const TicRange& range, int nth, int nthMajor, Visit visit) {
  constexpr int kTwoAndFive = 5;
  constexpr int kDecadesOnly = 10;
  if (nth == 0) return;
  if (nth < kDecadesOnly) {
    VisitDecades(range, visit, [&](double value, int multiple) {
      if (nth != kTwoAndFive || multiple == 2 || multiple == 5) visit(value);
    });
    return;
  }
  const double factor = std::pow(10.0, std::max(nthMajor / kDecadesOnly, 1));
  for (int pass = 0; pass < 2; ++pass) {
    for (double value = range.center; HasDecadeAt(range, value); value *= factor) visit(value);
  }
}

/// Calls `visit(value)` for the labels of a logarithmic axis: upwards from the centre, then
/// downwards from it, by decades or, with `nthMajor` of 2 and above, by 1, 2, 5, 10.
///
/// Kept: the centre comes twice.
template <class Visit>
void VisitLogarithmicLabels(const TicRange& range, int nthMajor, Visit visit) {
  using Factors = std::array<double, 3>;
  const bool decades = nthMajor < 2;
  const Factors up = decades ? Factors{10.0, 10.0, 10.0} : Factors{2.0, 2.5, 2.0};
  const Factors down = decades ? Factors{0.1, 0.1, 0.1} : Factors{0.5, 0.4, 0.5};
  for (const Factors& factors : {up, down}) {
    double value = range.center;
    for (std::size_t i = 0; Contains(range, value) && value > 0.0 && std::isfinite(value); ++i) {
      visit(value);
      value *= factors[i % factors.size()];
    }
  }
}

}  // namespace orvalix
