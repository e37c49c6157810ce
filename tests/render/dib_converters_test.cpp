/// Files that ImageMagick writes show what it reads in them itself. Without it there is nothing to
/// compare with.

#include <string>

#include "render/dib_fixture.h"
#include "support/image_magick.h"

namespace {

using namespace orvalix::test;

class DibConverters : public DibTest {
 protected:
  /// The bytes of a picture as ImageMagick tells them: red, green, blue, the top row first.
  static Bytes BytesOf(const ColorRows& rows) {
    Bytes bytes;
    for (const auto& row : rows) {
      for (const Rgb& color : row) {
        for (const int part : color) bytes.push_back(static_cast<unsigned char>(part));
      }
    }
    return bytes;
  }
};

TEST_F(DibConverters, ShowTheSamePicture) {
  // A gradient, whose runs are long; as large as its texture.
  const std::string picture = "-size 32x16 gradient:red-blue -rotate 90 -resize '32x16!' ";
  const TemporaryFile file;
  if (!HasImageMagick()) GTEST_SKIP() << "ImageMagick is missing";
  for (const std::string format : {"bmp", "bmp2", "bmp3"}) {
    for (const std::string options :
         {"-type truecolor", "-colors 200 -type palette", "-colors 12 -type palette",
          "-colors 9 -type palette -compress rle", "-colors 2 -type palette",
          "-depth 8 -alpha set"}) {
      ASSERT_TRUE(Convert(picture + options + AsFormat(file, format))) << format << " " << options;
      EXPECT_EQ(BytesOf(TextureOf(file.Read())), ConvertedToRgb(file, "bmp"))
          << format << " " << options;
    }
  }
  EXPECT_TRUE(s_messages.empty());
}

}  // namespace
