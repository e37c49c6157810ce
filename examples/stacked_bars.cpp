// Stacked bars
// The same sources of electricity one upon the other: the height of a bar is what Iowa generated in
// a year altogether.

#include <orvalix/orvalix.h>

#include <array>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawStackedBars(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/electricity.csv");
  const std::vector<double> years = table.Column("year");
  std::vector<double> groups;  // source after source
  for (const char* column : {"fossil_fuels_gwh", "nuclear_energy_gwh", "renewables_gwh"}) {
    const std::vector<double> output = table.Column(column);
    groups.insert(groups.end(), output.begin(), output.end());
  }

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart =
      view.NewChart3D({2000.0, 0.0, 0.0, 0.0}, {2018.0, 1.0, 60000.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1(
      "Iowa generates more electricity, and less of it from fossil fuels");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("U.S. Energy Information Administration");
  transform->SetChartRect({0.74, 0.14, 0.56, 0.0});
  transform->SetOffset({0.07, 0.0, -0.06, 0.0});
  transform->SetRotate({-16.0, 0.0, 12.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);
  axes->EnableAxisLabels(1, 0);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);
  axes->SetAxisTics(0, 2001.0, 1.0, 4, 0.02, 0.04, 2);
  axes->SetAxisLabelsFormat(2, 2);  // 20K for 20000
  axes->SetAxisTitleString(2, "GWh");

  constexpr std::array<RGBDType, 3> kColors{kGrey, kOrange, kGreen};
  constexpr int kStacked = 1;
  chart->NewChartObj(transform)->GroupBarChart25D(years.data(), groups.data(), 0.5, 0.0,
                                                  static_cast<int>(years.size()), 3, kStacked, 0.7,
                                                  0.7, kColors.data(), kInk, 1, 1, 0);

  CLegend3D* legend = view.NewLegend3D();
  legend->SetLegendPosition({0.24, 0.84, 0.56, 0.06});
  legend->SetLegendOrientation(1);  // symbols to the left
  legend->SetLegendColumns(3);
  legend->EnableLegendBorder(0);
  legend->SetLegendBorderColor(kWhite);
  legend->SetFontSize(0.055);
  constexpr std::array<const char*, 3> kNames{"fossil fuels", "nuclear", "renewables"};
  for (std::size_t i = 0; i < kNames.size(); ++i)
    legend->NewLegendObj(kNames[i], 3, kColors[i])->SetSymbolScale(0.4);
}
