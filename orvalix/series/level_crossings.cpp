#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "orvalix/foundation/value_types.h"
#include "orvalix/series/level_crossings_internal.h"
#include "orvalix/surface/polysurface.h"

namespace orvalix {
namespace {

/// Crossings for which there is memory in any case: per polygon, and of small meshes.
constexpr std::size_t kCrossingsPerPolygon = 4;
constexpr std::size_t kLeastCrossings = std::size_t{1} << 14;

/// Heights of one pass over a small mesh at most. Over a larger one there are at most as many as
/// polygons, so that sorting them takes no longer than the pass.
constexpr std::size_t kLeastLevels = std::size_t{1} << 10;

/// The vertices of a polygon, and the first one again.
using Vertices = std::array<point3Dtype, 256>;

/// Finds the first two edges that the level crosses, ends included.
/// @return false when it crosses none
bool CheckForPolyContour3D(const Vertices& vertices, int count, double level,
                           LevelCrossing& crossing) {
  bool crossed = false;
  for (int edge = 0; edge < count; ++edge) {
    const auto i = static_cast<std::size_t>(edge);
    if (!LiesBetween(level, vertices[i].z, vertices[i + 1].z)) continue;
    crossing.exit = static_cast<unsigned char>(edge);
    if (crossed) return true;
    crossing.entry = crossing.exit;
    crossed = true;
  }
  return crossed;
}

}  // namespace

LevelCrossings::LevelCrossings(const CPolysurface& surface, std::span<const double> levels) {
  const int polygons = surface.GetPSNumPolygons();
  const auto size = static_cast<std::size_t>(polygons);
  const std::size_t most = std::max(kCrossingsPerPolygon * size, kLeastCrossings);
  m_lists.resize(std::min(levels.size(), std::max(size, kLeastLevels)));
  SortLevels(levels);
  for (int polygon = 0; polygon < polygons; ++polygon) {
    double lowest = 0.0;
    double highest = 0.0;
    if (!surface.GetPSPHeights(polygon, lowest, highest)) continue;
    AddPolygon(surface, polygon, lowest, highest);
    while (m_total > most && m_lists.size() > 1) DropLaterHalf(levels);
  }
}

void LevelCrossings::SortLevels(std::span<const double> levels) {
  m_order.clear();
  for (std::size_t i = 0; i < m_lists.size(); ++i) {
    if (!std::isnan(levels[i])) m_order.push_back(i);
  }
  std::sort(m_order.begin(), m_order.end(),
            [&](std::size_t a, std::size_t b) { return levels[a] < levels[b]; });
  m_sorted.clear();
  for (const std::size_t i : m_order) m_sorted.push_back(levels[i]);
  m_hint = 0;
}

void LevelCrossings::AddPolygon(const CPolysurface& surface, int polygon, double lowest,
                                double highest) {
  // Neighbouring polygons lie at about the same height.
  while (m_hint > 0 && m_sorted[m_hint - 1] >= lowest) --m_hint;
  while (m_hint < m_sorted.size() && m_sorted[m_hint] < lowest) ++m_hint;
  if (m_hint == m_sorted.size() || m_sorted[m_hint] > highest) return;
  Vertices vertices;
  int count = 0;
  surface.GPSPolygon(polygon, vertices.data(), count);
  vertices[static_cast<std::size_t>(count)] = vertices[0];
  for (std::size_t i = m_hint; i < m_sorted.size() && m_sorted[i] <= highest; ++i) {
    LevelCrossing crossing{.polygon = polygon, .entry = 0, .exit = 0, .visited = false};
    if (!CheckForPolyContour3D(vertices, count, m_sorted[i], crossing)) continue;
    m_lists[m_order[i]].push_back(crossing);
    ++m_total;
  }
}

void LevelCrossings::DropLaterHalf(std::span<const double> levels) {
  const std::size_t kept = m_lists.size() / 2;
  for (std::size_t i = kept; i < m_lists.size(); ++i) m_total -= m_lists[i].size();
  m_lists.resize(kept);
  SortLevels(levels);
}

}  // namespace orvalix
