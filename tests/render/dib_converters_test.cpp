/// Files that ImageMagick writes show what it reads in them itself. Without it there is nothing to
/// compare with.

#include <cstdlib>
#include <string>

#include "render/dib_fixture.h"

namespace {

using namespace orvalix::test;

class DibConverters : public DibTest {
 protected:
  static bool Convert(const std::string& arguments) {
    return std::system(("convert " + arguments + " >/dev/null 2>&1").c_str()) == 0;
  }

  static std::string Quoted(const TemporaryFile& file, const std::string& format) {
    return " '" + format + ":" + file.Path() + "' ";
  }

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
  const TemporaryFile plain;
  if (!Convert(picture + Quoted(file, "bmp"))) GTEST_SKIP() << "ImageMagick is missing";
  for (const std::string format : {"bmp", "bmp2", "bmp3"}) {
    for (const std::string options :
         {"-type truecolor", "-colors 200 -type palette", "-colors 12 -type palette",
          "-colors 9 -type palette -compress rle", "-colors 2 -type palette",
          "-depth 8 -alpha set"}) {
      ASSERT_TRUE(Convert(picture + options + Quoted(file, format))) << format << " " << options;
      ASSERT_TRUE(Convert(Quoted(file, "bmp") + "-depth 8 -alpha off" + Quoted(plain, "rgb")));
      EXPECT_EQ(BytesOf(TextureOf(file.Read())), plain.Read()) << format << " " << options;
    }
  }
  EXPECT_TRUE(s_messages.empty());
}

}  // namespace
