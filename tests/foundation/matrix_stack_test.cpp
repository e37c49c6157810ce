#include "orvalix/foundation/matrix_stack.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "support/reported_errors.h"

namespace {

using orvalix::test::ReportedErrors;
using Vector = std::array<double, 3>;
using Texts = std::vector<std::string>;

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

const Texts kNothing;
const Texts kOverflow{"m_pushmatrix: stack overflow\n"};
const Texts kUnderflow{"m_popmatrix: stack underflow\n"};
const Texts kZeroLength{"normalize: zero length vector"};

Vector Moved(const Vector& point) {
  Vector out{};
  m_xformptonly(point.data(), out.data());
  return out;
}

/// What becomes of a normal, whatever the point is.
Vector Turned(const Vector& normal) {
  const Vector point{1, 2, 3};
  Vector moved{};
  Vector out{};
  m_xformpt(point.data(), normal.data(), moved.data(), out.data());
  EXPECT_EQ(moved, Moved(point));
  return out;
}

void ExpectNear(const Vector& actual, const Vector& expected) {
  for (std::size_t i = 0; i < actual.size(); ++i) {
    EXPECT_NEAR(actual[i], expected[i], 1e-15) << "element " << i;
  }
}

/// Each test runs on an entry of its own; nothing may be left of it.
class MatrixStack : public ::testing::Test {
 protected:
  MatrixStack() { m_pushmatrix(); }
  void TearDown() override {
    m_popmatrix();
    EXPECT_EQ(errors.Take(), kNothing);
    m_popmatrix();
    EXPECT_EQ(errors.Take(), kUnderflow);
    EXPECT_EQ(Moved({1, 2, 3}), (Vector{1, 2, 3}));
    EXPECT_EQ(Turned({0, -1, 0}), (Vector{0, -1, 0}));
  }

  ReportedErrors errors;
};

TEST_F(MatrixStack, StartsWithTheIdentity) {
  EXPECT_EQ(Moved({0, 0, 0}), (Vector{0, 0, 0}));
  EXPECT_EQ(Moved({1, -2, 3.5}), (Vector{1, -2, 3.5}));
  EXPECT_EQ(Turned({0, 0, -1}), (Vector{0, 0, -1}));
}

TEST_F(MatrixStack, TakesNineEntriesAboveTheFirst) {
  for (int n = 2; n <= 9; ++n) m_pushmatrix();
  EXPECT_EQ(errors.Take(), kNothing);
  for (int n = 10; n <= 12; ++n) {
    m_pushmatrix();
    EXPECT_EQ(errors.Take(), kOverflow) << n;
  }
  for (int n = 9; n >= 2; --n) m_popmatrix();
  EXPECT_EQ(errors.Take(), kNothing);
}

TEST_F(MatrixStack, GivesBackNineEntries) {
  for (int n = 2; n <= 20; ++n) m_pushmatrix();
  EXPECT_EQ(errors.Take(), Texts(11, kOverflow[0]));  // the tenth to the twentieth
  for (int n = 1; n <= 9; ++n) m_popmatrix();
  EXPECT_EQ(errors.Take(), kNothing);
  for (int n = 10; n <= 12; ++n) {
    m_popmatrix();
    EXPECT_EQ(errors.Take(), kUnderflow) << n;
  }
  m_pushmatrix();  // what the fixture takes away
}

TEST_F(MatrixStack, KeepsEachEntry) {
  // Entry n moves by 1 + 2 + ... + n.
  for (int n = 1; n <= 9; ++n) {
    if (n > 1) m_pushmatrix();
    m_translate(n, 0, 0);
  }
  m_pushmatrix();  // too many: the entry stays current, and as it is
  EXPECT_EQ(errors.Take(), kOverflow);
  for (int n = 9; n >= 1; --n) {
    EXPECT_EQ(Moved({0, 0, 0}), (Vector{n * (n + 1) / 2.0, 0, 0})) << n;
    if (n > 1) m_popmatrix();
  }
}

TEST_F(MatrixStack, AnEntryStartsAsACopyOfTheOneBefore) {
  m_translate(1, 2, 3);
  m_scale(2, 4, 8);
  m_pushmatrix();
  EXPECT_EQ(Moved({1, 1, 1}), (Vector{3, 6, 11}));
  ExpectNear(Turned({2.0, 4.0, 0}), {std::sqrt(0.5), std::sqrt(0.5), 0});
  m_popmatrix();
}

TEST_F(MatrixStack, AnUnderflowLeavesTheFirstEntry) {
  m_popmatrix();
  m_translate(1, 2, 3);
  m_popmatrix();
  EXPECT_EQ(errors.Take(), kUnderflow);
  EXPECT_EQ(Moved({0, 0, 0}), (Vector{1, 2, 3}));
  m_translate(-1, -2, -3);
  m_pushmatrix();
}

TEST_F(MatrixStack, MovesPoints) {
  m_translate(10, 20, -30);
  EXPECT_EQ(Moved({1, 2, 3}), (Vector{11, 22, -27}));
  m_translate(1, 0, 30);
  EXPECT_EQ(Moved({1, 2, 3}), (Vector{12, 22, 3}));
}

TEST_F(MatrixStack, ScalesPointsAboutTheOrigin) {
  m_scale(2, -3, 0.5);
  EXPECT_EQ(Moved({1, 2, 3}), (Vector{2, -6, 1.5}));
  m_scale(10, 10, 10);
  EXPECT_EQ(Moved({1, 2, 3}), (Vector{20, -60, 15}));
}

TEST_F(MatrixStack, DoesTheLastOperationFirst) {
  m_translate(1, 2, 3);
  m_scale(2, 3, 4);
  EXPECT_EQ(Moved({1, 1, 1}), (Vector{3, 5, 7}));  // 2 + 1, 3 + 2, 4 + 3
  m_popmatrix();
  m_pushmatrix();
  m_scale(2, 3, 4);
  m_translate(1, 2, 3);
  EXPECT_EQ(Moved({1, 1, 1}), (Vector{4, 9, 16}));  // (1 + 1) 2, (1 + 2) 3, (1 + 3) 4
  m_scale(10, 10, 10);
  EXPECT_EQ(Moved({1, 1, 1}), (Vector{22, 36, 52}));  // (10 + 1) 2, (10 + 2) 3, (10 + 3) 4
}

TEST_F(MatrixStack, NormalsDoNotMove) {
  m_translate(100, 200, 300);
  EXPECT_EQ(Turned({0, 1, 0}), (Vector{0, 1, 0}));
}

TEST_F(MatrixStack, NormalsComeOutWithLengthOne) {
  ExpectNear(Turned({0, 3, -4}), {0, 0.6, -0.8});
  m_scale(5, 5, 5);
  ExpectNear(Turned({0, 3, -4}), {0, 0.6, -0.8});
}

TEST_F(MatrixStack, NormalsStayAtRightAnglesToWhatIsScaledUnevenly) {
  // The plane x + y = 0 has the normal (1, 1, 0). Twice as wide it is x / 2 + y = 0, with the
  // normal (1, 2, 0) of length sqrt 5.
  m_scale(2, 1, 1);
  ExpectNear(Turned({1, 1, 0}), {1.0 / std::sqrt(5.0), 2.0 / std::sqrt(5.0), 0});
  // z / 4 as well: the normal of x + y + z = 0 becomes (1/2, 1, 4), of length sqrt 17.25.
  m_scale(1, 1, 0.25);
  const double length = std::sqrt(17.25);
  ExpectNear(Turned({1, 1, 1}), {0.5 / length, 1.0 / length, 4.0 / length});
}

TEST_F(MatrixStack, NormalsAreMirroredWithPoints) {
  m_scale(-1, 1, 1);
  EXPECT_EQ(Turned({1, 0, 0}), (Vector{-1, 0, 0}));
  EXPECT_EQ(Turned({0, 1, 0}), (Vector{0, 1, 0}));
}

TEST_F(MatrixStack, ANormalWithoutLengthIsReported) {
  m_translate(1, 1, 1);
  EXPECT_EQ(Turned({0, 0, 0}), (Vector{1, 0, 0}));
  EXPECT_EQ(errors.Take(), kZeroLength);
}

TEST_F(MatrixStack, OutputMayBeInput) {
  m_translate(1, 2, 3);
  m_scale(2, 2, 2);
  Vector point{1, 1, 1};
  m_xformptonly(point.data(), point.data());
  EXPECT_EQ(point, (Vector{3, 4, 5}));
  point = {1, 1, 1};
  Vector normal{0, 2, 0};
  m_xformpt(point.data(), normal.data(), point.data(), normal.data());
  EXPECT_EQ(point, (Vector{3, 4, 5}));
  EXPECT_EQ(normal, (Vector{0, 1, 0}));
}

TEST_F(MatrixStack, OutputMayBeTheOtherInput) {
  m_translate(1, 2, 3);
  m_scale(2, 2, 2);
  Vector first{1, 1, 1};
  Vector second{0, 2, 0};
  m_xformpt(first.data(), second.data(), second.data(), first.data());
  EXPECT_EQ(second, (Vector{3, 4, 5}));
  EXPECT_EQ(first, (Vector{0, 1, 0}));
}

TEST_F(MatrixStack, WithoutSizeOnlyNormalsAreUndefined) {
  m_scale(0, 0, 0);
  m_translate(1, 2, 3);
  EXPECT_EQ(Moved({1, 2, 3}), (Vector{0, 0, 0}));
  for (const double number : Turned({1, 2, 3})) EXPECT_FALSE(std::isfinite(number));
  EXPECT_EQ(errors.Take(), kNothing);
}

TEST_F(MatrixStack, TakesNumbersOfAnyKind) {
  m_pushmatrix();
  m_translate(0, 0, 1e300);
  EXPECT_EQ(Moved({1, 2, -1e300}), (Vector{1, 2, 0}));
  for (const double undefined : {kNotANumber, kInfinity}) {
    m_pushmatrix();
    m_translate(undefined, 0, 0);
    for (const double number : Moved({1, 2, 3})) EXPECT_FALSE(std::isfinite(number));
    m_popmatrix();
  }
  m_popmatrix();
  m_pushmatrix();
  m_scale(1e300, 1e300, 1e300);
  EXPECT_EQ(Moved({1e300, -1e300, 1}), (Vector{kInfinity, -kInfinity, 1e300}));
  // The normal shrinks below all numbers.
  EXPECT_EQ(Turned({0, 1e-10, 0})[0], 1.0);
  EXPECT_EQ(errors.Take(), kZeroLength);
  m_popmatrix();
  m_pushmatrix();
  m_scale(kNotANumber, 1, 1);
  // x is part of each sum.
  for (const double number : Moved({1, 2, 3})) EXPECT_TRUE(std::isnan(number));
  m_popmatrix();
}

TEST(MatrixStackDeathTest, EndsAProgramThatIsNotTold) {
  EXPECT_EXIT(m_popmatrix(), ::testing::ExitedWithCode(1), "");
  const auto pushTooMany = [] {
    for (int n = 1; n <= 10; ++n) m_pushmatrix();
  };
  EXPECT_EXIT(pushTooMany(), ::testing::ExitedWithCode(1), "");
  // One fewer is no error.
  const auto pushNine = [] {
    for (int n = 1; n <= 9; ++n) m_pushmatrix();
    std::exit(0);
  };
  EXPECT_EXIT(pushNine(), ::testing::ExitedWithCode(0), "");
}

}  // namespace
