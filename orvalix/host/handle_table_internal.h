/// @file
/// Which handles stand for living objects.
#pragma once

#include <cstdint>

#include "orvalix/host/host_types.h"

namespace orvalix {

/// What a handle can stand for.
enum class HandleKind : std::uint8_t { kBitmap, kPalette, kDeviceContext, kGlobalMemory };

/// Keeps a handle valid from construction to destruction. The objects behind handles derive from
/// it.
///
/// Handles are numbers, counted up and never used again, so that deleted and made-up ones are
/// recognised even when a new object lies where the old one was. Handles may be looked up on
/// several threads; the objects behind them are for one thread at a time.
class HandleOwner {
 public:
  HandleOwner(const HandleOwner&) = delete;
  HandleOwner& operator=(const HandleOwner&) = delete;

 protected:
  /// @throws std::bad_alloc
  explicit HandleOwner(HandleKind kind);
  ~HandleOwner();
  /// The handle; never null.
  void* RawHandle() const { return m_handle; }

 private:
  void* m_handle;  ///< a number, not an address
};

/// The living object of that kind behind a handle; null when there is none.
HandleOwner* FindHandle(const void* handle, HandleKind kind) noexcept;

/// As FindHandle(), as the type that belongs to the kind.
template <class Object>
Object* Find(const void* handle) noexcept {
  return static_cast<Object*>(FindHandle(handle, Object::kKind));
}

}  // namespace orvalix
