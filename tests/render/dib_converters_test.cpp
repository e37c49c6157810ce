/// Files that another program writes. Without ImageMagick there is nothing to read.

#include <cstdlib>

#include "render/dib_fixture.h"

namespace {

using namespace orvalix::test;

class DibConverters : public DibTest {
 protected:
  /// Lets ImageMagick write a picture of 4 x 2: a red left half and a blue right half.
  static bool Convert(const std::string& options, const std::string& path) {
    const std::string command =
        "convert -size 2x2 xc:red xc:blue +append " + options + " '" + path + "' >/dev/null 2>&1";
    return std::system(command.c_str()) == 0;
  }
};

TEST_F(DibConverters, ShowTheSamePicture) {
  const TemporaryFile file;
  if (!Convert("", std::string("bmp:") + file.Path())) GTEST_SKIP() << "ImageMagick is missing";
  const std::vector<Rgb> row{kRed, kRed, kBlue, kBlue};
  for (const char* format : {"bmp:", "bmp2:", "bmp3:"}) {
    for (const char* options : {"-type truecolor", "-type palette", "-type palette -compress rle",
                                "-depth 8 -alpha set"}) {
      ASSERT_TRUE(Convert(options, std::string(format) + file.Path())) << format << options;
      EXPECT_EQ(TextureOf(file.Read()), (ColorRows{row, row})) << format << " " << options;
    }
  }
}

}  // namespace
