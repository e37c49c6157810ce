#include <gtest/gtest.h>

#include <array>
#include <cstddef>

#include "orvalix/foundation/colors.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"
#include "support/caught_error.h"
#include "support/feedback.h"
#include "support/offscreen.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

const std::array<double, 3> kPlaces{1, 4, 7};
const std::array<double, 3> kHeights{5, 8, 3};

/// Series with some of their arrays missing, and what they draw before and after a stay in a file.
class MissingArraysRecord : public ::testing::Test {
 protected:
  MissingArraysRecord() : transform(target.gl.get(), {0, 0, 0, 0}, {10, 10, 10, 0}) {
    bars.InitChartObj3D(target.gl.get(), &transform);
    bars.BarChart25D(kPlaces.data(), kHeights.data(), 0.0, 4.0, 3, 2.0, 3.0, SetRGBD(1, 0, 0, 1),
                     SetRGBD(0, 0, 1, 1), 0, 0, 0);
    bars.SetOutlineMode(0);
  }

  std::size_t FacesOf(CChartObj3D& object) {
    return CaptureFeedback([&] { object.DrawChartObj(); }).size();
  }

  /// Expects the series to draw so many faces, now and after saving and loading.
  CChartObj3D ExpectFacesToStay(std::size_t faces) {
    EXPECT_EQ(FacesOf(bars), faces);
    CChartObj3D loaded;
    const Bytes record = Saved(bars);
    EXPECT_EQ(Catch([&] { LoadFrom(loaded, record); }), kNoError);
    EXPECT_EQ(Saved(loaded), record);
    loaded.InitChartObj3D(target.gl.get(), &transform);
    EXPECT_EQ(FacesOf(loaded), faces);
    return loaded;
  }

  Offscreen target;
  CTransform3D transform;
  CChartObj3D bars;
};

TEST_F(MissingArraysRecord, AWholeSeriesComesBackWhole) {
  const CChartObj3D loaded = ExpectFacesToStay(18);
  EXPECT_EQ(loaded.GetNumDataPnts(), 3);
  EXPECT_EQ(loaded.GetIndData(2), 7.0);
  EXPECT_EQ(loaded.GetDepData(2), 3.0);
}

TEST_F(MissingArraysRecord, ASeriesWithoutDependentValuesComesBackWithoutAny) {
  bars.DeleteDepDataStorage();
  CChartObj3D loaded = ExpectFacesToStay(0);
  // Neither are there values that only wait for points.
  loaded.SetNumDataPnts(3);
  EXPECT_EQ(FacesOf(loaded), 0U);
}

TEST_F(MissingArraysRecord, ASeriesWithoutIndependentValuesComesBackWithoutAny) {
  bars.DeleteIndDataStorage();
  CChartObj3D loaded = ExpectFacesToStay(0);
  loaded.SetNumDataPnts(3);
  EXPECT_EQ(FacesOf(loaded), 0U);
}

TEST_F(MissingArraysRecord, IndependentValuesAloneAreNoPoints) {
  CChartObj3D fresh;
  // Both of its arrays go to the independent values; the others are those of further charts.
  fresh.SetDataStorage25D(kPlaces.data(), kHeights.data(), kHeights.data(), 3);
  CChartObj3D loaded;
  LoadFrom(loaded, Saved(fresh));
  EXPECT_EQ(loaded.GetNumDataPnts(), 0);
  loaded.SetNumDataPnts(3);
  EXPECT_EQ(loaded.GetIndData(0), 0.0);
  EXPECT_EQ(loaded.GetDepData2(2, 0.0), 3.0);
  EXPECT_EQ(loaded.GetBarHeight(2), 3.0);
}

TEST_F(MissingArraysRecord, OnlyPointsWithBothValuesAreStored) {
  bars.SetNumDataPnts(2);
  bars.InitDepDataStorage(kHeights.data());  // two of them, beside three independent ones
  bars.SetNumDataPnts(3);
  CChartObj3D loaded = ExpectFacesToStay(12);
  EXPECT_EQ(loaded.GetNumDataPnts(), 2);
  EXPECT_EQ(loaded.GetDepData(1), 8.0);
}

TEST_F(MissingArraysRecord, GroupsKeepTheirRows) {
  const std::array<double, 6> groups{1, 2, 3, 4, 5, 6};
  CChartObj3D object;
  object.SetNumDataPnts(2);
  object.InitIndDataStorage(kPlaces.data());
  object.SetNumDataPnts(3);  // rows of three, though there are two independent values
  object.SetNumGroups(2);
  object.InitGroupDataStorage(groups.data());
  CChartObj3D loaded;
  LoadFrom(loaded, Saved(object));
  EXPECT_EQ(loaded.GetNumDataPnts(), 3);
  EXPECT_EQ(loaded.GetGroupData(1, 0), 4.0);
  EXPECT_EQ(loaded.GetGroupData(1, 2), 6.0);

  object.DeleteIndDataStorage();
  CChartObj3D unplaced;
  LoadFrom(unplaced, Saved(object));
  EXPECT_EQ(unplaced.GetNumDataPnts(), 0);
  EXPECT_EQ(unplaced.GetGroupData(0, 0), 0.0);
}

}  // namespace
