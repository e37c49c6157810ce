/// @file
/// Another reader and writer of picture files. Where the program is missing there is nothing to
/// compare with.
#pragma once

#include <cstdlib>
#include <string>

#include "support/temporary_file.h"

namespace orvalix::test {

/// Runs ImageMagick's converter.
/// @return false when it is missing or failed
inline bool Convert(const std::string& arguments) {
  return std::system(("convert " + arguments + " >/dev/null 2>&1").c_str()) == 0;
}

/// Programs of other makers have that name too.
inline bool HasImageMagick() {
  return std::system("convert -version 2>/dev/null | grep -q ImageMagick") == 0;
}

/// A file as an argument, read or written in a format.
inline std::string AsFormat(const TemporaryFile& file, const std::string& format) {
  return " '" + format + ":" + file.Path() + "' ";
}

/// The picture in a file of a format: red, green, blue of each pixel, the top row first. Empty when
/// it can't be read.
inline Bytes ConvertedToRgb(const TemporaryFile& file, const std::string& format) {
  const TemporaryFile plain;
  const std::string options = "-depth 8 -alpha off";
  if (!Convert(AsFormat(file, format) + options + AsFormat(plain, "rgb"))) return {};
  return plain.Read();
}

}  // namespace orvalix::test
