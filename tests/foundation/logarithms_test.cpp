#include "orvalix/foundation/logarithms.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(Logarithms, ClampToTheArgument) {
  EXPECT_EQ(log10Ex(0.0), 0.0);
  EXPECT_EQ(log10Ex(-5.0), 0.0);
  EXPECT_EQ(log10Ex(1e-31), 1e-30);
  EXPECT_EQ(log10Ex(1e-30), 1e-30);
  EXPECT_NEAR(log10Ex(1.1e-30), -29.9586, 1e-4);
  EXPECT_EQ(log10Ex(1e31), 1e30);
  EXPECT_NEAR(log10Ex(1e30), 30.0, 1e-12);
  EXPECT_NEAR(log10Ex(1000.0), 3.0, 1e-15);
}

TEST(Logarithms, OfWhatIsNoOrdinaryNumber) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(std::isnan(log10Ex(std::numeric_limits<double>::quiet_NaN())));
  EXPECT_EQ(log10Ex(kInfinity), 1e30);
  EXPECT_EQ(log10Ex(-kInfinity), 0.0);
  EXPECT_TRUE(std::isinf(Antilog10Ex(400.0)));
  EXPECT_EQ(Antilog10Ex(-400.0), 0.0);
}

TEST(Logarithms, AreUndone) {
  EXPECT_EQ(Antilog10Ex(3.0), 1000.0);
  EXPECT_EQ(Antilog10Ex(-1.0), 0.1);
  EXPECT_NEAR(AntilogLog10Ex(123.0), 123.0, 1e-10);
  EXPECT_EQ(AntilogLog10Ex(0.0), 1.0);
  EXPECT_EQ(AntilogLog10Ex(-5.0), 1.0);
  EXPECT_EQ(AntilogLog10Ex(1e-31), 1.0);
  EXPECT_TRUE(std::isinf(AntilogLog10Ex(1e31)));
}

}  // namespace
