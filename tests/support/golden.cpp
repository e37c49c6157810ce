#include "support/golden.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace orvalix::test {
namespace {

namespace fs = std::filesystem;

fs::path Stored(const std::string& file) { return fs::path(ORVALIX_GOLDEN_FOLDER) / file; }

/// Where a differing result goes: actual/FILE is what accepting copies, the rest is for looking.
fs::path Left(const std::string& folder, const std::string& file) {
  const fs::path path = fs::path(ORVALIX_DIFFERENCE_FOLDER) / folder / file;
  fs::create_directories(path.parent_path());
  return path;
}

void RemoveOldResults(const std::string& name, const std::string& extension) {
  for (const char* folder : {"actual", "side-by-side", "report"}) {
    fs::remove(fs::path(ORVALIX_DIFFERENCE_FOLDER) / folder / (name + extension));
    fs::remove(fs::path(ORVALIX_DIFFERENCE_FOLDER) / folder / (name + ".report"));
  }
}

std::optional<std::string> ReadText(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

void WriteText(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

void LeavePicture(const Picture& actual, const std::string& name, const std::string& report) {
  WritePng(actual, Left("actual", name + ".png").string());
  WriteText(Left("report", name + ".report"), report + "\n");
}

}  // namespace

void ExpectGoldenPicture(const Picture& actual, const std::string& name,
                         const PictureLimits& limits) {
  RemoveOldResults(name, ".png");
  const fs::path stored = Stored(name + ".png");
  if (!fs::exists(stored)) {
    LeavePicture(actual, name, name + ".png: no stored picture");
    ADD_FAILURE() << "no stored picture " << stored;
    return;
  }
  const Picture expected = ReadPng(stored.string());
  const PictureDifference difference = Compare(actual, expected);
  if (difference.sameSize && difference.mean <= limits.mean &&
      difference.differingShare <= limits.differingShare &&
      difference.worstTile <= limits.worstTile) {
    return;
  }
  const std::string report =
      name + ".png: " +
      (difference.sameSize
           ? "mean difference " + std::to_string(difference.mean) + " (limit " +
                 std::to_string(limits.mean) + "), largest " + std::to_string(difference.largest) +
                 ", differing pixels " + std::to_string(difference.differingShare) + " (limit " +
                 std::to_string(limits.differingShare) + "), in the worst tile " +
                 std::to_string(difference.worstTile) + " (limit " +
                 std::to_string(limits.worstTile) + ")"
           : "the sizes differ");
  LeavePicture(actual, name, report);
  const fs::path sheet = Left("side-by-side", name + ".png");
  WritePng(SideBySide(actual, expected), sheet.string());
  ADD_FAILURE() << report << "; actual, expected and difference: " << sheet;
}

void ExpectGoldenTranscript(const std::string& actual, const std::string& name) {
  RemoveOldResults(name, ".txt");
  const std::optional<std::string> expected = ReadText(Stored(name + ".txt"));
  if (expected == actual) return;
  WriteText(Left("actual", name + ".txt"), actual);
  EXPECT_EQ(actual, expected.value_or("(no stored transcript)")) << "transcript " << name;
}

}  // namespace orvalix::test
