/// @file
/// Expectations on the solids of areas, whichever corner they begin with.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

#include "series/series_fixture.h"

namespace orvalix::test {

/// An end of a piece of an area, working coordinates.
struct AreaEnd {
  double ind, bottom, top;
};

/// A piece between a and b along x, from near to far along y.
inline Solid AreaSolid(const AreaEnd& a, const AreaEnd& b, double near, double far) {
  return {{{a.ind, near, a.bottom},
           {a.ind, far, a.bottom},
           {b.ind, far, b.bottom},
           {b.ind, near, b.bottom},
           {a.ind, near, a.top},
           {a.ind, far, a.top},
           {b.ind, far, b.top},
           {b.ind, near, b.top}}};
}

/// The same with x and y exchanged, for independent values along y.
inline Solid AreaSolidAlongY(const AreaEnd& a, const AreaEnd& b, double near, double far) {
  Solid solid = AreaSolid(a, b, near, far);
  for (Place& corner : solid) std::swap(corner.x, corner.y);
  return solid;
}

class SolidTest : public SeriesTest {
 protected:
  /// The lowest and the highest vertex in the window.
  struct Bounds {
    FeedbackVertex low, high;
  };

  static Bounds BoundsOf(const std::vector<FeedbackPrimitive>& drawn) {
    Bounds bounds{};
    bounds.low.x = bounds.low.y = bounds.low.z = kInfinity;
    bounds.high.x = bounds.high.y = bounds.high.z = -kInfinity;
    for (const FeedbackPrimitive& primitive : drawn) {
      for (const FeedbackVertex& vertex : primitive.vertices) {
        bounds.low.x = std::min(bounds.low.x, vertex.x);
        bounds.low.y = std::min(bounds.low.y, vertex.y);
        bounds.low.z = std::min(bounds.low.z, vertex.z);
        bounds.high.x = std::max(bounds.high.x, vertex.x);
        bounds.high.y = std::max(bounds.high.y, vertex.y);
        bounds.high.z = std::max(bounds.high.z, vertex.z);
      }
    }
    return bounds;
  }

  /// Expects the box between two corners in working coordinates.
  void ExpectBounds(const Bounds& bounds, const Place& low, const Place& high) const {
    const FeedbackVertex a = Window(low);
    const FeedbackVertex b = Window(high);
    EXPECT_NEAR(bounds.low.x, a.x, 1e-2);
    EXPECT_NEAR(bounds.low.y, a.y, 1e-2);
    EXPECT_NEAR(bounds.low.z, b.z, 1e-5);  // larger y is nearer
    EXPECT_NEAR(bounds.high.x, b.x, 1e-2);
    EXPECT_NEAR(bounds.high.y, b.y, 1e-2);
    EXPECT_NEAR(bounds.high.z, a.z, 1e-5);
  }

  /// Expects that each edge is passed as often in one direction as in the other, and that the faces
  /// enclose so many cubic units of the scale from 0 to 10, seen from outside.
  static void ExpectClosedOutwards(const std::vector<FeedbackPrimitive>& faces, double volume) {
    using Corner = std::array<long, 3>;
    const auto rounded = [](const FeedbackVertex& vertex) {
      return Corner{std::lround(vertex.x * 50.0), std::lround(vertex.y * 50.0),
                    std::lround(vertex.z * 2000.0)};
    };
    std::map<std::pair<Corner, Corner>, int> edges;
    for (const FeedbackPrimitive& face : faces) {
      for (std::size_t i = 0; i + 1 < face.vertices.size(); ++i) {
        const Corner from = rounded(face.vertices[i]);
        const Corner to = rounded(face.vertices[i + 1]);
        ++edges[{from, to}];
        --edges[{to, from}];
      }
    }
    for (const auto& [edge, surplus] : edges) EXPECT_EQ(surplus, 0);
    EXPECT_NEAR(SignedVolume(faces), volume, 1e-2);
  }

  /// Expects the same faces, of the same colours at the same places, in any order.
  static void ExpectSameFaces(const std::vector<FeedbackPrimitive>& drawn,
                              const std::vector<FeedbackPrimitive>& expected) {
    ASSERT_EQ(drawn.size(), expected.size());
    for (const FeedbackPrimitive& face : expected) {
      const FeedbackVertex middle = MiddleOf(face);
      const auto found = std::find_if(drawn.begin(), drawn.end(), [&](const auto& candidate) {
        const FeedbackVertex other = MiddleOf(candidate);
        return std::abs(other.x - middle.x) < 1e-2 && std::abs(other.y - middle.y) < 1e-2 &&
               std::abs(other.z - middle.z) < 1e-5;
      });
      ASSERT_NE(found, drawn.end()) << "no face at " << middle.x << ", " << middle.y;
      EXPECT_NEAR(found->vertices[0].red, face.vertices[0].red, 1e-5);
      EXPECT_NEAR(found->vertices[0].green, face.vertices[0].green, 1e-5);
      EXPECT_NEAR(found->vertices[0].blue, face.vertices[0].blue, 1e-5);
    }
  }

 private:
  static FeedbackVertex MiddleOf(const FeedbackPrimitive& face) {
    FeedbackVertex middle{};
    for (std::size_t i = 0; i < 4 && i < face.vertices.size(); ++i) {
      middle.x += face.vertices[i].x / 4.0;
      middle.y += face.vertices[i].y / 4.0;
      middle.z += face.vertices[i].z / 4.0;
    }
    return middle;
  }
};

}  // namespace orvalix::test
