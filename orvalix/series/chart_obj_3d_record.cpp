#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>

#include "orvalix/foundation/save_record_internal.h"
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
void RecordArray(orvalix::RecordWriter& record, const std::vector<T>& storage, std::int64_t count,
                 const T& filler = T{}) {
  if (count <= static_cast<std::int64_t>(storage.size())) {
    record.Array(storage, count);
    return;
  }
  std::vector<T> padded(storage);
  padded.resize(static_cast<std::size_t>(count), filler);
  record.Array(padded, count);
}

template <class T>
void RecordArray(orvalix::RecordReader& record, std::vector<T>& storage, std::int64_t count,
                 const T& = T{}) {
  record.Array(storage, count);
}

/// A field whose value in the file is `stored` instead of what the object holds.
template <class Record, class Field>
void RecordAs(Record& record, Field& field, int stored) {
  if constexpr (Record::kReading) {
    record.Field(field);
  } else {
    record.Field(stored);
  }
}

}  // namespace

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
  record.Field(nSelfID);
  record.Field(self.m_ownerID);
  record.Field(self.m_constValue);
  record.Field(self.m_baseValue);
  record.Field(self.m_relSize);
  record.Field(self.m_constWidth);
  record.Field(self.m_indWidth);
  record.Field(self.m_fillGap);
  record.Field(self.m_planeThickness);
  record.Field(self.m_outlineWidth);
  record.Field(self.m_fillColor);
  record.Field(self.m_outlineColor);
  record.Field(self.m_ohlcLineColor);
  record.Field(self.m_symbol);
  record.Field(self.m_symbol2);
  RecordAs(record, self.m_numDataPnts, self.PointsToSave());
  RecordAs(record, self.m_dep2Count, CountIn(self.m_depData2, self.m_dep2Count));
  RecordAs(record, self.m_barHeightsCount, CountIn(self.m_barHeights, self.m_barHeightsCount));
  RecordAs(record, self.m_pointCount, CountIn(self.m_points, self.m_pointCount));
  RecordAs(record, self.m_groupColorsCount, CountIn(self.m_groupColors, self.m_groupColorsCount));
  RecordAs(record, self.m_segmentColorsCount,
           CountIn(self.m_segmentColors, self.m_segmentColorsCount));
  RecordAs(record, self.m_stringsCount, CountIn(self.m_strings, self.m_stringsCount));
  RecordAs(record, self.m_polysurfaceFlag, self.m_polysurface.has_value() ? 1 : 0);
  RecordAs(record, self.m_numGroups, self.GroupsToSave());
  record.Field(self.m_lineWidth);
  record.Field(self.m_lineStyle);
  record.Field(self.m_indJustify);
  record.Field(self.m_depJustify);
  record.Field(self.m_constJustify);
  record.Field(self.m_indAxis);
  record.Field(self.m_projectionPlane);
  record.Field(self.m_textPlane);
  record.Field(self.m_groupType);
  record.Field(self.m_chartType);
  record.Field(self.m_segmentColorMode);
  RecordAs(record, self.m_numContours, self.ContoursToSave());
  record.Field(self.m_contourLabelFlag);
  record.Field(self.m_colorMode);
  record.Field(self.m_clipping);
  record.Field(self.m_outlineMode);
  record.Fields(self.m_comboChartFlags);
  record.Field(self.m_enable);
}

template <class Record, class Self>
void CChartObj3D::RecordArrays(Record& record, Self& self) {
  const std::int64_t points = Record::kReading ? self.m_numDataPnts : self.PointsToSave();
  const std::int64_t pointCount = StoredCount<Record>(self.m_points, self.m_pointCount);
  if (pointCount != 0) {
    // Kept: nothing but its points of a three-dimensional type is stored, not even bar heights;
    // stored charts have no room for them.
    RecordArray(record, self.m_points, points);
  } else {
    RecordScalarArrays(record, self, points);
  }
  if (self.m_groupColorsCount != 0) {
    RecordArray(record, self.m_groupColors,
                StoredCount<Record>(self.m_groupColors, self.m_groupColorsCount));
  }
  if (self.m_segmentColorsCount != 0) {
    RecordArray(record, self.m_segmentColors,
                StoredCount<Record>(self.m_segmentColors, self.m_segmentColorsCount));
    if constexpr (Record::kReading) {
      if (!record.HasEnded()) self.m_segmentColorMode = 1;
    }
  }
  RecordSurface(record, self);
  RecordArray(record, self.m_strings, StoredCount<Record>(self.m_strings, self.m_stringsCount));
}

template <class Record, class Self>
void CChartObj3D::RecordScalarArrays(Record& record, Self& self, std::int64_t points) {
  const std::int64_t groups = Record::kReading ? self.m_numGroups : self.GroupsToSave();
  if (points != 0) {
    RecordArray(record, self.m_indData, points);
    if (groups == 0) RecordArray(record, self.m_depData, points);
    if (groups != 0) RecordArray(record, self.m_groupData, groups * points);
  }
  if (self.m_dep2Count != 0) {
    RecordArray(record, self.m_depData2, StoredCount<Record>(self.m_depData2, self.m_dep2Count));
  }
  if (self.m_barHeightsCount != 0) {
    RecordArray(record, self.m_barHeights,
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
  RecordArray(record, self.m_indData, contours);
  // Contours without a colour are drawn in that of the outlines.
  RecordArray(record, self.m_segmentColors, contours + 1, self.m_outlineColor);
  // Kept: the values took the place of a series' points, of which there are none then.
  if constexpr (Record::kReading) self.m_numDataPnts = 0;
}

void CChartObj3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_CHARTOBJ3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CChartObj3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_CHARTOBJ3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
