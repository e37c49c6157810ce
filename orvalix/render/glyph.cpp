#include <algorithm>
#include <cmath>

#include "orvalix/render/glyph_internal.h"

namespace orvalix {
namespace {

/// No curve of a character needs more, however small the deviation asked for.
constexpr double kMostSteps = 64.0;

GlyphPoint operator*(double factor, GlyphPoint point) {
  return {factor * point.x, factor * point.y};
}

GlyphPoint operator+(GlyphPoint a, GlyphPoint b) { return {a.x + b.x, a.y + b.y}; }

/// How far the polygon a, b, c bends at b.
double SecondDifference(GlyphPoint a, GlyphPoint b, GlyphPoint c) {
  return std::hypot(a.x - 2.0 * b.x + c.x, a.y - 2.0 * b.y + c.y);
}

}  // namespace

ContourBuilder::ContourBuilder(double deviation) : m_deviation(deviation) {}

void ContourBuilder::Append(GlyphPoint point) {
  GlyphContour& contour = m_contours.back();
  if (contour.empty() || contour.back() != point) contour.push_back(point);
}

int ContourBuilder::Steps(double bend) const {
  // The chords of n equal steps stray from the curve by bend / n^2.
  const double steps = std::ceil(std::sqrt(bend / m_deviation));
  return static_cast<int>(std::clamp(steps, 1.0, kMostSteps));
}

void ContourBuilder::MoveTo(GlyphPoint point) {
  m_contours.emplace_back();
  Append(point);
}

void ContourBuilder::LineTo(GlyphPoint point) { Append(point); }

void ContourBuilder::ConicTo(GlyphPoint control, GlyphPoint point) {
  const GlyphPoint start = m_contours.back().back();
  const int steps = Steps(SecondDifference(start, control, point) / 4.0);
  for (int i = 1; i <= steps; ++i) {
    const double t = static_cast<double>(i) / steps;
    const double u = 1.0 - t;
    Append(u * u * start + 2.0 * u * t * control + t * t * point);
  }
}

void ContourBuilder::CubicTo(GlyphPoint control1, GlyphPoint control2, GlyphPoint point) {
  const GlyphPoint start = m_contours.back().back();
  const double bend = std::max(SecondDifference(start, control1, control2),
                               SecondDifference(control1, control2, point));
  const int steps = Steps(0.75 * bend);
  for (int i = 1; i <= steps; ++i) {
    const double t = static_cast<double>(i) / steps;
    const double u = 1.0 - t;
    Append(u * u * u * start + 3.0 * u * u * t * control1 + 3.0 * u * t * t * control2 +
           t * t * t * point);
  }
}

std::vector<GlyphContour> ContourBuilder::Take() {
  for (GlyphContour& contour : m_contours) {
    if (contour.size() > 1 && contour.front() == contour.back()) contour.pop_back();
  }
  std::erase_if(m_contours, [](const GlyphContour& contour) { return contour.size() < 3; });
  return std::move(m_contours);
}

}  // namespace orvalix
