#include "orvalix/render/kept_drawing.h"

#include <cstring>
#include <new>

#include "orvalix/render/kept_drawing_internal.h"

namespace orvalix {

bool KeptDrawing::IsSame(const std::vector<double>& shape) const {
  return shape.size() == m_shape.size() &&
         std::memcmp(shape.data(), m_shape.data(), shape.size() * sizeof(double)) == 0;
}

KeptDrawingSlot::KeptDrawingSlot() noexcept = default;

KeptDrawingSlot::KeptDrawingSlot(const KeptDrawingSlot&) noexcept {}

KeptDrawingSlot::KeptDrawingSlot(KeptDrawingSlot&& source) noexcept { source.Forget(); }

KeptDrawingSlot& KeptDrawingSlot::operator=(const KeptDrawingSlot&) noexcept {
  Forget();
  return *this;
}

KeptDrawingSlot& KeptDrawingSlot::operator=(KeptDrawingSlot&& source) noexcept {
  Forget();
  source.Forget();
  return *this;
}

KeptDrawingSlot::~KeptDrawingSlot() = default;

void KeptDrawingSlot::Forget() noexcept { m_drawing.reset(); }

KeptDrawing* KeptDrawingSlot::TryGet() noexcept {
  if (m_drawing == nullptr) m_drawing.reset(new (std::nothrow) KeptDrawing);
  return m_drawing.get();
}

}  // namespace orvalix
