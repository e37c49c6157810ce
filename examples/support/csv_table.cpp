#include "support/csv_table.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>

namespace examples {
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

std::string Where(const std::string& path, int line) { return path + ":" + std::to_string(line); }

void RequireCells(std::size_t expected, std::size_t found, const std::string& where) {
  if (found == expected) return;
  throw std::runtime_error(where + ": expected " + std::to_string(expected) + " values, found " +
                           std::to_string(found));
}

/// Calls `use` with the number and the cells of each line that isn't a note.
void ReadLines(const std::string& path,
               const std::function<void(int, std::vector<std::string>)>& use) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("can't open " + path);
  int lineNumber = 0;
  for (std::string line; std::getline(file, line);) {
    ++lineNumber;
    if (line.empty() || line.front() == '#') continue;
    use(lineNumber, Split(line));
  }
}

}  // namespace

CsvTable::CsvTable(const std::string& path) : m_path(path) {
  ReadLines(path, [this](int line, std::vector<std::string> cells) {
    if (m_names.empty()) {
      m_names = std::move(cells);
      return;
    }
    RequireCells(m_names.size(), cells.size(), Where(m_path, line));
    m_rows.push_back({line, std::move(cells)});
  });
}

std::size_t CsvTable::Find(const std::string& name) const {
  const auto at = std::find(m_names.begin(), m_names.end(), name);
  if (at == m_names.end()) throw std::runtime_error(m_path + ": no column \"" + name + "\"");
  return static_cast<std::size_t>(at - m_names.begin());
}

std::vector<double> CsvTable::Column(const std::string& name) const {
  return ColumnWhere(name, name, "");
}

std::vector<double> CsvTable::ColumnWhere(const std::string& name, const std::string& key,
                                          const std::string& prefix) const {
  const std::size_t column = Find(name);
  const std::size_t keyColumn = Find(key);
  std::vector<double> numbers;
  for (const Row& row : m_rows) {
    if (!row.cells[keyColumn].starts_with(prefix)) continue;
    numbers.push_back(ToNumber(row.cells[column], Where(m_path, row.line)));
  }
  return numbers;
}

std::vector<point3Dtype> CsvTable::Points(const std::string& x, const std::string& y,
                                          const std::string& z, const std::string& v) const {
  const std::vector<double> xs = Column(x);
  const std::vector<double> ys = Column(y);
  const std::vector<double> zs = Column(z);
  const std::vector<double> vs = Column(v);
  std::vector<point3Dtype> points;
  for (std::size_t i = 0; i < xs.size(); ++i) points.push_back({xs[i], ys[i], zs[i], vs[i]});
  return points;
}

std::vector<std::string> CsvTable::TextColumn(const std::string& name) const {
  const std::size_t column = Find(name);
  std::vector<std::string> texts;
  for (const Row& row : m_rows) texts.push_back(row.cells[column]);
  return texts;
}

CsvGrid::CsvGrid(const std::string& path) {
  ReadLines(path, [&](int line, const std::vector<std::string>& cells) {
    const std::string where = Where(path, line);
    if (rows == 0) columns = static_cast<int>(cells.size());
    RequireCells(static_cast<std::size_t>(columns), cells.size(), where);
    for (const std::string& cell : cells) values.push_back(ToNumber(cell, where));
    ++rows;
  });
}

}  // namespace examples
