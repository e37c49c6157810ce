/// @file
/// A transform on an off-screen target, placed so that working coordinates are easy to find among
/// the pixels, and the lines that were drawn through it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "orvalix/foundation/colors.h"
#include "orvalix/render/font_3d.h"
#include "orvalix/render/transform_3d.h"
#include "support/feedback.h"
#include "support/offscreen.h"

namespace orvalix::test {

/// A target of 200 x 200 pixels that the box of the transform fills: x runs from left to right, z
/// from bottom to top, and y from the back (depth 1) to the front (depth 0).
class AxesTest : public ::testing::Test {
 protected:
  AxesTest() : target(200, 200), gl(*target.gl), transform(&gl, {0, 0, 0, 0}, {10, 10, 10, 0}) {
    transform.SetChartRect({1, 1, 1, 0});
    transform.ChartTransform();
    gl.RegisterFont("Arial", 0.1, 400, 0, 0, 256);
  }

  /// A line by its end points in shares of the box, 0 to 1.
  struct Line {
    double x0, y0, z0, x1, y1, z1;
  };

  static Line ToLine(const FeedbackPrimitive& primitive) {
    const FeedbackVertex& a = primitive.vertices.front();
    const FeedbackVertex& b = primitive.vertices.back();
    return {a.x / 200.0, 1.0 - a.z, a.y / 200.0, b.x / 200.0, 1.0 - b.z, b.y / 200.0};
  }

  /// The lines that `draw` draws, in order.
  template <class Draw>
  static std::vector<Line> LinesOf(Draw draw) {
    std::vector<Line> lines;
    for (const FeedbackPrimitive& primitive :
         OfKind(CaptureFeedback(draw), FeedbackPrimitive::Kind::kLine)) {
      lines.push_back(ToLine(primitive));
    }
    return lines;
  }

  static void ExpectLine(const Line& line, const Line& expected) {
    constexpr double kTolerance = 1e-4;
    EXPECT_NEAR(line.x0, expected.x0, kTolerance);
    EXPECT_NEAR(line.y0, expected.y0, kTolerance);
    EXPECT_NEAR(line.z0, expected.z0, kTolerance);
    EXPECT_NEAR(line.x1, expected.x1, kTolerance);
    EXPECT_NEAR(line.y1, expected.y1, kTolerance);
    EXPECT_NEAR(line.z1, expected.z1, kTolerance);
  }

  static void ExpectLines(const std::vector<Line>& lines, const std::vector<Line>& expected) {
    ASSERT_EQ(lines.size(), expected.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
      SCOPED_TRACE(i);
      ExpectLine(lines[i], expected[i]);
    }
  }

  const RGBDType red = SetRGBD(1, 0, 0, 1);
  const RGBDType green = SetRGBD(0, 1, 0, 1);
  const RGBDType blue = SetRGBD(0, 0, 1, 1);
  const RGBDType black = SetRGBD(0, 0, 0, 1);
  Offscreen target;
  COpenGL& gl;
  CTransform3D transform;
};

}  // namespace orvalix::test
