/// Stored pictures of legends: both orientations, their columns, titles, contours and symbols.

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "orvalix/orvalix.h"
#include "support/golden.h"
#include "support/view_picture.h"

namespace {

const RGBDType kCream{1.0, 0.97, 0.88, 1.0};
const RGBDType kNavy{0.05, 0.15, 0.45, 1.0};

const std::array<RGBDType, 5> kColors{{{0.10, 0.30, 0.70, 1.0},
                                       {0.20, 0.60, 0.60, 1.0},
                                       {0.40, 0.75, 0.30, 1.0},
                                       {0.95, 0.70, 0.15, 1.0},
                                       {0.80, 0.20, 0.15, 1.0}}};

constexpr int kCube = 9;
constexpr int kDiamond = 12;
constexpr int kPyramid = 13;

/// A legend in a rectangle of the view, with texts of that size.
CLegend3D& AddLegend(CChartView3D& view, const GLViewRType& position, double fontSize) {
  CLegend3D* legend = view.NewLegend3D();
  legend->SetLegendPosition(position);
  legend->SetFontSize(fontSize);
  return *legend;
}

void AddFruits(CLegend3D& legend) {
  legend.NewLegendObj("Apples", kCube, kColors[4]);
  legend.NewLegendObj("Blackberries", kDiamond, kColors[0]);
  legend.NewLegendObj("Limes", kPyramid, kColors[2]);
  legend.SetTextColor(2, kNavy);
}

/// On the left symbols stand behind the texts, on a framed slab with two titles and a footer; on
/// the right before them, on a slab without a frame.
void Orientations(CChartView3D& view) {
  CLegend3D& behind = AddLegend(view, {0.0, 0.0, 0.5, 1.0}, 0.12);
  AddFruits(behind);
  behind.SetTitle1("Fruit");
  behind.SetTitle2("of the garden");
  behind.SetFooter("this year");
  CLegend3D& before = AddLegend(view, {0.5, 0.1, 0.5, 0.8}, 0.12);
  AddFruits(before);
  before.SetLegendOrientation(1);
  before.EnableLegendBorder(0);
  before.SetBorderThickness(1.0);
  before.SetLegendBkColor(kCream);
  before.SetTitle1("Fruit");
}

/// Seven entries in one, two, three and four columns.
void Columns(CChartView3D& view) {
  for (int columns = 1; columns <= 4; ++columns) {
    const double x = columns % 2 == 1 ? 0.0 : 0.5;
    const double y = columns <= 2 ? 0.5 : 0.0;
    CLegend3D& legend = AddLegend(view, {x, y, 0.5, 0.5}, 0.05);
    legend.SetLegendColumns(columns);
    legend.SetLegendOrientation(1);
    legend.SetLegendBorderColor(kNavy);
    for (int i = 0; i < 7; ++i) {
      const RGBDType& color = kColors[static_cast<std::size_t>(i) % kColors.size()];
      legend.NewLegendObj(("no. " + std::to_string(i + 1)).c_str(), kCube, color);
    }
    legend.SetTitle1((std::to_string(columns) + (columns == 1 ? " column" : " columns")).c_str());
  }
}

/// Bands with the texts in one colour, and values with texts in the colours of their bands.
void Contours(CChartView3D& view) {
  const std::array<double, 4> values{10, 20, 30, 40};
  CLegend3D& bands = AddLegend(view, {0.0, 0.0, 0.5, 1.0}, 0.1);
  bands.SetLegendOrientation(1);
  bands.SetTitle1("Bands");
  bands.ContourLegend(values.data(), kColors.data(), 4, 1, kNavy, 1, "above", "below");
  CLegend3D& lines = AddLegend(view, {0.5, 0.0, 0.5, 1.0}, 0.1);
  lines.SetTitle1("Values");
  lines.ContourLegend2(values.data(), kColors.data(), 4, 0, kNavy, 0);
}

/// All symbols by their codes, flat on the left and lit on the right. Codes 4 to 7 have none.
void Symbols(CChartView3D& view) {
  view.NewChart3D();  // brings the light; the legends cover it
  for (const int mode : {0, 1}) {
    CLegend3D& legend = AddLegend(view, {0.5 * mode, 0.0, 0.5, 1.0}, 0.08);
    legend.SetColorMode(mode);
    legend.SetLegendBkColor(kCream);
    legend.SetLegendOrientation(1);
    legend.SetLegendColumns(3);
    legend.SetTitle1(mode == 0 ? "flat" : "lit");
    for (int code = 1; code <= 15; ++code) {
      const RGBDType& color = kColors[static_cast<std::size_t>(code) % kColors.size()];
      legend.NewLegendObj(std::to_string(code).c_str(), code, color)->SetSymbolScale(0.08);
    }
  }
}

struct PictureCase {
  const char* name;
  int width;
  int height;
  void (*build)(CChartView3D& view);
};

class LegendPicture : public ::testing::TestWithParam<PictureCase> {};

TEST_P(LegendPicture, LooksAsStored) {
  CWnd window;
  window.CreateOffscreen(GetParam().width, GetParam().height);
  CChartView3D view(&window);
  view.SetFont("Arial", 400, 256);
  GetParam().build(view);
  view.DrawViewScreen();
  orvalix::test::ExpectGoldenPicture(orvalix::TakePicture(view), GetParam().name);
}

constexpr std::array<PictureCase, 4> kCases{{{"legend_orientations", 720, 360, Orientations},
                                             {"legend_columns", 960, 640, Columns},
                                             {"legend_contours", 640, 360, Contours},
                                             {"legend_symbols", 800, 480, Symbols}}};

INSTANTIATE_TEST_SUITE_P(Legends, LegendPicture, ::testing::ValuesIn(kCases),
                         [](const auto& picture) { return std::string(picture.param.name); });

}  // namespace
