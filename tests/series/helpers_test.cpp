#include <gtest/gtest.h>

#include <array>

#include "orvalix/foundation/colors.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"
#include "support/offscreen.h"

namespace {

using orvalix::test::Offscreen;

/// Reaches what the chart types share inside CChartObj3D: an explicit instantiation may name
/// private members.
template <class Tag, typename Tag::Member member>
struct Reach {
  friend typename Tag::Member MemberOf(Tag) { return member; }
};

struct SmallGap {
  using Member = double (CChartObj3D::*)() const;
  friend Member MemberOf(SmallGap);
};
template struct Reach<SmallGap, &CChartObj3D::GetSmallGap>;

struct SegmentColor {
  using Member = void (CChartObj3D::*)(int);
  friend Member MemberOf(SegmentColor);
};
template struct Reach<SegmentColor, &CChartObj3D::CheckSetSegmentColor>;

class SeriesHelpers : public ::testing::Test {
 protected:
  SeriesHelpers()
      : transform(target.gl.get(), {0, 0, 0, 0}, {10, 20, 30, 0}),
        series(target.gl.get(), &transform) {
    transform.ChartTransform();  // as every drawing does first: it finds the working range
  }

  double Gap() const { return (series.*MemberOf(SmallGap()))(); }

  /// The colour that OpenGL draws with after segment i has chosen its own.
  RGBDType ColorAfter(int i) {
    glColor3d(0.25, 0.25, 0.25);
    (series.*MemberOf(SegmentColor()))(i);
    std::array<GLdouble, 4> color{};
    glGetDoublev(GL_CURRENT_COLOR, color.data());
    return {color[0], color[1], color[2], color[3]};
  }

  Offscreen target;
  CTransform3D transform;
  CChartObj3D series;
};

TEST_F(SeriesHelpers, GapIsAShareOfTheWorkingRange) {
  // 0.0016 of 10 along x, of 20 along y; there is none along z.
  EXPECT_NEAR(Gap(), 0.016, 1e-12);
  series.SetIndAxis(1);
  EXPECT_NEAR(Gap(), 0.032, 1e-12);
  series.SetIndAxis(2);
  EXPECT_EQ(Gap(), 0.0);
  series.SetIndAxis(-1);
  EXPECT_EQ(Gap(), 0.0);
  series.SetIndAxis(0);
  series.SetFillGap(0.5);
  EXPECT_NEAR(Gap(), 5.0, 1e-12);
}

TEST_F(SeriesHelpers, GapIsForAFewOutlinedPoints) {
  series.SetNumDataPnts(199);
  EXPECT_NEAR(Gap(), 0.016, 1e-12);
  series.SetNumDataPnts(200);
  EXPECT_EQ(Gap(), 0.0);
  series.SetNumDataPnts(2);
  series.SetOutlineMode(0);
  EXPECT_EQ(Gap(), 0.0);
}

TEST_F(SeriesHelpers, SegmentsChooseTheirColor) {
  target.gl->SetColorMode(0);
  const std::array<RGBDType, 2> colors{SetRGBD(1, 0, 0, 1), SetRGBD(0, 1, 0, 1)};
  series.SetNumDataPnts(2);
  series.InitSegmentColorsStorage(colors.data());
  EXPECT_EQ(ColorAfter(1).green, 1.0);
  EXPECT_EQ(ColorAfter(0).red, 1.0);
  // Colours that aren't there choose nothing.
  EXPECT_EQ(ColorAfter(2).red, 0.25);
  EXPECT_EQ(ColorAfter(-1).red, 0.25);
  series.SetSegmentColorMode(0);
  EXPECT_EQ(ColorAfter(0).red, 0.25);
}

}  // namespace
