#include "fuzz/dib_seeds.h"

#include <cstddef>
#include <cstdint>

namespace orvalix::test {
namespace {

Bytes Uncompressed(std::uint32_t headerBytes, int bits) {
  BitmapFile file;
  file.headerBytes = headerBytes;
  file.width = 5;
  file.height = 3;
  file.bits = bits;
  if (bits <= 8) file.colors.assign(std::size_t{1} << bits, {9, 8, 7});
  file.pixels.assign(60, 0x5A);
  return Encode(file);
}

Bytes Masks(std::uint32_t headerBytes, int bits, std::uint32_t compression) {
  BitmapFile file;
  file.headerBytes = headerBytes;
  file.width = 3;
  file.height = -4;
  file.bits = bits;
  file.compression = compression;
  file.masks = {0xF800, 0x07E0, 0x001F};
  if (compression == 6) file.masks.push_back(0);
  file.pixels.assign(48, 0x33);
  return Encode(file);
}

Bytes Runs(int bits) {
  BitmapFile file;
  file.width = 6;
  file.height = 4;
  file.bits = bits;
  file.compression = bits == 8 ? 1 : 2;
  file.colorsUsed = 16;
  file.colors.assign(16, {1, 2, 3});
  file.pixels = {6, 5, 0, 0, 0, 3, 0x12, 0x34, 0x56, 0, 0, 2, 1, 1, 3, 0x71, 0, 0, 6, 2, 0, 1};
  return Encode(file);
}

}  // namespace

std::vector<Bytes> DibSeeds() {
  std::vector<Bytes> seeds{Runs(8), Runs(4)};
  for (const int bits : {1, 4, 8, 16, 24, 32}) {
    for (const std::uint32_t header : {12U, 40U, 108U}) seeds.push_back(Uncompressed(header, bits));
  }
  for (const int bits : {16, 32}) {
    for (const std::uint32_t header : {40U, 52U, 124U}) seeds.push_back(Masks(header, bits, 3));
    seeds.push_back(Masks(40, bits, 6));
  }
  return seeds;
}

}  // namespace orvalix::test
