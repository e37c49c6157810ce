/// @file
/// A long array that grows without being moved.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace orvalix {

/// Elements in chunks, a small one first: adding one never moves the others.
template <class T>
class ChunkedArray {
 public:
  std::size_t size() const { return m_size; }
  bool empty() const { return m_size == 0; }
  const T& operator[](std::size_t i) const {
    if (i < kFirst) return m_chunks[0][i];
    return m_chunks[1 + (i - kFirst) / kChunk][(i - kFirst) % kChunk];
  }
  T& operator[](std::size_t i) { return const_cast<T&>(std::as_const(*this)[i]); }

  /// @throws std::bad_alloc
  void push_back(const T& element) {
    if (m_left == 0) AddChunk();
    m_chunks.back()[CapacityOf(m_chunks.size() - 1) - m_left] = element;
    --m_left;
    ++m_size;
  }
  bool operator==(const ChunkedArray& other) const {
    if (m_size != other.m_size) return false;
    std::size_t left = m_size;
    for (std::size_t i = 0; i < m_chunks.size(); ++i) {
      const std::size_t count = std::min(left, CapacityOf(i));
      const T* const elements = m_chunks[i].get();
      if (!std::equal(elements, elements + count, other.m_chunks[i].get())) return false;
      left -= count;
    }
    return true;
  }
  /// Calls `take(pointer, count)` for each chunk in turn.
  template <class Take>
  void ForEachChunk(Take take) const {
    std::size_t left = m_size;
    for (std::size_t i = 0; i < m_chunks.size(); ++i) {
      const std::size_t count = std::min(left, CapacityOf(i));
      take(m_chunks[i].get(), count);
      left -= count;
    }
  }

 private:
  /// Small arrays stay small; the chunks of large ones cost little per element.
  static constexpr std::size_t kChunk =
      std::max<std::size_t>((std::size_t{1} << 15) / sizeof(T), 1);
  static constexpr std::size_t kFirst = std::min<std::size_t>(64, kChunk);

  static constexpr std::size_t CapacityOf(std::size_t chunk) {
    return chunk == 0 ? kFirst : kChunk;
  }
  void AddChunk() {
    const std::size_t capacity = CapacityOf(m_chunks.size());
    m_chunks.push_back(std::make_unique_for_overwrite<T[]>(capacity));
    m_left = capacity;
  }

  std::vector<std::unique_ptr<T[]>> m_chunks;
  std::size_t m_left = 0;  ///< elements that the last chunk has room for
  std::size_t m_size = 0;
};

}  // namespace orvalix
