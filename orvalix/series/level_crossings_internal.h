/// @file
/// Which polygons of a mesh which heights cross, found in one pass over the mesh.
#pragma once

#include <span>
#include <vector>

class CPolysurface;

namespace orvalix {

/// A polygon that a height crosses.
struct LevelCrossing {
  int polygon;
  unsigned char entry;  ///< number of the first edge that is crossed: from vertex k to k + 1
  unsigned char exit;   ///< number of the second one
  bool visited;         ///< for whoever follows the line
};

/// For each of several heights the polygons that it crosses, in ascending order.
///
/// Looking through the mesh once for each height costs more than following the lines. What one pass
/// finds takes memory, though; where there are so many heights or crossings that they need much
/// more than the mesh itself, there are lists for the first heights only, and the rest need another
/// pass.
class LevelCrossings {
 public:
  /// @param levels heights in any order; undefined ones cross nothing
  LevelCrossings(const CPolysurface& surface, std::span<const double> levels);

  /// Polygons crossed by each height, for as many of the first heights as there are lists.
  std::vector<std::vector<LevelCrossing>>& Lists() { return m_lists; }

 private:
  void SortLevels(std::span<const double> levels);
  void AddPolygon(const CPolysurface& surface, int polygon, double lowest, double highest);
  void DropLaterHalf(std::span<const double> levels);

  std::vector<double> m_sorted;                     ///< heights, ascending
  std::vector<std::size_t> m_order;                 ///< index in m_lists of each of m_sorted
  std::vector<std::vector<LevelCrossing>> m_lists;  ///< by height
  std::size_t m_hint = 0;                           ///< where the last polygon was found
  std::size_t m_total = 0;                          ///< elements of all lists
};

/// True when the level lies between the two heights, or is one of them.
inline bool LiesBetween(double level, double a, double b) {
  return (a <= level && level <= b) || (b <= level && level <= a);
}

}  // namespace orvalix
