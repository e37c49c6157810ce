/// @file
/// Values of records as texts, for those who watch records being read.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

namespace orvalix {

std::string TextOf(int value);
std::string TextOf(double value);
std::string TextOf(const point3Dtype& value);
std::string TextOf(const RGBDType& value);
std::string TextOf(const GLViewportType& value);
std::string TextOf(const GLViewRType& value);
std::string TextOf(const CString& value);
/// Numbers and the like in square brackets, the first few of many.
template <class Values>
std::string TextOfAll(const Values& values) {
  constexpr std::size_t kMostTold = 6;
  std::string text = "[";
  for (std::size_t i = 0; i < values.size() && i < kMostTold; ++i) {
    text += (i == 0 ? "" : ", ") + TextOf(values[i]);
  }
  if (values.size() > kMostTold) text += ", ... " + std::to_string(values.size()) + " in all";
  return text + "]";
}
/// The same of numbers, points, colours and texts; of anything else how many there are.
template <class T>
std::string TextOfArray(const std::vector<T>& values) {
  if constexpr (requires(const T& value) { TextOf(value); }) {
    return TextOfAll(values);
  } else {
    return std::to_string(values.size()) + " in all";
  }
}

}  // namespace orvalix
