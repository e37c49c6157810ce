// Slabs
// The mean wind of each month in Seattle, a slab at its speed: winters are windier than summers,
// and few months stand out.

#include <orvalix/orvalix.h>

#include <numeric>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawSlabs(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/weather.csv");

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.4, 0.4, 1.5, 0.0}, {12.6, 4.6, 5.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Winters are windier in Seattle");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter(
      "mean wind of a month; NOAA National Centers for Environmental Information");
  transform->SetChartRect({0.62, 0.50, 0.42, 0.0});
  transform->SetOffset({0.03, 0.0, 0.0, 0.0});
  transform->SetRotate({-28.0, 0.0, 20.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);
  axes->SetAxisTics(0, 1.0, 1.0, 1, 0.02, 0.03, 2);
  const std::vector<CString> letters{"J", "F", "M", "A", "M", "J", "J", "A", "S", "O", "N", "D"};
  axes->SetAxisLabelsStrings(0, letters.data(), static_cast<int>(letters.size()));
  axes->EnableAxisLabelsStrings(0, 1);
  axes->SetAxisTitleString(2, "m/s");
  const std::vector<CString> names{"2012", "2013", "2014", "2015"};
  axes->SetAxisTics(1, 1.0, 1.0, 1, 0.02, 0.03, 3);
  axes->SetAxisLabelsStrings(1, names.data(), static_cast<int>(names.size()));
  axes->EnableAxisLabelsStrings(1, 1);

  double row = 1.0;
  for (const std::string year : {"2012", "2013", "2014", "2015"}) {
    std::vector<double> months;
    std::vector<double> means;
    std::vector<RGBDType> colors;
    for (int month = 1; month <= 12; ++month) {
      const std::string days = year + (month < 10 ? "-0" : "-") + std::to_string(month);
      const std::vector<double> wind = table.ColumnWhere("wind_ms", "date", days);
      means.push_back(std::accumulate(wind.begin(), wind.end(), 0.0) /
                      static_cast<double>(wind.size()));
      months.push_back(month);
      colors.push_back(Viridis((means.back() - 2.0) / 2.5));
    }
    CChartObj3D* slabs = chart->NewChartObj(transform);
    slabs->PlaneChart25D(months.data(), means.data(), row, 12, 0.9, 0.8, kBlue, kInk, 1, 1, 0);
    slabs->SetPlaneThickness(0.03);  // of the height of the chart
    slabs->InitSegmentColorsStorage(colors.data());
    row += 1.0;
  }
}
