#include "orvalix/chart/legend_obj_3d.h"

#include <algorithm>
#include <array>

#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/instance_count_internal.h"
#include "orvalix/foundation/points.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"

namespace {

/// Symbols, as SetSymbol() numbers them.
enum Symbol {
  kLine = 1,
  kLowCube = 2,
  kCube = 3,
  kFlatCube = 8,
  kCube9 = 9,
  kCube10 = 10,
  kPlus = 11,
  kDiamond = 12,
  kPyramid = 13,
  kHourglass = 14,
  kArrow = 15
};

constexpr double kEnlargement = 1.5;
/// Where the view ends, and how far turned solids reach from their centre, in sizes of theirs.
constexpr double kNearest = 1.0;
constexpr double kReach = 0.9;
constexpr double kLowCubeHeight = 0.5;
constexpr double kFlatCubeHeight = 0.25;
constexpr double kLineWidth = 2.0;
/// Texts stand in the x-z plane, as the table does.
constexpr int kTextPlane = 1;

}  // namespace

int CLegendObj3D::nSelfID = 0;

CLegendObj3D::CLegendObj3D() { InitLegendObjDefaults(); }

CLegendObj3D::CLegendObj3D(COpenGL* context, CTransform3D* transform) : CLegendObj3D() {
  InitLegendObj(context, transform);
}

CLegendObj3D::CLegendObj3D(COpenGL* context, CTransform3D* transform, const CString& text)
    : CLegendObj3D(context, transform) {
  SetText(text);
}

CLegendObj3D::~CLegendObj3D() = default;

void CLegendObj3D::InitLegendObjDefaults() {
  const RGBDType black = SetRGBD(0.0, 0.0, 0.0, 1.0);
  orvalix::CountInstance(nSelfID);
  m_context = nullptr;
  m_transform = nullptr;
  m_textColor = black;
  m_symbolColor = black;
  m_symbol = 0;
  m_symbolScale = 0.1;
  m_textPosition = {0.0, 0.0, 0.0, 0.0};
  m_symbolPosition = {0.0, 0.0, 0.0, 0.0};
  m_symbolRotation = {-20.0, -20.0, 0.0, 0.0};
  m_enable = 1;
  m_transformID = 0;
  m_classTag = orvalix::kLegendTag;
  m_text = orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_LEGENDOBJ3D,
                                         "InitLegendObjDefaults",
                                         [] { return std::make_unique<CTextObj3D>(); });
}

void CLegendObj3D::InitLegendObj(COpenGL* context, CTransform3D* transform) {
  constexpr const char* kPlace = "InitLegendObj";
  orvalix::RequireTag(context, orvalix::kOpenGLTag, ERR3D_OPENGL_PARAMETER, ERR3DCLASS_LEGENDOBJ3D,
                      kPlace);
  orvalix::RequireTag(transform, orvalix::kTransformTag, ERR3D_TRANSFORM_PARAMETER,
                      ERR3DCLASS_LEGENDOBJ3D, kPlace);
  m_text->InitTextObj(context, context->GetFont(), transform);
  m_context = context;
  m_transform = transform;
  m_transformID = transform->GetTransformID();
}

void CLegendObj3D::DrawLegendObj() {
  DrawLegendSymbol();
  DrawLegendText();
}

void CLegendObj3D::DrawLegendSymbol() {
  if (m_enable == 0 || m_context == nullptr) return;
  GLViewportType viewport;
  m_context->GetViewport(viewport);
  const double aspect = static_cast<double>(viewport.height) / viewport.width;
  m_context->PushMatrix();
  m_context->Translate3D(m_symbolPosition.x, m_symbolPosition.y, m_symbolPosition.z);
  // Large symbols are flattened: what reaches out of the view towards the viewer is cut away.
  const double room = (kNearest - m_symbolPosition.y) / (kEnlargement * kReach);
  const double depth = room > 0.0 ? std::min(m_symbolScale, room) : m_symbolScale;
  m_context->Scale3D(aspect * m_symbolScale, depth, m_symbolScale);
  m_context->Scale3D(kEnlargement, kEnlargement, kEnlargement);
  if (m_symbol > kCube) {
    m_context->Rotate3D(m_symbolRotation.x, 0);
    m_context->Rotate3D(m_symbolRotation.y, 1);
    m_context->Rotate3D(m_symbolRotation.z, 2);
  }
  DrawSymbolSolid();
  m_context->PopMatrix();
}

void CLegendObj3D::DrawSymbolSolid() {
  constexpr std::array<int, 6> kAllFaces{1, 1, 1, 1, 1, 1};
  const RGBDType black = SetRGBD(0.0, 0.0, 0.0, 1.0);
  switch (m_symbol) {
    case kLine:
      m_context->SetLineStyle3D(0, kLineWidth, m_symbolColor);
      m_context->LineAbs3D({-0.5, 0.0, 0.0, 0.0}, {0.5, 0.0, 0.0, 0.0});
      m_context->SetLineStyle3D(0, 1.0, black);
      return;
    case kLowCube:
      m_context->Scale3D(1.0, 1.0, kLowCubeHeight);
      break;
    case kFlatCube:
      m_context->Scale3D(1.0, 1.0, kFlatCubeHeight);
      break;
    case kCube:
    case kCube9:
    case kCube10:
      break;
    case kPlus:
      return m_context->DrawPlusSolidObject3D(1.0, 1.0, 1.0, m_symbolColor, black);
    case kDiamond:
      return m_context->DrawDiamondSolidObject3D(1.0, 1.0, 2.0, m_symbolColor, black);
    case kPyramid:
      return m_context->DrawPyramidSolidObject3D(1.0, 1.0, 1.0, m_symbolColor, black);
    case kHourglass:
      return m_context->DrawHourglassSolidObject3D(1.0, 1.0, 1.0, m_symbolColor, black);
    case kArrow:
      return m_context->DrawArrowSolidObject3D(1.0, 1.0, 1.0, m_symbolColor, black);
    default:
      return;
  }
  m_context->DrawCubeSolidObject3D(1.0, 1.0, 1.0, m_symbolColor, black, kAllFaces.data());
}

void CLegendObj3D::DrawLegendText() {
  if (m_enable == 0) return;
  m_text->SetColor(m_textColor);
  m_text->SetNormLocation(m_textPosition);
  m_text->SetTextPlane(kTextPlane);
  m_text->OutTextNorm();
}

void CLegendObj3D::SetText(const CString& text) { m_text->SetString(text); }

CString CLegendObj3D::GetText() const { return m_text->GetString(); }

double CLegendObj3D::TextWidth() const { return m_text->TextWidth(); }

double CLegendObj3D::TextHeight() const { return m_text->TextHeight(); }

void CLegendObj3D::SetTextColor(const RGBDType& color) { m_textColor = color; }

RGBDType CLegendObj3D::GetTextColor() const { return m_textColor; }

void CLegendObj3D::SetSymbolColor(const RGBDType& color) { m_symbolColor = color; }

RGBDType CLegendObj3D::GetSymbolColor() const { return m_symbolColor; }

void CLegendObj3D::SetColor(const RGBDType& color) { SetSymbolColor(color); }

void CLegendObj3D::SetSymbol(int symbol) { m_symbol = symbol; }

int CLegendObj3D::GetSymbol() const { return m_symbol; }

void CLegendObj3D::SetSymbolScale(double scale) { m_symbolScale = scale; }

double CLegendObj3D::GetSymbolScale() const { return m_symbolScale; }

void CLegendObj3D::SetTextPosition(const point3Dtype& position) { m_textPosition = position; }

point3Dtype CLegendObj3D::GetTextPosition() const { return m_textPosition; }

void CLegendObj3D::SetSymbolPosition(const point3Dtype& position) { m_symbolPosition = position; }

point3Dtype CLegendObj3D::GetSymbolPosition() const { return m_symbolPosition; }

void CLegendObj3D::SetSymbolRotation(const point3Dtype& degrees) { m_symbolRotation = degrees; }

point3Dtype CLegendObj3D::GetSymbolRotation() const { return m_symbolRotation; }

void CLegendObj3D::EnableLegendObj(int flag) { m_enable = flag; }

int CLegendObj3D::GetLegendObjEnable() const { return m_enable; }

CTextObj3D* CLegendObj3D::GetTextObj() const { return m_text.get(); }

int CLegendObj3D::GetTransformID() const { return m_transformID; }

int CLegendObj3D::GetClassTag() const { return m_classTag; }

template <class Record, class Self>
void CLegendObj3D::RecordFields(Record& record, Self& self) {
  record.Field("counter", nSelfID);
  record.Field("transform id", self.m_transformID);
  record.Field("text colour", self.m_textColor);
  record.Field("symbol colour", self.m_symbolColor);
  record.Field("symbol", self.m_symbol);
  record.Field("enable", self.m_enable);
  record.Field("symbol scale", self.m_symbolScale);
  record.Field("text position", self.m_textPosition);
  record.Field("symbol position", self.m_symbolPosition);
  record.Field("symbol rotation", self.m_symbolRotation);
  record.Child(*self.m_text);
}

void CLegendObj3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_LEGENDOBJ3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CLegendObj3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_LEGENDOBJ3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
