/// @file
/// What of a frame nothing has been drawn to yet.
#pragma once

#include <array>
#include <cstddef>

#include "orvalix/foundation/value_types.h"

namespace orvalix {

/// The part of a frame that is as it was cleared: a chart there needn't clear it again, which is
/// much of the work of a small chart.
class FreshArea {
 public:
  /// Nothing is fresh.
  FreshArea() = default;
  /// A frame that has just been cleared, to that colour.
  FreshArea(const GLViewportType& frame, const RGBDType& color);

  /// True when nothing has been drawn to any of these pixels, all of which are the frame's.
  bool Contains(const GLViewportType& pixels) const;
  /// True when red, green and blue are those of the frame.
  bool HasColor(const RGBDType& color) const;
  /// Something is drawn to these pixels.
  void Cover(const GLViewportType& pixels);

 private:
  /// Frames with more charts than this are cleared by each of the others.
  static constexpr std::size_t kMostCovered = 64;

  GLViewportType m_frame{};
  RGBDType m_color{};
  std::array<GLViewportType, kMostCovered> m_covered{};
  std::size_t m_count = 0;
};

}  // namespace orvalix
