#include "gallery/page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/examples.h"

namespace {

using orvalix::EntryOf;
using orvalix::GalleryEntry;
using ::testing::HasSubstr;

std::string PageOf(const std::vector<GalleryEntry>& entries) {
  std::ostringstream out;
  orvalix::WritePage(out, entries, {{.summary = "a & b", .program = "int main();"}});
  return out.str();
}

TEST(GalleryPage, TakesTitleAndSentenceFromTheComment) {
  const GalleryEntry entry = EntryOf("bars", "// Title\n// One and\n// two.\n\n// Else\n");
  EXPECT_EQ(entry.name, "bars");
  EXPECT_EQ(entry.title, "Title");
  EXPECT_EQ(entry.sentence, "One and two.");
}

TEST(GalleryPage, WantsTitleAndSentence) {
  EXPECT_THROW(EntryOf("bars", "// Title\n\n// Else\n"), std::runtime_error);
  EXPECT_THROW(EntryOf("bars", "int x;\n"), std::runtime_error);
  EXPECT_THROW(orvalix::ReadSource("/no/such/source.cpp"), std::runtime_error);
}

TEST(GalleryPage, EscapesWhatHtmlReads) {
  const std::string page = PageOf({EntryOf("bars", "// A < B\n// \"C\" & D.\n#include <e>\n")});
  EXPECT_THAT(page, HasSubstr("<h2>A &lt; B</h2>"));
  EXPECT_THAT(page, HasSubstr("<p>&quot;C&quot; &amp; D.</p>"));
  EXPECT_THAT(page, HasSubstr("#include &lt;e&gt;"));
  EXPECT_THAT(page, HasSubstr("<summary>a &amp; b</summary>\n<pre><code>int main();"));
}

TEST(GalleryPage, ShowsEveryExampleWithItsWholeProgram) {
  std::vector<GalleryEntry> entries;
  for (const examples::Example& example : examples::Examples()) {
    const std::string path = ORVALIX_EXAMPLES_FOLDER "/" + std::string(example.name) + ".cpp";
    entries.push_back(EntryOf(example.name, orvalix::ReadSource(path)));
    EXPECT_EQ(entries.back().title, example.title);
    EXPECT_LT(std::ranges::count(entries.back().program, '\n'), 80) << example.name;
  }
  EXPECT_GE(entries.size(), 30u);
  const std::string page = PageOf(entries);
  for (const GalleryEntry& entry : entries) {
    EXPECT_THAT(page, HasSubstr("<img src=\"" + entry.name + ".png\""));
    EXPECT_THAT(page, HasSubstr("<a href=\"#" + entry.name + "\">"));
    EXPECT_THAT(page, HasSubstr("<section id=\"" + entry.name + "\">"));
  }
}

}  // namespace
