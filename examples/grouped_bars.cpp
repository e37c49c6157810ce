// Bars side by side
// Rain in Seattle, quarter by quarter: a bar for each of four years stands side by side in a group.

#include <orvalix/orvalix.h>

#include <array>
#include <numeric>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawGroupedBars(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/weather.csv");
  constexpr std::array<const char*, 4> kYears{"2012", "2013", "2014", "2015"};
  constexpr std::array<RGBDType, 4> kColors{kSky, kBlue, kOrange, kVermilion};
  const std::vector<double> quarters{1.0, 2.0, 3.0, 4.0};
  std::vector<double> rain;  // year after year, each with its four quarters
  for (const std::string year : kYears) {
    for (int quarter = 0; quarter < 4; ++quarter) {
      double sum = 0.0;
      for (int month = 3 * quarter + 1; month <= 3 * quarter + 3; ++month) {
        const std::string days = year + (month < 10 ? "-0" : "-") + std::to_string(month);
        const std::vector<double> found = table.ColumnWhere("precipitation_mm", "date", days);
        sum = std::accumulate(found.begin(), found.end(), sum);
      }
      rain.push_back(sum);
    }
  }

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.4, 0.0, 0.0, 0.0}, {4.6, 1.0, 600.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Dry summers, wet winters: rain in Seattle");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("NOAA National Centers for Environmental Information");
  transform->SetChartRect({0.76, 0.14, 0.56, 0.0});
  transform->SetOffset({0.05, 0.0, -0.06, 0.0});
  transform->SetRotate({-14.0, 0.0, 12.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);
  axes->EnableAxisLabels(1, 0);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);
  axes->SetAxisTitleString(2, "mm");
  const std::vector<CString> names{"Jan - Mar", "Apr - Jun", "Jul - Sep", "Oct - Dec"};
  axes->SetAxisTics(0, 1.0, 1.0, 1, 0.02, 0.03, 2);
  axes->SetAxisLabelsStrings(0, names.data(), static_cast<int>(names.size()));
  axes->EnableAxisLabelsStrings(0, 1);

  constexpr int kSideBySide = 0;
  chart->NewChartObj(transform)->GroupBarChart25D(quarters.data(), rain.data(), 0.5, 0.0, 4, 4,
                                                  kSideBySide, 0.8, 0.7, kColors.data(), kInk, 1, 1,
                                                  0);

  CLegend3D* legend = view.NewLegend3D();
  legend->SetLegendPosition({0.30, 0.84, 0.44, 0.06});
  legend->SetLegendOrientation(1);  // symbols to the left
  legend->SetLegendColumns(4);
  legend->EnableLegendBorder(0);
  legend->SetLegendBorderColor(kWhite);
  legend->SetFontSize(0.055);
  for (std::size_t i = 0; i < kYears.size(); ++i)
    legend->NewLegendObj(kYears[i], 3, kColors[i])->SetSymbolScale(0.4);
}
