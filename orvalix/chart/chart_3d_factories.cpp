#include <memory>

#include "orvalix/axes/axes_3d.h"
#include "orvalix/chart/chart_3d.h"
#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
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

void CChart3D::BindChildren() {
  for (CTransform3D* transform : m_transforms) transform->InitTransform(m_openGL);
  for (CAxes3D* axes : m_axes) BindAxes(*axes);
  for (CTextObj3D* text : m_chartTexts) BindText(*text);
  for (CChartObj3D* chartObj : m_chartObjs) BindChartObj(*chartObj);
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

CTransform3D* CChart3D::MatchTransformID(int id) const {
  for (CTransform3D* transform : m_transforms) {
    if (transform->GetTransformID() == id) return transform;
  }
  return nullptr;
}
