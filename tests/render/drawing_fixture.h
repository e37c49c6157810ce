/// @file
/// A 200 x 100 target with the identity matrix, and expectations on what was drawn into it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <vector>

#include "orvalix/foundation/colors.h"
#include "orvalix/render/gl_api_internal.h"
#include "support/feedback.h"
#include "support/offscreen.h"

namespace orvalix::test {

struct Vertex {
  double x, y, z;
};

class DrawingTest : public ::testing::Test {
 protected:
  DrawingTest() : target(200, 100), gl(*target.gl) { gl.LoadIdentity(); }

  /// Expects the vertices of `primitive` at these coordinates of the view volume: -1 to 1 is 200
  /// pixels wide, 100 high, and 1 deep.
  static void ExpectVertices(const FeedbackPrimitive& primitive,
                             const std::vector<Vertex>& expected) {
    ASSERT_EQ(primitive.vertices.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_NEAR(primitive.vertices[i].x, (expected[i].x + 1.0) * 100.0, 1e-2) << "vertex " << i;
      EXPECT_NEAR(primitive.vertices[i].y, (expected[i].y + 1.0) * 50.0, 1e-2) << "vertex " << i;
      EXPECT_NEAR(primitive.vertices[i].z, (expected[i].z + 1.0) * 0.5, 1e-5) << "vertex " << i;
    }
  }

  /// The quadrilateral of a picture from the vertex with texture coordinates 0 and 0 on; the
  /// software rasteriser reports quadrilaterals from their last vertex on.
  static FeedbackPrimitive FromTextureOrigin(FeedbackPrimitive primitive) {
    auto& vertices = primitive.vertices;
    const auto origin = std::find_if(
        vertices.begin(), vertices.end(),
        [](const FeedbackVertex& vertex) { return vertex.t == 0.0 && vertex.t2 == 0.0; });
    std::rotate(vertices.begin(), origin, vertices.end());
    return primitive;
  }

  static void ExpectColor(const FeedbackPrimitive& primitive, double red, double green,
                          double blue) {
    for (const FeedbackVertex& vertex : primitive.vertices) {
      EXPECT_NEAR(vertex.red, red, 1e-6);
      EXPECT_NEAR(vertex.green, green, 1e-6);
      EXPECT_NEAR(vertex.blue, blue, 1e-6);
    }
  }

  static std::array<float, 4> CurrentColor() {
    std::array<float, 4> color{};
    glGetFloatv(GL_CURRENT_COLOR, color.data());
    return color;
  }

  static GLint Integer(GLenum name) {
    std::array<GLint, 16> values{};
    glGetIntegerv(name, values.data());
    return values[0];
  }

  const RGBDType red = SetRGBD(1, 0, 0, 1);
  const RGBDType green = SetRGBD(0, 1, 0, 1);
  const RGBDType blue = SetRGBD(0, 0, 1, 1);
  const RGBDType black = SetRGBD(0, 0, 0, 1);
  Offscreen target;
  COpenGL& gl;
};

}  // namespace orvalix::test
