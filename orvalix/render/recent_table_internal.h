/// @file
/// A memory that forgets.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace orvalix {

/// Things found again by their hash. It grows with what it has to remember, up to a size at which
/// later things replace earlier ones: what is near in time is found, at a bounded cost.
/// @tparam T has `bool IsSpare() const`, true of what may be replaced at no loss, `T{}` for one,
///   and `std::uint32_t Hash() const`
template <class T>
class RecentTable {
 public:
  /// The thing with that hash of which `isIt` is true, until the next one is remembered; null when
  /// there is none.
  template <class IsIt>
  T* Find(std::uint32_t hash, IsIt isIt) {
    if (m_slots.empty()) return nullptr;
    T* const row = Row(hash);
    T* const found = std::find_if(row, row + kRow, isIt);
    return found == row + kRow ? nullptr : found;
  }
  /// @throws std::bad_alloc
  T& Remember(const T& thing) {
    if (m_used * kRow >= m_slots.size()) Grow();
    return Put(thing);
  }
  /// A thing that Find() told has become one that may be replaced.
  void HasBecomeSpare() { --m_used; }

 private:
  static constexpr std::size_t kRow = 4;  ///< slots that a thing may be in
  static constexpr std::size_t kFewest = std::size_t{1} << 6;
  /// Several times what a row of a large grid has.
  static constexpr std::size_t kMost = std::size_t{1} << 14;

  T* Row(std::uint32_t hash) { return &m_slots[hash & (m_slots.size() - kRow)]; }

  /// In front of the others of its row; where that is full, the oldest is lost.
  T& Put(const T& thing) {
    T* const row = Row(thing.Hash());
    T* last = std::find_if(row, row + kRow, [](const T& slot) { return slot.IsSpare(); });
    if (last == row + kRow) {
      --last;
    } else {
      ++m_used;
    }
    std::move_backward(row, last, last + 1);
    return *row = thing;
  }

  void Grow() {
    if (m_slots.size() == kMost) return;
    std::vector<T> slots(std::max(kFewest, m_slots.size() * 4));
    std::swap(m_slots, slots);
    m_used = 0;
    // The oldest of each row first.
    for (auto known = slots.rbegin(); known != slots.rend(); ++known) {
      if (!known->IsSpare()) Put(*known);
    }
  }

  std::vector<T> m_slots;  ///< a power of two, in rows
  std::size_t m_used = 0;  ///< slots that aren't spare
};

}  // namespace orvalix
