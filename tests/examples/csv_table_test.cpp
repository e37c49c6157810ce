#include "support/csv_table.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using examples::CsvGrid;
using examples::CsvTable;

class CsvFile {
 public:
  explicit CsvFile(const std::string& content)
      : m_path(::testing::TempDir() + "orvalix_table.csv") {
    std::ofstream(m_path) << content;
  }
  ~CsvFile() { std::remove(m_path.c_str()); }
  const std::string& Path() const { return m_path; }

 private:
  std::string m_path;
};

std::string ErrorOf(const std::string& content) {
  const CsvFile file(content);
  try {
    const CsvTable table(file.Path());
    table.Column("b");
  } catch (const std::runtime_error& error) {
    return std::string(error.what()).substr(file.Path().size());
  }
  return "none";
}

TEST(CsvTable, HasNoColumnsInAnEmptyFile) {
  const CsvFile file("# nothing\n");
  EXPECT_THROW(CsvTable(file.Path()).Column("a"), std::runtime_error);
}

TEST(CsvTable, ReadsColumnsByName) {
  const CsvFile file("# a note\na,b\n1,-2.5\n3,4e2\n");
  const CsvTable table(file.Path());
  EXPECT_EQ(table.Column("a"), (std::vector<double>{1, 3}));
  EXPECT_EQ(table.Column("b"), (std::vector<double>{-2.5, 400}));
}

TEST(CsvTable, SaysWhatIsWrongAndWhere) {
  EXPECT_EQ(ErrorOf("a,b\n1,2\n"), "none");
  EXPECT_EQ(ErrorOf("a,b\n1,2\n1\n"), ":3: expected 2 values, found 1");
  EXPECT_EQ(ErrorOf("a,b\n1,x\n"), ":2: \"x\" is no number");
  EXPECT_EQ(ErrorOf("a,b\n1,2y\n"), ":2: \"2y\" is no number");
  EXPECT_EQ(ErrorOf("a,c\n1,2\n"), ": no column \"b\"");
  EXPECT_THROW(CsvTable("/no/such/table.csv"), std::runtime_error);
}

TEST(CsvTable, ReadsRowsWhoseKeyBeginsSo) {
  const CsvFile file("day,a\n2012-01,1\n2012-02,2\n2013-01,3\n");
  const CsvTable table(file.Path());
  EXPECT_EQ(table.ColumnWhere("a", "day", "2012"), (std::vector<double>{1, 2}));
  EXPECT_EQ(table.ColumnWhere("a", "day", "2013-01"), (std::vector<double>{3}));
  EXPECT_TRUE(table.ColumnWhere("a", "day", "2014").empty());
  EXPECT_THROW(table.ColumnWhere("a", "month", "2012"), std::runtime_error);
}

TEST(CsvTable, ReadsTextColumns) {
  const CsvFile file("name,a\nx y,1\n,2\n");
  EXPECT_EQ(CsvTable(file.Path()).TextColumn("name"), (std::vector<std::string>{"x y", ""}));
}

TEST(CsvGrid, ReadsRowsOfEqualLength) {
  const CsvFile file("# a note\n1,2,3\n4,5,6\n");
  const CsvGrid grid(file.Path());
  EXPECT_EQ(grid.rows, 2);
  EXPECT_EQ(grid.columns, 3);
  EXPECT_EQ(grid.values, (std::vector<double>{1, 2, 3, 4, 5, 6}));
  const CsvFile uneven("1,2\n3\n");
  EXPECT_THROW(CsvGrid{uneven.Path()}, std::runtime_error);
  EXPECT_THROW(CsvGrid("/no/such/grid.csv"), std::runtime_error);
}

}  // namespace
