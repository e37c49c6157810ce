#include <algorithm>
#include <cstddef>

#include "orvalix/axes/axes_3d.h"
#include "orvalix/chart/chart_3d.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/render/aux_obj_3d.h"
#include "orvalix/render/dib_obj_3d.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

namespace {

/// The fewest bytes that the record of a child takes: what a count of them is held against before
/// any is made.
constexpr std::size_t kTransformBytes = 660;
constexpr std::size_t kLeastAxesBytes = 1000;
constexpr std::size_t kLeastTextBytes = 140;
constexpr std::size_t kLeastChartObjBytes = 300;
constexpr std::size_t kAuxObjBytes = 188;
constexpr std::size_t kLeastDIBObjBytes = 216;

/// A count, then the record of each object. On reading, `make(chart)` makes the next object, and
/// `bind(chart, object)` gets it once it has been read.
template <class Record, class Chart, class T, class Make, class Bind>
void RecordList(Record& record, const char* name, Chart& chart, const orvalix::ObjectList<T>& list,
                std::size_t leastBytes, Make make, Bind bind) {
  int count = Record::kReading ? 0 : list.Count();
  record.Count(name, count, leastBytes);
  if constexpr (Record::kReading) {
    for (int i = 0; i < count; ++i) {
      T* object = make(chart);
      record.Child(*object);
      bind(chart, *object);
    }
  } else {
    for (T* object : list) record.Child(*object);
  }
}

}  // namespace

template <class Record, class Self>
void CChart3D::RecordFields(Record& record, Self& self) {
  record.Field("counter", nSelfID);
  record.Field("view aspect factor", self.m_viewAspectFactor);
  record.Field("chart aspect", self.m_chartAspect);
  record.Field("font height scale factor", self.m_fontHeightSF);
  record.Field("font size", self.m_fontSize);
  record.Field("spare scale", self.m_spareScale);
  record.Field("border thickness", self.m_borderThickness);
  record.Field("border colour", self.m_borderColor);
  record.Field("chart enable", self.m_chartEnable);
  record.Field("border enable", self.m_borderEnable);
  record.Field("viewport", self.m_viewport);
  record.Field("position", self.m_position);
  record.Field("light position", self.m_lightPosition);
  record.Field("ambient light", self.m_ambientLight);
  record.Field("diffuse light", self.m_diffuseLight);
  record.Field("background colour", self.m_chartBkColor);
  record.Fields("texture colours", self.m_textureColors);
  record.Field("texture minimum", self.m_textureMinimum);
  record.Field("texture maximum", self.m_textureMaximum);
  record.Field("texture mode", self.m_textureMode);
  record.Field("number of texture colours", self.m_numTextureColors);
  if constexpr (Record::kReading) {
    // The array is walked up to this number, so a number from a file must fit it.
    self.m_numTextureColors =
        std::clamp(self.m_numTextureColors, 0, static_cast<int>(self.m_textureColors.size()));
  }
  record.Child(*self.m_header);
  RecordList(
      record, "number of transforms", self, self.m_transforms, kTransformBytes,
      [](auto& chart) { return chart.NewTransform(); }, [](auto&, CTransform3D&) {});
  RecordList(
      record, "number of axes frames", self, self.m_axes, kLeastAxesBytes,
      [](auto& chart) { return chart.AppendUnboundAxes(); },
      [](auto& chart, CAxes3D& axes) { chart.BindAxes(axes); });
  RecordList(
      record, "number of texts", self, self.m_chartTexts, kLeastTextBytes,
      [](auto& chart) { return chart.NewChartTextObj(); },
      [](auto& chart, CTextObj3D& text) { chart.BindText(text); });
  RecordList(
      record, "number of series", self, self.m_chartObjs, kLeastChartObjBytes,
      [](auto& chart) { return chart.NewChartObj(); },
      [](auto& chart, CChartObj3D& chartObj) { chart.BindChartObj(chartObj); });
  RecordList(
      record, "number of shapes", self, self.m_auxObjs, kAuxObjBytes,
      [](auto& chart) { return chart.NewAuxObj(); },
      [](auto& chart, CAuxObj3D& auxObj) { chart.BindAuxObj(auxObj); });
  RecordList(
      record, "number of pictures", self, self.m_dibObjs, kLeastDIBObjBytes,
      [](auto& chart) { return chart.NewDIBObj(); },
      [](auto& chart, CDIBObj3D& dibObj) { chart.BindDIBObj(dibObj); });
}

void CChart3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_CHART3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CChart3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_CHART3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
