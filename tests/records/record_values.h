/// @file
/// The values of the fixtures: every number stands once in a record, and the four of a point, a
/// colour or a rectangle are each 1/8 above the one before.
#pragma once

#include <array>

#include "orvalix/foundation/value_types.h"
#include "orvalix/render/text_obj_3d.h"
#include "support/record_fixture.h"

namespace orvalix::test {

using Four = std::array<double, 4>;

/// The four numbers that begin with `first`.
inline Four From(double first) { return {first, first + 0.125, first + 0.25, first + 0.375}; }
inline point3Dtype PointFrom(double first) {
  return {first, first + 0.125, first + 0.25, first + 0.375};
}
inline RGBDType ColorFrom(double first) {
  return {first, first + 0.125, first + 0.25, first + 0.375};
}

inline Four Of(const point3Dtype& p) { return {p.x, p.y, p.z, p.v}; }
inline Four Of(const RGBDType& c) { return {c.red, c.green, c.blue, c.alpha}; }
inline Four Of(const GLViewRType& r) { return {r.x, r.y, r.width, r.height}; }
inline std::array<int, 4> Of(const GLViewportType& v) { return {v.x, v.y, v.width, v.height}; }

/// Everything of a text but its string: as the fixtures have it, whose numbers follow from `first`.
/// No setter reaches the reserved number, which stays 0.
inline void SetUpText(CTextObj3D& text, int first) {
  text.SetLocation(PointFrom(first + 0.5));
  text.SetNormLocation(PointFrom(first + 1.5));
  text.SetJustify(first + 1, first + 2);
  text.SetColor(ColorFrom(first + 2.5));
  text.SetTextPlane(first + 3);
  text.SetFlipX(first + 4);
  text.SetFlipY(first + 5);
  text.SetRotation(first + 6);
  text.SetClipping(first + 8);
  text.EnableTextObj(first + 9);
  text.SetCharSize(first + 3.5);
}

/// What children of a chart name as their transform.
inline constexpr int kTransformId = 1601;

}  // namespace orvalix::test
