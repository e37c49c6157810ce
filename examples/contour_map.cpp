// A map of contours
// The same land laid flat and seen from above: bands of colour, contour lines, and a legend of the
// bands.

#include <orvalix/orvalix.h>

#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawContourMap(CChartView3D& view, const std::string& data) {
  const CsvGrid grid(data + "/terrain.csv");
  constexpr int kTriangles = 1;
  CPolysurface terrain(grid.rows, grid.columns, 0.0, 0.0, 29.9, 31.8, grid.values.data(),
                       kTriangles);
  terrain.ReducePolysurface(&terrain, terrain.GetGridType());  // every second row and column

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.0, 0.0, 0.0}, {29.9, 31.8, 1100.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Heights around the Jacksboro fault");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("U.S. Geological Survey, National Elevation Dataset");
  transform->SetChartRect({0.50, 0.66, 0.05, 0.0});
  transform->SetOffset({-0.20, 0.0, 0.04, 0.0});
  transform->SetRotate({-90.0, 0.0, 0.0, 0.0});  // straight from above

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(2, 0);
  axes->EnableAxisLabels(2, 0);
  for (const int axis : {0, 1}) axes->SetAxisLabelsPlane(axis, 3);  // facing the viewer
  axes->SetAxisTics(0, 0.0, 5.0, 2, 0.01, 0.02, 4);
  axes->SetAxisLabelsDir(0, 4);
  axes->SetAxisTics(1, 0.0, 5.0, 2, 0.01, 0.02, 3);
  axes->SetAxisTitleString(0, "km east");
  axes->SetAxisTitleString(1, "km south");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them

  // Bands of a hundred metres from 0 to 1100, coloured by the value that each point carries.
  std::vector<RGBDType> bands;
  for (int i = 0; i < 11; ++i) bands.push_back(Heights((100.0 * i - 200.0) / 800.0));
  chart->SetTextureColorArray(bands.data(), 0.0, 1100.0, static_cast<int>(bands.size()));
  constexpr int kByValue = 3;
  chart->SetTextureMode(kByValue);
  CChartObj3D* map = chart->NewChartObj(transform);
  map->PolysurfaceChart2D(&terrain, 0.0, 0);
  map->SetColorMode(2);
  map->SetOutlineMode(0);

  // Between the bands, above the map. Half metres keep lines off the whole metres of the data.
  std::vector<double> limits;
  for (double height = 200.0; height < 1100.0; height += 100.0) limits.push_back(height);
  std::vector<double> heights;
  for (const double limit : limits) heights.push_back(limit + 0.5);
  const std::vector<RGBDType> ink(heights.size() + 1, kInk);
  chart->NewChartObj(transform)->ContourPolysurface3D(&terrain, heights.data(), ink.data(),
                                                      static_cast<int>(heights.size()), 50.0, 0);

  CLegend3D* legend = view.NewLegend3D();
  legend->SetLegendPosition({0.85, 0.25, 0.14, 0.50});
  legend->SetLegendOrientation(1);  // symbols to the left
  legend->EnableLegendBorder(0);
  legend->SetLegendBorderColor(kWhite);
  legend->SetFontSize(0.055);
  legend->SetTitle1("from, m");
  bands.push_back(kInk);  // above all heights; not shown
  legend->ContourLegend2(limits.data(), bands.data() + 2, static_cast<int>(limits.size()), 0, kInk,
                         1);
}
