#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "series/series_fixture.h"
#include "series/setup_routines.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"

namespace {

using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::FailEachAllocation;
using orvalix::test::kNan;
using orvalix::test::kNoError;
using orvalix::test::SetUpArrays;
using orvalix::test::SetUpRoutine;
using orvalix::test::SetUpRoutines;
using orvalix::test::SetUpRoutines25D;
using orvalix::test::SetUpSources;

using Places = std::vector<std::string>;

/// The places of the errors, in order, when each allocation of `work` fails in turn. Every one of
/// them has to be an error of a series that has no memory for an array.
template <class Work>
Places PlacesOfFailures(Work&& work) {
  std::vector<CaughtError> errors;
  errors.reserve(100);
  const int failures = FailEachAllocation([&] {
    CaughtError error = Catch(work);
    if (error != kNoError) errors.push_back(std::move(error));
  });
  EXPECT_EQ(errors.size(), static_cast<std::size_t>(failures)) << "a failure went unnoticed";
  Places places;
  for (const CaughtError& error : errors) {
    EXPECT_EQ(error.type, 2) << error;
    EXPECT_EQ(error.errorClass, 5) << error;
    places.push_back(error.place);
  }
  return places;
}

Places WithoutRepetitions(Places places) {
  places.erase(std::unique(places.begin(), places.end()), places.end());
  return places;
}

TEST(SeriesAllocation, SetUpRoutinesReportTheirStoragesInTurn) {
  const SetUpSources sources;
  const SetUpArrays arrays = sources.Arrays();
  for (const SetUpRoutine& routine : SetUpRoutines()) {
    SCOPED_TRACE(routine.name);
    const Places places = PlacesOfFailures([&] {
      CChartObj3D object;
      routine.setUp(object, arrays, 3);
    });
    EXPECT_EQ(WithoutRepetitions(places), routine.storages);
  }
}

TEST(SeriesAllocation, ASetUpThatFailsCanBeRepeated) {
  const SetUpSources sources;
  const SetUpArrays arrays = sources.Arrays();
  CChartObj3D object;
  for (const SetUpRoutine& routine : SetUpRoutines()) {
    SCOPED_TRACE(routine.name);
    object.SetChartType(CChartObj3D::kNoChart);
    EXPECT_EQ(Catch([&] {
                const orvalix::test::AllocationFailure failure(1);
                routine.setUp(object, arrays, 3);
              }),
              (CaughtError{2, 5, routine.storages.front()}));
    EXPECT_EQ(object.GetChartType(), CChartObj3D::kNoChart);  // it is set last
    EXPECT_EQ(Catch([&] { routine.setUp(object, arrays, 3); }), kNoError);
    EXPECT_EQ(object.GetChartType(), routine.type);
  }
}

/// Series whose points have no place: they need as much memory as others, and nothing that could
/// make OpenGL allocate in their midst reaches it.
class DrawingAllocation : public orvalix::test::SeriesTest {
 protected:
  DrawingAllocation() {
    m_values.fill(kNan);
    m_group.fill(kNan);
    m_colors.fill(red);
    target.gl->SetGathering(0);  // what gathering takes is no part of a series
  }

  /// A series with the given type, three points, and two groups if they are free to choose.
  void SetUp(int type) {
    SetUpArrays arrays{};
    arrays.ind = arrays.dep = arrays.dep2 = m_values.data();
    arrays.group = m_group.data();
    arrays.colors = m_colors.data();
    for (const SetUpRoutine& routine : SetUpRoutines25D()) {
      if (routine.type == type) routine.setUp(series, arrays, 3);
    }
    ASSERT_EQ(series.GetChartType(), type);
    Plain();
  }

  Places PlacesWhenDrawn(int type) {
    SetUp(type);
    EXPECT_TRUE(Drawn().empty());
    return PlacesOfFailures([this] { series.DrawChartObj(); });
  }

 private:
  std::array<double, 3> m_values;
  std::array<double, 18> m_group;
  std::array<RGBDType, 6> m_colors;
};

// A line isn't here: it begins in OpenGL whether its points have places or not.
TEST_F(DrawingAllocation, MostTypesNeedNone) {
  for (const int type : {CChartObj3D::kRibbonChart25D, CChartObj3D::kBarChart25D,
                         CChartObj3D::kAreaRangeChart25D, CChartObj3D::kGroupBarChart25D,
                         CChartObj3D::kFloatingBarChart25D, CChartObj3D::kPlaneChart25D}) {
    EXPECT_EQ(PlacesWhenDrawn(type), Places{}) << type;
  }
}

TEST_F(DrawingAllocation, TheOutlineOfAnArea) {
  EXPECT_EQ(PlacesWhenDrawn(CChartObj3D::kAreaFillChart25D), Places{"DrawAreaFillChart25D"});
}

TEST_F(DrawingAllocation, TheSumsOfGroupAreas) {
  EXPECT_EQ(PlacesWhenDrawn(CChartObj3D::kGroupAreaFillChart25D),
            Places{"DrawGroupAreaFillChart25D"});
}

TEST_F(DrawingAllocation, TheSumsAndTheRibbonsOfGroups) {
  EXPECT_EQ(PlacesWhenDrawn(CChartObj3D::kGroupRibbonChart25D),
            (Places{"DrawGroupRibbonChart25D", "InitIndDataStorage", "InitDepDataStorage",
                    "InitIndDataStorage", "InitDepDataStorage"}));
}

TEST_F(DrawingAllocation, ThePartsOfAMarket) {
  EXPECT_EQ(PlacesWhenDrawn(CChartObj3D::kOHLCChart25D),
            (Places{"DrawOHLCChart25D", "Init3DPointStorage",     // open
                    "InitIndDataStorage", "InitDepDataStorage",   // high
                    "InitIndDataStorage", "InitDepDataStorage",   // low
                    "DrawOHLCChart25D", "Init3DPointStorage"}));  // close
}

TEST_F(DrawingAllocation, ThePartsOfABox) {
  EXPECT_EQ(
      PlacesWhenDrawn(CChartObj3D::kBoxAndWhiskerChart25D),
      (Places{"DrawBoxAndWhiskerChart25D",                                          // heights
              "DrawBoxAndWhiskerChart25D", "Init3DPointStorage",                    // symbols
              "InitIndDataStorage", "InitDepDataStorage",                           // lower end
              "InitIndDataStorage", "InitDepDataStorage", "InitBarHeightsStorage",  // lower box
              "InitIndDataStorage", "InitDepDataStorage", "InitBarHeightsStorage",  // upper box
              "InitIndDataStorage", "InitDepDataStorage"}));                        // upper end
}

TEST_F(DrawingAllocation, GatheringWithoutMemoryDrawsOneByOne) {
  target.gl->SetGathering(1);
  SetUp(CChartObj3D::kBoxAndWhiskerChart25D);
  int withoutError = 0;
  const int failures = FailEachAllocation([&] {
    const CaughtError error = Catch([&] {
      CChartObj3D fresh = series;  // keeps nothing of its drawing
      fresh.DrawChartObj();
    });
    if (error == kNoError) ++withoutError;
    EXPECT_TRUE(error == kNoError || error.type == 2) << error;
  });
  EXPECT_GT(withoutError, 1);  // the last run, and those without memory for what is kept
  EXPECT_GT(failures, withoutError - 1);
}

TEST_F(DrawingAllocation, AfterAFailureTheSeriesIsDrawnAsBefore) {
  const std::array<double, 2> ind{1, 4};
  const std::array<double, 2> dep{5, 8};
  series.AreaFillChart25D(ind.data(), dep.data(), 2, 4, 2, 3, red, blue, 0, 0);
  Plain();
  const auto drawn = Drawn();
  EXPECT_EQ(Catch([&] {
              const orvalix::test::AllocationFailure failure(1);
              series.DrawChartObj();
            }),
            (CaughtError{2, 5, "DrawAreaFillChart25D"}));
  ExpectSame(Drawn(), drawn);
}

}  // namespace
