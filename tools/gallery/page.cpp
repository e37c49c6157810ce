#include "gallery/page.h"

#include <fstream>
#include <iterator>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace orvalix {
namespace {

constexpr std::string_view kHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>ORVALIX gallery</title>
<style>
:root { color-scheme: light; }
body { font: 16px/1.5 system-ui, sans-serif; margin: 0 auto; padding: 2rem 1rem; max-width: 1280px;
       color: #222; background: #fff; }
h1 { margin: 0 0 .5rem; }
h2 { margin: 4rem 0 .25rem; font-size: 1.35rem; }
p { margin: 0 0 1rem; max-width: 46rem; }
nav { columns: 14rem; margin: 1.5rem 0; }
nav a { display: block; }
a { color: #0060a0; text-decoration: none; }
a:hover { text-decoration: underline; }
img { display: block; width: 100%; height: auto; border: 1px solid #d8dce2; }
details { margin-top: .5rem; }
summary { cursor: pointer; color: #0060a0; }
pre { overflow-x: auto; padding: 1rem; background: #f5f6f8; font: 13px/1.45 monospace; }
</style>
</head>
<body>
)";

std::string Escaped(std::string_view text) {
  std::string out;
  for (const char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

void WriteProgram(std::ostream& out, const std::string& summary, const std::string& program) {
  out << "<details><summary>" << Escaped(summary) << "</summary>\n<pre><code>" << Escaped(program)
      << "</code></pre>\n</details>\n";
}

}  // namespace

GalleryEntry EntryOf(const std::string& name, const std::string& program) {
  GalleryEntry entry{.name = name, .title = {}, .sentence = {}, .program = program};
  constexpr std::string_view kComment = "// ";
  std::istringstream in(program);
  for (std::string line; std::getline(in, line) && line.starts_with(kComment);) {
    const std::string text = line.substr(kComment.size());
    if (entry.title.empty()) {
      entry.title = text;
    } else {
      entry.sentence += (entry.sentence.empty() ? "" : " ") + text;
    }
  }
  if (entry.sentence.empty()) {
    throw std::runtime_error(name + ".cpp doesn't begin with a title and a sentence");
  }
  return entry;
}

std::string ReadSource(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("can't open " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

void WritePage(std::ostream& out, const std::vector<GalleryEntry>& entries,
               const std::vector<SharedSource>& shared) {
  out << kHead << "<h1>ORVALIX gallery</h1>\n<p>" << entries.size()
      << " pictures of real data, each with the function that drew it. What all share stands "
         "first.</p>\n";
  for (const SharedSource& source : shared) WriteProgram(out, source.summary, source.program);
  out << "<nav>\n";
  for (const GalleryEntry& entry : entries) {
    out << "<a href=\"#" << entry.name << "\">" << Escaped(entry.title) << "</a>\n";
  }
  out << "</nav>\n";
  for (const GalleryEntry& entry : entries) {
    out << "<section id=\"" << entry.name << "\">\n<h2>" << Escaped(entry.title) << "</h2>\n<p>"
        << Escaped(entry.sentence) << "</p>\n<img src=\"" << entry.name << ".png\" alt=\""
        << Escaped(entry.title) << "\" width=\"1280\" height=\"960\" loading=\"lazy\">\n";
    WriteProgram(out, "examples/" + entry.name + ".cpp", entry.program);
    out << "</section>\n";
  }
  out << "</body>\n</html>\n";
}

}  // namespace orvalix
