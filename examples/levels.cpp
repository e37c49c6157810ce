// Bars and slabs
// People at work in the United States, by sector: the slabs show January 2008, the bars February
// 2010. The gap between both is what the crisis cost.

#include <orvalix/orvalix.h>

#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawLevels(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/employment.csv");
  const std::vector<std::string> columns{
      "construction", "financial_activities", "leisure_and_hospitality",      "manufacturing",
      "retail_trade", "government",           "education_and_health_services"};
  const std::vector<CString> names{"building", "finance", "leisure", "industry",
                                   "retail",   "state",   "health"};
  constexpr double kWidth = 0.6;
  std::vector<point3Dtype> bars;
  std::vector<point3Dtype> slabs;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const double x = static_cast<double>(i) + 1.0;
    const double before = table.ColumnWhere(columns[i], "month", "2008-01").front() / 1000.0;
    const double after = table.ColumnWhere(columns[i], "month", "2010-02").front() / 1000.0;
    bars.push_back({x - kWidth / 2.0, 0.2, after, 0.0});
    slabs.push_back({x - kWidth / 2.0 - 0.05, 0.15, before, 0.0});
  }

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.4, 0.0, 0.0, 0.0}, {7.6, 1.0, 25.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Building and industry lost the most jobs from 2008 to 2010");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("U.S. Bureau of Labor Statistics");
  transform->SetChartRect({0.76, 0.14, 0.56, 0.0});
  transform->SetOffset({0.06, 0.0, -0.06, 0.0});
  transform->SetRotate({-16.0, 0.0, 12.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);
  axes->EnableAxisLabels(1, 0);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);
  axes->SetAxisTitleString(2, "millions");
  axes->SetAxisTics(0, 1.0, 1.0, 1, 0.02, 0.03, 2);
  axes->SetAxisLabelsStrings(0, names.data(), static_cast<int>(names.size()));
  axes->EnableAxisLabelsStrings(0, 1);

  const auto count = static_cast<int>(bars.size());
  chart->NewChartObj(transform)->BarChart3D(bars.data(), nullptr, count, kWidth, 0.6, kBlue, kInk);
  CChartObj3D* before = chart->NewChartObj(transform);
  before->PlaneChart3D(slabs.data(), count, kWidth + 0.1, 0.7, kOrange, kInk);
  before->SetPlaneThickness(0.008);  // of the height of the chart

  CLegend3D* legend = view.NewLegend3D();
  legend->SetLegendPosition({0.29, 0.84, 0.46, 0.06});
  legend->SetLegendOrientation(1);  // symbols to the left
  legend->SetLegendColumns(2);
  legend->EnableLegendBorder(0);
  legend->SetLegendBorderColor(kWhite);
  legend->SetFontSize(0.055);
  legend->NewLegendObj("February 2010", 3, kBlue)->SetSymbolScale(0.4);
  legend->NewLegendObj("January 2008", 3, kOrange)->SetSymbolScale(0.4);
}
