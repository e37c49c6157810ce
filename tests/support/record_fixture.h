/// @file
/// Records written by hand, byte by byte: tests/records/NAME.hex.
///
/// Such a file has one field, or a part of a long one, on each line, in hexadecimal digits as
/// hex_bytes.h reads them, and behind them "# name of the field: its value". A line "include
/// OTHER.hex" stands for the lines of another file.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include "support/temporary_file.h"

namespace orvalix::test {

class RecordFixture {
 public:
  /// The bytes of a line, and the field that they belong to.
  struct Line {
    std::string name;
    std::size_t offset;
    std::size_t size;
  };

  /// @param name of a file in tests/records, without its ending
  explicit RecordFixture(const std::string& name);

  const Bytes& AllBytes() const { return m_bytes; }
  const std::vector<Line>& Lines() const { return m_lines; }

  /// Makes these the numbers of every line of that name.
  RecordFixture& Put(const std::string& name, std::initializer_list<int> numbers);
  RecordFixture& Put(const std::string& name, std::initializer_list<double> numbers);

 private:
  void ReadLines(const std::string& name);
  void PutBytes(const std::string& name, const Bytes& bytes);

  Bytes m_bytes;
  std::vector<Line> m_lines;
};

/// Fails at the first byte that is another one, and tells its field.
void ExpectRecord(const Bytes& actual, const RecordFixture& expected);

/// Loads the fixture, and expects the same bytes when the object is saved.
template <class T>
void LoadAndSaveAgain(T& object, const RecordFixture& fixture) {
  LoadFrom(object, fixture.AllBytes());
  ExpectRecord(Saved(object), fixture);
}

}  // namespace orvalix::test
