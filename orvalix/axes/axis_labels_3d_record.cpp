#include "orvalix/axes/axis_labels_3d.h"
#include "orvalix/axes/directions_internal.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/render/text_obj_3d.h"

template <class Record, class Self>
void CAxisLabels3D::RecordFields(Record& record, Self& self) {
  record.Field("counter", nSelfID);
  record.Field("transform id", self.m_transformID);
  record.Field("axis index", self.m_axisIndex);
  record.Field("labels plane", self.m_labelsPlane);
  record.Field("labels direction", self.m_labelsDir);
  record.Field("labels rotation", self.m_labelsRotation);
  record.Field("labels decimals", self.m_labelsDecimals);
  record.Field("labels format", self.m_labelsFormat);
  record.Field("labels ends", self.m_labelsEnds);
  record.Field("labels x justification", self.m_labelsXJust);
  record.Field("labels y justification", self.m_labelsYJust);
  int strings = self.GetNumAxisLabelsStrings();
  record.Field("label strings", strings);
  record.Field("labels flip x", self.m_labelsFlipX);
  record.Field("labels flip y", self.m_labelsFlipY);
  record.Field("title flip x", self.m_titleFlipX);
  record.Field("title flip y", self.m_titleFlipY);
  record.Field("title plane", self.m_titlePlane);
  record.Field("title direction", self.m_titleDir);
  record.Field("title rotation", self.m_titleRotation);
  record.Field("title x justification", self.m_titleXJust);
  record.Field("title y justification", self.m_titleYJust);
  record.Field("title automatic", self.m_titleAutomatic);
  record.Field("tic offset", self.m_ticOffset);
  record.Field("labels size", self.m_labelsSize);
  record.Field("title size", self.m_titleSize);
  for (auto& planes : self.m_justification) {
    for (auto& codes : planes) record.Fields("justification codes", codes);
  }
  record.Field("labels set", self.m_labelsSet);
  record.Field("reserved", self.m_reserved);
  record.Field("label strings enable", self.m_labelStringsEnable);
  record.Field("labels colour", self.m_labelsColor);
  record.Field("title colour", self.m_titleColor);
  record.Array("label strings", self.m_ticStrings, strings);
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
