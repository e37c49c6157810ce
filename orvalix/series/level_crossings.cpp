#include <algorithm>
#include <cmath>
#include <cstddef>

#include "orvalix/series/level_crossings_internal.h"
#include "orvalix/surface/polysurface.h"

namespace orvalix {
namespace {

/// Crossings per polygon for which there is memory in any case.
constexpr std::size_t kCrossingsPerPolygon = 4;

}  // namespace

LevelCrossings::LevelCrossings(const CPolysurface& surface, std::span<const double> levels)
    : m_lists(levels.size()) {
  const int polygons = surface.GetPSNumPolygons();
  const std::size_t most = kCrossingsPerPolygon * static_cast<std::size_t>(polygons);
  SortLevels(levels);
  for (int polygon = 0; polygon < polygons; ++polygon) {
    double lowest = 0.0;
    double highest = 0.0;
    if (!surface.GetPSPHeights(polygon, lowest, highest)) continue;
    AddPolygon(polygon, lowest, highest);
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

void LevelCrossings::AddPolygon(int polygon, double lowest, double highest) {
  // Neighbouring polygons lie at about the same height.
  while (m_hint > 0 && m_sorted[m_hint - 1] >= lowest) --m_hint;
  while (m_hint < m_sorted.size() && m_sorted[m_hint] < lowest) ++m_hint;
  for (std::size_t i = m_hint; i < m_sorted.size() && m_sorted[i] <= highest; ++i) {
    m_lists[m_order[i]].push_back(polygon);
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
