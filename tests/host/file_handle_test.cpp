#include "orvalix/host/file_handle_internal.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <limits>
#include <thread>
#include <vector>

#include "orvalix/host/file.h"
#include "tests/support/temporary_file.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::TemporaryFile;

constexpr std::uint64_t kUnknown = std::numeric_limits<std::uint64_t>::max();

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

TEST(FileHandle, HandlesOfDescriptorsAreNeverNull) {
  EXPECT_NE(orvalix::HandleOfDescriptor(0), nullptr);
  for (const int descriptor : {0, 1, 1000, std::numeric_limits<int>::max() - 1}) {
    EXPECT_EQ(orvalix::DescriptorOfHandle(orvalix::HandleOfDescriptor(descriptor)), descriptor);
  }
  EXPECT_EQ(orvalix::HandleOfDescriptor(-1), CFile::hFileNull);
  EXPECT_EQ(orvalix::DescriptorOfHandle(CFile::hFileNull), -1);
  EXPECT_EQ(orvalix::DescriptorOfHandle(nullptr), -1);
}

TEST(FileHandle, WritesAndReads) {
  const TemporaryFile temporary;
  CFile file(temporary.Path(), CFile::modeCreate | CFile::modeReadWrite);
  orvalix::WriteToHandle(file.m_hFile, "abcdef", 6);
  file.SeekToBegin();
  std::array<char, 10> buffer{};
  EXPECT_EQ(orvalix::ReadFromHandle(file.m_hFile, buffer.data(), 4), 4U);
  EXPECT_STREQ(buffer.data(), "abcd");
  EXPECT_EQ(orvalix::ReadFromHandle(file.m_hFile, buffer.data(), 10), 2U);
  EXPECT_EQ(orvalix::ReadFromHandle(file.m_hFile, buffer.data(), 10), 0U);
}

TEST(FileHandle, ReadsAndWritesThroughPartialTransfers) {
  // A pipe takes 64 KiB at a time, so that a megabyte moves in many parts.
  constexpr std::size_t kBytes = 1 << 20;
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  const Bytes sent(kBytes, 0x5A);
  std::thread writer([&] {
    orvalix::WriteToHandle(orvalix::HandleOfDescriptor(ends[1]), sent.data(), sent.size());
    ::close(ends[1]);
  });
  Bytes received(kBytes + 1);
  const std::size_t count = orvalix::ReadFromHandle(orvalix::HandleOfDescriptor(ends[0]),
                                                    received.data(), received.size());
  writer.join();
  ::close(ends[0]);
  received.resize(count);
  EXPECT_EQ(received, sent);
}

TEST(FileHandle, TellsBytesLeft) {
  const TemporaryFile temporary(Bytes(10));
  CFile file(temporary.Path(), CFile::modeRead);
  EXPECT_EQ(orvalix::BytesLeft(file.m_hFile), 10U);
  file.Seek(4, CFile::begin);
  EXPECT_EQ(orvalix::BytesLeft(file.m_hFile), 6U);
  file.SeekToEnd();
  EXPECT_EQ(orvalix::BytesLeft(file.m_hFile), 0U);
  file.Seek(100, CFile::begin);
  EXPECT_EQ(orvalix::BytesLeft(file.m_hFile), 0U);
}

TEST(FileHandle, DevicesHaveNoEndToTell) {
  CFile file("/dev/zero", CFile::modeRead);
  EXPECT_EQ(orvalix::BytesLeft(file.m_hFile), kUnknown);
  EXPECT_EQ(orvalix::BytesLeft(nullptr), kUnknown);
  EXPECT_EQ(orvalix::BytesLeft(CFile::hFileNull), kUnknown);
}

TEST(FileHandle, FailuresThrow) {
  CFile full("/dev/full", CFile::modeWrite);
  EXPECT_EQ(CauseOf([&] { orvalix::WriteToHandle(full.m_hFile, "x", 1); }),
            CFileException::diskFull);
  char byte = 0;
  EXPECT_EQ(CauseOf([&] { orvalix::ReadFromHandle(full.m_hFile, &byte, 1); }),
            CFileException::invalidFile);
  EXPECT_EQ(CauseOf([&] { orvalix::ReadFromHandle(nullptr, &byte, 1); }),
            CFileException::invalidFile);
  EXPECT_EQ(CauseOf([&] { orvalix::WriteToHandle(CFile::hFileNull, "x", 1); }),
            CFileException::invalidFile);
}

TEST(FileHandle, NoBytesNeedNoFile) {
  orvalix::WriteToHandle(nullptr, nullptr, 0);
  EXPECT_EQ(orvalix::ReadFromHandle(nullptr, nullptr, 0), 0U);
}

}  // namespace
