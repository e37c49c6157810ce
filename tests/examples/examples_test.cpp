#include "support/examples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <set>
#include <string>

#include "orvalix/orvalix.h"
#include "support/golden.h"
#include "support/temporary_file.h"
#include "support/view_picture.h"

namespace examples {

/// Test names show this instead of the example's bytes.
void PrintTo(const Example& example, std::ostream* out) { *out << example.name; }

}  // namespace examples

namespace {

using examples::Example;

/// Pictures are stored at half the size of the gallery's.
constexpr int kReduction = 2;

class ExampleTest : public ::testing::TestWithParam<Example> {
 protected:
  ExampleTest() {
    Open(window);
    view = std::make_unique<CChartView3D>(&window);
    GetParam().draw(*view, ORVALIX_DATA_FOLDER);
    view->DrawViewScreen();
  }

  static void Open(CWnd& window) {
    window.CreateOffscreen(examples::kWidth / kReduction, examples::kHeight / kReduction);
  }

  CWnd window;
  std::unique_ptr<CChartView3D> view;
};

/// The number of pixels within `margin` pixels of the border that aren't white.
int CountInMargin(const orvalix::Picture& picture, int margin) {
  int count = 0;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const int distance = std::min({x, y, picture.width - 1 - x, picture.height - 1 - y});
      if (distance >= margin) continue;
      const auto* pixel = picture.rgb.data() + 3 * (y * picture.width + x);
      if (!std::all_of(pixel, pixel + 3, [](unsigned char part) { return part == 255; })) ++count;
    }
  }
  return count;
}

TEST_P(ExampleTest, LooksAsStored) {
  orvalix::test::ExpectGoldenPicture(orvalix::TakePicture(*view),
                                     std::string("example_") + GetParam().name);
}

TEST_P(ExampleTest, LeavesAMargin) {
  constexpr int kMargin = 4;  // of the gallery's picture
  EXPECT_EQ(CountInMargin(orvalix::TakePicture(*view), kMargin / kReduction), 0);
}

/// Gathered drawings differ from those sent one by one in single pixels at edges.
constexpr double kMostDifferingPixels = 0.001;

TEST_P(ExampleTest, LooksTheSameGatheredAndOneByOne) {
  const orvalix::Picture first = orvalix::TakePicture(*view);
  view->DrawViewScreen();  // of what was kept
  EXPECT_EQ(orvalix::Compare(first, orvalix::TakePicture(*view)).largest, 0);
  view->GetOpenGLPntr()->SetGathering(0);
  view->DrawViewScreen();
  const orvalix::PictureDifference difference =
      orvalix::Compare(first, orvalix::TakePicture(*view));
  EXPECT_LE(difference.differingShare, kMostDifferingPixels);
}

TEST_P(ExampleTest, LooksTheSameOutOfItsFile) {
  const orvalix::test::TemporaryFile file;
  view->Save(file.Path());
  CWnd other;
  Open(other);
  CChartView3D loaded(&other);
  loaded.Load(file.Path());
  loaded.DrawViewScreen();
  // Files hold neither the wire frame flag nor the bitmaps themselves.
  const std::set<std::string> losing{"wire_frame", "bitmap"};
  const bool isTheSame = !losing.contains(GetParam().name);
  const auto difference =
      orvalix::Compare(orvalix::TakePicture(*view), orvalix::TakePicture(loaded));
  EXPECT_EQ(difference.largest == 0, isTheSame) << difference.largest;
}

INSTANTIATE_TEST_SUITE_P(Pictures, ExampleTest,
                         ::testing::ValuesIn(examples::Examples().begin(),
                                             examples::Examples().end()),
                         [](const auto& example) { return std::string(example.param.name); });

TEST(Examples, HaveDifferentNames) {
  std::set<std::string> names;
  for (const Example& example : examples::Examples()) {
    EXPECT_TRUE(names.insert(example.name).second);
  }
  EXPECT_FALSE(names.empty());
}

TEST(Examples, CoverEveryChartType) {
  std::set<int> types;
  for (const Example& example : examples::Examples()) {
    CWnd window;
    window.CreateOffscreen(8, 8);
    CChartView3D view(&window);
    example.draw(view, ORVALIX_DATA_FOLDER);
    for (int chart = 0; chart < view.GetNumCharts(); ++chart) {
      for (int i = 0; i < view.GetChart(chart)->GetNumChartObjs(); ++i) {
        types.insert(view.GetChart(chart)->GetChartObj(i)->GetChartType());
      }
    }
  }
  EXPECT_EQ(types.size(), 21u);
}

}  // namespace
