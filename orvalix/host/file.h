/// @file
/// The framework's file.
#pragma once

#include <cstdint>

#include "orvalix/host/export.h"
#include "orvalix/host/file_exception.h"
#include "orvalix/host/host_string.h"
#include "orvalix/host/host_types.h"

/// An unbuffered file of bytes. Only plain files and character devices can be opened. The share and
/// type flags are accepted and change nothing: sharing is never denied, every file is binary.
class ORVALIX_API CFile {
 public:
  /// How to open a file.
  enum OpenFlags : UINT {
    modeRead = 0x0000,
    modeWrite = 0x0001,
    modeReadWrite = 0x0002,
    shareCompat = 0x0000,
    shareExclusive = 0x0010,
    shareDenyWrite = 0x0020,
    shareDenyRead = 0x0030,
    shareDenyNone = 0x0040,
    modeNoInherit = 0x0080,
    modeCreate = 0x1000,      ///< makes the file, and empties one that is there
    modeNoTruncate = 0x2000,  ///< with modeCreate: leaves what is there
    typeText = 0x4000,
    typeBinary = 0x8000
  };
  /// What a seek counts from.
  enum SeekPosition : UINT { begin = 0, current = 1, end = 2 };

  /// What m_hFile holds while no file is open.
  static const HANDLE hFileNull;

  /// No file is open yet.
  CFile();
  /// Opens a file.
  /// @throws CFileException*
  CFile(const char* fileName, UINT openFlags);
  /// Closes the file; a failure to do so is lost.
  virtual ~CFile();
  CFile(const CFile&) = delete;
  CFile& operator=(const CFile&) = delete;

  /// Opens a file. One that is open already is closed first.
  /// @param openFlags a mode, with further OpenFlags
  /// @param error receives what went wrong; may be null
  /// @return FALSE when the file can't be opened
  BOOL Open(const char* fileName, UINT openFlags, CFileException* error = nullptr);
  /// Reads up to `count` bytes.
  /// @return the bytes read: fewer only at the end of the file
  /// @throws CFileException*
  UINT Read(void* buffer, UINT count);
  /// Writes `count` bytes.
  /// @throws CFileException*
  void Write(const void* buffer, UINT count);
  /// Moves the position, possibly behind the end.
  /// @param from begin, current or end
  /// @return the new position from the start
  /// @throws CFileException*
  std::uint64_t Seek(std::int64_t offset, UINT from);
  /// Moves to the start. @throws CFileException*
  void SeekToBegin();
  /// Moves to the end. @return the length @throws CFileException*
  std::uint64_t SeekToEnd();
  /// Bytes in the file. @throws CFileException*
  std::uint64_t GetLength() const;
  /// The position from the start. @throws CFileException*
  std::uint64_t GetPosition() const;
  /// Brings what was written to the device. Without an open file nothing happens.
  /// @throws CFileException*
  void Flush();
  /// Closes the file. Without an open file nothing happens.
  /// @throws CFileException*
  void Close();
  /// Closes the file and never throws.
  void Abort();
  /// The name that the file was opened with; empty while none is open.
  CString GetFilePath() const;

  /// The open file, as `Save(void*)` and `Load(void*)` take it; never null. hFileNull while no file
  /// is open.
  HANDLE m_hFile;

 private:
  [[noreturn]] void Throw(int osError) const;

  CString m_fileName;  ///< empty while no file is open
};
