#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "support/golden.h"
#include "support/picture.h"

namespace {

namespace fs = std::filesystem;

const std::string kSources = ORVALIX_SOURCE_FOLDER;

/// Runs a program of the guide in a folder of its own; the picture that it writes there is the one
/// that the guide shows.
void ExpectPictureOfTheGuide(const std::string& program, const std::string& arguments) {
  const fs::path folder = fs::path(::testing::TempDir()) / ("guide_" + program);
  fs::create_directories(folder);
  const std::string command =
      "cd '" + folder.string() + "' && '" ORVALIX_GUIDE_PROGRAMS "/" + program + "' " + arguments;
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
  const std::string picture = program + ".png";
  const orvalix::PictureDifference difference =
      orvalix::Compare(orvalix::ReadPng((folder / picture).string()),
                       orvalix::ReadPng(kSources + "/docs/images/" + picture));
  const orvalix::test::PictureLimits limits;
  EXPECT_TRUE(difference.sameSize);
  EXPECT_LE(difference.mean, limits.mean);
  EXPECT_LE(difference.differingShare, limits.differingShare);
  EXPECT_LE(difference.worstTile, limits.worstTile);
  if (!::testing::Test::HasFailure()) fs::remove_all(folder);
}

TEST(GuidePictures, FirstChart) { ExpectPictureOfTheGuide("first_chart", ""); }

TEST(GuidePictures, OwnData) {
  ExpectPictureOfTheGuide("own_data",
                          "'" + kSources + "/docs/guide/code/harvest.csv' own_data.png");
}

}  // namespace
