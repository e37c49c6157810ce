/// @file
/// Bytes written as text that can be read: pairs of hexadecimal digits, spaces and lines between
/// them as wanted, comments from '#' to the end of a line. "3 * 00ff" at the start of a line is
/// what follows three times.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace orvalix::test {

/// The bytes of one line.
inline std::vector<unsigned char> LineFromHex(const std::string& line) {
  constexpr int kHexadecimal = 16;
  std::string code = line.substr(0, line.find('#'));
  int times = 1;
  if (const std::size_t star = code.find('*'); star != std::string::npos) {
    times = std::stoi(code.substr(0, star));
    code.erase(0, star + 1);
  }
  std::string digits;
  for (const char letter : code) {
    if (letter != ' ') digits += letter;
  }
  EXPECT_EQ(digits.size() % 2, 0U) << "half a byte: " << line;
  EXPECT_EQ(digits.find_first_not_of("0123456789abcdef"), std::string::npos) << line;
  std::vector<unsigned char> bytes;
  for (; times > 0; --times) {
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
      bytes.push_back(
          static_cast<unsigned char>(std::stoi(digits.substr(i, 2), nullptr, kHexadecimal)));
    }
  }
  return bytes;
}

inline std::vector<unsigned char> FromHex(const std::string& text) {
  std::vector<unsigned char> bytes;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    const std::vector<unsigned char> more = LineFromHex(line);
    bytes.insert(bytes.end(), more.begin(), more.end());
  }
  return bytes;
}

}  // namespace orvalix::test
