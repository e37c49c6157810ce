/// @file
/// A chart object on a 200 x 200 target whose scale runs from 0 to 10, and expectations on what it
/// drew.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/points.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"
#include "support/feedback.h"
#include "support/offscreen.h"

namespace orvalix::test {

/// A place in working, or where said so normalised, coordinates.
struct Place {
  double x, y, z;
};

/// A box in working coordinates.
struct Box {
  double x, y, z, dx, dy, dz;
};

class Chart3DTest : public ::testing::Test {
 protected:
  using Kind = FeedbackPrimitive::Kind;
  using Primitives = std::vector<FeedbackPrimitive>;

  Chart3DTest()
      : target(200, 200),
        gl(*target.gl),
        transform(&gl, {0, 0, 0, 0}, {10, 10, 10, 0}),
        chart(&gl, &transform) {
    UnlitWithoutOutlines(chart);
  }

  static void UnlitWithoutOutlines(CChartObj3D& object) {
    object.SetColorMode(0);
    object.SetOutlineMode(0);
  }

  Primitives DrawnBy(CChartObj3D& object) {
    gl.LoadIdentity();  // as a chart does before each frame
    return CaptureFeedback([&] { object.DrawChartObj(); });
  }
  Primitives Drawn() { return DrawnBy(chart); }

  /// Where a normalised point lies in the window when the chart isn't turned: z points up and
  /// larger y is nearer.
  static FeedbackVertex Normalized(const Place& place) {
    FeedbackVertex vertex{};
    vertex.x = (place.x + 1.0) * 100.0;
    vertex.y = (place.z + 1.0) * 100.0;
    vertex.z = (1.0 - place.y) / 2.0;
    return vertex;
  }

  /// The same for working coordinates: the box spans the middle half of the window.
  FeedbackVertex Window(const Place& place) const {
    point3Dtype min;
    point3Dtype max;
    transform.GetWorkingScale(min, max);
    const auto normalized = [](double value, double low, double high) {
      return ((value - low) * 2.0 / (high - low) - 1.0) * 0.5;
    };
    return Normalized({normalized(place.x, min.x, max.x), normalized(place.y, min.y, max.y),
                       normalized(place.z, min.z, max.z)});
  }

  static void ExpectVertices(const FeedbackPrimitive& primitive,
                             const std::vector<FeedbackVertex>& expected) {
    ASSERT_EQ(primitive.vertices.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_NEAR(primitive.vertices[i].x, expected[i].x, 1e-2) << "vertex " << i;
      EXPECT_NEAR(primitive.vertices[i].y, expected[i].y, 1e-2) << "vertex " << i;
      EXPECT_NEAR(primitive.vertices[i].z, expected[i].z, 1e-5) << "vertex " << i;
    }
  }

  /// Expects the vertices at these working coordinates.
  void ExpectPlaces(const FeedbackPrimitive& primitive, const std::vector<Place>& places) const {
    std::vector<FeedbackVertex> expected;
    for (const Place& place : places) expected.push_back(Window(place));
    ExpectVertices(primitive, expected);
  }

  void ExpectLine(const FeedbackPrimitive& primitive, const Place& from, const Place& to) const {
    EXPECT_EQ(primitive.kind, Kind::kLine);
    ExpectPlaces(primitive, {from, to});
  }

  /// Expects the six faces of a solid, from `first` on. Corners: the bottom's at (-, -), (-, +),
  /// (+, +), (+, -) of (x, y), then the top's.
  static void ExpectSolid(const Primitives& drawn, std::size_t first,
                          const std::array<FeedbackVertex, 8>& corners) {
    constexpr std::array<std::array<std::size_t, 4>, 6> kFaces{
        {{0, 3, 7, 4}, {1, 5, 6, 2}, {0, 4, 5, 1}, {3, 2, 6, 7}, {0, 1, 2, 3}, {4, 7, 6, 5}}};
    for (std::size_t face = 0; face < kFaces.size(); ++face) {
      SCOPED_TRACE(::testing::Message() << "primitive " << first << ", face " << face);
      ASSERT_LT(first + face, drawn.size());
      std::vector<FeedbackVertex> expected;
      for (std::size_t i = 0; i < 5; ++i) expected.push_back(corners[kFaces[face][i % 4]]);
      ExpectVertices(drawn[first + face], expected);
    }
  }

  /// Expects these boxes, one after the other, and nothing else.
  void ExpectBoxes(const Primitives& drawn, const std::vector<Box>& boxes) const {
    ASSERT_EQ(drawn.size(), boxes.size() * 6);
    for (std::size_t b = 0; b < boxes.size(); ++b) {
      const Box& box = boxes[b];
      std::array<FeedbackVertex, 8> corners;
      std::size_t i = 0;
      for (const double z : {box.z, box.z + box.dz}) {
        corners[i++] = Window({box.x, box.y, z});
        corners[i++] = Window({box.x, box.y + box.dy, z});
        corners[i++] = Window({box.x + box.dx, box.y + box.dy, z});
        corners[i++] = Window({box.x + box.dx, box.y, z});
      }
      ExpectSolid(drawn, b * 6, corners);
    }
  }

  static void ExpectColor(const FeedbackPrimitive& primitive, const RGBDType& color) {
    ASSERT_FALSE(primitive.vertices.empty());
    for (const FeedbackVertex& vertex : primitive.vertices) {
      EXPECT_NEAR(vertex.red, color.red, 1e-6);
      EXPECT_NEAR(vertex.green, color.green, 1e-6);
      EXPECT_NEAR(vertex.blue, color.blue, 1e-6);
    }
  }

  static void ExpectSameColor(const RGBDType& actual, const RGBDType& expected) {
    EXPECT_EQ(actual.red, expected.red);
    EXPECT_EQ(actual.green, expected.green);
    EXPECT_EQ(actual.blue, expected.blue);
  }

  /// The dash pattern of a line style.
  int PatternOf(int style) {
    const int before = gl.GetLineStyle();
    gl.SetLineStyle(style);
    gl.LineAbs3D({0, 0, 0, 0}, {1, 0, 0, 0});
    gl.SetLineStyle(before);
    return PatternInUse();
  }

  /// The dash pattern with which OpenGL drew last.
  static int PatternInUse() {
    GLint pattern = 0;
    glGetIntegerv(GL_LINE_STIPPLE_PATTERN, &pattern);
    return pattern;
  }

  /// The line width with which OpenGL drew last.
  static float WidthInUse() {
    GLfloat width = 0;
    glGetFloatv(GL_LINE_WIDTH, &width);
    return width;
  }

  const RGBDType red = SetRGBD(1, 0, 0, 1);
  const RGBDType green = SetRGBD(0, 1, 0, 1);
  const RGBDType blue = SetRGBD(0, 0, 1, 1);
  const RGBDType yellow = SetRGBD(1, 1, 0, 1);
  const RGBDType black = SetRGBD(0, 0, 0, 1);
  Offscreen target;
  COpenGL& gl;
  CTransform3D transform;
  CChartObj3D chart;
};

}  // namespace orvalix::test
