// Lines in space
// Profiles of the land around the Jacksboro fault in Tennessee, one for every 900 metres, coloured
// by height.

#include <orvalix/orvalix.h>

#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawProfiles(CChartView3D& view, const std::string& data) {
  const CsvGrid grid(data + "/terrain.csv");
  // Kilometres from west to east and from north to south: three seconds of arc a step.
  constexpr double kWidth = 29.9;
  constexpr double kDepth = 31.8;

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.0, 200.0, 0.0}, {30.0, 32.0, 1100.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Profiles across the Jacksboro fault");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("U.S. Geological Survey, National Elevation Dataset");
  transform->SetChartRect({0.58, 0.72, 0.28, 0.0});
  transform->SetOffset({0.04, 0.0, 0.02, 0.0});
  transform->SetRotate({-40.0, 0.0, 12.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->SetPlaneColor(0, kWall, kEdge);
  axes->SetPlaneColorMode(0, 0);
  axes->SetAxisTics(2, 200.0, 100.0, 4, 0.01, 0.02, 0);
  for (const int axis : {0, 1, 2}) axes->SetAxisLabelsPlane(axis, 3);  // facing the viewer
  axes->SetAxisTitleString(0, "km east");
  axes->SetAxisTitleString(1, "km south");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them
  axes->SetAxisTitleString(2, "m");

  constexpr int kStep = 10;  // rows of the grid
  for (int row = 0; row < grid.rows; row += kStep) {
    std::vector<point3Dtype> line;
    std::vector<RGBDType> colors;
    for (int column = 0; column < grid.columns; ++column) {
      const double height = grid.values[static_cast<std::size_t>(row * grid.columns + column)];
      line.push_back(
          {kWidth * column / (grid.columns - 1), kDepth * row / (grid.rows - 1), height, 0.0});
      colors.push_back(Viridis((height - 250.0) / 800.0));
    }
    CChartObj3D* profile = chart->NewChartObj(transform);
    profile->LineChart3D(line.data(), static_cast<int>(line.size()), 0, 3, kBlue);
    profile->InitSegmentColorsStorage(colors.data());
  }
}
