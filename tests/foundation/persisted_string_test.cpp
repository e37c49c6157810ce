#include "orvalix/foundation/persisted_string.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "support/temporary_file.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::TemporaryFile;

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

bool Throws(const std::function<void()>& call) {
  try {
    call();
  } catch (CFileException* error) {
    error->Delete();
    return true;
  }
  return false;
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
  EXPECT_TRUE(Throws([] { ReadFrom({4, 0, 0, 0, 'a', 'b', 'c'}); }));
  EXPECT_TRUE(Throws([] { ReadFrom({0xFF, 0xFF, 0xFF, 0xFF, 'a'}); }));  // -1
  EXPECT_TRUE(Throws([] { ReadFrom({0xFF, 0xFF, 0xFF, 0x7F, 'a'}); }));  // 2 147 483 647
}

TEST(PersistedString, NullFilesDoNothing) {
  CString text("kept");
  WriteCString(nullptr, text);
  ReadCString(nullptr, text);
  EXPECT_STREQ(text, "kept");
}

TEST(PersistedString, FailingWritesAreReported) {
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_TRUE(Throws([&] { WriteCString(full.m_hFile, "abc"); }));
}

}  // namespace
