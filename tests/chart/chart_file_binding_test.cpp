/// Which transform the children of a loaded chart are drawn through.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

#include "chart/full_view.h"
#include "support/record_fields.h"

namespace {

using namespace orvalix::test;
using ::testing::ElementsAre;

const point3Dtype kZero{0.0, 0.0, 0.0, 0.0};
const point3Dtype kTen{10.0, 10.0, 10.0, 0.0};

struct Kind {
  const char* name;
  CErr3DClass recordClass;
  /// Makes a child that shows in the middle of the view.
  void (*make)(CChart3D& chart, CTransform3D* transform);
  /// Id of the first child of that kind.
  int (*id)(const CChart3D& chart);
};

void MakeAxes(CChart3D& chart, CTransform3D* transform) {
  CAxes3D* axes = chart.NewAxes(transform);
  for (int plane = 0; plane < 6; ++plane) {
    axes->SetPlaneColor(plane, SetRGBD(1, 0, 0, 1), SetRGBD(1, 0, 0, 1));
  }
}

void MakeText(CChart3D& chart, CTransform3D* transform) {
  CTextObj3D* text = chart.NewChartTextObj(transform, "MMM");
  text->SetLocation({5.0, 5.0, 5.0, 0.0});
  text->SetCharSize(4.0);
  transform->ChartTransform();  // up to date, as axes and series leave it to texts
}

void MakeSeries(CChart3D& chart, CTransform3D* transform) {
  const std::array<double, 1> place{0.0};
  const std::array<double, 1> height{10.0};
  const RGBDType red = SetRGBD(1, 0, 0, 1);
  chart.NewChartObj(transform)->BarChart25D(place.data(), height.data(), 0.0, 0.0, 1, 10.0, 10.0,
                                            red, red, 0, 0, 0);
}

void MakeShape(CChart3D& chart, CTransform3D* transform) {
  CAuxObj3D* shape = chart.NewAuxObj(transform, CAuxObj3D::kBox);
  shape->SetLocation({5.0, 5.0, 5.0, 0.0});
  shape->SetSizeParameters(16.0, 2.0, 2.0);
  shape->SetColor(SetRGBD(1, 0, 0, 1));
}

void MakePicture(CChart3D& chart, CTransform3D* transform) {
  static const TemporaryFile bitmap(Encode(FourColors()));
  CDIBObj3D* picture = chart.NewDIBObj(transform, bitmap.Path());
  picture->SetPlanePoints({0.0, 0.0, 0.0, 0.0}, {0.0, 0.0, 10.0, 0.0}, {10.0, 0.0, 10.0, 0.0});
}

const std::array<Kind, 5> kKinds{
    {{"Axes", ERR3DCLASS_AXES3D, MakeAxes,
      [](const CChart3D& chart) { return chart.GetAxes(0)->GetTransformID(); }},
     {"Text", ERR3DCLASS_TEXTOBJ3D, MakeText,
      [](const CChart3D& chart) { return chart.GetChartTextObj(0)->GetTransformID(); }},
     {"Series", ERR3DCLASS_CHARTOBJ3D, MakeSeries,
      [](const CChart3D& chart) { return chart.GetChartObj(0)->GetOwnerID(); }},
     {"Shape", ERR3DCLASS_AUXOBJ3D, MakeShape,
      [](const CChart3D& chart) { return chart.GetAuxObj(0)->GetTransformID(); }},
     {"Picture", ERR3DCLASS_DIBOBJ3D, MakePicture,
      [](const CChart3D& chart) { return chart.GetDIBObj(0)->GetTransformID(); }}}};

class ChartFileBinding : public ::testing::TestWithParam<Kind> {
 protected:
  ChartFileBinding() : source(40, 40), loaded(40, 40) {
    source.view->EnableBorder(0);
    chart = source.view->NewChart3D();
    chart->EnableBorder(0);
    // The child is bound to the second of three; the others would show it elsewhere, and turned.
    const point3Dtype far{1000.0, 1000.0, 1000.0, 0.0};
    const point3Dtype further{1010.0, 1010.0, 1010.0, 0.0};
    const point3Dtype turned{0.0, 0.0, 90.0, 0.0};
    chart->NewTransform(far, further)->SetRotate(turned);
    transform = chart->NewTransform(kZero, kTen);
    chart->NewTransform(far, further)->SetRotate(turned);
    GetParam().make(*chart, transform);
    file = SavedFile(*source.view);
    fields = FieldsReadBy([&] { LoadFile(*loaded.view, file); });
  }

  /// Where the id stands that the child is bound by. Chart texts stand behind the titles.
  std::size_t PlaceOfId() const {
    const bool isText = GetParam().recordClass == ERR3DCLASS_TEXTOBJ3D;
    return FieldAt(fields, GetParam().recordClass, "transform id", isText ? 3 : 0).begin;
  }
  static int IntAt(const Bytes& bytes, std::size_t at) {
    int value = 0;
    std::memcpy(&value, bytes.data() + at, sizeof(value));
    return value;
  }
  static void PutInt(Bytes& bytes, std::size_t at, int value) {
    std::memcpy(bytes.data() + at, &value, sizeof(value));
  }
  static int DrawnPixels(ViewOn& target) {
    target.view->DrawViewScreen();
    int drawn = 0;
    for (int y = 0; y < 40; ++y) {
      for (int x = 0; x < 40; ++x) drawn += target.BitmapPixel(x, y) == kWhite ? 0 : 1;
    }
    return drawn;
  }

  ViewOn source;
  ViewOn loaded;
  CChart3D* chart;
  CTransform3D* transform;
  Bytes file;
  std::vector<RecordField> fields;
};

TEST_P(ChartFileBinding, ChildrenGoThroughTheirTransform) {
  const int drawn = DrawnPixels(source);
  EXPECT_GT(drawn, 20);
  EXPECT_EQ(IntAt(file, PlaceOfId()), transform->GetTransformID());
  EXPECT_EQ(GetParam().id(*loaded.view->GetChart(0)), transform->GetTransformID());
  EXPECT_EQ(DrawnPixels(loaded), drawn);
}

TEST_P(ChartFileBinding, IdsMayComeInAnyOrder) {
  const int drawn = DrawnPixels(source);
  const std::array<int, 3> ids{900, -5, 7};
  for (int i = 0; i < 3; ++i) {
    const std::size_t at = FieldAt(fields, ERR3DCLASS_TRANSFORM3D, "id", i).begin;
    PutInt(file, at, ids[static_cast<std::size_t>(i)]);
  }
  PutInt(file, PlaceOfId(), -5);
  LoadFile(*loaded.view, file);
  EXPECT_EQ(DrawnPixels(loaded), drawn);
  PutInt(file, PlaceOfId(), 900);
  LoadFile(*loaded.view, file);
  EXPECT_NE(DrawnPixels(loaded), drawn);
}

TEST_P(ChartFileBinding, TheFirstTransformOfAnIdCounts) {
  const int drawn = DrawnPixels(source);
  const std::size_t last = FieldAt(fields, ERR3DCLASS_TRANSFORM3D, "id", 2).begin;
  PutInt(file, last, transform->GetTransformID());
  LoadFile(*loaded.view, file);
  EXPECT_EQ(DrawnPixels(loaded), drawn);
}

TEST_P(ChartFileBinding, IdsOfNoTransformAreKeptAndDrawNothing) {
  PutInt(file, PlaceOfId(), -77);
  LoadFile(*loaded.view, file);
  CChart3D* again = loaded.view->GetChart(0);
  EXPECT_EQ(again->GetNumTransforms(), 3);
  EXPECT_EQ(GetParam().id(*again), -77);
  EXPECT_EQ(DrawnPixels(loaded), 0);
  const Bytes saved = SavedFile(*loaded.view);
  ASSERT_EQ(saved.size(), file.size());
  EXPECT_EQ(IntAt(saved, PlaceOfId()), -77);
}

INSTANTIATE_TEST_SUITE_P(Every, ChartFileBinding, ::testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST(ChartFileOrder, ChartsLegendsAndChildrenStayInOrder) {
  ViewOn source(40, 40);
  for (const double size : {1.0, 2.0, 3.0}) {
    CChart3D* chart = source.view->NewChart3D();
    chart->SetFontSize(size);
    CTransform3D* transform = chart->NewTransform(kZero, kTen);
    for (const double child : {1.0, 2.0}) {
      chart->NewTransform(kZero, {child, child, child, 0.0});
      chart->NewAxes(transform)->SetAxisLimits(0, 0.0, child);
      chart->NewChartTextObj(transform, "")->SetCharSize(child);
      chart->NewChartObj(transform)->SetRelSize(child);
      chart->NewAuxObj(transform, 1)->SetScaleFactor(child);
      chart->NewDIBObj()->SetRepeatFactors(static_cast<int>(child), 1);
    }
  }
  for (const char* title : {"a", "b", "c"}) source.view->NewLegend3D()->SetTitle1(title);
  ViewOn target(40, 40);
  LoadFile(*target.view, SavedFile(*source.view));
  ASSERT_EQ(target.view->GetNumCharts(), 3);
  ASSERT_EQ(target.view->GetNumLegends(), 3);
  EXPECT_STREQ(target.view->GetLegend(0)->GetTitle1Obj()->GetString(), "a");
  EXPECT_STREQ(target.view->GetLegend(2)->GetTitle1Obj()->GetString(), "c");
  for (int i = 0; i < 3; ++i) {
    const CChart3D& chart = *target.view->GetChart(i);
    EXPECT_EQ(chart.GetFontSize(), i + 1.0);
    ASSERT_EQ(chart.GetNumTransforms(), 3);
    ASSERT_EQ(chart.GetNumAxes(), 2);
    ASSERT_EQ(chart.GetNumChartTextObjs(), 2);
    ASSERT_EQ(chart.GetNumChartObjs(), 2);
    ASSERT_EQ(chart.GetNumAuxObjs(), 2);
    ASSERT_EQ(chart.GetNumDIBObjs(), 2);
    for (int k = 0; k < 2; ++k) {
      const double child = k + 1.0;
      EXPECT_EQ(chart.GetTransform(k + 1)->GetScaleMax().x, child);
      EXPECT_EQ(chart.GetAxes(k)->GetAxisMax(0), child);
      EXPECT_EQ(chart.GetChartTextObj(k)->GetCharSize(), child);
      EXPECT_EQ(chart.GetChartObj(k)->GetRelSize(), child);
      EXPECT_EQ(chart.GetAuxObj(k)->GetScaleFactor(), child);
      EXPECT_EQ(chart.GetDIBObj(k)->GetRepeatFactorX(), k + 1);
    }
  }
}

}  // namespace
