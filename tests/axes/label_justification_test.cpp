#include "orvalix/axes/label_justification_internal.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using orvalix::DefaultLabelJustification;
using orvalix::LabelXJustify;
using orvalix::LabelYJustify;
using orvalix::SwapTextJust;

int X(int axis, int plane, int rotation) {
  return LabelXJustify(DefaultLabelJustification(), axis, plane, rotation);
}

int Y(int axis, int plane, int rotation) {
  return LabelYJustify(DefaultLabelJustification(), axis, plane, rotation);
}

TEST(LabelJustification, FollowsTheTable) {
  struct Row {
    int axis, plane, x, y, turnedX, turnedY;
  };
  constexpr std::array<Row, 12> kRows{{{0, 0, 1, 2, 0, 1},
                                       {0, 1, 1, 2, 0, 1},
                                       {0, 2, 2, 2, 2, 0},
                                       {0, 3, 1, 2, 0, 1},
                                       {1, 0, 2, 1, 2, 1},
                                       {1, 1, 2, 2, 2, 0},
                                       {1, 2, 1, 2, 2, 1},
                                       {1, 3, 2, 2, 2, 0},
                                       {2, 0, 2, 1, 1, 2},
                                       {2, 1, 2, 1, 1, 2},
                                       {2, 2, 2, 1, 1, 0},
                                       {2, 3, 2, 1, 1, 2}}};
  for (const Row& row : kRows) {
    EXPECT_EQ(X(row.axis, row.plane, 0), row.x) << row.axis << row.plane;
    EXPECT_EQ(Y(row.axis, row.plane, 0), row.y) << row.axis << row.plane;
    EXPECT_EQ(X(row.axis, row.plane, 90), row.turnedX) << row.axis << row.plane;
    EXPECT_EQ(Y(row.axis, row.plane, 90), row.turnedY) << row.axis << row.plane;
  }
}

TEST(LabelJustification, IsTurnedFrom45ToBelow135) {
  for (const int rotation : {0, 44, 135, 180, 270}) EXPECT_EQ(X(0, 0, rotation), 1) << rotation;
  for (const int rotation : {45, 90, 134}) EXPECT_EQ(X(0, 0, rotation), 0) << rotation;
}

TEST(LabelJustification, IsExchangedForNegativeRotations) {
  EXPECT_EQ(X(2, 0, -10), 0);  // 2 at +10
  EXPECT_EQ(Y(2, 0, -10), 1);  // the middle stays
  EXPECT_EQ(X(0, 0, -45), 2);  // turned: 0 at +45
  EXPECT_EQ(Y(0, 2, -134), 2);
  EXPECT_EQ(X(0, 0, -135), 1);
}

TEST(LabelJustification, TakesTheNearestEntry) {
  EXPECT_EQ(X(-1, -1, 0), X(0, 0, 0));
  EXPECT_EQ(Y(7, 9, 90), Y(2, 3, 90));
}

TEST(LabelJustification, SwapsTheEnds) {
  EXPECT_EQ(SwapTextJust(0), 2);
  EXPECT_EQ(SwapTextJust(2), 0);
  EXPECT_EQ(SwapTextJust(1), 1);
  EXPECT_EQ(SwapTextJust(-1), -1);
  EXPECT_EQ(SwapTextJust(5), 5);
}

}  // namespace
