#include "orvalix/qt/navigation_internal.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace orvalix {
namespace {

constexpr double kRightAngle = 90.0;
constexpr double kFullTurn = 360.0;

/// A chart's rectangle in pixels of the view, from its upper left corner.
struct PixelRectangle {
  double left;
  double top;
  double width;
  double height;

  bool Contains(const ViewPoint& point) const {
    return point.x >= left && point.x < left + width && point.y >= top && point.y < top + height;
  }
  /// From pixels to the chart's own -1 to 1, upwards.
  ViewPoint ToChart(const ViewPoint& point) const {
    return {2.0 * (point.x - left) / width - 1.0, 1.0 - 2.0 * (point.y - top) / height};
  }
  bool IsEmpty() const { return !(width > 0.0 && height > 0.0); }
};

PixelRectangle RectangleOf(const CChart3D& chart, const ViewPoint& size) {
  GLViewRType position{};
  chart.GetChartPosition(position);
  return {position.x * size.x, (1.0 - position.y - position.height) * size.y,
          position.width * size.x, position.height * size.y};
}

double WithinHalfTurns(double degrees) { return std::remainder(degrees, kFullTurn); }

double WithinBox(double center) { return std::clamp(center, -1.0, 1.0); }

/// As it is drawn: numbers that can't be used stand for no magnification.
ChartZoom ZoomOf(const CChart3D& chart) {
  ChartZoom zoom{};
  chart.GetZoom(zoom.factor, zoom.x, zoom.y);
  const bool isUsable = zoom.factor > 0.0 && std::isfinite(zoom.factor * zoom.x) &&
                        std::isfinite(zoom.factor * zoom.y);
  return isUsable ? zoom : ChartZoom{1.0, 0.0, 0.0};
}

bool IsShown(const CChart3D* chart) { return chart != nullptr && chart->GetChartEnable() != 0; }

}  // namespace

Navigation::Charts Navigation::ChartsAt(const ViewPoint& point, const ViewPoint& size) const {
  Charts charts;
  for (const int index : AllCharts()) {
    if (RectangleOf(*m_view.GetChart(index), size).Contains(point)) charts.push_back(index);
  }
  return charts.empty() ? AllCharts() : charts;
}

Navigation::Charts Navigation::AllCharts() const {
  Charts charts;
  for (int index = 0; index < m_view.GetNumCharts(); ++index) {
    if (IsShown(m_view.GetChart(index))) charts.push_back(index);
  }
  return charts;
}

void Navigation::Rotate(const Charts& charts, double right, double up) {
  RememberHome();
  for (const int index : charts) {
    CChart3D* const chart = m_view.GetChart(index);
    for (int i = 0; chart != nullptr && i < chart->GetNumTransforms(); ++i) {
      CTransform3D& transform = *chart->GetTransform(i);
      point3Dtype rotation = transform.GetRotation();
      // A chart that stands farther already isn't turned back at once.
      rotation.x = std::clamp(rotation.x + up, std::min(rotation.x, -kRightAngle),
                              std::max(rotation.x, kRightAngle));
      rotation.z = WithinHalfTurns(rotation.z - right);
      transform.SetRotate(rotation);
    }
  }
}

void Navigation::Zoom(const Charts& charts, double factor, const ViewPoint& fixed,
                      const ViewPoint& size) {
  ChangeZooms(charts, size, [&](const PixelRectangle& rectangle, const ChartZoom& before) {
    const double after = std::clamp(before.factor * factor, kSmallestZoom, kLargestZoom);
    // A chart under the point keeps it where it is; the others grow about their middle.
    const ViewPoint at = rectangle.Contains(fixed) ? rectangle.ToChart(fixed) : ViewPoint{0.0, 0.0};
    return ChartZoom{after, before.x + at.x / before.factor - at.x / after,
                     before.y + at.y / before.factor - at.y / after};
  });
}

void Navigation::Pan(const Charts& charts, const ViewPoint& by, const ViewPoint& size) {
  ChangeZooms(charts, size, [&](const PixelRectangle& rectangle, const ChartZoom& before) {
    return ChartZoom{before.factor, before.x - 2.0 * by.x / (rectangle.width * before.factor),
                     before.y + 2.0 * by.y / (rectangle.height * before.factor)};
  });
}

template <class Change>
void Navigation::ChangeZooms(const Charts& charts, const ViewPoint& size, Change change) {
  RememberHome();
  for (const int index : charts) {
    CChart3D* const chart = m_view.GetChart(index);
    if (chart == nullptr) continue;
    const PixelRectangle rectangle = RectangleOf(*chart, size);
    if (rectangle.IsEmpty()) continue;
    const ChartZoom after = change(rectangle, ZoomOf(*chart));
    chart->SetZoom(after.factor, WithinBox(after.x), WithinBox(after.y));
  }
}

std::vector<Navigation::ChartHome> Navigation::Standing() const {
  std::vector<ChartHome> standing;
  for (int index = 0; index < m_view.GetNumCharts(); ++index) {
    const CChart3D& chart = *m_view.GetChart(index);
    ChartHome home{ZoomOf(chart), {}};
    for (int i = 0; i < chart.GetNumTransforms(); ++i) {
      const CTransform3D& transform = *chart.GetTransform(i);
      home.transforms.push_back({transform.GetTransformID(), transform.GetRotation()});
    }
    standing.push_back(std::move(home));
  }
  return standing;
}

bool Navigation::IsHomeOf(const CChart3D& chart, const ChartHome& home) {
  if (chart.GetNumTransforms() != static_cast<int>(home.transforms.size())) return false;
  for (std::size_t i = 0; i < home.transforms.size(); ++i) {
    const CTransform3D& transform = *chart.GetTransform(static_cast<int>(i));
    if (transform.GetTransformID() != home.transforms[i].id) return false;
  }
  return true;
}

/// True while the charts are those whose home is remembered.
bool Navigation::KnowsHome() const {
  if (m_view.GetNumCharts() != static_cast<int>(m_home.size())) return false;
  for (std::size_t index = 0; index < m_home.size(); ++index) {
    if (!IsHomeOf(*m_view.GetChart(static_cast<int>(index)), m_home[index])) return false;
  }
  return true;
}

void Navigation::RememberHome() {
  // Charts that were exchanged meanwhile start anew.
  if (!KnowsHome()) m_home = Standing();
}

void Navigation::Reset() {
  RememberHome();
  for (std::size_t index = 0; index < m_home.size(); ++index) {
    CChart3D& chart = *m_view.GetChart(static_cast<int>(index));
    const ChartHome& home = m_home[index];
    chart.SetZoom(home.zoom.factor, home.zoom.x, home.zoom.y);
    for (std::size_t i = 0; i < home.transforms.size(); ++i) {
      chart.GetTransform(static_cast<int>(i))->SetRotate(home.transforms[i].rotation);
    }
  }
}

}  // namespace orvalix
