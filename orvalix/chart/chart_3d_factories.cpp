#include <memory>

#include "orvalix/axes/axes_3d.h"
#include "orvalix/chart/chart_3d.h"
#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/aux_obj_3d.h"
#include "orvalix/render/dib_obj_3d.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

namespace {

/// Runs a factory's work; running out of memory becomes the error of that factory.
template <class Work>
auto Make(const char* place, Work&& work) {
  return orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_CHART3D, place,
                                       std::forward<Work>(work));
}

void RequireTransform(const CTransform3D* transform, const char* place) {
  orvalix::RequireTag(transform, orvalix::kTransformTag, ERR3D_TRANSFORM_PARAMETER,
                      ERR3DCLASS_CHART3D, place);
}

/// True when a bitmap file could not be opened or read.
bool IsFileError(const CErr3D& error) {
  const CErr3DTypes type = error.GetErrorType();
  return error.GetErrorClass() == ERR3DCLASS_DIB &&
         (type == ERR3D_FILE_OPEN_INPUT || type == ERR3D_DISK_IO);
}

}  // namespace

CTransform3D* CChart3D::NewTransform(point3Dtype const& min, point3Dtype const& max) {
  return Make("NewTransform", [&] {
    return m_transforms.Append(std::make_unique<CTransform3D>(m_openGL, min, max));
  });
}

CTransform3D* CChart3D::NewTransform() {
  return Make("NewTransform", [&] {
    auto transform = std::make_unique<CTransform3D>();
    if (m_openGL != nullptr) transform->InitTransform(m_openGL);
    return m_transforms.Append(std::move(transform));
  });
}

CChartObj3D* CChart3D::NewChartObj(CTransform3D* transform) {
  RequireTransform(transform, "NewChartObj");
  return Make("NewChartObj", [&] {
    return m_chartObjs.Append(std::make_unique<CChartObj3D>(m_openGL, transform));
  });
}

CChartObj3D* CChart3D::NewChartObj() {
  return Make("NewChartObj", [&] { return m_chartObjs.Append(std::make_unique<CChartObj3D>()); });
}

CAxes3D* CChart3D::NewAxes(CTransform3D* transform, point3Dtype const& min,
                           point3Dtype const& max) {
  RequireTransform(transform, "NewAxes");
  return Make("NewAxes", [&] {
    return m_axes.Append(std::make_unique<CAxes3D>(m_openGL, transform, min, max));
  });
}

CAxes3D* CChart3D::NewAxes(CTransform3D* transform) {
  RequireTransform(transform, "NewAxes");
  return NewAxes(transform, transform->GetScaleMin(), transform->GetScaleMax());
}

CAxes3D* CChart3D::NewAxes(point3Dtype const& min, point3Dtype const& max) {
  // Kept: the transform made last, where texts take the first one.
  return NewAxes(m_transforms.AtCursor(), min, max);
}

CAxes3D* CChart3D::NewAxes() {
  RequireTransform(m_transforms.First(), "NewAxes");
  return AppendUnboundAxes();
}

CAxes3D* CChart3D::AppendUnboundAxes() {
  return Make("NewAxes", [&] { return m_axes.Append(std::make_unique<CAxes3D>()); });
}

CTextObj3D* CChart3D::NewChartTextObj(CTransform3D* transform, CString const& text) {
  RequireTransform(transform, "NewChartTextObj");
  return Make("NewChartTextObj", [&] {
    CFont3D* font = m_openGL != nullptr ? m_openGL->GetFont() : nullptr;
    return m_chartTexts.Append(std::make_unique<CTextObj3D>(m_openGL, font, transform, text));
  });
}

CTextObj3D* CChart3D::NewChartTextObj(CString const& text) {
  return NewChartTextObj(m_transforms.First(), text);
}

CTextObj3D* CChart3D::NewChartTextObj() {
  return Make("NewChartTextObj",
              [&] { return m_chartTexts.Append(std::make_unique<CTextObj3D>()); });
}

CDIBObj3D* CChart3D::NewDIBObj(CTransform3D* transform, CString const& fileName) {
  RequireTransform(transform, "NewDIBObj");
  return Make("NewDIBObj", [&] {
    return m_dibObjs.Append(std::make_unique<CDIBObj3D>(m_openGL, transform, fileName));
  });
}

CDIBObj3D* CChart3D::NewDIBObj(CString const& fileName) {
  return NewDIBObj(m_transforms.First(), fileName);
}

CDIBObj3D* CChart3D::NewDIBObj() {
  return Make("NewDIBObj", [&] { return m_dibObjs.Append(std::make_unique<CDIBObj3D>()); });
}

CAuxObj3D* CChart3D::NewAuxObj(CTransform3D* transform, int type) {
  // Kept: the place is spelt in its own way; programs compare it.
  RequireTransform(transform, "NewAUXObj");
  return Make("NewAuxObj", [&] {
    return m_auxObjs.Append(std::make_unique<CAuxObj3D>(m_openGL, transform, type));
  });
}

CAuxObj3D* CChart3D::NewAuxObj(int type) { return NewAuxObj(m_transforms.First(), type); }

CAuxObj3D* CChart3D::NewAuxObj() {
  return Make("NewAuxObj", [&] { return m_auxObjs.Append(std::make_unique<CAuxObj3D>()); });
}

void CChart3D::BindChildren() {
  for (CTransform3D* transform : m_transforms) transform->InitTransform(m_openGL);
  for (CAxes3D* axes : m_axes) BindAxes(*axes);
  for (CTextObj3D* text : m_chartTexts) BindText(*text);
  for (CChartObj3D* chartObj : m_chartObjs) BindChartObj(*chartObj);
  for (CAuxObj3D* auxObj : m_auxObjs) BindAuxObj(*auxObj);
  for (CDIBObj3D* dibObj : m_dibObjs) BindDIBObj(*dibObj);
}

void CChart3D::BindAxes(CAxes3D& axes) {
  CTransform3D* transform = MatchTransformID(axes.GetTransformID());
  if (transform != nullptr && m_openGL != nullptr) axes.BindAxes(m_openGL, transform);
}

void CChart3D::BindText(CTextObj3D& text) {
  CTransform3D* transform = MatchTransformID(text.GetTransformID());
  if (transform != nullptr && m_openGL != nullptr) {
    text.InitTextObj(m_openGL, m_openGL->GetFont(), transform);
  }
}

void CChart3D::BindChartObj(CChartObj3D& chartObj) {
  CTransform3D* transform = MatchTransformID(chartObj.GetOwnerID());
  if (transform != nullptr && m_openGL != nullptr) {
    chartObj.InitChartObj3D(m_openGL, transform);
  }
}

void CChart3D::BindAuxObj(CAuxObj3D& auxObj) {
  CTransform3D* transform = MatchTransformID(auxObj.GetTransformID());
  if (transform != nullptr && m_openGL != nullptr) auxObj.InitAuxObj(m_openGL, transform);
}

void CChart3D::BindDIBObj(CDIBObj3D& dibObj) {
  CTransform3D* transform = MatchTransformID(dibObj.GetTransformID());
  if (transform == nullptr || m_openGL == nullptr) return;
  try {
    dibObj.InitDIBObj(m_openGL, transform);
  } catch (const CErr3D& error) {
    // The rest of a chart can do without a picture whose file has been lost.
    if (!IsFileError(error)) throw;
  }
}

CTransform3D* CChart3D::MatchTransformID(int id) const {
  for (CTransform3D* transform : m_transforms) {
    if (transform->GetTransformID() == id) return transform;
  }
  return nullptr;
}
