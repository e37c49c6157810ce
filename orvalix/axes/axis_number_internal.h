/// @file
/// How the numbers at the tics are written.
#pragma once

#include "orvalix/host/host.h"

namespace orvalix {

/// The formats of numbers. Others below act as kFixed, others above too.
enum AxisNumberFormat : int {
  kFixed = 0,        ///< 1234.50
  kExponent = 1,     ///< 1.23e+03
  kEngineering = 2,  ///< 1.23K
  kGeneral = 3       ///< kFixed or kExponent, whatever is shorter
};

/// A number as a label shows it.
/// @param decimals digits after the point (of kGeneral: significant digits), 0 to 100
/// @param suffixes of kEngineering: character i marks 1000 to the power of i; character 0 isn't
///   used
///
/// Kept in kEngineering: K from exactly 1000, but M, B and T from 999 of the unit below; from 10^15
/// on B again; negative numbers as they are.
CString FormatAxisNumber(double value, int format, int decimals, CString const& suffixes);

/// Takes the third character from the end out of a number with an exponent, where a three-digit
/// exponent has its leading zero.
/// Kept: it goes by position alone.
void RemoveExponentZero(CString& number);

}  // namespace orvalix
