#include <algorithm>
#include <vector>

#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/series/chart_obj_3d.h"
#include "orvalix/series/contour_3d.h"

void CChartObj3D::DrawContourPolysurface3D() {
  if (!m_polysurface.has_value()) return;
  const std::size_t held =
      std::min(m_indData.size(), static_cast<std::size_t>(std::max(m_numContours, 0)));
  const std::vector<RGBDType> colors = orvalix::WithAllocationErrors(
      ERR3D_OBJECT_NEW, ERR3DCLASS_CHARTOBJ3D, "DrawContourPolysurface3D", [&] {
        std::vector<RGBDType> made = m_segmentColors;
        made.resize(std::max(held, made.size()), m_outlineColor);
        return made;
      });
  const CContour3D contour(m_openGL, m_transform, &*m_polysurface, m_indData.data(), colors.data(),
                           static_cast<int>(held), m_constValue, m_contourLabelFlag);
}
