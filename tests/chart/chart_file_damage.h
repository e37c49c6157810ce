/// @file
/// Broken chart files: a view loads one after another, is saved, and now and then drawn.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "chart/full_view.h"
#include "support/caught_error.h"
#include "support/memory_file.h"
#include "support/record_fields.h"

namespace orvalix::test {

/// A file, and where its fields stand.
struct KnownFile {
  Bytes bytes;
  std::vector<RecordField> fields;
};

/// The file of FullView.
inline KnownFile FullFile() {
  const FullView full;
  ViewOn reader(20, 20);
  KnownFile file{SavedFile(*full.view), {}};
  file.fields = FieldsReadBy([&] { LoadFile(*reader.view, file.bytes); });
  return file;
}

/// A view of 20 x 20 pixels that broken files are loaded into, each after the other.
class Patient {
 public:
  Patient() : m_on(20, 20) {}

  /// Loads a file, which has to work or to be refused, and saves what was loaded of it.
  void Endure(const Bytes& file) {
    m_input.Fill(file);
    const CaughtError error = Catch([&] { m_on.view->Load(m_input.Path()); });
    if (error != kNoError) {
      ++m_refused;
      EXPECT_TRUE(error.type == 7 || error.type == 2 || error.type == 3) << error;
      EXPECT_EQ(error.place, "Load");
    }
    EXPECT_EQ(Catch([&] { m_on.view->Save("/dev/null"); }), kNoError);
  }
  /// Draws what was loaded last, saves it, and loads that.
  void Draw() {
    EXPECT_EQ(Catch([&] { m_on.view->DrawViewScreen(); }), kNoError);
    EXPECT_EQ(Catch([&] { m_on.view->Save(m_output.Path()); }), kNoError);
    EXPECT_EQ(Catch([&] { m_on.view->Load(m_output.Path()); }), kNoError);
  }
  int Refused() const { return m_refused; }

 private:
  ViewOn m_on;
  MemoryFile m_input;
  MemoryFile m_output;
  int m_refused = 0;
};

/// Changes files, the same way in every run.
class Changer {
 public:
  explicit Changer(unsigned seed) : m_random(seed) {}

  std::size_t Below(std::size_t limit) { return m_random() % limit; }

  /// Gives 1 to 8 bytes anywhere other values.
  void ChangeBytes(Bytes& file) {
    for (std::size_t changes = 1 + Below(8); changes > 0; --changes) {
      file[Below(file.size())] = static_cast<unsigned char>(m_random());
    }
  }

  /// Fills 1 to 3 fields, or the first part of long ones, with numbers that programs stumble over.
  void ChangeFields(Bytes& file, const std::vector<RecordField>& fields) {
    constexpr std::size_t kMostBytes = 96;
    for (std::size_t changes = 1 + Below(3); changes > 0; --changes) {
      const RecordField& field = fields[Below(fields.size())];
      const std::size_t size = std::min(field.end - field.begin, kMostBytes);
      const auto number = HostileNumber(size % sizeof(double) != 0);
      for (std::size_t i = 0; i < size; ++i) file[field.begin + i] = number[i % number.size()];
    }
  }

 private:
  static Bytes BytesOf(std::uint64_t bits, std::size_t count) {
    Bytes bytes;
    for (std::size_t i = 0; i < count; ++i) {
      bytes.push_back(static_cast<unsigned char>(bits >> (8 * i)));
    }
    return bytes;
  }
  Bytes HostileNumber(bool isInteger) {
    constexpr std::array<std::uint32_t, 10> kIntegers{
        0x7fffffff, 0x80000000, 0xffffffff, 0xfffffffe, 0, 1, 2, 100, 65536, 0x7ffffffe};
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr std::array<double, 12> kReals{std::numeric_limits<double>::quiet_NaN(),
                                            kInfinity,
                                            -kInfinity,
                                            1e300,
                                            -1e300,
                                            1e-300,
                                            std::numeric_limits<double>::max(),
                                            std::numeric_limits<double>::denorm_min(),
                                            -1.0,
                                            0.0,
                                            1e9,
                                            1e-9};
    if (isInteger) return BytesOf(kIntegers[Below(kIntegers.size())], sizeof(int));
    return BytesOf(std::bit_cast<std::uint64_t>(kReals[Below(kReals.size())]), sizeof(double));
  }

  std::mt19937 m_random;
};

}  // namespace orvalix::test
