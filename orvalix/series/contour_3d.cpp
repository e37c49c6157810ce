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

constexpr std::size_t kNeighbors = 3;

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
  m_places.assign(polygons, -1);
  m_chain.reserve(polygons);
  for (std::size_t k = 0; k < levels.size();) {
    orvalix::LevelCrossings found(*m_surface, levels.subspan(k));
    for (std::vector<orvalix::LevelCrossing>& crossings : found.Lists()) {
      int place = 0;
      for (const auto& crossing : crossings) {
        m_places[static_cast<std::size_t>(crossing.polygon)] = place++;
      }
      for (std::size_t next = 0;;) {
        GetContourPolyList(crossings, next);
        if (m_chain.empty()) break;
        PlotContourSegment3D(levels[k], m_colors != nullptr ? m_colors[k] : kBlack);
      }
      for (const auto& crossing : crossings) {
        m_places[static_cast<std::size_t>(crossing.polygon)] = -1;
      }
      ++m_levelsDone;
      ++k;
    }
  }
  std::vector<int>().swap(m_places);
  std::vector<int>().swap(m_chain);
}

int CContour3D::ReadVertices(int polygon, Vertices& vertices) const {
  int count = 0;
  m_surface->GPSPolygon(polygon, vertices.data(), count);
  vertices[static_cast<std::size_t>(count)] = vertices[0];
  return count;
}

void CContour3D::GetContourPolyList(std::vector<orvalix::LevelCrossing>& crossings,
                                    std::size_t& next) {
  m_chain.clear();
  while (next < crossings.size() && crossings[next].visited) ++next;
  if (next == crossings.size()) return;
  crossings[next].visited = true;
  m_chain.push_back(crossings[next].polygon);
  WalkFrom(crossings, next, true);
  std::reverse(m_chain.begin(), m_chain.end());
  WalkFrom(crossings, next, false);
  ++next;
  m_crossings += static_cast<long long>(m_chain.size());
}

void CContour3D::WalkFrom(std::vector<orvalix::LevelCrossing>& crossings, std::size_t start,
                          bool isFirst) {
  const auto placeOf = [this](int polygon) {
    const bool known = polygon >= 0 && static_cast<std::size_t>(polygon) < m_places.size();
    return known ? m_places[static_cast<std::size_t>(polygon)] : -1;
  };
  for (std::size_t at = start;;) {
    const orvalix::LevelCrossing& crossing = crossings[at];
    std::array<int, kNeighbors> neighbors;
    m_surface->GetAdjacentPolyList(crossing.polygon, neighbors.data());
    const auto across = [&](std::size_t edge) { return edge < kNeighbors ? neighbors[edge] : -1; };
    int neighbor = across(crossing.exit);
    int place = placeOf(neighbor);
    const bool isBorder = neighbor < 0;
    const bool isBehind = place >= 0 && crossings[static_cast<std::size_t>(place)].visited;
    if (isBehind || (isBorder && at == start && isFirst)) {
      neighbor = across(crossing.entry);
      place = placeOf(neighbor);
    }
    if (place < 0) return;  // the border of the mesh, or a polygon that isn't crossed
    orvalix::LevelCrossing& found = crossings[static_cast<std::size_t>(place)];
    if (found.visited) return;
    found.visited = true;
    m_chain.push_back(found.polygon);
    at = static_cast<std::size_t>(place);
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
    if (!orvalix::LiesBetween(level, a.z, b.z) || std::abs(b.z - a.z) <= kFlat) continue;
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
