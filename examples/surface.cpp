// A surface
// Heights around the Jacksboro fault in Tennessee: 277 000 lit triangles, coloured by height.

#include <orvalix/orvalix.h>

#include <string>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawSurface(CChartView3D& view, const std::string& data) {
  // Rows run from north, at the back, to south; three seconds of arc a step, in kilometres.
  const CsvGrid grid(data + "/terrain.csv");
  constexpr int kTriangles = 1;
  CPolysurface terrain(grid.rows, grid.columns, 0.0, 0.0, 29.9, 31.8, grid.values.data(),
                       kTriangles);
  for (int polygon = 0; polygon < terrain.GetPSNumPolygons(); ++polygon) {
    constexpr int kHeight = 2;  // the third coordinate
    const RGBDType color = Heights((terrain.GetPSPMean(polygon, kHeight) - 200.0) / 900.0);
    terrain.SetPolysurfaceColors(polygon, color, color);
  }

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.0, 200.0, 0.0}, {30.0, 32.0, 1100.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("The Jacksboro fault, Tennessee");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("U.S. Geological Survey, National Elevation Dataset");
  transform->SetChartRect({0.56, 0.62, 0.22, 0.0});
  transform->SetOffset({0.05, 0.0, 0.0, 0.0});
  transform->SetRotate({-40.0, 0.0, 28.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, 4, kLine, 2.0, 0, 0);
  axes->SetAxisTics(2, 200.0, 100.0, 4, 0.01, 0.02, 0);
  for (const int axis : {0, 1, 2}) axes->SetAxisLabelsPlane(axis, 3);  // facing the viewer
  axes->SetAxisTitleString(0, "km east");
  axes->SetAxisTitleString(1, "km south");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them
  axes->SetAxisTitleString(2, "m");

  CChartObj3D* surface = chart->NewChartObj(transform);
  surface->PolysurfaceChart3D(&terrain);
  surface->SetOutlineMode(0);
}
