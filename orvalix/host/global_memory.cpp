#include "orvalix/host/global_memory.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <utility>

#include "orvalix/host/handle_table_internal.h"

namespace {

/// What stands behind the handle of a block. It lives from GlobalAlloc() to GlobalFree().
class GlobalBlock : public orvalix::HandleOwner {
 public:
  static constexpr orvalix::HandleKind kKind = orvalix::HandleKind::kGlobalMemory;

  /// @throws std::bad_alloc
  GlobalBlock(std::unique_ptr<std::byte[]> bytes, SIZE_T size)
      : HandleOwner(kKind), m_bytes(std::move(bytes)), m_size(size) {}

  HGLOBAL Handle() const { return RawHandle(); }
  SIZE_T Size() const { return m_size; }
  void* Lock() {
    if (m_size == 0) return nullptr;
    ++m_locks;
    return m_bytes.get();
  }
  /// @return true while locks remain
  bool Unlock() {
    if (m_locks > 0) --m_locks;
    return m_locks > 0;
  }

 private:
  std::unique_ptr<std::byte[]> m_bytes;
  SIZE_T m_size;              ///< bytes
  std::uint64_t m_locks = 0;  ///< calls of GlobalLock() not yet taken back
};

/// @throws std::bad_alloc
std::unique_ptr<std::byte[]> MakeBytes(SIZE_T size, bool isZeroed) {
  if (size > static_cast<SIZE_T>(std::numeric_limits<std::ptrdiff_t>::max())) {
    throw std::bad_alloc();
  }
  return isZeroed ? std::make_unique<std::byte[]>(size)
                  : std::make_unique_for_overwrite<std::byte[]>(size);
}

}  // namespace

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes) {
  if ((flags & GMEM_MOVEABLE) == 0) return nullptr;
  try {
    auto memory = MakeBytes(bytes, (flags & GMEM_ZEROINIT) != 0);
    return std::make_unique<GlobalBlock>(std::move(memory), bytes).release()->Handle();
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void* GlobalLock(HGLOBAL block) {
  auto* found = orvalix::Find<GlobalBlock>(block);
  return found != nullptr ? found->Lock() : nullptr;
}

BOOL GlobalUnlock(HGLOBAL block) {
  auto* found = orvalix::Find<GlobalBlock>(block);
  return found != nullptr && found->Unlock() ? TRUE : FALSE;
}

SIZE_T GlobalSize(HGLOBAL block) {
  const auto* found = orvalix::Find<GlobalBlock>(block);
  return found != nullptr ? found->Size() : 0;
}

HGLOBAL GlobalFree(HGLOBAL block) {
  const std::unique_ptr<GlobalBlock> found(orvalix::Find<GlobalBlock>(block));
  return found ? nullptr : block;
}
