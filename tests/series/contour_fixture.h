/// @file
/// Contour lines as they are drawn, and as they have to be: found polygon by polygon, without
/// following anything.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "orvalix/render/open_gl.h"
#include "orvalix/series/contour_3d.h"
#include "orvalix/surface/polysurface.h"
#include "support/feedback.h"
#include "support/offscreen.h"

namespace orvalix::test {

/// Part of a contour line, seen from above.
struct Segment {
  double x0, y0, x1, y1;
};

inline bool Near(double a, double b) { return std::abs(a - b) < 1e-4; }

/// The same two ends, in whichever order.
inline bool IsSame(const Segment& a, const Segment& b) {
  return (Near(a.x0, b.x0) && Near(a.y0, b.y0) && Near(a.x1, b.x1) && Near(a.y1, b.y1)) ||
         (Near(a.x0, b.x1) && Near(a.y0, b.y1) && Near(a.x1, b.x0) && Near(a.y1, b.y0));
}

/// An end in common.
inline bool Touch(const Segment& a, const Segment& b) {
  const auto isAt = [](const Segment& segment, double x, double y) {
    return (Near(segment.x0, x) && Near(segment.y0, y)) ||
           (Near(segment.x1, x) && Near(segment.y1, y));
  };
  return isAt(a, b.x0, b.y0) || isAt(a, b.x1, b.y1);
}

inline void ExpectSameSegments(const std::vector<Segment>& actual, std::vector<Segment> expected) {
  EXPECT_EQ(actual.size(), expected.size());
  for (const Segment& segment : actual) {
    std::size_t i = 0;
    while (i < expected.size() && !IsSame(segment, expected[i])) ++i;
    if (i == expected.size()) {
      ADD_FAILURE() << "not expected: " << segment.x0 << ", " << segment.y0 << " to " << segment.x1
                    << ", " << segment.y1;
      continue;
    }
    expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(i));
  }
}

/// Contour lines of meshes that lie between -1 and 1 of x and y.
class ContourTest : public ::testing::Test {
 protected:
  static constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  static constexpr double kInfinity = std::numeric_limits<double>::infinity();

  ContourTest() : target(200, 200), gl(*target.gl) { gl.LoadIdentity(); }

  /// An even grid over the whole view.
  static CPolysurface Grid(int rows, int columns, const std::vector<double>& heights,
                           int type = 1) {
    return CPolysurface(rows, columns, -1, -1, 1, 1, heights.data(), type);
  }

  /// The same of a function of x and y.
  template <class Height>
  static CPolysurface GridOf(int rows, int columns, Height height, int type = 1) {
    std::vector<double> heights;
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < columns; ++column) {
        heights.push_back(height(-1.0 + column * 2.0 / (columns - 1),  //
                                 -1.0 + row * 2.0 / (rows - 1)));
      }
    }
    return Grid(rows, columns, heights, type);
  }

  /// A mesh of one polygon.
  static CPolysurface OnePolygon(const std::vector<point3Dtype>& points) {
    const auto count = static_cast<int>(points.size());
    CPolysurface mesh(count, 1, count);
    std::vector<int> indices;
    for (int i = 0; i < count; ++i) {
      mesh.SetOnePolysurfacePoint(i, points[static_cast<std::size_t>(i)]);
      indices.push_back(i);
    }
    mesh.AddPolysurfacePolygon(0, indices.data(), count, {}, {});
    return mesh;
  }

  std::vector<FeedbackPrimitive> Draw(const CPolysurface& mesh, const std::vector<double>& levels,
                                      const RGBDType* colors = nullptr, double plane = 0.0) {
    return CaptureFeedback([&] {
      const CContour3D contour(&gl, nullptr, &mesh, levels.data(), colors,
                               static_cast<int>(levels.size()), plane, 0);
    });
  }

  /// The drawn lines in the order of drawing.
  std::vector<Segment> Lines(const CPolysurface& mesh, const std::vector<double>& levels) {
    std::vector<Segment> segments;
    for (const auto& line : Draw(mesh, levels)) {
      EXPECT_EQ(line.kind, FeedbackPrimitive::Kind::kLine);
      const auto& from = line.vertices.front();
      const auto& to = line.vertices.back();
      segments.push_back(
          {from.x / 100.0 - 1.0, from.y / 100.0 - 1.0, to.x / 100.0 - 1.0, to.y / 100.0 - 1.0});
    }
    return segments;
  }

  /// Polygons that are followed at these levels.
  static long long Crossings(const CPolysurface& mesh, const std::vector<double>& levels) {
    const CContour3D contour(nullptr, nullptr, &mesh, levels.data(), nullptr,
                             static_cast<int>(levels.size()), 0.0, 0);
    EXPECT_EQ(contour.GetNumLevels(), static_cast<int>(levels.size()));
    return contour.GetNumCrossings();
  }

  static std::vector<point3Dtype> VerticesOf(const CPolysurface& mesh, int polygon) {
    std::vector<point3Dtype> vertices(256);
    int count = 0;
    mesh.GPSPolygon(polygon, vertices.data(), count);
    vertices.resize(static_cast<std::size_t>(count));
    return vertices;
  }

  static bool IsBetween(double level, double a, double b) {
    return (a <= level && level <= b) || (b <= level && level <= a);
  }

  /// The part of the line inside each polygon: from its first edge that climbs or falls through the
  /// level to its second one.
  static std::vector<Segment> Expected(const CPolysurface& mesh, double level) {
    std::vector<Segment> segments;
    for (int polygon = 0; polygon < mesh.GetPSNumPolygons(); ++polygon) {
      const auto vertices = VerticesOf(mesh, polygon);
      std::vector<double> ends;
      for (std::size_t i = 0; i < vertices.size() && ends.size() < 4; ++i) {
        const point3Dtype& a = vertices[i];
        const point3Dtype& b = vertices[(i + 1) % vertices.size()];
        if (a.z == b.z || !IsBetween(level, a.z, b.z)) continue;
        const double share = (level - a.z) / (b.z - a.z);
        ends.push_back(a.x + share * (b.x - a.x));
        ends.push_back(a.y + share * (b.y - a.y));
      }
      if (ends.size() == 4) segments.push_back({ends[0], ends[1], ends[2], ends[3]});
    }
    return segments;
  }

  /// Polygons with an edge that a level crosses or touches.
  static long long ExpectedCrossings(const CPolysurface& mesh, double level) {
    long long crossed = 0;
    for (int polygon = 0; polygon < mesh.GetPSNumPolygons(); ++polygon) {
      const auto vertices = VerticesOf(mesh, polygon);
      bool any = false;
      for (std::size_t i = 0; i < vertices.size(); ++i) {
        any |= IsBetween(level, vertices[i].z, vertices[(i + 1) % vertices.size()].z);
      }
      crossed += any ? 1 : 0;
    }
    return crossed;
  }

  /// Expects the lines of several levels, one level after the other.
  void ExpectLines(const CPolysurface& mesh, const std::vector<double>& levels) {
    const auto lines = Lines(mesh, levels);
    std::size_t next = 0;
    long long crossings = 0;
    for (const double level : levels) {
      SCOPED_TRACE(::testing::Message() << "level " << level);
      const auto expected = Expected(mesh, level);
      ASSERT_LE(next + expected.size(), lines.size());
      const auto first = lines.begin() + static_cast<std::ptrdiff_t>(next);
      next += expected.size();
      ExpectSameSegments({first, lines.begin() + static_cast<std::ptrdiff_t>(next)}, expected);
      crossings += ExpectedCrossings(mesh, level);
    }
    EXPECT_EQ(lines.size(), next);
    EXPECT_EQ(Crossings(mesh, levels), crossings);
  }

  /// Expects that each segment begins where the one before ends.
  static void ExpectChain(const std::vector<Segment>& chain) {
    for (std::size_t i = 0; i + 1 < chain.size(); ++i) {
      EXPECT_TRUE(Touch(chain[i], chain[i + 1])) << "between " << i << " and the next";
    }
  }

  Offscreen target;
  COpenGL& gl;
};

}  // namespace orvalix::test
