#include "orvalix/render/dib_section.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/offscreen.h"
#include "support/section.h"
#include "support/temporary_file.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::FailEachAllocation;
using orvalix::test::Offscreen;
using orvalix::test::Section;
using orvalix::test::TemporaryFile;

unsigned Number(const Bytes& bytes, std::size_t at, std::size_t size) {
  unsigned value = 0;
  for (std::size_t i = size; i-- > 0;) value = value * 256 + bytes[at + i];
  return value;
}

Bytes SavedBitmap(const CDIBSection& dib) {
  const TemporaryFile file;
  dib.SaveDIB(file.Path());
  return file.Read();
}

TEST(DIBSection, TakesTheWindowsDepth) {
  for (const int bits : {8, 24, 32}) {
    SCOPED_TRACE(bits);
    Offscreen target(13, 7, bits);
    const BITMAPINFOHEADER header = target.dib->GetDIBHeader();
    EXPECT_EQ(header.biSize, 40U);
    EXPECT_EQ(header.biWidth, 13);
    EXPECT_EQ(header.biHeight, 7);
    EXPECT_EQ(header.biPlanes, 1);
    EXPECT_EQ(header.biBitCount, bits);
    EXPECT_EQ(header.biCompression, 0U);
    // Rows of 13, 39 and 52 bytes are padded to 16, 40 and 52.
    const int row = bits == 8 ? 16 : bits == 24 ? 40 : 52;
    EXPECT_EQ(header.biSizeImage, static_cast<DWORD>(row * 7));
    EXPECT_EQ(target.dib->StorageWidth(), row);
    EXPECT_EQ(target.dib->DIBWidth(), 13);
    EXPECT_EQ(target.dib->DIBHeight(), 7);
    EXPECT_NE(target.dib->FindDIBBits(), nullptr);
    EXPECT_NE(target.dib->GetBitmapHandle(), nullptr);
    EXPECT_EQ(target.dib->GetTargetDC(), &target.memory);
  }
}

TEST(DIBSection, IgnoresTheRequestedDepth) {
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(4, 4, 24));
  CDC memory;
  const CDIBSection dib(window.GetDC(), &memory, 4, 4, 8);
  EXPECT_EQ(dib.GetDIBHeader().biBitCount, 24);
}

TEST(DIBSection, IsEmptyWithoutAWindow) {
  CDC memory;
  CDIBSection dib(nullptr, &memory, 4, 4, 32);
  EXPECT_EQ(dib.GetBitmapHandle(), nullptr);
  EXPECT_EQ(dib.FindDIBBits(), nullptr);
  EXPECT_EQ(dib.DIBWidth(), 0);
  EXPECT_EQ(dib.StorageWidth(), 0);
  EXPECT_EQ(dib.GetDIBHeader().biSize, 0U);
  dib.CreateRGBPalette();
  dib.SetCDIBColorTable(nullptr);
  dib.GetCDIBColorTable();
  const TemporaryFile file;
  EXPECT_EQ(Catch([&] { dib.SaveDIB(file.Path()); }), (CaughtError{8, 9, "SaveDIB"}));
}

TEST(DIBSection, ImpossibleSizesMakeNoBitmap) {
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(4, 4));
  CDC memory;
  for (const auto& [width, height] : std::initializer_list<std::pair<int, int>>{
           {0, 4}, {4, 0}, {-4, 4}, {4, -4}, {2147483647, 2147483647}, {2147483647, 1}}) {
    const CDIBSection dib(window.GetDC(), &memory, width, height, 32);
    EXPECT_EQ(dib.GetBitmapHandle(), nullptr) << width << " x " << height;
  }
}

TEST(DIBSection, IsSavedWithTheColorsLastReadWhenItIsNotSelected) {
  Section section(1, 1, 8);
  const RGBQUAD color{1, 2, 3, 0};
  SetDIBColorTable(section.memory.GetSafeHdc(), 255, 1, &color);
  section.dib.GetCDIBColorTable();
  section.memory.DeleteDC();
  const TemporaryFile file;
  section.dib.SaveDIB(file.Path());
  const Bytes saved = file.Read();
  ASSERT_EQ(saved.size(), 1082U);
  EXPECT_EQ(saved[1074], 1);
  EXPECT_EQ(saved[1075], 2);
  EXPECT_EQ(saved[1076], 3);
  const HGLOBAL block = section.dib.GetDIBSectionAsDIB();
  const auto* const bytes = static_cast<const unsigned char*>(GlobalLock(block));
  ASSERT_NE(bytes, nullptr);
  EXPECT_EQ(bytes[1060], 1);
  GlobalFree(block);
}

TEST(DIBSection, SavesNothingWithoutMemoryForItsColors) {
  const Section section(1, 1);
  const TemporaryFile file(Bytes(6));
  const CString path = file.Path();
  bool isReported = false;
  FailEachAllocation([&] {
    const CaughtError error = Catch([&] { section.dib.SaveDIB(path); });
    if (error != CaughtError{2, 9, "SaveDIB"}) return;
    isReported = true;
    EXPECT_EQ(file.Read().size(), 6U);
  });
  EXPECT_TRUE(isReported);
}

TEST(DIBSection, MayBeDestroyedWhileItIsSelected) {
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(4, 4));
  CDC memory;
  ASSERT_TRUE(memory.CreateCompatibleDC(window.GetDC()));
  {
    const CDIBSection dib(window.GetDC(), &memory, 4, 4, 32);
    SelectObject(memory.GetSafeHdc(), dib.GetBitmapHandle());
  }
  memory.SetPixel(1, 1, 0xFF);
  EXPECT_EQ(memory.GetPixel(1, 1), 0xFFU);  // the pixels live as long as they are selected
}

TEST(DIBSection, CountsColors) {
  Offscreen target(4, 4);
  BITMAPINFOHEADER header{};
  const std::initializer_list<std::pair<int, int>> expected{{1, 2},  {4, 16}, {8, 256},
                                                            {24, 0}, {32, 0}, {0, 0}};
  for (const auto& [bits, colors] : expected) {
    header.biBitCount = static_cast<WORD>(bits);
    EXPECT_EQ(target.dib->DIBNumColors(header), colors) << bits;
    EXPECT_EQ(target.dib->PaletteSize(header), colors * 4) << bits;
  }
  header.biClrUsed = 10;
  EXPECT_EQ(target.dib->DIBNumColors(header), 10);
  EXPECT_EQ(target.dib->PaletteSize(header), 40);
}

TEST(DIBSection, KeepsItsColorTable) {
  Offscreen target(4, 4, 8);
  const RGBQUAD first = target.dib->GetColorTable()[7];  // 3-3-2: red alone
  EXPECT_EQ(first.rgbRed, 255);
  EXPECT_EQ(first.rgbBlue, 0);
  const RGBQUAD changed{1, 2, 3, 0};
  SetDIBColorTable(target.memory.GetSafeHdc(), 7, 1, &changed);
  target.dib->GetCDIBColorTable();
  EXPECT_EQ(target.dib->GetColorTable()[7].rgbRed, 3);
  target.dib->SetCDIBColorTable(target.dib->GetPaletteHandle());
  RGBQUAD read{};
  GetDIBColorTable(target.memory.GetSafeHdc(), 7, 1, &read);
  EXPECT_EQ(read.rgbRed, 255);
}

TEST(DIBSection, WritesABitmapFile) {
  for (const int bits : {8, 24, 32}) {
    SCOPED_TRACE(bits);
    Offscreen target(13, 7, bits);
    auto* pixels = static_cast<unsigned char*>(target.dib->FindDIBBits());
    const std::size_t size = static_cast<std::size_t>(target.dib->StorageWidth()) * 7;
    for (std::size_t i = 0; i < size; ++i) pixels[i] = static_cast<unsigned char>(i * 7);
    const Bytes bytes = SavedBitmap(*target.dib);
    ASSERT_EQ(bytes.size(), size + 1078);
    EXPECT_EQ(bytes[0], 'B');
    EXPECT_EQ(bytes[1], 'M');
    EXPECT_EQ(Number(bytes, 2, 4), size + 1078);
    EXPECT_EQ(Number(bytes, 6, 4), 0U);
    EXPECT_EQ(Number(bytes, 10, 4), 1078U);
    EXPECT_EQ(Number(bytes, 14, 4), 40U);
    EXPECT_EQ(Number(bytes, 18, 4), 13U);
    EXPECT_EQ(Number(bytes, 22, 4), 7U);
    EXPECT_EQ(Number(bytes, 26, 2), 1U);
    EXPECT_EQ(Number(bytes, 28, 2), static_cast<unsigned>(bits));
    EXPECT_EQ(Number(bytes, 30, 4), 0U);
    EXPECT_EQ(Number(bytes, 34, 4), size);
    // The colour table is there whatever the depth; entry 7 of an 8-bit picture is red.
    EXPECT_EQ(Number(bytes, 54 + 7 * 4, 4), bits == 8 ? 0x00FF0000U : 0U);
    EXPECT_EQ(std::memcmp(bytes.data() + 1078, pixels, size), 0);
  }
}

TEST(DIBSection, ReportsFilesThatCannotBeWritten) {
  Offscreen target(4, 4);
  const std::string missing = std::string(::testing::TempDir()) + "no/such/folder/picture.bmp";
  EXPECT_EQ(Catch([&] { target.dib->SaveDIB(missing.c_str()); }), (CaughtError{6, 9, "SaveDIB"}));
  EXPECT_EQ(Catch([&] { target.dib->SaveDIB(""); }), (CaughtError{6, 9, "SaveDIB"}));
  EXPECT_EQ(Catch([&] { target.dib->SaveDIB("/dev/full"); }), (CaughtError{7, 9, "SaveDIB"}));
}

}  // namespace
