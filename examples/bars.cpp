// Bars coloured by value
// Global surface temperature since 1880 against the mean of 1951 to 1980: a bar for each year, blue
// where it was colder and red where it was warmer.

#include <orvalix/orvalix.h>

#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawBars(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/temperature.csv");
  const std::vector<double> years = table.Column("year");
  const std::vector<double> anomalies = table.Column("anomaly_c");

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);  // 256 characters: with the sign of degrees
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({1878.0, 0.0, -0.6, 0.0}, {2026.0, 1.0, 1.4, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("The world has become warmer");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter(
      "surface of land and sea; NASA Goddard Institute for Space Studies");
  transform->SetChartRect({0.74, 0.12, 0.66, 0.0});
  transform->SetOffset({0.08, 0.0, 0.02, 0.0});
  transform->SetRotate({-12.0, 0.0, 8.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);  // a single row needs no depth axis
  axes->EnableAxisLabels(1, 0);
  for (const int plane : {0, 1, 2}) {  // floor, back and left
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);  // not lit
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);

  axes->SetAxisTitleString(2, "\260C above the mean of 1951 to 1980");

  // The bars rise from 0, and a bar below it hangs.
  CChartObj3D* bars = chart->NewChartObj(transform);
  bars->BarChart25D(years.data(), anomalies.data(), 0.0, 0.5, static_cast<int>(years.size()), 0.8,
                    0.8, kGrey, kEdge, 1, 1, 0);
  std::vector<RGBDType> colors;
  for (const double anomaly : anomalies) {
    // The coldest years lie half as far from 0 as the warmest.
    colors.push_back(BlueToRed(0.5 + (anomaly < 0.0 ? anomaly : anomaly / 2.0)));
  }
  bars->InitSegmentColorsStorage(colors.data());
  bars->SetColorMode(0);  // not lit
}
