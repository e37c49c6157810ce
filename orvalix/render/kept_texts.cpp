#include <utility>

#include "orvalix/render/kept_texts_internal.h"

namespace orvalix {

void KeptTexts::Draw(const std::shared_ptr<BufferPool>& pool, GatheredGeometry geometry) {
  const bool isKept = m_list != nullptr && m_list->IsOf(pool) && geometry == m_geometry;
  if (!isKept) {
    m_list.reset();
    m_list = std::make_unique<DrawList>(pool, geometry);
    m_geometry = std::move(geometry);
  }
  m_list->Draw();
}

}  // namespace orvalix
