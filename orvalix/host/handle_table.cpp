#include <cstddef>
#include <mutex>
#include <new>
#include <unordered_map>

#include "orvalix/host/handle_table_internal.h"

namespace orvalix {
namespace {

struct HandleTable {
  std::mutex mutex;
  std::unordered_map<const void*, HandleKind> kinds;  ///< by handle
};

/// Never destroyed: objects with static storage may outlive every static table. Made without
/// memory of its own, so that a look-up can't fail.
HandleTable& Table() {
  alignas(HandleTable) static std::byte storage[sizeof(HandleTable)];
  static HandleTable* const table = new (storage) HandleTable;
  return *table;
}

}  // namespace

HandleOwner::HandleOwner(HandleKind kind) {
  HandleTable& table = Table();
  const std::lock_guard lock(table.mutex);
  table.kinds.emplace(this, kind);
}

HandleOwner::~HandleOwner() {
  HandleTable& table = Table();
  const std::lock_guard lock(table.mutex);
  table.kinds.erase(this);
}

HandleOwner* FindHandle(const void* handle, HandleKind kind) noexcept {
  if (handle == nullptr) return nullptr;
  HandleTable& table = Table();
  const std::lock_guard lock(table.mutex);
  const auto found = table.kinds.find(handle);
  if (found == table.kinds.end() || found->second != kind) return nullptr;
  return static_cast<HandleOwner*>(const_cast<void*>(handle));
}

}  // namespace orvalix
