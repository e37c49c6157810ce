#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "series/series_fixture.h"

namespace {

using orvalix::test::kJustifications;
using orvalix::test::kNan;
using orvalix::test::Place;

/// A piece from near to far along y.
std::vector<Place> Piece(double a, double za, double b, double zb, double near, double far) {
  return {{a, near, za}, {b, near, zb}, {b, far, zb}, {a, far, za}, {a, near, za}};
}

class GroupRibbons25D : public orvalix::test::SeriesTest {
 protected:
  void SetUpGroups(const std::vector<double>& ind, const std::vector<double>& rows,
                   int constJustify = 0, int indAxis = 0) {
    const std::array<RGBDType, 3> colors{red, green, yellow};
    series.GroupRibbonChart25D(ind.data(), rows.data(), 4.0, static_cast<int>(ind.size()),
                               static_cast<int>(rows.size() / ind.size()), 3.0, colors.data(), blue,
                               constJustify, indAxis);
    Plain();
  }
};

TEST_F(GroupRibbons25D, LieAtTheRunningSums) {
  SetUpGroups({1, 4, 9}, {1, 2, 3, 4, 4, -2, 1, 1, 1});
  // Row by row: 1 2 3, then 5 6 1, then 6 7 2.
  const auto drawn = Drawn();
  ExpectPolygons(drawn,
                 {Piece(1, 1, 4, 2, 4, 7), Piece(4, 2, 9, 3, 4, 7), Piece(1, 5, 4, 6, 4, 7),
                  Piece(4, 6, 9, 1, 4, 7), Piece(1, 6, 4, 7, 4, 7), Piece(4, 7, 9, 2, 4, 7)});
  const std::array<RGBDType, 3> colors{red, green, yellow};
  for (std::size_t i = 0; i < drawn.size(); ++i) ExpectColor(drawn[i], colors[i / 2]);
}

TEST_F(GroupRibbons25D, IndependentValuesMayRunAlongY) {
  SetUpGroups({1, 4}, {1, 2, 4, 4}, 0, 1);
  ExpectPolygons(Drawn(), {{{4, 1, 1}, {4, 4, 2}, {7, 4, 2}, {7, 1, 1}, {4, 1, 1}},
                           {{4, 1, 5}, {4, 4, 6}, {7, 4, 6}, {7, 1, 5}, {4, 1, 5}}});
}

TEST_F(GroupRibbons25D, JustificationsMoveTheSeries) {
  for (const auto& [justify, share] : kJustifications) {
    SCOPED_TRACE(justify);
    const double near = 4 + 3 * share;
    SetUpGroups({1, 4}, {1, 2, 4, 4}, justify);
    ExpectPolygons(Drawn(), {Piece(1, 1, 4, 2, near, near + 3), Piece(1, 5, 4, 6, near, near + 3)});
  }
}

TEST_F(GroupRibbons25D, SumsAreConverted) {
  SetLogScale(2, 1, 1000);
  SetUpGroups({1, 4}, {10, 1, 90, 999});
  ExpectPolygons(Drawn(), {Piece(1, 1, 4, 0, 4, 7), Piece(1, 2, 4, 3, 4, 7)});
}

TEST_F(GroupRibbons25D, HaveTheGapOfTheSeries) {
  SetUpGroups({1, 4}, {1, 2, 4, 4});
  WithGap();
  ExpectPolygons(FacesFromEdges(Drawn()), {Piece(1, 1, 3.5, 2, 4, 7), Piece(1, 5, 3.5, 6, 4, 7)});
}

TEST_F(GroupRibbons25D, HaveTheOutlinesOfTheSeries) {
  SetUpGroups({1, 4}, {1, 2, 4, 4});
  series.SetOutlineMode(1);
  series.SetOutlineWidth(3.0);
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 10U);
  ExpectColor(drawn[0], red);
  ExpectColor(drawn[1], blue);
  ExpectColor(drawn[5], green);
  ExpectColor(drawn[6], blue);
  EXPECT_EQ(GLNumber(GL_LINE_WIDTH), 3.0);
  EXPECT_EQ(target.gl->GetLineWidth3D(), 1.0);
}

TEST_F(GroupRibbons25D, SegmentColorsAreNotTaken) {
  SetUpGroups({1, 4}, {1, 2, 4, 4});
  series.InitSegmentColorsStorage(std::array{cyan, cyan}.data());
  const auto drawn = Drawn();
  ASSERT_EQ(drawn.size(), 2U);
  ExpectColor(drawn[0], red);
  ExpectColor(drawn[1], green);
}

TEST_F(GroupRibbons25D, EachGroupCountsAsASeries) {
  SetUpGroups({1, 4}, {1, 2, 4, 4, 1, 1});
  for (int redraw = 0; redraw < 2; ++redraw) {
    const int before = CChartObj3D::nSelfID;
    Drawn();
    EXPECT_EQ(CChartObj3D::nSelfID, before + 3);
  }
}

TEST_F(GroupRibbons25D, AsManyRowsAndPointsAsThereAre) {
  SetUpGroups({1, 4, 9}, {1, 2, 3, 4, 4, -2});
  series.SetNumGroups(1000000);
  EXPECT_EQ(Drawn().size(), 4U);
  series.SetNumGroups(1);
  EXPECT_EQ(Drawn().size(), 2U);
  series.SetNumGroups(2);
  series.SetNumDataPnts(4);  // one row of four, three of which have a place
  EXPECT_EQ(Drawn().size(), 2U);
  series.SetNumDataPnts(1);
  EXPECT_TRUE(Drawn().empty());
  for (const int count : {0, -1}) {
    series.SetNumDataPnts(count);
    EXPECT_TRUE(Drawn().empty());
  }
  series.SetNumDataPnts(3);
  for (const int count : {0, -1}) {
    series.SetNumGroups(count);
    EXPECT_TRUE(Drawn().empty());
  }
}

TEST_F(GroupRibbons25D, NeedBothArrays) {
  using Delete = void (CChartObj3D::*)();
  for (const Delete free :
       {&CChartObj3D::DeleteIndDataStorage, &CChartObj3D::DeleteGroupDataStorage}) {
    SetUpGroups({1, 4}, {1, 2, 4, 4});
    (series.*free)();
    EXPECT_TRUE(Drawn().empty());
  }
}

TEST_F(GroupRibbons25D, AnUndefinedValueEndsTheSumsOfItsPoint) {
  SetUpGroups({1, 4, 9}, {1, 2, 3, kNan, 4, -2, 1, 1, 1});
  ExpectPolygons(Drawn(), {Piece(1, 1, 4, 2, 4, 7), Piece(4, 2, 9, 3, 4, 7),
                           Piece(4, 6, 9, 1, 4, 7), Piece(4, 7, 9, 2, 4, 7)});
}

}  // namespace
