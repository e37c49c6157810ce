#include "scenes/penguins_scene.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <vector>

#include "scenes/chart_style.h"
#include "scenes/csv_table.h"

namespace orvalix {
namespace {

struct Species {
  const char* name;
  RGBDType color;
  int symbol;
};

constexpr std::array<Species, 3> kSpecies{
    {{"Adelie", {0.86, 0.45, 0.16, 1.0}, CChartObj3D::kCube},
     {"Chinstrap", {0.52, 0.28, 0.62, 1.0}, CChartObj3D::kPyramid},
     {"Gentoo", {0.10, 0.45, 0.50, 1.0}, CChartObj3D::kDiamond}}};

/// The value below which that share of the sorted values lies, interpolated.
double Quantile(const std::vector<double>& sorted, double share) {
  const double place = share * static_cast<double>(sorted.size() - 1);
  const auto below = static_cast<std::size_t>(place);
  const std::size_t above = std::min(below + 1, sorted.size() - 1);
  return std::lerp(sorted[below], sorted[above], place - static_cast<double>(below));
}

/// The six values of a box: whiskers reach to the outermost value within one and a half box heights
/// of the box; the symbol marks the mean.
std::array<double, 6> BoxOf(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const double lower = Quantile(values, 0.25);
  const double upper = Quantile(values, 0.75);
  const double reach = 1.5 * (upper - lower);
  const double mean =
      std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
  return {*std::lower_bound(values.begin(), values.end(), lower - reach),
          lower,
          Quantile(values, 0.5),
          upper,
          *(std::upper_bound(values.begin(), values.end(), upper + reach) - 1),
          mean};
}

/// The values of a column that belong to a species.
std::vector<double> ValuesOf(const CsvTable& table, const char* species, const char* column) {
  const std::vector<std::string> names = table.TextColumn("species");
  const std::vector<double> all = table.Column(column);
  std::vector<double> values;
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (names[i] == species) values.push_back(all[i]);
  }
  return values;
}

void AddBoxes(CChartView3D& view, const CsvTable& table) {
  const Placement placement{.position = {0.0, 0.0, 0.45, 1.0},
                            .rect = {0.60, 0.26, 0.60, 0.0},
                            .offset = {0.12, 0.0, 0.0, 0.0},
                            .rotate = {-14.0, 0.0, 18.0, 0.0},
                            .fontSize = 0.06};
  const StyledChart styled = AddChart(view, {0.4, 0.0, 2500.0, 0.0}, {3.6, 1.0, 6500.0, 0.0},
                                      "Body mass of penguins", placement);
  HideDepthAxis(*styled.axes);
  SetAxisTitles(*styled.axes, nullptr, nullptr, "g");
  std::vector<CString> names;
  std::vector<double> places;
  std::vector<double> rows(6 * kSpecies.size());
  for (std::size_t s = 0; s < kSpecies.size(); ++s) {
    names.emplace_back(kSpecies[s].name);
    places.push_back(static_cast<double>(s) + 1.0);
    const std::array<double, 6> box = BoxOf(ValuesOf(table, kSpecies[s].name, "body_mass_g"));
    for (std::size_t row = 0; row < box.size(); ++row) {
      rows[row * kSpecies.size() + s] = box[row];
    }
  }
  NameAxis(*styled.axes, 0, kDown, names);
  const RGBDType end{0.35, 0.38, 0.45, 1.0};
  const std::array<RGBDType, 6> colors{end,   {0.55, 0.68, 0.84, 1.0}, {0.36, 0.52, 0.74, 1.0}, end,
                                       kDark, {0.90, 0.30, 0.20, 1.0}};
  CChartObj3D* boxes = styled.chart->NewChartObj(styled.transform);
  boxes->BoxAndWhiskerChart25D(places.data(), rows.data(), 0.5, static_cast<int>(places.size()),
                               0.5, 0.5, CChartObj3D::kDiamond, 0.4, 3, colors.data(), kDark, 1, 0,
                               0, 0);
  boxes->SetPlaneThickness(0.01);
}

void AddMeasures(CChartView3D& view, const CsvTable& table) {
  const Placement placement{.position = {0.45, 0.0, 0.55, 1.0},
                            .rect = {0.54, 0.50, 0.58, 0.0},
                            .offset = {0.04, 0.0, 0.02, 0.0},
                            .rotate = {-20.0, 0.0, 24.0, 0.0},
                            .fontSize = 0.06};
  const StyledChart styled = AddChart(view, {30.0, 12.0, 165.0, 0.0}, {60.0, 22.0, 235.0, 0.0},
                                      "Beaks and flippers", placement);
  SetAxisTitles(*styled.axes, "beak length, mm", "beak depth, mm", "flipper, mm");
  CLegend3D* legend = AddLegend(view, {0.86, 0.80, 0.13, 0.13});
  for (const Species& species : kSpecies) {
    legend->NewLegendObj(species.name, species.symbol, species.color)->SetSymbolScale(0.15);
    const std::vector<double> length = ValuesOf(table, species.name, "beak_length_mm");
    const std::vector<double> depth = ValuesOf(table, species.name, "beak_depth_mm");
    const std::vector<double> flipper = ValuesOf(table, species.name, "flipper_length_mm");
    std::vector<point3Dtype> points;
    for (std::size_t i = 0; i < length.size(); ++i) {
      points.push_back({length[i], depth[i], flipper[i], 0.0});
    }
    constexpr int kNoLines = -1;
    styled.chart->NewChartObj(styled.transform)
        ->ScatterChart3D(points.data(), 0.3, static_cast<int>(points.size()), species.symbol,
                         species.color, kDark, kNoLines, 0.0);
  }
}

}  // namespace

void BuildPenguinsScene(CChartView3D& view, const std::string& dataFolder) {
  const CsvTable table(dataFolder + "/penguins.csv");
  AddBoxes(view, table);
  AddMeasures(view, table);
}

}  // namespace orvalix
