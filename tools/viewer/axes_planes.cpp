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

/// Shows a plane in its colour, or, when nobody has given it one, in grey.
void ShowFirst(CAxes3D& axes, int plane) {
  if (axes.GetPlaneColor(plane).alpha > 0.0) {
    axes.EnablePlane(plane, 1);
    return;
  }
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
  if (!show) {
    for (CAxes3D* axes : AllAxes()) {
      if (IsOn(*axes, plane)) Hide(*axes, plane);
    }
  } else if (!Restore(plane)) {
    for (int i = 0; i < m_view.GetNumCharts(); ++i) {
      CAxes3D* const axes = m_view.GetChart(i)->GetAxes(0);
      if (axes != nullptr) ShowFirst(*axes, plane);
    }
  }
}

void AxesPlanes::Hide(CAxes3D& axes, int plane) {
  m_hidden.push_back(
      {&axes, plane, axes.GetPlaneEnable(plane) != 0, axes.GetGridEnable(plane) != 0});
  axes.EnablePlane(plane, 0);
  axes.EnableGrid(plane, 0);
}

bool AxesPlanes::Restore(int plane) {
  bool isRestored = false;
  for (const Hidden& hidden : m_hidden) {
    if (hidden.plane != plane) continue;
    hidden.axes->EnablePlane(plane, hidden.hadFill ? 1 : 0);
    hidden.axes->EnableGrid(plane, hidden.hadGrid ? 1 : 0);
    isRestored = true;
  }
  std::erase_if(m_hidden, [plane](const Hidden& hidden) { return hidden.plane == plane; });
  return isRestored;
}

}  // namespace orvalix
