/// @file
/// A file that is gone at the end.
#pragma once

#include <string>

namespace examples {

/// A name in the folder for temporary files that no other program uses; a file of that name is
/// removed at the end.
class TemporaryFile {
 public:
  /// @param extension with its dot
  explicit TemporaryFile(const std::string& extension);
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const char* Path() const { return m_path.c_str(); }

 private:
  std::string m_path;
};

}  // namespace examples
