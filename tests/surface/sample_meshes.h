/// @file
/// Meshes that several tests save and load, and where the fields of their records stand.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstring>

#include "orvalix/surface/polysurface.h"
#include "support/temporary_file.h"

namespace orvalix::test {

/// Four points in two rows, two triangles that are neighbours, an even grid. No two coordinates of
/// a spare point, no two colours and no two extents along an axis are the same.
inline CPolysurface SmallGrid() {
  // Every second row and column of a finer grid, which has room for no more than it needs.
  constexpr std::array<double, 9> kHeights{0.5, 9, -2, 9, 9, 9, 8, 9, 2.25};
  const CPolysurface fine(3, 3, 1, 10, 4, 16, kHeights.data(), 1);
  CPolysurface mesh;
  mesh.ReducePolysurface(&fine, 3);
  for (int i = 0; i < 4; ++i) mesh.SetOnePolysurfacePoint(4 + i, {-1.0, -2.0, -3.0, -4.0 - i});
  mesh.SetPolysurfaceColors(1, {0.25, 0.5, 0.75, 1}, {1, 0, 0, 0.5});
  return mesh;
}

/// Five scattered points, three triangles; there is room for 12 and no grid.
inline CPolysurface ScatteredTriangles() {
  constexpr std::array<point3Dtype, 5> kPoints{
      {{0, 0, 1, 1}, {4, 0, 2, 2}, {4, 4, 3, 3}, {0, 4, 4, 4}, {1, 2, 5, 5}}};
  constexpr std::array<std::array<int, 3>, 3> kCorners{{{0, 1, 4}, {1, 2, 4}, {2, 3, 4}}};
  CPolysurface mesh(kPoints.data(), 0, 5);
  int polygon = 0;
  for (const auto& corners : kCorners) {
    mesh.AddPolysurfacePolygon(polygon, corners.data(), 3, {0.5, 0, 0, 1}, {0, 0.5, 0, 1});
    ++polygon;
  }
  return mesh;
}

/// Six points in two rows, two quadrilaterals.
inline CPolysurface Quadrilaterals() {
  constexpr std::array<point3Dtype, 6> kPoints{
      {{0, 0, 1, 1}, {1, 0, 2, 2}, {2, 0, 3, 3}, {0, 5, 4, 4}, {1, 5, 5, 5}, {2, 5, 6, 6}}};
  return {kPoints.data(), 2, 3, 0};
}

/// Where every record has its flags: behind two integers and eleven reals.
inline constexpr std::size_t kAdjacencyFlag = 2 * 4 + 11 * 8;
inline constexpr std::size_t kEvenFlag = kAdjacencyFlag + 4;
inline constexpr std::size_t kGridType = kEvenFlag + 4;

/// Changes an integer of a record.
inline void PutInt(Bytes& record, std::size_t offset, int value) {
  ASSERT_LE(offset + sizeof(value), record.size());
  std::memcpy(record.data() + offset, &value, sizeof(value));
}

/// What a mesh that was loaded from this record saves.
inline Bytes StoredAgain(Bytes record) {
  PutInt(record, kEvenFlag, 0);
  PutInt(record, kGridType, 1);
  return record;
}

}  // namespace orvalix::test
