#include <memory>

#include "orvalix/chart/chart_3d.h"
#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/open_gl.h"
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
  if (!orvalix::IsTagged(transform, orvalix::kTransformTag)) {
    orvalix::ThrowError(ERR3D_TRANSFORM_PARAMETER, ERR3DCLASS_CHART3D, place);
  }
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

CTransform3D* CChart3D::MatchTransformID(int id) const {
  for (CTransform3D* transform : m_transforms) {
    if (transform->GetTransformID() == id) return transform;
  }
  return nullptr;
}
