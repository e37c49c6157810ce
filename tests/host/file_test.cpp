#include "orvalix/host/file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <string>

#include "orvalix/host/file_handle_internal.h"
#include "tests/support/temporary_file.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::TemporaryFile;

/// Runs `work` and tells the cause of the CFileException that it throws; -1 when it throws none.
template <class Work>
int CauseOf(Work&& work) {
  try {
    work();
  } catch (CFileException* exception) {
    const int cause = exception->m_cause;
    exception->Delete();
    return cause;
  }
  return -1;
}

TEST(CFile, FlagsHaveTheFrameworksValues) {
  EXPECT_EQ(CFile::modeRead, 0U);
  EXPECT_EQ(CFile::modeWrite, 1U);
  EXPECT_EQ(CFile::modeReadWrite, 2U);
  EXPECT_EQ(CFile::shareDenyNone, 0x40U);
  EXPECT_EQ(CFile::modeCreate, 0x1000U);
  EXPECT_EQ(CFile::modeNoTruncate, 0x2000U);
  EXPECT_EQ(CFile::typeBinary, 0x8000U);
  EXPECT_EQ(CFile::begin, 0U);
  EXPECT_EQ(CFile::current, 1U);
  EXPECT_EQ(CFile::end, 2U);
}

TEST(CFile, IsClosedAtFirst) {
  CFile file;
  EXPECT_EQ(file.m_hFile, CFile::hFileNull);
  EXPECT_TRUE(file.GetFilePath().IsEmpty());
  file.Close();
  file.Abort();
  file.Flush();
}

TEST(CFile, WritesAndReadsBack) {
  const TemporaryFile temporary;
  CFile out;
  ASSERT_TRUE(out.Open(temporary.Path(), CFile::modeCreate | CFile::modeWrite));
  EXPECT_NE(out.m_hFile, nullptr);
  EXPECT_NE(out.m_hFile, CFile::hFileNull);
  EXPECT_STREQ(out.GetFilePath(), temporary.Path());
  out.Write("chart", 5);
  EXPECT_EQ(out.GetPosition(), 5U);
  EXPECT_EQ(out.GetLength(), 5U);
  out.Flush();
  out.Close();
  EXPECT_EQ(out.m_hFile, CFile::hFileNull);

  CFile in;
  ASSERT_TRUE(in.Open(temporary.Path(), CFile::modeRead | CFile::shareDenyNone));
  std::array<char, 8> buffer{};
  EXPECT_EQ(in.Read(buffer.data(), 8), 5U);
  EXPECT_STREQ(buffer.data(), "chart");
  EXPECT_EQ(in.Read(buffer.data(), 8), 0U);
}

TEST(CFile, Seeks) {
  const TemporaryFile temporary(Bytes{0, 1, 2, 3, 4, 5});
  CFile file(temporary.Path(), CFile::modeRead);
  BYTE byte = 0;
  EXPECT_EQ(file.Seek(2, CFile::begin), 2U);
  file.Read(&byte, 1);
  EXPECT_EQ(byte, 2);
  EXPECT_EQ(file.Seek(1, CFile::current), 4U);
  file.Read(&byte, 1);
  EXPECT_EQ(byte, 4);
  EXPECT_EQ(file.Seek(-6, CFile::end), 0U);
  file.Read(&byte, 1);
  EXPECT_EQ(byte, 0);
  EXPECT_EQ(file.SeekToEnd(), 6U);
  file.SeekToBegin();
  EXPECT_EQ(file.GetPosition(), 0U);
  // Behind the end is allowed, and nothing can be read there.
  EXPECT_EQ(file.Seek(100, CFile::begin), 100U);
  EXPECT_EQ(file.Read(&byte, 1), 0U);
}

TEST(CFile, RefusesImpossibleSeeks) {
  const TemporaryFile temporary(Bytes{0, 1});
  CFile file(temporary.Path(), CFile::modeRead);
  EXPECT_EQ(CauseOf([&] { file.Seek(-1, CFile::begin); }), CFileException::badSeek);
  EXPECT_EQ(CauseOf([&] { file.Seek(0, 3); }), CFileException::badSeek);
  EXPECT_EQ(file.GetPosition(), 0U);
}

TEST(CFile, CreatingEmptiesAndNoTruncateKeeps) {
  const TemporaryFile temporary(Bytes{1, 2, 3});
  CFile file;
  ASSERT_TRUE(file.Open(temporary.Path(),
                        CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite));
  EXPECT_EQ(file.GetLength(), 3U);
  file.Close();
  ASSERT_TRUE(file.Open(temporary.Path(), CFile::modeWrite));
  EXPECT_EQ(file.GetLength(), 3U);
  file.Close();
  ASSERT_TRUE(file.Open(temporary.Path(), CFile::modeCreate | CFile::modeWrite));
  EXPECT_EQ(file.GetLength(), 0U);
}

TEST(CFile, OpeningAgainClosesFirst) {
  const TemporaryFile first(Bytes{1});
  const TemporaryFile second(Bytes{1, 2});
  CFile file(first.Path(), CFile::modeRead);
  ASSERT_TRUE(file.Open(second.Path(), CFile::modeRead));
  EXPECT_EQ(file.GetLength(), 2U);
  EXPECT_FALSE(file.Open("/no/such/folder/file", CFile::modeRead));
  EXPECT_EQ(file.m_hFile, CFile::hFileNull);
}

TEST(CFile, MissingFileTellsWhy) {
  CFile file;
  CFileException error;
  const TemporaryFile missing;
  EXPECT_FALSE(file.Open(missing.Path(), CFile::modeRead, &error));
  EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
  EXPECT_EQ(error.m_lOsError, ENOENT);
  EXPECT_STREQ(error.m_strFileName, missing.Path());
  EXPECT_FALSE(file.Open(missing.Path(), CFile::modeRead));
  EXPECT_EQ(file.m_hFile, CFile::hFileNull);
}

TEST(CFile, ConstructorThrowsByPointer) {
  const TemporaryFile missing;
  try {
    const CFile file(missing.Path(), CFile::modeRead);
    FAIL() << "the file is not there";
  } catch (CFileException* exception) {
    EXPECT_EQ(exception->m_cause, CFileException::fileNotFound);
    EXPECT_STREQ(exception->m_strFileName, missing.Path());
    exception->Delete();
  }
}

TEST(CFile, RefusesNullNamesAndUnknownModes) {
  CFile file;
  EXPECT_FALSE(file.Open(nullptr, CFile::modeRead));
  EXPECT_FALSE(file.Open("", CFile::modeRead));
  const TemporaryFile temporary(Bytes{1});
  EXPECT_FALSE(file.Open(temporary.Path(), CFile::modeWrite | CFile::modeReadWrite));
}

TEST(CFile, RefusesFolders) {
  CFile file;
  CFileException error;
  EXPECT_FALSE(file.Open("/tmp", CFile::modeRead, &error));
  EXPECT_EQ(error.m_cause, CFileException::accessDenied);
  EXPECT_FALSE(file.Open("/tmp", CFile::modeWrite, &error));
  EXPECT_EQ(error.m_cause, CFileException::accessDenied);
}

TEST(CFile, RefusesPipesWithoutWaiting) {
  const TemporaryFile pipe;
  ASSERT_EQ(::mkfifo(pipe.Path(), 0600), 0);
  CFile file;
  EXPECT_FALSE(file.Open(pipe.Path(), CFile::modeRead));
  EXPECT_FALSE(file.Open(pipe.Path(), CFile::modeWrite));
  EXPECT_FALSE(file.Open(pipe.Path(), CFile::modeReadWrite));
}

TEST(CFile, ReadingAFileOpenedForWritingFails) {
  const TemporaryFile temporary(Bytes{1});
  CFile file(temporary.Path(), CFile::modeWrite);
  BYTE byte = 0;
  EXPECT_EQ(CauseOf([&] { file.Read(&byte, 1); }), CFileException::invalidFile);
}

TEST(CFile, WritingAFileOpenedForReadingFails) {
  const TemporaryFile temporary(Bytes{1});
  CFile file(temporary.Path(), CFile::modeRead);
  EXPECT_EQ(CauseOf([&] { file.Write("x", 1); }), CFileException::invalidFile);
}

TEST(CFile, FullDeviceFailsOnWriting) {
  CFile file;
  ASSERT_TRUE(file.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(CauseOf([&] { file.Write("x", 1); }), CFileException::diskFull);
  file.Close();
}

TEST(CFile, DevicesNeedNoFlush) {
  CFile file("/dev/null", CFile::modeWrite);
  file.Write("x", 1);
  file.Flush();
  file.Close();
}

TEST(CFile, UseWithoutAnOpenFileThrows) {
  CFile file;
  BYTE byte = 0;
  EXPECT_EQ(CauseOf([&] { file.Read(&byte, 1); }), CFileException::invalidFile);
  EXPECT_EQ(CauseOf([&] { file.Write(&byte, 1); }), CFileException::invalidFile);
  EXPECT_EQ(CauseOf([&] { file.SeekToBegin(); }), CFileException::invalidFile);
  EXPECT_EQ(CauseOf([&] { file.GetLength(); }), CFileException::invalidFile);
  EXPECT_EQ(CauseOf([&] { file.GetPosition(); }), CFileException::invalidFile);
}

TEST(CFile, NullBuffersAndNoBytesDoNothing) {
  const TemporaryFile temporary;
  CFile file(temporary.Path(), CFile::modeCreate | CFile::modeReadWrite);
  file.Write(nullptr, 5);
  file.Write("x", 0);
  EXPECT_EQ(file.GetLength(), 0U);
  EXPECT_EQ(file.Read(nullptr, 5), 0U);
}

TEST(CFile, DestructorClosesTheDescriptor) {
  const TemporaryFile temporary;
  int descriptor = -1;
  {
    const CFile file(temporary.Path(), CFile::modeCreate | CFile::modeWrite);
    descriptor = orvalix::DescriptorOfHandle(file.m_hFile);
    EXPECT_NE(::fcntl(descriptor, F_GETFD), -1);
  }
  EXPECT_EQ(::fcntl(descriptor, F_GETFD), -1);
}

TEST(CFile, DescriptorIsNotInheritedAndBlocks) {
  const TemporaryFile temporary;
  const CFile file(temporary.Path(), CFile::modeCreate | CFile::modeWrite);
  const int descriptor = orvalix::DescriptorOfHandle(file.m_hFile);
  EXPECT_NE(::fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0);
  EXPECT_EQ(::fcntl(descriptor, F_GETFL) & O_NONBLOCK, 0);
}

TEST(CFile, ClosingAClosedDescriptorThrowsAndLeavesTheFileClosed) {
  const TemporaryFile temporary;
  CFile file(temporary.Path(), CFile::modeCreate | CFile::modeWrite);
  ::close(orvalix::DescriptorOfHandle(file.m_hFile));
  EXPECT_EQ(CauseOf([&] { file.Close(); }), CFileException::invalidFile);
  EXPECT_EQ(file.m_hFile, CFile::hFileNull);
}

}  // namespace
