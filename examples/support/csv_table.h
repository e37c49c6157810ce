/// @file
/// Real data from files of comma-separated values. Lines that begin with # are notes.
#pragma once

#include <string>
#include <vector>

#include "orvalix/foundation/value_types.h"

namespace examples {

/// Columns under the names of the first line.
class CsvTable {
 public:
  /// @throws std::runtime_error naming the file, and the line, when it can't be read
  explicit CsvTable(const std::string& path);

  /// @throws std::runtime_error when there is no column of that name, or of other than numbers
  std::vector<double> Column(const std::string& name) const;
  /// The numbers of those rows whose text in the column `key` begins with `prefix`.
  std::vector<double> ColumnWhere(const std::string& name, const std::string& key,
                                  const std::string& prefix) const;
  /// A point for each row, with the numbers of four columns.
  std::vector<point3Dtype> Points(const std::string& x, const std::string& y, const std::string& z,
                                  const std::string& v) const;
  /// @throws std::runtime_error when there is no column of that name
  std::vector<std::string> TextColumn(const std::string& name) const;

 private:
  struct Row {
    int line;  ///< in the file, from 1
    std::vector<std::string> cells;
  };

  std::size_t Find(const std::string& name) const;

  std::string m_path;
  std::vector<std::string> m_names;
  std::vector<Row> m_rows;
};

/// Numbers in rows of equal length, without names.
struct CsvGrid {
  /// @throws std::runtime_error naming the file, and the line, when it can't be read
  explicit CsvGrid(const std::string& path);

  int rows = 0;
  int columns = 0;
  std::vector<double> values;  ///< row by row
};

}  // namespace examples
