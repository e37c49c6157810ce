/// Writes the bitmap files that fuzzing begins with into a folder.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "fuzz/dib_seeds.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: write_dib_seeds FOLDER\n";
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  int number = 0;
  for (const orvalix::test::Bytes& seed : orvalix::test::DibSeeds()) {
    const std::filesystem::path path = folder / ("seed_" + std::to_string(number++) + ".bmp");
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(seed.data()),
               static_cast<std::streamsize>(seed.size()));
    if (!file.flush()) {
      std::cerr << "write_dib_seeds: can't write " << path << "\n";
      return 1;
    }
  }
  return 0;
}
