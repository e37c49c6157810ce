/// @file
/// Where an object keeps what it has drawn.
#pragma once

#include <memory>

namespace orvalix {

class KeptDrawing;

/// Holds the drawing of an object, once there is one. Copies of the object have none, and one whose
/// contents were moved away has none any more.
class KeptDrawingSlot {
 public:
  KeptDrawingSlot() noexcept;
  KeptDrawingSlot(const KeptDrawingSlot&) noexcept;
  KeptDrawingSlot(KeptDrawingSlot&& source) noexcept;
  KeptDrawingSlot& operator=(const KeptDrawingSlot&) noexcept;
  KeptDrawingSlot& operator=(KeptDrawingSlot&& source) noexcept;
  ~KeptDrawingSlot();

  /// What shapes the object has changed.
  void Forget() noexcept;
  /// The drawing, made when there is none; null when memory runs out.
  KeptDrawing* TryGet() noexcept;

 private:
  std::unique_ptr<KeptDrawing> m_drawing;
};

}  // namespace orvalix
