// A bitmap on a wall
// Earthquakes before a map of rain: the map is a picture of a first view, in a bitmap file, which a
// second view hangs on its wall.

#include <orvalix/orvalix.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"
#include "support/temporary_file.h"

using namespace examples;

namespace {

/// Writes a map of the world: a surface laid flat, seen straight from above, that fills a view.
void WriteMap(const std::string& data, const char* path) {
  CsvGrid grid(data + "/precipitation.csv");
  for (double& value : grid.values) value = std::min(value, 2970.0);
  const CPolysurface rain(grid.rows, grid.columns, 0.0, 0.0, 1.0, 1.0, grid.values.data(), 1);
  CWnd window;
  window.CreateOffscreen(1440, 672);
  CChartView3D view(&window);
  view.EnableBorder(0);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.0, 0.0, 0.0}, {1.0, 1.0, 1.0, 0.0}, &transform);
  chart->EnableBorder(0);
  transform->SetChartRect({1.0, 1.0, 0.1, 0.0});  // the whole view
  transform->SetRotate({-90.0, 0.0, 0.0, 0.0});
  std::vector<RGBDType> colors;  // paler than the earthquakes
  for (double t = 0.0; t < 1.0; t += 0.03) colors.push_back({0.97 - t / 2, 0.96 - t / 3, 0.9, 1.0});
  chart->SetTextureColorArray(colors.data(), 0.0, 3000.0, static_cast<int>(colors.size()));
  chart->SetTextureMode(3);  // by value
  CChartObj3D* map = chart->NewChartObj(transform);
  map->PolysurfaceChart2D(&rain, 0.0, 0);
  map->SetColorMode(2);
  map->SetOutlineMode(0);
  view.SaveToFile(path);
}

}  // namespace

void DrawBitmap(CChartView3D& view, const std::string& data) {
  const TemporaryFile map(".bmp");
  WriteMap(data, map.Path());
  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  constexpr point3Dtype kMin{-180.0, 0.0, -81.0, 0.0};
  CChart3D* chart = view.NewChart3D(kMin, {180.0, 600.0, 87.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("The deeper an earthquake, the farther before the map");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("U.S. Geological Survey; rain: NOAA");
  transform->SetChartRect({0.62, 0.38, 0.52, 0.0});
  transform->SetOffset({-0.05, 0.0, 0.02, 0.0});
  transform->SetRotate({-18.0, 0.0, 14.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->SetAxisTics(0, -180.0, 30.0, 4, 0.02, 0.03, 2);
  axes->SetAxisTitleString(0, "longitude");
  axes->SetAxisTitleString(1, "depth (km)");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them
  axes->SetAxisTitleString(2, "latitude");
  chart->NewDIBObj(transform, map.Path())
      ->SetPlanePoints(kMin, {-180.0, 0.0, 87.0, 0.0}, {180.0, 0.0, 87.0, 0.0});

  std::vector<point3Dtype> points =
      CsvTable(data + "/earthquakes.csv").Points("longitude", "depth_km", "latitude", "magnitude");
  std::erase_if(points, [](const point3Dtype& quake) { return quake.v < 4.0; });
  constexpr int kBackWall = 1;
  chart->NewChartObj(transform)->ScatterChart3D(points.data(), 0.16,
                                                static_cast<int>(points.size()), CChartObj3D::kCube,
                                                kVermilion, kInk, kBackWall, 0.0);
}
