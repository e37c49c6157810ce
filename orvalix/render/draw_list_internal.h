/// @file
/// Geometry that is gathered, kept, and drawn in a few calls.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/render/chunked_array_internal.h"

namespace orvalix {

/// What the faces of one draw call have in common.
struct FillState {
  const double* matrix;  ///< model-view matrix, read when it is drawn; null: the identity
  int isLit;
  int isTextured;
  int isClipped;
  int isPushedBack;  ///< gives way to the lines on its edge
  int isOneSided;    ///< shown only where it goes round counterclockwise on the screen
  int facing;        ///< index of the direction that closed solids show it to, or -1: every one

  bool operator==(const FillState&) const = default;
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

using GatheredColor = std::array<float, 3>;

struct FillVertex {
  std::array<float, 3> position;
  std::array<float, 3> normal;
};

struct LineVertex {
  std::array<float, 3> position;
  GatheredColor color;
};

struct FillGroup {
  FillState state;
  ChunkedArray<std::uint32_t> indices;  ///< of fill vertices, three a triangle
};

struct LineGroup {
  LineState state;
  ChunkedArray<std::uint32_t> indices;  ///< two a line; of strips, one after another
  std::vector<std::uint32_t> strips;    ///< where each strip begins in `indices`
};

/// Faces, and the lines that are drawn over them.
struct DrawSegment {
  std::vector<FillGroup> fills;
  std::vector<LineGroup> lines;
};

/// Directions of closed solids that are told apart; any further one counts as always seen.
inline constexpr std::size_t kMostDirections = 32;

/// The outward normal of faces, in the coordinates in front of a matrix.
struct FacingDirection {
  const double* matrix;
  std::array<double, 3> normal;
};

/// The extent of closed solids, in the coordinates in front of a matrix.
struct SolidExtent {
  const double* matrix;
  std::array<double, 3> low;
  std::array<double, 3> high;
};

/// What was gathered, in memory.
struct GatheredGeometry {
  int isClippedAtFirst = 0;  ///< 1 when clip planes were on where gathering began
  std::vector<DrawSegment> segments;
  ChunkedArray<FillVertex> fillVertices;
  GatheredColor fillColor{};               ///< of all fill vertices, while `fillColors` is empty
  ChunkedArray<GatheredColor> fillColors;  ///< of each, once there are several
  ChunkedArray<float> fillTextures;        ///< texture coordinate of each, once there are some
  ChunkedArray<LineVertex> lineVertices;
  std::vector<FacingDirection> directions;  ///< at most kMostDirections
  std::vector<SolidExtent> extents;         ///< one for each matrix of directions
};

/// OpenGL's buffers. They are deleted with their context, or given back to it when a drawing that
/// owns some goes: OpenGL deletes them when the context is current the next time.
class BufferPool {
 public:
  BufferPool() = default;
  BufferPool(const BufferPool&) = delete;
  BufferPool& operator=(const BufferPool&) = delete;

  /// The context is current: deletes what was given back.
  void DeleteReturned();
  /// Makes room for so many buffers to be given back.
  /// @throws std::bad_alloc
  void Lend(std::size_t count);
  /// One of those that were lent.
  void GiveBack(unsigned buffer) noexcept;
  /// So many were lent in vain.
  void Forgo(std::size_t count) noexcept { m_lent -= count; }

 private:
  std::vector<unsigned> m_returned;
  std::size_t m_lent = 0;
};

/// Geometry in OpenGL's buffers.
class DrawList {
 public:
  /// Moves the geometry into buffers of the current context.
  /// @throws std::bad_alloc
  DrawList(std::shared_ptr<BufferPool> pool, const GatheredGeometry& geometry);
  ~DrawList();
  DrawList(const DrawList&) = delete;
  DrawList& operator=(const DrawList&) = delete;

  /// Draws everything. The matrices that were current while it was gathered must hold those of
  /// today. Changes OpenGL's matrix, colour, light, texture, clipping and line state.
  void Draw() const noexcept;
  /// The buffers are those of that pool's context.
  bool IsOf(const std::shared_ptr<BufferPool>& pool) const { return m_pool.lock() == pool; }

 private:
  /// A range of the index buffer.
  struct FillCall {
    FillState state;
    std::size_t first;
    int count;
  };
  struct LineCall {
    LineState state;
    std::size_t first;
    int count;
    std::vector<int> stripCounts;           ///< indices of each strip
    std::vector<const void*> stripOffsets;  ///< where they begin in the index buffer
  };
  struct Segment {
    std::vector<FillCall> fills;
    std::vector<LineCall> lines;
  };

  /// @throws std::bad_alloc, and none is made
  void MakeBuffers(const GatheredGeometry& geometry, std::size_t indices);
  void FillBuffers(const GatheredGeometry& geometry);
  /// True for a direction whose faces can't be seen: they look away, and nothing that would hide
  /// them is cut off in front of the viewer.
  bool IsHidden(const FacingDirection& direction) const;
  void DrawFill(const FillCall& call) const;
  void DrawLines(const LineCall& call) const;

  std::weak_ptr<BufferPool> m_pool;
  std::vector<Segment> m_segments;
  std::vector<FacingDirection> m_directions;
  std::vector<SolidExtent> m_extents;
  int m_isClippedAtFirst = 0;
  GatheredColor m_fillColor{};
  bool m_hasFillColors = false;  ///< each fill vertex has its own
  /// Offsets in the vertex buffer, behind the fill vertices.
  std::size_t m_fillColorsAt = 0;
  std::size_t m_fillTexturesAt = 0;
  std::size_t m_lineVerticesAt = 0;
  unsigned m_vertexBuffer = 0;
  unsigned m_indexBuffer = 0;
};

}  // namespace orvalix
