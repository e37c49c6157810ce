#include "scenes/scenes.h"

#include <gtest/gtest.h>

#include <fstream>
#include <ostream>
#include <set>
#include <stdexcept>
#include <string>

#include "orvalix/orvalix.h"
#include "scenes/csv_table.h"
#include "support/golden.h"
#include "support/temporary_file.h"
#include "support/view_picture.h"

namespace orvalix {

/// Test names show this instead of the scene's bytes.
void PrintTo(const Scene& scene, std::ostream* out) { *out << scene.name; }

}  // namespace orvalix

namespace {

using orvalix::CsvGrid;
using orvalix::CsvTable;
using orvalix::Scene;

/// Pictures are stored at half the size of the gallery's.
constexpr int kReduction = 2;

class SceneTest : public ::testing::TestWithParam<Scene> {
 protected:
  SceneTest() {
    window.CreateOffscreen(GetParam().width / kReduction, GetParam().height / kReduction);
    view = std::make_unique<CChartView3D>(&window);
    GetParam().build(*view, ORVALIX_DATA_FOLDER);
    view->DrawViewScreen();
  }

  CWnd window;
  std::unique_ptr<CChartView3D> view;
};

TEST_P(SceneTest, LooksAsStored) {
  orvalix::test::ExpectGoldenPicture(orvalix::TakePicture(*view), GetParam().name);
}

/// Gathered drawings differ from those sent one by one in single pixels at edges.
constexpr double kMostDifferingPixels = 0.001;

TEST_P(SceneTest, LooksTheSameGatheredAndOneByOne) {
  const orvalix::Picture first = orvalix::TakePicture(*view);
  view->DrawViewScreen();  // of what was kept
  EXPECT_EQ(orvalix::Compare(first, orvalix::TakePicture(*view)).largest, 0);
  view->GetOpenGLPntr()->SetGathering(0);
  view->DrawViewScreen();
  const orvalix::PictureDifference difference =
      orvalix::Compare(first, orvalix::TakePicture(*view));
  EXPECT_LE(difference.differingShare, kMostDifferingPixels);
}

TEST_P(SceneTest, LooksTheSameOutOfItsFile) {
  const orvalix::test::TemporaryFile file;
  view->Save(file.Path());
  CWnd other;
  other.CreateOffscreen(GetParam().width / kReduction, GetParam().height / kReduction);
  CChartView3D loaded(&other);
  loaded.Load(file.Path());
  loaded.DrawViewScreen();
  // Files hold neither the wire frame flag nor the outlines of shapes.
  const std::set<std::string> losing{"terrain_wire", "quake_map"};
  const bool isTheSame = !losing.contains(GetParam().name);
  const auto difference =
      orvalix::Compare(orvalix::TakePicture(*view), orvalix::TakePicture(loaded));
  EXPECT_EQ(difference.largest == 0, isTheSame) << difference.largest;
}

INSTANTIATE_TEST_SUITE_P(Scenes, SceneTest,
                         ::testing::ValuesIn(orvalix::Scenes().begin(), orvalix::Scenes().end()),
                         [](const auto& scene) { return std::string(scene.param.name); });

TEST(Scenes, HaveDifferentNames) {
  std::set<std::string> names;
  for (const Scene& scene : orvalix::Scenes()) EXPECT_TRUE(names.insert(scene.name).second);
  EXPECT_FALSE(names.empty());
}

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

TEST(GoldenPicture, ComparesByShareAndMean) {
  orvalix::Picture a{.width = 2, .height = 1, .rgb = {10, 20, 30, 40, 50, 60}};
  orvalix::Picture b = a;
  EXPECT_EQ(orvalix::Compare(a, b).largest, 0);
  b.rgb[4] = 53;
  const auto difference = orvalix::Compare(a, b);
  EXPECT_TRUE(difference.sameSize);
  EXPECT_EQ(difference.largest, 3);
  EXPECT_EQ(difference.mean, 0.5);            // 3 / 6 components
  EXPECT_EQ(difference.differingShare, 0.5);  // one of two pixels
  b.width = 1;
  b.height = 2;
  EXPECT_FALSE(orvalix::Compare(a, b).sameSize);
  EXPECT_EQ(orvalix::SideBySide(a, a).width, 6);
}

TEST(GoldenPicture, SurvivesItsFile) {
  const orvalix::Picture picture{.width = 2, .height = 1, .rgb = {10, 20, 30, 40, 50, 60}};
  const std::string path = ::testing::TempDir() + "orvalix_picture.png";
  orvalix::WritePng(picture, path);
  EXPECT_EQ(orvalix::ReadPng(path), picture);
  std::remove(path.c_str());
  EXPECT_THROW(orvalix::ReadPng(path), std::runtime_error);
  EXPECT_THROW(orvalix::WritePng(picture, "/no/such/folder/picture.png"), std::runtime_error);
}

}  // namespace
