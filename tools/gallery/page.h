/// @file
/// The page that shows the pictures of the gallery with the programs that drew them.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace orvalix {

/// A picture of the gallery.
struct GalleryEntry {
  std::string name;      ///< of the picture's file, NAME.png, and of the source, NAME.cpp
  std::string title;     ///< what it shows, in a few words
  std::string sentence;  ///< what is seen
  std::string program;   ///< the source
};

/// A source that the programs share.
struct SharedSource {
  std::string summary;  ///< its name and what it is for
  std::string program;  ///< the source
};

/// Reads title and sentence from the comment at the beginning of a source: its first line, and the
/// others up to its end.
/// @throws std::runtime_error naming the source when it doesn't begin so
GalleryEntry EntryOf(const std::string& name, const std::string& program);

/// Reads a whole text file.
/// @throws std::runtime_error naming the file
std::string ReadSource(const std::string& path);

/// Writes the page: it stands beside the pictures and needs nothing else.
void WritePage(std::ostream& out, const std::vector<GalleryEntry>& entries,
               const std::vector<SharedSource>& shared);

}  // namespace orvalix
