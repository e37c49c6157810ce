// A chart from a file
// A chart is saved into a file and loaded into another view, where it is turned and gets another
// title: everything else came out of the file.

#include <orvalix/orvalix.h>

#include <array>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"
#include "support/temporary_file.h"

using namespace examples;

namespace {

/// Saves a view with a chart of stacked bars.
void SaveChart(const std::string& data, const char* path) {
  const CsvTable table(data + "/electricity.csv");
  const std::vector<double> years = table.Column("year");
  std::vector<double> groups;  // source after source
  for (const char* column : {"fossil_fuels_gwh", "nuclear_energy_gwh", "renewables_gwh"}) {
    const std::vector<double> output = table.Column(column);
    groups.insert(groups.end(), output.begin(), output.end());
  }
  CWnd window;
  window.CreateOffscreen(100, 100);
  CChartView3D view(&window);
  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart =
      view.NewChart3D({2000.0, 0.0, 0.0, 0.0}, {2018.0, 1.0, 60000.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  transform->SetChartRect({0.64, 0.30, 0.58, 0.0});
  transform->SetOffset({0.06, 0.0, 0.04, 0.0});
  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);
  axes->EnableAxisLabels(1, 0);
  axes->SetAxisLabelsFormat(2, 2);  // 20K for 20000
  axes->SetAxisTics(0, 2001.0, 1.0, 4, 0.02, 0.04, 2);
  axes->SetAxisTitleString(2, "GWh");
  constexpr std::array<RGBDType, 3> kColors{kGrey, kOrange, kGreen};
  constexpr int kCentred = 1;
  chart->NewChartObj(transform)->GroupAreaFillChart25D(years.data(), groups.data(), 0.5,
                                                       static_cast<int>(years.size()), 3, 0.8,
                                                       kColors.data(), kInk, kCentred, 0);
  view.Save(path);
}

}  // namespace

void DrawChartFile(CChartView3D& view, const std::string& data) {
  const TemporaryFile file(".chart");
  SaveChart(data, file.Path());

  view.Load(file.Path());
  CChart3D* chart = view.GetChart(0);
  chart->GetHeader()->SetTitle1("Loaded from a file, and turned");
  chart->GetHeader()->SetFooter("U.S. Energy Information Administration");
  chart->GetTransform(0)->SetRotate({-24.0, 0.0, 24.0, 0.0});
}
