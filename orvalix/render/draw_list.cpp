#include <algorithm>
#include <new>

#include "orvalix/render/draw_list_internal.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/own_arrays_internal.h"

namespace orvalix {
namespace {

unsigned MakeBuffer(GLenum target, std::size_t bytes) {
  unsigned buffer = 0;
  glGenBuffers(1, &buffer);
  glBindBuffer(target, buffer);
  glBufferData(target, static_cast<GLsizeiptr>(bytes), nullptr, GL_STATIC_DRAW);
  // OpenGL has as many bytes or none.
  GLint64 made = 0;
  glGetBufferParameteri64v(target, GL_BUFFER_SIZE, &made);
  if (static_cast<std::size_t>(made) == bytes) return buffer;
  glDeleteBuffers(1, &buffer);
  throw std::bad_alloc();
}

/// Copies elements into the bound buffer, from `at` on. @return the offset behind them
template <class T>
std::size_t Fill(GLenum target, std::size_t at, const ChunkedArray<T>& from) {
  from.ForEachChunk([&](const T* elements, std::size_t count) {
    const std::size_t bytes = count * sizeof(T);
    glBufferSubData(target, static_cast<GLintptr>(at), static_cast<GLsizeiptr>(bytes), elements);
    at += bytes;
  });
  return at;
}

template <class T>
std::size_t BytesOf(const ChunkedArray<T>& elements) {
  return elements.size() * sizeof(T);
}

void Place(const GatheredGlyph& glyph, ChunkedArray<LineVertex>& corners) {
  const std::array<double, 16>& m = glyph.placement;
  for (const auto& [x, y, z] : glyph.mesh->corners) {
    corners.push_back({{static_cast<float>(m[0] * x + m[4] * y + m[8] * z + m[12]),
                        static_cast<float>(m[1] * x + m[5] * y + m[9] * z + m[13]),
                        static_cast<float>(m[2] * x + m[6] * y + m[10] * z + m[14])},
                       glyph.color});
  }
}

ChunkedArray<LineVertex> VerticesOf(const std::vector<TextGroup>& groups) {
  ChunkedArray<LineVertex> corners;
  for (const TextGroup& group : groups) {
    for (const GatheredGlyph& glyph : group.glyphs) Place(glyph, corners);
  }
  return corners;
}

using GlyphSide = std::vector<std::uint32_t> GlyphMesh::*;

/// In this order the front or the back can be left out without a gap.
constexpr std::array<GlyphSide, 3> kGlyphSides{&GlyphMesh::front, &GlyphMesh::walls,
                                               &GlyphMesh::back};

int IndicesOf(const TextGroup& group, GlyphSide side) {
  std::size_t count = 0;
  for (const GatheredGlyph& glyph : group.glyphs) count += (glyph.mesh->*side).size();
  return static_cast<int>(count);
}

std::uint32_t CornersOf(const TextGroup& group) {
  std::size_t count = 0;
  for (const GatheredGlyph& glyph : group.glyphs) count += glyph.mesh->corners.size();
  return static_cast<std::uint32_t>(count);
}

/// The triangles of texts.
ChunkedArray<std::uint32_t> IndicesOf(const std::vector<TextGroup>& groups) {
  ChunkedArray<std::uint32_t> indices;
  std::uint32_t firstOfGroup = 0;
  for (const TextGroup& group : groups) {
    for (const GlyphSide side : kGlyphSides) {
      std::uint32_t first = firstOfGroup;
      for (const GatheredGlyph& glyph : group.glyphs) {
        for (const std::uint32_t corner : glyph.mesh->*side) indices.push_back(first + corner);
        first += static_cast<std::uint32_t>(glyph.mesh->corners.size());
      }
    }
    firstOfGroup += CornersOf(group);
  }
  return indices;
}

}  // namespace

void BufferPool::DeleteReturned() {
  if (m_returned.empty()) return;
  glDeleteBuffers(static_cast<GLsizei>(m_returned.size()), m_returned.data());
  m_returned.clear();
}

void BufferPool::Lend(std::size_t count) {
  const std::size_t needed = m_returned.size() + m_lent + count;
  if (needed > m_returned.capacity()) m_returned.reserve(std::max(needed, 2 * m_returned.size()));
  m_lent += count;
}

void BufferPool::GiveBack(unsigned buffer) noexcept {
  m_returned.push_back(buffer);  // into the room that was made for it
  --m_lent;
}

void DrawList::AddFills(const DrawSegment& from, Segment& to, std::size_t& indices) {
  for (const FillGroup& group : from.fills) {
    const bool isIndexed = !group.indices.IsRange();
    FillState state = group.state;
    if (!to.fills.empty()) state.facing = to.fills.back().state.facing;
    const bool goesOn = !to.fills.empty() && to.fills.back().state == state &&
                        to.fills.back().isIndexed == isIndexed;
    if (!goesOn) to.fills.push_back({group.state, isIndexed, {}});
    to.fills.back().parts.push_back({.facing = group.state.facing,
                                     .otherFacing = group.state.facing,
                                     .first = isIndexed ? indices : group.indices.First(),
                                     .count = static_cast<int>(group.indices.size())});
    indices += group.indices.Stored().size();
  }
}

void DrawList::AddTexts(const std::vector<TextGroup>& groups, std::size_t& indices) {
  for (const TextGroup& group : groups) {
    const TextCall& call =
        m_texts.emplace_back(TextCall{.state = group.state,
                                      .first = indices,
                                      .front = IndicesOf(group, &GlyphMesh::front),
                                      .walls = IndicesOf(group, &GlyphMesh::walls),
                                      .back = IndicesOf(group, &GlyphMesh::back)});
    indices += static_cast<std::size_t>(call.front + call.walls + call.back);
  }
}

void DrawList::AddLines(const DrawSegment& from, Segment& to, std::size_t& indices) {
  for (const LineGroup& group : from.lines) {
    LineState state = group.state;
    if (!to.lines.empty()) {
      state.facing = to.lines.back().state.facing;
      state.otherFacing = to.lines.back().state.otherFacing;
    }
    const bool goesOn = !to.lines.empty() && to.lines.back().state == state && state.isStrip == 0;
    if (!goesOn) to.lines.push_back({group.state, {}, {}, {}});
    LineCall& call = to.lines.back();
    call.parts.push_back({.facing = group.state.facing,
                          .otherFacing = group.state.otherFacing,
                          .first = indices,
                          .count = static_cast<int>(group.indices.size())});
    for (std::size_t i = 0; i < group.strips.size(); ++i) {
      const std::size_t end =
          i + 1 < group.strips.size() ? group.strips[i + 1] : group.indices.size();
      call.stripCounts.push_back(static_cast<int>(end - group.strips[i]));
      call.stripFirsts.push_back(indices + group.strips[i]);
    }
    indices += group.indices.size();
  }
}

DrawList::DrawList(std::shared_ptr<BufferPool> pool, const GatheredGeometry& geometry)
    : m_pool(pool), m_directions(geometry.directions), m_extents(geometry.extents) {
  std::size_t indices = 0;
  for (const DrawSegment& segment : geometry.segments) {
    Segment& calls = m_segments.emplace_back();
    AddFills(segment, calls, indices);
    AddLines(segment, calls, indices);
  }
  const std::size_t segmentIndices = indices;
  AddTexts(geometry.texts, indices);
  std::size_t textVertices = 0;
  for (const TextGroup& group : geometry.texts) textVertices += CornersOf(group);
  m_isClippedAtFirst = geometry.isClippedAtFirst;
  m_isFlat = geometry.isFlat;
  const OwnArrays arrays;
  constexpr std::size_t kBuffers = 2;
  pool->Lend(kBuffers);
  try {
    MakeBuffers(geometry, indices, textVertices);
    FillBuffers(geometry);
    CopyIndices(segmentIndices);
  } catch (const std::bad_alloc&) {
    pool->Forgo(kBuffers);
    glDeleteBuffers(1, &m_vertexBuffer);
    glDeleteBuffers(1, &m_indexBuffer);
    throw;
  }
}

void DrawList::MakeBuffers(const GatheredGeometry& geometry, std::size_t indices,
                           std::size_t textVertices) {
  m_vertexBuffer = MakeBuffer(GL_ARRAY_BUFFER,
                              BytesOf(geometry.fillVertices) + BytesOf(geometry.fillColors) +
                                  BytesOf(geometry.fillTextures) + BytesOf(geometry.lineVertices) +
                                  textVertices * sizeof(LineVertex));
  m_indexBuffer = MakeBuffer(GL_ELEMENT_ARRAY_BUFFER, indices * sizeof(std::uint32_t));
}

void DrawList::FillBuffers(const GatheredGeometry& geometry) {
  m_fillColorsAt = Fill(GL_ARRAY_BUFFER, 0, geometry.fillVertices);
  m_fillTexturesAt = Fill(GL_ARRAY_BUFFER, m_fillColorsAt, geometry.fillColors);
  m_lineVerticesAt = Fill(GL_ARRAY_BUFFER, m_fillTexturesAt, geometry.fillTextures);
  m_fillColor = geometry.fillColor;
  m_hasFillColors = !geometry.fillColors.empty();
  m_textVerticesAt = Fill(GL_ARRAY_BUFFER, m_lineVerticesAt, geometry.lineVertices);
  Fill(GL_ARRAY_BUFFER, m_textVerticesAt, VerticesOf(geometry.texts));
  std::size_t at = 0;
  for (const DrawSegment& segment : geometry.segments) {
    for (const FillGroup& group : segment.fills) {
      at = Fill(GL_ELEMENT_ARRAY_BUFFER, at, group.indices.Stored());
    }
    for (const LineGroup& group : segment.lines) {
      at = Fill(GL_ELEMENT_ARRAY_BUFFER, at, group.indices);
    }
  }
  Fill(GL_ELEMENT_ARRAY_BUFFER, at, IndicesOf(geometry.texts));
}

void DrawList::CopyIndices(std::size_t count) {
  constexpr std::size_t kMostCopied = std::size_t{1} << 16;
  const auto hasParts = [](const auto& call) { return call.parts.size() > 1; };
  const bool hasAnyParts =
      std::any_of(m_segments.begin(), m_segments.end(), [&](const Segment& segment) {
        return std::any_of(segment.fills.begin(), segment.fills.end(), hasParts) ||
               std::any_of(segment.lines.begin(), segment.lines.end(), hasParts);
      });
  if (count > kMostCopied || !hasAnyParts) return;
  m_indices.resize(count);
  m_seenIndices.reserve(count);
  glGetBufferSubData(GL_ELEMENT_ARRAY_BUFFER, 0,
                     static_cast<GLsizeiptr>(count * sizeof(std::uint32_t)), m_indices.data());
}

DrawList::~DrawList() {
  const std::shared_ptr<BufferPool> pool = m_pool.lock();
  if (pool == nullptr) return;
  pool->GiveBack(m_vertexBuffer);
  pool->GiveBack(m_indexBuffer);
}

}  // namespace orvalix
