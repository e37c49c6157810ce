#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "orvalix/axes/axes_3d.h"
#include "orvalix/chart/chart_3d.h"
#include "orvalix/chart/round_range_internal.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/points.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/surface/polysurface.h"

using orvalix::Range;

namespace {

/// Orientation of series whose values stand along y.
constexpr int kTurned = 1;
/// Type of groups that aren't stacked.
constexpr int kSideBySide = 0;

/// The smallest box that holds several.
class RunningBox {
 public:
  void Add(point3Dtype& min, point3Dtype& max) {
    for (int axis = 0; axis < 3; ++axis) {
      const double low = GetCoord3D(min, axis);
      const double high = GetCoord3D(max, axis);
      if (low < GetCoord3D(m_min, axis)) coordassign(m_min, axis, low);
      if (high > GetCoord3D(m_max, axis)) coordassign(m_max, axis, high);
    }
  }

  /// Makes sure that the box begins at `z` or below.
  void ReachDownTo(double z) { m_min.z = m_min.z > z ? z : m_min.z; }

  point3Dtype const& Min() const { return m_min; }
  point3Dtype const& Max() const { return m_max; }

 private:
  point3Dtype m_min{1e100, 1e100, 1e100, 0.0};
  // Kept: values below 0 alone leave this maximum.
  point3Dtype m_max{1e-100, 1e-100, 1e-100, 0.0};
};

}  // namespace

void CChart3D::RoundAxis(double& min, double& max, int toMinorStep) const {
  const Range rounded = orvalix::RoundRange({min, max}, toMinorStep != 0);
  min = rounded.min;
  max = rounded.max;
}

void CChart3D::CalcAxisTicMarks(double min, double max, double& firstTic, double& ticSpacing,
                                int& divisions, int& decimals) const {
  const orvalix::TicMarks marks = orvalix::ChooseTicMarks({min, max});
  firstTic = marks.first;
  ticSpacing = marks.spacing;
  divisions = marks.divisions;
  decimals = marks.decimals;
}

CTransform3D* CChart3D::AutoTransform3D(const point3Dtype* points, int count, int toMinorStep) {
  point3Dtype min{};
  point3Dtype max{};
  if (points != nullptr && count > 0) min.v = max.v = points[0].v;
  const std::array<double point3Dtype::*, 3> coordinates{&point3Dtype::x, &point3Dtype::y,
                                                         &point3Dtype::z};
  for (const auto coordinate : coordinates) {
    orvalix::RangeFinder finder;
    for (int i = 0; points != nullptr && i < count; ++i) finder.Add(points[i].*coordinate);
    const Range range = orvalix::RoundRange(finder.Get(), toMinorStep != 0);
    min.*coordinate = range.min;
    max.*coordinate = range.max;
  }
  return NewTransform(min, max);
}

CTransform3D* CChart3D::AutoTransformPolysurface(const CPolysurface* surface, int toMinorStep) {
  const bool any = surface != nullptr;
  return AutoTransform3D(any ? surface->GetPSPoints() : nullptr,
                         any ? surface->GetPSNumPoints() : 0, toMinorStep);
}

void CChart3D::MinMaxValues25D(const double* x, const double* y, int count, double depth,
                               int orientation, int toMinorStep, point3Dtype& min,
                               point3Dtype& max) const {
  const bool toMinor = toMinorStep != 0;
  const Range along = orvalix::RoundRange(orvalix::FiniteRange(x, count), toMinor);
  const Range up = orvalix::RoundRange(orvalix::FiniteRange(y, count), toMinor);
  if (orientation == kTurned) {
    AssignPoint3D(min, 0.0, along.min, up.min);
    AssignPoint3D(max, depth, along.max, up.max);
  } else {
    AssignPoint3D(min, along.min, 0.0, up.min);
    AssignPoint3D(max, along.max, depth, up.max);
  }
}

CTransform3D* CChart3D::AutoTransform25D(const double* x, const double* y, int count, double depth,
                                         int orientation, int toMinorStep) {
  point3Dtype min;
  point3Dtype max;
  MinMaxValues25D(x, y, count, depth, orientation, toMinorStep, min, max);
  return NewTransform(min, max);
}

CTransform3D* CChart3D::AutoTransformN25D(const double* const* x, const double* const* y,
                                          const int* counts, int seriesCount, double depth,
                                          int orientation, int toMinorStep) {
  RunningBox box;
  const bool exists = x != nullptr && y != nullptr && counts != nullptr;
  for (int i = 0; exists && i < seriesCount; ++i) {
    point3Dtype min;
    point3Dtype max;
    MinMaxValues25D(x[i], y[i], counts[i], depth, orientation, toMinorStep, min, max);
    box.Add(min, max);
  }
  return NewTransform(box.Min(), box.Max());
}

CTransform3D* CChart3D::AutoTransformGroup25D(const double* x, const double* groups,
                                              double baseValue, int count, int groupCount,
                                              double depth, int orientation, int groupType,
                                              int toMinorStep) {
  const auto values = static_cast<std::size_t>(groups != nullptr ? std::max(count, 0) : 0);
  const auto group = [&](int g) { return groups + values * static_cast<std::size_t>(g); };
  if (groupType == kSideBySide) {
    RunningBox box;
    for (int g = 0; g < groupCount; ++g) {
      point3Dtype min;
      point3Dtype max;
      MinMaxValues25D(x, group(g), count, depth, orientation, toMinorStep, min, max);
      box.Add(min, max);
    }
    box.ReachDownTo(baseValue);
    return NewTransform(box.Min(), box.Max());
  }
  std::vector<double> sums =
      orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_CHART3D, "AutoTransformGroup25D",
                                    [&] { return std::vector<double>(values, 0.0); });
  for (int g = 0; g < groupCount; ++g) {
    for (std::size_t i = 0; i < values; ++i) sums[i] += group(g)[i];
  }
  CTransform3D* transform =
      AutoTransform25D(x, sums.data(), static_cast<int>(values), depth, orientation, toMinorStep);
  point3Dtype min = transform->GetScaleMin();
  if (min.z > baseValue) {
    min.z = baseValue;
    transform->SetScaleMin(min);
  }
  return transform;
}

CAxes3D* CChart3D::AutoAxes(CTransform3D* transform) {
  constexpr std::array<int, 3> kDirections{2, 3, 0};  // down, to the right, to the left
  constexpr double kMinorTicLength = 0.02;
  constexpr double kMajorTicLength = 0.04;
  constexpr int kLabelPlane = 1;
  constexpr int kAllEnds = 7;
  constexpr int kTicsPerDecade = 10;
  CAxes3D* axes = NewAxes(transform);
  point3Dtype min = transform->GetScaleMin();
  point3Dtype max = transform->GetScaleMax();
  axes->SetAxisIntercept(0, max.y, min.z);
  axes->SetAxisIntercept(1, max.x, min.z);
  axes->SetAxisIntercept(2, min.x, max.y);
  const RGBDType black = SetRGBD(0.0, 0.0, 0.0, 1.0);
  for (int axis = 0; axis < 3; ++axis) {
    const int direction = kDirections[static_cast<std::size_t>(axis)];
    const orvalix::TicMarks marks =
        orvalix::ChooseTicMarks({GetCoord3D(min, axis), GetCoord3D(max, axis)});
    axes->SetAxisTics(axis, marks.first, marks.spacing, marks.divisions, kMinorTicLength,
                      kMajorTicLength, direction);
    axes->SetAxisLabels(axis, kLabelPlane, 0, direction, marks.decimals, kAllEnds, black, nullptr,
                        0);
    axes->SetAxisColor(axis, black);
    axes->SetAxisTicColor(axis, black);
    if (axes->GetAxisScaleMode(axis) != 0) axes->SetAxisNthTicMajor(axis, kTicsPerDecade);
  }
  return axes;
}
