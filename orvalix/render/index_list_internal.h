/// @file
/// Indices of vertices, most of which often follow one another.
#pragma once

#include <cstddef>
#include <cstdint>

#include "orvalix/render/chunked_array_internal.h"

namespace orvalix {

/// Indices that are kept as a range while each is the one before plus 1: nothing needs to be
/// stored for such vertices, and OpenGL draws them faster.
class IndexList {
 public:
  std::size_t size() const { return m_size; }
  bool IsRange() const { return m_indices.empty(); }
  /// The first index; 0 when there is none.
  std::uint32_t First() const { return m_first; }

  bool operator==(const IndexList&) const = default;

  /// @throws std::bad_alloc
  void push_back(std::uint32_t index) {
    if (m_size == 0) m_first = index;
    if (IsRange() && index != m_first + m_size) StoreRange();
    if (!IsRange()) m_indices.push_back(index);
    ++m_size;
  }

  /// The indices when they are no range.
  const ChunkedArray<std::uint32_t>& Stored() const { return m_indices; }

 private:
  void StoreRange() {
    for (std::size_t i = 0; i < m_size; ++i) {
      m_indices.push_back(m_first + static_cast<std::uint32_t>(i));
    }
  }

  std::uint32_t m_first = 0;
  std::size_t m_size = 0;
  ChunkedArray<std::uint32_t> m_indices;  ///< all of them, once they are no range
};

}  // namespace orvalix
