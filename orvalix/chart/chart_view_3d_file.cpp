#include "orvalix/chart/chart_3d.h"
#include "orvalix/chart/chart_view_3d.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/chart/legend_3d.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/foundation/write_file_internal.h"
#include "orvalix/render/dib_section.h"
#include "orvalix/render/open_gl.h"

namespace {

/// The fewest bytes that the record of a chart or legend takes: what a count of them is held
/// against.
constexpr std::size_t kLeastChartBytes = 8000;
constexpr std::size_t kLeastLegendBytes = 700;

}  // namespace

template <class Record, class Self>
void CChartView3D::RecordFields(Record& record, Self& self) {
  record.Field("font weight", self.m_fontWeight);
  record.Field("font characters", self.m_fontCharacters);
  record.Field("font italics", self.m_fontItalics);
  record.Field("font underline", self.m_fontUnderline);
  record.Field("font name", self.m_fontName);
  record.Field("background colour", self.m_viewBkColor);
  record.Field("background mode", self.m_viewBkMode);
  record.Field("border thickness", self.m_borderThickness);
  record.Field("border colour", self.m_borderColor);
  record.Field("border enable", self.m_borderEnable);
  int charts = Record::kReading ? 0 : self.m_charts.Count();
  record.Count("number of charts", charts, kLeastChartBytes);
  if constexpr (Record::kReading) {
    for (int i = 0; i < charts; ++i) record.Child(*self.NewChart3D());
  } else {
    for (CChart3D* chart : self.m_charts) record.Child(*chart);
  }
  int legends = Record::kReading ? 0 : self.m_legends.Count();
  record.Count("number of legends", legends, kLeastLegendBytes);
  if constexpr (Record::kReading) {
    for (int i = 0; i < legends; ++i) record.Child(*self.NewLegend3D());
  } else {
    for (CLegend3D* legend : self.m_legends) record.Child(*legend);
  }
  if constexpr (Record::kReading) {
    if (!self.m_header) self.m_header = std::make_unique<CHeader3D>();
  }
  if (self.m_header) {
    record.Child(*self.m_header);
  } else {
    CHeader3D withoutTitles;
    record.Child(withoutTitles);
  }
}

void CChartView3D::Save(const CString& name) const {
  orvalix::WriteWholeFile(name, ERR3DCLASS_CHARTVIEW3D, "Save", [this](CFile& file) {
    orvalix::SaveRecord(file.m_hFile, ERR3DCLASS_CHARTVIEW3D,
                        [this](auto& record) { RecordFields(record, *this); });
  });
}

void CChartView3D::Load(const CString& name) {
  CFile file;
  if (!file.Open(name, CFile::modeRead)) {
    orvalix::ThrowError(ERR3D_FILE_OPEN_INPUT, ERR3DCLASS_CHARTVIEW3D, "Load");
  }
  DeleteChartViewObjects();
  m_fontChanged = true;
  orvalix::LoadRecord(file.m_hFile, ERR3DCLASS_CHARTVIEW3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
