#include "orvalix/host/file_exception.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace {

TEST(CFileException, Defaults) {
  const CFileException exception;
  EXPECT_EQ(exception.m_cause, CFileException::none);
  EXPECT_EQ(exception.m_lOsError, -1);
  EXPECT_TRUE(exception.m_strFileName.IsEmpty());
}

TEST(CFileException, CausesHaveTheFrameworksValues) {
  EXPECT_EQ(CFileException::none, 0);
  EXPECT_EQ(CFileException::fileNotFound, 2);
  EXPECT_EQ(CFileException::accessDenied, 5);
  EXPECT_EQ(CFileException::badSeek, 9);
  EXPECT_EQ(CFileException::hardIO, 10);
  EXPECT_EQ(CFileException::diskFull, 13);
  EXPECT_EQ(CFileException::endOfFile, 14);
}

TEST(CFileException, KnowsTheSystemsCodes) {
  const std::pair<int, int> kCauses[] = {{0, CFileException::none},
                                         {ENOENT, CFileException::fileNotFound},
                                         {ENOTDIR, CFileException::badPath},
                                         {EMFILE, CFileException::tooManyOpenFiles},
                                         {EACCES, CFileException::accessDenied},
                                         {EROFS, CFileException::accessDenied},
                                         {EBADF, CFileException::invalidFile},
                                         {ESPIPE, CFileException::badSeek},
                                         {EIO, CFileException::hardIO},
                                         {ETXTBSY, CFileException::sharingViolation},
                                         {EAGAIN, CFileException::lockViolation},
                                         {ENOSPC, CFileException::diskFull},
                                         {ENOTTY, CFileException::genericException},
                                         {-1, CFileException::genericException}};
  for (const auto& [code, cause] : kCauses) {
    EXPECT_EQ(CFileException::OsErrorToException(code), cause) << code;
  }
}

TEST(CFileException, TellsCauseAndFile) {
  std::array<char, 100> buffer{};
  UINT help = 5;
  EXPECT_TRUE(CFileException(CFileException::diskFull, ENOSPC, "a.chart")
                  .GetErrorMessage(buffer.data(), 100, &help));
  EXPECT_STREQ(buffer.data(), "a.chart: The disk is full.");
  EXPECT_EQ(help, 0U);
  EXPECT_TRUE(CFileException(CFileException::endOfFile).GetErrorMessage(buffer.data(), 100));
  EXPECT_STREQ(buffer.data(), "The file ended too early.");
  EXPECT_TRUE(CFileException(-7).GetErrorMessage(buffer.data(), 100));
  EXPECT_STREQ(buffer.data(), "An unknown error occurred.");
}

TEST(CFileException, CutsItsMessage) {
  std::array<char, 6> buffer{};
  buffer.fill('x');
  EXPECT_TRUE(CFileException(CFileException::diskFull).GetErrorMessage(buffer.data(), 4));
  EXPECT_STREQ(buffer.data(), "The");
  EXPECT_EQ(buffer[4], 'x');
  EXPECT_FALSE(CFileException().GetErrorMessage(buffer.data(), 0));
  EXPECT_FALSE(CFileException().GetErrorMessage(nullptr, 6));
}

TEST(CFileException, PlainExceptionTellsNothing) {
  std::array<char, 2> buffer{'x', 'x'};
  EXPECT_FALSE(CException().GetErrorMessage(buffer.data(), 2));
  EXPECT_STREQ(buffer.data(), "");
}

TEST(CFileException, DeleteSparesWhatIsNotFromNew) {
  CFileException exception(CFileException::hardIO, EIO, "x", FALSE);
  exception.Delete();
  EXPECT_EQ(exception.m_cause, CFileException::hardIO);
}

TEST(CFileException, IsThrownByPointer) {
  try {
    AfxThrowFileException(CFileException::hardIO, EIO, "name");
  } catch (CException* caught) {
    const auto* exception = dynamic_cast<CFileException*>(caught);
    ASSERT_NE(exception, nullptr);
    EXPECT_EQ(exception->m_cause, CFileException::hardIO);
    EXPECT_EQ(exception->m_lOsError, EIO);
    EXPECT_STREQ(exception->m_strFileName, "name");
    caught->Delete();
  }
}

}  // namespace
