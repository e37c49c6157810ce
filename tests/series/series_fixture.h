/// @file
/// A data series on a transform from 0 to 10, and expectations on what it draws, in working
/// coordinates.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/points.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"
#include "support/feedback.h"
#include "support/offscreen.h"

namespace orvalix::test {

inline constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// A point in working coordinates.
struct Place {
  double x, y, z;
};

/// A box in working coordinates.
struct Box {
  double x, y, z, dx, dy, dz;
};

/// The corners of a solid in the order in which COpenGL::DrawSolidObject3D() takes them.
using Solid = std::array<Place, 8>;

/// The primitives from `first` on.
inline std::vector<FeedbackPrimitive> Part(const std::vector<FeedbackPrimitive>& drawn,
                                           std::size_t first, std::size_t count) {
  std::vector<FeedbackPrimitive> part;
  for (std::size_t i = first; i < first + count && i < drawn.size(); ++i) part.push_back(drawn[i]);
  EXPECT_EQ(part.size(), count) << "primitives from " << first << " on";
  return part;
}

/// The outlines of faces, which are four lines each, as faces. Outlined faces that are seen edge-on
/// don't tell their depths; their edges do.
inline std::vector<FeedbackPrimitive> FacesFromEdges(const std::vector<FeedbackPrimitive>& drawn) {
  constexpr std::size_t kEdges = 4;
  const auto lines = OfKind(drawn, FeedbackPrimitive::Kind::kLine);
  EXPECT_EQ(lines.size() % kEdges, 0U);
  std::vector<FeedbackPrimitive> faces;
  for (std::size_t i = 0; i + kEdges <= lines.size(); i += kEdges) {
    FeedbackPrimitive face{FeedbackPrimitive::Kind::kPolygon, {}};
    for (std::size_t edge = 0; edge < kEdges; ++edge) {
      face.vertices.push_back(lines[i + edge].vertices[0]);
    }
    face.vertices.push_back(lines[i + kEdges - 1].vertices[1]);
    faces.push_back(face);
  }
  return faces;
}

/// The volume that faces enclose, in units of the scale from 0 to 10; positive when they turn out,
/// that is, run counterclockwise as seen from outside.
inline double SignedVolume(const std::vector<FeedbackPrimitive>& faces) {
  double volume = 0.0;
  for (const FeedbackPrimitive& face : faces) {
    const FeedbackVertex& a = face.vertices[0];
    for (std::size_t i = 1; i + 1 < face.vertices.size(); ++i) {
      const FeedbackVertex& b = face.vertices[i];
      const FeedbackVertex& c = face.vertices[i + 1];
      volume += a.x * (b.y * c.z - b.z * c.y) - a.y * (b.x * c.z - b.z * c.x) +
                a.z * (b.x * c.y - b.y * c.x);
    }
  }
  // A unit is 10 pixels wide and high and 0.05 deep. Depth falls where y grows, but the window also
  // exchanges y and z, so that sides stay as they are. The products are those of six pyramids.
  constexpr double kWindowPerUnit = 10.0 * 10.0 * 0.05;
  constexpr double kPyramids = 6.0;
  return volume / (kWindowPerUnit * kPyramids);
}

class SeriesTest : public ::testing::Test {
 protected:
  SeriesTest()
      : target(200, 200),
        transform(target.gl.get(), {0, 0, 0, 0}, {10, 10, 10, 0}),
        series(target.gl.get(), &transform) {}

  /// Neither lit nor outlined: faces have the colours that they were given.
  void Plain() {
    series.SetColorMode(0);
    series.SetOutlineMode(0);
  }

  /// Outlined, with a gap of 0.5 of the 10 units of the scale.
  void WithGap() {
    constexpr double kGapShare = 0.05;
    series.SetColorMode(0);
    series.SetOutlineMode(1);
    series.SetFillGap(kGapShare);
  }

  void SetLogScale(int axis, double min, double max) {
    point3Dtype low;
    point3Dtype high;
    transform.GetScale(low, high);
    coordassign(low, axis, min);
    coordassign(high, axis, max);
    transform.SetScale(low, high);
    transform.SetAxisScaleMode(axis, 1);
  }

  std::vector<FeedbackPrimitive> Drawn() { return Drawn(series); }

  std::vector<FeedbackPrimitive> Drawn(CChartObj3D& object) {
    target.gl->LoadIdentity();  // as a chart does before each frame
    return CaptureFeedback([&] { object.DrawChartObj(); });
  }

  /// Where a point of working space lies in the window: the default box spans its middle half, z
  /// points up and larger y is nearer.
  FeedbackVertex Window(const Place& place) const {
    point3Dtype min;
    point3Dtype max;
    transform.GetWorkingScale(min, max);
    const auto normalized = [](double value, double low, double high) {
      return ((value - low) * 2.0 / (high - low) - 1.0) * 0.5;
    };
    FeedbackVertex vertex{};
    vertex.x = (normalized(place.x, min.x, max.x) + 1.0) * 100.0;
    vertex.y = (normalized(place.z, min.z, max.z) + 1.0) * 100.0;
    vertex.z = (1.0 - normalized(place.y, min.y, max.y)) / 2.0;
    return vertex;
  }

  void ExpectVertices(const FeedbackPrimitive& primitive, const std::vector<Place>& places) const {
    ASSERT_EQ(primitive.vertices.size(), places.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
      const FeedbackVertex expected = Window(places[i]);
      EXPECT_NEAR(primitive.vertices[i].x, expected.x, 1e-2) << "vertex " << i;
      EXPECT_NEAR(primitive.vertices[i].y, expected.y, 1e-2) << "vertex " << i;
      EXPECT_NEAR(primitive.vertices[i].z, expected.z, 1e-5) << "vertex " << i;
    }
  }

  /// Expects polygons with those vertices, in that order.
  void ExpectPolygons(const std::vector<FeedbackPrimitive>& drawn,
                      const std::vector<std::vector<Place>>& polygons) const {
    ASSERT_EQ(drawn.size(), polygons.size());
    for (std::size_t i = 0; i < polygons.size(); ++i) {
      SCOPED_TRACE(::testing::Message() << "polygon " << i);
      EXPECT_EQ(drawn[i].kind, FeedbackPrimitive::Kind::kPolygon);
      ExpectVertices(drawn[i], polygons[i]);
    }
  }

  /// Expects lines between those ends, in that order.
  void ExpectLines(const std::vector<FeedbackPrimitive>& drawn,
                   const std::vector<std::pair<Place, Place>>& lines) const {
    ASSERT_EQ(drawn.size(), lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
      SCOPED_TRACE(::testing::Message() << "line " << i);
      EXPECT_EQ(drawn[i].kind, FeedbackPrimitive::Kind::kLine);
      ExpectVertices(drawn[i], {lines[i].first, lines[i].second});
    }
  }

  /// Expects the six faces of each solid in turn, with the corners in their places.
  void ExpectSolids(const std::vector<FeedbackPrimitive>& drawn,
                    const std::vector<Solid>& solids) const {
    constexpr std::array<std::array<std::size_t, 4>, 6> kFaces{
        {{0, 3, 7, 4}, {1, 5, 6, 2}, {0, 4, 5, 1}, {3, 2, 6, 7}, {0, 1, 2, 3}, {4, 7, 6, 5}}};
    ASSERT_EQ(drawn.size(), solids.size() * kFaces.size());
    for (std::size_t s = 0; s < solids.size(); ++s) {
      for (std::size_t f = 0; f < kFaces.size(); ++f) {
        SCOPED_TRACE(::testing::Message() << "solid " << s << ", face " << f);
        std::vector<Place> corners;
        for (const std::size_t corner : kFaces[f]) corners.push_back(solids[s][corner]);
        corners.push_back(corners.front());
        ExpectVertices(drawn[s * kFaces.size() + f], corners);
      }
    }
  }

  /// Expects the six faces of each box in turn.
  void ExpectBoxes(const std::vector<FeedbackPrimitive>& drawn,
                   const std::vector<Box>& boxes) const {
    std::vector<Solid> solids;
    for (const Box& box : boxes) {
      const double x = box.x + box.dx;
      const double y = box.y + box.dy;
      const double z = box.z + box.dz;
      solids.push_back({{{box.x, box.y, box.z},
                         {box.x, y, box.z},
                         {x, y, box.z},
                         {x, box.y, box.z},
                         {box.x, box.y, z},
                         {box.x, y, z},
                         {x, y, z},
                         {x, box.y, z}}});
    }
    ExpectSolids(drawn, solids);
  }

  static void ExpectColor(const FeedbackPrimitive& primitive, const RGBDType& color) {
    for (const FeedbackVertex& vertex : primitive.vertices) {
      EXPECT_NEAR(vertex.red, color.red, 1e-6);
      EXPECT_NEAR(vertex.green, color.green, 1e-6);
      EXPECT_NEAR(vertex.blue, color.blue, 1e-6);
    }
  }

  /// Expects the faces of each solid in turn in one colour.
  static void ExpectSolidColors(const std::vector<FeedbackPrimitive>& drawn,
                                const std::vector<RGBDType>& colors) {
    ASSERT_EQ(drawn.size(), colors.size() * 6);
    for (std::size_t i = 0; i < drawn.size(); ++i) {
      SCOPED_TRACE(::testing::Message() << "solid " << i / 6);
      ExpectColor(drawn[i], colors[i / 6]);
    }
  }

  /// Expects the same primitives at the same places in the same colours.
  static void ExpectSame(const std::vector<FeedbackPrimitive>& drawn,
                         const std::vector<FeedbackPrimitive>& expected) {
    EXPECT_EQ(ToTranscript(drawn), ToTranscript(expected));
  }

  /// What OpenGL was last told.
  static double GLNumber(GLenum name) {
    std::array<GLdouble, 16> values{};
    glGetDoublev(name, values.data());
    return values[0];
  }

  const RGBDType red = SetRGBD(1, 0, 0, 1);
  const RGBDType green = SetRGBD(0, 1, 0, 1);
  const RGBDType blue = SetRGBD(0, 0, 1, 1);
  const RGBDType yellow = SetRGBD(1, 1, 0, 1);
  const RGBDType cyan = SetRGBD(0, 1, 1, 1);
  const RGBDType magenta = SetRGBD(1, 0, 1, 1);
  Offscreen target;
  CTransform3D transform;
  CChartObj3D series;
};

/// A justification and the share of the width by which it moves.
inline constexpr std::array<std::pair<int, double>, 5> kJustifications{
    {{0, 0.0}, {1, -0.5}, {2, -1.0}, {3, 0.0}, {-1, 0.0}}};

}  // namespace orvalix::test
