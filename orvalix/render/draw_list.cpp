#include <algorithm>
#include <cmath>
#include <new>

#include "orvalix/render/draw_list_internal.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/pushed_back_internal.h"
#include "orvalix/render/view_direction_internal.h"

namespace orvalix {
namespace {

constexpr unsigned short kSolidLine = 0xFFFF;

void LoadMatrix(const double* matrix) {
  if (matrix != nullptr) {
    glLoadMatrixd(matrix);
  } else {
    glLoadIdentity();
  }
}

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

void Place(const GatheredGlyph& glyph, std::vector<LineVertex>& corners) {
  const std::array<double, 16>& m = glyph.placement;
  corners.clear();
  for (const auto& [x, y, z] : glyph.mesh->corners) {
    corners.push_back({{static_cast<float>(m[0] * x + m[4] * y + m[8] * z + m[12]),
                        static_cast<float>(m[1] * x + m[5] * y + m[9] * z + m[13]),
                        static_cast<float>(m[2] * x + m[6] * y + m[10] * z + m[14])},
                       glyph.color});
  }
}

/// Copies elements into the bound buffer, from `at` on. @return the offset behind them
template <class T>
std::size_t Fill(GLenum target, std::size_t at, const std::vector<T>& from) {
  const std::size_t bytes = from.size() * sizeof(T);
  glBufferSubData(target, static_cast<GLintptr>(at), static_cast<GLsizeiptr>(bytes), from.data());
  return at + bytes;
}

/// Copies the corners of texts into the bound buffer, from `at` on.
void FillTextVertices(std::size_t at, const std::vector<DrawSegment>& segments) {
  std::vector<LineVertex> corners;
  for (const DrawSegment& segment : segments) {
    for (const TextGroup& group : segment.texts) {
      for (const GatheredGlyph& glyph : group.glyphs) {
        Place(glyph, corners);
        at = Fill(GL_ARRAY_BUFFER, at, corners);
      }
    }
  }
}

/// Copies their triangles into the bound buffer, from `at` on.
/// @param first vertex of the group; moved on behind it
std::size_t FillTextIndices(std::size_t at, const TextGroup& group, std::uint32_t& first) {
  std::vector<std::uint32_t> indices;
  for (const GatheredGlyph& glyph : group.glyphs) {
    indices.clear();
    for (const std::uint32_t corner : glyph.mesh->triangles) indices.push_back(first + corner);
    at = Fill(GL_ELEMENT_ARRAY_BUFFER, at, indices);
    first += static_cast<std::uint32_t>(glyph.mesh->corners.size());
  }
  return at;
}

/// Keeps the program's arrays, and which buffers it has bound, while this lives; none of its arrays
/// is on meanwhile.
class OwnArrays {
 public:
  OwnArrays() {
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glClientActiveTexture(GL_TEXTURE0);
    for (const int array :
         {GL_NORMAL_ARRAY, GL_COLOR_ARRAY, GL_TEXTURE_COORD_ARRAY, GL_EDGE_FLAG_ARRAY,
          GL_INDEX_ARRAY, GL_SECONDARY_COLOR_ARRAY, GL_FOG_COORD_ARRAY}) {
      glDisableClientState(static_cast<GLenum>(array));
    }
  }
  ~OwnArrays() { glPopClientAttrib(); }
  OwnArrays(const OwnArrays&) = delete;
  OwnArrays& operator=(const OwnArrays&) = delete;
};

/// Clip planes as a call needs them, where that isn't as they were at first.
class Clipping {
 public:
  Clipping(int isWanted, int isAtFirst)
      : m_isChanged(isWanted != isAtFirst), m_isAtFirst(isAtFirst) {
    if (m_isChanged) Switch(isWanted);
  }
  ~Clipping() {
    if (m_isChanged) Switch(m_isAtFirst);
  }
  Clipping(const Clipping&) = delete;
  Clipping& operator=(const Clipping&) = delete;

 private:
  static void Switch(int on) {
    for (GLenum plane = GL_CLIP_PLANE0; plane <= GL_CLIP_PLANE5; ++plane) {
      SetCapability(plane, on != 0);
    }
  }

  bool m_isChanged;
  int m_isAtFirst;
};

const void* Offset(std::size_t bytes) { return reinterpret_cast<const void*>(bytes); }

void DrawIndexed(GLenum mode, std::size_t first, int count) {
  glDrawElements(mode, count, GL_UNSIGNED_INT, Offset(first * sizeof(std::uint32_t)));
}

void PointTo(std::size_t at, int stride) { glVertexPointer(3, GL_FLOAT, stride, Offset(at)); }

/// To vertices with a colour each.
void PointToColored(std::size_t at) {
  PointTo(at, sizeof(LineVertex));
  glEnableClientState(GL_COLOR_ARRAY);
  glColorPointer(3, GL_FLOAT, sizeof(LineVertex), Offset(at + offsetof(LineVertex, color)));
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

void DrawList::AddTexts(const DrawSegment& from, Segment& to, std::size_t& indices) {
  for (const TextGroup& group : from.texts) {
    std::size_t count = 0;
    for (const GatheredGlyph& glyph : group.glyphs) count += glyph.mesh->triangles.size();
    to.texts.push_back({group.state, indices, static_cast<int>(count)});
    indices += count;
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
      call.stripOffsets.push_back(Offset((indices + group.strips[i]) * sizeof(std::uint32_t)));
    }
    indices += group.indices.size();
  }
}

DrawList::DrawList(std::shared_ptr<BufferPool> pool, const GatheredGeometry& geometry)
    : m_pool(pool), m_directions(geometry.directions), m_extents(geometry.extents) {
  std::size_t indices = 0;
  std::size_t textVertices = 0;
  for (const DrawSegment& segment : geometry.segments) {
    Segment& calls = m_segments.emplace_back();
    AddFills(segment, calls, indices);
    AddTexts(segment, calls, indices);
    for (const TextGroup& group : segment.texts) {
      for (const GatheredGlyph& glyph : group.glyphs) textVertices += glyph.mesh->corners.size();
    }
    AddLines(segment, calls, indices);
  }
  m_isClippedAtFirst = geometry.isClippedAtFirst;
  const OwnArrays arrays;
  constexpr std::size_t kBuffers = 2;
  pool->Lend(kBuffers);
  try {
    MakeBuffers(geometry, indices, textVertices);
    FillBuffers(geometry);
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
  FillTextVertices(m_textVerticesAt, geometry.segments);
  std::size_t at = 0;
  std::uint32_t firstOfText = 0;
  for (const DrawSegment& segment : geometry.segments) {
    for (const FillGroup& group : segment.fills) {
      at = Fill(GL_ELEMENT_ARRAY_BUFFER, at, group.indices.Stored());
    }
    for (const TextGroup& group : segment.texts) at = FillTextIndices(at, group, firstOfText);
    for (const LineGroup& group : segment.lines) {
      at = Fill(GL_ELEMENT_ARRAY_BUFFER, at, group.indices);
    }
  }
}

DrawList::~DrawList() {
  const std::shared_ptr<BufferPool> pool = m_pool.lock();
  if (pool == nullptr) return;
  pool->GiveBack(m_vertexBuffer);
  pool->GiveBack(m_indexBuffer);
}

SideView DrawList::ViewOf(const FacingDirection& direction, bool isCutAnywhere) const {
  const auto extent =
      std::find_if(m_extents.begin(), m_extents.end(),
                   [&](const SolidExtent& known) { return known.matrix == direction.matrix; });
  if (extent == m_extents.end()) return SideView::kWhole;
  LoadMatrix(direction.matrix);
  const std::array<double, 16> toClipSpace = ToClipSpace();
  return ViewOfSide(LooksAway(toClipSpace, direction.normal),
                    isCutAnywhere || IsCutInFront(toClipSpace, extent->low, extent->high));
}

/// What a drawing of the list has found out, and the matrix that it has loaded.
class DrawList::Frame {
 public:
  explicit Frame(const DrawList& list) {
    const bool isCut = IsCutAnywhere();
    std::transform(list.m_directions.begin(), list.m_directions.end(), m_views.begin(),
                   [&](const FacingDirection& direction) { return list.ViewOf(direction, isCut); });
  }

  void Load(const double* matrix) {
    if (m_hasLoaded && matrix == m_loaded) return;
    LoadMatrix(matrix);
    m_loaded = matrix;
    m_hasLoaded = true;
  }
  SideView ViewOf(int facing) const {
    return facing >= 0 ? m_views[static_cast<std::size_t>(facing)] : SideView::kWhole;
  }
  bool IsSeen(const Part& part) const {
    return ViewOf(part.facing) != SideView::kNotSeen ||
           ViewOf(part.otherFacing) != SideView::kNotSeen;
  }
  bool IsSeen(const std::vector<Part>& parts) const {
    return std::any_of(parts.begin(), parts.end(),
                       [this](const Part& part) { return IsSeen(part); });
  }

 private:
  std::array<SideView, kMostDirections> m_views{};
  bool m_hasLoaded = false;
  const double* m_loaded = nullptr;
};

void DrawList::DrawFill(const FillCall& call, Frame& frame) const {
  if (!frame.IsSeen(call.parts)) return;
  const FillState& state = call.state;
  const Clipping clipping(state.isClipped, m_isClippedAtFirst);
  frame.Load(state.matrix);
  for (const int capability : {GL_LIGHTING, GL_LIGHT0, GL_COLOR_MATERIAL}) {
    SetCapability(static_cast<GLenum>(capability), state.isLit != 0);
  }
  SetCapability(GL_TEXTURE_1D, state.isTextured != 0);
  PointTo(0, sizeof(FillVertex));
  glEnableClientState(GL_NORMAL_ARRAY);
  glNormalPointer(GL_FLOAT, sizeof(FillVertex), Offset(offsetof(FillVertex, normal)));
  if (m_hasFillColors) {
    glEnableClientState(GL_COLOR_ARRAY);
    glColorPointer(3, GL_FLOAT, 0, Offset(m_fillColorsAt));
  } else {
    glColor3fv(m_fillColor.data());
  }
  if (state.isTextured != 0) {
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glTexCoordPointer(1, GL_FLOAT, 0, Offset(m_fillTexturesAt));
  }
  for (const Part& part : call.parts) {
    if (!frame.IsSeen(part)) continue;
    const PushedBack pushedBack(state.isPushedBack != 0,
                                frame.ViewOf(part.facing) == SideView::kBehind);
    if (call.isIndexed) {
      DrawIndexed(GL_TRIANGLES, part.first, part.count);
    } else {
      glDrawArrays(GL_TRIANGLES, static_cast<GLint>(part.first), part.count);
    }
  }
  glDisableClientState(GL_TEXTURE_COORD_ARRAY);
  glDisableClientState(GL_NORMAL_ARRAY);
  glDisableClientState(GL_COLOR_ARRAY);
}

void DrawList::DrawText(const TextCall& call, Frame& frame) const {
  const Clipping clipping(call.state.isClipped, m_isClippedAtFirst);
  frame.Load(call.state.matrix);
  for (const int capability : {GL_LIGHTING, GL_LIGHT0, GL_COLOR_MATERIAL}) {
    glDisable(static_cast<GLenum>(capability));
  }
  SetCapability(GL_TEXTURE_1D, call.state.isTextured != 0);
  glEnable(GL_CULL_FACE);
  glCullFace(GL_BACK);
  PointToColored(m_textVerticesAt);
  DrawIndexed(GL_TRIANGLES, call.first, call.count);
  glDisableClientState(GL_COLOR_ARRAY);
  glDisable(GL_CULL_FACE);
}

void DrawList::DrawLines(const LineCall& call, Frame& frame) const {
  if (!frame.IsSeen(call.parts)) return;
  const LineState& state = call.state;
  const Clipping clipping(state.isClipped, m_isClippedAtFirst);
  frame.Load(state.matrix);
  for (const int capability : {GL_LIGHTING, GL_LIGHT0, GL_COLOR_MATERIAL, GL_TEXTURE_1D}) {
    glDisable(static_cast<GLenum>(capability));
  }
  if (state.width > 0.0F) glLineWidth(state.width);
  const bool isStippled = state.stipple != kSolidLine;
  if (isStippled) {
    glEnable(GL_LINE_STIPPLE);
    glLineStipple(state.stippleFactor, state.stipple);
  }
  if (state.isEdge != 0) {
    PointTo(0, sizeof(FillVertex));
    glColor3d(state.color.red, state.color.green, state.color.blue);
  } else {
    PointToColored(m_lineVerticesAt);
  }
  if (state.isStrip == 0) {
    for (const Part& part : call.parts) {
      if (frame.IsSeen(part)) DrawIndexed(GL_LINES, part.first, part.count);
    }
  } else {
    glShadeModel(GL_FLAT);
    glMultiDrawElements(GL_LINE_STRIP, call.stripCounts.data(), GL_UNSIGNED_INT,
                        call.stripOffsets.data(), static_cast<GLsizei>(call.stripCounts.size()));
    glShadeModel(GL_SMOOTH);
  }
  glDisableClientState(GL_COLOR_ARRAY);
  if (isStippled) glDisable(GL_LINE_STIPPLE);
}

void DrawList::Draw() const noexcept {
  Frame frame(*this);
  const OwnArrays arrays;
  glBindBuffer(GL_ARRAY_BUFFER, m_vertexBuffer);
  glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, m_indexBuffer);
  glEnableClientState(GL_VERTEX_ARRAY);
  glPolygonMode(GL_FRONT, GL_FILL);
  for (const Segment& segment : m_segments) {
    for (const FillCall& call : segment.fills) DrawFill(call, frame);
    for (const TextCall& call : segment.texts) DrawText(call, frame);
    for (const LineCall& call : segment.lines) DrawLines(call, frame);
  }
}

}  // namespace orvalix
