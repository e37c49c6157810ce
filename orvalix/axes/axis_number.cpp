#include "orvalix/axes/axis_number_internal.h"

#include <algorithm>

namespace orvalix {
namespace {

constexpr int kMostDecimals = 100;
constexpr int kExponentDigits = 3;

CString FormatFixed(double value, int decimals) {
  CString number;
  number.Format("%1.*f", decimals, value);
  return number;
}

/// Position of the letter of an exponent; -1 when there is none.
int FindExponent(CString const& number) { return std::max(number.Find('e'), number.Find('E')); }

/// Some platforms write exponents with two digits, some with three: makes it at least three.
void WidenExponent(CString& number) {
  const int letter = FindExponent(number);
  if (letter < 0) return;
  const int firstDigit = letter + 2;
  const int missing = kExponentDigits - (number.GetLength() - firstDigit);
  number = number.Left(firstDigit) + CString('0', missing) + number.Mid(firstDigit);
}

CString FormatExponent(const char* format, double value, int decimals) {
  CString number;
  if (format[0] == 'e') {
    number.Format("%1.*e", decimals, value);
  } else {
    number.Format("%1.*g", decimals, value);
  }
  WidenExponent(number);
  RemoveExponentZero(number);
  return number;
}

struct Scale {
  double unit = 1.0;
  int suffix = 0;
};

Scale EngineeringScale(double value) {
  if (value >= 999e9 && value < 1e15) return {1e12, 4};
  if (value >= 999e6) return {1e9, 3};
  if (value >= 999e3) return {1e6, 2};
  if (value >= 1000.0) return {1e3, 1};
  return {};
}

CString FormatEngineering(double value, int decimals, CString const& suffixes) {
  const Scale scale = EngineeringScale(value);
  CString number = FormatFixed(value / scale.unit, decimals);
  if (scale.suffix > 0 && scale.suffix < suffixes.GetLength()) number += suffixes[scale.suffix];
  return number;
}

}  // namespace

CString FormatAxisNumber(double value, int format, int decimals, CString const& suffixes) {
  const int digits = std::clamp(decimals, 0, kMostDecimals);
  switch (format) {
    case kExponent:
      return FormatExponent("e", value, digits);
    case kEngineering:
      return FormatEngineering(value, digits, suffixes);
    case kGeneral:
      return FormatExponent("g", value, digits);
    default:
      return FormatFixed(value, digits);
  }
}

void RemoveExponentZero(CString& number) {
  constexpr int kFromEnd = 3;
  if (FindExponent(number) < 0) return;
  number = number.Left(number.GetLength() - kFromEnd) + number.Right(kFromEnd - 1);
}

}  // namespace orvalix
