/// What ImageMagick finds in the files that views and bitmaps write. Without it there is nothing to
/// compare with.

#include <cstdint>

#include "chart/view_fixture.h"
#include "support/image_magick.h"
#include "support/section.h"

namespace {

using namespace orvalix::test;

class SavedFiles : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!HasImageMagick()) GTEST_SKIP() << "ImageMagick is missing";
  }
};

/// Four quarters of other colours in a view of an odd width, which rows of 24 bits don't fill.
class Quarters : public ViewOn {
 public:
  static constexpr int kWidth = 37;
  static constexpr int kHeight = 22;

  explicit Quarters(int bits) : ViewOn(kWidth, kHeight, bits) {
    view->EnableBorder(0);
    view->SetViewBkColor(SetRGBD(1, 1, 1, 1));  // the upper right quarter
    AddQuarter({0.0, 0.5, 0.5, 0.5}, SetRGBD(1, 0, 0, 1));
    AddQuarter({0.0, 0.0, 0.5, 0.5}, SetRGBD(0, 1, 0, 1));
    AddQuarter({0.5, 0.0, 0.5, 0.5}, SetRGBD(0, 0, 1, 1));
  }

  /// Expects each pixel of the bitmap, and the colours of the quarters where they are told to be.
  void ExpectPicture(const Bytes& rgb) {
    ASSERT_EQ(rgb.size(), std::size_t{kWidth} * kHeight * 3);
    view->DrawViewScreen();
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        ASSERT_EQ(At(rgb, x, y), WindowPixel(x, y)) << x << ", " << y;
      }
    }
    // Column 18 holds the middle.
    EXPECT_EQ(At(rgb, 0, 0), kRed);
    EXPECT_EQ(At(rgb, 17, 10), kRed);
    EXPECT_EQ(At(rgb, 19, 10), kWhite);
    EXPECT_EQ(At(rgb, 36, 0), kWhite);
    EXPECT_EQ(At(rgb, 0, 21), kGreen);
    EXPECT_EQ(At(rgb, 17, 11), kGreen);
    EXPECT_EQ(At(rgb, 19, 11), kBlue);
    EXPECT_EQ(At(rgb, 35, 21), kBlue);
  }

 private:
  void AddQuarter(const GLViewRType& position, const RGBDType& color) {
    CChart3D* chart = view->NewChart3D();
    chart->SetChartPosition(position);
    chart->EnableBorder(0);
    chart->SetChartBkColor(color);
  }

  static Pixel At(const Bytes& rgb, int x, int y) {
    const std::size_t at = (static_cast<std::size_t>(y) * kWidth + static_cast<std::size_t>(x)) * 3;
    return {rgb[at], rgb[at + 1], rgb[at + 2]};
  }
};

TEST_F(SavedFiles, BitmapsOfViewsShowThePicture) {
  for (const int bits : {8, 24, 32}) {
    SCOPED_TRACE(bits);
    Quarters target(bits);
    const TemporaryFile file;
    target.view->SaveToFile(file.Path());
    target.ExpectPicture(ConvertedToRgb(file, "bmp"));
  }
}

TEST_F(SavedFiles, PngFilesOfViewsShowThePicture) {
  for (const int bits : {8, 24, 32}) {
    SCOPED_TRACE(bits);
    Quarters target(bits);
    const TemporaryFile file;
    target.view->SaveToPng(file.Path());
    target.ExpectPicture(ConvertedToRgb(file, "png"));
  }
}

TEST_F(SavedFiles, BitmapsOfEightBitsHaveTheirPalette) {
  constexpr int kWidth = 19;
  constexpr int kHeight = 14;
  Section section(kWidth, kHeight, 8);
  section.FillWithNoise();
  for (int i = 0; i < 256; ++i) {
    const RGBQUAD color{static_cast<BYTE>(255 - i), static_cast<BYTE>(i * 3), static_cast<BYTE>(i),
                        0};
    SetDIBColorTable(section.memory.GetSafeHdc(), static_cast<UINT>(i), 1, &color);
  }
  const TemporaryFile file;
  section.dib.SaveDIB(file.Path());
  Bytes expected;
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const int index = section.Row(y)[x];
      // Red is the index, green three times that, blue falls as it grows.
      for (const int part : {index, index * 3, 255 - index}) {
        expected.push_back(static_cast<unsigned char>(part));
      }
    }
  }
  EXPECT_EQ(ConvertedToRgb(file, "bmp"), expected);
}

}  // namespace
