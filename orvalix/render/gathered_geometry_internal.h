/// @file
/// Geometry that was gathered, in memory.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/render/chunked_array_internal.h"
#include "orvalix/render/extent_internal.h"
#include "orvalix/render/glyph_mesh_internal.h"
#include "orvalix/render/index_list_internal.h"

namespace orvalix {

/// What the faces of one draw call have in common.
struct FillState {
  const double* matrix;  ///< model-view matrix, read when it is drawn; null: the identity
  int isLit;
  int isTextured;
  int isClipped;
  int isPushedBack;  ///< gives way to the lines on its edge
  int facing;        ///< index of the direction that closed solids show it to, or -1: every one

  bool operator==(const FillState&) const = default;
};

/// What the texts of one draw call have in common.
struct TextState {
  const double* matrix;  ///< as in FillState
  int isTextured;
  int isClipped;
  /// Perpendicular to the texts' front, which goes round it counterclockwise, in front of the
  /// matrix.
  std::array<double, 3> axis;

  bool operator==(const TextState&) const = default;
};

/// What the lines of one draw call have in common.
struct LineState {
  const double* matrix;  ///< as in FillState
  float width;           ///< pixels
  unsigned short stipple;
  int stippleFactor;
  int isClipped;
  int isStrip;      ///< 1: each line ends where the next one begins, and the stipple goes on
  int isStroke;     ///< 1: a line of its own, which keeps its place among others; 0: of a face
  int isEdge;       ///< 1: between vertices of faces, in `color`; 0: between vertices of their own
  RGBDType color;   ///< of edges
  int facing;       ///< of the faces on both sides of an edge, as in FillState
  int otherFacing;  ///< an edge between two faces that can't be seen can't be seen either

  bool operator==(const LineState& other) const;
};

inline constexpr unsigned short kSolidLine = 0xFFFF;  ///< its stipple

using GatheredColor = std::array<float, 3>;

inline GatheredColor ToGathered(const RGBDType& color) {
  return {static_cast<float>(color.red), static_cast<float>(color.green),
          static_cast<float>(color.blue)};
}

struct FillVertex {
  std::array<float, 3> position;
  std::array<float, 3> normal;

  bool operator==(const FillVertex&) const = default;
};

/// A vertex of a line or of a text.
struct LineVertex {
  std::array<float, 3> position;
  GatheredColor color;

  bool operator==(const LineVertex&) const = default;
};

struct FillGroup {
  FillState state;
  IndexList indices;  ///< of fill vertices, three a triangle

  bool operator==(const FillGroup&) const = default;
};

/// A character of a text.
struct GatheredGlyph {
  /// Shown only where its triangles go round counterclockwise. It lives as long as its font keeps
  /// the characters that it has registered.
  const GlyphMesh* mesh;
  std::uint64_t font;                ///< FontGlyphs::Number()
  std::array<double, 16> placement;  ///< in front of the group's matrix, column by column
  GatheredColor color;

  bool operator==(const GatheredGlyph&) const = default;
};

struct TextGroup {
  TextState state;
  std::vector<GatheredGlyph> glyphs;

  bool operator==(const TextGroup&) const = default;
};

struct LineGroup {
  LineState state;
  ChunkedArray<std::uint32_t> indices;  ///< two a line; of strips, one after another
  std::vector<std::uint32_t> strips;    ///< where each strip begins in `indices`

  bool operator==(const LineGroup&) const = default;
};

/// Faces, and the lines that are drawn over them.
struct DrawSegment {
  std::vector<FillGroup> fills;
  std::vector<LineGroup> lines;

  bool operator==(const DrawSegment&) const = default;
};

/// Directions of closed solids that are told apart; any further one counts as always seen.
inline constexpr std::size_t kMostDirections = 32;

/// The outward normal of faces, in the coordinates in front of a matrix.
struct FacingDirection {
  const double* matrix;
  std::array<double, 3> normal;

  bool operator==(const FacingDirection&) const = default;
};

/// The extent of closed solids, in the coordinates in front of a matrix.
struct SolidExtent {
  const double* matrix;
  Extent extent;

  bool operator==(const SolidExtent&) const = default;
};

/// What was gathered, in memory.
struct GatheredGeometry {
  int isClippedAtFirst = 0;  ///< 1 when clip planes were on where gathering began
  /// A face has one colour, that of the last vertex of each of its triangles; the other two may be
  /// those of neighbours. False: each vertex of a face takes light by itself.
  bool isFlat = false;
  std::vector<DrawSegment> segments;
  std::vector<TextGroup> texts;  ///< drawn after all segments
  ChunkedArray<FillVertex> fillVertices;
  GatheredColor fillColor{};               ///< of all fill vertices, while `fillColors` is empty
  ChunkedArray<GatheredColor> fillColors;  ///< of each, once there are several
  ChunkedArray<float> fillTextures;        ///< texture coordinate of each, once there are some
  ChunkedArray<LineVertex> lineVertices;
  std::vector<FacingDirection> directions;  ///< at most kMostDirections
  std::vector<SolidExtent> extents;         ///< one for each matrix of directions

  bool operator==(const GatheredGeometry&) const = default;
};

}  // namespace orvalix
