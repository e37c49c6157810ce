/// @file
/// Contour lines of a surface.
#pragma once

#include <array>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

class COpenGL;
class CPolysurface;
class CTransform3D;

namespace orvalix {
struct LevelCrossing;
}

/// Finds and draws the lines along which a surface has given heights, laid flat on a horizontal
/// plane. An object lives as long as that takes: its constructor does all the work.
///
/// A line is followed from polygon to polygon through the neighbours that the mesh knows
/// (CPolysurface::GetAdjacentPolyList()); each polygon that a height crosses belongs to one line.
/// Without neighbours every line is one polygon long, and the picture is the same.
///
/// A height that a vertex has is crossed by both edges that meet there. Where a polygon's first two
/// crossings coincide in such a vertex, its part of the line has no length.
class ORVALIX_API CContour3D {
 public:
  /// InitContour().
  CContour3D(COpenGL* context, CTransform3D* transform, const CPolysurface* surface,
             const double* values, const RGBDType* colors, int numContours, double plane,
             int labelFlag);
  CContour3D(const CContour3D&) = delete;
  CContour3D& operator=(const CContour3D&) = delete;

  /// Follows all lines, and draws them in the current matrix, which is that of
  /// CTransform3D::ChartTransform(). Everything handed over stays the caller's and must outlive the
  /// object.
  /// @param context null follows the lines without drawing any
  /// @param transform null draws in the coordinates of the mesh
  /// @param surface null has no lines
  /// @param values numContours heights, in any order; null: none
  /// @param colors a colour per height; null draws black lines
  /// @param plane z of all lines, world coordinates
  /// @param labelFlag only stored
  /// @throws CErr3D type 2, class 7, "InitContour"
  void InitContour(COpenGL* context, CTransform3D* transform, const CPolysurface* surface,
                   const double* values, const RGBDType* colors, int numContours, double plane,
                   int labelFlag);

  /// The band between heights in which a value lies.
  /// @param band 0 below the first height; the number of heights at or above the last; otherwise
  ///   i + 1 for the first i for which the value reaches height i and not height i + 1, 0 when
  ///   there is none
  void GetContourBounds(double value, int& band) const;
  /// Addition: heights that have been followed.
  int GetNumLevels() const;
  /// Addition: polygons in all lines, counted for each line anew.
  long long GetNumCrossings() const;

 private:
  /// The vertices of a polygon, and the first one again.
  using Vertices = std::array<point3Dtype, 256>;

  void FollowLevels();
  /// @return vertices, without the repeated one
  int ReadVertices(int polygon, Vertices& vertices) const;
  /// Makes m_chain the next line that begins at one of `crossings` from `next` on, and moves `next`
  /// behind it; empty when there is none.
  void GetContourPolyList(std::vector<orvalix::LevelCrossing>& crossings, std::size_t& next);
  /// Appends the polygons along a line to m_chain, from a crossing that is in it already.
  /// @param isFirst the line has not been followed in another direction before
  void WalkFrom(std::vector<orvalix::LevelCrossing>& crossings, std::size_t start, bool isFirst);
  void PlotContourSegment3D(double level, RGBDType const& color);
  static bool InterpolatePolyContour3D(const Vertices& vertices, int count, double level,
                                       point3Dtype& from, point3Dtype& to);

  COpenGL* m_context = nullptr;             ///< not owned
  CTransform3D* m_transform = nullptr;      ///< not owned
  const CPolysurface* m_surface = nullptr;  ///< not owned
  const double* m_values = nullptr;         ///< heights, not owned
  const RGBDType* m_colors = nullptr;       ///< one per height, not owned
  int m_numContours = 0;
  double m_plane = 0.0;       ///< z of all lines
  int m_labelFlag = 0;        ///< only stored
  int m_levelsDone = 0;       ///< heights that have been followed
  long long m_crossings = 0;  ///< polygons in lines
  std::vector<int> m_places;  ///< of polygons among the crossings of a height, or -1
  std::vector<int> m_chain;   ///< polygons along the line
};
