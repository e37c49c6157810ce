/// docs/chart-file.md against the library's own readers: which fields there are, in which order,
/// and how many bytes they take.

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "orvalix/orvalix.h"
#include "support/record_fixture.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::LoadFrom;
using orvalix::test::RecordFixture;
using orvalix::test::TemporaryFile;

const std::map<CErr3DClass, std::string> kClasses{
    {ERR3DCLASS_AUXOBJ3D, "CAuxObj3D"},       {ERR3DCLASS_AXES3D, "CAxes3D"},
    {ERR3DCLASS_AXIS3D, "CAxis3D"},           {ERR3DCLASS_AXISLABELS3D, "CAxisLabels3D"},
    {ERR3DCLASS_CHART3D, "CChart3D"},         {ERR3DCLASS_CHARTOBJ3D, "CChartObj3D"},
    {ERR3DCLASS_CHARTVIEW3D, "CChartView3D"}, {ERR3DCLASS_DIBOBJ3D, "CDIBObj3D"},
    {ERR3DCLASS_FONT3D, "CFont3D"},           {ERR3DCLASS_HEADER3D, "CHeader3D"},
    {ERR3DCLASS_LEGEND3D, "CLegend3D"},       {ERR3DCLASS_LEGENDOBJ3D, "CLegendObj3D"},
    {ERR3DCLASS_POLYSURFACE, "CPolysurface"}, {ERR3DCLASS_TEXTOBJ3D, "CTextObj3D"},
    {ERR3DCLASS_TRANSFORM3D, "CTransform3D"},
};

/// A line of a table.
struct Row {
  std::string name;
  std::string type;
  bool isRecord = false;  ///< in bold: records that stand here

  bool Says(const std::string& words) const { return type.find(words) != std::string::npos; }
  /// Whether a file need not have it.
  bool CanBeMissing() const { return type.starts_with("array") || Says("that many") || isRecord; }
  /// Whether there can be several, one after another.
  bool CanRepeat() const { return Says("times") || Says("records"); }
};

using Table = std::vector<Row>;

std::string Trimmed(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(' ');
  return begin == std::string::npos ? ""
                                    : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

Row RowIn(const std::string& line) {
  std::istringstream cells(line.substr(1));
  Row row;
  std::getline(cells, row.name, '|');
  std::getline(cells, row.type, '|');
  row.name = Trimmed(row.name);
  row.type = Trimmed(row.type);
  row.isRecord = row.name.starts_with("**");
  return row;
}

/// Writes out "N times the M fields below".
Table WithoutLoops(const Table& table) {
  Table flat;
  for (std::size_t i = 0; i < table.size(); ++i) {
    const std::size_t the = table[i].type.find(" times the ");
    if (the == std::string::npos) {
      flat.push_back(table[i]);
      continue;
    }
    const auto fields =
        static_cast<std::ptrdiff_t>(std::strtol(table[i].type.c_str() + the + 11, nullptr, 10));
    const auto first = table.begin() + static_cast<std::ptrdiff_t>(i) + 1;
    for (int times = std::atoi(table[i].type.c_str()); times > 0; --times) {
      flat.insert(flat.end(), first, first + fields);
    }
    i += static_cast<std::size_t>(fields);
  }
  return flat;
}

/// The tables of the document by the headings above them.
std::map<std::string, Table> ReadDocument() {
  std::ifstream file(ORVALIX_CHART_FILE_DOCUMENT);
  EXPECT_TRUE(file.is_open());
  std::map<std::string, Table> tables;
  std::string heading;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("## ")) heading = line.substr(3);
    const bool isHead = line.starts_with("| Field ") || line.starts_with("|---");
    if (line.starts_with("| ") && !isHead) tables[heading].push_back(RowIn(line));
  }
  for (auto& [name, table] : tables) table = WithoutLoops(table);
  return tables;
}

/// Bytes of "real", "3 integers", "array of colour" or "12 times 4 integers"; of arrays those of an
/// element; 0: any number.
std::uint64_t BytesOf(const std::string& type) {
  static const std::map<std::string, std::uint64_t> kBytes{
      {"integer", 4},    {"real", 8},      {"point", 32}, {"colour", 32},
      {"rectangle", 32}, {"viewport", 16}, {"text", 0},   {"texts", 0}};
  const std::size_t bytesAt = type.find(" bytes each");
  if (bytesAt != std::string::npos) {
    return std::strtoul(type.c_str() + type.rfind(' ', bytesAt - 1) + 1, nullptr, 10);
  }
  std::istringstream words(type);
  std::uint64_t count = 1;
  std::string last;
  for (std::string word; words >> word; last = word) {
    const std::uint64_t number = std::strtoul(word.c_str(), nullptr, 10);
    if (number != 0) count = number;  // the last one: "12 times 4"
  }
  const auto found =
      kBytes.find(last.back() == 's' && last != "texts" ? last.substr(0, last.size() - 1) : last);
  EXPECT_NE(found, kBytes.end()) << "unknown type: " << type;
  return found == kBytes.end() ? 0 : count * found->second;
}

/// Walks along the tables while records are read.
class DocumentReader : public CRecordTrace {
 public:
  explicit DocumentReader(const std::map<std::string, Table>& tables) : m_tables(tables) {}

  void BeginRecord(CErr3DClass recordClass, std::uint64_t) override {
    const std::string name = kClasses.at(recordClass);
    if (!m_open.empty()) Advance(name, true);
    ASSERT_TRUE(m_tables.contains(name)) << name;
    m_open.push_back({name, 0, false});
  }
  void EndRecord(std::uint64_t) override {
    Place& place = m_open.back();
    if (place.used) ++place.row;
    for (; place.row < TableOf(place).size(); ++place.row) ExpectSkippable(place);
    m_open.pop_back();
  }
  void BeginField(const char* name, std::uint64_t offset) override {
    Advance(name, false);
    m_begin = offset;
  }
  void EndField(const std::string&, std::uint64_t offset) override {
    const Place& place = m_open.back();
    if (place.row >= TableOf(place).size()) return;
    const Row& row = TableOf(place)[place.row];
    const std::uint64_t bytes = BytesOf(row.type);
    const std::uint64_t taken = offset - m_begin;
    if (bytes == 0) return;
    EXPECT_EQ(row.type.starts_with("array") ? taken % bytes : taken - bytes, 0U)
        << place.name << ": " << row.name << " takes " << taken << " bytes";
  }
  void MissField() override { ADD_FAILURE() << "a file that ends too early"; }

  /// Rows that some record had, by name of class and row.
  std::set<std::pair<std::string, std::string>> seen;

 private:
  struct Place {
    std::string name;  ///< of the class
    std::size_t row;
    bool used;  ///< whether that row has been told
  };

  const Table& TableOf(const Place& place) const { return m_tables.at(place.name); }
  void ExpectSkippable(const Place& place) const {
    const Row& row = TableOf(place)[place.row];
    EXPECT_TRUE(row.CanBeMissing()) << place.name << ": there is no \"" << row.name << "\"";
  }
  bool Fits(const Place& place, const std::string& name, bool isRecord) const {
    if (place.row >= TableOf(place).size()) return false;
    const Row& row = TableOf(place)[place.row];
    if (row.isRecord != isRecord) return false;
    return isRecord ? row.Says(name + " record") : row.name == name;
  }
  /// To the row of that field, or of a record of that class.
  void Advance(const std::string& name, bool isRecord) {
    Place& place = m_open.back();
    const bool again =
        place.used && Fits(place, name, isRecord) && TableOf(place)[place.row].CanRepeat();
    if (place.used && !again) ++place.row;
    place.used = true;
    for (; place.row < TableOf(place).size() && !Fits(place, name, isRecord); ++place.row) {
      ExpectSkippable(place);
    }
    ASSERT_LT(place.row, TableOf(place).size()) << place.name << ": no place for \"" << name << '"';
    seen.emplace(place.name, TableOf(place)[place.row].name);
  }

  const std::map<std::string, Table>& m_tables;
  std::vector<Place> m_open;  ///< records that have begun, the outermost first
  std::uint64_t m_begin = 0;
};

TEST(ChartFileDocument, TellsTheFieldsInOrder) {
  const std::map<std::string, Table> tables = ReadDocument();
  DocumentReader reader(tables);
  const TemporaryFile file(RecordFixture("chart_view_3d").AllBytes());
  CChartView3D view;
  view.Load(file.Path());
  CFont3D font;
  LoadFrom(font, RecordFixture("font_3d").AllBytes());
  for (const auto& [errClass, name] : kClasses) {
    ASSERT_TRUE(tables.contains(name)) << name;
    for (const Row& row : tables.at(name)) {
      EXPECT_TRUE(reader.seen.contains({name, row.name})) << name << ": " << row.name;
    }
  }
}

}  // namespace
