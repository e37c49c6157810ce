/// The properties that the frame hands on to its labels.

#include "orvalix/axes/axes_3d.h"
#include "orvalix/axes/axis_labels_3d.h"
#include "orvalix/axes/hand_on_internal.h"
#include "orvalix/foundation/throw_error_internal.h"

using orvalix::Apply;
using orvalix::Ask;

void CAxes3D::SetAxisLabelsStrings(int axis, const CString* strings, int count) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsStrings(strings, count); });
  EnableAxisLabels(axis, 1);
}

CString* CAxes3D::GetAxisLabelsStrings(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsStrings);
}

void CAxes3D::EnableAxisLabelsStrings(int axis, int flag) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.EnableAxisLabelsStrings(flag); });
}

int CAxes3D::GetAxisLabelsStringEnable(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsStringEnable);
}

int CAxes3D::GetNumAxisLabelStrings(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetNumAxisLabelsStrings);
}

void CAxes3D::SetAxisLabels(int axis, int plane, int rotation, int direction, int decimals,
                            int ends, RGBDType const& color, const CString* strings, int count) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) {
    l.SetAxisLabels(plane, rotation, direction, decimals, ends, color, strings, count);
  });
  EnableAxisLabels(axis, 1);
}

void CAxes3D::SetAxisTitleString(int axis, const char* text) {
  orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_AXES3D, "SetAxisTitleString", [&] {
    Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisTitleString(text); });
  });
}

void CAxes3D::GetAxisTitleString(int axis, CString& text) const {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.GetAxisTitleString(text); });
}

void CAxes3D::SetAxisLabelsColor(int axis, RGBDType const& color) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsColor(color); });
}

RGBDType CAxes3D::GetAxisLabelsColor(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsColor);
}

void CAxes3D::SetAxisLabelsDecimals(int axis, int value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsDecimals(value); });
}

int CAxes3D::GetAxisLabelsDecimals(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsDecimals);
}

void CAxes3D::SetAxisLabelsDir(int axis, int value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsDir(value); });
}

int CAxes3D::GetAxisLabelsDir(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsDir);
}

void CAxes3D::SetAxisLabelsEnds(int axis, int value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsEnds(value); });
}

int CAxes3D::GetAxisLabelsEnds(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsEnds);
}

void CAxes3D::SetAxisLabelsFlipX(int axis, int value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsFlipX(value); });
}

int CAxes3D::GetAxisLabelsFlipX(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsFlipX);
}

void CAxes3D::SetAxisLabelsFlipY(int axis, int value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsFlipY(value); });
}

int CAxes3D::GetAxisLabelsFlipY(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsFlipY);
}

void CAxes3D::SetAxisLabelsFormat(int axis, int value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsFormat(value); });
}

int CAxes3D::GetAxisLabelsFormat(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsFormat);
}

void CAxes3D::SetAxisLabelsNthTic(int axis, int value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsNthTic(value); });
}

int CAxes3D::GetAxisLabelsNthTic(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsNthTic);
}

void CAxes3D::SetAxisLabelsPlane(int axis, int value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsPlane(value); });
}

int CAxes3D::GetAxisLabelsPlane(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsPlane);
}

void CAxes3D::SetAxisLabelsRotation(int axis, int value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsRotation(value); });
}

int CAxes3D::GetAxisLabelsRotation(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsRotation);
}

void CAxes3D::SetAxisLabelsSize(int axis, double value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsSize(value); });
}

double CAxes3D::GetAxisLabelsSize(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsSize);
}

void CAxes3D::SetAxisLabelsTicOffset(int axis, double value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsTicOffset(value); });
}

double CAxes3D::GetAxisLabelsTicOffset(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsTicOffset);
}

void CAxes3D::SetAxisLabelsXJust(int axis, int value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsXJust(value); });
}

int CAxes3D::GetAxisLabelsXJust(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsXJust);
}

void CAxes3D::SetAxisLabelsYJust(int axis, int value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisLabelsYJust(value); });
}

int CAxes3D::GetAxisLabelsYJust(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisLabelsYJust);
}

void CAxes3D::SetAxisTitleColor(int axis, RGBDType const& color) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisTitleColor(color); });
}

RGBDType CAxes3D::GetAxisTitleColor(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisTitleColor);
}

void CAxes3D::SetAxisTitleFlipX(int axis, int value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisTitleFlipX(value); });
}

int CAxes3D::GetAxisTitleFlipX(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisTitleFlipX);
}

void CAxes3D::SetAxisTitleFlipY(int axis, int value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisTitleFlipY(value); });
}

int CAxes3D::GetAxisTitleFlipY(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisTitleFlipY);
}

void CAxes3D::SetAxisTitlePlane(int axis, int value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisTitlePlane(value); });
}

int CAxes3D::GetAxisTitlePlane(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisTitlePlane);
}

void CAxes3D::SetAxisTitleSize(int axis, double value) {
  Apply(GetAxisLabels(axis), [&](CAxisLabels3D& l) { l.SetAxisTitleSize(value); });
}

double CAxes3D::GetAxisTitleSize(int axis) const {
  return Ask(GetAxisLabels(axis), &CAxisLabels3D::GetAxisTitleSize);
}
