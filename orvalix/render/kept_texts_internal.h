/// @file
/// Texts that are kept from frame to frame.
#pragma once

#include <memory>

#include "orvalix/render/draw_list_internal.h"
#include "orvalix/render/gathered_geometry_internal.h"

namespace orvalix {

/// What an object gathered last that draws texts, and its drawing. Where texts stand depends on so
/// much that they are gathered in each frame; that is little work, for characters are told by
/// their names. What costs time, their triangles, is kept until something else is gathered.
class KeptTexts {
 public:
  /// Draws what was gathered.
  /// @throws std::bad_alloc, with nothing drawn
  void Draw(const std::shared_ptr<BufferPool>& pool, GatheredGeometry geometry);

 private:
  GatheredGeometry m_geometry;
  std::unique_ptr<DrawList> m_list;  ///< of m_geometry
};

}  // namespace orvalix
