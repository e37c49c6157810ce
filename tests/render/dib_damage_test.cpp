/// Files that lie: each gives an empty object and a message, within bounded memory.

#include "render/dib_fixture.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"

namespace {

using namespace orvalix::test;

class DibDamage : public DibTest {};

/// 1 x 1, 8 bits, two colours.
BitmapFile Indexed() {
  BitmapFile file;
  file.bits = 8;
  file.colorsUsed = 2;
  file.colors = {{255, 0, 0}, {0, 0, 255}};
  file.pixels = {1, 0, 0, 0};
  return file;
}

BitmapFile Runs() {
  BitmapFile file = Indexed();
  file.compression = 1;
  file.pixels = {1, 1, 0, 1};
  return file;
}

BitmapFile Masks() {
  BitmapFile file;
  file.bits = 16;
  file.compression = 3;
  file.masks = {0xF800, 0x07E0, 0x001F};
  file.pixels = {0, 0, 0, 0};
  return file;
}

BitmapFile Core() {
  BitmapFile file = Indexed();
  file.headerBytes = 12;
  file.bits = 1;
  file.colorsUsed = 0;
  return file;
}

TEST_F(DibDamage, TheseAreWholeAsTheyStand) {
  for (const BitmapFile& file : {FourColors(), Indexed(), Runs(), Masks(), Core()}) {
    EXPECT_FALSE(TextureOf(file).empty());
  }
  EXPECT_TRUE(s_messages.empty());
}

TEST_F(DibDamage, CutAnywhere) {
  constexpr std::size_t kFileHeader = 14;
  for (const BitmapFile& file : {FourColors(), Indexed(), Masks(), Core()}) {
    const Bytes bytes = Encode(file);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
      const Bytes cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
      ExpectRefused(cut, length < kFileHeader ? kNotABitmap : kDamaged);
    }
  }
  // Runs are told to end early, as far as they could fill the picture.
  const Bytes bytes = Encode(Runs());
  for (std::size_t length = 0; length < bytes.size() - 3; ++length) {
    const Bytes cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
    ExpectRefused(cut, length < kFileHeader ? kNotABitmap : kDamaged);
  }
}

TEST_F(DibDamage, SizesThatTheFileDoesNotHold) {
  const int lowest = -2147483647 - 1;
  for (BitmapFile file : {FourColors(), Indexed(), Runs(), Masks()}) {
    const int height = file.height;
    for (const int size : {0, -1, lowest, 1000000, 2147483647}) {
      file.width = size;
      ExpectDamaged(file);
    }
    file.width = 1;
    for (const int size : {0, lowest, 1000000, -1000000, 2147483647}) {
      file.height = size;
      ExpectDamaged(file);
    }
    file.width = 2147483647;
    ExpectDamaged(file);
    file.width = 1;
    file.height = height + 1000;
    ExpectDamaged(file);
  }
  BitmapFile core = Core();
  core.width = 0;
  ExpectDamaged(core);
  core.width = 65535;
  ExpectDamaged(core);
  core.width = 1;
  core.height = 0;
  ExpectDamaged(core);
}

TEST_F(DibDamage, HeadersAndFormatsThatAreNotKnown) {
  for (const std::uint32_t bytes : {0U, 11U, 13U, 16U, 39U, 41U, 125U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    Bytes file = Encode(FourColors());
    for (std::size_t i = 0; i < 4; ++i) {
      file[14 + i] = static_cast<unsigned char>(bytes >> (8 * i));
    }
    ExpectRefused(file, kDamaged);
  }
  for (const int bits : {0, 2, 3, 15, 48, 64, 65535}) {
    BitmapFile file = FourColors();
    file.bits = bits;
    ExpectDamaged(file);
  }
  // Runs and masks belong to certain depths; 4 and 5 hold other kinds of files.
  const std::vector<std::pair<std::uint32_t, int>> wrong{{1, 4},  {1, 24}, {2, 8},          {2, 1},
                                                         {3, 24}, {3, 8},  {6, 24},         {4, 24},
                                                         {5, 24}, {7, 24}, {0xFFFFFFFF, 24}};
  for (const auto& [compression, bits] : wrong) {
    BitmapFile file = FourColors();
    file.compression = compression;
    file.bits = bits;
    file.masks = {0xFF0000, 0x00FF00, 0x0000FF};
    file.gap.assign(2000, 0);
    ExpectDamaged(file);
  }
  // A header of 64 bytes says something else where others have masks.
  BitmapFile other = Masks();
  other.headerBytes = 64;
  ExpectDamaged(other);
}

TEST_F(DibDamage, ColorTablesThatTheFileDoesNotHold) {
  for (const std::uint32_t used : {100U, 0x40000000U, 0x80000000U, 0xFFFFFFFFU}) {
    for (BitmapFile file : {FourColors(), Indexed(), Runs(), Masks()}) {
      file.colorsUsed = used;
      ExpectDamaged(file);
    }
  }
  BitmapFile without = Indexed();
  without.colorsUsed = 0;  // 256
  ExpectDamaged(without);
  for (const std::uint32_t offset : {1000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    BitmapFile file = FourColors();
    file.offset = offset;
    ExpectDamaged(file);
  }
}

TEST_F(DibDamage, MasksWithHolesOrWithoutAnyBit) {
  const std::vector<std::vector<std::uint32_t>> wrong{
      {0, 0, 0}, {0xA000, 0x07E0, 0x001F}, {0xF800, 0x0420, 0x001F}, {0xF800, 0x07E0, 0x0011}};
  for (const auto& masks : wrong) {
    BitmapFile file = Masks();
    file.masks = masks;
    ExpectDamaged(file);
  }
  // Masks that share bits, or lie outside of the pixel, are no danger.
  BitmapFile odd = Masks();
  odd.masks = {0xFFFFFFFF, 0xFFFF0000, 0xFFFF};
  odd.pixels = {0xFF, 0xFF, 0, 0};
  EXPECT_EQ(TextureOf(odd)[0][0], (Rgb{0, 0, 255}));
}

TEST_F(DibDamage, RunsCannotClaimMoreThanTheyCanFill) {
  // 4 bytes of runs fill 2 * 255 pixels, for which 512 bytes are granted.
  BitmapFile file = Runs();
  file.width = 512;
  EXPECT_FALSE(TextureOf(file).empty());
  EXPECT_TRUE(s_messages.empty());
  file.width = 513;
  ExpectDamaged(file);
  file.width = 4;
  file.height = 129;
  ExpectDamaged(file);
  // A full picture of the longest runs is never refused.
  BitmapFile full = Runs();
  full.width = 255;
  full.height = 4;
  full.pixels = {255, 1, 255, 1, 255, 1, 255, 1};
  s_messages.clear();
  // Rows follow one another only through their ends, so the runs above lie outside of the first.
  EXPECT_EQ(TextureOf(full).size(), 4U);
  EXPECT_TRUE(s_messages.empty());
}

TEST_F(DibDamage, MemoryIsBoundedByTheFile) {
  const auto largest = [](const BitmapFile& file) {
    const TemporaryFile stored(Encode(file));
    const AllocationMeter meter;
    const CDib dib(stored.Path());
    return meter.Largest();
  };
  BitmapFile wide = FourColors();
  wide.pixels.assign(100000, 0);
  for (const int width : {2, 30000, 1000000000, 2147483647}) {
    wide.width = width;
    EXPECT_LE(largest(wide), 101000U) << width;
  }
  BitmapFile runs = Runs();
  runs.pixels.assign(1000, 0);
  for (const int width : {1, 1000, 128000, 128001, 1000000000}) {
    runs.width = width;
    EXPECT_LE(largest(runs), 128U * 1100U) << width;
  }
  BitmapFile masks = Masks();
  masks.width = 2;
  masks.height = 10000;
  masks.pixels.assign(40000, 0);
  EXPECT_LE(largest(masks), 2U * 40100U);
  BitmapFile colors = Indexed();
  colors.colorsUsed = 0x0FFFFFFF;
  EXPECT_LE(largest(colors), 1000U);
}

TEST_F(DibDamage, TexturesAreBoundedByTheFile) {
  constexpr std::size_t kAlways = std::size_t{16} << 20;
  const auto sides = [](const BitmapFile& file, std::size_t most) {
    const TemporaryFile stored(Encode(file));
    CDib dib(stored.Path());
    const AllocationMeter meter;
    EXPECT_NE(dib.TranslateDIBToOGL(nullptr), nullptr);
    EXPECT_LE(meter.Largest(), most + 2000);
    return std::pair(dib.GetTextureWidth(), dib.GetTextureHeight());
  };
  // 66,000 bytes of runs could fill 8000 x 1000 pixels; a texture of 8192 x 1024 has 32 MiB.
  BitmapFile runs = Runs();
  runs.width = 8000;
  runs.height = 1000;
  runs.pixels.assign(66000, 0);
  EXPECT_EQ(sides(runs, kAlways), std::pair(4096, 1024));
  // Twice as many bytes don't reach 32 MiB / 64; eight times as many do.
  runs.pixels.assign(132000, 0);
  EXPECT_EQ(sides(runs, kAlways), std::pair(4096, 1024));
  runs.pixels.assign(528000, 0);
  EXPECT_EQ(sides(runs, 2 * kAlways), std::pair(8192, 1024));
}

TEST_F(DibDamage, MemoryThatRunsOutIsAnError) {
  const TemporaryFile runs(Encode(Runs()));
  const CaughtError noFile{5, 8, "LoadBitmapFile"};  // the file's name is copied first
  const CaughtError noMemory{1, 8, "LoadBitmapFile"};
  int errors = 0;
  const int failures = FailEachAllocation([&] {
    const CaughtError error = Catch([&] { const CDib dib(runs.Path()); });
    if (error == kNoError) return;
    EXPECT_TRUE(error == noMemory || error == noFile) << error;
    errors += error == noMemory;
  });
  EXPECT_GE(failures, 2);
  EXPECT_GE(errors, 2);  // the file and the decoded bitmap
  EXPECT_TRUE(s_messages.empty());
}

TEST_F(DibDamage, PalettesAndTexturesWithoutMemoryAreErrors) {
  BitmapFile file = Indexed();
  const TemporaryFile stored(Encode(file));
  CDib dib(stored.Path());
  CPalette* palette = dib.CreateDibPalette();
  const int paletteFailures = FailEachAllocation([&] {
    const CaughtError error = Catch([&] { dib.CreateDibPalette(); });
    EXPECT_TRUE(error == kNoError || error == (CaughtError{2, 8, "CreateDibPalette"})) << error;
    EXPECT_EQ(palette->GetEntryCount(), 2);
  });
  EXPECT_GE(paletteFailures, 2);
  // The first device context makes the default palette, which can do without part of its memory.
  dib.TranslateDIBToOGL(palette);
  int errors = 0;
  const int failures = FailEachAllocation([&] {
    const CaughtError error = Catch([&] { dib.TranslateDIBToOGL(palette); });
    if (error == kNoError) return;
    EXPECT_EQ(error, (CaughtError{2, 8, "TranslateDIBToOGL"}));
    ++errors;
  });
  EXPECT_GE(errors, 3);  // device context, section, texture
  EXPECT_EQ(errors, failures);
  EXPECT_EQ(TextureOf(dib)[0][0], kBlue);
}

}  // namespace
