// Two logarithmic axes
// On how many days of four years in Seattle there was at least so much rain: both axes are
// logarithmic, and their grids show every step of a decade.

#include <orvalix/orvalix.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawLogLog(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/weather.csv");
  std::vector<double> rain = table.Column("precipitation_mm");
  std::sort(rain.begin(), rain.end());
  std::vector<double> days;
  std::vector<double> amounts;
  for (std::size_t i = 1; i < rain.size(); ++i) {
    if (rain[i] == 0.0 || rain[i] == rain[i - 1]) continue;  // dry, or counted with the one before
    amounts.push_back(rain[i]);
    days.push_back(static_cast<double>(rain.size() - i));
  }

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.1, 0.0, 1.0, 0.0}, {100.0, 1.0, 1000.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Cloudbursts are rare in Seattle");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter(
      "2012 to 2015; NOAA National Centers for Environmental Information");
  transform->SetAxisScaleMode(0, 1);  // before the axes are made
  transform->SetAxisScaleMode(2, 1);
  transform->SetChartRect({0.72, 0.16, 0.60, 0.0});
  transform->SetOffset({0.06, 0.0, -0.01, 0.0});
  transform->SetRotate({-14.0, 0.0, 12.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);
  axes->EnableAxisLabels(1, 0);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  axes->SetPlaneGrid(0, 1, 0, kLine, 2.0, 0, 0);
  axes->SetPlaneGrid(1, 1, 1, kLine, 2.0, 0, 0);
  axes->SetPlaneGrid(2, 0, 1, kLine, 2.0, 0, 0);
  axes->SetAxisLabelsFormat(0, 3);  // 0.1, 1, 10: as short as can be
  axes->SetAxisLabelsDecimals(0, 3);
  axes->SetAxisTitleString(0, "at least so much rain (mm)");
  axes->SetAxisTitlePlane(0, 1);  // along its axis
  axes->SetAxisTitleString(2, "days");

  CChartObj3D* ribbon = chart->NewChartObj(transform);
  ribbon->RibbonChart25D(amounts.data(), days.data(), 0.5, static_cast<int>(days.size()), 0.6,
                         kBlue, kInk, 1, 0);
  ribbon->SetOutlineMode(0);
}
