#include <gtest/gtest.h>

#include "chart/view_fixture.h"
#include "orvalix/chart/png_file_internal.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/file_size_limit.h"
#include "support/picture.h"
#include "support/section.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;
using orvalix::Picture;
using orvalix::ReadPng;

constexpr CErr3DClass kClass = ERR3DCLASS_CHARTVIEW3D;
const CaughtError kNoFile{6, 6, "SaveToPng"};
const CaughtError kNotWritten{7, 6, "SaveToPng"};
const CaughtError kNoMemory{2, 6, "SaveToPng"};

void Write(CDIBSection& dib, const CString& path) {
  orvalix::WritePngFile(dib, path, kClass, "SaveToPng");
}

TEST(SaveToPng, WritesThePictureAtTheBitmapsSize) {
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(10, 10));
  CChartView3D view(&window, 40, 30);
  view.EnableBorder(0);
  view.SetViewBkColor(SetRGBD(0, 0, 1, 1));
  view.NewChart3D()->SetChartPosition({0.0, 0.5, 0.25, 0.5});  // upper left
  view.GetChart(0)->EnableBorder(0);
  view.GetChart(0)->SetChartBkColor(SetRGBD(1, 0.5, 0, 1));
  const TemporaryFile file;
  view.SaveToPng(file.Path());
  int width = 0;
  int height = 0;
  view.GetViewSize(width, height);
  EXPECT_EQ(width, 40);
  EXPECT_EQ(height, 30);
  const Picture picture = ReadPng(file.Path());
  ASSERT_EQ(picture.width, 40);
  ASSERT_EQ(picture.height, 30);
  const auto pixel = [&](std::size_t x, std::size_t y) {
    const unsigned char* const rgb = picture.rgb.data() + (y * 40 + x) * 3;
    return Pixel{rgb[0], rgb[1], rgb[2]};
  };
  const Pixel orange{255, pixel(0, 0)[1], 0};
  EXPECT_NEAR(orange[1], 127.5, 0.5);
  EXPECT_EQ(pixel(0, 0), orange);
  EXPECT_EQ(pixel(9, 14), orange);
  EXPECT_EQ(pixel(10, 14), kBlue);
  EXPECT_EQ(pixel(9, 15), kBlue);
  EXPECT_EQ(pixel(39, 29), kBlue);
}

TEST(SaveToPng, HasTwentyFourBitsPerPixel) {
  ViewOn target(40, 30);
  const TemporaryFile file;
  target.view->SaveToPng(file.Path());
  const Bytes bytes = file.Read();
  ASSERT_GT(bytes.size(), 33U);
  // Signature; then the first chunk: 13 bytes, width, height, 8 bits per component, colour type 2
  // (red, green, blue), compression, filter and interlace method 0.
  const Bytes expected{0x89, 'P', 'N', 'G', 13, 10, 26, 10, 0,  0, 0, 13, 'I', 'H', 'D',
                       'R',  0,   0,   0,   40, 0,  0,  0,  30, 8, 2, 0,  0,   0};
  EXPECT_EQ(Bytes(bytes.begin(), bytes.begin() + 29), expected);
}

TEST(SaveToPng, LosesNothing) {
  for (const int bits : {8, 24, 32}) {
    SCOPED_TRACE(bits);
    Section section(37, 11, bits);
    section.FillWithNoise();
    for (int i = 0; i < 256; ++i) {
      const RGBQUAD color{static_cast<BYTE>(i), static_cast<BYTE>(255 - i),
                          static_cast<BYTE>(i * 3), 0};
      SetDIBColorTable(section.memory.GetSafeHdc(), static_cast<UINT>(i), 1, &color);
    }
    const TemporaryFile file;
    Write(section.dib, file.Path());
    const Picture picture = ReadPng(file.Path());
    ASSERT_EQ(picture.width, 37);
    ASSERT_EQ(picture.height, 11);
    const unsigned char* rgb = picture.rgb.data();
    for (int y = 0; y < 11; ++y) {
      for (int x = 0; x < 37; ++x, rgb += 3) {
        ASSERT_EQ(RGB(rgb[0], rgb[1], rgb[2]), section.memory.GetPixel(x, y)) << x << ", " << y;
      }
    }
  }
}

TEST(SaveToPng, WritesEveryDepthOfViews) {
  for (const int bits : {8, 24, 32}) {
    SCOPED_TRACE(bits);
    ViewOn target(21, 11, bits);
    target.view->EnableBorder(0);
    target.view->SetViewBkColor(SetRGBD(1, 0, 0, 1));
    const TemporaryFile file;
    target.view->SaveToPng(file.Path());
    const Picture picture = ReadPng(file.Path());
    EXPECT_EQ(picture.rgb[0], 255);
    EXPECT_EQ(picture.rgb[1], 0);
    EXPECT_EQ(picture.rgb[2], 0);
  }
}

TEST(SaveToPng, ReplacesWhatIsThere) {
  const TemporaryFile file(Bytes(100000, 0xEE));
  ViewOn target(4, 4);
  target.view->SaveToPng(file.Path());
  EXPECT_LT(file.Read().size(), 1000U);
  EXPECT_EQ(ReadPng(file.Path()).width, 4);
}

TEST(SaveToPng, NeedsABitmap) {
  CChartView3D view;
  const TemporaryFile file;
  EXPECT_EQ(Catch([&] { view.SaveToPng(file.Path()); }), (CaughtError{8, 6, "SaveToPng"}));
  EXPECT_TRUE(file.Read().empty());
}

TEST(SaveToPng, ReportsFilesThatCannotBeWritten) {
  ViewOn target(4, 4);
  const auto save = [&](const char* path) { return Catch([&] { target.view->SaveToPng(path); }); };
  EXPECT_EQ(save("/no/such/folder/picture.png"), kNoFile);
  EXPECT_EQ(save(""), kNoFile);
  EXPECT_EQ(save("/dev/full"), kNotWritten);
}

TEST(SaveToPng, ReportsADiskThatFillsUp) {
  Section section(100, 100);
  section.FillWithNoise();
  const TemporaryFile file;
  Write(section.dib, file.Path());
  const Bytes before = file.Read();
  const std::size_t size = before.size();
  ASSERT_GT(size, 30000U);  // noise can't be compressed
  // In the header, in the pixels, in the last chunk.
  for (const std::size_t limit : {std::size_t{20}, std::size_t{15000}, size - 1}) {
    const FileSizeLimit disk(limit);
    EXPECT_EQ(Catch([&] { Write(section.dib, file.Path()); }), kNotWritten) << limit;
    EXPECT_EQ(file.Read(), before);
  }
  Write(section.dib, file.Path());
  EXPECT_EQ(file.Read(), before);
}

TEST(SaveToPng, MemoryThatRunsOutIsAClearError) {
  Section section(100, 100);
  section.FillWithNoise();
  const TemporaryFile file;
  const CString path(file.Path());
  int noMemory = 0;
  int noFile = 0;
  const int failures = FailEachAllocation([&] {
    const CaughtError error = Catch([&] { Write(section.dib, path); });
    if (error == kNoMemory) ++noMemory;
    if (error == kNoFile) ++noFile;
  });
  EXPECT_EQ(ReadPng(file.Path()).width, 100);  // by the last run
  EXPECT_GT(noMemory, 5);
  EXPECT_EQ(noMemory + noFile, failures);
}

TEST(SaveToPng, MemoryIsBoundedByRows) {
  // 12 MB of pixels; a row of them has 3000 bytes.
  Section section(1000, 4000, 24);
  section.FillWithNoise();
  const TemporaryFile file;
  const AllocationMeter meter;
  Write(section.dib, file.Path());
  EXPECT_LT(meter.Largest(), 200000U);
}

}  // namespace
