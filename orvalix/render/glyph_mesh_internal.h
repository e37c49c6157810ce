/// @file
/// Characters as triangles that share their corners.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "orvalix/render/glyph_solid_internal.h"

namespace orvalix {

/// All sides of a character, without normals.
struct GlyphMesh {
  std::vector<std::array<double, 3>> corners;
  /// Three corners per triangle, counterclockwise from outside.
  std::vector<std::uint32_t> front;
  std::vector<std::uint32_t> walls;
  std::vector<std::uint32_t> back;
};

/// The solid that SendGlyphSolid() sends.
/// @throws std::bad_alloc
GlyphMesh MeshOfGlyph(const GlyphSolid& solid, double extrusion);

}  // namespace orvalix
