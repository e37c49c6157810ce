#include "scenes/map_picture.h"

#include <unistd.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "scenes/chart_style.h"

namespace orvalix {
namespace {

void AppendNumber(std::string& bytes, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) bytes.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
}

/// Header of the file and of the bitmap, of 24 bits per pixel.
std::string Headers(const CsvGrid& grid, std::uint32_t rowBytes) {
  constexpr std::uint32_t kInfoBytes = 40;
  constexpr std::uint32_t kHeaderBytes = 14 + kInfoBytes;
  const std::uint32_t pixelBytes = rowBytes * static_cast<std::uint32_t>(grid.rows);
  std::string bytes = "BM";
  for (const std::uint32_t value :
       {kHeaderBytes + pixelBytes, 0U, kHeaderBytes, kInfoBytes,
        static_cast<std::uint32_t>(grid.columns), static_cast<std::uint32_t>(grid.rows)}) {
    AppendNumber(bytes, value, 4);
  }
  AppendNumber(bytes, 1, 2);
  AppendNumber(bytes, 24, 2);
  for (const std::uint32_t value : {0U, pixelBytes, 0U, 0U, 0U, 0U}) AppendNumber(bytes, value, 4);
  return bytes;
}

std::string Encode(const CsvGrid& grid, double most, const std::vector<RGBDType>& ramp) {
  const auto columns = static_cast<std::size_t>(grid.columns);
  const std::size_t rowBytes = (columns * 3 + 3) / 4 * 4;
  std::string bytes = Headers(grid, static_cast<std::uint32_t>(rowBytes));
  for (std::size_t row = static_cast<std::size_t>(grid.rows); row-- > 0;) {
    const std::size_t begin = bytes.size();
    for (std::size_t column = 0; column < columns; ++column) {
      const RGBDType color = RampColor(ramp, grid.values[row * columns + column] / most);
      for (const double part : {color.blue, color.green, color.red}) {
        bytes.push_back(static_cast<char>(std::lround(part * 255.0)));
      }
    }
    bytes.resize(begin + rowBytes);
  }
  return bytes;
}

}  // namespace

MapPicture::MapPicture(const CsvGrid& grid, double most, const std::vector<RGBDType>& ramp)
    : m_path((std::filesystem::temp_directory_path() /
              ("orvalix_map_" + std::to_string(::getpid()) + ".bmp"))
                 .string()) {
  const std::string bytes = Encode(grid, most, ramp);
  std::ofstream file(m_path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) throw std::runtime_error("can't write " + m_path);
}

MapPicture::~MapPicture() {
  std::error_code ignored;
  std::filesystem::remove(m_path, ignored);
}

}  // namespace orvalix
