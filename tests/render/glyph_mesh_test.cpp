#include "orvalix/render/glyph_mesh_internal.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using orvalix::FillGlyph;
using orvalix::Glyph;
using orvalix::GlyphMesh;
using orvalix::MeshOfGlyph;

/// A square of 4 by 4 with a hole of 2 by 2.
GlyphMesh Ring(double extrusion) {
  const Glyph glyph{
      .contours = {{{0, 0}, {4, 0}, {4, 4}, {0, 4}}, {{1, 1}, {1, 3}, {3, 3}, {3, 1}}},
      .metrics = {}};
  return MeshOfGlyph(FillGlyph(glyph), extrusion);
}

/// Six times the volume that triangles enclose whose outside they show.
double SixVolumes(const GlyphMesh& mesh) {
  double volume = 0.0;
  for (const auto* side : {&mesh.front, &mesh.walls, &mesh.back}) {
    for (std::size_t i = 0; i + 2 < side->size(); i += 3) {
      const auto& a = mesh.corners[(*side)[i]];
      const auto& b = mesh.corners[(*side)[i + 1]];
      const auto& c = mesh.corners[(*side)[i + 2]];
      volume += a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
                a[2] * (b[0] * c[1] - b[1] * c[0]);
    }
  }
  return volume;
}

TEST(GlyphMesh, EnclosesTheCharacterAndShowsItsOutside) {
  EXPECT_NEAR(SixVolumes(Ring(0.5)) / 6.0, 12.0 * 0.5, 1e-9);
}

TEST(GlyphMesh, SharesCorners) {
  const GlyphMesh mesh = Ring(0.5);
  EXPECT_EQ(mesh.corners.size(), 16U);    // eight of the outlines, in front and behind
  EXPECT_EQ(mesh.front.size(), 8U * 3U);  // triangles between eight corners and a hole
  EXPECT_EQ(mesh.back.size(), 8U * 3U);
  EXPECT_EQ(mesh.walls.size(), 8U * 6U);  // two triangles an edge
  for (const std::uint32_t corner : mesh.front) EXPECT_EQ(mesh.corners[corner][2], 0.0);
  for (const std::uint32_t corner : mesh.back) EXPECT_EQ(mesh.corners[corner][2], -0.5);
}

TEST(GlyphMesh, HasNoWallsWithoutDepth) {
  for (const double extrusion : {0.0, -1.0, std::nan(""), HUGE_VAL}) {
    const GlyphMesh mesh = Ring(extrusion);
    EXPECT_EQ(mesh.corners.size(), 8U);
    EXPECT_TRUE(mesh.walls.empty());
    EXPECT_EQ(mesh.front.size(), mesh.back.size());
  }
}

TEST(GlyphMesh, IsEmptyForASpace) {
  const GlyphMesh mesh = MeshOfGlyph(FillGlyph({}), 0.5);
  EXPECT_TRUE(mesh.corners.empty());
  EXPECT_TRUE(mesh.front.empty());
}

}  // namespace
