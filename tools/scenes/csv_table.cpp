#include "scenes/csv_table.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace orvalix {
namespace {

std::vector<std::string> Split(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream in(line);
  for (std::string cell; std::getline(in, cell, ',');) cells.push_back(cell);
  return cells;
}

double ToNumber(const std::string& cell, const std::string& where) {
  std::size_t used = 0;
  double number = 0.0;
  try {
    number = std::stod(cell, &used);
  } catch (const std::exception&) {
    used = 0;
  }
  if (used == 0 || used != cell.size()) {
    throw std::runtime_error(where + ": \"" + cell + "\" is no number");
  }
  return number;
}

}  // namespace

CsvTable::CsvTable(const std::string& path) : m_path(path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("can't open " + path);
  int lineNumber = 0;
  for (std::string line; std::getline(file, line);) {
    ++lineNumber;
    if (line.empty() || line.front() == '#') continue;
    const std::vector<std::string> cells = Split(line);
    if (m_names.empty()) {
      m_names = cells;
      m_columns.resize(cells.size());
      continue;
    }
    const std::string where = path + ":" + std::to_string(lineNumber);
    if (cells.size() != m_names.size()) {
      throw std::runtime_error(where + ": expected " + std::to_string(m_names.size()) +
                               " values, found " + std::to_string(cells.size()));
    }
    for (std::size_t i = 0; i < cells.size(); ++i) {
      m_columns[i].push_back(ToNumber(cells[i], where));
    }
  }
}

const std::vector<double>& CsvTable::Column(const std::string& name) const {
  const auto at = std::find(m_names.begin(), m_names.end(), name);
  if (at == m_names.end()) throw std::runtime_error(m_path + ": no column \"" + name + "\"");
  return m_columns[static_cast<std::size_t>(at - m_names.begin())];
}

}  // namespace orvalix
