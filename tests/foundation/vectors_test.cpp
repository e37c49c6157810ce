#include "orvalix/foundation/vectors.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
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
constexpr Vector kX{1, 0, 0};
constexpr Vector kY{0, 1, 0};
constexpr Vector kZ{0, 0, 1};

const Texts kNothing;
const Texts kZeroLength{"normalize: zero length vector"};

void ExpectNear(const Vector& actual, const Vector& expected) {
  for (std::size_t i = 0; i < actual.size(); ++i) {
    EXPECT_NEAR(actual[i], expected[i], 1e-15) << "element " << i;
  }
}

void ExpectNotNumbers(const Vector& actual) {
  for (const double number : actual) EXPECT_TRUE(std::isnan(number)) << number;
}

TEST(Vectors, AreAddedAndSubtracted) {
  const Vector a{1, 2, 3};
  const Vector b{10, -20, 0.5};
  Vector out{};
  add3(a.data(), b.data(), out.data());
  EXPECT_EQ(out, (Vector{11, -18, 3.5}));
  diff3(a.data(), b.data(), out.data());
  EXPECT_EQ(out, (Vector{-9, 22, 2.5}));
}

TEST(Vectors, AreCopiedAndScaled) {
  const Vector v{1, -2, 0.25};
  Vector out{};
  copy3(v.data(), out.data());
  EXPECT_EQ(out, v);
  scalarmult(-4.0, v.data(), out.data());
  EXPECT_EQ(out, (Vector{-4, 8, -1}));
  scalarmult(0.0, v.data(), out.data());
  EXPECT_EQ(out, (Vector{0, 0, 0}));
}

TEST(Vectors, HaveTwoProducts) {
  const Vector a{1, 2, 3};
  const Vector b{4, -5, 6};
  EXPECT_EQ(dot3(a.data(), b.data()), 12.0);  // 4 - 10 + 18
  Vector out{};
  crossprod(a.data(), b.data(), out.data());
  EXPECT_EQ(out, (Vector{27, 6, -13}));  // 2*6 - 3*-5, 3*4 - 1*6, 1*-5 - 2*4
  crossprod(b.data(), a.data(), out.data());
  EXPECT_EQ(out, (Vector{-27, -6, 13}));
  crossprod(a.data(), a.data(), out.data());
  EXPECT_EQ(out, (Vector{0, 0, 0}));
}

TEST(Vectors, TheProductOfTwoAxesIsTheThird) {
  Vector out{};
  crossprod(kX.data(), kY.data(), out.data());
  EXPECT_EQ(out, kZ);
  crossprod(kY.data(), kZ.data(), out.data());
  EXPECT_EQ(out, kX);
  crossprod(kZ.data(), kX.data(), out.data());
  EXPECT_EQ(out, kY);
}

TEST(Vectors, HaveALengthAndADistance) {
  const Vector a{2, -3, 6};
  EXPECT_EQ(length3(a.data()), 7.0);  // 4 + 9 + 36 = 49
  EXPECT_EQ(length3(Vector{}.data()), 0.0);
  const Vector b{3, -1, 4};
  EXPECT_EQ(dist3(a.data(), b.data()), 3.0);  // (1, 2, -2): 1 + 4 + 4 = 9
  EXPECT_EQ(dist3(b.data(), a.data()), 3.0);
  EXPECT_EQ(dist3(a.data(), a.data()), 0.0);
}

TEST(Vectors, MayBeWrittenOverTheirInput) {
  const Vector b{4, -5, 6};
  Vector v{1, 2, 3};
  add3(v.data(), b.data(), v.data());
  EXPECT_EQ(v, (Vector{5, -3, 9}));
  diff3(b.data(), v.data(), v.data());
  EXPECT_EQ(v, (Vector{-1, -2, -3}));
  scalarmult(-1.0, v.data(), v.data());
  copy3(v.data(), v.data());
  EXPECT_EQ(v, (Vector{1, 2, 3}));
  crossprod(v.data(), b.data(), v.data());
  EXPECT_EQ(v, (Vector{27, 6, -13}));
  v = {1, 2, 3};
  crossprod(b.data(), v.data(), v.data());
  EXPECT_EQ(v, (Vector{-27, -6, 13}));
  add3(v.data(), v.data(), v.data());
  EXPECT_EQ(v, (Vector{-54, -12, 26}));
}

TEST(Vectors, TouchThreeNumbersOnly) {
  const ReportedErrors errors;
  std::array<double, 5> guarded{77, 3, 0, 4, 88};
  double* out = guarded.data() + 1;
  add3(out, kX.data(), out);
  diff3(out, kX.data(), out);
  copy3(out, out);
  scalarmult(2.0, out, out);
  normalize(out);
  crossprod(kX.data(), kY.data(), out);
  perpnorm(kX.data(), kY.data(), kZ.data(), out);
  EXPECT_EQ(guarded.front(), 77.0);
  EXPECT_EQ(guarded.back(), 88.0);
}

TEST(Vectors, AreNormalizedToLengthOne) {
  ReportedErrors errors;
  Vector v{2, -3, 6};
  normalize(v.data());
  ExpectNear(v, {2.0 / 7.0, -3.0 / 7.0, 6.0 / 7.0});
  v = {0, -1e-100, 0};
  normalize(v.data());
  EXPECT_EQ(v, (Vector{0, -1, 0}));
  EXPECT_EQ(errors.Take(), kNothing);
}

TEST(Vectors, OneWithoutLengthIsReportedAndBecomesTheXAxis) {
  ReportedErrors errors;
  Vector v{0, 0, 0};
  normalize(v.data());
  EXPECT_EQ(v, kX);
  EXPECT_EQ(errors.Take(), kZeroLength);
  // The squares of these are too small for numbers. y and z stay as they are.
  v = {1e-200, 1e-200, -1e-200};
  normalize(v.data());
  EXPECT_EQ(v, (Vector{1, 1e-200, -1e-200}));
  EXPECT_EQ(errors.Take(), kZeroLength);
}

TEST(VectorsDeathTest, OneWithoutLengthEndsAProgramThatIsNotTold) {
  Vector v{0, 0, 0};
  EXPECT_EXIT(normalize(v.data()), ::testing::ExitedWithCode(1), "");
  EXPECT_EXIT(perpnorm(kX.data(), kX.data(), kX.data(), v.data()), ::testing::ExitedWithCode(1),
              "");
  { const ReportedErrors errors; }
  EXPECT_EXIT(normalize(v.data()), ::testing::ExitedWithCode(1), "");
}

TEST(Vectors, TheLastErrorFunctionIsTold) {
  ReportedErrors first;
  static int calls = 0;
  seterrorfunc([](const char*) { ++calls; });
  Vector v{0, 0, 0};
  normalize(v.data());
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(first.Take(), kNothing);
}

TEST(Vectors, TheNormalOfATrianglePointsWhereItsCornersGoAnticlockwise) {
  ReportedErrors errors;
  // (2, 0, 0) x (0, 3, 0) = (0, 0, 6).
  const Vector a{1, 1, 5};
  const Vector b{3, 1, 5};
  const Vector c{1, 4, 5};
  Vector out{};
  perpnorm(a.data(), b.data(), c.data(), out.data());
  EXPECT_EQ(out, kZ);
  perpnorm(a.data(), c.data(), b.data(), out.data());
  EXPECT_EQ(out, (Vector{0, 0, -1}));
  // (-1, 1, 0) x (-1, 0, 1) = (1, 1, 1).
  perpnorm(kX.data(), kY.data(), kZ.data(), out.data());
  ExpectNear(out, {std::sqrt(1.0 / 3.0), std::sqrt(1.0 / 3.0), std::sqrt(1.0 / 3.0)});
  EXPECT_EQ(errors.Take(), kNothing);
}

TEST(Vectors, TheNormalMayBeWrittenOverACorner) {
  for (std::size_t corner = 0; corner < 3; ++corner) {
    std::array<Vector, 3> triangle{{{1, 1, 5}, {3, 1, 5}, {1, 4, 5}}};
    perpnorm(triangle[0].data(), triangle[1].data(), triangle[2].data(), triangle[corner].data());
    EXPECT_EQ(triangle[corner], kZ) << corner;
  }
}

TEST(Vectors, ATriangleWithoutAreaIsReportedAndGivesTheXAxis) {
  ReportedErrors errors;
  const std::array<std::array<Vector, 3>, 3> flat{{{{{0, 0, 0}, {1, 2, 3}, {2, 4, 6}}},
                                                   {{{1, 2, 3}, {1, 2, 3}, {4, 5, 6}}},
                                                   {{{1, 2, 3}, {4, 5, 6}, {4, 5, 6}}}}};
  for (const auto& triangle : flat) {
    Vector out{7, 7, 7};
    perpnorm(triangle[0].data(), triangle[1].data(), triangle[2].data(), out.data());
    EXPECT_EQ(out, kX);
    EXPECT_EQ(errors.Take(), kZeroLength);
  }
}

TEST(Vectors, ArePointsThatAreTheSameOrNot) {
  const Vector a{1, 2, 3};
  EXPECT_EQ(samepoint(a.data(), a.data()), 1);
  EXPECT_EQ(samepoint(a.data(), Vector{1, 2, 3}.data()), 1);
  EXPECT_EQ(samepoint(a.data(), Vector{9, 2, 3}.data()), 0);
  EXPECT_EQ(samepoint(a.data(), Vector{1, 9, 3}.data()), 0);
  EXPECT_EQ(samepoint(a.data(), Vector{1, 2, 9}.data()), 0);
  EXPECT_EQ(samepoint(a.data(), Vector{1, 2, std::nextafter(3.0, 4.0)}.data()), 0);
  EXPECT_EQ(samepoint(Vector{0, 0, 0}.data(), Vector{-0.0, 0, -0.0}.data()), 1);
  EXPECT_EQ(samepoint(Vector{kInfinity, 0, 0}.data(), Vector{kInfinity, 0, 0}.data()), 1);
  EXPECT_EQ(samepoint(Vector{kInfinity, 0, 0}.data(), Vector{-kInfinity, 0, 0}.data()), 0);
  const Vector undefined{1, kNotANumber, 3};
  EXPECT_EQ(samepoint(undefined.data(), undefined.data()), 0);
}

TEST(Vectors, UndefinedNumbersStayUndefined) {
  ReportedErrors errors;
  const Vector undefined{kNotANumber, kNotANumber, kNotANumber};
  Vector out{};
  add3(undefined.data(), kX.data(), out.data());
  ExpectNotNumbers(out);
  diff3(kX.data(), undefined.data(), out.data());
  ExpectNotNumbers(out);
  scalarmult(kNotANumber, kX.data(), out.data());
  ExpectNotNumbers(out);
  crossprod(undefined.data(), kX.data(), out.data());
  ExpectNotNumbers(out);
  EXPECT_TRUE(std::isnan(dot3(undefined.data(), kX.data())));
  EXPECT_TRUE(std::isnan(length3(Vector{0, kNotANumber, 0}.data())));
  EXPECT_TRUE(std::isnan(dist3(undefined.data(), kX.data())));
  out = {1, kNotANumber, 0};
  normalize(out.data());
  ExpectNotNumbers(out);
  perpnorm(kX.data(), undefined.data(), kZ.data(), out.data());
  ExpectNotNumbers(out);
  EXPECT_EQ(errors.Take(), kNothing);
}

TEST(Vectors, LengthsMayBeInfinite) {
  ReportedErrors errors;
  const Vector endless{kInfinity, 0, -kInfinity};
  EXPECT_EQ(length3(endless.data()), kInfinity);
  EXPECT_EQ(dist3(endless.data(), kX.data()), kInfinity);
  EXPECT_TRUE(std::isnan(dist3(endless.data(), endless.data())));  // infinity - infinity
  Vector v = endless;
  normalize(v.data());
  EXPECT_TRUE(std::isnan(v[0]));
  EXPECT_EQ(v[1], 0.0);
  EXPECT_TRUE(std::isnan(v[2]));
  // The square of 1e200 is infinite.
  v = {1e200, 0, 0};
  EXPECT_EQ(length3(v.data()), kInfinity);
  normalize(v.data());
  EXPECT_EQ(v, (Vector{0, 0, 0}));
  EXPECT_EQ(errors.Take(), kNothing);
}

TEST(Vectors, MatricesAreMadeAndCopied) {
  double matrix[3][3] = {{9, 9, 9}, {9, 9, 9}, {9, 9, 9}};
  identifymat3(matrix);
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) EXPECT_EQ(matrix[i][j], i == j ? 1.0 : 0.0) << i << ", " << j;
  }
  const double from[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
  copymat3(from, matrix);
  copymat3(matrix, matrix);
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) EXPECT_EQ(matrix[i][j], 3 * i + j + 1) << i << ", " << j;
  }
}

TEST(Vectors, AreMultipliedByAMatrixFromTheLeft) {
  const double matrix[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 10}};
  const Vector v{1, 10, 100};
  Vector out{};
  xformvec3(v.data(), matrix, out.data());
  EXPECT_EQ(out, (Vector{741, 852, 1063}));  // 1 + 40 + 700, 2 + 50 + 800, 3 + 60 + 1000
  Vector own = v;
  xformvec3(own.data(), matrix, own.data());
  EXPECT_EQ(own, out);
  double identity[3][3];
  identifymat3(identity);
  xformvec3(v.data(), identity, out.data());
  EXPECT_EQ(out, v);
}

TEST(Vectors, MayBeARowOfTheMatrixThatMultipliesThem) {
  double matrix[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 10}};
  // Row 0 times the matrix: 1 + 8 + 21, 2 + 10 + 24, 3 + 12 + 30.
  xformvec3(matrix[0], matrix, matrix[0]);
  EXPECT_EQ(matrix[0][0], 30.0);
  EXPECT_EQ(matrix[0][1], 36.0);
  EXPECT_EQ(matrix[0][2], 45.0);
}

}  // namespace
