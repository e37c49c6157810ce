#include "scenes/electricity_groups_scene.h"

#include <array>
#include <vector>

#include "scenes/chart_style.h"
#include "scenes/csv_table.h"

namespace orvalix {
namespace {

constexpr int kGroups = 3;
constexpr std::array<RGBDType, kGroups> kColors{
    {{0.34, 0.37, 0.44, 1.0}, {0.78, 0.56, 0.14, 1.0}, {0.18, 0.54, 0.34, 1.0}}};

StyledChart AddQuarter(CChartView3D& view, const char* title, double x, double y, double most) {
  const Placement placement{.position = {x, y, 0.5, 0.5},
                            .rect = {0.72, 0.22, 0.58, 0.0},
                            .offset = {0.06, 0.0, 0.0, 0.0},
                            .rotate = {-16.0, 0.0, 16.0, 0.0},
                            .fontSize = 0.09};
  const StyledChart styled =
      AddChart(view, {2000.0, 0.0, 0.0, 0.0}, {2018.0, 1.0, most, 0.0}, title, placement);
  HideDepthAxis(*styled.axes);
  constexpr int kThousands = 2;
  styled.axes->SetAxisLabelsFormat(2, kThousands);
  styled.axes->SetAxisTics(0, 2001.0, 1.0, 4, 0.02, 0.04, kDown);
  return styled;
}

}  // namespace

void BuildElectricityGroupsScene(CChartView3D& view, const std::string& dataFolder) {
  const CsvTable table(dataFolder + "/electricity.csv");
  const std::vector<double> years = table.Column("year");
  std::vector<double> groups;
  for (const char* column : {"fossil_fuels_gwh", "nuclear_energy_gwh", "renewables_gwh"}) {
    const std::vector<double> row = table.Column(column);
    groups.insert(groups.end(), row.begin(), row.end());
  }
  const auto count = static_cast<int>(years.size());
  constexpr double kRow = 0.5;
  constexpr double kDepth = 0.6;
  constexpr int kCentred = 1;

  CLegend3D* legend = AddLegend(view, {0.43, 0.45, 0.14, 0.11});
  const std::array<const char*, kGroups> names{"fossil fuels", "nuclear", "renewables"};
  for (std::size_t i = kGroups; i-- > 0;) {
    legend->NewLegendObj(names[i], kCubeSymbol, kColors[i])->SetSymbolScale(0.2);
  }

  const auto addBars = [&](const StyledChart& styled, int groupType) {
    styled.chart->NewChartObj(styled.transform)
        ->GroupBarChart25D(years.data(), groups.data(), kRow, 0.0, count, kGroups, groupType, 0.8,
                           kDepth, kColors.data(), kDark, kCentred, kCentred, 0);
  };
  addBars(AddQuarter(view, "Iowa's electricity, GWh", 0.0, 0.5, 45000.0), 0);
  addBars(AddQuarter(view, "stacked", 0.5, 0.5, 70000.0), 1);
  const StyledChart ribbons = AddQuarter(view, "as ribbons", 0.0, 0.0, 70000.0);
  ribbons.chart->NewChartObj(ribbons.transform)
      ->GroupRibbonChart25D(years.data(), groups.data(), kRow, count, kGroups, kDepth,
                            kColors.data(), kDark, kCentred, 0);
  const StyledChart areas = AddQuarter(view, "as areas", 0.5, 0.0, 70000.0);
  areas.chart->NewChartObj(areas.transform)
      ->GroupAreaFillChart25D(years.data(), groups.data(), kRow, count, kGroups, kDepth,
                              kColors.data(), kDark, kCentred, 0);
}

}  // namespace orvalix
