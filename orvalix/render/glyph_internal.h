/// @file
/// The outline of one character.
#pragma once

#include <vector>

#include "orvalix/host/host.h"

namespace orvalix {

/// A position in em, from the character's origin on the base line; y points up.
struct GlyphPoint {
  double x = 0.0;
  double y = 0.0;

  bool operator==(const GlyphPoint&) const = default;
};

/// A closed polygon; the last point isn't the first one again.
using GlyphContour = std::vector<GlyphPoint>;

/// A character as polygons, its curves flattened. What lies inside is told by the nonzero winding
/// rule.
struct Glyph {
  std::vector<GlyphContour> contours;
  GLYPHMETRICSFLOAT metrics{};
};

/// Gathers contours out of lines and curves.
class ContourBuilder {
 public:
  /// @param deviation largest distance in em between a curve and the lines that stand for it
  explicit ContourBuilder(double deviation);

  /// Starts a contour.
  void MoveTo(GlyphPoint point);
  void LineTo(GlyphPoint point);
  /// A quadratic curve with one control point.
  void ConicTo(GlyphPoint control, GlyphPoint point);
  /// A cubic curve with two control points.
  void CubicTo(GlyphPoint control1, GlyphPoint control2, GlyphPoint point);
  /// The contours so far. Those of fewer than three points enclose nothing and are left out.
  std::vector<GlyphContour> Take();

 private:
  void Append(GlyphPoint point);
  /// Steps in which a curve is walked that bends away from its chord by `bend`.
  int Steps(double bend) const;

  double m_deviation;
  std::vector<GlyphContour> m_contours;
};

}  // namespace orvalix
