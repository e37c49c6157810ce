#include "docs/documents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

using namespace orvalix::test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const fs::path kSources = ORVALIX_SOURCE_FOLDER;

std::vector<fs::path> PublicHeaders() {
  std::vector<fs::path> headers;
  for (const char* folder : {"orvalix", "hosts/qt/orvalix"}) {
    for (const auto& entry : fs::recursive_directory_iterator(kSources / folder)) {
      const std::string name = entry.path().filename().string();
      if (name.ends_with(".h") && !name.ends_with("_internal.h")) headers.push_back(entry.path());
    }
  }
  return headers;
}

std::string TextOf(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> Guide() { return FindDocuments(kSources / "docs" / "guide"); }

TEST(Documents, LinkToWhatExists) {
  const std::vector<fs::path> documents = FindDocuments(kSources);
  EXPECT_GT(documents.size(), Guide().size());
  for (const fs::path& document : documents) EXPECT_THAT(CheckLinks(document), IsEmpty());
}

TEST(Documents, ContainPartsOfPrograms) {
  for (const fs::path& document : Guide()) EXPECT_THAT(CheckExcerpts(document), IsEmpty());
}

TEST(Documents, NameWhatTheHeadersDeclare) {
  const std::set<std::string> words = FindWords(PublicHeaders());
  for (const fs::path& document : Guide()) EXPECT_THAT(CheckNames(document, words), IsEmpty());
  EXPECT_THAT(CheckNames(kSources / "README.md", words), IsEmpty());
}

// From the contents every page of the guide can be reached.
TEST(Documents, AreInTheContents) {
  const std::string contents = TextOf(kSources / "docs" / "guide" / "README.md");
  for (const fs::path& document : Guide()) {
    const std::string name = document.filename().string();
    if (name == "README.md") continue;
    EXPECT_NE(contents.find("(" + name + ")"), std::string::npos) << name;
  }
}

// Whoever adds a chart type tells about it.
TEST(Documents, TellOfEveryChartType) {
  const std::string header = TextOf(kSources / "orvalix" / "series" / "chart_obj_3d.h");
  const std::string page = TextOf(kSources / "docs" / "guide" / "series.md");
  const std::vector<std::string> enums = Between(header, "enum ChartTypes {", "};");
  ASSERT_EQ(enums.size(), 1U);
  std::vector<std::string> types = Between(enums.front(), "\n    k", " = ");
  EXPECT_EQ(types.size(), 22U);
  ASSERT_EQ(types.front(), "NoChart");
  types.erase(types.begin());
  for (const std::string& type : types) {
    EXPECT_NE(page.find("| `" + type + "`"), std::string::npos) << type;
  }
}

// --- the checks themselves, on a document with everything wrong that they look for ---

class BadDocument : public ::testing::Test {
 protected:
  // A folder for each test: they run side by side.
  BadDocument()
      : folder(fs::path(::testing::TempDir()) /
               ::testing::UnitTest::GetInstance()->current_test_info()->name()),
        path(folder / "a.md") {
    fs::create_directories(folder);
    Write("b.cpp", "int main() {\n  int x = 1;\n\n  return x;\n}\n");
  }
  ~BadDocument() override { fs::remove_all(folder); }

  void Write(const char* name, const std::string& text) const {
    std::ofstream(folder / name) << text;
  }

  fs::path folder;
  fs::path path;
};

TEST_F(BadDocument, HasLinksToNothing) {
  Write("a.md",
        "# One, two\n"
        "[good](b.cpp) ![bad](c.png) [good](#one-two) [bad](#three)\n"
        "`[code](d.md)` [net](https://example.org)\n"
        "```\n[block](e.md)\n# four\n```\n"
        "[bad](a.md#four)\n");
  EXPECT_THAT(CheckLinks(path),
              ElementsAre("a.md:2: there is no c.png", "a.md:2: there is no heading #three",
                          "a.md:8: there is no heading #four"));
}

TEST_F(BadDocument, HasBlocksFromNowhere) {
  Write("a.md",
        "<!-- b.cpp -->\n```cpp\nint x = 1;\n\nreturn x;\n```\n"
        "<!-- b.cpp -->\n```cpp\nint x = 1;\n  return x;\n```\n"
        "<!-- b.cpp -->\n```cpp\nx = 1;\n```\n"
        "<!-- c.cpp -->\n```cpp\nint x = 1;\n```\n"
        "\n```cpp\nint x = 1;\n```\n"
        "<!-- b.cpp -->\n```cpp\n```\n"
        "```text\nint y;\n```\n");
  EXPECT_THAT(CheckExcerpts(path),
              ElementsAre("a.md:8: isn't part of b.cpp", "a.md:13: isn't part of b.cpp",
                          "a.md:17: isn't part of c.cpp", "a.md:21: no comment names the file",
                          "a.md:25: isn't part of b.cpp"));
}

TEST_F(BadDocument, NamesWhatIsNowhere) {
  Write("a.md", "`CWnd::Open()` CNothing `CSome` `QWidget` `x` `ABC`\n`ERR3D_X` `a/Path`\n");
  EXPECT_THAT(CheckNames(path, {"CWnd"}),
              ElementsAre("a.md:1: there is no Open", "a.md:1: there is no CSome",
                          "a.md:2: there is no ERR3D_X"));
}

}  // namespace
