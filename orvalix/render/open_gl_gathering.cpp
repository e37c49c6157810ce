#include <algorithm>
#include <new>

#include "orvalix/foundation/points.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/draw_list_internal.h"
#include "orvalix/render/draw_recorder_internal.h"
#include "orvalix/render/flat_faces_internal.h"
#include "orvalix/render/font_glyphs_internal.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/gl_binding_internal.h"
#include "orvalix/render/kept_texts_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/placeable_internal.h"
#include "orvalix/render/view_direction_internal.h"

// How drawing operations are gathered, and how what was gathered is drawn.

namespace {

constexpr int kSolidCorners = 8;

void LoadMatrix(const double* loaded, const std::array<double, 16>& moved) {
  orvalix::LoadMatrix(loaded);
  glMultMatrixd(moved.data());
}

}  // namespace

COpenGL::Gathering::Gathering(COpenGL& context) : m_context(context) {
  context.BeginGathering(nullptr, nullptr);
}

COpenGL::Gathering::Gathering(COpenGL& context, const double* textMatrix, orvalix::KeptTexts& texts)
    : m_context(context) {
  context.BeginGathering(textMatrix, &texts);
}

COpenGL::Gathering::~Gathering() { m_context.EndGathering(); }

void COpenGL::SetGathering(int flag) { m_gathering = flag; }

int COpenGL::GetGathering() const { return m_gathering; }

void COpenGL::TellFarSides() {
  m_tellsFarSides = true;
  m_isCutAnywhere = orvalix::IsCutAnywhere();
}

COpenGL::TellingFarSides::TellingFarSides(COpenGL& context) : m_context(context) {
  if (context.IsRendering()) context.TellFarSides();
}

COpenGL::TellingFarSides::~TellingFarSides() { m_context.m_tellsFarSides = false; }

bool COpenGL::IsCurrent() const { return m_binding->IsCurrent(); }

bool COpenGL::IsRendering() const { return orvalix::RenderMode() == GL_RENDER; }

bool COpenGL::CanGather() const {
  return m_gathering != 0 && m_recorder == nullptr && !m_lineIsOpen && m_buffers != nullptr &&
         IsCurrent() && IsRendering();
}

void COpenGL::BeginGathering(const double* textMatrix, orvalix::KeptTexts* texts) {
  m_texts = texts;
  m_textMatrix = textMatrix;
  m_buffers->DeleteReturned();
  m_gathered.reset();
  m_hasFailedToGather = false;
  m_setSince = 0;
  m_inherited = 0;
  try {
    const orvalix::DrawRecorder::State state{.isLit = m_colorMode != 0 ? 1 : 0,
                                             .isTextured = m_textureEnabled != 0 ? 1 : 0,
                                             .isClipped = m_clippingEnabled};
    m_recorder = std::make_unique<orvalix::DrawRecorder>(state, orvalix::AreFacesFlat());
  } catch (const std::bad_alloc&) {
    m_recorder.reset();  // one by one, then
    TellFarSides();
  }
}

void COpenGL::EndGathering() noexcept {
  m_tellsFarSides = false;
  if (m_recorder == nullptr) return;
  m_gatheredEnd = GetDrawingState();
  const std::unique_ptr<orvalix::DrawRecorder> recorder = std::move(m_recorder);
  const int isClippedAtFirst = recorder->Geometry().isClippedAtFirst;
  m_hasFailedToGather = recorder->HasFailed();
  try {
    if (!m_hasFailedToGather) DrawRecorded(*recorder);
  } catch (const std::bad_alloc&) {
    m_hasFailedToGather = true;
  }
  RestoreState(m_gatheredEnd, isClippedAtFirst);
}

void COpenGL::DrawRecorded(orvalix::DrawRecorder& recorder) {
  if (m_texts != nullptr) {
    m_texts->Draw(m_buffers, recorder.TakeGeometry());
  } else {
    m_gathered = std::make_unique<orvalix::DrawList>(m_buffers, recorder.Geometry());
    m_gathered->Draw();
  }
}

void COpenGL::SendGathered() {
  if (m_recorder == nullptr) return;
  const DrawingState state = GetDrawingState();
  const std::unique_ptr<orvalix::DrawRecorder> recorder = std::move(m_recorder);
  orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_OPENGL, "SendGathered", [&] {
    if (recorder->HasFailed()) throw std::bad_alloc();
    orvalix::DrawList(m_buffers, recorder->Geometry()).Draw();
  });
  for (const orvalix::DrawRecorder::SavedMatrix& saved : recorder->SavedMatrices()) {
    LoadMatrix(saved.loaded, saved.moved);
    glPushMatrix();
  }
  TellFarSides();  // the rest goes one by one
  RestoreState(state, recorder->Geometry().isClippedAtFirst);
  if (m_lineIsOpen) {
    // What interrupts a line in OpenGL ends it.
    m_lineIsOpen = false;
    SetColorMode(m_savedColorMode);
  }
}

std::unique_ptr<orvalix::DrawList> COpenGL::TakeGathered(DrawingState& end) {
  end = m_gatheredEnd;
  return std::move(m_gathered);
}

bool COpenGL::Owns(const orvalix::DrawList& list) const { return list.IsOf(m_buffers); }

COpenGL::DrawingState COpenGL::WithWhatWasNotSet(DrawingState end) const {
  const auto isSet = [&](unsigned part) { return (end.setSince & part) != 0; };
  if (!isSet(kOutlineColor)) {
    end.fillColor = m_fillColor;
    end.fillColor2 = m_fillColor2;
    end.outlineColor = m_outlineColor;
  }
  if (!isSet(kCurrentColor)) end.currentColor = m_currentColor;
  if (!isSet(kLineColor)) end.lineColor = m_lineColor;
  if (!isSet(kLineNormal)) end.lineNormal = m_lineNormal;
  if (!isSet(kLineStyle)) end.lineStyle = m_lineStyle;
  if (!isSet(kStoredLineWidth)) end.lineWidth = m_lineWidth;
  if (!isSet(kSentLineWidth)) end.sentLineWidth = m_sentLineWidth;
  return end;
}

void COpenGL::DrawKept(const orvalix::DrawList& list, const DrawingState& left) {
  const DrawingState end = WithWhatWasNotSet(left);
  list.Draw();
  SetDrawingState(end);
}

void COpenGL::SetDrawingState(const DrawingState& end) {
  const int isClippedAtFirst = m_clippingEnabled;
  m_fillColor = end.fillColor;
  m_fillColor2 = end.fillColor2;
  m_outlineColor = end.outlineColor;
  m_lineColor = end.lineColor;
  m_currentColor = end.currentColor;
  m_lineNormal = end.lineNormal;
  m_lineStyle = end.lineStyle;
  m_lineStyleFactor = end.lineStyleFactor;
  m_textureEnabled = end.textureEnabled;
  m_polygonOutlineMode = end.polygonOutlineMode;
  m_colorMode = end.colorMode;
  m_savedColorMode = end.savedColorMode;
  m_clippingEnabled = end.clippingEnabled;
  m_lineWidth = end.lineWidth;
  m_sentLineWidth = end.sentLineWidth;
  RestoreState(end, isClippedAtFirst);
}

COpenGL::DrawingState COpenGL::GetDrawingState() const {
  DrawingState state{.fillColor = m_fillColor,
                     .fillColor2 = m_fillColor2,
                     .outlineColor = m_outlineColor,
                     .lineColor = m_lineColor,
                     .currentColor = m_currentColor,
                     .lineNormal = m_lineNormal,
                     .lineStyle = m_lineStyle,
                     .lineStyleFactor = m_lineStyleFactor,
                     .textureEnabled = m_textureEnabled,
                     .polygonOutlineMode = m_polygonOutlineMode,
                     .colorMode = m_colorMode,
                     .savedColorMode = m_savedColorMode,
                     .clippingEnabled = m_clippingEnabled,
                     .lineWidth = m_lineWidth,
                     .sentLineWidth = m_sentLineWidth,
                     .setSince = m_setSince,
                     .loadedMatrix = nullptr,
                     .movedSince = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};
  if (m_recorder != nullptr) {
    state.loadedMatrix = m_recorder->LoadedMatrix();
    state.movedSince = m_recorder->MovedSince();
  }
  return state;
}

void COpenGL::RestoreState(const DrawingState& state, int isClippedAtFirst) {
  LoadMatrix(state.loadedMatrix, state.movedSince);
  SetColorMode(state.colorMode);
  EnableTexture(state.textureEnabled);
  if (state.clippingEnabled != isClippedAtFirst) EnableClipping(state.clippingEnabled);
  SendColor(state.currentColor);
  glLineWidth(state.sentLineWidth);
  SendStipple(state.lineStyle);
}

void COpenGL::AppendDrawingState(std::vector<double>& numbers) const {
  for (const int number : {m_lineStyleFactor, m_textureEnabled, m_polygonOutlineMode, m_colorMode,
                           m_clippingEnabled, m_textureMode}) {
    numbers.push_back(number);
  }
  numbers.insert(numbers.end(), {m_textureMinimum, m_textureScale});
  numbers.push_back(orvalix::AreFacesFlat() ? 1.0 : 0.0);
}

void COpenGL::AppendInherited(std::vector<double>& numbers, const DrawingState& state,
                              unsigned inherited) {
  const auto append = [&](unsigned part, const RGBDType& color) {
    if ((inherited & part) == 0) return;
    numbers.insert(numbers.end(), {color.red, color.green, color.blue});
  };
  append(kCurrentColor, state.currentColor);
  append(kOutlineColor, state.outlineColor);
  append(kLineColor, state.lineColor);
  if ((inherited & kLineStyle) != 0) numbers.push_back(state.lineStyle);
  if ((inherited & kLineWidth) == 0) return;
  numbers.push_back(static_cast<double>(state.lineWidth));
  numbers.push_back(static_cast<double>(state.sentLineWidth));
}

// --- the operations ---

void COpenGL::RecordPolygon(const point3Dtype* points, int n) {
  point3Dtype normal{};
  if (n >= 3) CalcNormal(points[0], points[1], points[2], normal);
  float* textures = nullptr;
  if (m_textureEnabled != 0) {
    textures = m_recorder->TexturesFor(n);
    for (int i = 0; textures != nullptr && i < n; ++i) {
      textures[i] = static_cast<float>(TextureCoordinate(points[i]));
    }
  }
  m_recorder->AddPolygon(points, n, normal, textures, RecordedFillNow());
  if (m_polygonOutlineMode != 0) SendColor(m_outlineColor);
}

void COpenGL::RecordGlyph(orvalix::FontGlyphs& font, std::size_t code) {
  Inherit(kCurrentColor);
  try {
    m_recorder->AddGlyph(font.Mesh(code), font.Number(), orvalix::ToGathered(m_currentColor));
  } catch (const std::bad_alloc&) {
    m_recorder->Fail();
  }
}

void COpenGL::RecordSolid(const point3Dtype* corners) {
  std::array<float, kSolidCorners> textures{};
  if (m_textureEnabled != 0) {
    std::transform(corners, corners + kSolidCorners, textures.begin(), [this](const auto& corner) {
      return static_cast<float>(TextureCoordinate(corner));
    });
  }
  orvalix::LaterColor later;
  // The outline of a face leaves its colour to the next one.
  if (m_polygonOutlineMode != 0 && !FillsInFillColor()) later = orvalix::ToGathered(m_outlineColor);
  m_recorder->AddSolid(corners, m_textureEnabled != 0 ? textures.data() : nullptr,
                       RecordedFillNow(), later);
  if (m_polygonOutlineMode != 0) SendColor(m_outlineColor);
}

void COpenGL::NoteLineWidth() {
  if (!(m_lineWidth > 0.0F)) return;
  m_sentLineWidth = m_lineWidth;
  m_setSince |= kSentLineWidth;
}

orvalix::RecordedFill COpenGL::RecordedFillNow() {
  Inherit(kCurrentColor);
  if (m_polygonOutlineMode != 0) Inherit(kOutlineColor | kLineWidth);
  if (m_polygonOutlineMode != 0) NoteLineWidth();
  return {.color = orvalix::ToGathered(m_currentColor),
          .isOutlined = m_polygonOutlineMode != 0 ? 1 : 0,
          .outlineColor = m_outlineColor,
          .outlineWidth = m_sentLineWidth};
}

orvalix::RecordedStroke COpenGL::RecordedStrokeNow() {
  Inherit(kLineWidth | kLineStyle);
  NoteLineWidth();
  return {.width = m_sentLineWidth,
          .stipple = StippleOf(m_lineStyle),
          .stippleFactor = m_lineStyleFactor};
}

void COpenGL::RecordFrame(const point3Dtype* points, int n) {
  Inherit(kOutlineColor | kLineWidth);
  NoteLineWidth();
  // Interrupted where a point has no place.
  for (int from = 0; from < n;) {
    const point3Dtype* const end =
        std::find_if_not(points + from, points + n, orvalix::IsPlaceable);
    const int to = static_cast<int>(end - points);
    m_recorder->AddFrame(points + from, to - from, m_outlineColor, m_sentLineWidth);
    from = to + 1;
  }
  SendColor(m_outlineColor);
  m_savedColorMode = m_colorMode;
}

void COpenGL::RecordLine(point3Dtype const& a, point3Dtype const& b) {
  m_savedColorMode = m_colorMode;
  Inherit(kLineColor);
  SendColor(m_lineColor);
  const orvalix::RecordedStroke stroke = RecordedStrokeNow();
  if (!orvalix::IsPlaceable(a) || !orvalix::IsPlaceable(b)) return;
  m_recorder->AddLine(a, b, orvalix::ToGathered(m_lineColor), stroke);
}

void COpenGL::StartRecordedLine() {
  m_savedColorMode = m_colorMode;
  SetColorMode(0);
  Inherit(kLineColor);
  SendColor(m_lineColor);
  m_recorder->StartStrip(RecordedStrokeNow());
}

void COpenGL::RecordLinePoint(point3Dtype const& point) {
  if (orvalix::IsPlaceable(point)) {
    m_recorder->AddToStrip(point, orvalix::ToGathered(m_currentColor));
  } else {
    m_recorder->InterruptStrip();
  }
}
