#include "orvalix/foundation/planes.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using Triple = std::array<double, 3>;

Triple Swapped(int code) {
  const point3Dtype p = swapcoords(code, point3Dtype{1, 2, 3, 9});
  return {p.x, p.y, p.z};
}

TEST(Planes, ExchangeCoordinates) {
  const std::array<Triple, 3> expected{{{1, 2, 3}, {1, 3, 2}, {3, 1, 2}}};
  for (int code = 0; code < 6; ++code) {
    const Triple& wanted = expected[static_cast<std::size_t>(code % 3)];
    EXPECT_EQ(Swapped(code), wanted) << code;
    Triple out{};
    swapcoords(code, 1, 2, 3, out[0], out[1], out[2]);
    EXPECT_EQ(out, wanted) << code;
  }
}

TEST(Planes, UnknownCodesChangeNothing) {
  for (const int code : {-1, 6, 1000}) {
    EXPECT_EQ(Swapped(code), (Triple{1, 2, 3}));
    Triple out{7, 8, 9};
    swapcoords(code, 1, 2, 3, out[0], out[1], out[2]);
    EXPECT_EQ(out, (Triple{7, 8, 9}));
    EXPECT_EQ(GetNormalAxis(code), 2);
    for (int axis = -1; axis < 4; ++axis) EXPECT_EQ(GetSwapCoordAxis(code, axis), 0);
  }
}

TEST(Planes, TellWhereAnAxisLands) {
  const std::array<std::array<int, 3>, 3> expected{{{0, 1, 2}, {0, 2, 1}, {1, 2, 0}}};
  for (int code = 0; code < 6; ++code) {
    for (int axis = 0; axis < 3; ++axis) {
      EXPECT_EQ(GetSwapCoordAxis(code, axis),
                expected[static_cast<std::size_t>(code % 3)][static_cast<std::size_t>(axis)]);
    }
    EXPECT_EQ(GetSwapCoordAxis(code, 3), 0);
    EXPECT_EQ(GetSwapCoordAxis(code, -1), 0);
  }
}

TEST(Planes, TellTheirNormal) {
  const std::array<int, 6> expected{2, 1, 0, 2, 1, 0};
  for (int code = 0; code < 6; ++code) {
    EXPECT_EQ(GetNormalAxis(code), expected[static_cast<std::size_t>(code)]);
  }
  EXPECT_EQ(GetNormalAxis(7), 2);
}

}  // namespace
