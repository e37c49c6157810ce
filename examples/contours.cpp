// Contours on a surface
// Lines of equal height, every 100 metres, each laid on the land at its own height.

#include <orvalix/orvalix.h>

#include <array>
#include <string>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawContours(CChartView3D& view, const std::string& data) {
  const CsvGrid grid(data + "/terrain.csv");
  constexpr int kTriangles = 1;
  CPolysurface terrain(grid.rows, grid.columns, 0.0, 0.0, 29.9, 31.8, grid.values.data(),
                       kTriangles);
  terrain.ReducePolysurface(&terrain, terrain.GetGridType());  // every second row and column
  for (int polygon = 0; polygon < terrain.GetPSNumPolygons(); ++polygon) {
    const RGBDType color = Heights((terrain.GetPSPMean(polygon, 2) - 200.0) / 900.0);
    terrain.SetPolysurfaceColors(polygon, color, color);
  }

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.0, 200.0, 0.0}, {30.0, 32.0, 1100.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Contours on the land, every 100 m");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("U.S. Geological Survey, National Elevation Dataset");
  transform->SetChartRect({0.60, 0.66, 0.09, 0.0});
  transform->SetOffset({0.02, 0.0, 0.02, 0.0});
  transform->SetRotate({-50.0, 0.0, 22.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  axes->SetAxisTics(2, 200.0, 100.0, 4, 0.01, 0.02, 0);
  for (const int axis : {0, 1, 2}) axes->SetAxisLabelsPlane(axis, 3);  // facing the viewer
  axes->SetAxisTitleString(0, "km east");
  axes->SetAxisTitleString(1, "km south");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them
  axes->SetAxisTitleString(2, "m");

  CChartObj3D* surface = chart->NewChartObj(transform);
  surface->PolysurfaceChart3D(&terrain);
  surface->SetOutlineMode(0);
  // A series for each height lays its lines there, and a little more, so that they lie upon the
  // surface. Half metres keep them off the whole metres of the data.
  for (double height = 300.5; height < 1100.0; height += 100.0) {
    constexpr std::array<RGBDType, 2> kColors{kInk, kInk};
    chart->NewChartObj(transform)->ContourPolysurface3D(&terrain, &height, kColors.data(), 1,
                                                        height + 8.0, 0);
  }
}
