#include "orvalix/host/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <new>
#include <utility>

#include "orvalix/host/file_handle_internal.h"

namespace {

constexpr UINT kAccessMask = CFile::modeWrite | CFile::modeReadWrite;
constexpr mode_t kNewFileMode = 0666;  // less what the process's mask takes away

/// The system's flags; -1 for an unknown access mode.
int SystemFlags(UINT openFlags) {
  int flags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  switch (openFlags & kAccessMask) {
    case CFile::modeRead:
      flags |= O_RDONLY;
      break;
    case CFile::modeWrite:
      flags |= O_WRONLY;
      break;
    case CFile::modeReadWrite:
      flags |= O_RDWR;
      break;
    default:
      return -1;
  }
  if ((openFlags & CFile::modeCreate) != 0) {
    flags |= O_CREAT;
    if ((openFlags & CFile::modeNoTruncate) == 0) flags |= O_TRUNC;
  }
  return flags;
}

/// 0 for what a CFile can be, else why not.
int CheckKind(int descriptor) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) return errno;
  if (S_ISDIR(status.st_mode)) return EISDIR;
  return S_ISREG(status.st_mode) || S_ISCHR(status.st_mode) ? 0 : EACCES;
}

struct OpenResult {
  int descriptor;
  int error;
};

OpenResult OpenDescriptor(const char* fileName, UINT openFlags) {
  const int flags = SystemFlags(openFlags);
  if (fileName == nullptr || flags == -1) return {-1, EINVAL};
  // Opened without blocking, so that a pipe without a partner can't hold the caller.
  int descriptor = -1;
  do {
    descriptor = ::open(fileName, flags, kNewFileMode);
  } while (descriptor == -1 && errno == EINTR);
  if (descriptor == -1) return {-1, errno};
  int error = CheckKind(descriptor);
  if (error == 0 && ::fcntl(descriptor, F_SETFL, flags & ~O_NONBLOCK) == -1) error = errno;
  if (error == 0) return {descriptor, 0};
  ::close(descriptor);
  return {-1, error};
}

void Report(CFileException* error, int cause, int osError, CString fileName) {
  if (error == nullptr) return;
  error->m_cause = cause;
  error->m_lOsError = osError;
  error->m_strFileName = std::move(fileName);
}

int SystemOrigin(UINT from) {
  switch (from) {
    case CFile::begin:
      return SEEK_SET;
    case CFile::current:
      return SEEK_CUR;
    case CFile::end:
      return SEEK_END;
    default:
      return -1;
  }
}

}  // namespace

const HANDLE CFile::hFileNull = reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(-1));

CFile::CFile() : m_hFile(hFileNull) {}

CFile::CFile(const char* fileName, UINT openFlags) : CFile() {
  CFileException error(CFileException::none, -1, nullptr, FALSE);
  if (Open(fileName, openFlags, &error) == FALSE) {
    AfxThrowFileException(error.m_cause, error.m_lOsError, fileName);
  }
}

CFile::~CFile() { Abort(); }

BOOL CFile::Open(const char* fileName, UINT openFlags, CFileException* error) {
  Abort();
  try {
    CString name(fileName);
    const OpenResult result = OpenDescriptor(fileName, openFlags);
    if (result.error == 0) {
      m_hFile = orvalix::HandleOfDescriptor(result.descriptor);
      m_fileName = std::move(name);
      return TRUE;
    }
    Report(error, CFileException::OsErrorToException(result.error), result.error, std::move(name));
  } catch (const std::bad_alloc&) {
    Report(error, CFileException::genericException, ENOMEM, {});
  }
  return FALSE;
}

UINT CFile::Read(void* buffer, UINT count) {
  if (count == 0 || buffer == nullptr) return 0;
  return static_cast<UINT>(orvalix::ReadFromHandle(m_hFile, buffer, count));
}

void CFile::Write(const void* buffer, UINT count) {
  if (count == 0 || buffer == nullptr) return;
  orvalix::WriteToHandle(m_hFile, buffer, count);
}

std::uint64_t CFile::Seek(std::int64_t offset, UINT from) {
  const int origin = SystemOrigin(from);
  if (origin == -1) AfxThrowFileException(CFileException::badSeek, EINVAL, m_fileName);
  const off_t position = ::lseek(orvalix::DescriptorOfHandle(m_hFile), offset, origin);
  if (position < 0) Throw(errno);
  return static_cast<std::uint64_t>(position);
}

void CFile::SeekToBegin() { Seek(0, begin); }

std::uint64_t CFile::SeekToEnd() { return Seek(0, end); }

std::uint64_t CFile::GetLength() const {
  struct stat status {};
  if (::fstat(orvalix::DescriptorOfHandle(m_hFile), &status) != 0) Throw(errno);
  return static_cast<std::uint64_t>(status.st_size);
}

std::uint64_t CFile::GetPosition() const {
  const off_t position = ::lseek(orvalix::DescriptorOfHandle(m_hFile), 0, SEEK_CUR);
  if (position < 0) Throw(errno);
  return static_cast<std::uint64_t>(position);
}

void CFile::Flush() {
  if (m_hFile == hFileNull) return;
  if (::fsync(orvalix::DescriptorOfHandle(m_hFile)) == 0) return;
  // Devices and some file systems have nothing to bring anywhere.
  if (errno != EINVAL && errno != ENOTSUP && errno != EROFS) Throw(errno);
}

void CFile::Close() {
  if (m_hFile == hFileNull) return;
  const int descriptor = orvalix::DescriptorOfHandle(m_hFile);
  m_hFile = hFileNull;
  const CString name = std::move(m_fileName);
  m_fileName.Empty();
  // An interrupted close has closed all the same.
  if (::close(descriptor) == 0 || errno == EINTR) return;
  const int error = errno;
  AfxThrowFileException(CFileException::OsErrorToException(error), error, name);
}

void CFile::Abort() {
  if (m_hFile == hFileNull) return;
  ::close(orvalix::DescriptorOfHandle(m_hFile));
  m_hFile = hFileNull;
  m_fileName.Empty();
}

CString CFile::GetFilePath() const { return m_fileName; }

void CFile::Throw(int osError) const {
  int cause = CFileException::OsErrorToException(osError);
  if (osError == EINVAL) cause = CFileException::badSeek;
  AfxThrowFileException(cause, osError, m_fileName);
}
