#include "scenes/earthquakes_scenes.h"

#include <array>
#include <cstdio>
#include <limits>
#include <vector>

#include "scenes/chart_style.h"
#include "scenes/csv_table.h"

namespace orvalix {
namespace {

/// Earthquakes of a range of magnitudes and how they are marked.
struct Strength {
  double from;
  double to;
  int symbol;
  double size;
  RGBDType color;
};

constexpr double kUnlimited = std::numeric_limits<double>::infinity();
constexpr std::array<Strength, 3> kStrengths{
    {{4.0, 5.0, CChartObj3D::kCube, 0.16, {0.94, 0.74, 0.24, 1.0}},
     {5.0, 6.0, CChartObj3D::kDiamond, 0.26, {0.90, 0.46, 0.14, 1.0}},
     {6.0, kUnlimited, CChartObj3D::kDiamond, 0.44, {0.74, 0.10, 0.10, 1.0}}}};

}  // namespace

void BuildEarthquakesScene(CChartView3D& view, const std::string& dataFolder) {
  const CsvTable table(dataFolder + "/earthquakes.csv");
  const std::vector<double> longitude = table.Column("longitude");
  const std::vector<double> latitude = table.Column("latitude");
  const std::vector<double> depth = table.Column("depth_km");
  const std::vector<double> magnitude = table.Column("magnitude");

  constexpr Placement kPlacement{.rect = {0.68, 0.50, 0.46, 0.0},
                                 .offset = {-0.02, 0.0, 0.02, 0.0},
                                 .rotate = {-26.0, 0.0, 10.0, 0.0}};
  // North is at the back and depth runs down: both axes run backwards.
  const StyledChart styled = AddChart(view, {-180.0, 90.0, 700.0, 0.0}, {180.0, -90.0, 0.0, 0.0},
                                      "Earthquakes, 31 January to 7 February 2018", kPlacement);
  styled.chart->GetHeader()->SetFooter("U.S. Geological Survey");
  styled.chart->GetHeader()->GetFooterObj()->SetCharSize(0.7);
  SetAxisTitles(*styled.axes, "longitude", "latitude", "depth, km");

  CLegend3D* legend = AddLegend(view, {0.85, 0.78, 0.14, 0.13});
  constexpr int kSurface = 0;
  for (const Strength& strength : kStrengths) {
    CString label;
    label.Format("magnitude %.0f", strength.from);
    legend->NewLegendObj(label, strength.symbol, strength.color)->SetSymbolScale(0.15);
    std::vector<point3Dtype> points;
    std::vector<CString> texts;
    for (std::size_t i = 0; i < magnitude.size(); ++i) {
      if (magnitude[i] < strength.from || magnitude[i] >= strength.to) continue;
      points.push_back({longitude[i], latitude[i], depth[i], 0.0});
      CString text;
      text.Format("%.1f", magnitude[i]);
      texts.push_back(text);
    }
    const auto count = static_cast<int>(points.size());
    styled.chart->NewChartObj(styled.transform)
        ->ScatterChart3D(points.data(), strength.size, count, strength.symbol, strength.color,
                         kDark, kSurface, 0.0);
    if (strength.to < kUnlimited) continue;
    for (point3Dtype& point : points) point.z -= 60.0;  // above the symbol
    constexpr int kFacingTheViewer = 3;
    constexpr int kNoLines = -1;
    styled.chart->NewChartObj(styled.transform)
        ->ScatterText3D(points.data(), texts.data(), count, 0.7, kFacingTheViewer, kDark, kNoLines,
                        0.0);
  }
}

void BuildEarthquakeDepthScene(CChartView3D& view, const std::string& dataFolder) {
  const CsvTable table(dataFolder + "/earthquakes.csv");
  const std::vector<double> longitude = table.Column("longitude");
  const std::vector<double> latitude = table.Column("latitude");
  const std::vector<double> depth = table.Column("depth_km");
  constexpr point3Dtype kMin{-156.0, 65.0, -160.0, 0.0};
  constexpr point3Dtype kMax{-146.0, 58.0, 20.0, 0.0};
  std::vector<point3Dtype> points;
  for (std::size_t i = 0; i < depth.size(); ++i) {
    const bool inside = longitude[i] > kMin.x && longitude[i] < kMax.x && latitude[i] < kMin.y &&
                        latitude[i] > kMax.y && -depth[i] > kMin.z;
    if (inside) points.push_back({longitude[i], latitude[i], -depth[i], 0.0});
  }
  CPolysurface surface(points.data(), 0, static_cast<int>(points.size()));
  surface.DelaunaySurface(1);
  for (int polygon = 0; polygon < surface.GetPSNumPolygons(); ++polygon) {
    const RGBDType color = RampColor({{0.96, 0.84, 0.50, 1.0},
                                      {0.86, 0.50, 0.28, 1.0},
                                      {0.56, 0.24, 0.34, 1.0},
                                      {0.24, 0.14, 0.36, 1.0}},
                                     surface.GetPSPMean(polygon, 2) / kMin.z);
    surface.SetPolysurfaceColors(polygon, color, kDark);
  }

  constexpr Placement kPlacement{.rect = {0.56, 0.52, 0.46, 0.0},
                                 .offset = {0.0, 0.0, 0.0, 0.0},
                                 .rotate = {-36.0, 0.0, 18.0, 0.0}};
  const StyledChart styled =
      AddChart(view, kMin, kMax, "Depth of earthquakes under Alaska, triangulated", kPlacement);
  styled.chart->GetHeader()->SetFooter("U.S. Geological Survey");
  styled.chart->GetHeader()->GetFooterObj()->SetCharSize(0.7);
  SetAxisTitles(*styled.axes, "longitude", "latitude", "km");
  styled.chart->NewChartObj(styled.transform)->PolysurfaceChart3D(&surface);
  const std::array<double, 5> depths{-100.0, -80.0, -60.0, -40.0, -20.0};
  const std::vector<RGBDType> colors(depths.size() + 1, RGBDType{0.20, 0.35, 0.55, 1.0});
  styled.chart->NewChartObj(styled.transform)
      ->ContourPolysurface3D(&surface, depths.data(), colors.data(),
                             static_cast<int>(depths.size()), kMin.z + 1.0, 0);
}

}  // namespace orvalix
