/// @file
/// Bytes written as text that can be read: pairs of hexadecimal digits, spaces and lines between
/// them as wanted, comments from '#' to the end of a line.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace orvalix::test {

inline std::vector<unsigned char> FromHex(const std::string& text) {
  constexpr int kHexadecimal = 16;
  std::string digits;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    for (const char letter : line.substr(0, line.find('#'))) {
      if (letter != ' ') digits += letter;
    }
  }
  EXPECT_EQ(digits.size() % 2, 0U) << "half a byte";
  EXPECT_EQ(digits.find_first_not_of("0123456789abcdef"), std::string::npos);
  std::vector<unsigned char> bytes;
  for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
    bytes.push_back(
        static_cast<unsigned char>(std::stoi(digits.substr(i, 2), nullptr, kHexadecimal)));
  }
  return bytes;
}

}  // namespace orvalix::test
