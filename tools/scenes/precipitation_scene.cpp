#include "scenes/precipitation_scene.h"

#include <algorithm>

#include "scenes/chart_style.h"
#include "scenes/csv_table.h"

namespace orvalix {

void BuildPrecipitationScene(CChartView3D& view, const std::string& dataFolder) {
  constexpr double kMost = 4000.0;
  constexpr Placement kPlacement{.rect = {0.70, 0.66, 0.12, 0.0},
                                 .offset = {-0.01, 0.0, 0.06, 0.0},
                                 .rotate = {-46.0, 0.0, 10.0, 0.0}};
  CsvGrid grid(dataFolder + "/precipitation.csv");
  for (double& value : grid.values) value = std::min(value, 0.99 * kMost);
  // Latitudes fall from the north, at the back, to the south: the axis runs backwards.
  const StyledChart styled = AddChart(view, {-180.0, 90.0, 0.0, 0.0}, {180.0, -90.0, kMost, 0.0},
                                      "Precipitation in 2016", kPlacement);
  styled.chart->GetHeader()->SetFooter("NOAA, Climate Forecast System Version 2");
  styled.chart->GetHeader()->GetFooterObj()->SetCharSize(0.7);
  SetAxisTitles(*styled.axes, "longitude", "latitude", "mm");

  std::vector<RGBDType> colors;
  for (int i = 0; i < 16; ++i) {
    colors.push_back(RampColor({{0.95, 0.90, 0.72, 1.0},
                                {0.72, 0.84, 0.62, 1.0},
                                {0.30, 0.66, 0.62, 1.0},
                                {0.12, 0.38, 0.66, 1.0},
                                {0.26, 0.12, 0.48, 1.0}},
                               i / 15.0));
  }
  styled.chart->SetTextureColorArray(colors.data(), 0.0, kMost, static_cast<int>(colors.size()));
  constexpr int kByHeight = 2;
  styled.chart->SetTextureMode(kByHeight);
  const CPolysurface rain(grid.rows, grid.columns, -179.5, 86.5, 179.5, -80.5, grid.values.data(),
                          1);
  CChartObj3D* surface = styled.chart->NewChartObj(styled.transform);
  surface->PolysurfaceChart3D(&rain);
  surface->SetColorMode(2);
  surface->SetOutlineMode(0);
}

}  // namespace orvalix
