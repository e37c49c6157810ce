// Stacked areas
// Everybody at work in seven sectors of the United States, month by month.

#include <orvalix/orvalix.h>

#include <array>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawStackedAreas(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/employment.csv");
  constexpr std::array<const char*, 7> kNames{"state",    "health",  "retail",  "leisure",
                                              "industry", "finance", "building"};
  constexpr std::array<RGBDType, 7> kColors{kGrey,   kBlue,   kSky,      kGreen,
                                            kYellow, kOrange, kVermilion};
  std::vector<double> groups;  // sector after sector
  for (const char* column :
       {"government", "education_and_health_services", "retail_trade", "leisure_and_hospitality",
        "manufacturing", "financial_activities", "construction"}) {
    for (const double jobs : table.Column(column)) groups.push_back(jobs / 1000.0);
  }
  std::vector<double> years;
  for (int month = 0; month < 120; ++month) years.push_back(2006.0 + month / 12.0);

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({2006.0, 0.0, 0.0, 0.0}, {2016.0, 1.0, 120.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("A hundred million people at work, by sector");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("United States; U.S. Bureau of Labor Statistics");
  transform->SetChartRect({0.62, 0.16, 0.64, 0.0});
  transform->SetOffset({-0.08, 0.0, 0.0, 0.0});
  transform->SetRotate({-16.0, 0.0, 14.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);
  axes->EnableAxisLabels(1, 0);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);
  axes->SetAxisTics(0, 2006.0, 1.0, 2, 0.02, 0.03, 2);
  axes->SetAxisTitleString(2, "millions");

  CChartObj3D* areas = chart->NewChartObj(transform);
  areas->GroupAreaFillChart25D(years.data(), groups.data(), 0.5, static_cast<int>(years.size()), 7,
                               0.7, kColors.data(), kInk, 1, 0);
  areas->SetOutlineMode(0);

  CLegend3D* legend = view.NewLegend3D();  // in the order of the layers, from above
  legend->SetLegendPosition({0.82, 0.32, 0.17, 0.40});
  legend->SetLegendOrientation(1);
  legend->EnableLegendBorder(0);
  legend->SetLegendBorderColor(kWhite);
  legend->SetFontSize(0.055);
  for (std::size_t i = kNames.size(); i-- > 0;) {
    legend->NewLegendObj(kNames[i], 3, kColors[i])->SetSymbolScale(0.07);
  }
}
