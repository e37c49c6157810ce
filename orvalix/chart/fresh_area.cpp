#include "orvalix/chart/fresh_area.h"

#include <algorithm>
#include <cstdint>

namespace orvalix {
namespace {

std::int64_t Right(const GLViewportType& pixels) { return std::int64_t{pixels.x} + pixels.width; }

std::int64_t Top(const GLViewportType& pixels) { return std::int64_t{pixels.y} + pixels.height; }

bool Overlap(const GLViewportType& a, const GLViewportType& b) {
  return a.x < Right(b) && b.x < Right(a) && a.y < Top(b) && b.y < Top(a);
}

}  // namespace

FreshArea::FreshArea(const GLViewportType& frame, const RGBDType& color)
    : m_frame(frame), m_color(color) {}

bool FreshArea::Contains(const GLViewportType& pixels) const {
  const bool isInside = pixels.x >= m_frame.x && pixels.y >= m_frame.y &&
                        Right(pixels) <= Right(m_frame) && Top(pixels) <= Top(m_frame);
  return isInside &&
         std::none_of(m_covered.begin(), m_covered.begin() + m_count,
                      [&](const GLViewportType& covered) { return Overlap(covered, pixels); });
}

bool FreshArea::HasColor(const RGBDType& color) const {
  return color.red == m_color.red && color.green == m_color.green && color.blue == m_color.blue;
}

void FreshArea::Cover(const GLViewportType& pixels) {
  if (m_count == m_covered.size()) {
    m_covered.back() = m_frame;
  } else {
    m_covered[m_count++] = pixels;
  }
}

}  // namespace orvalix
