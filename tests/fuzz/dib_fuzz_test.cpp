/// Small bitmap files of every format, changed at random: the same changes in every run.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "fuzz/dib_seeds.h"
#include "orvalix/render/dib.h"
#include "support/temporary_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using orvalix::test::Bytes;
using orvalix::test::DibSeeds;
using orvalix::test::TemporaryFile;

class Mutator {
 public:
  void Change(Bytes& bytes) {
    const int changes = 1 + Below(4);
    for (int i = 0; i < changes && !bytes.empty(); ++i) ChangeOnce(bytes);
  }
  int Below(std::size_t limit) { return static_cast<int>(m_random() % limit); }

 private:
  void ChangeOnce(Bytes& bytes) {
    constexpr std::size_t kHeaders = 70;
    const auto anywhere = static_cast<std::size_t>(Below(bytes.size()));
    const auto inHeaders = static_cast<std::size_t>(Below(std::min(bytes.size(), kHeaders)));
    switch (Below(6)) {
      case 0:
        bytes[anywhere] = static_cast<unsigned char>(m_random());
        break;
      case 1:
        bytes[anywhere] ^= static_cast<unsigned char>(1U << Below(8));
        break;
      case 2:
        bytes.resize(anywhere);
        break;
      case 3:
        bytes.insert(bytes.end(), bytes.begin() + static_cast<std::ptrdiff_t>(anywhere),
                     bytes.end());
        break;
      default:
        Overwrite(bytes, inHeaders);
    }
  }

  /// Puts a number that programs stumble over at a place in the headers.
  void Overwrite(Bytes& bytes, std::size_t at) {
    const std::vector<std::uint32_t> numbers{
        0,      1,      2,      3,          4,          6,          8,          12,
        16,     24,     32,     40,         64,         255,        256,        16385,
        0x7FFF, 0x8000, 0xFFFF, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, 0xFFFFFFFE, 0x10000};
    const std::uint32_t number = numbers[static_cast<std::size_t>(Below(numbers.size()))];
    for (std::size_t i = 0; i < 4 && at + i < bytes.size(); ++i) {
      bytes[at + i] = static_cast<unsigned char>(number >> (8 * i));
    }
  }

  std::mt19937 m_random{20240607};
};

TEST(DibFuzz, EverySeedIsABitmap) {
  for (const Bytes& seed : DibSeeds()) {
    const TemporaryFile file(seed);
    const CDib dib(file.Path());
    EXPECT_GT(dib.GetDibWidth(), 0);
  }
}

TEST(DibFuzz, NoBytesAreADanger) {
  constexpr int kRuns = 30000;
  const std::vector<Bytes> seeds = DibSeeds();
  Mutator mutator;
  for (const Bytes& seed : seeds) LLVMFuzzerTestOneInput(seed.data(), seed.size());
  for (int run = 0; run < kRuns; ++run) {
    Bytes bytes = seeds[static_cast<std::size_t>(mutator.Below(seeds.size()))];
    mutator.Change(bytes);
    ASSERT_EQ(LLVMFuzzerTestOneInput(bytes.data(), bytes.size()), 0) << "run " << run;
  }
}

}  // namespace
