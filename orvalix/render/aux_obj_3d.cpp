#include "orvalix/render/aux_obj_3d.h"

#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/instance_count_internal.h"
#include "orvalix/foundation/points.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/placeable_internal.h"
#include "orvalix/render/transform_3d.h"

int CAuxObj3D::nSelfID = 0;

CAuxObj3D::CAuxObj3D() { InitAuxObjDefaults(); }

CAuxObj3D::CAuxObj3D(COpenGL* context, CTransform3D* transform, int type) : CAuxObj3D() {
  InitAuxObj(context, transform);
  m_type = type;
}

void CAuxObj3D::InitAuxObjDefaults() {
  orvalix::CountInstance(nSelfID);
  m_context = nullptr;
  m_transform = nullptr;
  m_type = 0;
  m_solidType = 1;
  m_colorMode = 1;
  m_size = {1.0, 1.0, 1.0, 0.0};
  m_scaleFactor = 0.05;
  m_location = {0.0, 0.0, 0.0, 0.0};
  m_normLocation = {0.0, 0.0, 0.0, 0.0};
  m_rotation = {0.0, 0.0, 0.0, 0.0};
  m_color = SetRGBD(1.0, 1.0, 1.0, 1.0);
  m_lineThickness = 1.0;
  m_outlineMode = 0;
  m_transformID = 0;
  m_classTag = orvalix::kAuxObjTag;
}

void CAuxObj3D::InitAuxObj(COpenGL* context, CTransform3D* transform) {
  constexpr const char* kPlace = "InitAuxObj";
  orvalix::RequireTag(context, orvalix::kOpenGLTag, ERR3D_OPENGL_PARAMETER, ERR3DCLASS_AUXOBJ3D,
                      kPlace);
  orvalix::RequireTag(transform, orvalix::kTransformTag, ERR3D_TRANSFORM_PARAMETER,
                      ERR3DCLASS_AUXOBJ3D, kPlace);
  m_context = context;
  m_transform = transform;
  m_transformID = transform->GetTransformID();
}

bool CAuxObj3D::HasEdges() const {
  return m_outlineMode != 0 && m_type != kSphere && m_type != kTorus && m_type != kCone;
}

void CAuxObj3D::DrawAuxObj() {
  const RGBDType black = SetRGBD(0.0, 0.0, 0.0, 1.0);
  if (m_context == nullptr || m_transform == nullptr) return;
  if (!orvalix::IsPlaceable(m_normLocation) || !orvalix::IsPlaceable(m_rotation)) return;
  // The projection may still be the current matrix when a view draws its first shape.
  m_context->SelectModelView();
  m_context->PushMatrix();
  m_transform->TextTransform();
  m_context->SetColorMode(m_colorMode);
  m_context->Translate3D(m_normLocation.x, m_normLocation.y, m_normLocation.z);
  m_context->Scale3D(m_scaleFactor, m_scaleFactor, m_scaleFactor);
  m_context->Rotate3D(m_rotation.x, 0);
  m_context->Rotate3D(m_rotation.y, 1);
  m_context->Rotate3D(m_rotation.z, 2);
  if (m_solidType != 0) {
    const bool hasEdges = HasEdges();
    m_context->SetFillStyle3D(m_color, black, m_color);
    // Faces give way to edges that are drawn over them, and only to those: along its outline a
    // shape without edges would show faces that are turned away.
    if (hasEdges) glEnable(GL_POLYGON_OFFSET_FILL);
    m_context->DrawAuxObject(m_type, 1, m_size);
    if (hasEdges) {
      glDisable(GL_POLYGON_OFFSET_FILL);
      m_context->SetLineStyle3D(0, m_lineThickness, black);
      m_context->DrawAuxObject(m_type, 0, m_size);
    }
  } else {
    m_context->SetLineStyle3D(0, m_lineThickness, m_color);
    m_context->DrawAuxObject(m_type, 0, m_size);
  }
  m_context->PopMatrix();
}

void CAuxObj3D::SetAuxObjType(int type) { m_type = type; }

int CAuxObj3D::GetAuxObjType() const { return m_type; }

void CAuxObj3D::SetSolidType(int type) { m_solidType = type; }

int CAuxObj3D::GetSolidType() const { return m_solidType; }

void CAuxObj3D::SetColorMode(int mode) { m_colorMode = mode; }

int CAuxObj3D::GetColorMode() const { return m_colorMode; }

void CAuxObj3D::SetSizeParameters(double size1, double size2, double size3) {
  AssignPoint3D(m_size, size1, size2, size3);
}

double CAuxObj3D::GetSizeParameter1() const { return m_size.x; }

double CAuxObj3D::GetSizeParameter2() const { return m_size.y; }

double CAuxObj3D::GetSizeParameter3() const { return m_size.z; }

void CAuxObj3D::SetScaleFactor(double factor) { m_scaleFactor = factor; }

double CAuxObj3D::GetScaleFactor() const { return m_scaleFactor; }

void CAuxObj3D::SetLocation(point3Dtype const& location) {
  m_location = location;
  if (m_transform == nullptr) return;
  m_transform->ChartTransform();
  m_transform->NormalizePoint(m_location, m_normLocation);
}

point3Dtype CAuxObj3D::GetLocation() const { return m_location; }

void CAuxObj3D::SetNormLocation(point3Dtype const& location) { m_normLocation = location; }

point3Dtype CAuxObj3D::GetNormLocation() const { return m_normLocation; }

void CAuxObj3D::SetRotation(point3Dtype const& degrees) { m_rotation = degrees; }

point3Dtype CAuxObj3D::GetRotation() const { return m_rotation; }

void CAuxObj3D::SetColor(RGBDType const& color) { m_color = color; }

RGBDType CAuxObj3D::GetColor() const { return m_color; }

void CAuxObj3D::SetLineThickness(double thickness) { m_lineThickness = thickness; }

double CAuxObj3D::GetLineThickness() const { return m_lineThickness; }

void CAuxObj3D::SetOutlineMode(int mode) { m_outlineMode = mode; }

int CAuxObj3D::GetOutlineMode() const { return m_outlineMode; }

int CAuxObj3D::GetTransformID() const { return m_transformID; }

int CAuxObj3D::GetClassTag() const { return m_classTag; }

template <class Record, class Self>
void CAuxObj3D::RecordFields(Record& record, Self& self) {
  record.Field("counter", nSelfID);
  record.Field("transform id", self.m_transformID);
  record.Field("type", self.m_type);
  record.Field("solid type", self.m_solidType);
  record.Field("colour mode", self.m_colorMode);
  record.Field("size 1", self.m_size.x);
  record.Field("size 2", self.m_size.y);
  record.Field("size 3", self.m_size.z);
  record.Field("scale factor", self.m_scaleFactor);
  record.Field("location", self.m_location);
  record.Field("norm location", self.m_normLocation);
  record.Field("rotation", self.m_rotation);
  record.Field("colour", self.m_color);
  record.Field("line thickness", self.m_lineThickness);
}

void CAuxObj3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_AUXOBJ3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CAuxObj3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_AUXOBJ3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
