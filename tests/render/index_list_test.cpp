#include "orvalix/render/index_list_internal.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using orvalix::IndexList;

std::vector<std::uint32_t> StoredOf(const IndexList& list) {
  std::vector<std::uint32_t> stored;
  list.Stored().ForEachChunk([&](const std::uint32_t* indices, std::size_t count) {
    stored.insert(stored.end(), indices, indices + count);
  });
  return stored;
}

TEST(IndexList, StoresNothingWhileIndicesFollowOneAnother) {
  IndexList list;
  EXPECT_TRUE(list.IsRange());
  EXPECT_EQ(list.size(), 0U);
  for (std::uint32_t index = 5; index < 500; ++index) list.push_back(index);
  EXPECT_TRUE(list.IsRange());
  EXPECT_EQ(list.First(), 5U);
  EXPECT_EQ(list.size(), 495U);
  EXPECT_TRUE(StoredOf(list).empty());
}

TEST(IndexList, StoresThemAllOnceTheyDoNot) {
  IndexList list;
  for (const std::uint32_t index : {7U, 8U, 9U, 7U, 9U, 10U}) list.push_back(index);
  EXPECT_FALSE(list.IsRange());
  EXPECT_EQ(list.size(), 6U);
  EXPECT_EQ(StoredOf(list), (std::vector<std::uint32_t>{7, 8, 9, 7, 9, 10}));
}

TEST(IndexList, TellsListsApart) {
  const auto of = [](const std::vector<std::uint32_t>& indices) {
    IndexList list;
    for (const std::uint32_t index : indices) list.push_back(index);
    return list;
  };
  EXPECT_EQ(of({1, 2, 3}), of({1, 2, 3}));
  EXPECT_FALSE(of({1, 2, 3}) == of({1, 2}));
  EXPECT_FALSE(of({1, 2, 3}) == of({2, 3, 4}));
  EXPECT_EQ(of({1, 3, 2}), of({1, 3, 2}));
  EXPECT_FALSE(of({1, 3, 2}) == of({1, 3, 3}));
}

}  // namespace
