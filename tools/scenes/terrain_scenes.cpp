#include "scenes/terrain_scenes.h"

#include <vector>

#include "scenes/chart_style.h"
#include "scenes/csv_table.h"

namespace orvalix {
namespace {

// The grid in kilometres: three seconds of arc a step at 36.6 degrees north.
constexpr double kWidth = 29.9;
constexpr double kDepth = 31.8;
constexpr double kLowest = 200.0;
constexpr double kHighest = 1100.0;

constexpr int kTriangles = 1;

/// Rows run from north, at the back, to south.
CPolysurface ReadTerrain(const std::string& dataFolder) {
  const CsvGrid grid(dataFolder + "/terrain.csv");
  return CPolysurface(grid.rows, grid.columns, 0.0, 0.0, kWidth, kDepth, grid.values.data(),
                      kTriangles);
}

StyledChart AddTerrainChart(CChartView3D& view, const char* title, const Placement& placement) {
  const StyledChart styled =
      AddChart(view, {0.0, 0.0, kLowest, 0.0}, {30.0, 32.0, kHighest, 0.0}, title, placement);
  styled.chart->GetHeader()->SetFooter("U.S. Geological Survey, National Elevation Dataset");
  styled.chart->GetHeader()->GetFooterObj()->SetCharSize(0.7);
  SetAxisTitles(*styled.axes, "km east", "km south", "m");
  return styled;
}

constexpr Placement kOblique{.rect = {0.62, 0.62, 0.22, 0.0},
                             .offset = {0.02, 0.0, 0.06, 0.0},
                             .rotate = {-38.0, 0.0, 28.0, 0.0}};

}  // namespace

void BuildTerrainScene(CChartView3D& view, const std::string& dataFolder) {
  const StyledChart styled = AddTerrainChart(view, "The Jacksboro fault, Tennessee", kOblique);
  CPolysurface terrain = ReadTerrain(dataFolder);
  for (int polygon = 0; polygon < terrain.GetPSNumPolygons(); ++polygon) {
    const double height = terrain.GetPSPMean(polygon, 2);
    const RGBDType color = RampColor(HeightColors(), (height - kLowest) / (kHighest - kLowest));
    terrain.SetPolysurfaceColors(polygon, color, color);
  }
  CChartObj3D* surface = styled.chart->NewChartObj(styled.transform);
  surface->PolysurfaceChart3D(&terrain);
  surface->SetOutlineMode(0);
}

void BuildTerrainWireScene(CChartView3D& view, const std::string& dataFolder) {
  const StyledChart styled = AddTerrainChart(view, "The same valley as a wire frame", kOblique);
  CPolysurface terrain = ReadTerrain(dataFolder);
  for (int halvings = 0; halvings < 3; ++halvings) {
    terrain.ReducePolysurface(&terrain, terrain.GetGridType());
  }
  for (int polygon = 0; polygon < terrain.GetPSNumPolygons(); ++polygon) {
    const double height = terrain.GetPSPMean(polygon, 2);
    const RGBDType color = RampColor({{0.10, 0.30, 0.45, 1.0}, {0.70, 0.25, 0.10, 1.0}},
                                     (height - kLowest) / (kHighest - kLowest));
    terrain.SetPolysurfaceColors(polygon, color, color);
  }
  terrain.SetWireFrame(1);
  styled.chart->NewChartObj(styled.transform)->PolysurfaceChart3D(&terrain);
}

void BuildTerrainMapScene(CChartView3D& view, const std::string& dataFolder) {
  constexpr Placement kSteep{.rect = {0.66, 0.72, 0.10, 0.0},
                             .offset = {0.02, 0.0, 0.04, 0.0},
                             .rotate = {-62.0, 0.0, 0.0, 0.0}};
  const StyledChart styled =
      AddTerrainChart(view, "Contours of the Jacksboro fault, every 100 m", kSteep);
  styled.axes->EnableAxis(2, 0);
  styled.axes->EnableAxisLabels(2, 0);
  const CPolysurface terrain = ReadTerrain(dataFolder);

  // Nine bands of a hundred metres, coloured by height.
  constexpr int kBands = 11;
  std::vector<RGBDType> bands;
  for (int i = 0; i < kBands; ++i) {
    bands.push_back(RampColor(HeightColors(), (i * 100.0 - 100.0) / (kHighest - kLowest)));
  }
  styled.chart->SetTextureColorArray(bands.data(), 0.0, kHighest, kBands);
  constexpr int kByValue = 3;
  styled.chart->SetTextureMode(kByValue);
  CChartObj3D* map = styled.chart->NewChartObj(styled.transform);
  map->PolysurfaceChart2D(&terrain, kLowest, 0);
  map->SetColorMode(2);
  map->SetOutlineMode(0);

  std::vector<double> heights;
  for (double height = 300.5; height < kHighest; height += 100.0) heights.push_back(height);
  const std::vector<RGBDType> colors(heights.size() + 1, kDark);
  CLegend3D* legend = AddLegend(view, {0.02, 0.25, 0.14, 0.5});
  legend->SetTitle1("height, m");
  std::vector<double> limits;
  for (int i = 2; i < kBands; ++i) limits.push_back(i * 100.0);
  // The bands that begin at two hundred metres; a colour above all heights isn't shown.
  std::vector<RGBDType> legendColors(bands.begin() + 2, bands.end());
  legendColors.push_back(kDark);
  legend->ContourLegend2(limits.data(), legendColors.data(), static_cast<int>(limits.size()), 0,
                         kDark, 1);
  // A little above the map, so that the lines lie upon it.
  styled.chart->NewChartObj(styled.transform)
      ->ContourPolysurface3D(&terrain, heights.data(), colors.data(),
                             static_cast<int>(heights.size()), kLowest + 5.0, 0);
}

}  // namespace orvalix
