#include "orvalix/render/dib_obj_3d.h"

#include <array>

#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/instance_count_internal.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/dib.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"

namespace {

constexpr point3Dtype kLowerLeft{0.0, 0.0, 0.0, 0.0};
constexpr point3Dtype kUpperLeft{0.0, 0.0, 1.0, 0.0};
constexpr point3Dtype kUpperRight{1.0, 0.0, 1.0, 0.0};

}  // namespace

int CDIBObj3D::nSelfID = 0;

CDIBObj3D::CDIBObj3D() { InitDIBObjDefaults(); }

CDIBObj3D::CDIBObj3D(COpenGL* context, CTransform3D* transform, CString const& fileName)
    : CDIBObj3D() {
  SetDIBFilename(fileName);
  InitDIBObj(context, transform);
}

CDIBObj3D::~CDIBObj3D() = default;

void CDIBObj3D::InitDIBObjDefaults() {
  m_context = nullptr;
  m_transform = nullptr;
  m_bitmap.reset();
  m_texturePixels = nullptr;
  m_planePoint1 = kLowerLeft;
  m_planePoint2 = kUpperLeft;
  m_planePoint3 = kUpperRight;
  m_normPlanePoint1 = kLowerLeft;
  m_normPlanePoint2 = kUpperLeft;
  m_normPlanePoint3 = kUpperRight;
  m_fileName = "";
  m_repeatX = 1;
  m_repeatY = 1;
  m_normMode = 0;
  m_transformID = 0;
  m_classTag = orvalix::kDIBObjTag;
}

void CDIBObj3D::InitDIBObj(COpenGL* context, CTransform3D* transform) {
  constexpr const char* kPlace = "InitDIBObj";
  orvalix::RequireTag(context, orvalix::kOpenGLTag, ERR3D_OPENGL_PARAMETER, ERR3DCLASS_DIBOBJ3D,
                      kPlace);
  orvalix::RequireTag(transform, orvalix::kTransformTag, ERR3D_TRANSFORM_PARAMETER,
                      ERR3DCLASS_DIBOBJ3D, kPlace);
  m_context = context;
  m_transform = transform;
  m_transformID = transform->GetTransformID();
  m_texturePixels = nullptr;
  m_bitmap.reset();
  m_bitmap = orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_DIBOBJ3D, kPlace,
                                           [this] { return std::make_unique<CDib>(m_fileName); });
  m_texturePixels = m_bitmap->TranslateDIBToOGL(m_bitmap->CreateDibPalette());
  orvalix::CountInstance(nSelfID);
}

void CDIBObj3D::NormalizePlanePoints() {
  // Brings the scale up to date, which a chart without axes and series leaves to its pictures.
  m_transform->ChartTransform();
  m_transform->NormalizePoint(m_planePoint1, m_normPlanePoint1);
  m_transform->NormalizePoint(m_planePoint2, m_normPlanePoint2);
  m_transform->NormalizePoint(m_planePoint3, m_normPlanePoint3);
}

void CDIBObj3D::DrawDIBObj() {
  if (m_context == nullptr || m_transform == nullptr || m_texturePixels == nullptr) return;
  // The projection may still be the current matrix when a view draws its first picture.
  m_context->SelectModelView();
  m_context->PushMatrix();
  if (m_normMode == 0) NormalizePlanePoints();
  m_transform->TextTransform();
  // Kept: the fourth corner has the height of the first, so leaning planes have a level lower edge.
  const point3Dtype lowerRight{m_normPlanePoint3.x, m_normPlanePoint3.y, m_normPlanePoint1.z, 0.0};
  const std::array<point3Dtype, 4> corners{m_normPlanePoint1, m_normPlanePoint2, m_normPlanePoint3,
                                           lowerRight};
  m_context->DrawPictureQuad(m_texturePixels, m_bitmap->GetTextureWidth(),
                             m_bitmap->GetTextureHeight(), corners.data(), m_repeatX, m_repeatY);
  m_context->PopMatrix();
}

void CDIBObj3D::SetDIBFilename(CString const& fileName) {
  orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_DIBOBJ3D, "SetDIBFilename",
                                [&] { m_fileName = fileName; });
}

CString CDIBObj3D::GetDIBFilename() const {
  return orvalix::CopyText(m_fileName, ERR3DCLASS_DIBOBJ3D, "GetDIBFilename");
}

void CDIBObj3D::SetPlanePoints(point3Dtype const& lowerLeft, point3Dtype const& upperLeft,
                               point3Dtype const& upperRight) {
  m_planePoint1 = lowerLeft;
  m_planePoint2 = upperLeft;
  m_planePoint3 = upperRight;
  m_normMode = 0;
}

void CDIBObj3D::GetPlanePoints(point3Dtype& lowerLeft, point3Dtype& upperLeft,
                               point3Dtype& upperRight) const {
  lowerLeft = m_planePoint1;
  upperLeft = m_planePoint2;
  upperRight = m_planePoint3;
}

void CDIBObj3D::SetNormPlanePoints(point3Dtype const& lowerLeft, point3Dtype const& upperLeft,
                                   point3Dtype const& upperRight) {
  m_normPlanePoint1 = lowerLeft;
  m_normPlanePoint2 = upperLeft;
  m_normPlanePoint3 = upperRight;
  m_normMode = 1;
}

void CDIBObj3D::GetNormPlanePoints(point3Dtype& lowerLeft, point3Dtype& upperLeft,
                                   point3Dtype& upperRight) const {
  lowerLeft = m_normPlanePoint1;
  upperLeft = m_normPlanePoint2;
  upperRight = m_normPlanePoint3;
}

int CDIBObj3D::GetNormMode() const { return m_normMode; }

void CDIBObj3D::SetRepeatFactors(int across, int up) {
  m_repeatX = across;
  m_repeatY = up;
}

int CDIBObj3D::GetRepeatFactorX() const { return m_repeatX; }

int CDIBObj3D::GetRepeatFactorY() const { return m_repeatY; }

int CDIBObj3D::GetTransformID() const { return m_transformID; }

int CDIBObj3D::GetClassTag() const { return m_classTag; }

template <class Record, class Self>
void CDIBObj3D::RecordFields(Record& record, Self& self) {
  record.Field("counter", nSelfID);
  record.Field("transform id", self.m_transformID);
  record.Field("plane point 1", self.m_planePoint1);
  record.Field("plane point 2", self.m_planePoint2);
  record.Field("plane point 3", self.m_planePoint3);
  record.Field("norm plane point 1", self.m_normPlanePoint1);
  record.Field("norm plane point 2", self.m_normPlanePoint2);
  record.Field("norm plane point 3", self.m_normPlanePoint3);
  record.Field("repeat x", self.m_repeatX);
  record.Field("repeat y", self.m_repeatY);
  record.Field("norm mode", self.m_normMode);
  record.Field("file name", self.m_fileName);
}

void CDIBObj3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_DIBOBJ3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CDIBObj3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_DIBOBJ3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
