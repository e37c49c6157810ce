/// @file
/// Which polygons of a mesh which heights cross, found in one pass over the mesh.
#pragma once

#include <span>
#include <vector>

class CPolysurface;

namespace orvalix {

/// For each of several heights the polygons that it may cross, in ascending order: those whose
/// vertices lie on both sides of it, or on it.
///
/// Looking through the mesh once for each height costs more than following the lines. What one pass
/// finds takes memory, though; where there are so many crossings that they need much more than the
/// mesh itself, there are lists for the first few heights only, and the rest need another pass.
class LevelCrossings {
 public:
  /// @param levels heights in any order; undefined ones cross nothing
  LevelCrossings(const CPolysurface& surface, std::span<const double> levels);

  /// Polygons crossed by each height, for as many of the first heights as there are lists.
  const std::vector<std::vector<int>>& Lists() const { return m_lists; }

 private:
  void SortLevels(std::span<const double> levels);
  void AddPolygon(int polygon, double lowest, double highest);
  void DropLaterHalf(std::span<const double> levels);

  std::vector<double> m_sorted;           ///< heights, ascending
  std::vector<std::size_t> m_order;       ///< index in m_lists of each of m_sorted
  std::vector<std::vector<int>> m_lists;  ///< polygons by height
  std::size_t m_hint = 0;                 ///< where the last polygon was found in m_sorted
  std::size_t m_total = 0;                ///< elements of all lists
};

}  // namespace orvalix
