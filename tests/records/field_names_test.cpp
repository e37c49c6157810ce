/// The readers tell every field of the fixtures under its name and at its place.

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "orvalix/orvalix.h"
#include "support/record_fixture.h"

namespace {

using orvalix::test::LoadFrom;
using orvalix::test::RecordFixture;
using orvalix::test::TemporaryFile;

struct Field {
  std::string name;
  std::uint64_t begin;
  std::uint64_t end;
};

class FieldList : public CRecordTrace {
 public:
  void BeginRecord(CErr3DClass, std::uint64_t) override {}
  void EndRecord(std::uint64_t) override {}
  void BeginField(const char* name, std::uint64_t offset) override {
    fields.push_back({name, offset, offset});
  }
  void EndField(const std::string&, std::uint64_t offset) override { fields.back().end = offset; }
  void MissField() override { ADD_FAILURE() << fields.back().name; }

  std::vector<Field> fields;
};

struct Kind {
  const char* fixture;
  std::function<void(const RecordFixture&)> load;
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.fixture; }

template <class T>
Kind KindOf(const char* fixture) {
  return {fixture, [](const RecordFixture& record) {
            T object;
            LoadFrom(object, record.AllBytes());
          }};
}

Kind ViewKind() {
  return {"chart_view_3d", [](const RecordFixture& record) {
            const TemporaryFile file(record.AllBytes());
            CChartView3D view;
            view.Load(file.Path());
          }};
}

class FieldNames : public ::testing::TestWithParam<Kind> {};

TEST_P(FieldNames, AreThoseOfTheLines) {
  const RecordFixture record(GetParam().fixture);
  const FieldList told;
  GetParam().load(record);
  auto field = told.fields.begin();
  for (const RecordFixture::Line& line : record.Lines()) {
    while (field != told.fields.end() && field->end <= line.offset) ++field;
    ASSERT_NE(field, told.fields.end()) << line.name << " at byte " << line.offset;
    EXPECT_EQ(field->name, line.name) << "at byte " << line.offset;
    EXPECT_LE(field->begin, line.offset) << line.name;
    EXPECT_GE(field->end, line.offset + line.size) << line.name;
  }
  EXPECT_EQ(told.fields.back().end, record.AllBytes().size());
}

INSTANTIATE_TEST_SUITE_P(
    Fixtures, FieldNames,
    ::testing::Values(
        KindOf<CTransform3D>("transform_3d"), KindOf<CFont3D>("font_3d"),
        KindOf<CTextObj3D>("text_obj_3d"), KindOf<CAuxObj3D>("aux_obj_3d"),
        KindOf<CDIBObj3D>("dib_obj_3d"), KindOf<CAxis3D>("axis_3d"),
        KindOf<CAxisLabels3D>("axis_labels_3d"), KindOf<CAxes3D>("axes_3d"),
        KindOf<CPolysurface>("polysurface"), KindOf<CPolysurface>("polysurface_built"),
        KindOf<CChartObj3D>("chart_obj_3d_values"), KindOf<CChartObj3D>("chart_obj_3d_points"),
        KindOf<CChartObj3D>("chart_obj_3d_groups"),
        KindOf<CChartObj3D>("chart_obj_3d_floating_bars"),
        KindOf<CChartObj3D>("chart_obj_3d_segment_colors"),
        KindOf<CChartObj3D>("chart_obj_3d_texts"), KindOf<CChartObj3D>("chart_obj_3d_contours"),
        KindOf<CHeader3D>("header_3d"), KindOf<CLegendObj3D>("legend_obj_3d"),
        KindOf<CLegend3D>("legend_3d"), KindOf<CChart3D>("chart_3d"), ViewKind()),
    [](const auto& kind) { return std::string(kind.param.fixture); });

}  // namespace
