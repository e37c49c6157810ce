#include "orvalix/series/chart_obj_3d.h"

void CChartObj3D::BarChart25D(const double* ind, const double* dep, double base, double constant,
                              int n, double indWidth, double constWidth, RGBDType const& fill,
                              RGBDType const& outline, int indJustify, int constJustify,
                              int indAxis) {
  m_numDataPnts = n;
  InitIndDataStorage(ind);
  InitDepDataStorage(dep);
  m_baseValue = base;
  m_constValue = constant;
  m_indWidth = indWidth;
  m_constWidth = constWidth;
  m_fillColor = fill;
  m_outlineColor = outline;
  m_indJustify = indJustify;
  m_constJustify = constJustify;
  m_indAxis = indAxis;
  m_chartType = kBarChart25D;
}
