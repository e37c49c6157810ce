#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>

#include "orvalix/series/chart_obj_3d.h"

namespace {

/// Open, high, low, close.
constexpr int kMarketRows = 4;
/// The colours of a market chart: one per row, then that of its lines.
constexpr std::size_t kMarketLineColor = 4;
constexpr std::size_t kMarketFlags = 5;
/// Two whisker ends, three values of a box, and a symbol.
constexpr int kBoxRows = 6;

/// The number without its fraction; 0 for one that isn't a number.
int Truncated(double number) {
  if (std::isnan(number)) return 0;
  return static_cast<int>(std::clamp(number, double{INT_MIN}, double{INT_MAX}));
}

}  // namespace

void CChartObj3D::StoreSeries25D(const double* ind, const double* dep, int n, double constant,
                                 int constJustify, int indAxis) {
  m_numDataPnts = n;
  InitIndDataStorage(ind);
  InitDepDataStorage(dep);
  StorePlace25D(constant, constJustify, indAxis);
}

void CChartObj3D::StorePlace25D(double constant, int constJustify, int indAxis) {
  m_constValue = constant;
  m_constJustify = constJustify;
  m_indAxis = indAxis;
}

void CChartObj3D::StoreWidths(double indWidth, double constWidth) {
  m_indWidth = indWidth;
  m_constWidth = constWidth;
}

void CChartObj3D::StoreColors(RGBDType const& fill, RGBDType const& outline) {
  m_fillColor = fill;
  m_outlineColor = outline;
}

void CChartObj3D::RibbonChart25D(const double* ind, const double* dep, double constant, int n,
                                 double constWidth, RGBDType const& fill, RGBDType const& outline,
                                 int constJustify, int indAxis) {
  StoreSeries25D(ind, dep, n, constant, constJustify, indAxis);
  StoreColors(fill, outline);
  m_constWidth = constWidth;
  m_chartType = kRibbonChart25D;
}

void CChartObj3D::BarChart25D(const double* ind, const double* dep, double base, double constant,
                              int n, double indWidth, double constWidth, RGBDType const& fill,
                              RGBDType const& outline, int indJustify, int constJustify,
                              int indAxis) {
  StoreSeries25D(ind, dep, n, constant, constJustify, indAxis);
  StoreColors(fill, outline);
  m_baseValue = base;
  StoreWidths(indWidth, constWidth);
  m_indJustify = indJustify;
  m_chartType = kBarChart25D;
}

void CChartObj3D::AreaFillChart25D(const double* ind, const double* dep, double base,
                                   double constant, int n, double constWidth, RGBDType const& fill,
                                   RGBDType const& outline, int constJustify, int indAxis) {
  StoreSeries25D(ind, dep, n, constant, constJustify, indAxis);
  StoreColors(fill, outline);
  m_baseValue = base;
  m_constWidth = constWidth;
  m_chartType = kAreaFillChart25D;
}

void CChartObj3D::AreaRangeChart25D(const double* ind, const double* dep, const double* dep2,
                                    double constant, int n, double constWidth, RGBDType const& fill,
                                    RGBDType const& outline, int constJustify, int indAxis) {
  StoreSeries25D(ind, dep, n, constant, constJustify, indAxis);
  StoreColors(fill, outline);
  InitDepData2Storage(dep2);
  m_constWidth = constWidth;
  m_chartType = kAreaRangeChart25D;
}

void CChartObj3D::LineChart25D(const double* ind, const double* dep, double constant, int n,
                               int lineStyle, double lineWidth, RGBDType const& color,
                               int indAxis) {
  StoreSeries25D(ind, dep, n, constant, m_constJustify, indAxis);
  StoreColors(color, color);
  m_lineStyle = lineStyle;
  m_lineWidth = Truncated(lineWidth);
  m_chartType = kLineChart25D;
}

void CChartObj3D::GroupBarChart25D(const double* ind, const double* group, double constant,
                                   double base, int n, int numGroups, int groupType,
                                   double indWidth, double constWidth, const RGBDType* colors,
                                   RGBDType const& outline, int indJustify, int constJustify,
                                   int indAxis) {
  SetGroupDataStorage(ind, group, n, numGroups, colors);
  StorePlace25D(constant, constJustify, indAxis);
  m_outlineColor = outline;
  m_baseValue = base;
  m_groupType = groupType;
  StoreWidths(indWidth, constWidth);
  m_indJustify = indJustify;
  m_chartType = kGroupBarChart25D;
}

void CChartObj3D::GroupRibbonChart25D(const double* ind, const double* group, double constant,
                                      int n, int numGroups, double constWidth,
                                      const RGBDType* colors, RGBDType const& outline,
                                      int constJustify, int indAxis) {
  SetGroupDataStorage(ind, group, n, numGroups, colors);
  StorePlace25D(constant, constJustify, indAxis);
  m_outlineColor = outline;
  m_constWidth = constWidth;
  m_chartType = kGroupRibbonChart25D;
}

void CChartObj3D::GroupAreaFillChart25D(const double* ind, const double* group, double constant,
                                        int n, int numGroups, double constWidth,
                                        const RGBDType* colors, RGBDType const& outline,
                                        int constJustify, int indAxis) {
  GroupRibbonChart25D(ind, group, constant, n, numGroups, constWidth, colors, outline, constJustify,
                      indAxis);
  m_chartType = kGroupAreaFillChart25D;
}

void CChartObj3D::OHLCChart25D(const double* ind, const double* group, double constant, int n,
                               int symbol, int symbol2, double size, int lineWidth,
                               const RGBDType* colors, RGBDType const& outline, int constJustify,
                               int depJustify, int indAxis, const int* flags) {
  SetGroupDataStorage(ind, group, n, kMarketRows, colors);
  StorePlace25D(constant, constJustify, indAxis);
  m_outlineColor = outline;
  if (colors != nullptr) m_ohlcLineColor = colors[kMarketLineColor];
  m_symbol = symbol;
  m_symbol2 = symbol2;
  m_relSize = size;
  m_lineWidth = lineWidth;
  m_depJustify = depJustify;
  for (std::size_t i = 0; i < kMarketFlags; ++i) {
    m_comboChartFlags[i] = flags != nullptr ? flags[i] : 1;
  }
  m_chartType = kOHLCChart25D;
}

void CChartObj3D::BoxAndWhiskerChart25D(const double* ind, const double* group, double constant,
                                        int n, double indWidth, double constWidth, int symbol,
                                        double size, int lineWidth, const RGBDType* colors,
                                        RGBDType const& outline, int constJustify, int depJustify,
                                        int indAxis, int symbolFlag) {
  SetGroupDataStorage(ind, group, n, kBoxRows, colors);
  StorePlace25D(constant, constJustify, indAxis);
  m_outlineColor = outline;
  StoreWidths(indWidth, constWidth);
  m_symbol = symbol;
  m_relSize = size;
  m_lineWidth = lineWidth;
  m_depJustify = depJustify;
  m_comboChartFlags[0] = symbolFlag;
  m_chartType = kBoxAndWhiskerChart25D;
}

void CChartObj3D::FloatingBarChart25D(const double* ind, const double* dep, const double* heights,
                                      double constant, int n, double indWidth, double constWidth,
                                      RGBDType const& fill, RGBDType const& outline, int indJustify,
                                      int constJustify, int indAxis) {
  StoreSeries25D(ind, dep, n, constant, constJustify, indAxis);
  StoreColors(fill, outline);
  InitBarHeightsStorage(heights);
  StoreWidths(indWidth, constWidth);
  m_indJustify = indJustify;
  m_chartType = kFloatingBarChart25D;
}

void CChartObj3D::PlaneChart25D(const double* ind, const double* dep, double constant, int n,
                                double indWidth, double constWidth, RGBDType const& fill,
                                RGBDType const& outline, int indJustify, int constJustify,
                                int indAxis) {
  StoreSeries25D(ind, dep, n, constant, constJustify, indAxis);
  StoreColors(fill, outline);
  StoreWidths(indWidth, constWidth);
  m_indJustify = indJustify;
  m_chartType = kPlaneChart25D;
}

void CChartObj3D::BarChart3D(const point3Dtype* points, const double* heights, int n,
                             double indWidth, double constWidth, RGBDType const& fill,
                             RGBDType const& outline) {
  Set3DPointStorage(points, n);
  InitBarHeightsStorage(heights);
  StoreWidths(indWidth, constWidth);
  StoreColors(fill, outline);
  m_chartType = kBarChart3D;
}

void CChartObj3D::ScatterChart3D(const point3Dtype* points, double size, int n, int symbol,
                                 RGBDType const& fill, RGBDType const& outline, int plane,
                                 double constant) {
  Set3DPointStorage(points, n);
  m_relSize = size;
  m_symbol = symbol;
  StoreColors(fill, outline);
  m_projectionPlane = plane;
  m_constValue = constant;
  m_chartType = kScatterChart3D;
}

void CChartObj3D::LineChart3D(const point3Dtype* points, int n, int lineStyle, int lineWidth,
                              RGBDType const& color) {
  Set3DPointStorage(points, n);
  m_lineStyle = lineStyle;
  m_lineWidth = lineWidth;
  StoreColors(color, color);
  m_chartType = kLineChart3D;
}

void CChartObj3D::ProjectionLineChart3D(const point3Dtype* points, double, int n, int lineStyle,
                                        int lineWidth, RGBDType const& color, int plane,
                                        double constant) {
  LineChart3D(points, n, lineStyle, lineWidth, color);
  m_projectionPlane = plane;
  m_constValue = constant;
  m_chartType = kProjectionLineChart3D;
}

void CChartObj3D::PlaneChart3D(const point3Dtype* points, int n, double indWidth, double constWidth,
                               RGBDType const& fill, RGBDType const& outline) {
  Set3DPointStorage(points, n);
  StoreWidths(indWidth, constWidth);
  StoreColors(fill, outline);
  m_chartType = kPlaneChart3D;
}

void CChartObj3D::ScatterText3D(const point3Dtype* points, const CString* texts, int n, double size,
                                int textPlane, RGBDType const& fill, int plane, double constant) {
  SetDataStringsStorage(points, texts, n);
  m_relSize = size;
  m_textPlane = textPlane;
  m_fillColor = fill;
  m_projectionPlane = plane;
  m_constValue = constant;
  m_chartType = kScatterText3D;
}

void CChartObj3D::PolysurfaceChart2D(const CPolysurface* surface, double constant, int plane) {
  SetPolysurface(surface);
  m_constValue = constant;
  m_projectionPlane = plane;
  m_chartType = kPolysurfaceChart2D;
}

void CChartObj3D::PolysurfaceChart3D(const CPolysurface* surface) {
  SetPolysurface(surface);
  m_chartType = kPolysurfaceChart3D;
}

void CChartObj3D::ContourPolysurface3D(const CPolysurface* surface, const double* values,
                                       const RGBDType* colors, int numContours, double constant,
                                       int labelFlag) {
  SetContourStorage(surface, values, colors, numContours);
  m_constValue = constant;
  m_contourLabelFlag = labelFlag;
  m_chartType = kContourPolysurface3D;
}
