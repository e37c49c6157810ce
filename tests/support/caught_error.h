/// @file
/// The error that a call throws, as a value that tests compare.
#pragma once

#include <ostream>
#include <string>

#include "orvalix/foundation/err_3d.h"

namespace orvalix::test {

struct CaughtError {
  int type;
  int errorClass;
  std::string place;

  bool operator==(const CaughtError&) const = default;

  friend std::ostream& operator<<(std::ostream& out, const CaughtError& error) {
    return out << "type " << error.type << ", class " << error.errorClass << ", place \""
               << error.place << "\"";
  }
};

inline const CaughtError kNoError{-1, -1, "no error"};

/// Runs `call` without message boxes. kNoError when it throws nothing.
template <class Call>
CaughtError Catch(Call&& call) {
  const int reportMode = CErr3D::nErrorReportMode;
  CErr3D::nErrorReportMode = 0;
  CaughtError caught = kNoError;
  try {
    call();
  } catch (CErr3D& error) {
    caught = {static_cast<int>(error.GetErrorType()), static_cast<int>(error.GetErrorClass()),
              static_cast<const char*>(error.GetErrorLocation())};
  }
  CErr3D::nErrorReportMode = reportMode;
  return caught;
}

}  // namespace orvalix::test
