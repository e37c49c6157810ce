#include "docs/documents.h"

#include <algorithm>
#include <cctype>
#include <fstream>

namespace orvalix::test {
namespace {

namespace fs = std::filesystem;

using Lines = std::vector<std::string>;

Lines ReadLines(const fs::path& path) {
  std::ifstream file(path);
  Lines lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

bool IsFence(const std::string& line) { return line.starts_with("```"); }

/// Calls `see(text, number)` for each line outside of blocks of code.
template <class See>
void ForProse(const Lines& lines, See see) {
  bool inside = false;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (IsFence(lines[i])) {
      inside = !inside;
    } else if (!inside) {
      see(lines[i], i + 1);
    }
  }
}

std::string Place(const fs::path& document, std::size_t line) {
  return document.filename().string() + ":" + std::to_string(line) + ": ";
}

/// What links to a heading call it: small letters, digits, and hyphens for blanks.
std::string Anchor(const std::string& heading) {
  std::string anchor;
  for (const char letter : heading) {
    const auto code = static_cast<unsigned char>(letter);
    if (std::isalnum(code) != 0 || letter == '_' || letter == '-') {
      anchor += static_cast<char>(std::tolower(code));
    } else if (letter == ' ') {
      anchor += '-';
    }
  }
  return anchor;
}

bool HasHeading(const fs::path& document, const std::string& anchor) {
  bool found = false;
  ForProse(ReadLines(document), [&](const std::string& line, std::size_t) {
    const std::size_t level = line.find_first_not_of('#');
    if (level == 0 || level == std::string::npos || line[level] != ' ') return;
    found = found || Anchor(line.substr(level + 1)) == anchor;
  });
  return found;
}

/// Why a link doesn't lead anywhere; empty when it does.
std::string WhyBroken(const fs::path& document, const std::string& target) {
  if (target.starts_with("http://") || target.starts_with("https://")) return "";
  const std::size_t hash = target.find('#');
  const std::string name = target.substr(0, hash);
  const fs::path path = name.empty() ? document : document.parent_path() / name;
  if (!fs::exists(path)) return "there is no " + name;
  if (hash == std::string::npos || HasHeading(path, target.substr(hash + 1))) return "";
  return "there is no heading " + target.substr(hash);
}

/// The text without what stands between backquotes.
std::string WithoutCode(std::string text) {
  for (const std::string& code : Between(text, "`", "`")) {
    const std::string quoted = "`" + code + "`";
    text.replace(text.find(quoted), quoted.size(), "code");
  }
  return text;
}

/// The file that a comment names; empty without one.
std::string NamedBy(const std::string& comment) {
  const std::vector<std::string> names = Between(comment, "<!-- ", " -->");
  return names.empty() ? "" : names.front();
}

std::vector<std::string> WordsOf(const std::string& text) {
  std::vector<std::string> words(1);
  for (const char letter : text) {
    if (std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_') {
      words.back() += letter;
    } else if (!words.back().empty()) {
      words.emplace_back();
    }
  }
  if (words.back().empty()) words.pop_back();
  return words;
}

bool IsBlank(const std::string& line) { return line.find_first_not_of(' ') == std::string::npos; }

/// Whether the lines stand there, all indented more by the same blanks.
bool StandsAt(const Lines& file, std::size_t at, const Lines& block) {
  if (at + block.size() > file.size() || !file[at].ends_with(block.front())) return false;
  const std::string indent = file[at].substr(0, file[at].size() - block.front().size());
  if (!IsBlank(indent)) return false;
  for (std::size_t i = 0; i < block.size(); ++i) {
    const bool same = IsBlank(block[i]) ? IsBlank(file[at + i]) : file[at + i] == indent + block[i];
    if (!same) return false;
  }
  return true;
}

bool IsPartOf(const Lines& file, const Lines& block) {
  if (block.empty()) return false;
  for (std::size_t at = 0; at < file.size(); ++at) {
    if (StandsAt(file, at, block)) return true;
  }
  return false;
}

bool IsNameOfCode(const std::string& word) {
  if (word.starts_with("ERR3D")) return true;
  const auto isSmall = [](char letter) { return letter >= 'a' && letter <= 'z'; };
  const bool isCapital = word.front() >= 'A' && word.front() <= 'Z' && word.front() != 'Q';
  return isCapital && std::any_of(word.begin(), word.end(), isSmall);
}

}  // namespace

std::vector<std::string> Between(const std::string& text, const std::string& open,
                                 const std::string& close) {
  std::vector<std::string> found;
  std::size_t end = 0;
  for (std::size_t at = text.find(open); at != std::string::npos; at = text.find(open, end)) {
    const std::size_t begin = at + open.size();
    end = text.find(close, begin);
    if (end == std::string::npos) break;
    found.push_back(text.substr(begin, end - begin));
    end += close.size();
  }
  return found;
}

std::vector<fs::path> FindDocuments(const fs::path& folder) {
  std::vector<fs::path> documents;
  for (auto at = fs::recursive_directory_iterator(folder); at != fs::recursive_directory_iterator();
       ++at) {
    const std::string name = at->path().filename().string();
    if (at->is_directory() &&
        (name.starts_with("build") || name == "out" || name.starts_with("."))) {
      at.disable_recursion_pending();
    } else if (at->path().extension() == ".md") {
      documents.push_back(at->path());
    }
  }
  std::sort(documents.begin(), documents.end());
  return documents;
}

Complaints CheckLinks(const fs::path& document) {
  Complaints complaints;
  ForProse(ReadLines(document), [&](const std::string& line, std::size_t number) {
    for (const std::string& target : Between(WithoutCode(line), "](", ")")) {
      const std::string why = WhyBroken(document, target);
      if (!why.empty()) complaints.push_back(Place(document, number) + why);
    }
  });
  return complaints;
}

Complaints CheckExcerpts(const fs::path& document) {
  const Lines lines = ReadLines(document);
  Complaints complaints;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!lines[i].starts_with("```cpp")) continue;
    const std::string name = i > 0 ? NamedBy(lines[i - 1]) : "";
    Lines block;
    std::size_t end = i + 1;
    while (end < lines.size() && !IsFence(lines[end])) block.push_back(lines[end++]);
    if (name.empty()) {
      complaints.push_back(Place(document, i + 1) + "no comment names the file");
    } else if (!IsPartOf(ReadLines(document.parent_path() / name), block)) {
      complaints.push_back(Place(document, i + 1) + "isn't part of " + name);
    }
    i = end;
  }
  return complaints;
}

std::set<std::string> FindWords(const std::vector<fs::path>& files) {
  std::set<std::string> words;
  for (const fs::path& file : files) {
    for (const std::string& line : ReadLines(file)) {
      for (const std::string& word : WordsOf(line)) words.insert(word);
    }
  }
  return words;
}

Complaints CheckNames(const fs::path& document, const std::set<std::string>& words) {
  Complaints complaints;
  ForProse(ReadLines(document), [&](const std::string& line, std::size_t number) {
    for (const std::string& code : Between(line, "`", "`")) {
      if (code.find('/') != std::string::npos) continue;  // a path
      for (const std::string& word : WordsOf(code)) {
        if (IsNameOfCode(word) && !words.contains(word)) {
          complaints.push_back(Place(document, number) + "there is no " + word);
        }
      }
    }
  });
  return complaints;
}

}  // namespace orvalix::test
