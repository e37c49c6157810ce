#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "chart/full_view.h"
#include "support/caught_error.h"
#include "support/record_fields.h"

namespace {

using namespace orvalix::test;
using ::testing::UnorderedElementsAre;

constexpr std::size_t kLargestFile = 40000;

/// The whole bitmap of a view, as drawn last.
Bytes Picture(const CChartView3D& view) {
  const CDIBSection& dib = *view.GetDIBSection();
  const auto* bits = static_cast<const unsigned char*>(dib.FindDIBBits());
  return {bits, bits + static_cast<std::ptrdiff_t>(dib.StorageWidth()) * 80};
}

class ChartFileRoundTrip : public ::testing::Test {
 protected:
  ChartFileRoundTrip() : second(160, 80), third(160, 80) {}

  /// Loads a file into a view and saves it again.
  static Bytes Again(ViewOn& target, const Bytes& file) {
    LoadFile(*target.view, file);
    return SavedFile(*target.view);
  }

  static std::vector<RecordField> Fields(const Bytes& file) {
    ViewOn reader(160, 80);
    return FieldsReadBy([&] { LoadFile(*reader.view, file); });
  }

  FullView full;
  ViewOn second;
  ViewOn third;
};

TEST_F(ChartFileRoundTrip, TheFixtureHoldsEveryRecordAndEveryArray) {
  const Bytes file = SavedFile(*full.view);
  EXPECT_LT(file.size(), kLargestFile);
  FieldNames names;
  for (const RecordField& field : Fields(file)) {
    if (field.end > field.begin) names.emplace(field.recordClass, field.name);
  }
  for (const char* name : {"independent values", "dependent values", "group values",
                           "dependent values 2", "bar heights", "points", "group colours",
                           "segment colours", "contour values", "contour colours", "texts"}) {
    EXPECT_TRUE(names.contains({ERR3DCLASS_CHARTOBJ3D, name})) << name;
  }
  for (const char* name : {"contour values", "contour colours", "upper contour text"}) {
    EXPECT_TRUE(names.contains({ERR3DCLASS_LEGEND3D, name})) << name;
  }
  for (const char* name : {"points", "polygons", "indices", "neighbours"}) {
    EXPECT_TRUE(names.contains({ERR3DCLASS_POLYSURFACE, name})) << name;
  }
  EXPECT_TRUE(names.contains({ERR3DCLASS_AXISLABELS3D, "label strings"}));
  EXPECT_TRUE(names.contains({ERR3DCLASS_DIBOBJ3D, "file name"}));
  EXPECT_TRUE(names.contains({ERR3DCLASS_AUXOBJ3D, "type"}));
  EXPECT_TRUE(names.contains({ERR3DCLASS_LEGENDOBJ3D, "symbol"}));
  EXPECT_TRUE(names.contains({ERR3DCLASS_HEADER3D, "counter"}));
  EXPECT_TRUE(names.contains({ERR3DCLASS_TRANSFORM3D, "id"}));
  EXPECT_TRUE(names.contains({ERR3DCLASS_AXIS3D, "start"}));
}

TEST_F(ChartFileRoundTrip, WhatWasLoadedOnceStaysAsItIs) {
  full.view->DrawViewScreen();
  const Bytes secondFile = Again(second, SavedFile(*full.view));
  const Bytes thirdFile = Again(third, secondFile);
  EXPECT_THAT(WithoutCounters(Differences(Fields(secondFile), secondFile, thirdFile)),
              UnorderedElementsAre());
}

TEST_F(ChartFileRoundTrip, LoadingChangesTheFieldsThatAreToldOf) {
  full.view->DrawViewScreen();
  const Bytes file = SavedFile(*full.view);
  const Bytes again = Again(second, file);
  using Name = FieldNames::value_type;
  EXPECT_THAT(
      WithoutCounters(Differences(Fields(file), file, again)),
      UnorderedElementsAre(
          // The heights of the bars in space are lost.
          Name{ERR3DCLASS_CHARTOBJ3D, "number of bar heights"},
          // Loaded meshes are grids of triangles at any distances.
          Name{ERR3DCLASS_POLYSURFACE, "even grid"}, Name{ERR3DCLASS_POLYSURFACE, "grid type"}));
}

TEST_F(ChartFileRoundTrip, ThePictureIsTheSame) {
  full.view->DrawViewScreen();
  const Bytes picture = Picture(*full.view);
  LoadFile(*second.view, SavedFile(*full.view));
  second.view->DrawViewScreen();
  EXPECT_TRUE(Picture(*second.view) == picture);
  // It isn't the same because nothing is drawn.
  ViewOn empty(160, 80);
  empty.view->DrawViewScreen();
  EXPECT_FALSE(Picture(*empty.view) == picture);
}

TEST_F(ChartFileRoundTrip, CountersAreThoseOfTheLastRecordOfTheirClass) {
  Bytes file = SavedFile(*full.view);
  const std::vector<RecordField> fields = Fields(file);
  const auto put = [&](CErr3DClass recordClass, int n, int value) {
    const RecordField& field = FieldAt(fields, recordClass, "counter", n);
    std::memcpy(&file[field.begin], &value, sizeof(value));
  };
  put(ERR3DCLASS_CHART3D, 0, 1234);
  put(ERR3DCLASS_CHART3D, 1, 4321);
  put(ERR3DCLASS_LEGEND3D, 0, 77);
  LoadFile(*second.view, file);
  EXPECT_EQ(CChart3D::nSelfID, 4321);
  EXPECT_EQ(CLegend3D::nSelfID, 77);
}

TEST_F(ChartFileRoundTrip, AfterAFailureTheViewKeepsWhatWasLoadedBefore) {
  Bytes file = SavedFile(*full.view);
  const std::vector<RecordField> fields = Fields(file);
  const int impossible = -1;
  const RecordField& series = FieldAt(fields, ERR3DCLASS_CHART3D, "number of series", 1);
  std::memcpy(&file[series.begin], &impossible, sizeof(impossible));
  for (int i = 0; i < 4; ++i) second.view->NewChart3D();
  second.view->NewLegend3D();
  EXPECT_EQ(Catch([&] { LoadFile(*second.view, file); }), (CaughtError{7, 4, "Load"}));
  ASSERT_EQ(second.view->GetNumCharts(), 2);
  EXPECT_EQ(second.view->GetNumLegends(), 0);
  EXPECT_EQ(second.view->GetChart(0)->GetNumChartObjs(), 3);
  EXPECT_EQ(second.view->GetChart(1)->GetNumTransforms(), 2);
  EXPECT_EQ(second.view->GetChart(1)->GetNumChartObjs(), 0);
  second.view->DrawViewScreen();
  EXPECT_GT(SavedFile(*second.view).size(), 20000U);  // two charts
}

}  // namespace
