#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "render/drawing_fixture.h"

namespace {

using orvalix::test::CaptureFeedback;
using orvalix::test::FeedbackPrimitive;
using orvalix::test::OfKind;
using Kind = FeedbackPrimitive::Kind;

class Lines : public orvalix::test::DrawingTest {};

constexpr point3Dtype kA{-0.5, -0.5, 0.25, 0};
constexpr point3Dtype kB{0.5, 0.25, 0.5, 0};
constexpr point3Dtype kC{0.75, 0.75, -0.5, 0};
constexpr point3Dtype kD{-0.25, 0.5, 0.0, 0};

TEST_F(Lines, DrawsOneSegmentInTheLineColor) {
  gl.SetLineStyle3D(2, 3.0, green);
  gl.SetColorMode(1);
  const auto drawn = CaptureFeedback([&] { gl.LineAbs3D(kA, kB); });
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_EQ(drawn[0].kind, Kind::kLine);
  ExpectVertices(drawn[0], {{-0.5, -0.5, 0.25}, {0.5, 0.25, 0.5}});
  ExpectColor(drawn[0], 0, 1, 0);
  EXPECT_EQ(gl.GetColorMode(), 1);
  EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
  EXPECT_FALSE(glIsEnabled(GL_LINE_STIPPLE));
  EXPECT_EQ(Integer(GL_LINE_STIPPLE_PATTERN), 0x1111);
  EXPECT_EQ(Integer(GL_LINE_WIDTH), 3);
}

TEST_F(Lines, EveryStyleHasItsPattern) {
  constexpr std::array<int, 16> kPatterns{0xFFFF, 0x0101, 0x1111, 0x5555, 0x0303, 0x0707,
                                          0x0F0F, 0xFF00, 0xFE10, 0xFF3C, 0xFE44, 0xFFFF,
                                          0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF};
  gl.SetLineStyleFactor(3);
  for (int style = 0; style < 16; ++style) {
    gl.SetLineStyle(style);
    gl.LineAbs3D(kA, kB);
    EXPECT_EQ(Integer(GL_LINE_STIPPLE_PATTERN), kPatterns[static_cast<std::size_t>(style)]);
    EXPECT_EQ(Integer(GL_LINE_STIPPLE_REPEAT), 3);
  }
  for (const int style : {-1, 16, 1000000}) {
    gl.SetLineStyle(3);
    gl.LineAbs3D(kA, kB);
    gl.SetLineStyle(style);
    gl.LineAbs3D(kA, kB);
    EXPECT_EQ(Integer(GL_LINE_STIPPLE_PATTERN), 0xFFFF) << style;
  }
}

TEST_F(Lines, StipplesAreOnWhileDrawing) {
  // Style 1 leaves seven of eight pixels of a horizontal line out.
  gl.SetClearColor(1, 1, 1, 1);
  gl.Clear(0x4100);
  gl.SetLineStyle3D(1, 1.0, black);
  gl.LineAbs3D({-1.0, 0.01, 0, 0}, {1.0, 0.01, 0, 0});
  gl.UpdateBitmap(200, 100);
  int dark = 0;
  const auto* row = static_cast<const unsigned char*>(target.dib->FindDIBBits()) +
                    std::ptrdiff_t{50} * target.dib->StorageWidth();
  for (std::ptrdiff_t x = 0; x < 200; ++x) dark += row[x * 4] == 0 ? 1 : 0;
  EXPECT_NEAR(dark, 25, 1);  // the last pixel of a line may be left out
}

TEST_F(Lines, DrawsPolylines) {
  gl.SetLineStyle3D(0, 2.0, blue);
  gl.SetColorMode(1);
  const auto drawn = CaptureFeedback([&] {
    gl.StartLineAbs3D(kA);
    gl.AppendLineAbs3D(kB);
    gl.AppendLineAbs3D(kC);
    gl.EndLineAbs3D(kD);
  });
  ASSERT_EQ(drawn.size(), 3U);
  ExpectVertices(drawn[0], {{-0.5, -0.5, 0.25}, {0.5, 0.25, 0.5}});
  ExpectVertices(drawn[1], {{0.5, 0.25, 0.5}, {0.75, 0.75, -0.5}});
  ExpectVertices(drawn[2], {{0.75, 0.75, -0.5}, {-0.25, 0.5, 0.0}});
  for (const auto& line : drawn) ExpectColor(line, 0, 0, 1);
  EXPECT_EQ(gl.GetColorMode(), 1);
  EXPECT_FALSE(glIsEnabled(GL_LINE_STIPPLE));
}

TEST_F(Lines, FramesAreOpenUnlessTheFirstPointIsRepeated) {
  const std::vector<point3Dtype> points{kA, kB, kC, kD, kA};
  gl.SetLineStyle3D(2, 1.0, green);
  gl.SetFillStyle3D(red, green, blue);
  gl.SetColorMode(1);
  const auto open = CaptureFeedback([&] { gl.Frame3D(points.data(), 4); });
  ASSERT_EQ(open.size(), 3U);
  ExpectVertices(open[2], {{0.75, 0.75, -0.5}, {-0.25, 0.5, 0.0}});
  for (const auto& line : open) ExpectColor(line, 0, 0, 1);  // the outline colour
  const auto closed = CaptureFeedback([&] { gl.Frame3D(points.data(), 5); });
  EXPECT_EQ(closed.size(), 4U);
  EXPECT_EQ(gl.GetColorMode(), 1);
  EXPECT_EQ(Integer(GL_LINE_STIPPLE_PATTERN), 0x1111);  // the line style is back
}

TEST_F(Lines, ClosedOutlinesAreFrontPolygonsAsLines) {
  // Counterclockwise on the screen: the front.
  const std::vector<point3Dtype> front{{-0.5, -0.5, 0, 0}, {0.5, -0.5, 0, 0}, {0, 0.5, 0, 0}};
  const std::vector<point3Dtype> back(front.rbegin(), front.rend());
  gl.SetLineStyle3D(2, 1.0, green);
  gl.SetColorMode(1);
  const auto drawn = CaptureFeedback([&] { gl.PolyAbs3D(front.data(), 3); });
  ASSERT_EQ(drawn.size(), 3U);
  for (const auto& line : drawn) {
    EXPECT_EQ(line.kind, Kind::kLine);
    ExpectColor(line, 0, 1, 0);
  }
  ExpectVertices(drawn[2], {{0, 0.5, 0}, {-0.5, -0.5, 0}});
  const auto filled = CaptureFeedback([&] { gl.PolyAbs3D(back.data(), 3); });
  ASSERT_EQ(filled.size(), 1U);  // only the front is drawn as lines
  EXPECT_EQ(filled[0].kind, Kind::kPolygon);
  std::array<GLint, 2> mode{};
  glGetIntegerv(GL_POLYGON_MODE, mode.data());
  EXPECT_EQ(mode[0], GL_FILL);
  EXPECT_EQ(gl.GetColorMode(), 1);
  EXPECT_EQ(Integer(GL_LINE_STIPPLE_PATTERN), 0x1111);
}

TEST_F(Lines, OutlinesAreUntexturedAndLeaveTexturingOn) {
  const std::vector<point3Dtype> points{kA, kB, kC};
  gl.EnableTexture(1);
  gl.PolyAbs3D(points.data(), 3);
  EXPECT_TRUE(glIsEnabled(GL_TEXTURE_1D));
  gl.Frame3D(points.data(), 3);
  EXPECT_TRUE(glIsEnabled(GL_TEXTURE_1D));
  gl.EnableTexture(0);
  gl.Frame3D(points.data(), 3);
  EXPECT_FALSE(glIsEnabled(GL_TEXTURE_1D));
}

class Outlines : public Lines {
 protected:
  /// Lets `draw` draw on white and returns a row of the picture: true for each blue pixel.
  template <class Draw>
  std::vector<bool> BluePixels(std::ptrdiff_t y, Draw&& draw) {
    gl.SetClearColor(1, 1, 1, 1);
    gl.Clear(0x4100);
    draw();
    gl.UpdateBitmap(200, 100);
    const auto* row = static_cast<const unsigned char*>(target.dib->FindDIBBits()) +
                      y * target.dib->StorageWidth();
    std::vector<bool> isBlue;
    for (std::ptrdiff_t x = 0; x < 200; ++x) {
      isBlue.push_back(row[x * 4] == 255 && row[x * 4 + 1] == 0 && row[x * 4 + 2] == 0);
    }
    return isBlue;
  }

  /// A triangle that faces the viewer; its lower edge runs from column 50 to 150 in row 50.
  const std::vector<point3Dtype> triangle{{-0.5, 0.01, 0, 0}, {0.5, 0.01, 0, 0}, {0, 0.75, 0, 0}};

  void ExpectLowerEdge(const std::vector<bool>& row) {
    // The ends of a line may be left out.
    for (std::size_t x = 52; x < 148; ++x) EXPECT_TRUE(row[x]) << "column " << x;
  }
};

TEST_F(Outlines, TakeNoColorFromTheTexture) {
  const std::vector<RGBDType> texture{red, red};
  gl.SetTextureMode(3);
  gl.SetTextureColorArray(texture.data(), 0.0, 1.0, 2);
  gl.EnableTexture(1);
  gl.SetLineColor3D(blue);
  ExpectLowerEdge(BluePixels(50, [&] { gl.PolyAbs3D(triangle.data(), 3); }));
  gl.SetFillStyle3D(red, red, blue);
  ExpectLowerEdge(BluePixels(50, [&] { gl.Frame3D(triangle.data(), 3); }));
}

TEST_F(Outlines, AreSolidInEveryLineStyle) {
  gl.SetLineStyle3D(1, 1.0, blue);
  gl.SetFillStyle3D(red, red, blue);
  gl.LineAbs3D(kA, kB);  // its stipple stays behind
  glEnable(GL_LINE_STIPPLE);
  ExpectLowerEdge(BluePixels(50, [&] { gl.PolyAbs3D(triangle.data(), 3); }));
  ExpectLowerEdge(BluePixels(50, [&] { gl.Frame3D(triangle.data(), 3); }));
}

TEST_F(Outlines, HaveTheLineWidth) {
  gl.SetLineWidth3D(3.0);
  gl.PolyAbs3D(triangle.data(), 3);
  EXPECT_EQ(Integer(GL_LINE_WIDTH), 3);
  gl.SetLineWidth3D(2.0);
  gl.Frame3D(triangle.data(), 3);
  EXPECT_EQ(Integer(GL_LINE_WIDTH), 2);
}

TEST_F(Lines, WidthsThatOpenGLCannotUseLeaveTheLastOne) {
  gl.SetLineWidth3D(2.0);
  gl.LineAbs3D(kA, kB);
  for (const double width : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
    gl.SetLineWidth3D(width);
    gl.LineAbs3D(kA, kB);
    EXPECT_EQ(Integer(GL_LINE_WIDTH), 2) << width;
  }
}

TEST_F(Lines, AnUndrawablePointInterruptsALine) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const auto drawn = CaptureFeedback([&] {
    gl.StartLineAbs3D(kA);
    gl.AppendLineAbs3D(kB);
    gl.AppendLineAbs3D({nan, 0, 0, 0});
    gl.AppendLineAbs3D(kC);
    gl.EndLineAbs3D(kD);
  });
  ASSERT_EQ(drawn.size(), 2U);
  ExpectVertices(drawn[0], {{-0.5, -0.5, 0.25}, {0.5, 0.25, 0.5}});
  ExpectVertices(drawn[1], {{0.75, 0.75, -0.5}, {-0.25, 0.5, 0.0}});
  EXPECT_TRUE(CaptureFeedback([&] { gl.LineAbs3D(kA, {0, 1e300, 0, 0}); }).empty());
}

TEST_F(Lines, GoOnAndEndOnlyAfterTheirStart) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  gl.LineAbs3D(kA, kB);  // in colour mode 0
  gl.SetColorMode(1);
  const auto drawn = CaptureFeedback([&] {
    gl.AppendLineAbs3D({nan, 0, 0, 0});
    gl.AppendLineAbs3D(kA);
    gl.EndLineAbs3D(kB);
    gl.EndLineAbs3D({nan, 0, 0, 0});
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    gl.LineAbs3D(kC, kD);
  });
  ASSERT_EQ(drawn.size(), 1U);
  ExpectVertices(drawn[0], {{0.75, 0.75, -0.5}, {-0.25, 0.5, 0.0}});
  EXPECT_EQ(gl.GetColorMode(), 1);
  EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
}

TEST_F(Lines, AStartEndsTheLineThatIsOpen) {
  gl.SetColorMode(1);
  const auto drawn = CaptureFeedback([&] {
    gl.StartLineAbs3D(kA);
    gl.AppendLineAbs3D(kB);
    gl.StartLineAbs3D(kC);
    gl.EndLineAbs3D(kD);
  });
  ASSERT_EQ(drawn.size(), 2U);
  ExpectVertices(drawn[0], {{-0.5, -0.5, 0.25}, {0.5, 0.25, 0.5}});
  ExpectVertices(drawn[1], {{0.75, 0.75, -0.5}, {-0.25, 0.5, 0.0}});
  EXPECT_EQ(gl.GetColorMode(), 1);
  EXPECT_FALSE(glIsEnabled(GL_LINE_STIPPLE));
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

}  // namespace
