#include "scenes/temperature_scene.h"

#include <algorithm>
#include <vector>

#include "orvalix/orvalix.h"
#include "scenes/csv_table.h"

namespace orvalix {
namespace {

/// From blue (coldest) over a pale middle at 0 to red (warmest).
RGBDType ColorOf(double anomaly) {
  constexpr double kStrongest = 0.9;
  // The coldest years lie half as far from 0 as the warmest.
  const double share =
      std::clamp(anomaly / (anomaly < 0.0 ? kStrongest / 2.0 : kStrongest), -1.0, 1.0);
  const RGBDType pale = SetRGBD(0.86, 0.80, 0.70, 1.0);
  const RGBDType end =
      share < 0.0 ? SetRGBD(0.08, 0.32, 0.68, 1.0) : SetRGBD(0.78, 0.08, 0.09, 1.0);
  const double t = share < 0.0 ? -share : share;
  return SetRGBD(pale.red + t * (end.red - pale.red), pale.green + t * (end.green - pale.green),
                 pale.blue + t * (end.blue - pale.blue), 1.0);
}

}  // namespace

void BuildTemperatureScene(CChartView3D& view, const std::string& dataFolder) {
  const CsvTable table(dataFolder + "/temperature.csv");
  std::vector<double> years = table.Column("year");
  std::vector<double> anomalies = table.Column("anomaly_c");

  // The bars stand on a floor below the coldest year.
  constexpr double kFloor = -0.6;
  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart =
      view.NewChart3D({1879.0, 0.0, kFloor, 0.0}, {2024.0, 1.0, 1.2, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetChartBkColor(SetRGBD(0.96, 0.97, 0.98, 1.0));
  chart->SetFontSize(0.075);
  chart->GetHeader()->SetTitle1("Global surface temperature");
  chart->GetHeader()->SetTitle2("difference from the mean of 1951 to 1980 in \260C");
  chart->GetHeader()->GetTitle2Obj()->SetCharSize(0.7);
  transform->SetChartRect({0.82, 0.16, 0.62, 0.0});
  transform->SetOffset({0.04, 0.0, -0.05, 0.0});
  transform->SetRotate({-16.0, 0.0, 9.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  const RGBDType wall = SetRGBD(0.90, 0.92, 0.95, 1.0);
  const RGBDType edge = SetRGBD(0.55, 0.58, 0.64, 1.0);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, wall, edge);
    axes->SetPlaneColorMode(plane, 0);
    axes->SetWallThickness(plane, 0.02);
  }
  const int yearTics = axes->GetAxisNthTicMajor(0);
  const int valueTics = axes->GetAxisNthTicMajor(2);
  axes->SetPlaneGrid(1, yearTics, valueTics, edge, 1.0, 0, 0);
  axes->SetPlaneGrid(2, 0, valueTics, edge, 1.0, 0, 0);
  axes->SetAxisMajorTicLength(2, 0.02);
  axes->SetAxisMinorTicLength(2, 0.01);
  // The row of a single series needs no axis of its own.
  axes->EnableAxis(1, 0);
  axes->EnableAxisLabels(1, 0);
  axes->SetAxisTitleString(0, "Year");

  CChartObj3D* bars = chart->NewChartObj(transform);
  bars->BarChart25D(years.data(), anomalies.data(), kFloor, 0.5, static_cast<int>(years.size()),
                    0.82, 1.0, SetRGBD(0.8, 0.8, 0.8, 1.0), SetRGBD(0.25, 0.25, 0.3, 1.0), 1, 1, 0);
  std::vector<RGBDType> colors;
  for (const double anomaly : anomalies) colors.push_back(ColorOf(anomaly));
  bars->InitSegmentColorsStorage(colors.data());
}

}  // namespace orvalix
