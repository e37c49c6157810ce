#include "orvalix/series/chart_obj_3d.h"

#include <algorithm>

#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/instance_count_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/kept_drawing_internal.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"

namespace {

/// Colour mode in which the texture colours by value.
constexpr int kColorByValue = 2;

/// From so many points on, gaps between them would take too much of what they show.
constexpr int kPointsWithoutGap = 200;

/// Switches off at the end of a drawing, even one that fails, what must not reach the next one.
class SwitchedOffAfterwards {
 public:
  SwitchedOffAfterwards(COpenGL& context, CTransform3D& transform)
      : m_context(context), m_transform(transform) {}
  ~SwitchedOffAfterwards() {
    m_transform.SetClipping(0);
    m_context.SetPolygonOutlineMode(0);
    m_context.EnableTexture(0);
  }
  SwitchedOffAfterwards(const SwitchedOffAfterwards&) = delete;
  SwitchedOffAfterwards& operator=(const SwitchedOffAfterwards&) = delete;

 private:
  COpenGL& m_context;
  CTransform3D& m_transform;
};

}  // namespace

int CChartObj3D::nSelfID = 0;

CChartObj3D::CChartObj3D() { InitChartObjDefaults(); }

CChartObj3D::CChartObj3D(COpenGL* context, CTransform3D* transform) {
  InitChartObjDefaults();
  InitChartObj3D(context, transform);
}

void CChartObj3D::InitChartObjDefaults() {
  const RGBDType black = SetRGBD(0.0, 0.0, 0.0, 1.0);
  orvalix::CountInstance(nSelfID);
  m_openGL = nullptr;
  m_transform = nullptr;
  m_constValue = 0.0;
  m_baseValue = 0.0;
  m_relSize = 1.0;
  m_constWidth = 1.0;
  m_indWidth = 1.0;
  m_fillGap = 0.0016;
  m_outlineWidth = 1.0;
  m_planeThickness = 0.02;
  m_fillColor = SetRGBD(0.0, 0.0, 1.0, 1.0);
  m_outlineColor = black;
  m_ohlcLineColor = black;
  m_symbol = 0;
  m_symbol2 = 0;
  m_numDataPnts = 0;
  m_dep2Count = 0;
  m_barHeightsCount = 0;
  m_pointCount = 0;
  m_groupColorsCount = 0;
  m_segmentColorsCount = 0;
  m_stringsCount = 0;
  m_polysurfaceFlag = 0;
  m_numGroups = 0;
  m_lineWidth = 1;
  m_lineStyle = 0;
  m_indJustify = 0;
  m_depJustify = 0;
  m_constJustify = 0;
  m_indAxis = 0;
  m_projectionPlane = 0;
  m_textPlane = 1;
  m_groupType = 0;
  m_chartType = kNoChart;
  m_numContours = 0;
  m_colorMode = 1;
  m_contourLabelFlag = 0;
  m_segmentColorMode = 0;
  m_clipping = 0;
  m_outlineMode = 1;
  m_comboChartFlags.fill(0);
  m_enable = 1;
  m_classTag = orvalix::kChartObjTag;
  m_ownerID = 0;
}

void CChartObj3D::InitChartObj3D(COpenGL* context, CTransform3D* transform) {
  constexpr const char* kPlace = "InitChartObj3D";
  if (!orvalix::IsTagged(context, orvalix::kOpenGLTag)) {
    orvalix::ThrowError(ERR3D_OPENGL_PARAMETER, ERR3DCLASS_CHARTOBJ3D, kPlace);
  }
  if (!orvalix::IsTagged(transform, orvalix::kTransformTag)) {
    orvalix::ThrowError(ERR3D_TRANSFORM_PARAMETER, ERR3DCLASS_CHARTOBJ3D, kPlace);
  }
  m_openGL = context;
  m_transform = transform;
  m_ownerID = transform->GetTransformID();
}

void CChartObj3D::DrawChartObj() {
  if (m_enable == 0 || m_openGL == nullptr || m_transform == nullptr) return;
  const SwitchedOffAfterwards guard(*m_openGL, *m_transform);
  m_openGL->SetPolygonOutlineMode(m_outlineMode);
  // Both matrices, whichever the type draws through.
  m_transform->TextTransform();
  m_transform->ChartTransform();
  m_openGL->SetColorMode(m_colorMode);
  m_openGL->EnableTexture(m_colorMode == kColorByValue ? 1 : 0);
  if (m_clipping != 0) m_transform->SetClipping(m_clipping);
  if (m_chartType == kScatterText3D) {
    DrawChartType();  // texts are kept by their font
    return;
  }
  orvalix::DrawKeeping(
      m_kept, *m_openGL, [this] { return Shape(); },
      [this] {
        m_openGL->LoadMatrixTransform(m_transform->GetGraphTransform());
        DrawChartType();
      });
}

void CChartObj3D::DrawAsPart() {
  m_openGL->SetPolygonOutlineMode(m_outlineMode);
  m_openGL->LoadMatrixTransform(m_transform->GetGraphTransform());
  m_openGL->SetColorMode(m_colorMode);
  m_openGL->EnableTexture(m_colorMode == kColorByValue ? 1 : 0);
  m_openGL->EnableClipping(m_clipping);
  DrawChartType();
  // As after an object of its own.
  m_transform->SetClipping(0);
  m_openGL->SetPolygonOutlineMode(0);
  m_openGL->EnableTexture(0);
}

void CChartObj3D::DrawChartType() {
  switch (m_chartType) {
    case kRibbonChart25D:
      DrawRibbonChart25D();
      break;
    case kBarChart25D:
      DrawBarChart25D();
      break;
    case kBarChart3D:
      DrawBarChart3D();
      break;
    case kAreaFillChart25D:
      DrawAreaFillChart25D();
      break;
    case kAreaRangeChart25D:
      DrawAreaRangeChart25D();
      break;
    case kLineChart25D:
      DrawLineChart25D();
      break;
    case kScatterChart3D:
      DrawScatterChart3D();
      break;
    case kLineChart3D:
      DrawLineChart3D();
      break;
    case kProjectionLineChart3D:
      DrawProjectionLineChart3D();
      break;
    case kGroupBarChart25D:
      DrawGroupBarChart25D();
      break;
    case kGroupRibbonChart25D:
      DrawGroupRibbonChart25D();
      break;
    case kGroupAreaFillChart25D:
      DrawGroupAreaFillChart25D();
      break;
    case kOHLCChart25D:
      DrawOHLCChart25D();
      break;
    case kPlaneChart3D:
      DrawPlaneChart3D();
      break;
    case kScatterText3D:
      DrawScatterText3D();
      break;
    case kBoxAndWhiskerChart25D:
      DrawBoxAndWhiskerChart25D();
      break;
    case kFloatingBarChart25D:
      DrawFloatingBarChart25D();
      break;
    case kPlaneChart25D:
      DrawPlaneChart25D();
      break;
    case kPolysurfaceChart2D:
      DrawPolysurfaceChart2D();
      break;
    case kPolysurfaceChart3D:
      DrawPolysurfaceChart3D();
      break;
    case kContourPolysurface3D:
      DrawContourPolysurface3D();
      break;
    default:
      break;
  }
}

std::size_t CChartObj3D::PointsIn(std::initializer_list<std::size_t> sizes) const {
  return std::min(std::min(sizes), static_cast<std::size_t>(std::max(m_numDataPnts, 0)));
}

const RGBDType& CChartObj3D::SegmentFill(std::size_t i) const {
  const bool hasOwnColor = m_segmentColorMode != 0 && i < m_segmentColors.size();
  return hasOwnColor ? m_segmentColors[i] : m_fillColor;
}

point3Dtype CChartObj3D::Place25D(double ind, double depth, double value) const {
  return m_indAxis == 1 ? point3Dtype{depth, ind, value, 0.0} : point3Dtype{ind, depth, value, 0.0};
}

double CChartObj3D::calcbgoffset(double width, int justify) const {
  if (justify == 1) return -width / 2.0;
  if (justify == 2) return -width;
  return 0.0;
}

double CChartObj3D::GetSmallGap() const {
  const bool isAlongXOrY = m_indAxis == 0 || m_indAxis == 1;
  if (m_outlineMode == 0 || m_numDataPnts >= kPointsWithoutGap || !isAlongXOrY) return 0.0;
  return m_fillGap * m_transform->GetAxisWorkingRange(m_indAxis);
}

void CChartObj3D::CheckSetSegmentColor(int i) {
  if (m_segmentColorMode == 0 || i < 0) return;
  const auto index = static_cast<std::size_t>(i);
  if (index >= m_segmentColors.size()) return;
  m_openGL->SetFillStyle3D(m_segmentColors[index], m_segmentColors[index], m_outlineColor);
}
