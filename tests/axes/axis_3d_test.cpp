#include "orvalix/axes/axis_3d.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "axes/axes_fixture.h"
#include "orvalix/render/gl_api_internal.h"
#include "support/caught_error.h"
#include "support/hex_bytes.h"
#include "support/temporary_file.h"

namespace {

using orvalix::test::AxesTest;
using orvalix::test::Bytes;
using orvalix::test::CaptureFeedback;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::FeedbackPrimitive;
using orvalix::test::FromHex;
using orvalix::test::LoadFrom;
using orvalix::test::Saved;

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Axis3D, StartsWithItsDefaults) {
  const int before = CAxis3D::nSelfID;
  const CAxis3D axis;
  EXPECT_EQ(CAxis3D::nSelfID, before + 1);
  EXPECT_EQ(axis.GetAxisIndex(), 0);
  EXPECT_EQ(axis.GetAxisTicDir(), 0);
  EXPECT_EQ(axis.GetAxisStyle(), 0);
  EXPECT_EQ(axis.GetAxisNthTicMajor(), 5);
  EXPECT_EQ(axis.GetColorMode(), 1);
  EXPECT_EQ(axis.GetAxisColor().red, 0.0);
  EXPECT_EQ(axis.GetAxisColor().alpha, 1.0);
  EXPECT_EQ(axis.GetAxisTicColor().alpha, 1.0);
  EXPECT_EQ(axis.GetAxisThickness(), 1.0);
  EXPECT_EQ(axis.GetAxisMin(), 0.0);
  EXPECT_EQ(axis.GetAxisMax(), 10.0);
  EXPECT_EQ(axis.GetAxisStart(), 0.0);
  EXPECT_EQ(axis.GetAxisStop(), 10.0);
  EXPECT_EQ(axis.GetAxisMinorTicLength(), 0.5);
  EXPECT_EQ(axis.GetAxisMajorTicLength(), 1.0);
  EXPECT_EQ(axis.GetAxisWallThickness(), 0.05);
  EXPECT_EQ(axis.GetAxisTicSpace(), 1.0);
  EXPECT_EQ(axis.GetAxisCenterPoint(), 0.0);
  EXPECT_EQ(axis.GetAxisIntercept1(), 0.0);
  EXPECT_EQ(axis.GetAxisIntercept2(), 0.0);
  EXPECT_EQ(axis.IsAxisSet(), 0);
  EXPECT_EQ(axis.GetAxisScaleMode(), 0);
  EXPECT_EQ(axis.GetClassTag(), 303);
}

TEST(Axis3D, OrdersItsLimits) {
  CAxis3D axis;
  axis.SetAxisLimits(10.0, 0.0);
  EXPECT_EQ(axis.GetAxisMin(), 0.0);
  EXPECT_EQ(axis.GetAxisMax(), 10.0);
  EXPECT_EQ(axis.GetAxisStart(), 10.0);
  EXPECT_EQ(axis.GetAxisStop(), 0.0);
  EXPECT_EQ(axis.GetAxisDir(), 1);
  EXPECT_EQ(axis.GetAxisRange(), 10.0);
  EXPECT_EQ(axis.IsAxisSet(), 1);
  axis.SetAxisLimits(1.0, 3.0);
  EXPECT_EQ(axis.GetAxisDir(), 0);
}

TEST(Axis3D, MovesItsMinimum) {
  CAxis3D axis;
  axis.SetAxisMin(4.0);
  EXPECT_EQ(axis.GetAxisMin(), 4.0);
  EXPECT_EQ(axis.GetAxisMax(), 10.0);
  EXPECT_EQ(axis.GetAxisStart(), 4.0);
  EXPECT_EQ(axis.IsAxisSet(), 1);
  axis.SetAxisMin(20.0);  // above the maximum, which it becomes
  EXPECT_EQ(axis.GetAxisMin(), 10.0);
  EXPECT_EQ(axis.GetAxisMax(), 20.0);
  EXPECT_EQ(axis.GetAxisStart(), 20.0);
  EXPECT_EQ(axis.GetAxisStop(), 10.0);
}

TEST(Axis3D, MovesItsMaximum) {
  CAxis3D axis;
  axis.SetAxisMax(8.0);
  EXPECT_EQ(axis.GetAxisMin(), 0.0);
  EXPECT_EQ(axis.GetAxisMax(), 8.0);
  EXPECT_EQ(axis.GetAxisStop(), 8.0);
  EXPECT_EQ(axis.IsAxisSet(), 1);
  axis.SetAxisMax(-5.0);  // below the minimum, which becomes the maximum
  EXPECT_EQ(axis.GetAxisMin(), -5.0);
  EXPECT_EQ(axis.GetAxisMax(), 0.0);
  EXPECT_EQ(axis.GetAxisStop(), -5.0);
}

TEST(Axis3D, KeepsItsProperties) {
  CAxis3D axis;
  axis.SetAxisTics(1.0, 2.0, 3, 4.0, 5.0, 4);
  EXPECT_EQ(axis.GetAxisCenterPoint(), 1.0);
  EXPECT_EQ(axis.GetAxisTicSpace(), 2.0);
  EXPECT_EQ(axis.GetAxisNthTicMajor(), 3);
  EXPECT_EQ(axis.GetAxisMinorTicLength(), 4.0);
  EXPECT_EQ(axis.GetAxisMajorTicLength(), 5.0);
  EXPECT_EQ(axis.GetAxisTicDir(), 4);
  axis.SetAxisAttrib({1, 0, 0, 1}, {0, 1, 0, 1}, 3.0, 7);
  EXPECT_EQ(axis.GetAxisColor().red, 1.0);
  EXPECT_EQ(axis.GetAxisTicColor().green, 1.0);
  EXPECT_EQ(axis.GetAxisThickness(), 3.0);
  EXPECT_EQ(axis.GetAxisStyle(), 7);
  axis.SetAxisIntercept(8.0, 9.0);
  EXPECT_EQ(axis.GetAxisIntercept1(), 8.0);
  EXPECT_EQ(axis.GetAxisIntercept2(), 9.0);
  axis.SetAxisIntercept1(10.0);
  axis.SetAxisIntercept2(11.0);
  EXPECT_EQ(axis.GetAxisIntercept(-1), 1.0);
  EXPECT_EQ(axis.GetAxisIntercept(0), 1.0);  // the centre
  EXPECT_EQ(axis.GetAxisIntercept(1), 10.0);
  EXPECT_EQ(axis.GetAxisIntercept(2), 11.0);
  EXPECT_EQ(axis.GetAxisIntercept(3), 11.0);
  axis.SetAxisCenterPoint(20.0);
  axis.SetAxisColor({0, 0, 1, 1});
  axis.SetAxisTicColor({0, 0, 0.5, 1});
  axis.SetAxisThickness(21.0);
  axis.SetAxisStyle(2);
  axis.SetAxisTicDir(1);
  axis.SetAxisTicSpace(22.0);
  axis.SetAxisMajorTicLength(23.0);
  axis.SetAxisMinorTicLength(24.0);
  axis.SetAxisNthTicMajor(25);
  axis.SetAxisWallThickness(26.0);
  axis.SetColorMode(2);
  EXPECT_EQ(axis.GetAxisCenterPoint(), 20.0);
  EXPECT_EQ(axis.GetAxisColor().blue, 1.0);
  EXPECT_EQ(axis.GetAxisTicColor().blue, 0.5);
  EXPECT_EQ(axis.GetAxisThickness(), 21.0);
  EXPECT_EQ(axis.GetAxisStyle(), 2);
  EXPECT_EQ(axis.GetAxisTicDir(), 1);
  EXPECT_EQ(axis.GetAxisTicSpace(), 22.0);
  EXPECT_EQ(axis.GetAxisMajorTicLength(), 23.0);
  EXPECT_EQ(axis.GetAxisMinorTicLength(), 24.0);
  EXPECT_EQ(axis.GetAxisNthTicMajor(), 25);
  EXPECT_EQ(axis.GetAxisWallThickness(), 26.0);
  EXPECT_EQ(axis.GetColorMode(), 2);
}

TEST(Axis3D, SavesItsFieldsInOrder) {
  CAxis3D axis;
  CAxis3D::nSelfID = 5;
  axis.SetAxisTics(1.0, 2.0, 3, 0.5, 0.25, 4);
  axis.SetAxisAttrib({1, 0, 0, 1}, {0, 1, 0, 1}, 2.0, 7);
  axis.SetAxisLimits(2.0, 1.0);
  axis.SetAxisIntercept(1.0, 2.0);
  axis.SetAxisWallThickness(0.5);
  const Bytes expected = FromHex(R"(
      05000000 00000000 00000000 04000000        # counter, transform, axis, tic dir
      07000000 03000000 01000000                 # style, nth major, colour mode
      000000000000f03f 0000000000000000 0000000000000000 000000000000f03f  # axis colour
      0000000000000000 000000000000f03f 0000000000000000 000000000000f03f  # tic colour
      0000000000000040                           # thickness
      000000000000f03f 0000000000000040          # min, max
      0000000000000040 000000000000f03f          # start, stop
      000000000000e03f 000000000000d03f          # minor, major length
      000000000000e03f                           # wall thickness
      0000000000000040 000000000000f03f          # tic space, centre
      000000000000f03f 0000000000000040          # intercepts
      01000000                                   # axis set
  )");
  EXPECT_EQ(Saved(axis), expected);
  CAxis3D loaded;
  LoadFrom(loaded, expected);
  EXPECT_EQ(CAxis3D::nSelfID, 5);
  EXPECT_EQ(Saved(loaded), expected);
  loaded.Save(nullptr);
  loaded.Load(nullptr);
  Bytes changed = expected;
  changed[8] = 0x7F;  // an axis that doesn't exist
  LoadFrom(loaded, changed);
  EXPECT_EQ(loaded.GetAxisIndex(), 2);
  EXPECT_EQ(loaded.GetAxisInterceptAxis(0), 2);
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { axis.Save(full.m_hFile); }), (CaughtError{7, 2, "Save"}));
  // A file that is open for writing can't be read.
  EXPECT_EQ(Catch([&] { axis.Load(full.m_hFile); }), (CaughtError{7, 2, "Load"}));
}

class DrawnAxis : public AxesTest {
 protected:
  DrawnAxis() : axis(&gl, &transform) {}

  CAxis3D axis;
};

TEST_F(DrawnAxis, RefusesWhatIsNotAlive) {
  alignas(16) static std::array<unsigned char, 8192> untagged{};
  for (auto* bad : {static_cast<COpenGL*>(nullptr), reinterpret_cast<COpenGL*>(untagged.data())}) {
    EXPECT_EQ(Catch([&] { axis.InitAxis(bad, &transform, 0); }), (CaughtError{16, 2, "InitAxis"}));
  }
  for (auto* bad :
       {static_cast<CTransform3D*>(nullptr), reinterpret_cast<CTransform3D*>(untagged.data())}) {
    EXPECT_EQ(Catch([&] { axis.InitAxis(&gl, bad, 0); }), (CaughtError{15, 2, "InitAxis"}));
  }
  axis.SetAxisLimits(0, 10);
  EXPECT_TRUE(LinesOf([&] { axis.DrawAxis(); }).empty());
}

TEST_F(DrawnAxis, IsBoundByItsConstructors) {
  EXPECT_EQ(axis.GetAxisIndex(), 0);
  EXPECT_EQ(axis.GetTransformID(), transform.GetTransformID());
  EXPECT_EQ(CAxis3D(&gl, &transform, 2).GetAxisIndex(), 2);
  const CAxis3D limited(&gl, &transform, 1, 7.0, 3.0);
  EXPECT_EQ(limited.GetAxisIndex(), 1);
  EXPECT_EQ(limited.GetAxisStart(), 7.0);
  EXPECT_EQ(limited.GetAxisMin(), 3.0);
  EXPECT_EQ(limited.IsAxisSet(), 1);
  EXPECT_EQ(CAxis3D(&gl, &transform, -1).GetAxisIndex(), 0);
  EXPECT_EQ(CAxis3D(&gl, &transform, 3).GetAxisIndex(), 2);
}

TEST_F(DrawnAxis, KnowsItsOtherAxes) {
  const std::array<std::array<int, 3>, 3> expected{{{0, 1, 2}, {1, 0, 2}, {2, 0, 1}}};
  for (int i = 0; i < 3; ++i) {
    axis.InitAxis(&gl, &transform, i);
    for (int k = 0; k < 3; ++k) {
      EXPECT_EQ(axis.GetAxisInterceptAxis(k),
                expected[static_cast<std::size_t>(i)][static_cast<std::size_t>(k)]);
    }
    EXPECT_EQ(axis.GetAxisInterceptAxis(-1), i);
    EXPECT_EQ(axis.GetAxisInterceptAxis(9), axis.GetAxisInterceptAxis(2));
  }
}

TEST_F(DrawnAxis, TellsItsPoints) {
  point3Dtype start;
  point3Dtype end;
  point3Dtype at;
  axis.SetAxisLimits(8, 2);
  axis.SetAxisIntercept(3, 4);
  axis.GetAxisEndPoints(start, end);
  axis.GetAxisPoint(at, 5);
  EXPECT_EQ(start.x, 2);
  EXPECT_EQ(start.y, 3);
  EXPECT_EQ(start.z, 4);
  EXPECT_EQ(end.x, 8);
  EXPECT_EQ(at.x, 5);
  EXPECT_EQ(at.z, 4);
  axis.InitAxis(&gl, &transform, 1);
  axis.GetAxisEndPoints(start, end);
  EXPECT_EQ(start.x, 3);
  EXPECT_EQ(start.y, 2);
  EXPECT_EQ(start.z, 4);
  EXPECT_EQ(end.y, 8);
  axis.InitAxis(&gl, &transform, 2);
  axis.GetAxisEndPoints(start, end);
  EXPECT_EQ(start.x, 3);
  EXPECT_EQ(start.y, 4);
  EXPECT_EQ(start.z, 2);
  EXPECT_EQ(end.z, 8);
}

TEST_F(DrawnAxis, DrawsNothingBeforeItsLimitsAreSet) {
  EXPECT_TRUE(CaptureFeedback([&] { axis.DrawAxis(); }).empty());
  EXPECT_TRUE(CaptureFeedback([&] { axis.DrawAxisLine(); }).empty());
  EXPECT_TRUE(CaptureFeedback([&] { axis.DrawAxisTics(); }).empty());
  CAxis3D unbound;
  unbound.SetAxisLimits(0, 10);
  EXPECT_TRUE(CaptureFeedback([&] { unbound.DrawAxis(); }).empty());
}

TEST_F(DrawnAxis, DrawsItsLineThenItsTics) {
  axis.SetAxisLimits(0, 10);
  axis.SetAxisIntercept(10, 2);
  axis.SetAxisTics(0, 1, 5, 0.05, 0.1, 5);  // upwards
  std::vector<Line> expected{{0.0, 1.0, 0.2, 1.0, 1.0, 0.2}};
  for (int i = 0; i <= 10; ++i) {
    const double at = i / 10.0;
    expected.push_back({at, 1.0, 0.2, at, 1.0, i % 5 == 0 ? 0.3 : 0.25});
  }
  ExpectLines(LinesOf([&] { axis.DrawAxis(); }), expected);
}

TEST_F(DrawnAxis, CountsTicsFromItsCentre) {
  axis.SetAxisLimits(0, 10);
  axis.SetAxisTics(2.5, 1, 5, 0.05, 0.1, 5);
  std::vector<Line> expected;
  for (const double value : {2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 1.5, 0.5}) {
    const bool major = value == 2.5 || value == 7.5;
    expected.push_back({value / 10, 0.0, 0.0, value / 10, 0.0, major ? 0.1 : 0.05});
  }
  ExpectLines(LinesOf([&] { axis.DrawAxisTics(); }), expected);
}

TEST_F(DrawnAxis, PointsItsTicsAnywhere) {
  axis.SetAxisLimits(4, 6);
  axis.SetAxisIntercept(5, 5);
  const std::array<Line, 6> expected{{{0.5, 0.5, 0.5, 0.4, 0.5, 0.5},
                                      {0.5, 0.5, 0.5, 0.5, 0.4, 0.5},
                                      {0.5, 0.5, 0.5, 0.5, 0.5, 0.4},
                                      {0.5, 0.5, 0.5, 0.6, 0.5, 0.5},
                                      {0.5, 0.5, 0.5, 0.5, 0.6, 0.5},
                                      {0.5, 0.5, 0.5, 0.5, 0.5, 0.6}}};
  for (int direction = -1; direction <= 6; ++direction) {
    axis.SetAxisTics(5, 100, 1, 0.05, 0.1, direction);
    const auto nearest = static_cast<std::size_t>(std::clamp(direction, 0, 5));
    ExpectLines(LinesOf([&] { axis.DrawAxisTics(); }), {expected[nearest]});
  }
}

TEST_F(DrawnAxis, MakesAllTicsMinorWithoutMajorOnes) {
  axis.SetAxisLimits(0, 2);
  axis.SetAxisTics(0, 1, 0, 0.05, 0.1, 5);
  for (const Line& tic : LinesOf([&] { axis.DrawAxisTics(); })) EXPECT_NEAR(tic.z1, 0.05, 1e-4);
  axis.SetAxisNthTicMajor(-1);
  for (const Line& tic : LinesOf([&] { axis.DrawAxisTics(); })) EXPECT_NEAR(tic.z1, 0.1, 1e-4);
}

TEST_F(DrawnAxis, DrawsLogarithmicTics) {
  // 1 to 1000 are three decades: the working range is 3, and 10 lies at a third.
  transform.SetScale({1, 0, 0, 0}, {1000, 10, 10, 0});
  transform.SetAxisScaleMode(0, 1);
  transform.ChartTransform();
  axis.SetAxisLimits(1, 1000);
  axis.SetAxisTics(1, 77, 10, 0.05, 0.1, 5);
  EXPECT_EQ(axis.GetAxisScaleMode(), 1);
  const std::vector<Line> tics = LinesOf([&] { axis.DrawAxisTics(); });
  // The walk up: three decades with 8 minor tics each. The walk down draws the first decade's
  // major tic and none below the limit; 0.1 is below the limits, where it stops.
  ASSERT_EQ(tics.size(), 3U * 9U + 1U);
  for (std::size_t i = 0; i < 27; ++i) {
    const double value =
        std::pow(10.0, static_cast<double>(i / 9)) * static_cast<double>(i % 9 + 1);
    const double at = std::log10(value) / 3.0;
    ExpectLine(tics[i], {at, 0, 0, at, 0, i % 9 == 0 ? 0.1 : 0.05});
  }
  ExpectLine(tics[27], {0, 0, 0, 0, 0, 0.1});
}

TEST_F(DrawnAxis, DrawsALogarithmicLine) {
  transform.SetScale({1, 0, 1, 0}, {1000, 10, 100, 0});
  transform.SetAxisScaleMode(0, 1);
  transform.SetAxisScaleMode(2, 1);
  transform.ChartTransform();
  axis.SetAxisLimits(1, 1000);
  axis.SetAxisIntercept(0, 10);
  ExpectLines(LinesOf([&] { axis.DrawAxisLine(); }), {{0, 0, 0.5, 1, 0, 0.5}});
  // A tic along the logarithmic z is 0.1 of its two decades long.
  axis.SetAxisTics(1, 1, 1, 0.1, 0.1, 5);
  ExpectLine(LinesOf([&] { axis.DrawAxisTics(); })[0], {0, 0, 0.5, 0, 0, 0.6});
}

TEST_F(DrawnAxis, PointsItsTicsAlongInvertedAxes) {
  transform.SetScale({0, 0, 10, 0}, {10, 10, 0, 0});
  transform.ChartTransform();
  axis.SetAxisLimits(4, 6);
  axis.SetAxisIntercept(5, 5);
  axis.SetAxisTics(5, 100, 1, 0.1, 0.1, 5);  // towards larger z, which is down now
  ExpectLines(LinesOf([&] { axis.DrawAxisTics(); }), {{0.5, 0.5, 0.5, 0.5, 0.5, 0.4}});
}

TEST_F(DrawnAxis, SetsTheNormalOfItsLines) {
  axis.SetAxisLimits(0, 10);
  axis.SetAxisTics(0, 5, 1, 0.05, 0.1, 5);
  axis.DrawAxis();
  // (0, 0, 0) - (10, 0, 0) times (10, 0, 0) - (10, 0, 0.5): (0, -5, 0), made positive.
  const point3Dtype normal = gl.GetLineNormal();
  EXPECT_NEAR(normal.x, 0.0, 1e-12);
  EXPECT_NEAR(normal.y, 5.0, 1e-12);
  EXPECT_NEAR(normal.z, 0.0, 1e-12);
}

TEST_F(DrawnAxis, MakesIllegalLogarithmicLimitsLegal) {
  transform.SetScale({1, 0, 0, 0}, {1000, 10, 10, 0});
  transform.SetAxisScaleMode(0, 1);
  transform.ChartTransform();
  for (const double bad : {0.0, -5.0}) {
    axis.SetAxisLimits(bad, 1000);
    axis.SetAxisTics(bad, 1, 10, 0.05, 0.1, 5);
    EXPECT_EQ(LinesOf([&] { axis.DrawAxisTics(); }).size(), 28U);  // as from 1
  }
}

TEST_F(DrawnAxis, UsesItsColorsAndWidth) {
  axis.SetAxisLimits(0, 10);
  axis.SetAxisTics(0, 5, 1, 0.05, 0.1, 5);
  axis.SetAxisAttrib(red, blue, 3.0, 2);
  axis.SetColorMode(0);
  const auto drawn = CaptureFeedback([&] { axis.DrawAxis(); });
  ASSERT_EQ(drawn.size(), 4U);
  EXPECT_NEAR(drawn[0].vertices[0].red, 1.0, 1e-6);
  EXPECT_NEAR(drawn[1].vertices[0].blue, 1.0, 1e-6);
  EXPECT_EQ(gl.GetLineWidth3D(), 3.0);
  EXPECT_EQ(gl.GetLineStyle(), 2);
  EXPECT_EQ(gl.GetColorMode(), 0);
}

TEST_F(DrawnAxis, SwitchesColouringByValueOffAgain) {
  axis.SetAxisLimits(0, 10);
  axis.SetColorMode(2);
  axis.DrawAxis();
  EXPECT_EQ(gl.GetColorMode(), 2);
  EXPECT_FALSE(glIsEnabled(GL_TEXTURE_1D));
}

TEST_F(DrawnAxis, EndsForEveryInput) {
  axis.SetAxisLimits(0, 10);
  for (const double space : {0.0, kNotANumber, kInfinity, -kInfinity}) {
    axis.SetAxisTics(0, space, 5, 0.05, 0.1, 5);
    EXPECT_TRUE(LinesOf([&] { axis.DrawAxisTics(); }).empty()) << space;
  }
  axis.SetAxisTics(0, 1e-300, 5, 0.05, 0.1, 5);
  EXPECT_LE(LinesOf([&] { axis.DrawAxisTics(); }).size(), 20000U);
  axis.SetAxisTics(0, 1, 5, 0.05, 0.1, 5);
  for (const double bad : {kNotANumber, kInfinity, -kInfinity}) {
    axis.SetAxisLimits(bad, bad);
    axis.DrawAxis();
    axis.SetAxisLimits(0, bad);
    axis.DrawAxis();
    axis.SetAxisCenterPoint(bad);
    axis.DrawAxis();
  }
  EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

}  // namespace
