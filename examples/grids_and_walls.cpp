// Grids and walls
// The same path four times: on axes alone, before grids, before filled planes, and before walls
// that have a thickness.

#include <orvalix/orvalix.h>

#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawGridsAndWalls(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/employment.csv");
  const std::vector<double> x = table.Column("construction");
  const std::vector<double> y = table.Column("manufacturing");
  const std::vector<double> z = table.Column("retail_trade");
  std::vector<point3Dtype> path;
  for (std::size_t month = 0; month < x.size(); ++month) {
    path.push_back({x[month] / 1000.0, y[month] / 1000.0, z[month] / 1000.0, 0.0});
  }

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  const std::vector<CString> titles{"axes", "grids", "fills", "walls"};
  for (int i = 0; i < 4; ++i) {
    CTransform3D* transform = nullptr;
    CChart3D* chart = view.NewChart3D({5.0, 11.0, 14.0, 0.0}, {8.0, 15.0, 16.0, 0.0}, &transform);
    chart->SetChartPosition({i % 2 == 0 ? 0.0 : 0.5, i < 2 ? 0.5 : 0.0, 0.5, 0.5});
    chart->EnableBorder(0);
    chart->SetFontSize(0.08);
    chart->GetHeader()->SetTitle1(titles[static_cast<std::size_t>(i)]);
    chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.2);
    transform->SetChartRect({0.58, 0.50, 0.48, 0.0});
    transform->SetOffset({0.0, 0.0, -0.02, 0.0});
    transform->SetRotate({-24.0, 0.0, 26.0, 0.0});

    CAxes3D* axes = chart->AutoAxes(transform);
    axes->SetAxisTics(0, 5.0, 0.2, 5, 0.02, 0.04, 2);
    axes->SetAxisTics(1, 11.0, 0.2, 10, 0.02, 0.04, 3);
    axes->SetAxisTics(2, 14.0, 0.1, 5, 0.02, 0.04, 0);
    for (const int plane : {0, 1, 2}) {  // floor, back and left
      if (i >= 1) axes->SetPlaneGrid(plane, 5, 5, kEdge, 1.0, 0, 1);
      if (i == 2) axes->SetPlaneColor(plane, kWall, kEdge);
      if (i == 3) {
        axes->SetWallPlane(plane, SetRGBD(0.80, 0.86, 0.93, 1.0), kEdge);
        axes->SetWallThickness(plane, 0.05);  // of the extent across the plane
        axes->SetOutlineWidth(plane, 2.0);
      }
      axes->SetPlaneColorMode(plane, 0);  // not lit
    }
    chart->NewChartObj(transform)->LineChart3D(path.data(), static_cast<int>(path.size()), 0, 7,
                                               kVermilion);
  }
}
