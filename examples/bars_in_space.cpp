// Bars in space
// A histogram of two measures: how many of 342 penguins have a beak that long and that deep.

#include <orvalix/orvalix.h>

#include <array>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawBarsInSpace(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/penguins.csv");
  const std::vector<double> lengths = table.Column("beak_length_mm");
  const std::vector<double> depths = table.Column("beak_depth_mm");
  constexpr int kColumns = 12;  // from 30 mm in steps of 2.5 mm
  constexpr int kRows = 10;     // from 12 mm in steps of 1 mm
  std::array<int, kColumns * kRows> counts{};
  for (std::size_t i = 0; i < lengths.size(); ++i) {
    const int column = static_cast<int>((lengths[i] - 30.0) / 2.5);
    const int row = static_cast<int>(depths[i] - 12.0);
    ++counts[static_cast<std::size_t>(row * kColumns + column)];
  }
  std::vector<point3Dtype> bars;  // their corners at the smallest x and y, and their tops
  std::vector<RGBDType> colors;
  for (int row = 0; row < kRows; ++row) {
    for (int column = 0; column < kColumns; ++column) {
      const int count = counts[static_cast<std::size_t>(row * kColumns + column)];
      if (count == 0) continue;
      bars.push_back({30.0 + 2.5 * column, 12.0 + row, static_cast<double>(count), 0.0});
      colors.push_back(Viridis(count / 25.0));
    }
  }

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({30.0, 12.0, 0.0, 0.0}, {60.0, 22.0, 30.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Beaks of penguins are long and thin, or short and deep");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("Palmer Station Antarctica LTER");
  transform->SetChartRect({0.56, 0.52, 0.46, 0.0});
  transform->SetOffset({-0.02, 0.0, 0.0, 0.0});
  transform->SetRotate({-30.0, 0.0, 28.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);
  axes->SetAxisTitleString(0, "length (mm)");
  axes->SetAxisTitleString(1, "depth (mm)");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them
  axes->SetAxisTitleString(2, "penguins");

  CChartObj3D* series = chart->NewChartObj(transform);
  series->BarChart3D(bars.data(), nullptr, static_cast<int>(bars.size()), 2.3, 0.92, kBlue, kInk);
  series->InitSegmentColorsStorage(colors.data());
}
