#include "orvalix/foundation/persisted_string.h"

#include <gtest/gtest.h>

#include <string>

#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/temporary_file.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::kNoError;
using orvalix::test::TemporaryFile;

const CaughtError kUnreadable{7, 12, "ReadCString"};
const CaughtError kUnwritable{7, 12, "WriteCString"};

Bytes Written(const CString& text) {
  const TemporaryFile file;
  CFile out;
  EXPECT_TRUE(out.Open(file.Path(), CFile::modeCreate | CFile::modeWrite));
  WriteCString(out.m_hFile, text);
  out.Close();
  return file.Read();
}

/// What ReadCString makes of a text that was "before".
CString ReadFrom(const Bytes& bytes) {
  const TemporaryFile file(bytes);
  CFile in;
  EXPECT_TRUE(in.Open(file.Path(), CFile::modeRead));
  CString text("before");
  ReadCString(in.m_hFile, text);
  return text;
}

TEST(PersistedString, IsItsLengthAndItsBytes) {
  EXPECT_EQ(Written("abc"), (Bytes{3, 0, 0, 0, 'a', 'b', 'c'}));
  EXPECT_STREQ(ReadFrom({3, 0, 0, 0, 'a', 'b', 'c', 'd'}), "abc");
}

TEST(PersistedString, AnEmptyOneIsFourZeroBytes) {
  EXPECT_EQ(Written(""), (Bytes{0, 0, 0, 0}));
  EXPECT_STREQ(ReadFrom({0, 0, 0, 0}), "");
}

TEST(PersistedString, EndsAtItsFirstZeroByteOnReading) {
  EXPECT_EQ(Written(CString("a\0b", 3)), (Bytes{3, 0, 0, 0, 'a', 0, 'b'}));
  const CString read = ReadFrom({3, 0, 0, 0, 'a', 0, 'b'});
  EXPECT_EQ(read.GetLength(), 1);
}

TEST(PersistedString, KeepsEveryByte) {
  Bytes bytes{255, 0, 0, 0};
  for (int i = 1; i < 256; ++i) bytes.push_back(static_cast<unsigned char>(i));
  EXPECT_EQ(Written(ReadFrom(bytes)), bytes);
}

TEST(PersistedString, ALengthThatIsCutOffLeavesTheText) {
  for (std::size_t length = 0; length < 4; ++length) {
    EXPECT_STREQ(ReadFrom(Bytes(length, 1)), "before");
  }
}

TEST(PersistedString, LengthsThatCannotBeTrueAreRefused) {
  EXPECT_EQ(Catch([] { ReadFrom({4, 0, 0, 0, 'a', 'b', 'c'}); }), kUnreadable);
  EXPECT_EQ(Catch([] { ReadFrom({0xFF, 0xFF, 0xFF, 0xFF, 'a'}); }), kUnreadable);  // -1
  EXPECT_EQ(Catch([] { ReadFrom({0xFF, 0xFF, 0xFF, 0x7F, 'a'}); }), kUnreadable);  // 2 147 483 647
}

TEST(PersistedString, ALengthIsHeldAgainstTheFileBeforeMemoryIsTaken) {
  // 0x7F7F7F7F bytes are promised, none follow.
  const TemporaryFile file(Bytes{0x7F, 0x7F, 0x7F, 0x7F});
  CFile in;
  ASSERT_TRUE(in.Open(file.Path(), CFile::modeRead));
  CString text("before");
  const orvalix::test::AllocationMeter meter;
  EXPECT_EQ(Catch([&] { ReadCString(in.m_hFile, text); }), kUnreadable);
  EXPECT_LT(meter.Largest(), 1000U);
  EXPECT_STREQ(text, "before");
}

TEST(PersistedString, RunningOutOfMemoryIsAnError) {
  const CString text("a text that is too long to be held without memory of its own");
  const Bytes bytes = Written(text);
  const TemporaryFile file(bytes);
  const TemporaryFile target;
  CFile in;
  ASSERT_TRUE(in.Open(file.Path(), CFile::modeRead));
  CFile out;
  ASSERT_TRUE(out.Open(target.Path(), CFile::modeCreate | CFile::modeWrite));
  CString read;
  int errors = 0;
  const int readFailures = orvalix::test::FailEachAllocation([&] {
    in.SeekToBegin();
    read = "before";
    const CaughtError error = Catch([&] { ReadCString(in.m_hFile, read); });
    if (error == kNoError) return;
    EXPECT_EQ(error, (CaughtError{2, 12, "ReadCString"}));
    EXPECT_STREQ(read, "before");
    ++errors;
  });
  EXPECT_STREQ(read, text);
  EXPECT_GE(readFailures, 2);  // the bytes read, the text made of them
  EXPECT_EQ(errors, readFailures);
  errors = 0;
  const int writeFailures = orvalix::test::FailEachAllocation([&] {
    const CaughtError error = Catch([&] { WriteCString(out.m_hFile, text); });
    if (error == kNoError) return;
    EXPECT_EQ(error, (CaughtError{2, 12, "WriteCString"}));
    ++errors;
  });
  EXPECT_GE(writeFailures, 1);
  EXPECT_EQ(errors, writeFailures);
}

TEST(PersistedString, NullFilesDoNothing) {
  CString text("kept");
  WriteCString(nullptr, text);
  ReadCString(nullptr, text);
  EXPECT_STREQ(text, "kept");
}

TEST(PersistedString, FailingFilesAreReported) {
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { WriteCString(full.m_hFile, "abc"); }), kUnwritable);
  const TemporaryFile file(Bytes{1, 0, 0, 0, 'a'});
  CFile readOnly;
  ASSERT_TRUE(readOnly.Open(file.Path(), CFile::modeRead));
  EXPECT_EQ(Catch([&] { WriteCString(readOnly.m_hFile, "abc"); }), kUnwritable);
  CFile writeOnly;
  ASSERT_TRUE(writeOnly.Open(file.Path(), CFile::modeWrite));
  CString text("kept");
  EXPECT_EQ(Catch([&] { ReadCString(writeOnly.m_hFile, text); }), kUnreadable);
  EXPECT_EQ(Catch([&] { ReadCString(CFile::hFileNull, text); }), kUnreadable);
  EXPECT_STREQ(text, "kept");
}

}  // namespace
