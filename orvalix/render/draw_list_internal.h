/// @file
/// Geometry in OpenGL's buffers, drawn in a few calls.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "orvalix/render/gathered_geometry_internal.h"
#include "orvalix/render/view_direction_internal.h"

namespace orvalix {

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
  /// A range of the vertices or, of indexed ones, of the index buffer. It can't be seen when what
  /// faces in either direction can't.
  struct Part {
    int facing;  ///< as in FillState
    int otherFacing;
    std::size_t first;
    int count;
  };
  /// Parts that differ in what they face only.
  struct FillCall {
    FillState state;  ///< of the first part
    bool isIndexed;
    std::vector<Part> parts;
  };
  /// Ranges of the index buffer, one behind the other.
  struct TextCall {
    TextState state;
    std::size_t first;
    int front;  ///< indices
    int walls;
    int back;
  };
  struct LineCall {
    LineState state;  ///< of the first part
    std::vector<Part> parts;
    std::vector<int> stripCounts;          ///< indices of each strip
    std::vector<std::size_t> stripFirsts;  ///< where they begin in the index buffer
  };
  struct Segment {
    std::vector<FillCall> fills;
    std::vector<LineCall> lines;
  };

  static void AddFills(const DrawSegment& from, Segment& to, std::size_t& indices);
  static void AddLines(const DrawSegment& from, Segment& to, std::size_t& indices);
  void AddTexts(const std::vector<TextGroup>& groups, std::size_t& indices);
  /// @throws std::bad_alloc; those that were made then are the caller's to delete
  void MakeBuffers(const GatheredGeometry& geometry, std::size_t indices, std::size_t textVertices);
  void FillBuffers(const GatheredGeometry& geometry);
  void CopyIndices(std::size_t count);
  class Frame;
  /// How the sides of closed solids that show that direction are drawn.
  SideView ViewOf(const FacingDirection& direction, Frame& frame) const;
  void DrawFill(const FillCall& call, Frame& frame) const;
  void DrawText(const TextCall& call, Frame& frame) const;
  void DrawLines(const LineCall& call, Frame& frame) const;
  static void DrawRanges(const FillCall& call, const Frame& frame);
  void DrawIndexed(unsigned mode, const std::vector<Part>& parts, const Frame& frame,
                   bool isPushedBack) const;

  std::weak_ptr<BufferPool> m_pool;
  std::vector<Segment> m_segments;
  std::vector<TextCall> m_texts;
  /// Of short lists a copy of the index buffer, and room for as many: what can be seen of their
  /// parts is put together, since calls cost more than indices.
  std::vector<std::uint32_t> m_indices;
  mutable std::vector<std::uint32_t> m_seenIndices;
  std::vector<FacingDirection> m_directions;
  std::vector<SolidExtent> m_extents;
  int m_isClippedAtFirst = 0;
  bool m_isFlat = false;  ///< as in GatheredGeometry
  GatheredColor m_fillColor{};
  bool m_hasFillColors = false;  ///< each fill vertex has its own
  /// Offsets in the vertex buffer, behind the fill vertices.
  std::size_t m_fillColorsAt = 0;
  std::size_t m_fillTexturesAt = 0;
  std::size_t m_lineVerticesAt = 0;
  std::size_t m_textVerticesAt = 0;
  unsigned m_vertexBuffer = 0;
  unsigned m_indexBuffer = 0;
};

}  // namespace orvalix
