#include <cstddef>
#include <cstdint>

#include "orvalix/chart/legend_3d.h"
#include "orvalix/chart/legend_obj_3d.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"

namespace {

/// The fewest bytes that an entry's record takes: what a count of entries is held against.
constexpr std::size_t kLeastEntryBytes = 320;

}  // namespace

template <class Record, class Self>
void CLegend3D::RecordFields(Record& record, Self& self) {
  int entries = self.m_entries.Count();
  auto contours = static_cast<int>(self.m_contourValues.size());
  record.Field("counter", nSelfID);
  record.Field("transform id", self.m_transformID);
  record.Field("entry count", entries);
  record.Field("orientation", self.m_orientation);
  record.Field("contour decimals", self.m_contourDecimals);
  record.Field("number of contours", contours);
  RecordLayout(record, self);
  RecordContours(record, self, contours);
  int stored = Record::kReading ? 0 : self.m_entries.Count();
  record.Count("number of entries", stored, kLeastEntryBytes);
  if constexpr (Record::kReading) {
    for (int i = 0; i < stored; ++i) record.Child(*self.NewLegendObj());
  } else {
    for (const CLegendObj3D* entry : self.m_entries) record.Child(*entry);
  }
  record.Child(*self.m_title1);
  record.Child(*self.m_title2);
  record.Child(*self.m_footer);
}

template <class Record, class Self>
void CLegend3D::RecordContours(Record& record, Self& self, int contours) {
  const std::int64_t bands = std::int64_t{contours} + 1;
  if constexpr (Record::kReading) {
    // Aside, so that a file that ends between the two leaves values with their colours.
    std::vector<double> values;
    std::vector<RGBDType> colors;
    if (contours != 0) record.Array("contour values", values, contours);
    if (contours != 0) record.Array("contour colours", colors, bands);
    if (record.HasEnded()) return;
    self.m_contourValues.swap(values);
    self.m_contourColors.swap(colors);
  } else if (contours != 0) {
    record.Array("contour values", self.m_contourValues, contours);
    record.Array("contour colours", self.m_contourColors, bands);
  }
}

template <class Record, class Self>
void CLegend3D::RecordLayout(Record& record, Self& self) {
  record.Field("colour mode", self.m_colorMode);
  record.Field("rows", self.m_rows);
  record.Field("columns", self.m_columns);
  record.Field("contour text colour flag", self.m_contourTextColorFlag);
  record.Field("enable", self.m_enable);
  record.Field("border enable", self.m_borderEnable);
  record.Field("view aspect", self.m_viewAspect);
  record.Field("viewport aspect", self.m_viewportAspect);
  record.Field("font height scale factor", self.m_fontHeightSF);
  record.Field("font size", self.m_fontSize);
  record.Field("row step", self.m_rowStep);
  record.Field("column step", self.m_columnStep);
  record.Field("top margin", self.m_topMargin);
  record.Field("left margin", self.m_leftMargin);
  record.Field("border thickness", self.m_borderThickness);
  // Kept: the depth before the space; stored legends have this order.
  record.Field("y location", self.m_yLocation);
  record.Field("symbol text space", self.m_symbolTextSpace);
  record.Field("contour text colour", self.m_contourTextColor);
  record.Field("background colour", self.m_bkColor);
  record.Field("border colour", self.m_borderColor);
  record.Field("position", self.m_position);
  record.Field("viewport", self.m_viewport);
  record.Field("upper contour text", self.m_upperText);
  record.Field("lower contour text", self.m_lowerText);
}

void CLegend3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_LEGEND3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CLegend3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_LEGEND3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
