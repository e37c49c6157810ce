#include "scenes/volatility_scene.h"

#include <array>
#include <numeric>
#include <vector>

#include "scenes/chart_style.h"
#include "scenes/csv_table.h"

namespace orvalix {

void BuildVolatilityScene(CChartView3D& view, const std::string& dataFolder) {
  const CsvTable table(dataFolder + "/volatility.csv");
  const std::vector<std::string> dates = table.TextColumn("date");
  std::vector<double> days(dates.size());
  std::iota(days.begin(), days.end(), 1.0);
  std::vector<double> rows;
  for (const char* column : {"open", "high", "low", "close"}) {
    const std::vector<double> row = table.Column(column);
    rows.insert(rows.end(), row.begin(), row.end());
  }

  constexpr Placement kPlacement{.rect = {0.76, 0.14, 0.62, 0.0},
                                 .offset = {0.06, 0.0, 0.0, 0.0},
                                 .rotate = {-10.0, 0.0, 8.0, 0.0}};
  const auto count = static_cast<int>(days.size());
  const StyledChart styled = AddChart(view, {0.0, 0.0, 22.0, 0.0}, {count + 1.0, 1.0, 34.0, 0.0},
                                      "Volatility index, summer 2009", kPlacement);
  HideDepthAxis(*styled.axes);
  SetAxisTitles(*styled.axes, "month-day", nullptr, "points");
  constexpr int kWeek = 5;
  std::vector<CString> labels;
  for (std::size_t i = 0; i < dates.size(); i += kWeek)
    labels.emplace_back(dates[i].substr(5).c_str());
  styled.axes->SetAxisTics(0, 1.0, 1.0, kWeek, 0.02, 0.04, kDown);
  styled.axes->SetAxisLabelsStrings(0, labels.data(), static_cast<int>(labels.size()));
  styled.axes->EnableAxisLabelsStrings(0, 1);

  const RGBDType blue{0.10, 0.30, 0.60, 1.0};
  const std::array<RGBDType, 5> colors{blue, blue, blue, blue, blue};
  constexpr std::array<int, 5> kLinesAndTics{1, 0, 0, 1, 1};
  constexpr double kTicSize = 0.18;
  styled.chart->NewChartObj(styled.transform)
      ->OHLCChart25D(days.data(), rows.data(), 0.5, count, 0, 0, kTicSize, 2, colors.data(), kDark,
                     1, 0, 0, kLinesAndTics.data());
}

}  // namespace orvalix
