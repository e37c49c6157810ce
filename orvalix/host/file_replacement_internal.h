/// @file
/// Writing a file anew without losing the old one on the way.
#pragma once

#include <sys/stat.h>

#include <string>

#include "orvalix/host/file.h"

namespace orvalix {

/// A file that takes the place of the one of its name when it is complete: it is written beside
/// that one, in the same folder and with the same group and permissions. Until Commit() the file
/// before stays as it was, and stays so for good when there is no Commit().
///
/// Devices and pipes, files with further names, with an access list or of another owner, and files
/// in folders that take no new ones can't be replaced: these are emptied and written in place. What
/// the system holds back when its power fails is its own.
class FileReplacement {
 public:
  FileReplacement() = default;
  /// Removes what was written, unless it is in its place already.
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  /// Once for each object. A link is followed: what it leads to is replaced.
  /// @return false when the file can't be written
  bool Open(const char* fileName);
  /// The file to write.
  CFile& File() { return m_file; }
  /// Closes the file and puts it in its place.
  /// @throws CFileException* when the system has not kept all of it, or it can't be moved; the file
  ///   before is still there then, unless it was written in place
  void Commit();

 private:
  bool OpenBesideOrInPlace(const char* fileName);
  /// @param before what is to be replaced; null when there is nothing
  /// @return 0, or why the system refuses
  int OpenBeside(const std::string& target, const struct stat* before);

  CFile m_file;
  std::string m_target;     ///< where the file goes
  std::string m_temporary;  ///< the new file's name for now; empty when it is in its place
};

}  // namespace orvalix
