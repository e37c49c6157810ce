#include "orvalix/axes/axis_labels_3d.h"
#include "orvalix/axes/directions_internal.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/render/text_obj_3d.h"

template <class Record, class Self>
void CAxisLabels3D::RecordFields(Record& record, Self& self) {
  record.Field(nSelfID);
  record.Field(self.m_transformID);
  record.Field(self.m_axisIndex);
  record.Field(self.m_labelsPlane);
  record.Field(self.m_labelsDir);
  record.Field(self.m_labelsRotation);
  record.Field(self.m_labelsDecimals);
  record.Field(self.m_labelsFormat);
  record.Field(self.m_labelsEnds);
  record.Field(self.m_labelsXJust);
  record.Field(self.m_labelsYJust);
  int strings = self.GetNumAxisLabelsStrings();
  record.Field(strings);
  record.Field(self.m_labelsFlipX);
  record.Field(self.m_labelsFlipY);
  record.Field(self.m_titleFlipX);
  record.Field(self.m_titleFlipY);
  record.Field(self.m_titlePlane);
  record.Field(self.m_titleDir);
  record.Field(self.m_titleRotation);
  record.Field(self.m_titleXJust);
  record.Field(self.m_titleYJust);
  record.Field(self.m_titleAutomatic);
  record.Field(self.m_ticOffset);
  record.Field(self.m_labelsSize);
  record.Field(self.m_titleSize);
  for (auto& planes : self.m_justification) {
    for (auto& codes : planes) record.Fields(codes);
  }
  record.Field(self.m_labelsSet);
  record.Field(self.m_reserved);
  record.Field(self.m_labelStringsEnable);
  record.Field(self.m_labelsColor);
  record.Field(self.m_titleColor);
  record.Array(self.m_ticStrings, strings);
  record.Child(*self.m_title);
  if constexpr (Record::kReading) self.m_axisIndex = orvalix::ValidAxis(self.m_axisIndex);
}

void CAxisLabels3D::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_AXISLABELS3D,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CAxisLabels3D::Load(void* file) {
  orvalix::LoadRecord(file, ERR3DCLASS_AXISLABELS3D,
                      [this](auto& record) { RecordFields(record, *this); });
}
