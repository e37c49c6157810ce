/// @file
/// Characters as filled, extruded solids.
#pragma once

#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/render/glyph_internal.h"

namespace orvalix {

/// A character's area cut into triangles, and its edge.
struct GlyphSolid {
  /// Three points per triangle, counterclockwise.
  std::vector<GlyphPoint> triangles;
  /// Two points per piece of the edge; the area lies to the left.
  std::vector<GlyphPoint> edges;
};

/// Fills a character.
/// @throws std::bad_alloc
GlyphSolid FillGlyph(const Glyph& glyph);

/// How far the back of a character lies behind its front.
double GlyphDepth(double extrusion);

/// Sends a solid to OpenGL: its front face at z = 0, its back face at z = -extrusion and, where
/// there is an extrusion, the walls between them, with normals that point outwards.
void SendGlyphSolid(const GlyphSolid& solid, double extrusion);

}  // namespace orvalix
