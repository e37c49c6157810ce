/// @file
/// Chart files and polysurface files as text.
#pragma once

#include <ostream>
#include <string>

namespace orvalix {

/// What a file can be. Neither kind says so itself.
enum class FileKind {
  kUnknown,  ///< the kind as which more of it can be read
  kChart,
  kPolysurface
};

/// Writes the tree of records in a file, a field per line: the offset of its first byte, its name
/// and its value; records within records are indented. The library's own readers read it. At the
/// end it tells whether the file is whole, and if not, where it stops making sense.
/// @return true for a whole file
/// @throws CErr3D type 5 when the file can't be opened
bool Inspect(const std::string& fileName, FileKind kind, std::ostream& out);

}  // namespace orvalix
