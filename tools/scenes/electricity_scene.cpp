#include "scenes/electricity_scene.h"

#include <array>
#include <vector>

#include "orvalix/orvalix.h"
#include "scenes/csv_table.h"

namespace orvalix {
namespace {

struct Source {
  const char* column;
  RGBDType color;
};

constexpr std::array<Source, 3> kSources{{{"fossil_fuels_gwh", {0.34, 0.37, 0.44, 1.0}},
                                          {"renewables_gwh", {0.18, 0.54, 0.34, 1.0}},
                                          {"nuclear_energy_gwh", {0.78, 0.56, 0.14, 1.0}}}};

}  // namespace

void BuildElectricityScene(CChartView3D& view, const std::string& dataFolder) {
  const CsvTable table(dataFolder + "/electricity.csv");
  std::vector<double> years = table.Column("year");

  view.EnableBorder(0);
  CTransform3D* transform = nullptr;
  CChart3D* chart =
      view.NewChart3D({2000.4, 0.4, 0.0, 0.0}, {2017.6, 3.6, 45000.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetChartBkColor(SetRGBD(0.97, 0.97, 0.98, 1.0));
  transform->SetChartRect({0.80, 0.42, 0.72, 0.0});
  transform->SetRotate({-22.0, 0.0, 20.0, 0.0});

  // The tallest source stands farthest back, so that no row hides the next one.
  double row = 1.0;
  for (const Source& source : kSources) {
    std::vector<double> generation = table.Column(source.column);
    CChartObj3D* bars = chart->NewChartObj(transform);
    bars->BarChart25D(years.data(), generation.data(), 0.0, row, static_cast<int>(years.size()),
                      0.6, 0.6, source.color, SetRGBD(0.1, 0.1, 0.12, 1.0), 1, 1, 0);
    row += 1.0;
  }
}

}  // namespace orvalix
