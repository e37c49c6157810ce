#include "orvalix/host/file_replacement_internal.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "support/allocation_failure.h"
#include "support/without_rights.h"

namespace {

namespace fs = std::filesystem;
using orvalix::FileReplacement;
using orvalix::test::GiveAway;
using orvalix::test::RunWithoutRights;

/// A folder of its own for each test.
class FileReplacing : public ::testing::Test {
 protected:
  FileReplacing()
      : m_folder(::testing::TempDir() + "orvalix_replacing_" + std::to_string(::getpid())) {
    fs::create_directory(m_folder);
  }
  ~FileReplacing() override {
    fs::permissions(m_folder, fs::perms::owner_all);
    fs::remove_all(m_folder);
  }

  std::string Path(const std::string& name) const { return m_folder / name; }
  void Put(const std::string& name, const std::string& text) const {
    std::ofstream(Path(name)) << text;
  }
  std::string Text(const std::string& name) const {
    std::ifstream in(Path(name));
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  std::ptrdiff_t FilesInFolder() const {
    return std::distance(fs::directory_iterator(m_folder), fs::directory_iterator());
  }
  static bool Replace(const std::string& path, const std::string& text) {
    FileReplacement replacement;
    if (!replacement.Open(path.c_str())) return false;
    replacement.File().Write(text.data(), static_cast<UINT>(text.size()));
    replacement.Commit();
    return true;
  }
  /// Writes and gives up.
  static void Abandon(const std::string& path) {
    FileReplacement replacement;
    ASSERT_TRUE(replacement.Open(path.c_str()));
    replacement.File().Write("half", 4);
  }

  fs::path m_folder;
};

TEST_F(FileReplacing, MakesFilesAndReplacesThem) {
  EXPECT_TRUE(Replace(Path("a"), "first"));
  EXPECT_EQ(Text("a"), "first");
  EXPECT_TRUE(Replace(Path("a"), "2nd"));
  EXPECT_EQ(Text("a"), "2nd");
  EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(FileReplacing, TheFileBeforeStaysUntilTheNewOneIsComplete) {
  Put("a", "before");
  FileReplacement replacement;
  ASSERT_TRUE(replacement.Open(Path("a").c_str()));
  replacement.File().Write("after", 5);
  EXPECT_EQ(Text("a"), "before");
  replacement.Commit();
  EXPECT_EQ(Text("a"), "after");
}

TEST_F(FileReplacing, GivingUpLeavesNothingBehind) {
  Put("a", "before");
  Abandon(Path("a"));
  Abandon(Path("new"));
  EXPECT_EQ(Text("a"), "before");
  EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(FileReplacing, ReadersKeepTheFileThatTheyOpened) {
  Put("a", "before");
  std::ifstream reader(Path("a"));
  EXPECT_TRUE(Replace(Path("a"), "after, and longer"));
  std::string text;
  reader >> text;
  EXPECT_EQ(text, "before");
}

TEST_F(FileReplacing, PermissionsStay) {
  Put("a", "before");
  ASSERT_EQ(::chmod(Path("a").c_str(), 0640), 0);
  EXPECT_TRUE(Replace(Path("a"), "after"));
  EXPECT_EQ(fs::status(Path("a")).permissions(), fs::perms{0640});
  // New files have those that other new files have.
  Put("b", "by a stream");
  EXPECT_TRUE(Replace(Path("c"), "new"));
  EXPECT_EQ(fs::status(Path("c")).permissions(), fs::status(Path("b")).permissions());
}

TEST_F(FileReplacing, LinksAreFollowed) {
  Put("a", "before");
  fs::create_directory(m_folder / "links");
  fs::create_symlink("../a", m_folder / "links" / "to_a");
  EXPECT_TRUE(Replace(Path("links/to_a"), "after"));
  EXPECT_EQ(Text("a"), "after");
  EXPECT_TRUE(fs::is_symlink(Path("links/to_a")));
  fs::create_symlink("missing", m_folder / "dangling");
  EXPECT_TRUE(Replace(Path("dangling"), "made"));
  EXPECT_EQ(Text("missing"), "made");
  EXPECT_TRUE(fs::is_symlink(Path("dangling")));
}

TEST_F(FileReplacing, FilesWithSeveralNamesKeepThem) {
  Put("a", "before");
  fs::create_hard_link(Path("a"), Path("b"));
  EXPECT_TRUE(Replace(Path("a"), "after"));
  EXPECT_EQ(Text("b"), "after");
}

TEST_F(FileReplacing, DevicesAreWrittenTo) {
  EXPECT_TRUE(Replace("/dev/null", "gone"));
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(FileReplacing, WhatCannotBeWrittenIsRefused) {
  EXPECT_FALSE(Replace("", "text"));
  EXPECT_FALSE(FileReplacement().Open(nullptr));
  EXPECT_FALSE(Replace(m_folder, "text"));
  EXPECT_FALSE(Replace(Path("no_folder/a"), "text"));
  Put("a", "a file");
  EXPECT_FALSE(Replace(Path("a/b"), "text"));
  EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(FileReplacing, WhatMayNotBeWrittenIsRefused) {
  GiveAway(m_folder.c_str());
  RunWithoutRights([&] {
    Put("a", "a file");
    ::chmod(Path("a").c_str(), 0440);
    EXPECT_FALSE(Replace(Path("a"), "text"));
    ::chmod(m_folder.c_str(), 0550);
    EXPECT_FALSE(Replace(Path("b"), "text"));
    EXPECT_EQ(Text("a"), "a file");
    EXPECT_EQ(FilesInFolder(), 1);
  });
}

TEST_F(FileReplacing, FilesOfAnotherOwnerAreWrittenInPlace) {
  if (::geteuid() != 0) GTEST_SKIP() << "nobody else's files are at hand";
  Put("a", "before");
  GiveAway(Path("a").c_str());
  EXPECT_TRUE(Replace(Path("a"), "after"));
  EXPECT_EQ(Text("a"), "after");
  struct stat status {};
  ASSERT_EQ(::stat(Path("a").c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, orvalix::test::kNobody);
}

TEST_F(FileReplacing, FilesInFoldersThatTakeNoNewOnesAreWrittenInPlace) {
  GiveAway(m_folder.c_str());
  RunWithoutRights([&] {
    Put("a", "before");
    ::chmod(m_folder.c_str(), 0550);
    EXPECT_TRUE(Replace(Path("a"), "after"));
    EXPECT_EQ(Text("a"), "after");
  });
}

TEST_F(FileReplacing, FilesLeftBehindByOthersAreLeftAlone) {
  Put("a", "before");
  const std::string prefix = ".orvalix-" + std::to_string(::getpid()) + "-";
  // Whatever number comes next.
  constexpr int kLeftBehind = 60;
  for (int i = 0; i < kLeftBehind; ++i) Put(prefix + std::to_string(i) + ".tmp", "of another");
  FileReplacement replacement;
  ASSERT_TRUE(replacement.Open(Path("a").c_str()));
  replacement.File().Write("after", 5);
  EXPECT_EQ(Text("a"), "before");
  replacement.Commit();
  EXPECT_EQ(Text("a"), "after");
  EXPECT_EQ(FilesInFolder(), kLeftBehind + 1);
  EXPECT_EQ(Text(prefix + "0.tmp"), "of another");
}

TEST_F(FileReplacing, PipesAreRefusedWithoutBeingTouched) {
  ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(Replace(Path("pipe"), "text"));
  EXPECT_TRUE(fs::is_fifo(Path("pipe")));
}

TEST_F(FileReplacing, NewFilesOfSecretOnesAreSecretFromTheStart) {
  Put("a", "before");
  ASSERT_EQ(::chmod(Path("a").c_str(), 0600), 0);
  FileReplacement replacement;
  ASSERT_TRUE(replacement.Open(Path("a").c_str()));
  for (const fs::directory_entry& entry : fs::directory_iterator(m_folder)) {
    EXPECT_EQ(entry.status().permissions(), fs::perms{0600}) << entry.path();
  }
}

TEST_F(FileReplacing, AFileThatCannotBeMovedIsAnError) {
  FileReplacement replacement;
  ASSERT_TRUE(replacement.Open(Path("a").c_str()));
  fs::create_directory(Path("a"));  // meanwhile
  EXPECT_THROW(
      {
        try {
          replacement.Commit();
        } catch (CFileException* error) {
          const int cause = error->m_cause;
          error->Delete();
          throw cause;
        }
      },
      int);
  EXPECT_TRUE(fs::is_directory(Path("a")));
}

TEST_F(FileReplacing, RunningOutOfMemoryLeavesTheFileBefore) {
  Put("a", "before");
  const std::string path = Path("a");
  int refused = 0;
  const int failures = orvalix::test::FailEachAllocation([&] {
    FileReplacement replacement;
    if (!replacement.Open(path.c_str())) ++refused;
  });
  EXPECT_GE(failures, 1);
  EXPECT_EQ(Text("a"), "before");
  EXPECT_EQ(FilesInFolder(), 1);
}

}  // namespace
