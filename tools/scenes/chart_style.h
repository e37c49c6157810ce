/// @file
/// What the charts of all scenes have in common: a light background, walls behind the data, grids
/// on them, and axes with titles.
#pragma once

#include <vector>

#include "orvalix/orvalix.h"

namespace orvalix {

/// A chart in a view, with its transform and its axes.
struct StyledChart {
  CChart3D* chart;
  CTransform3D* transform;
  CAxes3D* axes;
};

/// Where a chart stands in the view, and how its box stands in it.
struct Placement {
  GLViewRType position{0.0, 0.0, 1.0, 1.0};   ///< fractions of the view
  point3Dtype rect{0.62, 0.42, 0.52, 0.0};    ///< half extents of the box
  point3Dtype offset{0.02, 0.0, 0.02, 0.0};   ///< of the box
  point3Dtype rotate{-22.0, 0.0, 20.0, 0.0};  ///< degrees
  double fontSize = 0.07;
};

/// Adds a chart for data between two corners.
StyledChart AddChart(CChartView3D& view, point3Dtype const& min, point3Dtype const& max,
                     const char* title, const Placement& placement = {});

/// Titles of the axes; null leaves one out.
void SetAxisTitles(CAxes3D& axes, const char* x, const char* y, const char* z);

/// Takes the axis along the depth of a single row away: its place tells nothing.
void HideDepthAxis(CAxes3D& axes);

/// A legend without a frame in the colours of the background, to be filled.
/// @param position fractions of the view
CLegend3D* AddLegend(CChartView3D& view, const GLViewRType& position);

/// Symbols of its entries.
inline constexpr int kLineSymbol = 1;
inline constexpr int kCubeSymbol = 3;

/// Names instead of numbers at 1, 2, 3, ... of an axis.
void NameAxis(CAxes3D& axes, int axis, int direction, const std::vector<CString>& names);

/// The colour at `share` (0 to 1) of a ramp of evenly spaced colours.
RGBDType RampColor(const std::vector<RGBDType>& ramp, double share);

/// From deep water to snow, for heights.
const std::vector<RGBDType>& HeightColors();

/// Directions of tics and labels.
inline constexpr int kLeft = 0;
inline constexpr int kDown = 2;
inline constexpr int kRight = 3;

inline constexpr RGBDType kDark{0.12, 0.13, 0.16, 1.0};

}  // namespace orvalix
