/// @file
/// Real data from a file of comma-separated values.
#pragma once

#include <string>
#include <vector>

namespace orvalix {

/// Columns of numbers under the names of the first line. Lines that begin with # are notes.
class CsvTable {
 public:
  /// @throws std::runtime_error naming the file, and the line, when it can't be read
  explicit CsvTable(const std::string& path);

  /// @throws std::runtime_error when there is no column of that name
  const std::vector<double>& Column(const std::string& name) const;

 private:
  std::string m_path;
  std::vector<std::string> m_names;
  std::vector<std::vector<double>> m_columns;
};

}  // namespace orvalix
