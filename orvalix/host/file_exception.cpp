#include "orvalix/host/file_exception.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <new>

namespace {

constexpr std::array<const char*, 15> kCauseTexts = {"No error occurred",
                                                     "An unknown error occurred",
                                                     "The file was not found",
                                                     "The path is not valid",
                                                     "Too many files are open",
                                                     "Access was denied",
                                                     "The file handle is not valid",
                                                     "The current directory can't be removed",
                                                     "The directory is full",
                                                     "Seeking failed",
                                                     "The hardware reported an error",
                                                     "The file is shared",
                                                     "The file is locked",
                                                     "The disk is full",
                                                     "The file ended too early"};

const char* CauseText(int cause) {
  const bool known = cause >= 0 && static_cast<std::size_t>(cause) < kCauseTexts.size();
  return kCauseTexts[static_cast<std::size_t>(known ? cause
                                                    : int{CFileException::genericException})];
}

/// What is thrown when there is no memory for an exception.
CFileException& SpareException() {
  thread_local CFileException spare(CFileException::genericException, -1, nullptr, FALSE);
  return spare;
}

}  // namespace

CException::CException(BOOL autoDelete) : m_autoDelete(autoDelete) {}

CException::~CException() = default;

void CException::Delete() {
  if (m_autoDelete != FALSE) delete this;
}

BOOL CException::GetErrorMessage(char* buffer, UINT size, UINT* helpContext) const {
  if (helpContext != nullptr) *helpContext = 0;
  if (buffer != nullptr && size > 0) *buffer = '\0';
  return FALSE;
}

CFileException::CFileException(int cause, LONG osError, const char* fileName, BOOL autoDelete)
    : CException(autoDelete), m_cause(cause), m_lOsError(osError), m_strFileName(fileName) {}

BOOL CFileException::GetErrorMessage(char* buffer, UINT size, UINT* helpContext) const {
  if (helpContext != nullptr) *helpContext = 0;
  if (buffer == nullptr || size == 0) return FALSE;
  if (m_strFileName.IsEmpty()) {
    std::snprintf(buffer, size, "%s.", CauseText(m_cause));
  } else {
    std::snprintf(buffer, size, "%s: %s.", m_strFileName.GetString(), CauseText(m_cause));
  }
  return TRUE;
}

int CFileException::OsErrorToException(LONG osError) {
  switch (osError) {
    case 0:
      return none;
    case ENOENT:
      return fileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
      return badPath;
    case EMFILE:
    case ENFILE:
      return tooManyOpenFiles;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
      return accessDenied;
    case EBADF:
      return invalidFile;
    case ESPIPE:
    case EOVERFLOW:
      return badSeek;
    case EIO:
      return hardIO;
    case ETXTBSY:
      return sharingViolation;
    case EAGAIN:
    case EDEADLK:
      return lockViolation;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return diskFull;
    default:
      return genericException;
  }
}

void AfxThrowFileException(int cause, LONG osError, const char* fileName) {
  CFileException* exception = nullptr;
  try {
    exception = new CFileException(cause, osError, fileName);
  } catch (const std::bad_alloc&) {
    exception = &SpareException();
    exception->m_cause = cause;
    exception->m_lOsError = osError;
  }
  throw exception;
}
