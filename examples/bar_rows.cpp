// Rows of bars
// Electricity generated in Iowa: a row of bars for each source, the tallest at the back, and the
// names of the rows as labels of the depth axis.

#include <orvalix/orvalix.h>

#include <array>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

namespace {

struct Source {
  const char* name;
  const char* column;
  RGBDType color;
};

constexpr std::array<Source, 3> kSources{{{"fossil fuels", "fossil_fuels_gwh", kGrey},
                                          {"renewables", "renewables_gwh", kGreen},
                                          {"nuclear", "nuclear_energy_gwh", kOrange}}};

}  // namespace

void DrawBarRows(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/electricity.csv");
  const std::vector<double> years = table.Column("year");

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart =
      view.NewChart3D({2000.0, 0.4, 0.0, 0.0}, {2018.0, 3.6, 45000.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Iowa's electricity: renewables catch up");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("U.S. Energy Information Administration");
  transform->SetChartRect({0.58, 0.38, 0.54, 0.0});
  transform->SetOffset({0.0, 0.0, 0.0, 0.0});
  transform->SetRotate({-22.0, 0.0, 20.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);
  axes->SetAxisTics(0, 2001.0, 1.0, 4, 0.02, 0.04, 2);  // a label every four years, below
  axes->SetAxisLabelsFormat(2, 2);                      // 20K for 20000
  axes->SetAxisTitleString(2, "GWh");

  // Strings instead of numbers at 1, 2 and 3 of the depth axis.
  std::vector<CString> names;
  for (const Source& source : kSources) names.emplace_back(source.name);
  axes->SetAxisTics(1, 1.0, 1.0, 1, 0.02, 0.04, 3);
  axes->SetAxisLabelsStrings(1, names.data(), static_cast<int>(names.size()));
  axes->EnableAxisLabelsStrings(1, 1);

  double row = 1.0;
  for (const Source& source : kSources) {
    const std::vector<double> output = table.Column(source.column);
    chart->NewChartObj(transform)->BarChart25D(years.data(), output.data(), 0.0, row,
                                               static_cast<int>(years.size()), 0.6, 0.6,
                                               source.color, kInk, 1, 1, 0);
    row += 1.0;
  }
}
