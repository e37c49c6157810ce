#include "orvalix/axes/axis_number_internal.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using orvalix::FormatAxisNumber;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

CString Format(double value, int format, int decimals, const char* suffixes = " KMBT") {
  return FormatAxisNumber(value, format, decimals, suffixes);
}

TEST(AxisNumber, IsFixedByDefault) {
  EXPECT_STREQ(Format(1234.5, 0, 2), "1234.50");
  EXPECT_STREQ(Format(-0.25, 0, 1), "-0.2");
  EXPECT_STREQ(Format(1e20, 0, 0), "100000000000000000000");
  EXPECT_STREQ(Format(7.0, 4, 1), "7.0");
  EXPECT_STREQ(Format(7.0, -1, 1), "7.0");
  EXPECT_STREQ(Format(7.0, 1000, 1), "7.0");
}

TEST(AxisNumber, WritesExponentsOfTwoDigits) {
  EXPECT_STREQ(Format(12345.0, 1, 2), "1.23e+04");
  EXPECT_STREQ(Format(1.5e-5, 1, 1), "1.5e-05");
  EXPECT_STREQ(Format(-2e7, 1, 0), "-2e+07");
  EXPECT_STREQ(Format(0.0, 1, 1), "0.0e+00");
}

TEST(AxisNumber, LosesTheFirstOfThreeExponentDigits) {
  // Kept: the rule goes by position alone.
  EXPECT_STREQ(Format(1e100, 1, 0), "1e+00");
  EXPECT_STREQ(Format(2.5e-123, 1, 1), "2.5e-23");
}

TEST(AxisNumber, IsGeneralInFormatThree) {
  EXPECT_STREQ(Format(0.5, 3, 3), "0.5");
  EXPECT_STREQ(Format(123.0, 3, 3), "123");
  EXPECT_STREQ(Format(123456.0, 3, 3), "1.23e+05");
  EXPECT_STREQ(Format(0.00001, 3, 3), "1e-05");
}

TEST(AxisNumber, ScalesWithSuffixes) {
  EXPECT_STREQ(Format(1234.0, 2, 2), "1.23K");
  EXPECT_STREQ(Format(999.0, 2, 2), "999.00");
  EXPECT_STREQ(Format(999.99, 2, 2), "999.99");
  EXPECT_STREQ(Format(1000.0, 2, 0), "1K");
  EXPECT_STREQ(Format(998999.0, 2, 1), "999.0K");
  EXPECT_STREQ(Format(999000.0, 2, 2), "1.00M");
  EXPECT_STREQ(Format(999500.0, 2, 1), "1.0M");
  EXPECT_STREQ(Format(998999999.0, 2, 1), "999.0M");
  EXPECT_STREQ(Format(999e6, 2, 1), "1.0B");
  EXPECT_STREQ(Format(998.9e9, 2, 1), "998.9B");
  EXPECT_STREQ(Format(999e9, 2, 1), "1.0T");
  EXPECT_STREQ(Format(999.9e12, 2, 1), "999.9T");
  EXPECT_STREQ(Format(1e15, 2, 2), "1000000.00B");
  EXPECT_STREQ(Format(2.5e15, 2, 2), "2500000.00B");
  EXPECT_STREQ(Format(-1234567.0, 2, 2), "-1234567.00");
  EXPECT_STREQ(Format(0.0, 2, 1), "0.0");
}

TEST(AxisNumber, TakesTheCallersSuffixes) {
  EXPECT_STREQ(Format(1500.0, 2, 1, "xkmgt"), "1.5k");
  EXPECT_STREQ(Format(15.0, 2, 1, "xkmgt"), "15.0");  // the first one isn't used
  EXPECT_STREQ(Format(2e6, 2, 0, " k"), "2");
  EXPECT_STREQ(Format(2e6, 2, 0, ""), "2");
}

TEST(AxisNumber, TakesAnyNumberAndAnyDecimals) {
  for (int format = 0; format <= 3; ++format) {
    EXPECT_STREQ(Format(kInfinity, format, 1).Left(3), format == 2 ? "inf" : "inf");
    EXPECT_GE(Format(std::numeric_limits<double>::quiet_NaN(), format, 1).GetLength(), 3);
    EXPECT_GE(Format(1e308, format, 2).GetLength(), 5);
  }
  EXPECT_STREQ(Format(1.5, 0, -5), "2");
  EXPECT_EQ(Format(1.0, 0, std::numeric_limits<int>::max()).GetLength(), 102);
}

TEST(RemoveExponentZero, GoesByPosition) {
  const auto removed = [](const char* text) {
    CString number = text;
    orvalix::RemoveExponentZero(number);
    return number;
  };
  EXPECT_STREQ(removed("1.50e+005"), "1.50e+05");
  EXPECT_STREQ(removed("1.50E+005"), "1.50E+05");
  EXPECT_STREQ(removed("1.5e+05"), "1.5e05");  // kept: the sign
  EXPECT_STREQ(removed("1234"), "1234");
  EXPECT_STREQ(removed(""), "");
}

}  // namespace
