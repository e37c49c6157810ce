#include <cstddef>
#include <cstdint>
#include <mutex>
#include <new>
#include <unordered_map>

#include "orvalix/host/handle_table_internal.h"

namespace orvalix {
namespace {

struct Entry {
  HandleOwner* owner;
  HandleKind kind;
};

struct HandleTable {
  std::mutex mutex;
  std::uintptr_t lastHandle = 0;
  std::unordered_map<const void*, Entry> entries;  ///< by handle
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
  m_handle = reinterpret_cast<void*>(++table.lastHandle);
  table.entries.emplace(m_handle, Entry{this, kind});
}

HandleOwner::~HandleOwner() {
  HandleTable& table = Table();
  const std::lock_guard lock(table.mutex);
  table.entries.erase(m_handle);
}

HandleOwner* FindHandle(const void* handle, HandleKind kind) noexcept {
  if (handle == nullptr) return nullptr;
  HandleTable& table = Table();
  const std::lock_guard lock(table.mutex);
  const auto found = table.entries.find(handle);
  return found != table.entries.end() && found->second.kind == kind ? found->second.owner : nullptr;
}

}  // namespace orvalix
