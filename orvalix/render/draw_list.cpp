#include <algorithm>
#include <cmath>
#include <new>

#include "orvalix/render/draw_list_internal.h"
#include "orvalix/render/gl_api_internal.h"
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

void PointTo(std::size_t at, int stride) { glVertexPointer(3, GL_FLOAT, stride, Offset(at)); }

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

DrawList::DrawList(std::shared_ptr<BufferPool> pool, const GatheredGeometry& geometry)
    : m_pool(pool), m_directions(geometry.directions), m_extents(geometry.extents) {
  std::size_t indices = 0;
  for (const DrawSegment& segment : geometry.segments) {
    Segment& calls = m_segments.emplace_back();
    for (const FillGroup& group : segment.fills) {
      calls.fills.push_back({group.state, indices, static_cast<int>(group.indices.size())});
      indices += group.indices.size();
    }
    for (const LineGroup& group : segment.lines) {
      LineCall& call = calls.lines.emplace_back();
      call.state = group.state;
      call.first = indices;
      call.count = static_cast<int>(group.indices.size());
      for (std::size_t i = 0; i < group.strips.size(); ++i) {
        const std::size_t end =
            i + 1 < group.strips.size() ? group.strips[i + 1] : group.indices.size();
        call.stripCounts.push_back(static_cast<int>(end - group.strips[i]));
        call.stripOffsets.push_back(Offset((indices + group.strips[i]) * sizeof(std::uint32_t)));
      }
      indices += group.indices.size();
    }
  }
  m_isClippedAtFirst = geometry.isClippedAtFirst;
  const OwnArrays arrays;
  constexpr std::size_t kBuffers = 2;
  pool->Lend(kBuffers);
  try {
    MakeBuffers(geometry, indices);
  } catch (const std::bad_alloc&) {
    pool->Forgo(kBuffers);
    throw;
  }
  FillBuffers(geometry);
}

void DrawList::MakeBuffers(const GatheredGeometry& geometry, std::size_t indices) {
  try {
    m_vertexBuffer = MakeBuffer(
        GL_ARRAY_BUFFER, BytesOf(geometry.fillVertices) + BytesOf(geometry.fillColors) +
                             BytesOf(geometry.fillTextures) + BytesOf(geometry.lineVertices));
    m_indexBuffer = MakeBuffer(GL_ELEMENT_ARRAY_BUFFER, indices * sizeof(std::uint32_t));
  } catch (const std::bad_alloc&) {
    if (m_vertexBuffer != 0) glDeleteBuffers(1, &m_vertexBuffer);
    throw;
  }
}

void DrawList::FillBuffers(const GatheredGeometry& geometry) {
  m_fillColorsAt = Fill(GL_ARRAY_BUFFER, 0, geometry.fillVertices);
  m_fillTexturesAt = Fill(GL_ARRAY_BUFFER, m_fillColorsAt, geometry.fillColors);
  m_lineVerticesAt = Fill(GL_ARRAY_BUFFER, m_fillTexturesAt, geometry.fillTextures);
  m_fillColor = geometry.fillColor;
  m_hasFillColors = !geometry.fillColors.empty();
  Fill(GL_ARRAY_BUFFER, m_lineVerticesAt, geometry.lineVertices);
  std::size_t at = 0;
  for (const DrawSegment& segment : geometry.segments) {
    for (const FillGroup& group : segment.fills) {
      at = Fill(GL_ELEMENT_ARRAY_BUFFER, at, group.indices);
    }
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

bool DrawList::IsHidden(const FacingDirection& direction) const {
  const auto extent =
      std::find_if(m_extents.begin(), m_extents.end(),
                   [&](const SolidExtent& known) { return known.matrix == direction.matrix; });
  if (extent == m_extents.end()) return false;
  LoadMatrix(direction.matrix);
  return LooksAway(ToClipSpace(), direction.normal, extent->low, extent->high);
}

void DrawList::DrawFill(const FillCall& call) const {
  const FillState& state = call.state;
  LoadMatrix(state.matrix);
  for (const int capability : {GL_LIGHTING, GL_LIGHT0, GL_COLOR_MATERIAL}) {
    SetCapability(static_cast<GLenum>(capability), state.isLit != 0);
  }
  SetCapability(GL_TEXTURE_1D, state.isTextured != 0);
  SetCapability(GL_POLYGON_OFFSET_FILL, state.isPushedBack != 0);
  if (state.isOneSided != 0) {
    glEnable(GL_CULL_FACE);
    glCullFace(GL_BACK);
  }
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
  glDrawElements(GL_TRIANGLES, call.count, GL_UNSIGNED_INT,
                 Offset(call.first * sizeof(std::uint32_t)));
  glDisableClientState(GL_TEXTURE_COORD_ARRAY);
  glDisableClientState(GL_NORMAL_ARRAY);
  glDisableClientState(GL_COLOR_ARRAY);
  glDisable(GL_POLYGON_OFFSET_FILL);
  if (state.isOneSided != 0) glDisable(GL_CULL_FACE);
}

void DrawList::DrawLines(const LineCall& call) const {
  const LineState& state = call.state;
  LoadMatrix(state.matrix);
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
    PointTo(m_lineVerticesAt, sizeof(LineVertex));
    glEnableClientState(GL_COLOR_ARRAY);
    glColorPointer(3, GL_FLOAT, sizeof(LineVertex),
                   Offset(m_lineVerticesAt + offsetof(LineVertex, color)));
  }
  if (state.isStrip == 0) {
    glDrawElements(GL_LINES, call.count, GL_UNSIGNED_INT,
                   Offset(call.first * sizeof(std::uint32_t)));
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
  std::array<bool, kMostDirections> isHidden{};
  if (!IsCutAnywhere()) {
    std::transform(m_directions.begin(), m_directions.end(), isHidden.begin(),
                   [this](const FacingDirection& direction) { return IsHidden(direction); });
  }
  const auto hides = [&](int facing) {
    return facing >= 0 && isHidden[static_cast<std::size_t>(facing)];
  };
  const OwnArrays arrays;
  glBindBuffer(GL_ARRAY_BUFFER, m_vertexBuffer);
  glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, m_indexBuffer);
  glEnableClientState(GL_VERTEX_ARRAY);
  glPolygonMode(GL_FRONT, GL_FILL);
  for (const Segment& segment : m_segments) {
    for (const FillCall& call : segment.fills) {
      if (hides(call.state.facing)) continue;
      const Clipping clipping(call.state.isClipped, m_isClippedAtFirst);
      DrawFill(call);
    }
    for (const LineCall& call : segment.lines) {
      if (hides(call.state.facing) && hides(call.state.otherFacing)) continue;
      const Clipping clipping(call.state.isClipped, m_isClippedAtFirst);
      DrawLines(call);
    }
  }
}

}  // namespace orvalix
