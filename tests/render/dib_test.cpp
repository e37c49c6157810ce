#include "orvalix/render/dib.h"

#include <algorithm>
#include <cstring>

#include "render/dib_fixture.h"
#include "support/caught_error.h"

namespace {

using namespace orvalix::test;

class Dib : public DibTest {};

TEST_F(Dib, ShowsTheFileWithoutItsFileHeader) {
  BitmapFile file = FourColors();
  file.imageBytes = 77;  // replaced by the true number
  const Bytes bytes = Encode(file);
  const TemporaryFile stored(bytes);
  CDib dib(stored.Path());
  EXPECT_EQ(dib.GetClassTag(), 909);
  EXPECT_EQ(dib.GetDibWidth(), 2);
  EXPECT_EQ(dib.GetDibHeight(), 2);
  EXPECT_EQ(dib.GetDibNumColors(), 0);
  EXPECT_EQ(dib.GetDibSizeImage(), 16U);  // two rows of 6 bytes, padded to 8
  const BITMAPINFOHEADER* header = dib.GetDibInfoHeaderPtr();
  ASSERT_NE(header, nullptr);
  EXPECT_EQ(static_cast<void*>(dib.GetDibInfoPtr()), static_cast<const void*>(header));
  EXPECT_EQ(header->biSize, 40U);
  EXPECT_EQ(header->biSizeImage, 16U);
  EXPECT_EQ(header->biClrUsed, 0U);
  EXPECT_EQ(header->biXPelsPerMeter, 2835);
  EXPECT_EQ(dib.GetDibRGBTablePtr(), nullptr);
  const auto* bits = static_cast<const unsigned char*>(dib.GetDibBitsPtr());
  EXPECT_EQ(bits, reinterpret_cast<const unsigned char*>(header) + 40);
  EXPECT_EQ(Bytes(bits, bits + 16), file.pixels);
  EXPECT_EQ(TextureOf(dib), (ColorRows{{kRed, kGreen}, {kBlue, kWhite}}));
  EXPECT_TRUE(s_messages.empty());
}

TEST_F(Dib, HeightsOfFilesWithTheTopRowFirstArePositive) {
  BitmapFile file = FourColors();
  file.height = -2;
  const TemporaryFile stored(Encode(file));
  CDib dib(stored.Path());
  EXPECT_EQ(dib.GetDibHeight(), 2);
  EXPECT_EQ(dib.GetDibInfoHeaderPtr()->biHeight, -2);
  EXPECT_EQ(TextureOf(dib), (ColorRows{{kBlue, kWhite}, {kRed, kGreen}}));
}

TEST_F(Dib, TheColorTableIsAsLongAsTheFileSays) {
  BitmapFile file;
  file.bits = 8;
  file.pixels = {1, 0, 0, 0};
  file.colors.assign(256, kBlack);
  file.colors[1] = kGreen;
  const TemporaryFile full(Encode(file));
  CDib fullDib(full.Path());
  EXPECT_EQ(fullDib.GetDibNumColors(), 256);  // 2 to the power of 8
  EXPECT_EQ(fullDib.GetDibInfoHeaderPtr()->biClrUsed, 256U);
  EXPECT_EQ(fullDib.GetDibRGBTablePtr()[1].rgbGreen, 255);
  EXPECT_EQ(TextureOf(fullDib)[0][0], kGreen);

  file.colorsUsed = 3;
  file.colors.resize(3);
  file.offset = 9999;  // not looked at when the table's length is known
  const TemporaryFile three(Encode(file));
  CDib threeDib(three.Path());
  EXPECT_EQ(threeDib.GetDibNumColors(), 3);
  EXPECT_EQ(TextureOf(threeDib)[0][0], kGreen);

  file.colorsUsed = 300;  // more than there are indices
  file.colors.resize(300, kBlack);
  const TemporaryFile many(Encode(file));
  CDib manyDib(many.Path());
  EXPECT_EQ(manyDib.GetDibNumColors(), 300);
  EXPECT_EQ(TextureOf(manyDib)[0][0], kGreen);
}

TEST_F(Dib, TrueColorFilesMayHaveATableInFrontOfTheirPixels) {
  BitmapFile file = FourColors();
  file.colors.assign(256, kRed);  // as views write them, whatever the depth
  const TemporaryFile stored(Encode(file));
  CDib dib(stored.Path());
  EXPECT_EQ(dib.GetDibNumColors(), 256);
  EXPECT_EQ(dib.GetDibInfoHeaderPtr()->biClrUsed, 256U);
  EXPECT_EQ(dib.GetDibRGBTablePtr()[255].rgbRed, 255);
  EXPECT_EQ(TextureOf(dib), (ColorRows{{kRed, kGreen}, {kBlue, kWhite}}));
  // A gap that is no whole number of colours is passed over too.
  file.colors.resize(1);
  file.gap = {1, 2, 3};
  const TemporaryFile gap(Encode(file));
  CDib gapDib(gap.Path());
  EXPECT_EQ(gapDib.GetDibNumColors(), 1);
  EXPECT_EQ(TextureOf(gapDib), (ColorRows{{kRed, kGreen}, {kBlue, kWhite}}));
  // Colours used win over the offset.
  file.gap.clear();
  file.colorsUsed = 1;
  file.offset = 0;
  EXPECT_EQ(TextureOf(file), (ColorRows{{kRed, kGreen}, {kBlue, kWhite}}));
  // An offset in front of the end of the header leaves no room for a table.
  file.colors.clear();
  file.colorsUsed = 0;
  EXPECT_EQ(TextureOf(file), (ColorRows{{kRed, kGreen}, {kBlue, kWhite}}));
}

TEST_F(Dib, DecodedFilesHaveAPlainHeader) {
  BitmapFile runs;
  runs.headerBytes = 124;
  runs.width = 3;
  runs.bits = 4;
  runs.compression = 2;
  runs.colorsUsed = 2;
  runs.colors = {kRed, kBlue};
  runs.pixels = {3, 0x10, 0, 1};
  const TemporaryFile stored(Encode(runs));
  CDib dib(stored.Path());
  const BITMAPINFOHEADER* header = dib.GetDibInfoHeaderPtr();
  ASSERT_NE(header, nullptr);
  EXPECT_EQ(header->biSize, 40U);
  EXPECT_EQ(header->biPlanes, 1);
  EXPECT_EQ(header->biBitCount, 4);
  EXPECT_EQ(header->biCompression, BI_RGB);
  EXPECT_EQ(header->biSizeImage, 4U);
  EXPECT_EQ(header->biClrUsed, 2U);
  EXPECT_EQ(header->biYPelsPerMeter, 2836);
  const auto* start = reinterpret_cast<const unsigned char*>(header);
  EXPECT_EQ(reinterpret_cast<const unsigned char*>(dib.GetDibRGBTablePtr()), start + 40);
  const auto* bits = static_cast<const unsigned char*>(dib.GetDibBitsPtr());
  EXPECT_EQ(bits, start + 48);
  EXPECT_EQ(Bytes(bits, bits + 4), (Bytes{0x10, 0x10, 0, 0}));

  BitmapFile masks;
  masks.bits = 16;
  masks.compression = 3;
  masks.masks = {0xF800, 0x07E0, 0x001F};
  masks.pixels = {0x1F, 0, 0, 0};
  const TemporaryFile masked(Encode(masks));
  CDib maskedDib(masked.Path());
  EXPECT_EQ(maskedDib.GetDibInfoHeaderPtr()->biBitCount, 24);
  EXPECT_EQ(maskedDib.GetDibInfoHeaderPtr()->biCompression, BI_RGB);
  EXPECT_EQ(maskedDib.GetDibSizeImage(), 4U);

  BitmapFile core;
  core.headerBytes = 12;
  core.bits = 1;
  core.colors = {kRed, kBlue};
  core.pixels = {0x80, 0, 0, 0};
  const TemporaryFile shortHeader(Encode(core));
  CDib coreDib(shortHeader.Path());
  EXPECT_EQ(coreDib.GetDibInfoHeaderPtr()->biSize, 40U);
  EXPECT_EQ(coreDib.GetDibInfoHeaderPtr()->biBitCount, 1);
  EXPECT_EQ(coreDib.GetDibRGBTablePtr()[0].rgbRed, 255);
  EXPECT_EQ(coreDib.GetDibNumColors(), 2);
}

TEST_F(Dib, MakesAPaletteOfTheColorTable) {
  BitmapFile file;
  file.bits = 8;
  file.pixels = {0, 0, 0, 0};
  file.colorsUsed = 300;
  file.colors.assign(300, Rgb{1, 2, 3});
  const TemporaryFile stored(Encode(file));
  CDib dib(stored.Path());
  EXPECT_EQ(dib.GetDibPalette(), nullptr);  // not made yet
  CPalette* palette = dib.CreateDibPalette();
  ASSERT_NE(palette, nullptr);
  EXPECT_EQ(dib.GetDibPalette(), palette);
  EXPECT_EQ(palette->GetEntryCount(), 256);
  PALETTEENTRY entry{};
  EXPECT_EQ(palette->GetPaletteEntries(255, 1, &entry), 1U);
  EXPECT_EQ(entry.peRed, 1);
  EXPECT_EQ(entry.peGreen, 2);
  EXPECT_EQ(entry.peBlue, 3);
  EXPECT_EQ(dib.CreateDibPalette(), palette);  // made anew in its place
  EXPECT_EQ(palette->GetEntryCount(), 256);
}

TEST_F(Dib, AFileThatIsNoBitmapIsToldAndLeftEmpty) {
  for (const char* text :
       {"", "B", "MB0000000000000000000", "BM00000000000", "BX000000000000000"}) {
    const Bytes bytes(text, text + std::strlen(text));
    ExpectRefused(bytes, kNotABitmap);
  }
  // Nothing is waited for where there is no length.
  s_messages.clear();
  CDib endless("/dev/zero");
  ExpectEmpty(endless);
  EXPECT_EQ(s_messages, std::vector<std::string>{kNotABitmap});
}

TEST_F(Dib, WithoutANameNothingHappens) {
  CDib unnamed("");
  ExpectEmpty(unnamed);
  CDib null(nullptr);
  ExpectEmpty(null);
  EXPECT_EQ(unnamed.GetClassTag(), 909);
  EXPECT_TRUE(s_messages.empty());
}

TEST_F(Dib, AFileThatCannotBeOpenedIsAnError) {
  const CaughtError expected{5, 8, "LoadBitmapFile"};
  EXPECT_EQ(Catch([] { CDib dib("/no/such/file.bmp"); }), expected);
  EXPECT_EQ(Catch([] { CDib dib("/tmp"); }), expected);  // a folder
  EXPECT_TRUE(s_messages.empty());
}

TEST_F(Dib, DefaultsMakeItEmpty) {
  const TemporaryFile stored(Encode(FourColors()));
  CDib dib(stored.Path());
  ASSERT_NE(dib.TranslateDIBToOGL(nullptr), nullptr);
  dib.InitDefaults();
  ExpectEmpty(dib);
  EXPECT_EQ(dib.GetClassTag(), 909);
}

class RoundingDib : public CDib {
 public:
  RoundingDib() : CDib(nullptr) {}
  using CDib::LoadBitmapFile;
  using CDib::RoundSizeUp;
};

TEST_F(Dib, LoadingTakesThePlaceOfWhatThereWas) {
  const TemporaryFile stored(Encode(FourColors()));
  RoundingDib dib;
  dib.LoadBitmapFile(stored.Path());
  ASSERT_NE(dib.TranslateDIBToOGL(nullptr), nullptr);
  EXPECT_EQ(dib.GetDibWidth(), 2);
  EXPECT_EQ(Catch([&] { dib.LoadBitmapFile("/no/such/file.bmp"); }).type, 5);
  ExpectEmpty(dib);
}

TEST_F(Dib, TextureSizesArePowersOfTwo) {
  const std::vector<std::pair<int, int>> sizes{
      {-2147483647, 2}, {0, 2},    {1, 2},     {2, 2},       {3, 4},       {60, 64},
      {64, 64},         {65, 128}, {100, 128}, {8192, 8192}, {8193, 8192}, {2147483647, 8192}};
  for (const auto& [size, rounded] : sizes) EXPECT_EQ(RoundingDib::RoundSizeUp(size), rounded);
}

TEST_F(Dib, TexturesStretchThePicture) {
  BitmapFile file;
  file.width = 100;
  file.height = 60;
  // The left half red, the right half blue.
  std::vector<std::uint32_t> row(100, 0xFF0000);
  std::fill(row.begin() + 50, row.end(), 0x0000FF);
  file.pixels = PackRows(std::vector(60, row), 24);
  const TemporaryFile stored(Encode(file));
  CDib dib(stored.Path());
  const ColorRows texture = TextureOf(dib);
  EXPECT_EQ(dib.GetTextureWidth(), 128);
  EXPECT_EQ(dib.GetTextureHeight(), 64);
  EXPECT_EQ(texture[0][0], kRed);
  EXPECT_EQ(texture[63][63], kRed);
  EXPECT_EQ(texture[0][64], kBlue);
  EXPECT_EQ(texture[63][127], kBlue);

  BitmapFile dot;
  dot.pixels = {255, 0, 0, 0};
  EXPECT_EQ(TextureOf(dot), (ColorRows{{kBlue, kBlue}, {kBlue, kBlue}}));
}

TEST_F(Dib, LargeBitmapsAreShrunkIntoTheirTexture) {
  BitmapFile file;
  file.bits = 1;
  file.width = 40000;
  file.colors = {kRed, kBlue};
  file.pixels.assign(5000, 0);
  std::fill(file.pixels.begin() + 2500, file.pixels.end(), 0xFF);  // the right half
  const ColorRows texture = TextureOf(file);
  ASSERT_EQ(texture.size(), 2U);
  ASSERT_EQ(texture[0].size(), 8192U);
  EXPECT_EQ(texture[1][4095], kRed);
  EXPECT_EQ(texture[1][4096], kBlue);
}

class DibPainting : public DibTest {
 protected:
  DibPainting() : stored(Encode(FourColors())), dib(stored.Path()), pixels(16) {
    dc.CreateOnPixels(pixels.data(), 4, 4, 16);
  }
  int Paint(const RECT& destination, const RECT& source) {
    return dib.PaintDIB(dc.GetSafeHdc(), &destination, &source, nullptr);
  }

  const TemporaryFile stored;
  CDib dib;
  std::vector<std::uint32_t> pixels;
  CDC dc;
};

TEST_F(DibPainting, StretchesOverARectangle) {
  EXPECT_EQ(Paint({1, 0, 3, 4}, {0, 0, 2, 2}), 2);
  EXPECT_EQ(dc.GetPixel(0, 0), RGB(0, 0, 0));
  EXPECT_EQ(dc.GetPixel(1, 0), RGB(255, 0, 0));
  EXPECT_EQ(dc.GetPixel(2, 1), RGB(0, 255, 0));
  EXPECT_EQ(dc.GetPixel(1, 2), RGB(0, 0, 255));
  EXPECT_EQ(dc.GetPixel(2, 3), RGB(255, 255, 255));
  EXPECT_EQ(dc.GetPixel(3, 3), RGB(0, 0, 0));
}

TEST_F(DibPainting, CountsPartsFromTheRowThatStandsFirst) {
  EXPECT_EQ(Paint({0, 0, 1, 1}, {1, 0, 2, 1}), 2);
  EXPECT_EQ(dc.GetPixel(0, 0), RGB(255, 255, 255));  // lower right
}

TEST_F(DibPainting, MirrorsAndSurvivesAnyRectangle) {
  EXPECT_EQ(Paint({1, 0, -1, 2}, {0, 0, 2, 2}), 2);  // from x = 1 to the left
  EXPECT_EQ(dc.GetPixel(0, 0), RGB(0, 255, 0));
  const LONG low = -2147483647 - 1;
  const LONG high = 2147483647;
  EXPECT_EQ(Paint({low, low, high, high}, {low, low, high, high}), 2);
  EXPECT_EQ(Paint({0, 0, 0, 0}, {0, 0, 2, 2}), 2);
}

TEST_F(DibPainting, LeavesThePaletteOfTheDeviceAsItWas) {
  BitmapFile file;
  file.bits = 8;
  file.colorsUsed = 1;
  file.colors = {kGreen};
  file.pixels = {0, 0, 0, 0};
  const TemporaryFile indexed(Encode(file));
  CDib colored(indexed.Path());
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(2, 2, 8));
  CDC* windowDC = window.GetDC();
  const HPALETTE before = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
  const RECT whole{0, 0, 2, 2};
  const RECT dot{0, 0, 1, 1};
  EXPECT_EQ(colored.PaintDIB(windowDC->GetSafeHdc(), &whole, &dot, colored.CreateDibPalette()), 1);
  EXPECT_EQ(windowDC->GetPixel(1, 1), RGB(0, 255, 0));
  EXPECT_EQ(SelectPalette(windowDC->GetSafeHdc(), before, FALSE), before);
  window.ReleaseDC(windowDC);
}

TEST_F(DibPainting, RefusesWhatIsMissing) {
  const RECT rect{0, 0, 2, 2};
  EXPECT_EQ(dib.PaintDIB(nullptr, &rect, &rect, nullptr), 0);
  EXPECT_EQ(dib.PaintDIB(dc.GetSafeHdc(), nullptr, &rect, nullptr), 0);
  EXPECT_EQ(dib.PaintDIB(dc.GetSafeHdc(), &rect, nullptr, nullptr), 0);
  CDib empty("");
  EXPECT_EQ(empty.PaintDIB(dc.GetSafeHdc(), &rect, &rect, nullptr), 0);
}

}  // namespace
