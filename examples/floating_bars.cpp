// Floating bars
// Temperatures in Seattle in 2015: each bar reaches from the coldest night to the warmest day of a
// month, coloured by the middle of both.

#include <orvalix/orvalix.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawFloatingBars(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/weather.csv");
  std::vector<double> months;
  std::vector<double> tops;
  std::vector<double> heights;
  std::vector<RGBDType> colors;
  for (int month = 1; month <= 12; ++month) {
    const std::string days = (month < 10 ? "2015-0" : "2015-") + std::to_string(month);
    const std::vector<double> nights = table.ColumnWhere("temp_min_c", "date", days);
    const std::vector<double> noons = table.ColumnWhere("temp_max_c", "date", days);
    const double coldest = *std::min_element(nights.begin(), nights.end());
    const double warmest = *std::max_element(noons.begin(), noons.end());
    months.push_back(month);
    tops.push_back(warmest);
    heights.push_back(warmest - coldest);
    colors.push_back(BlueToRed((warmest + coldest) / 2.0 / 25.0));
  }

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.3, 0.0, -10.0, 0.0}, {12.7, 1.0, 40.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("From the coldest night to the warmest day, Seattle 2015");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("NOAA National Centers for Environmental Information");
  transform->SetChartRect({0.76, 0.12, 0.62, 0.0});
  transform->SetOffset({0.05, 0.0, -0.02, 0.0});
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
  axes->SetAxisTitleString(2, "\260C");
  const std::vector<CString> names{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  axes->SetAxisTics(0, 1.0, 1.0, 1, 0.02, 0.03, 2);
  axes->SetAxisLabelsStrings(0, names.data(), static_cast<int>(names.size()));
  axes->EnableAxisLabelsStrings(0, 1);

  CChartObj3D* bars = chart->NewChartObj(transform);
  bars->FloatingBarChart25D(months.data(), tops.data(), heights.data(), 0.5, 12, 0.6, 0.6, kGrey,
                            kInk, 1, 1, 0);
  bars->InitSegmentColorsStorage(colors.data());
}
