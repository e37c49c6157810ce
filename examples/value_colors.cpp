// Colours by another value
// The height of the surface is the height of the land, its colour the steepness of the slope: each
// point carries a value of its own.

#include <orvalix/orvalix.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawValueColors(CChartView3D& view, const std::string& data) {
  const CsvGrid grid(data + "/terrain.csv");
  const auto height = [&](int row, int column) {
    return grid.values[static_cast<std::size_t>(row * grid.columns + column)];
  };
  constexpr double kStepX = 74.4;  // metres from column to column
  constexpr double kStepY = 92.7;
  std::vector<point3Dtype> points;  // v is the slope in degrees
  for (int row = 1; row < grid.rows - 1; ++row) {
    for (int column = 1; column < grid.columns - 1; ++column) {
      const double dx = (height(row, column + 1) - height(row, column - 1)) / (2.0 * kStepX);
      const double dy = (height(row + 1, column) - height(row - 1, column)) / (2.0 * kStepY);
      points.push_back({column * kStepX / 1000.0, row * kStepY / 1000.0, height(row, column),
                        std::min(std::atan(std::hypot(dx, dy)) * 180.0 / std::numbers::pi, 29.7)});
    }
  }
  constexpr int kTriangles = 1;
  const CPolysurface land(points.data(), grid.rows - 2, grid.columns - 2, kTriangles);

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.0, 200.0, 0.0}, {30.0, 32.0, 1100.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Where the land is steep");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("U.S. Geological Survey, National Elevation Dataset");
  transform->SetChartRect({0.56, 0.62, 0.18, 0.0});
  transform->SetOffset({-0.03, 0.0, 0.02, 0.0});
  transform->SetRotate({-46.0, 0.0, 24.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->SetAxisTics(2, 200.0, 100.0, 4, 0.01, 0.02, 0);
  for (const int axis : {0, 1, 2}) axes->SetAxisLabelsPlane(axis, 3);  // facing the viewer
  axes->SetAxisTitleString(0, "km east");
  axes->SetAxisTitleString(1, "km south");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them
  axes->SetAxisTitleString(2, "m");

  std::vector<RGBDType> colors;
  for (int i = 0; i < 64; ++i) colors.push_back(Viridis(i / 63.0));
  chart->SetTextureColorArray(colors.data(), 0.0, 30.0, static_cast<int>(colors.size()));
  constexpr int kByValue = 3;
  chart->SetTextureMode(kByValue);
  CChartObj3D* surface = chart->NewChartObj(transform);
  surface->PolysurfaceChart3D(&land);
  surface->SetColorMode(2);  // by value
  surface->SetOutlineMode(0);

  CLegend3D* legend = view.NewLegend3D();
  legend->SetLegendPosition({0.87, 0.58, 0.12, 0.34});
  legend->SetLegendOrientation(1);  // symbols to the left
  legend->EnableLegendBorder(0);
  legend->SetLegendBorderColor(kWhite);
  legend->SetFontSize(0.055);
  for (int slope = 30; slope >= 0; slope -= 5) {
    CString text;
    text.Format("%d\260", slope);
    legend->NewLegendObj(text, 3, Viridis(slope / 30.0))->SetSymbolScale(0.08);
  }
}
