/// @file
/// What OpenGL was told to draw, caught in feedback mode before it becomes pixels: each polygon,
/// line and point in order, with its vertices in window coordinates and their colours.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace orvalix::test {

/// A vertex as OpenGL would rasterise it. x and y are pixels from the lower left corner of the
/// target, z is the depth from 0 (nearest) to 1 (farthest), t and t2 are the texture coordinates.
struct FeedbackVertex {
  double x, y, z;
  double red, green, blue, alpha;
  double t, t2;
};

struct FeedbackPrimitive {
  enum class Kind { kPoint, kLine, kPolygon };
  Kind kind;
  std::vector<FeedbackVertex> vertices;
};

/// Runs `draw` in feedback mode on the current context and returns what it drew. The lines of a
/// strip come one by one. Fails the test when the drawing overflows a very large buffer.
std::vector<FeedbackPrimitive> CaptureFeedback(const std::function<void()>& draw);

/// As CaptureFeedback(), but areas remain the triangles that the rasteriser makes of them, so that
/// each keeps the colours of its own corners.
std::vector<FeedbackPrimitive> CaptureTriangles(const std::function<void()>& draw);

/// Only the primitives of one kind, in order.
std::vector<FeedbackPrimitive> OfKind(const std::vector<FeedbackPrimitive>& primitives,
                                      FeedbackPrimitive::Kind kind);

/// One line of text per primitive: its kind, its colour (of the first vertex) as red green blue,
/// then its vertices as (x y z), with one decimal for pixels and three for depth and colour.
std::string ToTranscript(const std::vector<FeedbackPrimitive>& primitives);

}  // namespace orvalix::test
