/// @file
/// Checks of what Markdown files say. Each returns a complaint for each thing that is wrong: the
/// file, the line, and what.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace orvalix::test {

using Complaints = std::vector<std::string>;

/// What stands between each `open` and the next `close`.
std::vector<std::string> Between(const std::string& text, const std::string& open,
                                 const std::string& close);

/// All Markdown files below a folder, but those in folders of builds and in hidden ones.
std::vector<std::filesystem::path> FindDocuments(const std::filesystem::path& folder);

/// Links and pictures lead to files, and to headings in them, that exist. Those into the net aren't
/// followed.
Complaints CheckLinks(const std::filesystem::path& document);

/// A block of C++ stands behind a comment that names a file, relative to the document, and is part
/// of that file; it may be indented less.
Complaints CheckExcerpts(const std::filesystem::path& document);

/// Words of the files.
std::set<std::string> FindWords(const std::vector<std::filesystem::path>& files);

/// Names of code, between backquotes, are among `words`: those that begin with a capital letter and
/// hold a small one, and those of errors. Names of Qt are passed over.
Complaints CheckNames(const std::filesystem::path& document, const std::set<std::string>& words);

}  // namespace orvalix::test
