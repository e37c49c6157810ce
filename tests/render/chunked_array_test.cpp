#include "orvalix/render/chunked_array_internal.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <vector>

#include "support/allocation_failure.h"

namespace {

using orvalix::ChunkedArray;

/// The first chunk holds so many.
constexpr std::size_t kFirst = 64;
/// 32 KiB, each of the others, hold so many.
constexpr std::size_t kIntegers = 8192;

TEST(ChunkedArray, HoldsWhatWasPutInAcrossChunks) {
  constexpr std::size_t kTwo = kFirst + kIntegers;
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, kFirst - 1, kFirst, kFirst + 1,
                                 kTwo - 1, kTwo, kTwo + 1, kTwo + kIntegers + 1}) {
    SCOPED_TRACE(size);
    ChunkedArray<std::uint32_t> array;
    for (std::uint32_t i = 0; i < size; ++i) array.push_back(i * 3);
    EXPECT_EQ(array.size(), size);
    EXPECT_EQ(array.empty(), size == 0);
    std::vector<std::uint32_t> copied;
    std::vector<std::size_t> counts;
    array.ForEachChunk([&](const std::uint32_t* elements, std::size_t count) {
      copied.insert(copied.end(), elements, elements + count);
      counts.push_back(count);
    });
    ASSERT_EQ(copied.size(), size);
    for (std::size_t i = 0; i < size; ++i) {
      ASSERT_EQ(copied[i], i * 3);
      ASSERT_EQ(array[i], i * 3);
    }
    // A small one, full ones, then the rest.
    EXPECT_EQ(counts.size(), (size + 2 * kIntegers - kFirst - 1) / kIntegers - (size == 0 ? 1 : 0));
    for (std::size_t i = 0; i + 1 < counts.size(); ++i) {
      EXPECT_EQ(counts[i], i == 0 ? kFirst : kIntegers);
    }
  }
}

TEST(ChunkedArray, MovesNothingAsItGrows) {
  ChunkedArray<std::uint32_t> array;
  array.push_back(7);
  const std::uint32_t* const first = &array[0];
  for (std::uint32_t i = 0; i < 5 * kIntegers; ++i) array.push_back(i);
  EXPECT_EQ(&array[0], first);
  EXPECT_EQ(array[0], 7U);
}

TEST(ChunkedArray, HoldsElementsThatFillMoreThanAChunk) {
  using Large = std::array<char, 40000>;
  ChunkedArray<Large> array;
  for (const char mark : {'a', 'b', 'c'}) {
    Large element{};
    element.back() = mark;
    array.push_back(element);
  }
  EXPECT_EQ(array.size(), 3U);
  EXPECT_EQ(array[0].back(), 'a');
  EXPECT_EQ(array[2].back(), 'c');
}

TEST(ChunkedArray, StaysWholeWhenMemoryRunsOut) {
  for (const int n : {1, 2}) {  // the chunk, and the list of chunks
    SCOPED_TRACE(n);
    ChunkedArray<std::uint32_t> array;
    for (std::uint32_t i = 0; i < kFirst; ++i) array.push_back(i);
    {
      const orvalix::test::AllocationFailure failure(n);
      EXPECT_THROW(array.push_back(1), std::bad_alloc);
    }
    EXPECT_EQ(array.size(), kFirst);
    array.push_back(9);
    EXPECT_EQ(array[kFirst], 9U);
    EXPECT_EQ(array[kFirst - 1], kFirst - 1);
    std::size_t seen = 0;
    array.ForEachChunk([&](const std::uint32_t*, std::size_t count) { seen += count; });
    EXPECT_EQ(seen, kFirst + 1);
  }
}

}  // namespace
