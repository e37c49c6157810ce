// A surface from scattered points
// The land around the Jacksboro fault from 2000 heights at random places, joined to triangles.

#include <orvalix/orvalix.h>

#include <random>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawScatteredPoints(CChartView3D& view, const std::string& data) {
  const CsvGrid grid(data + "/terrain.csv");
  std::mt19937 random(1);
  std::vector<point3Dtype> points;
  for (int i = 0; i < 2000; ++i) {
    const auto row = static_cast<int>(random() % static_cast<unsigned>(grid.rows));
    const auto column = static_cast<int>(random() % static_cast<unsigned>(grid.columns));
    points.push_back({29.9 * column / (grid.columns - 1), 31.8 * row / (grid.rows - 1),
                      grid.values[static_cast<std::size_t>(row * grid.columns + column)], 0.0});
  }
  CPolysurface land(points.data(), 0, static_cast<int>(points.size()));
  land.DelaunaySurface(0);
  for (int polygon = 0; polygon < land.GetPSNumPolygons(); ++polygon) {
    const RGBDType color = Heights((land.GetPSPMean(polygon, 2) - 200.0) / 900.0);
    land.SetPolysurfaceColors(polygon, color, kInk);  // of faces and of edges
  }

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.0, 200.0, 0.0}, {30.0, 32.0, 1100.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("2000 heights, joined to triangles");
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

  chart->NewChartObj(transform)->PolysurfaceChart3D(&land);
}
