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
  record.Field(nSelfID);
  record.Field(self.m_transformID);
  record.Field(entries);
  record.Field(self.m_orientation);
  record.Field(self.m_contourDecimals);
  record.Field(contours);
  RecordLayout(record, self);
  RecordContours(record, self, contours);
  int stored = Record::kReading ? 0 : self.m_entries.Count();
  record.Count(stored, kLeastEntryBytes);
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
    if (contours != 0) record.Array(values, contours);
    if (contours != 0) record.Array(colors, bands);
    if (record.HasEnded()) return;
    self.m_contourValues.swap(values);
    self.m_contourColors.swap(colors);
  } else if (contours != 0) {
    record.Array(self.m_contourValues, contours);
    record.Array(self.m_contourColors, bands);
  }
}

template <class Record, class Self>
void CLegend3D::RecordLayout(Record& record, Self& self) {
  record.Field(self.m_colorMode);
  record.Field(self.m_rows);
  record.Field(self.m_columns);
  record.Field(self.m_contourTextColorFlag);
  record.Field(self.m_enable);
  record.Field(self.m_borderEnable);
  record.Field(self.m_viewAspect);
  record.Field(self.m_viewportAspect);
  record.Field(self.m_fontHeightSF);
  record.Field(self.m_fontSize);
  record.Field(self.m_rowStep);
  record.Field(self.m_columnStep);
  record.Field(self.m_topMargin);
  record.Field(self.m_leftMargin);
  record.Field(self.m_borderThickness);
  // Kept: the depth before the space; stored legends have this order.
  record.Field(self.m_yLocation);
  record.Field(self.m_symbolTextSpace);
  record.Field(self.m_contourTextColor);
  record.Field(self.m_bkColor);
  record.Field(self.m_borderColor);
  record.Field(self.m_position);
  record.Field(self.m_viewport);
  record.Field(self.m_upperText);
  record.Field(self.m_lowerText);
}

void CLegend3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_LEGEND3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CLegend3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_LEGEND3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
