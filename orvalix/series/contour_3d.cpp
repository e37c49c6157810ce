#include "orvalix/series/contour_3d.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

#include "orvalix/foundation/points.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/level_crossings_internal.h"
#include "orvalix/surface/polysurface.h"

namespace {

/// Plane code of horizontal planes.
constexpr int kHorizontal = 0;

/// Ends of an edge that differ by no more are at the same height.
constexpr double kFlat = 1e-20;

constexpr int kNeighbors = 3;

bool LiesBetween(double level, double a, double b) {
  return (a <= level && level <= b) || (b <= level && level <= a);
}

}  // namespace

CContour3D::CContour3D(COpenGL* context, CTransform3D* transform, const CPolysurface* surface,
                       const double* values, const RGBDType* colors, int numContours, double plane,
                       int labelFlag) {
  InitContour(context, transform, surface, values, colors, numContours, plane, labelFlag);
}

void CContour3D::InitContour(COpenGL* context, CTransform3D* transform, const CPolysurface* surface,
                             const double* values, const RGBDType* colors, int numContours,
                             double plane, int labelFlag) {
  m_context = context;
  m_transform = transform;
  m_surface = surface;
  m_values = values;
  m_colors = colors;
  m_numContours = values != nullptr ? std::max(numContours, 0) : 0;
  m_plane = plane;
  m_labelFlag = labelFlag;
  m_levelsDone = 0;
  m_crossings = 0;
  if (m_surface == nullptr || m_numContours == 0) return;
  orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_RESERVED7, "InitContour",
                                [this] { FollowLevels(); });
}

void CContour3D::FollowLevels() {
  constexpr RGBDType kBlack{0.0, 0.0, 0.0, 1.0};
  const auto polygons = static_cast<std::size_t>(m_surface->GetPSNumPolygons());
  const std::span levels(m_values, static_cast<std::size_t>(m_numContours));
  m_visited.assign(polygons, 0);
  m_chain.reserve(polygons);
  for (std::size_t k = 0; k < levels.size();) {
    const orvalix::LevelCrossings crossings(*m_surface, levels.subspan(k));
    for (const std::vector<int>& candidates : crossings.Lists()) {
      const double level = levels[k];
      for (std::size_t next = 0;;) {
        GetContourPolyList(level, candidates, next);
        if (m_chain.empty()) break;
        PlotContourSegment3D(level, m_colors != nullptr ? m_colors[k] : kBlack);
      }
      for (const int polygon : candidates) m_visited[static_cast<std::size_t>(polygon)] = 0;
      ++m_levelsDone;
      ++k;
    }
  }
  std::vector<unsigned char>().swap(m_visited);
  std::vector<int>().swap(m_chain);
}

int CContour3D::ReadVertices(int polygon, Vertices& vertices) const {
  int count = 0;
  m_surface->GPSPolygon(polygon, vertices.data(), count);
  vertices[static_cast<std::size_t>(count)] = vertices[0];
  return count;
}

CContour3D::Crossing CContour3D::CheckForPolyContour3D(const Vertices& vertices, int count,
                                                       double level) {
  Crossing crossing{.crossed = false, .entry = 0, .exit = 0};
  for (int edge = 0; edge < count; ++edge) {
    const auto i = static_cast<std::size_t>(edge);
    if (!LiesBetween(level, vertices[i].z, vertices[i + 1].z)) continue;
    if (crossing.crossed) {
      crossing.exit = edge;
      return crossing;
    }
    crossing = {.crossed = true, .entry = edge, .exit = edge};
  }
  return crossing;
}

CContour3D::Crossing CContour3D::CheckPolygon(int polygon, double level) const {
  Vertices vertices;
  const int count = ReadVertices(polygon, vertices);
  return CheckForPolyContour3D(vertices, count, level);
}

void CContour3D::GetContourPolyList(double level, const std::vector<int>& candidates,
                                    std::size_t& next) {
  m_chain.clear();
  while (next < candidates.size()) {
    const int first = candidates[next++];
    unsigned char& visited = m_visited[static_cast<std::size_t>(first)];
    if (visited != 0 || !CheckPolygon(first, level).crossed) continue;
    visited = 1;
    m_chain.push_back(first);
    WalkFrom(first, level, true);
    std::reverse(m_chain.begin(), m_chain.end());
    WalkFrom(first, level, false);
    m_crossings += static_cast<long long>(m_chain.size());
    return;
  }
}

void CContour3D::WalkFrom(int polygon, double level, bool isFirst) {
  const auto isVisited = [this](int number) {
    return number >= 0 && m_visited[static_cast<std::size_t>(number)] != 0;
  };
  const int polygons = m_surface->GetPSNumPolygons();
  Crossing crossing = CheckPolygon(polygon, level);
  bool atStart = true;
  for (;;) {
    std::array<int, kNeighbors> neighbors;
    m_surface->GetAdjacentPolyList(polygon, neighbors.data());
    const auto across = [&](int edge) {
      const int found = edge < kNeighbors ? neighbors[static_cast<std::size_t>(edge)] : -1;
      return found < polygons ? found : -1;
    };
    int neighbor = across(crossing.exit);
    const bool turnsBack = isVisited(neighbor) || (atStart && isFirst && neighbor < 0);
    if (turnsBack) neighbor = across(crossing.entry);
    if (neighbor < 0 || isVisited(neighbor)) return;
    crossing = CheckPolygon(neighbor, level);
    if (!crossing.crossed) return;
    m_visited[static_cast<std::size_t>(neighbor)] = 1;
    m_chain.push_back(neighbor);
    polygon = neighbor;
    atStart = false;
  }
}

void CContour3D::PlotContourSegment3D(double level, RGBDType const& color) {
  if (m_context == nullptr) return;
  m_context->SetFillStyle3D(color, color, color);
  m_context->SetLineStyle3D(0, 1.0, color);
  Vertices vertices;
  for (const int polygon : m_chain) {
    const int count = ReadVertices(polygon, vertices);
    point3Dtype from;
    point3Dtype to;
    if (!InterpolatePolyContour3D(vertices, count, level, from, to)) continue;
    from.z = m_plane;
    to.z = m_plane;
    if (m_transform != nullptr) {
      from = m_transform->CPTWS(from);
      to = m_transform->CPTWS(to);
    }
    m_context->LineAbs3D(from, to);
  }
}

bool CContour3D::InterpolatePolyContour3D(const Vertices& vertices, int count, double level,
                                          point3Dtype& from, point3Dtype& to) {
  bool hasFirst = false;
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
    const point3Dtype& a = vertices[i];
    const point3Dtype& b = vertices[i + 1];
    // An edge that lies on the height as a whole is no crossing: its neighbours are.
    if (!LiesBetween(level, a.z, b.z) || std::abs(b.z - a.z) <= kFlat) continue;
    point3Dtype& found = hasFirst ? to : from;
    found.z = level;
    interpolatepoint3D(a, b, found, kHorizontal);
    if (hasFirst) return true;
    hasFirst = true;
  }
  return false;
}

void CContour3D::GetContourBounds(double value, int& band) const {
  band = 0;
  if (m_numContours == 0 || value < m_values[0]) return;
  if (value >= m_values[m_numContours - 1]) {
    band = m_numContours;
    return;
  }
  for (int i = 0; i + 1 < m_numContours; ++i) {
    if (m_values[i] <= value && value < m_values[i + 1]) {
      band = i + 1;
      return;
    }
  }
}

int CContour3D::GetNumLevels() const { return m_levelsDone; }

long long CContour3D::GetNumCrossings() const { return m_crossings; }
