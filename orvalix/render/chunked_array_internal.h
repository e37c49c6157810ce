/// @file
/// A long array that grows without being moved.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace orvalix {

/// Elements in chunks of a fixed size: adding one never moves the others.
template <class T>
class ChunkedArray {
 public:
  std::size_t size() const { return m_size; }
  bool empty() const { return m_size == 0; }
  const T& operator[](std::size_t i) const { return m_chunks[i / kChunk][i % kChunk]; }

  /// @throws std::bad_alloc
  void push_back(const T& element) {
    if (m_size % kChunk == 0) AddChunk();
    m_chunks.back()[m_size % kChunk] = element;
    ++m_size;
  }
  bool operator==(const ChunkedArray& other) const {
    if (m_size != other.m_size) return false;
    for (std::size_t i = 0; i < m_chunks.size(); ++i) {
      const std::size_t count = std::min(m_size - i * kChunk, kChunk);
      const T* const elements = m_chunks[i].get();
      if (!std::equal(elements, elements + count, other.m_chunks[i].get())) return false;
    }
    return true;
  }
  /// Calls `take(pointer, count)` for each chunk in turn.
  template <class Take>
  void ForEachChunk(Take take) const {
    std::size_t left = m_size;
    for (const std::unique_ptr<T[]>& chunk : m_chunks) {
      const std::size_t count = std::min(left, kChunk);
      take(chunk.get(), count);
      left -= count;
    }
  }

 private:
  /// Small arrays stay small; the chunks of large ones cost little per element.
  static constexpr std::size_t kChunk =
      std::max<std::size_t>((std::size_t{1} << 15) / sizeof(T), 1);

  void AddChunk() { m_chunks.push_back(std::make_unique_for_overwrite<T[]>(kChunk)); }

  std::vector<std::unique_ptr<T[]>> m_chunks;
  std::size_t m_size = 0;
};

}  // namespace orvalix
