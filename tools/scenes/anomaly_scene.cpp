#include "scenes/anomaly_scene.h"

#include <numeric>
#include <vector>

#include "scenes/chart_style.h"
#include "scenes/csv_table.h"

namespace orvalix {

void BuildAnomalyScene(CChartView3D& view, const std::string& dataFolder) {
  const CsvTable table(dataFolder + "/temperature.csv");
  const std::vector<double> years = table.Column("year");
  const std::vector<double> anomaly = table.Column("anomaly_c");
  const auto count = static_cast<int>(years.size());
  constexpr int kDecade = 10;
  std::vector<double> means;
  for (auto from = anomaly.begin(); from + kDecade <= anomaly.end(); ++from) {
    means.push_back(std::accumulate(from, from + kDecade, 0.0) / kDecade);
  }

  constexpr Placement kPlacement{.rect = {0.66, 0.34, 0.54, 0.0},
                                 .offset = {-0.02, 0.0, 0.0, 0.0},
                                 .rotate = {-20.0, 0.0, 14.0, 0.0}};
  const StyledChart styled = AddChart(view, {1880.0, 0.4, -0.8, 0.0}, {2024.0, 3.6, 1.4, 0.0},
                                      "Warmer and colder than 1951 to 1980", kPlacement);
  SetAxisTitles(*styled.axes, "year", nullptr, "\260C");
  NameAxis(*styled.axes, 1, kRight, {"years", "decades", "line"});

  constexpr RGBDType kYears{0.80, 0.36, 0.22, 1.0};
  constexpr RGBDType kDecades{0.95, 0.72, 0.26, 1.0};
  constexpr RGBDType kLine{0.14, 0.34, 0.60, 1.0};
  CChartObj3D* area = styled.chart->NewChartObj(styled.transform);
  area->AreaFillChart25D(years.data(), anomaly.data(), 0.0, 1.0, count, 0.5, kYears, kDark, 1, 0);
  area->SetOutlineMode(0);
  CChartObj3D* ribbon = styled.chart->NewChartObj(styled.transform);
  ribbon->RibbonChart25D(years.data() + kDecade - 1, means.data(), 2.0,
                         static_cast<int>(means.size()), 0.5, kDecades, kDark, 1, 0);
  ribbon->SetOutlineMode(0);
  styled.chart->NewChartObj(styled.transform)
      ->LineChart25D(years.data(), anomaly.data(), 3.0, count, 0, 2.0, kLine, 0);

  CLegend3D* legend = AddLegend(view, {0.02, 0.85, 0.22, 0.13});
  legend->NewLegendObj("years", kCubeSymbol, kYears)->SetSymbolScale(0.15);
  legend->NewLegendObj("ten-year means", kCubeSymbol, kDecades)->SetSymbolScale(0.15);
  legend->NewLegendObj("years as a line", kLineSymbol, kLine)->SetSymbolScale(0.15);
}

}  // namespace orvalix
