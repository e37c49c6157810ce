/// @file
/// Shapes as they were drawn: triangles and lines in the units that they were told in.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "render/drawing_fixture.h"

namespace orvalix::test {

inline Vertex operator+(const Vertex& a, const Vertex& b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vertex operator-(const Vertex& a, const Vertex& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vertex operator*(double factor, const Vertex& v) {
  return {factor * v.x, factor * v.y, factor * v.z};
}
inline double Dot(const Vertex& a, const Vertex& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline Vertex Cross(const Vertex& a, const Vertex& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double Length(const Vertex& v) { return std::sqrt(Dot(v, v)); }

using Triangle = std::array<Vertex, 3>;
using Line = std::array<Vertex, 2>;

/// A corner of a triangle and the normal that lights it.
struct LitCorner {
  Vertex at;
  Vertex normal;
};
using LitTriangle = std::array<LitCorner, 3>;

/// A view of -8 to 8 on each axis, seen without perspective.
class ShapeTest : public DrawingTest {
 protected:
  using Draw = std::function<void()>;

  /// Feedback rounds to float: 200 pixels are 16 units.
  static constexpr double kRounding = 1e-5;
  static constexpr double kReach = 8.0;

  ShapeTest() {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glScaled(1.0 / kReach, 1.0 / kReach, 1.0 / kReach);
    gl.SelectModelView();
    gl.SetColorMode(0);
  }

  /// Everything drawn leaves OpenGL without errors and its matrices as they were.
  ~ShapeTest() override {
    EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
    EXPECT_EQ(Integer(GL_MODELVIEW_STACK_DEPTH), 1);
    EXPECT_EQ(Integer(GL_PROJECTION_STACK_DEPTH), 1);
  }

  static Vertex Place(const FeedbackVertex& vertex) {
    return {(vertex.x / 100.0 - 1.0) * kReach, (vertex.y / 50.0 - 1.0) * kReach,
            (vertex.z * 2.0 - 1.0) * kReach};
  }

  /// Expects nothing but areas.
  static std::vector<Triangle> Triangles(const Draw& draw) {
    std::vector<Triangle> triangles;
    for (const FeedbackPrimitive& primitive : CaptureTriangles(draw)) {
      EXPECT_EQ(primitive.kind, FeedbackPrimitive::Kind::kPolygon);
      const auto& v = primitive.vertices;
      for (std::size_t i = 1; i + 1 < v.size(); ++i) {
        triangles.push_back({Place(v[0]), Place(v[i]), Place(v[i + 1])});
      }
    }
    return triangles;
  }

  /// Expects nothing but lines.
  static std::vector<Line> Lines(const Draw& draw) {
    std::vector<Line> lines;
    for (const FeedbackPrimitive& primitive : CaptureFeedback(draw)) {
      EXPECT_EQ(primitive.kind, FeedbackPrimitive::Kind::kLine);
      if (primitive.vertices.size() != 2) continue;
      lines.push_back({Place(primitive.vertices[0]), Place(primitive.vertices[1])});
    }
    return lines;
  }

  /// How many corners each area has.
  static std::vector<std::size_t> CornersOfFaces(const Draw& draw) {
    std::vector<std::size_t> corners;
    for (const FeedbackPrimitive& primitive : CaptureFeedback(draw)) {
      EXPECT_EQ(primitive.kind, FeedbackPrimitive::Kind::kPolygon);
      corners.push_back(primitive.vertices.size());
    }
    return corners;
  }

  static bool DrawsNothing(const Draw& draw) { return CaptureTriangles(draw).empty(); }

  /// Lights the shape along each axis from both sides: white light on a white surface is as bright
  /// as the normal reaches towards it.
  std::vector<LitTriangle> LitTriangles(const Draw& draw) {
    std::vector<LitTriangle> lit;
    for (const Triangle& triangle : Triangles(draw)) {
      lit.push_back({{{triangle[0], {}}, {triangle[1], {}}, {triangle[2], {}}}});
    }
    constexpr std::array<float, 4> kBlack{0, 0, 0, 1};
    constexpr std::array<float, 4> kWhite{1, 1, 1, 1};
    gl.SetColorMode(1);
    glLightfv(GL_LIGHT0, GL_AMBIENT, kBlack.data());
    glLightfv(GL_LIGHT0, GL_DIFFUSE, kWhite.data());
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, kBlack.data());
    glColor3d(1.0, 1.0, 1.0);
    for (const Vertex& side : std::array<Vertex, 6>{
             {{1, 0, 0}, {-1, 0, 0}, {0, 1, 0}, {0, -1, 0}, {0, 0, 1}, {0, 0, -1}}}) {
      const std::array<float, 4> position{static_cast<float>(side.x), static_cast<float>(side.y),
                                          static_cast<float>(side.z), 0.0F};
      glLightfv(GL_LIGHT0, GL_POSITION, position.data());
      AddBrightness(CaptureTriangles(draw), side, lit);
    }
    gl.SetColorMode(0);
    return lit;
  }

  /// Where the corners go round anticlockwise.
  static Vertex NormalOf(const LitTriangle& t) {
    const Vertex normal = Cross(t[1].at - t[0].at, t[2].at - t[0].at);
    return (1.0 / Length(normal)) * normal;
  }

  /// Expects the triangle to be lit as the flat face that it is.
  static void ExpectLitAcross(const LitTriangle& t) {
    for (const LitCorner& corner : t) ExpectNear(corner.normal, NormalOf(t));
  }

  /// Six times the volume is the sum of the triple products of faces that turn outwards.
  static double Volume(const std::vector<Triangle>& triangles) {
    double volume = 0.0;
    for (const Triangle& t : triangles) volume += Dot(t[0], Cross(t[1], t[2])) / 6.0;
    return volume;
  }

  /// Sides of triangles that no other triangle has the other way round; none in a closed shape
  /// whose faces all turn the same way. Also counts sides that come twice.
  static std::size_t OpenSides(const std::vector<Triangle>& triangles) {
    std::map<std::pair<Key, Key>, int> sides;
    for (const Triangle& t : triangles) {
      for (std::size_t i = 0; i < 3; ++i) {
        const Key from = KeyOf(t[i]);
        const Key to = KeyOf(t[(i + 1) % 3]);
        if (from == to) continue;
        ++sides[{from, to}];
        --sides[{to, from}];
      }
    }
    // Each open side stands here in both directions.
    std::size_t open = 0;
    for (const auto& [side, balance] : sides) open += static_cast<std::size_t>(std::abs(balance));
    return open / 2;
  }

  static std::size_t Places(const std::vector<Triangle>& triangles) {
    std::set<Key> places;
    for (const Triangle& t : triangles) {
      for (const Vertex& v : t) places.insert(KeyOf(v));
    }
    return places.size();
  }

  /// How often each line is drawn, whichever way.
  static std::map<int, std::size_t> TimesDrawn(const std::vector<Line>& lines) {
    std::map<std::pair<Key, Key>, int> drawn;
    for (const Line& line : lines) ++drawn[std::minmax(KeyOf(line[0]), KeyOf(line[1]))];
    std::map<int, std::size_t> times;
    for (const auto& [line, count] : drawn) ++times[count];
    return times;
  }

  /// Expects each vertex of these triangles or lines to have the property.
  template <class Figures, class Check>
  static void ExpectEachVertex(const Figures& figures, const Check& check) {
    ASSERT_FALSE(figures.empty());
    for (const auto& figure : figures) {
      for (const Vertex& vertex : figure) check(vertex);
    }
  }

  static void ExpectNear(const Vertex& actual, const Vertex& expected) {
    EXPECT_NEAR(actual.x, expected.x, kRounding);
    EXPECT_NEAR(actual.y, expected.y, kRounding);
    EXPECT_NEAR(actual.z, expected.z, kRounding);
  }

 private:
  using Key = std::array<long, 3>;

  /// The same for places that differ by rounding only.
  static Key KeyOf(const Vertex& v) {
    constexpr double kUnit = 1e-3;
    return {std::lround(v.x / kUnit), std::lround(v.y / kUnit), std::lround(v.z / kUnit)};
  }

  static void AddBrightness(const std::vector<FeedbackPrimitive>& drawn, const Vertex& side,
                            std::vector<LitTriangle>& lit) {
    std::size_t at = 0;
    for (const FeedbackPrimitive& primitive : drawn) {
      const auto& v = primitive.vertices;
      for (std::size_t i = 1; i + 1 < v.size(); ++i, ++at) {
        ASSERT_LT(at, lit.size());
        const std::array<double, 3> brightness{v[0].red, v[i].red, v[i + 1].red};
        for (std::size_t k = 0; k < 3; ++k) {
          lit[at][k].normal = lit[at][k].normal + brightness[k] * side;
        }
      }
    }
    EXPECT_EQ(at, lit.size());
  }
};

}  // namespace orvalix::test
