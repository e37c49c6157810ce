#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "series/series_fixture.h"

namespace {

using orvalix::test::kInfinity;
using orvalix::test::kJustifications;
using orvalix::test::kNan;

class PlaneChart25D : public orvalix::test::SeriesTest {
 protected:
  void SetUpPlanes(const std::vector<double>& ind, const std::vector<double>& dep,
                   int indJustify = 0, int constJustify = 0, int indAxis = 0) {
    SetUpWidePlanes(ind, dep, 4.0, 2.0, 3.0, indJustify, constJustify, indAxis);
  }

  void SetUpWidePlanes(const std::vector<double>& ind, const std::vector<double>& dep,
                       double constant, double indWidth, double constWidth, int indJustify = 0,
                       int constJustify = 0, int indAxis = 0) {
    series.PlaneChart25D(ind.data(), dep.data(), constant, static_cast<int>(ind.size()), indWidth,
                         constWidth, red, blue, indJustify, constJustify, indAxis);
    Plain();
  }
};

TEST_F(PlaneChart25D, SlabsLieOnTheirValues) {
  SetUpPlanes({1, 4}, {5, 8});
  // 0.02 of the 10 units of z thick.
  const auto drawn = Drawn();
  ExpectBoxes(drawn, {{1, 4, 5, 2, 3, 0.2}, {4, 4, 8, 2, 3, 0.2}});
  ExpectSolidColors(drawn, {red, red});
}

TEST_F(PlaneChart25D, ThicknessIsAShareOfTheScale) {
  SetUpPlanes({1}, {5});
  series.SetPlaneThickness(0.3);
  ExpectBoxes(Drawn(), {{1, 4, 5, 2, 3, 3}});
  series.SetPlaneThickness(-0.1);
  ExpectBoxes(Drawn(), {{1, 4, 5, 2, 3, -1}});
  // On an inverted scale the range is -10: the slab lies on its value as it is seen.
  series.SetPlaneThickness(0.3);
  transform.SetScale({0, 0, 10, 0}, {10, 10, 0, 0});
  ExpectBoxes(Drawn(), {{1, 4, 5, 2, 3, -3}});
}

TEST_F(PlaneChart25D, IndependentValuesMayRunAlongY) {
  SetUpPlanes({1, 4}, {5, 8}, 0, 0, 1);
  ExpectBoxes(Drawn(), {{4, 1, 5, 3, 2, 0.2}, {4, 4, 8, 3, 2, 0.2}});
}

TEST_F(PlaneChart25D, OtherAxesMixTheFootprint) {
  SetUpPlanes({1}, {5}, 0, 0, 2);
  ExpectBoxes(Drawn(), {{1, 4, 5, 3, 3, 0.2}});
}

TEST_F(PlaneChart25D, JustificationsMoveThem) {
  for (const auto& [ind, indShare] : kJustifications) {
    for (const auto& [constant, constShare] : kJustifications) {
      SCOPED_TRACE(::testing::Message() << ind << ", " << constant);
      SetUpPlanes({5}, {5}, ind, constant, 0);
      ExpectBoxes(Drawn(), {{5 + 2 * indShare, 4 + 3 * constShare, 5, 2, 3, 0.2}});
      SetUpPlanes({5}, {5}, ind, constant, 1);
      ExpectBoxes(Drawn(), {{4 + 3 * constShare, 5 + 2 * indShare, 5, 3, 2, 0.2}});
    }
  }
}

TEST_F(PlaneChart25D, LogarithmicFootprintsAreConverted) {
  SetLogScale(0, 1, 1e6);
  SetLogScale(1, 1, 1e6);
  // x at log10(1e4) = 4, log10(10) = 1 wide, but moved by the 2 units of the width as it is; y at
  // log10(100) = 2, log10(1000) = 3 deep.
  SetUpWidePlanes({1e4}, {5}, 100, 10, 1000);
  ExpectBoxes(Drawn(), {{4, 2, 5, 1, 3, 0.2}});
  SetUpWidePlanes({1e4}, {5}, 100, 4, 1000, 1);
  ExpectBoxes(Drawn(), {{2, 2, 5, 0.60205999, 3, 0.2}});  // log10(4)
  // Along y the widths change places, and with them the axes by which they are converted.
  SetUpWidePlanes({1e4}, {5}, 100, 10, 1000, 0, 0, 1);
  ExpectBoxes(Drawn(), {{2, 4, 5, 3, 1, 0.2}});
  // A width that has no logarithm counts as 0.
  SetUpWidePlanes({1e4}, {5}, 100, -10, 1000);
  ExpectBoxes(Drawn(), {{4, 2, 5, 0, 3, 0.2}});
}

TEST_F(PlaneChart25D, EachExtentIsConvertedByItsOwnAxis) {
  SetLogScale(1, 1, 1e6);
  SetUpWidePlanes({4}, {5}, 100, 2, 1000);
  ExpectBoxes(Drawn(), {{4, 2, 5, 2, 3, 0.2}});
  // Along y it is the independent one that is converted.
  SetUpWidePlanes({1e4}, {5}, 4, 10, 3, 0, 0, 1);
  ExpectBoxes(Drawn(), {{4, 4, 5, 3, 1, 0.2}});
}

TEST_F(PlaneChart25D, LogarithmicThicknessIsAShareOfTheDecades) {
  SetLogScale(2, 1, 1000);
  SetUpPlanes({1}, {100});
  ExpectBoxes(Drawn(), {{1, 4, 2, 2, 3, 0.06}});  // 0.02 of three decades, on log10(100)
}

TEST_F(PlaneChart25D, SegmentsHaveTheirOwnColors) {
  SetUpPlanes({1, 4}, {5, 8});
  series.InitSegmentColorsStorage(std::array{green, blue}.data());
  ExpectSolidColors(Drawn(), {green, blue});
}

TEST_F(PlaneChart25D, OutlinesHaveTheirWidth) {
  SetUpPlanes({1}, {5});
  series.SetOutlineMode(1);
  series.SetOutlineWidth(3.0);
  ExpectBoxes(FacesFromEdges(Drawn()), {{1, 4, 5, 2, 3, 0.2}});
  EXPECT_EQ(GLNumber(GL_LINE_WIDTH), 3.0);
  EXPECT_EQ(target.gl->GetLineWidth3D(), 1.0);
}

TEST_F(PlaneChart25D, ThicknessWithoutANumberDrawsNothing) {
  for (const double thickness : {kNan, kInfinity}) {
    SetUpPlanes({1}, {5});
    series.SetPlaneThickness(thickness);
    EXPECT_TRUE(Drawn().empty());
  }
}

TEST_F(PlaneChart25D, FewOrNoPoints) {
  SetUpPlanes({}, {});
  EXPECT_TRUE(Drawn().empty());
  SetUpPlanes({1, 4}, {5, 8});
  series.SetNumDataPnts(1000000);
  EXPECT_EQ(Drawn().size(), 12U);
  series.SetNumDataPnts(-1);
  EXPECT_TRUE(Drawn().empty());
  series.SetNumDataPnts(2);
  series.DeleteDepDataStorage();
  EXPECT_TRUE(Drawn().empty());
}

}  // namespace
