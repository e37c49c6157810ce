#include <algorithm>
#include <optional>

#include "orvalix/render/draw_list_internal.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/own_arrays_internal.h"
#include "orvalix/render/pushed_back_internal.h"
#include "orvalix/render/view_direction_internal.h"

// How a list draws what it holds.

namespace orvalix {
namespace {

/// Shades faces and lines that have one colour each, that of their last vertex, and puts back how
/// the program shades.
class Shading {
 public:
  Shading() {
    glGetIntegerv(GL_SHADE_MODEL, &m_model);
    glShadeModel(GL_FLAT);
    glGetIntegerv(GL_PROVOKING_VERTEX, &m_colorVertex);
    glProvokingVertex(GL_LAST_VERTEX_CONVENTION);
  }
  ~Shading() {
    LeaveToProgram();
    glProvokingVertex(static_cast<GLenum>(m_colorVertex));
  }
  Shading(const Shading&) = delete;
  Shading& operator=(const Shading&) = delete;

  void LeaveToProgram() const { glShadeModel(static_cast<GLenum>(m_model)); }

 private:
  GLint m_model = GL_SMOOTH;
  GLint m_colorVertex = GL_LAST_VERTEX_CONVENTION;
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

void DrawIndices(GLenum mode, std::size_t first, int count) {
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

/// What a drawing of the list has found out, and the matrix that it has loaded.
class DrawList::Frame {
 public:
  explicit Frame(const DrawList& list) {
    std::transform(list.m_directions.begin(), list.m_directions.end(), m_views.begin(),
                   [&](const FacingDirection& direction) { return list.ViewOf(direction, *this); });
  }

  const Shading& GetShading() const { return m_shading; }
  void Load(const double* matrix) {
    if (m_hasLoaded && matrix == m_loaded) return;
    LoadMatrix(matrix);
    m_loaded = matrix;
    m_hasLoaded = true;
    m_toClipSpace.reset();
  }
  /// Of the matrix that was loaded.
  const std::array<double, 16>& ToClipSpace() {
    if (!m_toClipSpace) m_toClipSpace = orvalix::ToClipSpace();
    return *m_toClipSpace;
  }
  bool IsCutAnywhere() const { return m_isCutAnywhere; }
  SideView ViewOf(int facing) const {
    return facing >= 0 ? m_views[static_cast<std::size_t>(facing)] : SideView::kWhole;
  }
  bool IsSeen(const Part& part) const {
    return ViewOf(part.facing) != SideView::kNotSeen ||
           ViewOf(part.otherFacing) != SideView::kNotSeen;
  }
  /// As orvalix::TurnOnScreen(), through the matrix that was loaded.
  int TurnOnScreen(const std::array<double, 3>& axis) {
    GLint front = 0;
    glGetIntegerv(GL_FRONT_FACE, &front);
    return front == GL_CCW ? orvalix::TurnOnScreen(ToClipSpace(), axis) : 0;
  }
  bool IsSeen(const std::vector<Part>& parts) const {
    return std::any_of(parts.begin(), parts.end(),
                       [this](const Part& part) { return IsSeen(part); });
  }

 private:
  Shading m_shading;
  std::array<SideView, kMostDirections> m_views{};
  bool m_isCutAnywhere = orvalix::IsCutAnywhere();
  bool m_hasLoaded = false;
  const double* m_loaded = nullptr;
  std::optional<std::array<double, 16>> m_toClipSpace;
};

SideView DrawList::ViewOf(const FacingDirection& direction, Frame& frame) const {
  const auto extent =
      std::find_if(m_extents.begin(), m_extents.end(),
                   [&](const SolidExtent& known) { return known.matrix == direction.matrix; });
  if (extent == m_extents.end()) return SideView::kWhole;
  frame.Load(direction.matrix);
  const std::array<double, 16>& toClipSpace = frame.ToClipSpace();
  return ViewOfSide(LooksAway(toClipSpace, direction.normal),
                    frame.IsCutAnywhere() || IsCutInFront(toClipSpace, extent->extent));
}

void DrawList::DrawIndexed(unsigned mode, const std::vector<Part>& parts, const Frame& frame,
                           bool isPushedBack) const {
  const bool canJoin = !m_indices.empty() && parts.size() > 1;
  m_seenIndices.clear();
  for (const Part& part : parts) {
    if (!frame.IsSeen(part)) continue;
    const bool isBehind = mode == GL_TRIANGLES && frame.ViewOf(part.facing) == SideView::kBehind;
    if (canJoin && !isBehind) {
      const auto first = m_indices.begin() + static_cast<std::ptrdiff_t>(part.first);
      m_seenIndices.insert(m_seenIndices.end(), first, first + part.count);
    } else {
      const PushedBack pushedBack(isPushedBack, isBehind);
      DrawIndices(mode, part.first, part.count);
    }
  }
  if (m_seenIndices.empty()) return;
  const PushedBack pushedBack(isPushedBack, false);
  glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
  glDrawElements(mode, static_cast<GLsizei>(m_seenIndices.size()), GL_UNSIGNED_INT,
                 m_seenIndices.data());
  glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, m_indexBuffer);
}

void DrawList::DrawRanges(const FillCall& call, const Frame& frame) {
  for (const Part& part : call.parts) {
    if (!frame.IsSeen(part)) continue;
    const PushedBack pushedBack(call.state.isPushedBack != 0,
                                frame.ViewOf(part.facing) == SideView::kBehind);
    glDrawArrays(GL_TRIANGLES, static_cast<GLint>(part.first), part.count);
  }
}

void DrawList::DrawFill(const FillCall& call, Frame& frame) const {
  if (!frame.IsSeen(call.parts)) return;
  const FillState& state = call.state;
  const Clipping clipping(state.isClipped, m_isClippedAtFirst);
  frame.Load(state.matrix);
  for (const int capability : {GL_LIGHTING, GL_LIGHT0, GL_COLOR_MATERIAL}) {
    SetCapability(static_cast<GLenum>(capability), state.isLit != 0);
  }
  const bool isShadedByProgram = state.isLit != 0 && !m_isFlat;
  if (isShadedByProgram) frame.GetShading().LeaveToProgram();
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
  if (call.isIndexed) {
    DrawIndexed(GL_TRIANGLES, call.parts, frame, state.isPushedBack != 0);
  } else {
    DrawRanges(call, frame);
  }
  if (isShadedByProgram) glShadeModel(GL_FLAT);
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
  // OpenGL leaves out what looks away; the front or the back it needn't even look at.
  const int turn = frame.TurnOnScreen(call.state.axis);
  const int before = turn < 0 ? call.front : 0;
  const int behind = turn > 0 ? call.back : 0;
  DrawIndices(GL_TRIANGLES, call.first + static_cast<std::size_t>(before),
              call.front + call.walls + call.back - before - behind);
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
    DrawIndexed(GL_LINES, call.parts, frame, false);
  } else {
    // One after the other: some drivers spoil calls for several at once.
    for (std::size_t i = 0; i < call.stripCounts.size(); ++i) {
      DrawIndices(GL_LINE_STRIP, call.stripFirsts[i], call.stripCounts[i]);
    }
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
    for (const LineCall& call : segment.lines) DrawLines(call, frame);
  }
  for (const TextCall& call : m_texts) DrawText(call, frame);
}

}  // namespace orvalix
