#include <utility>

#include "orvalix/axes/axes_3d.h"
#include "orvalix/axes/axis_3d.h"
#include "orvalix/axes/axis_labels_3d.h"
#include "orvalix/foundation/record_shape_internal.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/render/transform_3d.h"

namespace {

/// Four bytes without a meaning that keep reals aligned in the file.
template <class Record>
void RecordPadding(Record& record) {
  int padding = 0;
  record.Field("padding", padding);
}

}  // namespace

template <class Record, class GridOrConst>
void CAxes3D::RecordGrid(Record& record, GridOrConst& grid) {
  record.Field("grid nth tic 1", grid.nthTic1);
  record.Field("grid nth tic 2", grid.nthTic2);
  record.Field("grid wall flag", grid.wallFlag);
  RecordPadding(record);
  record.Field("grid thickness", grid.thickness);
  record.Field("grid style", grid.style);
  RecordPadding(record);
  record.Field("grid colour", grid.color);
  record.Field("grid enable", grid.enable);
  RecordPadding(record);
}

template <class Record, class PlaneOrConst>
void CAxes3D::RecordPlane(Record& record, PlaneOrConst& plane) {
  record.Field("plane colour", plane.color);
  record.Field("plane outline colour", plane.outlineColor);
  record.Field("plane wall thickness", plane.wallThickness);
  record.Field("plane wall offset", plane.wallOffset);
  record.Field("plane outline width", plane.outlineWidth);
  record.Field("plane wall mode", plane.wallMode);
  record.Field("plane enable", plane.enable);
}

template <class Record, class Self>
void CAxes3D::RecordFields(Record& record, Self& self) {
  record.Field("counter", nSelfID);
  record.Field("transform id", self.m_transformID);
  for (auto& axis : self.m_axes) record.Child(*axis);
  for (auto& labels : self.m_axisLabels) record.Child(*labels);
  for (auto& grid : self.m_grids) RecordGrid(record, grid);
  for (auto& plane : self.m_planes) RecordPlane(record, plane);
  for (auto& axes : self.m_planeAxes) record.Fields("plane axes", axes);
  record.Field("minimum", self.m_min);
  record.Field("maximum", self.m_max);
  record.Fields("axis colour modes", self.m_axisColorModes);
  record.Fields("plane colour modes", self.m_planeColorModes);
  // Kept: the axes' switches stand before the labels'; stored charts have them so.
  record.Fields("axis enable", self.m_axisEnable);
  record.Fields("axis labels enable", self.m_axisLabelsEnable);
  record.Field("outline mode", self.m_outlineMode);
}

std::vector<double> CAxes3D::Shape() const {
  orvalix::RecordShape shape(nSelfID);
  RecordFields(shape, *this);
  for (const auto& axis : m_axes) axis->AppendShape(shape.numbers);
  m_transform->AppendShape(shape.numbers);
  return std::move(shape.numbers);
}

void CAxes3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_AXES3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CAxes3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_AXES3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
