#include "scenes/electricity_scene.h"

#include <array>
#include <vector>

#include "orvalix/orvalix.h"
#include "scenes/csv_table.h"

namespace orvalix {
namespace {

struct Source {
  const char* name;
  const char* column;
  RGBDType color;
};

constexpr std::array<Source, 3> kSources{
    {{"Fossil fuels", "fossil_fuels_gwh", {0.34, 0.37, 0.44, 1.0}},
     {"Renewables", "renewables_gwh", {0.18, 0.54, 0.34, 1.0}},
     {"Nuclear", "nuclear_energy_gwh", {0.78, 0.56, 0.14, 1.0}}}};

/// Directions of tics and labels.
constexpr int kDown = 2;
constexpr int kRight = 3;
/// Labels as 10K.
constexpr int kThousands = 2;

}  // namespace

void BuildElectricityScene(CChartView3D& view, const std::string& dataFolder) {
  const CsvTable table(dataFolder + "/electricity.csv");
  std::vector<double> years = table.Column("year");

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 128);
  CTransform3D* transform = nullptr;
  CChart3D* chart =
      view.NewChart3D({2000.4, 0.4, 0.0, 0.0}, {2017.6, 3.6, 45000.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetChartBkColor(SetRGBD(0.97, 0.97, 0.98, 1.0));
  chart->SetFontSize(0.07);
  chart->GetHeader()->SetTitle1("Electricity generated in Iowa");
  chart->GetHeader()->SetFooter("U.S. Energy Information Administration");
  chart->GetHeader()->GetFooterObj()->SetCharSize(0.7);
  transform->SetChartRect({0.62, 0.42, 0.52, 0.0});
  transform->SetOffset({0.02, 0.0, 0.02, 0.0});
  transform->SetRotate({-22.0, 0.0, 20.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  const RGBDType wall = SetRGBD(0.86, 0.89, 0.93, 1.0);
  const RGBDType line = SetRGBD(0.45, 0.48, 0.55, 1.0);
  for (const int plane : {0, 1, 2}) {
    axes->SetWallPlane(plane, wall, line);
    axes->SetWallThickness(plane, 0.03);
    axes->SetOutlineWidth(plane, 1.0);
  }
  const int valueTics = axes->GetAxisNthTicMajor(2);
  axes->SetPlaneGrid(1, 0, valueTics, line, 1.0, 0, 1);
  axes->SetPlaneGrid(2, 0, valueTics, line, 1.0, 0, 1);
  axes->SetAxisTics(0, 2001.0, 1.0, 4, 0.02, 0.04, kDown);
  axes->SetAxisLabelsFormat(2, kThousands);
  axes->SetAxisTitleString(0, "Year");
  axes->SetAxisTitleString(2, "GWh");
  std::vector<CString> names;
  for (const Source& source : kSources) names.emplace_back(source.name);
  axes->SetAxisTics(1, 1.0, 1.0, 1, 0.02, 0.04, kRight);
  axes->SetAxisLabelsStrings(1, names.data(), static_cast<int>(names.size()));
  axes->EnableAxisLabelsStrings(1, 1);

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
