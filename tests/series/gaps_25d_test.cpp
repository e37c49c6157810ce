#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "series/solid_expectations.h"

namespace {

using orvalix::test::Part;

/// Where the first piece of `n` points at distances of 0.05 ends, seen as an x of the scale.
class Gaps25D : public orvalix::test::SolidTest {
 protected:
  using SetUp = void (*)(CChartObj3D&, const double* ind, const double* dep, int n);

  double EndOfFirstPiece(SetUp setUp, int n, int outlineMode) {
    std::vector<double> ind;
    for (int i = 0; i < n; ++i) ind.push_back(0.05 * i);
    const std::vector<double> dep(static_cast<std::size_t>(n), 5.0);
    setUp(series, ind.data(), dep.data(), n);
    series.SetColorMode(0);
    series.SetOutlineMode(outlineMode);
    // 0 lies at 50 pixels, each unit is 10 of them wide.
    return (BoundsOf(Part(Drawn(), 0, 1)).high.x - 50.0) / 10.0;
  }

  /// The pieces that are told from their neighbours by a gap.
  static std::vector<std::pair<const char*, SetUp>> TypesWithGap() {
    return {
        {"ribbon", [](CChartObj3D& o, const double* ind, const double* dep,
                      int n) { o.RibbonChart25D(ind, dep, 4, n, 3, kColor, kColor, 0, 0); }},
        {"area", [](CChartObj3D& o, const double* ind, const double* dep,
                    int n) { o.AreaFillChart25D(ind, dep, 0, 4, n, 3, kColor, kColor, 0, 0); }},
        {"range", [](CChartObj3D& o, const double* ind, const double* dep,
                     int n) { o.AreaRangeChart25D(ind, dep, ind, 4, n, 3, kColor, kColor, 0, 0); }},
        {"group ribbon",
         [](CChartObj3D& o, const double* ind, const double* dep, int n) {
           o.GroupRibbonChart25D(ind, dep, 4, n, 1, 3, &kColor, kColor, 0, 0);
         }},
        {"group area", [](CChartObj3D& o, const double* ind, const double* dep, int n) {
           o.GroupAreaFillChart25D(ind, dep, 4, n, 1, 3, &kColor, kColor, 0, 0);
         }}};
  }

  static constexpr RGBDType kColor{1, 0, 0, 1};
};

// The gap is 0.0016 of the 10 units of the scale.
TEST_F(Gaps25D, AFewOutlinedPointsHaveOne) {
  for (const auto& [name, setUp] : TypesWithGap()) {
    EXPECT_NEAR(EndOfFirstPiece(setUp, 2, 1), 0.034, 1e-4) << name;
    EXPECT_NEAR(EndOfFirstPiece(setUp, 199, 1), 0.034, 1e-4) << name;
    EXPECT_NEAR(EndOfFirstPiece(setUp, 199, -1), 0.034, 1e-4) << name;
  }
}

TEST_F(Gaps25D, TwoHundredPointsHaveNone) {
  for (const auto& [name, setUp] : TypesWithGap()) {
    EXPECT_NEAR(EndOfFirstPiece(setUp, 200, 1), 0.05, 1e-4) << name;
  }
}

TEST_F(Gaps25D, PiecesWithoutOutlinesHaveNone) {
  for (const auto& [name, setUp] : TypesWithGap()) {
    EXPECT_NEAR(EndOfFirstPiece(setUp, 2, 0), 0.05, 1e-4) << name;
  }
}

TEST_F(Gaps25D, BarsNeverHaveOne) {
  series.BarChart25D(std::array{1.0}.data(), std::array{5.0}.data(), 0, 4, 1, 2, 3, red, blue, 0, 0,
                     0);
  WithGap();
  ExpectBoxes(FacesFromEdges(Drawn()), {{1, 4, 0, 2, 3, 5}});
}

}  // namespace
