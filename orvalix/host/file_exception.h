/// @file
/// What failing file operations throw.
#pragma once

#include "orvalix/host/export.h"
#include "orvalix/host/host_string.h"
#include "orvalix/host/host_types.h"

/// The root of what the framework throws. Exceptions are thrown by pointer; whoever catches one
/// releases it with Delete().
class ORVALIX_API CException {
 public:
  /// @param autoDelete whether Delete() destroys the object, which then must come from `new`
  explicit CException(BOOL autoDelete = TRUE);
  virtual ~CException();
  /// A copy is released as its original is.
  CException(const CException&) = default;
  /// As the copy constructor.
  CException& operator=(const CException&) = default;

  /// Releases a caught exception.
  void Delete();
  /// Writes what happened, cut to `size` bytes with the terminator.
  /// @return FALSE without a buffer or when there is nothing to tell
  virtual BOOL GetErrorMessage(char* buffer, UINT size, UINT* helpContext = nullptr) const;

 private:
  BOOL m_autoDelete;  ///< whether Delete() destroys this object
};

/// A file operation that failed.
class ORVALIX_API CFileException : public CException {
 public:
  /// Why a file operation failed.
  enum {
    none,
    genericException,
    fileNotFound,
    badPath,
    tooManyOpenFiles,
    accessDenied,
    invalidFile,
    removeCurrentDir,
    directoryFull,
    badSeek,
    hardIO,
    sharingViolation,
    lockViolation,
    diskFull,
    endOfFile
  };

  /// @param cause one of the causes above
  /// @param osError the system's own code (errno), -1 when there is none
  /// @param fileName the file; null for none
  explicit CFileException(int cause = none, LONG osError = -1, const char* fileName = nullptr,
                          BOOL autoDelete = TRUE);

  /// Cause and file name as a sentence.
  BOOL GetErrorMessage(char* buffer, UINT size, UINT* helpContext = nullptr) const override;
  /// The cause that belongs to a code of the system; genericException when none fits.
  static int OsErrorToException(LONG osError);

  int m_cause;            ///< one of the causes above
  LONG m_lOsError;        ///< the system's own code; -1 when there is none
  CString m_strFileName;  ///< the file; empty when not known
};

/// Throws a new CFileException by pointer; when memory runs out, one without a file name.
[[noreturn]] ORVALIX_API void AfxThrowFileException(int cause, LONG osError = -1,
                                                    const char* fileName = nullptr);
