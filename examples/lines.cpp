// Lines
// How rain adds up over the year in Seattle: a line for each year, in a row of its own.

#include <orvalix/orvalix.h>

#include <array>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawLines(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/weather.csv");

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.5, 0.0, 0.0}, {12.0, 4.5, 1400.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Rain adds up to about a metre a year, but not in summer");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("Seattle; NOAA National Centers for Environmental Information");
  transform->SetChartRect({0.62, 0.38, 0.56, 0.0});
  transform->SetOffset({0.05, 0.0, 0.0, 0.0});
  transform->SetRotate({-20.0, 0.0, 18.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);
  axes->SetPlaneGrid(0, 3, 0, kLine, 2.0, 0, 0);  // quarters of the year on the floor
  axes->SetAxisTitleString(2, "mm");
  axes->SetAxisTics(0, 0.0, 1.0, 3, 0.02, 0.03, 2);
  const std::vector<CString> quarters{"Jan", "Apr", "Jul", "Oct", "Jan"};
  axes->SetAxisLabelsStrings(0, quarters.data(), static_cast<int>(quarters.size()));
  axes->EnableAxisLabelsStrings(0, 1);
  const std::vector<CString> years{"2012", "2013", "2014", "2015"};
  axes->SetAxisTics(1, 1.0, 1.0, 1, 0.02, 0.03, 3);
  axes->SetAxisLabelsStrings(1, years.data(), static_cast<int>(years.size()));
  axes->EnableAxisLabelsStrings(1, 1);

  constexpr std::array<RGBDType, 4> kColors{kSky, kBlue, kOrange, kVermilion};
  for (std::size_t i = 0; i < years.size(); ++i) {
    const std::string year = static_cast<const char*>(years[i]);
    std::vector<double> months;
    std::vector<double> sums;
    double sum = 0.0;
    for (const double rain : table.ColumnWhere("precipitation_mm", "date", year)) {
      sum += rain;
      sums.push_back(sum);
      months.push_back(static_cast<double>(months.size()) * 12.0 / 365.0);
    }
    chart->NewChartObj(transform)->LineChart25D(
        months.data(), sums.data(), static_cast<double>(i) + 1.0, 365, 0, 8.0, kColors[i], 0);
  }
}
