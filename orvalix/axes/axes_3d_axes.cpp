/// The properties that the frame hands on to its axes.

#include "orvalix/axes/axes_3d.h"
#include "orvalix/axes/axis_3d.h"
#include "orvalix/axes/hand_on_internal.h"

using orvalix::Apply;
using orvalix::Ask;

void CAxes3D::SetAxisAttrib(int axis, RGBDType const& axisColor, RGBDType const& ticColor,
                            double thickness, int style) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisAttrib(axisColor, ticColor, thickness, style); });
}

void CAxes3D::SetAxisLimits(int axis, double start, double stop) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisLimits(start, stop); });
}

void CAxes3D::SetAxisMin(int axis, double value) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisMin(value); });
}

void CAxes3D::SetAxisMax(int axis, double value) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisMax(value); });
}

void CAxes3D::SetAxisIntercept(int axis, double first, double second) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisIntercept(first, second); });
}

void CAxes3D::SetAxisIntercept1(int axis, double first) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisIntercept1(first); });
}

void CAxes3D::SetAxisIntercept2(int axis, double second) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisIntercept2(second); });
}

void CAxes3D::SetAxisCenterPoint(int axis, double value) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisCenterPoint(value); });
}

void CAxes3D::SetAxisColor(int axis, RGBDType const& color) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisColor(color); });
}

void CAxes3D::SetAxisTicColor(int axis, RGBDType const& color) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisTicColor(color); });
}

void CAxes3D::SetAxisThickness(int axis, double thickness) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisThickness(thickness); });
}

void CAxes3D::SetAxisStyle(int axis, int style) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisStyle(style); });
}

void CAxes3D::SetAxisTicSpace(int axis, double space) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisTicSpace(space); });
}

void CAxes3D::SetAxisTicDir(int axis, int direction) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisTicDir(direction); });
}

void CAxes3D::SetAxisMajorTicLength(int axis, double length) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisMajorTicLength(length); });
}

void CAxes3D::SetAxisMinorTicLength(int axis, double length) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisMinorTicLength(length); });
}

void CAxes3D::SetAxisNthTicMajor(int axis, int n) {
  Apply(GetAxis(axis), [&](CAxis3D& a) { a.SetAxisNthTicMajor(n); });
}

double CAxes3D::GetAxisMin(int axis) const { return Ask(GetAxis(axis), &CAxis3D::GetAxisMin); }

double CAxes3D::GetAxisMax(int axis) const { return Ask(GetAxis(axis), &CAxis3D::GetAxisMax); }

double CAxes3D::GetAxisRange(int axis) const { return Ask(GetAxis(axis), &CAxis3D::GetAxisRange); }

double CAxes3D::GetAxisStart(int axis) const { return Ask(GetAxis(axis), &CAxis3D::GetAxisStart); }

double CAxes3D::GetAxisStop(int axis) const { return Ask(GetAxis(axis), &CAxis3D::GetAxisStop); }

double CAxes3D::GetAxisIntercept1(int axis) const {
  return Ask(GetAxis(axis), &CAxis3D::GetAxisIntercept1);
}

double CAxes3D::GetAxisIntercept2(int axis) const {
  return Ask(GetAxis(axis), &CAxis3D::GetAxisIntercept2);
}

double CAxes3D::GetAxisCenterPoint(int axis) const {
  return Ask(GetAxis(axis), &CAxis3D::GetAxisCenterPoint);
}

RGBDType CAxes3D::GetAxisColor(int axis) const {
  return Ask(GetAxis(axis), &CAxis3D::GetAxisColor);
}

RGBDType CAxes3D::GetAxisTicColor(int axis) const {
  return Ask(GetAxis(axis), &CAxis3D::GetAxisTicColor);
}

double CAxes3D::GetAxisThickness(int axis) const {
  return Ask(GetAxis(axis), &CAxis3D::GetAxisThickness);
}

int CAxes3D::GetAxisStyle(int axis) const { return Ask(GetAxis(axis), &CAxis3D::GetAxisStyle); }

double CAxes3D::GetAxisTicSpace(int axis) const {
  return Ask(GetAxis(axis), &CAxis3D::GetAxisTicSpace);
}

int CAxes3D::GetAxisTicDir(int axis) const { return Ask(GetAxis(axis), &CAxis3D::GetAxisTicDir); }

double CAxes3D::GetAxisMajorTicLength(int axis) const {
  return Ask(GetAxis(axis), &CAxis3D::GetAxisMajorTicLength);
}

double CAxes3D::GetAxisMinorTicLength(int axis) const {
  return Ask(GetAxis(axis), &CAxis3D::GetAxisMinorTicLength);
}

int CAxes3D::GetAxisNthTicMajor(int axis) const {
  return Ask(GetAxis(axis), &CAxis3D::GetAxisNthTicMajor);
}

int CAxes3D::GetAxisScaleMode(int axis) const {
  return Ask(GetAxis(axis), &CAxis3D::GetAxisScaleMode);
}
