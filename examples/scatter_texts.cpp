// Texts in space
// Seven sectors of the United States by the jobs that they lost from 2008 to 2010 and regained
// until 2015: names stand where the values are, with lines down to the floor.

#include <orvalix/orvalix.h>

#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawScatterTexts(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/employment.csv");
  const std::vector<CString> names{"state",    "health",  "retail",  "leisure",
                                   "industry", "finance", "building"};
  std::vector<point3Dtype> points;
  for (const char* column :
       {"government", "education_and_health_services", "retail_trade", "leisure_and_hospitality",
        "manufacturing", "financial_activities", "construction"}) {
    const std::vector<double> jobs = table.Column(column);
    const double before = jobs[24];  // January 2008
    const double lowest = jobs[49];  // February 2010
    points.push_back({100.0 * (lowest / before - 1.0), 100.0 * (jobs.back() / lowest - 1.0),
                      jobs.back() / 1000.0, 0.0});
  }

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({-30.0, -5.0, 0.0, 0.0}, {10.0, 20.0, 25.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("What the crisis took, and what came back");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("United States; U.S. Bureau of Labor Statistics");
  transform->SetChartRect({0.58, 0.50, 0.48, 0.0});
  transform->SetOffset({-0.01, 0.0, 0.01, 0.0});
  transform->SetRotate({-26.0, 0.0, 24.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
    axes->SetPlaneGrid(plane, 5, 5, kLine, 2.0, 0, 0);
  }
  axes->SetAxisTics(0, -30.0, 2.0, 5, 0.02, 0.03, 2);
  axes->SetAxisTics(1, -5.0, 1.0, 5, 0.02, 0.03, 3);
  axes->SetAxisTics(2, 0.0, 1.0, 5, 0.01, 0.02, 0);
  axes->SetAxisTitleString(0, "lost (%)");
  axes->SetAxisTitlePlane(0, 1);  // along its axis
  axes->SetAxisTitleString(1, "regained (%)");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them
  axes->SetAxisTitleString(2, "jobs (millions)");

  constexpr int kFloor = 0;
  const auto count = static_cast<int>(points.size());
  chart->NewChartObj(transform)->ScatterChart3D(points.data(), 0.3, count, CChartObj3D::kDiamond,
                                                kVermilion, kInk, kFloor, 0.0);
  for (point3Dtype& point : points) point.z += 1.5;  // above the symbols
  constexpr int kFacingTheViewer = 3;
  constexpr int kNoLines = -1;
  chart->NewChartObj(transform)->ScatterText3D(points.data(), names.data(), count, 1.0,
                                               kFacingTheViewer, kInk, kNoLines, 0.0);
}
