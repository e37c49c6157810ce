#include "support/record_fixture.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <fstream>

#include "support/hex_bytes.h"

namespace orvalix::test {
namespace {

/// "name: value" without the value.
std::string NameIn(const std::string& line) {
  const std::size_t hash = line.find("# ");
  if (hash == std::string::npos) return "";
  return line.substr(hash + 2, line.find(':', hash) - hash - 2);
}

Bytes LittleEndian(std::uint64_t bits, std::size_t size) {
  Bytes bytes;
  for (std::size_t i = 0; i < size; ++i) {
    bytes.push_back(static_cast<unsigned char>((bits >> (8 * i)) & 0xFFU));
  }
  return bytes;
}

/// The bytes of a line as they stand in fixtures, as far as there are any.
std::string HexOf(const Bytes& bytes, const RecordFixture::Line& line) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (std::size_t i = line.offset; i < std::min(bytes.size(), line.offset + line.size); ++i) {
    text += {kDigits[bytes[i] / 16], kDigits[bytes[i] % 16]};
  }
  return text;
}

void Append(Bytes& bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

}  // namespace

RecordFixture::RecordFixture(const std::string& name) { ReadLines(name + ".hex"); }

void RecordFixture::ReadLines(const std::string& name) {
  const std::string include = "include ";
  std::ifstream file(std::string(ORVALIX_RECORDS_FOLDER) + "/" + name);
  EXPECT_TRUE(file.is_open()) << name;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(include)) {
      ReadLines(line.substr(include.size()));
      continue;
    }
    const Bytes bytes = LineFromHex(line);
    if (bytes.empty()) continue;
    m_lines.push_back({NameIn(line), m_bytes.size(), bytes.size()});
    Append(m_bytes, bytes);
  }
}

RecordFixture& RecordFixture::Put(const std::string& name, std::initializer_list<int> numbers) {
  Bytes bytes;
  for (const int number : numbers) Append(bytes, LittleEndian(static_cast<unsigned>(number), 4));
  PutBytes(name, bytes);
  return *this;
}

RecordFixture& RecordFixture::Put(const std::string& name, std::initializer_list<double> numbers) {
  Bytes bytes;
  for (const double number : numbers) {
    Append(bytes, LittleEndian(std::bit_cast<std::uint64_t>(number), 8));
  }
  PutBytes(name, bytes);
  return *this;
}

void RecordFixture::PutBytes(const std::string& name, const Bytes& bytes) {
  bool found = false;
  for (const Line& line : m_lines) {
    if (line.name != name) continue;
    found = true;
    ASSERT_EQ(line.size, bytes.size()) << name;
    std::copy(bytes.begin(), bytes.end(),
              m_bytes.begin() + static_cast<std::ptrdiff_t>(line.offset));
  }
  EXPECT_TRUE(found) << name;
}

void ExpectRecord(const Bytes& actual, const RecordFixture& expected) {
  const Bytes& bytes = expected.AllBytes();
  const auto differs = std::mismatch(actual.begin(), actual.end(), bytes.begin(), bytes.end());
  if (differs.first == actual.end() && differs.second == bytes.end()) return;
  const auto at = static_cast<std::size_t>(differs.second - bytes.begin());
  for (const RecordFixture::Line& line : expected.Lines()) {
    if (at >= line.offset + line.size) continue;
    ADD_FAILURE() << "at byte " << at << ", \"" << line.name << "\": " << HexOf(actual, line)
                  << " instead of " << HexOf(bytes, line);
    return;
  }
  ADD_FAILURE() << actual.size() << " bytes instead of " << bytes.size();
}

}  // namespace orvalix::test
