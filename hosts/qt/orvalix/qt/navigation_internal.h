/// @file
/// How the charts of a view are turned, magnified and moved.
#pragma once

#include <vector>

#include "orvalix/orvalix.h"

namespace orvalix {

/// A position in a view, or its size: pixels from the upper left corner.
struct ViewPoint {
  double x;
  double y;
};

/// How a chart is magnified, as CChart3D::SetZoom() takes it.
struct ChartZoom {
  double factor;
  double x;
  double y;
};

/// Turns charts through the rotation of all their transforms, magnifies and moves them through
/// their zoom, and remembers how they stood before the first change.
class Navigation {
 public:
  using Charts = std::vector<int>;  ///< by their index in the view

  static constexpr double kSmallestZoom = 0.1;
  static constexpr double kLargestZoom = 50.0;

  /// @param view must outlive this object
  explicit Navigation(CChartView3D& view) : m_view(view) {}

  /// The charts that are shown at a point; all that are shown, when there is none.
  Charts ChartsAt(const ViewPoint& point, const ViewPoint& size) const;
  /// All charts that are shown.
  Charts AllCharts() const;

  /// Turns charts by degrees: what is in front goes to the right and up. Upwards they turn from a
  /// view from right above to one from right below, no farther.
  void Rotate(const Charts& charts, double right, double up);
  /// Magnifies charts by a factor, within the limits above. What is shown at `fixed` stays there.
  void Zoom(const Charts& charts, double factor, const ViewPoint& fixed, const ViewPoint& size);
  /// Moves charts by pixels to the right and down, as far as their rectangle's middle still shows
  /// something that was in it before.
  void Pan(const Charts& charts, const ViewPoint& by, const ViewPoint& size);
  /// Brings every chart back to how it stood before the first change since Keep().
  void Reset();
  /// Takes how the charts stand now as what Reset() goes back to.
  void Keep() { m_home.clear(); }

 private:
  struct TransformHome {
    int id;
    point3Dtype rotation;
  };
  struct ChartHome {
    ChartZoom zoom;
    std::vector<TransformHome> transforms;
  };

  std::vector<ChartHome> Standing() const;
  static bool IsHomeOf(const CChart3D& chart, const ChartHome& home);
  bool KnowsHome() const;
  /// Sets the zoom of charts to what `change` makes of their rectangle and their zoom.
  template <class Change>
  void ChangeZooms(const Charts& charts, const ViewPoint& size, Change change);
  void RememberHome();

  CChartView3D& m_view;
  std::vector<ChartHome> m_home;  ///< empty until something has been changed
};

}  // namespace orvalix
