// A path and its projections
// Jobs in three sectors from 2006 (dark) to 2015 (yellow) as a line through space, with its shadows
// on the floor and on both walls.

#include <orvalix/orvalix.h>

#include <string>
#include <utility>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawPath(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/employment.csv");
  const std::vector<double> x = table.Column("construction");
  const std::vector<double> y = table.Column("manufacturing");
  const std::vector<double> z = table.Column("retail_trade");
  std::vector<point3Dtype> path;
  std::vector<RGBDType> colors;
  for (std::size_t month = 0; month < x.size(); ++month) {
    path.push_back({x[month] / 1000.0, y[month] / 1000.0, z[month] / 1000.0, 0.0});
    colors.push_back(Viridis(static_cast<double>(month) / static_cast<double>(x.size())));
  }
  const auto count = static_cast<int>(path.size());

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  constexpr point3Dtype kMin{5.0, 11.0, 14.0, 0.0};
  constexpr point3Dtype kMax{8.0, 15.0, 16.0, 0.0};
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D(kMin, kMax, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Through the crisis and, for retail alone, back");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("millions of jobs; U.S. Bureau of Labor Statistics");
  transform->SetChartRect({0.56, 0.48, 0.54, 0.0});
  transform->SetOffset({0.02, 0.0, 0.01, 0.0});
  transform->SetRotate({-24.0, 0.0, 26.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
    axes->SetPlaneGrid(plane, 5, 5, kLine, 2.0, 0, 0);
  }
  axes->SetAxisTics(0, 5.0, 0.2, 5, 0.02, 0.03, 2);
  axes->SetAxisTics(1, 11.0, 0.2, 5, 0.02, 0.03, 3);
  axes->SetAxisTics(2, 14.0, 0.1, 5, 0.01, 0.02, 0);
  axes->SetAxisTitleString(0, "building");
  axes->SetAxisTitlePlane(0, 1);  // along its axis
  axes->SetAxisTitleString(1, "industry");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them
  axes->SetAxisTitleString(2, "retail");

  // The shadows lie a little before floor, back and left wall.
  for (const auto& [plane, place] :
       {std::pair{0, kMin.z + 0.01}, std::pair{1, kMin.y + 0.02}, std::pair{2, kMin.x + 0.02}}) {
    chart->NewChartObj(transform)->ProjectionLineChart3D(path.data(), 0.0, count, 0, 4, kEdge,
                                                         plane, place);
  }
  CChartObj3D* line = chart->NewChartObj(transform);
  line->LineChart3D(path.data(), count, 0, 9, kBlue);
  line->InitSegmentColorsStorage(colors.data());
}
