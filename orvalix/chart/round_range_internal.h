/// @file
/// Ranges and tics that read well on an axis.
#pragma once

namespace orvalix {

/// Smallest and largest value on an axis.
struct Range {
  double min;
  double max;

  bool operator==(const Range&) const = default;
};

/// See CChart3D::RoundAxis().
Range RoundRange(Range range, bool toMinorStep);

/// How an axis is divided.
struct TicMarks {
  double first = 0.0;    ///< where major tics are counted from
  double spacing = 0.0;  ///< between minor tics
  int divisions = 1;     ///< minor intervals between major tics
  int decimals = 0;      ///< digits after the point that labels need
};

/// See CChart3D::CalcAxisTicMarks().
TicMarks ChooseTicMarks(Range range);

/// Finds the smallest and largest of values; those that aren't finite are passed over.
class RangeFinder {
 public:
  void Add(double value);
  /// 0 and 0 when there was none.
  Range Get() const;

 private:
  Range m_range{0.0, 0.0};
  bool m_empty = true;
};

/// The range of `count` values.
Range FiniteRange(const double* values, int count);

}  // namespace orvalix
