#include "scenes/weather_scene.h"

#include <algorithm>
#include <array>
#include <vector>

#include "scenes/chart_style.h"
#include "scenes/csv_table.h"

namespace orvalix {
namespace {

struct Year {
  std::vector<double> days;  ///< in months from 0
  std::vector<double> lowest;
  std::vector<double> highest;
};

constexpr int kMonths = 12;

Year ReadYear(const CsvTable& table, const std::string& year) {
  const std::vector<std::string> dates = table.TextColumn("date");
  const std::vector<double> lowest = table.Column("temp_min_c");
  const std::vector<double> highest = table.Column("temp_max_c");
  constexpr double kDays = 365.0;
  Year found;
  for (std::size_t i = 0; i < dates.size(); ++i) {
    if (!dates[i].starts_with(year)) continue;
    found.days.push_back(static_cast<double>(found.days.size()) * kMonths / kDays);
    found.lowest.push_back(lowest[i]);
    found.highest.push_back(highest[i]);
  }
  return found;
}

}  // namespace

void BuildWeatherScene(CChartView3D& view, const std::string& dataFolder) {
  const Year year = ReadYear(CsvTable(dataFolder + "/weather.csv"), "2015");
  const auto days = static_cast<int>(year.days.size());

  constexpr Placement kPlacement{.rect = {0.68, 0.30, 0.56, 0.0},
                                 .offset = {-0.02, 0.0, 0.0, 0.0},
                                 .rotate = {-16.0, 0.0, 12.0, 0.0}};
  const StyledChart styled = AddChart(view, {0.0, 0.4, -10.0, 0.0}, {12.0, 2.6, 40.0, 0.0},
                                      "Temperatures in Seattle, 2015", kPlacement);
  SetAxisTitles(*styled.axes, "month", nullptr, "\260C");
  NameAxis(*styled.axes, 1, kRight, {"months", "days"});

  constexpr RGBDType kDays{0.35, 0.60, 0.80, 1.0};
  constexpr RGBDType kMonthsColor{0.90, 0.62, 0.22, 1.0};
  styled.chart->NewChartObj(styled.transform)
      ->AreaRangeChart25D(year.days.data(), year.lowest.data(), year.highest.data(), 2.0, days, 0.6,
                          kDays, {0.20, 0.40, 0.60, 1.0}, 1, 0);

  std::vector<double> middles(kMonths);
  std::vector<double> tops(kMonths, -100.0);
  std::vector<double> bottoms(kMonths, 100.0);
  for (std::size_t day = 0; day < year.days.size(); ++day) {
    const auto month = static_cast<std::size_t>(year.days[day]);
    middles[month] = static_cast<double>(month) + 0.5;
    tops[month] = std::max(tops[month], year.highest[day]);
    bottoms[month] = std::min(bottoms[month], year.lowest[day]);
  }
  std::vector<double> heights(kMonths);
  for (std::size_t month = 0; month < kMonths; ++month)
    heights[month] = tops[month] - bottoms[month];
  styled.chart->NewChartObj(styled.transform)
      ->FloatingBarChart25D(middles.data(), tops.data(), heights.data(), 1.0, kMonths, 0.6, 0.4,
                            kMonthsColor, kDark, 1, 1, 0);

  CLegend3D* legend = AddLegend(view, {0.02, 0.87, 0.22, 0.11});
  legend->NewLegendObj("range of a month", kCubeSymbol, kMonthsColor)->SetSymbolScale(0.15);
  legend->NewLegendObj("range of a day", kCubeSymbol, kDays)->SetSymbolScale(0.15);
}

}  // namespace orvalix
