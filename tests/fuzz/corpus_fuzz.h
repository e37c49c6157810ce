/// @file
/// The seeds of a fuzz target, changed at random: the same changes in every run.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace orvalix::test {

/// The files of the folder corpus/<name>/.
inline std::vector<std::vector<std::uint8_t>> Seeds() {
  using Bytes = std::vector<std::uint8_t>;
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(ORVALIX_CORPUS_FOLDER)) {
    paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  std::vector<Bytes> seeds;
  for (const auto& path : paths) {
    std::ifstream in(path, std::ios::binary);
    seeds.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return seeds;
}

class Mutator {
 public:
  using Bytes = std::vector<std::uint8_t>;

  std::size_t Below(std::size_t limit) { return m_random() % limit; }

  void Change(Bytes& bytes, const Bytes& other) {
    for (std::size_t changes = 1 + Below(4); changes > 0 && !bytes.empty(); --changes) {
      ChangeOnce(bytes, other);
    }
  }

 private:
  void ChangeOnce(Bytes& bytes, const Bytes& other) {
    const std::size_t at = Below(bytes.size());
    const auto place = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    switch (Below(6)) {
      case 0:
        bytes[at] = static_cast<std::uint8_t>(m_random());
        break;
      case 1:
        bytes.resize(at);
        break;
      case 2:  // moves what follows
        bytes.erase(place,
                    place + static_cast<std::ptrdiff_t>(std::min(bytes.size() - at, Below(64))));
        break;
      case 3:
        std::copy_n(other.begin(), std::min(bytes.size() - at, other.size()), place);
        break;
      default:
        Overwrite(bytes, at);
    }
  }

  /// Puts a number that programs stumble over where numbers stand.
  void Overwrite(Bytes& bytes, std::size_t at) {
    constexpr std::array<std::uint32_t, 12> kNumbers{
        0,       1,          2,          3,          255,        65536,
        1000000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, 0x7FF00000, 0x7FF80000};
    const std::uint32_t number = kNumbers[Below(kNumbers.size())];
    at = at / 4 * 4;
    for (std::size_t i = 0; i < 4 && at + i < bytes.size(); ++i) {
      bytes[at + i] = static_cast<std::uint8_t>(number >> (8 * i));
    }
  }

  std::mt19937 m_random{20240607};
};

/// Calls the target with every seed, and then with changed ones.
inline void TryChangedSeeds(int runs) {
  const auto seeds = Seeds();
  ASSERT_GE(seeds.size(), 3U);
  for (const auto& seed : seeds) LLVMFuzzerTestOneInput(seed.data(), seed.size());
  Mutator mutator;
  for (int run = 0; run < runs; ++run) {
    auto bytes = seeds[mutator.Below(seeds.size())];
    mutator.Change(bytes, seeds[mutator.Below(seeds.size())]);
    ASSERT_EQ(LLVMFuzzerTestOneInput(bytes.data(), bytes.size()), 0) << "run " << run;
  }
}

}  // namespace orvalix::test
