/// @file
/// Switching the planes of all axes of a view.
#pragma once

#include <vector>

#include "orvalix/orvalix.h"

namespace orvalix {

/// The planes of a view's axes: fills or walls, with their grids.
class AxesPlanes {
 public:
  static constexpr int kPlanes = 6;

  /// @param view must outlive this object
  explicit AxesPlanes(CChartView3D& view) : m_view(view) {}

  /// "Floor (x-y)" and so on, by plane code.
  static const char* NameOf(int plane);

  /// True when the view has axes at all.
  bool Exist() const;
  /// True when any of the axes shows that plane.
  bool IsShown(int plane) const;
  /// Shows or hides a plane. What was hidden comes back with the grid it had; otherwise the first
  /// axes of each chart show it, in its own colour, or in light grey with a grid at the major tics.
  void Show(int plane, bool show);

 private:
  struct Hidden {
    CAxes3D* axes;
    int plane;
    bool hadFill;
    bool hadGrid;
  };

  std::vector<CAxes3D*> AllAxes() const;
  void Hide(CAxes3D& axes, int plane);
  bool Restore(int plane);

  CChartView3D& m_view;
  std::vector<Hidden> m_hidden;  ///< by this object
};

}  // namespace orvalix
