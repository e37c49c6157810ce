/// @file
/// What the fields of a record say, as numbers.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

namespace orvalix {

/// Takes the fields of a record like a RecordWriter and holds their numbers: two objects of the
/// same numbers look the same. Texts, arrays and owned objects are left out.
class RecordShape {
 public:
  static constexpr bool kReading = false;

  /// @param counter of all objects of the class, which says nothing of this one
  explicit RecordShape(const int& counter) : m_counter(&counter) {}

  void Field(const char*, const int& value) {
    if (&value != m_counter) numbers.push_back(value);
  }
  void Field(const char*, const double& value) { numbers.push_back(value); }
  void Field(const char*, const RGBDType& value) {
    numbers.insert(numbers.end(), {value.red, value.green, value.blue, value.alpha});
  }
  void Field(const char*, const point3Dtype& value) {
    numbers.insert(numbers.end(), {value.x, value.y, value.z, value.v});
  }
  template <class T, std::size_t N>
  void Fields(const char*, const std::array<T, N>& values) {
    numbers.insert(numbers.end(), values.begin(), values.end());
  }
  template <class T>
  void Child(const T&) {}

  std::vector<double> numbers;

 private:
  const int* m_counter;
};

}  // namespace orvalix
