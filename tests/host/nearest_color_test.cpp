#include "orvalix/host/nearest_color_internal.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using orvalix::ColorTable;
using orvalix::NearestColor;
using orvalix::NearestIndex;

constexpr unsigned kSeed = 20;

RGBQUAD RandomColor(std::mt19937& random, int greens) {
  const auto byte = [&] { return static_cast<BYTE>(random() & 0xFF); };
  return {byte(), static_cast<BYTE>(static_cast<int>(random() & 0xFF) % greens), byte(), 0};
}

/// Holds the quick search against the comparison with every colour.
void ExpectSameAnswers(const ColorTable& table) {
  std::mt19937 random(kSeed);
  NearestColor nearest(table);
  for (int i = 0; i < 20000; ++i) {
    const RGBQUAD color = RandomColor(random, 256);
    ASSERT_EQ(nearest(color), NearestIndex(table, color));
    ASSERT_EQ(nearest(color), NearestIndex(table, color)) << "remembered";
  }
}

TEST(NearestColor, AgreesWithTheWholeTable) {
  std::mt19937 random(kSeed + 1);
  ColorTable table{};
  for (RGBQUAD& color : table) color = RandomColor(random, 256);
  ExpectSameAnswers(table);
}

TEST(NearestColor, AgreesForColorsOfLittleGreen) {
  std::mt19937 random(kSeed + 2);
  ColorTable table{};
  for (RGBQUAD& color : table) color = RandomColor(random, 3);
  ExpectSameAnswers(table);
}

TEST(NearestColor, AgreesForEqualColors) { ExpectSameAnswers(ColorTable{}); }

TEST(NearestColor, SmallestIndexWinsAmongEquals) {
  ColorTable table{};
  table.fill({255, 255, 255, 0});
  table[7] = {10, 0, 0, 0};
  table[9] = {0, 10, 0, 0};
  // Black is 10 from both.
  EXPECT_EQ(NearestIndex(table, {0, 0, 0, 0}), 7);
  EXPECT_EQ(NearestColor(table)({0, 0, 0, 0}), 7);
  table[5] = {0, 0, 10, 99};
  EXPECT_EQ(NearestColor(table)({0, 0, 0, 0}), 5);
}

}  // namespace
