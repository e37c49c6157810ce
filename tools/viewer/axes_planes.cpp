#include "viewer/axes_planes.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace orvalix {
namespace {

constexpr std::array<const char*, AxesPlanes::kPlanes> kNames{
    "&Floor (x-y)",   "&Back Wall (x-z)",  "&Left Wall (y-z)",
    "&Ceiling (x-y)", "F&ront Wall (x-z)", "R&ight Wall (y-z)"};

/// The two axes along a plane.
constexpr std::array<std::array<int, 2>, 3> kAxesOfPlane{{{0, 1}, {0, 2}, {1, 2}}};

constexpr RGBDType kFill{0.93, 0.94, 0.96, 1.0};
constexpr RGBDType kLine{0.55, 0.58, 0.64, 1.0};

bool IsOn(const CAxes3D& axes, int plane) {
  return axes.GetPlaneEnable(plane) != 0 || axes.GetGridEnable(plane) != 0;
}

/// A plane that nobody has given a colour.
void ShowNew(CAxes3D& axes, int plane) {
  const std::array<int, 2>& along = kAxesOfPlane[static_cast<std::size_t>(plane % 3)];
  axes.SetPlaneColor(plane, kFill, kLine);
  axes.SetPlaneColorMode(plane, 0);
  axes.SetOutlineWidth(plane, 1.0);
  axes.SetPlaneGrid(plane, axes.GetAxisNthTicMajor(along[0]), axes.GetAxisNthTicMajor(along[1]),
                    kLine, 1.0, 0, 0);
}

}  // namespace

const char* AxesPlanes::NameOf(int plane) { return kNames.at(static_cast<std::size_t>(plane)); }

std::vector<CAxes3D*> AxesPlanes::AllAxes() const {
  std::vector<CAxes3D*> all;
  for (int i = 0; i < m_view.GetNumCharts(); ++i) {
    const CChart3D& chart = *m_view.GetChart(i);
    for (int j = 0; j < chart.GetNumAxes(); ++j) all.push_back(chart.GetAxes(j));
  }
  return all;
}

bool AxesPlanes::Exist() const { return !AllAxes().empty(); }

bool AxesPlanes::IsShown(int plane) const {
  const std::vector<CAxes3D*> all = AllAxes();
  return std::any_of(all.begin(), all.end(),
                     [plane](const CAxes3D* axes) { return IsOn(*axes, plane); });
}

void AxesPlanes::Show(int plane, bool show) {
  for (CAxes3D* axes : AllAxes()) {
    if (show == IsOn(*axes, plane)) continue;
    if (show) {
      Restore(*axes, plane);
    } else {
      Hide(*axes, plane);
    }
  }
}

void AxesPlanes::Hide(CAxes3D& axes, int plane) {
  m_hidden.push_back(
      {&axes, plane, axes.GetPlaneEnable(plane) != 0, axes.GetGridEnable(plane) != 0});
  axes.EnablePlane(plane, 0);
  axes.EnableGrid(plane, 0);
}

void AxesPlanes::Restore(CAxes3D& axes, int plane) {
  const auto hidden = std::find_if(m_hidden.begin(), m_hidden.end(), [&](const Hidden& each) {
    return each.axes == &axes && each.plane == plane;
  });
  if (hidden != m_hidden.end()) {
    axes.EnablePlane(plane, hidden->hadFill ? 1 : 0);
    axes.EnableGrid(plane, hidden->hadGrid ? 1 : 0);
    m_hidden.erase(hidden);
  } else if (axes.GetPlaneColor(plane).alpha > 0.0) {
    axes.EnablePlane(plane, 1);
  } else {
    ShowNew(axes, plane);
  }
}

}  // namespace orvalix
