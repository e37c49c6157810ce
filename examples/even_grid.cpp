// A surface from a grid
// Rain over the world in 2016, a value for each degree: height and colour both show it. Peaks are
// cut off at four metres.

#include <orvalix/orvalix.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawEvenGrid(CChartView3D& view, const std::string& data) {
  constexpr double kMost = 4000.0;
  CsvGrid grid(data + "/precipitation.csv");
  for (double& value : grid.values) value = std::min(value, 0.99 * kMost);
  // Rows begin at 86.5 degrees north, columns at 179.5 degrees west.
  constexpr int kTriangles = 1;
  const CPolysurface rain(grid.rows, grid.columns, -179.5, 86.5, 179.5, -80.5, grid.values.data(),
                          kTriangles);

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart =  // north is at the back: the axis runs backwards
      view.NewChart3D({-180.0, 90.0, 0.0, 0.0}, {180.0, -90.0, kMost, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Rain falls along the equator and on western coasts");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("mm in 2016; NOAA, Climate Forecast System Version 2");
  transform->SetChartRect({0.62, 0.74, 0.13, 0.0});
  transform->SetOffset({0.0, 0.0, 0.03, 0.0});
  transform->SetRotate({-50.0, 0.0, 10.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->SetPlaneColor(0, kWall, kEdge);
  axes->SetPlaneColorMode(0, 0);
  axes->SetAxisTics(0, -180.0, 30.0, 4, 0.02, 0.03, 2);
  axes->SetAxisTics(1, 0.0, 15.0, 2, 0.02, 0.03, 3);
  axes->SetAxisTics(2, 0.0, 2000.0, 1, 0.01, 0.02, 0);
  for (const int axis : {0, 1, 2}) axes->SetAxisLabelsPlane(axis, 3);  // facing the viewer
  axes->SetAxisTitleString(0, "longitude");
  axes->SetAxisTitleString(1, "latitude");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them

  // Colours by height, from yellow (dry) to violet.
  std::vector<RGBDType> colors;
  for (int i = 0; i < 64; ++i) colors.push_back(Viridis(1.0 - i / 63.0));
  chart->SetTextureColorArray(colors.data(), 0.0, kMost, static_cast<int>(colors.size()));
  constexpr int kByHeight = 2;
  chart->SetTextureMode(kByHeight);
  CChartObj3D* surface = chart->NewChartObj(transform);
  surface->PolysurfaceChart3D(&rain);
  surface->SetColorMode(2);  // by value
  surface->SetOutlineMode(0);
}
