// Axes that suit the data
// Electricity that Iowa generates from renewable sources: the chart chooses scales, tics and labels
// by itself.

#include <orvalix/orvalix.h>

#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

void DrawAutoAxes(CChartView3D& view, const std::string& data) {
  const examples::CsvTable table(data + "/electricity.csv");
  const std::vector<double> years = table.Column("year");
  const std::vector<double> output = table.Column("renewables_gwh");
  const auto count = static_cast<int>(years.size());

  view.EnableBorder(0);
  CChart3D* chart = view.NewChart3D();
  chart->EnableBorder(0);
  chart->SetFontSize(0.05);
  chart->GetHeader()->SetTitle1("Electricity from renewable sources in Iowa");

  // A scale that fits the data, on a box that is wide, flat and turned a little.
  CTransform3D* transform = chart->AutoTransform25D(years.data(), output.data(), count, 1.0, 0, 0);
  transform->SetChartRect({0.70, 0.14, 0.64, 0.0});
  transform->SetOffset({0.08, 0.0, 0.0, 0.0});
  transform->SetRotate({-14.0, 0.0, 10.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);  // a single row needs no depth axis
  axes->EnableAxisLabels(1, 0);
  axes->SetAxisTitleString(0, "year");
  axes->SetAxisTitleString(2, "GWh");

  // Bars that stand on 0, in the middle of the depth, 0.8 years wide.
  chart->NewChartObj(transform)->BarChart25D(years.data(), output.data(), 0.0, 0.5, count, 0.8, 0.8,
                                             examples::kGreen, examples::kInk, 1, 1, 0);
}
