/// @file
/// Maps as bitmap files.
#pragma once

#include <string>
#include <vector>

#include "orvalix/orvalix.h"
#include "scenes/csv_table.h"

namespace orvalix {

/// A bitmap file of 24 bits in the folder for temporary files, gone at the end: one pixel for each
/// value of a grid, its first row at the top.
class MapPicture {
 public:
  /// @param ramp colours from 0 to `most`
  /// @throws std::runtime_error naming the file when it can't be written
  MapPicture(const CsvGrid& grid, double most, const std::vector<RGBDType>& ramp);
  ~MapPicture();
  MapPicture(const MapPicture&) = delete;
  MapPicture& operator=(const MapPicture&) = delete;

  CString Path() const { return m_path.c_str(); }

 private:
  std::string m_path;
};

}  // namespace orvalix
