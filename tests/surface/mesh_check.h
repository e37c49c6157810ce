/// @file
/// Whether a mesh is the Delaunay triangulation of its points, found out in another way than by
/// triangulating: with the determinant of the circle test, in whole numbers.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "orvalix/surface/polysurface.h"

namespace orvalix::test {

__extension__ using Whole = __int128;

using Corners = std::array<int, 3>;

/// A mesh of scattered points, with triangles and neighbours.
inline CPolysurface Triangulated(const std::vector<point3Dtype>& points) {
  CPolysurface mesh(points.data(), 0, static_cast<int>(points.size()));
  mesh.DelaunaySurface(1);
  return mesh;
}

inline Corners CornersOf(const CPolysurface& mesh, int polygon) {
  std::array<int, 255> indices{};
  int count = 0;
  RGBDType first{};
  RGBDType second{};
  mesh.GetPSPolygonIndices(polygon, indices.data(), count, first, second);
  EXPECT_EQ(count, 3);
  return {indices[0], indices[1], indices[2]};
}

inline Corners NeighborsOf(const CPolysurface& mesh, int polygon) {
  Corners neighbors{-7, -7, -7};
  mesh.GetAdjacentPolyList(polygon, neighbors.data());
  return neighbors;
}

/// All triangles, each beginning with its smallest vertex, in ascending order.
inline std::vector<Corners> SortedTriangles(const CPolysurface& mesh) {
  std::vector<Corners> triangles;
  for (int t = 0; t < mesh.GetPSNumPolygons(); ++t) {
    Corners corners = CornersOf(mesh, t);
    std::rotate(corners.begin(), std::min_element(corners.begin(), corners.end()), corners.end());
    triangles.push_back(corners);
  }
  std::sort(triangles.begin(), triangles.end());
  return triangles;
}

/// A point whose coordinates are whole numbers below 2^28.
struct WholePoint {
  std::int64_t x;
  std::int64_t y;
  auto operator<=>(const WholePoint&) const = default;
};

inline WholePoint WholeOf(const CPolysurface& mesh, int index) {
  const point3Dtype& point = mesh.GetPSPoints()[index];
  return {static_cast<std::int64_t>(point.x), static_cast<std::int64_t>(point.y)};
}

/// Twice the area of a triangle, positive when it goes anticlockwise.
inline std::int64_t DoubleArea(WholePoint a, WholePoint b, WholePoint c) {
  return (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
}

/// Positive when d lies inside the circle through a, b and c, which go anticlockwise.
inline Whole InCircle(WholePoint a, WholePoint b, WholePoint c, WholePoint d) {
  const auto lifted = [d](WholePoint p) -> std::array<Whole, 3> {
    const Whole x = p.x - d.x;
    const Whole y = p.y - d.y;
    return {x, y, x * x + y * y};
  };
  const auto [ax, ay, a2] = lifted(a);
  const auto [bx, by, b2] = lifted(b);
  const auto [cx, cy, c2] = lifted(c);
  return ax * (by * c2 - cy * b2) - ay * (bx * c2 - cx * b2) + a2 * (bx * cy - cx * by);
}

/// The border of the smallest convex shape around different points.
struct Hull {
  std::int64_t doubleArea;
  int points;  ///< on the border, those on its straight sides included; all points of a line
};

inline Hull HullOf(std::vector<WholePoint> points) {
  std::sort(points.begin(), points.end());
  points.erase(std::unique(points.begin(), points.end()), points.end());
  std::vector<WholePoint> border;
  const auto goAlong = [&border](auto first, auto last) {
    const std::size_t start = border.size();
    for (; first != last; ++first) {
      while (border.size() >= start + 2 &&
             DoubleArea(border[border.size() - 2], border.back(), *first) < 0) {
        border.pop_back();
      }
      border.push_back(*first);
    }
    border.pop_back();
  };
  goAlong(points.begin(), points.end());
  goAlong(points.rbegin(), points.rend());
  std::int64_t area = 0;
  for (std::size_t i = 1; i + 1 < border.size(); ++i) {
    area += DoubleArea(border[0], border[i], border[i + 1]);
  }
  return {area, area != 0 ? static_cast<int>(border.size()) : static_cast<int>(points.size())};
}

/// Expects that triangles go anticlockwise, that neighbours know each other across the edges that
/// they share, and that no triangle's circle holds the vertex opposite one of its edges, which
/// means that it holds no vertex of any triangle at all. The mesh has whole coordinates.
/// @return twice the area of all triangles
inline std::int64_t ExpectDelaunayTriangles(const CPolysurface& mesh) {
  std::int64_t area = 0;
  int wrong = 0;  // counted: a million failures aren't worth reading
  for (int t = 0; t < mesh.GetPSNumPolygons(); ++t) {
    const Corners corners = CornersOf(mesh, t);
    const Corners neighbors = NeighborsOf(mesh, t);
    const WholePoint a = WholeOf(mesh, corners[0]);
    const WholePoint b = WholeOf(mesh, corners[1]);
    const WholePoint c = WholeOf(mesh, corners[2]);
    const std::int64_t doubleArea = DoubleArea(a, b, c);
    if (doubleArea <= 0) ++wrong;
    area += doubleArea;
    for (std::size_t k = 0; k < 3; ++k) {
      if (neighbors[k] < 0) continue;
      if (neighbors[k] >= mesh.GetPSNumPolygons()) return ++wrong, -1;
      const Corners other = CornersOf(mesh, neighbors[k]);
      const Corners back = NeighborsOf(mesh, neighbors[k]);
      const auto facing =
          static_cast<std::size_t>(std::find(back.begin(), back.end(), t) - back.begin());
      if (facing == 3 || other[facing] != corners[(k + 1) % 3] ||
          other[(facing + 1) % 3] != corners[k]) {
        ++wrong;
      } else if (InCircle(a, b, c, WholeOf(mesh, other[(facing + 2) % 3])) > 0) {
        ++wrong;
      }
    }
  }
  EXPECT_EQ(wrong, 0);
  return area;
}

/// The edges of all triangles that have no neighbour.
inline int BorderEdges(const CPolysurface& mesh) {
  int edges = 0;
  for (int t = 0; t < mesh.GetPSNumPolygons(); ++t) {
    const Corners neighbors = NeighborsOf(mesh, t);
    edges += static_cast<int>(std::count(neighbors.begin(), neighbors.end(), -1));
  }
  return edges;
}

/// ExpectDelaunayTriangles() and that the triangles cover the whole hull of the points.
inline void ExpectWholeDelaunay(const CPolysurface& mesh) {
  std::vector<WholePoint> points;
  for (int i = 0; i < mesh.GetPSNumPoints(); ++i) points.push_back(WholeOf(mesh, i));
  const Hull hull = HullOf(points);
  std::sort(points.begin(), points.end());
  const auto different =
      static_cast<int>(std::unique(points.begin(), points.end()) - points.begin());
  EXPECT_EQ(ExpectDelaunayTriangles(mesh), hull.doubleArea);
  // n points of which h lie on the border make 2n - 2 - h triangles.
  const bool flat = hull.doubleArea == 0;
  EXPECT_EQ(mesh.GetPSNumPolygons(), flat ? 0 : 2 * different - 2 - hull.points);
  EXPECT_EQ(BorderEdges(mesh), flat ? 0 : hull.points);
}

}  // namespace orvalix::test
