// Several charts in one view
// The weather of a year in Seattle in four charts that share their months.

#include <orvalix/orvalix.h>

#include <array>
#include <numeric>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

namespace {

constexpr std::array<double, 12> kMonths{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};

/// The sum, or the mean, of a column over the days of each month of 2015.
std::vector<double> Monthly(const CsvTable& table, const std::string& column, bool mean) {
  std::vector<double> values;
  for (int month = 1; month <= 12; ++month) {
    const std::string days = (month < 10 ? "2015-0" : "2015-") + std::to_string(month);
    const std::vector<double> found = table.ColumnWhere(column, "date", days);
    const double sum = std::accumulate(found.begin(), found.end(), 0.0);
    values.push_back(mean ? sum / static_cast<double>(found.size()) : sum);
  }
  return values;
}

/// A series in a chart that fills a quarter of the view.
CChartObj3D* AddQuarter(CChartView3D& view, double x, double y, const char* title, double most) {
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.3, 0.0, 0.0, 0.0}, {12.7, 1.0, most, 0.0}, &transform);
  chart->SetChartPosition({x, y, 0.5, 0.5});
  chart->EnableBorder(0);
  chart->SetFontSize(0.085);
  chart->GetHeader()->SetTitle1(title);
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.1);
  transform->SetChartRect({0.76, 0.18, 0.54, 0.0});
  transform->SetOffset({0.06, 0.0, -0.04, 0.0});
  transform->SetRotate({-16.0, 0.0, 14.0, 0.0});
  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);
  axes->EnableAxisLabels(1, 0);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);
  axes->SetAxisTics(0, 1.0, 1.0, 1, 0.02, 0.03, 2);
  return chart->NewChartObj(transform);
}

}  // namespace

void DrawSeveralCharts(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/weather.csv");
  const std::vector<double> rain = Monthly(table, "precipitation_mm", false);
  const std::vector<double> wind = Monthly(table, "wind_ms", true);
  const std::vector<double> nights = Monthly(table, "temp_min_c", true);
  const std::vector<double> noons = Monthly(table, "temp_max_c", true);

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  AddQuarter(view, 0.0, 0.5, "rain of a month, mm", 300.0)
      ->BarChart25D(kMonths.data(), rain.data(), 0.0, 0.5, 12, 0.7, 0.8, kBlue, kInk, 1, 1, 0);
  AddQuarter(view, 0.5, 0.5, "mean wind, m/s", 5.0)
      ->AreaFillChart25D(kMonths.data(), wind.data(), 0.0, 0.5, 12, 0.8, kGreen, kInk, 1, 0);
  AddQuarter(view, 0.0, 0.0, "mean of the nights, \260C", 30.0)
      ->RibbonChart25D(kMonths.data(), nights.data(), 0.5, 12, 0.8, kSky, kInk, 1, 0);
  AddQuarter(view, 0.5, 0.0, "mean of the days, \260C", 30.0)
      ->RibbonChart25D(kMonths.data(), noons.data(), 0.5, 12, 0.8, kVermilion, kInk, 1, 0);
}
