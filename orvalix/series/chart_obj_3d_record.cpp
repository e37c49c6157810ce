#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "orvalix/foundation/record_shape_internal.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

namespace {

/// At most as many as the storage holds: a count outlives its storage, and a record that promises
/// more than follows could not be read again.
template <class T>
int CountIn(const std::vector<T>& storage, int count) {
  const std::size_t largest = std::min(storage.size(), std::size_t{INT_MAX});
  return std::clamp(count, 0, static_cast<int>(largest));
}

/// What RecordAttributes() stored for a count, or what it has just read.
template <class Record, class T>
std::int64_t StoredCount(const std::vector<T>& storage, int count) {
  return Record::kReading ? count : CountIn(storage, count);
}

/// The next `count` elements of a record are those of `storage`; where it is shorter, `filler`.
template <class T>
void RecordArray(orvalix::RecordWriter& record, const char* name, const std::vector<T>& storage,
                 std::int64_t count, const T& filler = T{}) {
  if (count <= static_cast<std::int64_t>(storage.size())) {
    record.Array(name, storage, count);
    return;
  }
  std::vector<T> padded(storage);
  padded.resize(static_cast<std::size_t>(count), filler);
  record.Array(name, padded, count);
}

template <class T>
void RecordArray(orvalix::RecordReader& record, const char* name, std::vector<T>& storage,
                 std::int64_t count, const T& = T{}) {
  record.Array(name, storage, count);
}

/// A field whose value in the file is `stored` instead of what the object holds.
template <class Record, class Field>
void RecordAs(Record& record, const char* name, Field& field, int stored) {
  if constexpr (Record::kReading) {
    record.Field(name, field);
  } else {
    record.Field(name, stored);
  }
}

}  // namespace

std::vector<double> CChartObj3D::Shape() const {
  orvalix::RecordShape shape(nSelfID);
  RecordAttributes(shape, *this);
  // As they are: a record holds what there are elements for.
  for (const int count : {m_numDataPnts, m_numGroups, m_numContours}) {
    shape.numbers.push_back(count);
  }
  m_transform->AppendShape(shape.numbers);
  return std::move(shape.numbers);
}

int CChartObj3D::PointsToSave() const {
  if (CountIn(m_points, m_pointCount) != 0) return CountIn(m_points, m_numDataPnts);
  // Whoever reads points expects values for both axes: without the ones or the others there are no
  // points, as none are drawn, and not points at zero.
  if (m_indData.empty()) return 0;
  const bool hasGroups = m_numGroups > 0 && !m_groupData.empty();
  const std::size_t points = hasGroups ? std::max(m_indData.size(), m_groupData.size())
                                       : std::min(m_indData.size(), m_depData.size());
  return std::clamp(m_numDataPnts, 0, static_cast<int>(std::min(points, std::size_t{INT_MAX})));
}

int CChartObj3D::GroupsToSave() const {
  const auto points = static_cast<std::size_t>(PointsToSave());
  const bool hasGroupData = points != 0 && CountIn(m_points, m_pointCount) == 0;
  if (!hasGroupData) return m_numGroups;
  const std::size_t held = (m_groupData.size() + points - 1) / points;
  return std::clamp(m_numGroups, 0, static_cast<int>(std::min(held, std::size_t{INT_MAX})));
}

int CChartObj3D::ContoursToSave() const {
  return m_polysurface.has_value() ? CountIn(m_indData, m_numContours) : m_numContours;
}

template <class Record, class Self>
void CChartObj3D::RecordFields(Record& record, Self& self) {
  RecordAttributes(record, self);
  RecordArrays(record, self);
}

template <class Record, class Self>
void CChartObj3D::RecordAttributes(Record& record, Self& self) {
  record.Field("counter", nSelfID);
  record.Field("transform id", self.m_ownerID);
  record.Field("constant value", self.m_constValue);
  record.Field("base value", self.m_baseValue);
  record.Field("relative size", self.m_relSize);
  record.Field("constant width", self.m_constWidth);
  record.Field("independent width", self.m_indWidth);
  record.Field("fill gap", self.m_fillGap);
  record.Field("plane thickness", self.m_planeThickness);
  record.Field("outline width", self.m_outlineWidth);
  record.Field("fill colour", self.m_fillColor);
  record.Field("outline colour", self.m_outlineColor);
  record.Field("open-high-low-close line colour", self.m_ohlcLineColor);
  record.Field("symbol", self.m_symbol);
  record.Field("symbol 2", self.m_symbol2);
  RecordAs(record, "number of points", self.m_numDataPnts, self.PointsToSave());
  RecordAs(record, "number of dependent values 2", self.m_dep2Count,
           CountIn(self.m_depData2, self.m_dep2Count));
  RecordAs(record, "number of bar heights", self.m_barHeightsCount,
           CountIn(self.m_barHeights, self.m_barHeightsCount));
  RecordAs(record, "number of points in space", self.m_pointCount,
           CountIn(self.m_points, self.m_pointCount));
  RecordAs(record, "number of group colours", self.m_groupColorsCount,
           CountIn(self.m_groupColors, self.m_groupColorsCount));
  RecordAs(record, "number of segment colours", self.m_segmentColorsCount,
           CountIn(self.m_segmentColors, self.m_segmentColorsCount));
  RecordAs(record, "number of texts", self.m_stringsCount,
           CountIn(self.m_strings, self.m_stringsCount));
  RecordAs(record, "surface flag", self.m_polysurfaceFlag, self.m_polysurface.has_value() ? 1 : 0);
  RecordAs(record, "number of groups", self.m_numGroups, self.GroupsToSave());
  record.Field("line width", self.m_lineWidth);
  record.Field("line style", self.m_lineStyle);
  record.Field("independent justification", self.m_indJustify);
  record.Field("dependent justification", self.m_depJustify);
  record.Field("constant justification", self.m_constJustify);
  record.Field("independent axis", self.m_indAxis);
  record.Field("projection plane", self.m_projectionPlane);
  record.Field("text plane", self.m_textPlane);
  record.Field("group type", self.m_groupType);
  record.Field("chart type", self.m_chartType);
  record.Field("segment colour mode", self.m_segmentColorMode);
  RecordAs(record, "number of contours", self.m_numContours, self.ContoursToSave());
  record.Field("contour label flag", self.m_contourLabelFlag);
  record.Field("colour mode", self.m_colorMode);
  record.Field("clipping", self.m_clipping);
  record.Field("outline mode", self.m_outlineMode);
  record.Fields("composite flags", self.m_comboChartFlags);
  record.Field("enable", self.m_enable);
}

template <class Record, class Self>
void CChartObj3D::RecordArrays(Record& record, Self& self) {
  const std::int64_t points = Record::kReading ? self.m_numDataPnts : self.PointsToSave();
  const std::int64_t pointCount = StoredCount<Record>(self.m_points, self.m_pointCount);
  if (pointCount != 0) {
    // Kept: nothing but its points of a three-dimensional type is stored, not even bar heights;
    // stored charts have no room for them.
    RecordArray(record, "points", self.m_points, points);
  } else {
    RecordScalarArrays(record, self, points);
  }
  if (self.m_groupColorsCount != 0) {
    RecordArray(record, "group colours", self.m_groupColors,
                StoredCount<Record>(self.m_groupColors, self.m_groupColorsCount));
  }
  if (self.m_segmentColorsCount != 0) {
    RecordArray(record, "segment colours", self.m_segmentColors,
                StoredCount<Record>(self.m_segmentColors, self.m_segmentColorsCount));
    if constexpr (Record::kReading) {
      if (!record.HasEnded()) self.m_segmentColorMode = 1;
    }
  }
  RecordSurface(record, self);
  RecordArray(record, "texts", self.m_strings,
              StoredCount<Record>(self.m_strings, self.m_stringsCount));
}

template <class Record, class Self>
void CChartObj3D::RecordScalarArrays(Record& record, Self& self, std::int64_t points) {
  const std::int64_t groups = Record::kReading ? self.m_numGroups : self.GroupsToSave();
  if (points != 0) {
    RecordArray(record, "independent values", self.m_indData, points);
    if (groups == 0) RecordArray(record, "dependent values", self.m_depData, points);
    if (groups != 0) RecordArray(record, "group values", self.m_groupData, groups * points);
  }
  if (self.m_dep2Count != 0) {
    RecordArray(record, "dependent values 2", self.m_depData2,
                StoredCount<Record>(self.m_depData2, self.m_dep2Count));
  }
  if (self.m_barHeightsCount != 0) {
    RecordArray(record, "bar heights", self.m_barHeights,
                StoredCount<Record>(self.m_barHeights, self.m_barHeightsCount));
  }
}

template <class Record, class Self>
void CChartObj3D::RecordSurface(Record& record, Self& self) {
  if constexpr (Record::kReading) {
    if (record.HasEnded()) return;
    self.m_polysurface.reset();
    if (self.m_polysurfaceFlag != 0) self.m_polysurface.emplace();
  }
  if (!self.m_polysurface.has_value()) return;
  record.Child(*self.m_polysurface);
  const std::int64_t contours = Record::kReading ? self.m_numContours : self.ContoursToSave();
  if (contours == 0) return;
  RecordArray(record, "contour values", self.m_indData, contours);
  // Contours without a colour are drawn in that of the outlines.
  RecordArray(record, "contour colours", self.m_segmentColors, contours + 1, self.m_outlineColor);
  // Kept: the values took the place of a series' points, of which there are none then.
  if constexpr (Record::kReading) self.m_numDataPnts = 0;
}

void CChartObj3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_CHARTOBJ3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CChartObj3D::Load(void* file) {
  m_kept.Forget();
  orvalix::LoadRecord(file, ERR3DCLASS_CHARTOBJ3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
