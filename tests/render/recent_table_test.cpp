#include "orvalix/render/recent_table_internal.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

/// A number and the hash that it is found by.
struct Thing {
  int number = 0;
  std::uint32_t hash = 0;
  bool isMet = false;

  bool IsSpare() const { return number == 0 || isMet; }
  std::uint32_t Hash() const { return hash; }
};

using Table = orvalix::RecentTable<Thing>;

bool Knows(Table& table, const Thing& thing) {
  const Thing* const found =
      table.Find(thing.hash, [&](const Thing& known) { return known.number == thing.number; });
  return found != nullptr && found->hash == thing.hash;
}

TEST(RecentTable, FindsNothingInTheBeginning) {
  Table table;
  EXPECT_FALSE(Knows(table, {1, 0}));
}

TEST(RecentTable, FindsThingsWithTheSameHash) {
  Table table;
  for (const int number : {1, 2, 3}) table.Remember({number, 4});
  for (const int number : {1, 2, 3}) EXPECT_TRUE(Knows(table, {number, 4})) << number;
  EXPECT_FALSE(Knows(table, {4, 4}));
  EXPECT_FALSE(Knows(table, {1, 8}));
}

TEST(RecentTable, LosesTheOldestOfTooManyWithOneHash) {
  Table table;
  for (const int number : {1, 2, 3, 4, 5, 6}) table.Remember({number, 0});
  for (const int number : {1, 2}) EXPECT_FALSE(Knows(table, {number, 0})) << number;
  for (const int number : {3, 4, 5, 6}) EXPECT_TRUE(Knows(table, {number, 0})) << number;
}

TEST(RecentTable, LosesWhatIsSpareFirst) {
  Table table;
  for (const int number : {1, 2, 3, 4}) table.Remember({number, 0});
  table.Find(0, [](const Thing& known) { return known.number == 2; })->isMet = true;
  table.HasBecomeSpare();
  EXPECT_TRUE(Knows(table, {2, 0})) << "as long as there is room";
  table.Remember({5, 0});
  EXPECT_FALSE(Knows(table, {2, 0}));
  for (const int number : {1, 3, 4, 5}) EXPECT_TRUE(Knows(table, {number, 0})) << number;
}

TEST(RecentTable, KeepsTheOrderInWhichThingsCameWhenItGrows) {
  Table table;
  for (const int number : {1, 2, 3, 4}) table.Remember({number, 0});
  for (int number = 5; number < 100; ++number) {
    table.Remember({number, static_cast<std::uint32_t>(number) * 4U});
  }
  table.Remember({100, 0});
  EXPECT_FALSE(Knows(table, {1, 0}));
  for (const int number : {2, 3, 4, 100}) EXPECT_TRUE(Knows(table, {number, 0})) << number;
}

TEST(RecentTable, KeepsThousandsAndThenTheLatest) {
  Table table;
  const auto thing = [](int number) {
    return Thing{number, static_cast<std::uint32_t>(number) * 0x9E3779B9U >> 8U};
  };
  constexpr int kFew = 3000;
  for (int number = 1; number <= kFew; ++number) table.Remember(thing(number));
  int lost = 0;
  for (int number = 1; number <= kFew; ++number) lost += Knows(table, thing(number)) ? 0 : 1;
  EXPECT_LE(lost, kFew / 100);
  constexpr int kMany = 1000000;
  for (int number = kFew + 1; number <= kMany; ++number) table.Remember(thing(number));
  lost = 0;
  for (int number = kMany - kFew + 1; number <= kMany; ++number) {
    lost += Knows(table, thing(number)) ? 0 : 1;
  }
  EXPECT_LE(lost, kFew / 100);
  EXPECT_FALSE(Knows(table, thing(1)));
}

}  // namespace
