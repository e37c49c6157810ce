#include "orvalix/foundation/record_internal.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <limits>
#include <numeric>

#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/host/file_handle_internal.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/temporary_file.h"

namespace {

using orvalix::RecordReader;
using orvalix::RecordWriter;
using orvalix::test::Bytes;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::kNoError;
using orvalix::test::LoadFrom;
using orvalix::test::Saved;
using orvalix::test::TemporaryFile;

/// A class as the library's own are: one routine for both directions.
struct Sample {
  int number = 0;
  double real = 0.0;
  point3Dtype point{};
  RGBDType color{};
  GLViewportType viewport{};
  GLViewRType fractions{};
  CString text;
  std::array<int, 2> pair{};
  int count = 0;
  std::vector<double> values;

  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self) {
    record.Field("number", self.number);
    record.Field("real", self.real);
    record.Field("point", self.point);
    record.Field("color", self.color);
    record.Field("viewport", self.viewport);
    record.Field("fractions", self.fractions);
    record.Field("text", self.text);
    record.Fields("pair", self.pair);
    record.Field("count", self.count);
    record.Array("values", self.values, self.count);
  }
  void Save(void* file) const {
    orvalix::SaveRecord(file, ERR3DCLASS_DIB, [&](auto& record) { RecordFields(record, *this); });
  }
  void Load(void* file) {
    orvalix::LoadRecord(file, ERR3DCLASS_DIB, [&](auto& record) { RecordFields(record, *this); });
  }
};

void Append(Bytes& bytes, std::initializer_list<int> more) {
  for (const int byte : more) bytes.push_back(static_cast<unsigned char>(byte));
}

/// The doubles 1 to 4, least significant byte first.
void AppendOneToFour(Bytes& bytes) {
  Append(bytes, {0, 0, 0, 0, 0, 0, 0xF0, 0x3F});
  Append(bytes, {0, 0, 0, 0, 0, 0, 0x00, 0x40});
  Append(bytes, {0, 0, 0, 0, 0, 0, 0x08, 0x40});
  Append(bytes, {0, 0, 0, 0, 0, 0, 0x10, 0x40});
}

Sample FilledSample() {
  return {.number = -2,
          .real = 1.5,
          .point = {1, 2, 3, 4},
          .color = {1, 2, 3, 4},
          .viewport = {1, 2, 3, 4},
          .fractions = {1, 2, 3, 4},
          .text = "Hi",
          .pair = {5, 6},
          .count = 1,
          .values = {0.5}};
}

Bytes SampleBytes() {
  Bytes bytes;
  Append(bytes, {0xFE, 0xFF, 0xFF, 0xFF});        // -2
  Append(bytes, {0, 0, 0, 0, 0, 0, 0xF8, 0x3F});  // 1.5
  AppendOneToFour(bytes);                         // point
  AppendOneToFour(bytes);                         // colour
  Append(bytes, {1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0, 4, 0, 0, 0});
  AppendOneToFour(bytes);                         // fractions
  Append(bytes, {2, 0, 0, 0, 'H', 'i'});          // text
  Append(bytes, {5, 0, 0, 0, 6, 0, 0, 0});        // pair
  Append(bytes, {1, 0, 0, 0});                    // count
  Append(bytes, {0, 0, 0, 0, 0, 0, 0xE0, 0x3F});  // 0.5
  return bytes;
}

TEST(Record, WritesFieldsWithNothingBetweenThem) {
  EXPECT_EQ(Saved(FilledSample()), SampleBytes());
}

TEST(Record, ReadsWhatItWrote) {
  Sample sample;
  LoadFrom(sample, SampleBytes());
  EXPECT_EQ(sample.number, -2);
  EXPECT_EQ(sample.real, 1.5);
  EXPECT_EQ(sample.point.v, 4.0);
  EXPECT_EQ(sample.color.red, 1.0);
  EXPECT_EQ(sample.viewport.height, 4);
  EXPECT_EQ(sample.fractions.width, 3.0);
  EXPECT_STREQ(sample.text, "Hi");
  EXPECT_EQ(sample.pair[1], 6);
  EXPECT_EQ(sample.values, std::vector<double>{0.5});
}

TEST(Record, MissingFieldsKeepTheirValues) {
  const Bytes bytes = SampleBytes();
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    SCOPED_TRACE(length);
    Sample sample;
    sample.number = 77;
    sample.real = 77;
    sample.point = {77, 77, 77, 77};
    sample.color = {77, 77, 77, 77};
    sample.viewport = {77, 77, 77, 77};
    sample.fractions = {77, 77, 77, 77};
    sample.text = "before";
    sample.pair = {77, 77};
    sample.count = 2;
    sample.values = {77, 77};
    const CaughtError error = Catch([&] {
      LoadFrom(sample, Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)));
    });
    // Each field with the byte behind its last one.
    EXPECT_EQ(sample.number, length >= 4 ? -2 : 77);
    EXPECT_EQ(sample.real, length >= 12 ? 1.5 : 77.0);
    EXPECT_EQ(sample.point.x, length >= 44 ? 1.0 : 77.0);
    EXPECT_EQ(sample.point.v, length >= 44 ? 4.0 : 77.0);
    EXPECT_EQ(sample.color.red, length >= 76 ? 1.0 : 77.0);
    EXPECT_EQ(sample.viewport.x, length >= 92 ? 1 : 77);
    EXPECT_EQ(sample.fractions.x, length >= 124 ? 1.0 : 77.0);
    EXPECT_STREQ(sample.text, length >= 130 ? "Hi" : "before");
    EXPECT_EQ(sample.pair[0], length >= 134 ? 5 : 77);
    EXPECT_EQ(sample.pair[1], length >= 138 ? 6 : 77);
    EXPECT_EQ(sample.count, length >= 142 ? 1 : 2);
    EXPECT_EQ(sample.values, (std::vector<double>{77, 77}));
    // The text's length says more than is left (128 to 129), or the array's (142 to 149).
    const bool promisedMore = (length >= 128 && length < 130) || length >= 142;
    EXPECT_EQ(error, promisedMore ? (CaughtError{7, 8, "Load"}) : kNoError);
  }
}

TEST(Record, CountsAreHeldAgainstTheFile) {
  const std::size_t countAt = SampleBytes().size() - 12;
  for (const int last : {0x7F, 0x80, 0xFF}) {
    Bytes bytes = SampleBytes();
    bytes[countAt + 3] = static_cast<unsigned char>(last);
    Sample sample;
    sample.values = {9.0};
    const orvalix::test::AllocationMeter meter;
    EXPECT_EQ(Catch([&] { LoadFrom(sample, bytes); }), (CaughtError{7, 8, "Load"}));
    EXPECT_LT(meter.Largest(), std::size_t{1} << 16);
    EXPECT_EQ(sample.values, std::vector<double>{9.0});
  }
}

TEST(Record, ListCountsAreHeldAgainstTheFileToo) {
  const TemporaryFile file(Bytes{3, 0, 0, 0, 1, 2, 3, 4, 5, 6});
  CFile in;
  ASSERT_TRUE(in.Open(file.Path(), CFile::modeRead));
  int count = 0;
  RecordReader(in.m_hFile).Count("count", count, 2);
  EXPECT_EQ(count, 3);  // six bytes are left
  in.SeekToBegin();
  bool refused = false;
  try {
    RecordReader(in.m_hFile).Count("count", count, 3);
  } catch (CFileException* error) {
    refused = true;
    EXPECT_EQ(error->m_cause, CFileException::endOfFile);
    error->Delete();
  }
  EXPECT_TRUE(refused);
}

TEST(Record, ACountOfElementsWithoutBytesIsNotDividedBy) {
  const TemporaryFile file(Bytes{3, 0, 0, 0, 1, 2, 3});
  CFile in;
  ASSERT_TRUE(in.Open(file.Path(), CFile::modeRead));
  int count = 0;
  RecordReader(in.m_hFile).Count("count", count, 0);
  EXPECT_EQ(count, 3);
}

TEST(Record, FilesWithoutAnEndAreReadBlockByBlock) {
  CFile zeros;
  ASSERT_TRUE(zeros.Open("/dev/zero", CFile::modeRead));
  std::vector<double> values{1.0};
  RecordReader(zeros.m_hFile).Array("values", values, 100000);
  EXPECT_EQ(values, std::vector<double>(100000, 0.0));

  // Nothing follows what the count promises.
  CFile nothing;
  ASSERT_TRUE(nothing.Open("/dev/null", CFile::modeRead));
  const orvalix::test::AllocationMeter meter;
  const auto read = [&] { RecordReader(nothing.m_hFile).Array("values", values, 32 << 20); };
  EXPECT_EQ(Catch([&] { orvalix::WithFileErrors(ERR3DCLASS_DIB, "Load", read); }),
            (CaughtError{7, 8, "Load"}));
  EXPECT_LE(meter.Largest(), std::size_t{1} << 16);
  // 256 MiB at most, even where they would follow.
  const auto readTooMany = [&] {
    RecordReader(zeros.m_hFile).Array("values", values, (32 << 20) + 1);
  };
  EXPECT_EQ(Catch([&] { orvalix::WithFileErrors(ERR3DCLASS_DIB, "Load", readTooMany); }),
            (CaughtError{7, 8, "Load"}));
  EXPECT_LE(meter.Largest(), std::size_t{1} << 16);
  EXPECT_EQ(values.size(), 100000U);
}

TEST(Record, ArraysThatDoNotHoldTheirCountAreNotWritten) {
  for (const int count : {2, std::numeric_limits<int>::max(), -1}) {
    Sample sample = FilledSample();
    sample.count = count;
    EXPECT_EQ(Catch([&] { Saved(sample); }), (CaughtError{7, 8, "Save"}));
  }
  Sample fewer = FilledSample();
  fewer.count = 0;
  EXPECT_EQ(Saved(fewer).size(), SampleBytes().size() - 8);
}

TEST(Record, RunningOutOfMemoryIsAnError) {
  const Bytes bytes = SampleBytes();
  const TemporaryFile source(bytes);
  const TemporaryFile target;
  CFile in;
  ASSERT_TRUE(in.Open(source.Path(), CFile::modeRead));
  CFile out;
  ASSERT_TRUE(out.Open(target.Path(), CFile::modeCreate | CFile::modeWrite));
  const Sample filled = FilledSample();
  int errors = 0;
  const int writeFailures = orvalix::test::FailEachAllocation([&] {
    const CaughtError error = Catch([&] { filled.Save(out.m_hFile); });
    if (error == kNoError) return;
    EXPECT_EQ(error, (CaughtError{2, 8, "Save"}));
    ++errors;
  });
  EXPECT_GE(writeFailures, 1);
  EXPECT_EQ(errors, writeFailures);
  errors = 0;
  const int readFailures = orvalix::test::FailEachAllocation([&] {
    in.SeekToBegin();
    Sample sample;
    const CaughtError error = Catch([&] { sample.Load(in.m_hFile); });
    if (error == kNoError) return;
    EXPECT_EQ(error, (CaughtError{2, 8, "Load"}));
    ++errors;
  });
  EXPECT_EQ(readFailures, 3);  // the block, the bytes of the text, the values
  EXPECT_EQ(errors, readFailures);
}

TEST(Record, LargeArraysAreWrittenWhole) {
  Sample sample;
  sample.count = 100000;
  sample.values.resize(100000);
  std::iota(sample.values.begin(), sample.values.end(), 0.0);
  const Bytes bytes = Saved(sample);
  Sample loaded;
  LoadFrom(loaded, bytes);
  EXPECT_EQ(loaded.values, sample.values);
}

/// Writes its own number, then the record of another object, then its number again.
struct Parent {
  Sample child;
  int number = 9;
  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self) {
    record.Field("number", self.number);
    record.Child(self.child);
    record.Field("number", self.number);
  }
  void Save(void* file) const {
    orvalix::SaveRecord(file, ERR3DCLASS_CHART3D,
                        [&](auto& record) { RecordFields(record, *this); });
  }
  void Load(void* file) {
    orvalix::LoadRecord(file, ERR3DCLASS_CHART3D,
                        [&](auto& record) { RecordFields(record, *this); });
  }
};

TEST(Record, ChildrenStandInLine) {
  Parent parent;
  parent.child = FilledSample();
  Bytes expected{9, 0, 0, 0};
  const Bytes child = SampleBytes();
  expected.insert(expected.end(), child.begin(), child.end());
  Append(expected, {9, 0, 0, 0});
  EXPECT_EQ(Saved(parent), expected);
  Parent loaded;
  expected[expected.size() - 4] = 8;
  LoadFrom(loaded, expected);
  EXPECT_EQ(loaded.number, 8);
  EXPECT_STREQ(loaded.child.text, "Hi");
}

TEST(Record, FilesStandBehindWhatWasRead) {
  Parent parent;
  parent.child = FilledSample();
  Bytes bytes = Saved(parent);
  const std::size_t length = bytes.size();
  bytes.resize(length + 100000, 5);
  const TemporaryFile file(bytes);
  CFile in;
  ASSERT_TRUE(in.Open(file.Path(), CFile::modeRead));
  Parent().Load(in.m_hFile);
  EXPECT_EQ(in.GetPosition(), length);
  // Wherever a record begins, and also where it is left in its middle.
  in.Seek(4, CFile::begin);
  Sample sample;
  sample.Load(in.m_hFile);
  EXPECT_STREQ(sample.text, "Hi");
  EXPECT_EQ(in.GetPosition(), length - 4);
  in.Seek(8, CFile::begin);
  EXPECT_EQ(Catch([&] { sample.Load(in.m_hFile); }).type, 7);
  EXPECT_LT(in.GetPosition(), length);
}

TEST(Record, TwoFilesMayBeReadAtATime) {
  const TemporaryFile first(Bytes{1, 0, 0, 0, 3, 0, 0, 0});
  const TemporaryFile second(Bytes{2, 0, 0, 0, 4, 0, 0, 0});
  CFile one;
  CFile two;
  ASSERT_TRUE(one.Open(first.Path(), CFile::modeRead));
  ASSERT_TRUE(two.Open(second.Path(), CFile::modeRead));
  std::array<int, 4> numbers{};
  RecordReader outer(one.m_hFile);
  outer.Field("number", numbers[0]);
  RecordReader other(two.m_hFile);
  other.Field("number", numbers[1]);
  RecordReader inner(one.m_hFile);
  inner.Field("number", numbers[2]);
  other.Field("number", numbers[3]);
  EXPECT_EQ(numbers, (std::array<int, 4>{1, 2, 3, 4}));
}

TEST(Record, PipesAreReadNoFurtherThanAskedFor) {
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  const Bytes bytes{1, 0, 0, 0, 2, 0, 0, 0};
  ASSERT_EQ(::write(ends[1], bytes.data(), bytes.size()), 8);
  int number = 0;
  RecordReader(orvalix::HandleOfDescriptor(ends[0])).Field("number", number);
  EXPECT_EQ(number, 1);
  RecordReader(orvalix::HandleOfDescriptor(ends[0])).Field("number", number);
  EXPECT_EQ(number, 2);
  ::close(ends[0]);
  ::close(ends[1]);
}

TEST(Record, FailuresNameTheClassWhoseRecordFailed) {
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { FilledSample().Save(full.m_hFile); }), (CaughtError{7, 8, "Save"}));
  // The parent's own bytes are written first.
  EXPECT_EQ(Catch([&] { Parent().Save(full.m_hFile); }), (CaughtError{7, 4, "Save"}));
  Parent loaded;
  const Bytes bytes = [] {
    Bytes all{9, 0, 0, 0};
    const Bytes child = SampleBytes();
    all.insert(all.end(), child.begin(), child.begin() + 129);
    return all;
  }();
  EXPECT_EQ(Catch([&] { LoadFrom(loaded, bytes); }), (CaughtError{7, 8, "Load"}));
  Sample().Save(nullptr);
  Sample().Load(nullptr);
}

}  // namespace
