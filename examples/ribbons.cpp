// Ribbons
// Jobs in five sectors of the United States, month by month, in percent of January 2006.

#include <orvalix/orvalix.h>

#include <array>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

namespace {

struct Sector {
  const char* name;
  const char* column;
  RGBDType color;
};

constexpr std::array<Sector, 5> kSectors{{{"health", "education_and_health_services", kBlue},
                                          {"leisure", "leisure_and_hospitality", kGreen},
                                          {"retail", "retail_trade", kOrange},
                                          {"industry", "manufacturing", kPurple},
                                          {"building", "construction", kVermilion}}};

}  // namespace

void DrawRibbons(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/employment.csv");

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart =
      view.NewChart3D({2006.0, 0.4, 60.0, 0.0}, {2016.0, 5.6, 130.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Building lost three of ten jobs, health grew on");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("U.S. Bureau of Labor Statistics");
  transform->SetChartRect({0.60, 0.46, 0.46, 0.0});
  transform->SetOffset({-0.02, 0.0, 0.0, 0.0});
  transform->SetRotate({-26.0, 0.0, 22.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  axes->SetAxisTics(2, 60.0, 5.0, 4, 0.01, 0.02, 0);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, 4, kLine, 2.0, 0, 0);
  axes->SetAxisTics(0, 2006.0, 1.0, 2, 0.02, 0.03, 2);
  axes->SetAxisTitleString(2, "%");
  std::vector<CString> names;
  for (const Sector& sector : kSectors) names.emplace_back(sector.name);
  axes->SetAxisTics(1, 1.0, 1.0, 1, 0.02, 0.03, 3);
  axes->SetAxisLabelsStrings(1, names.data(), static_cast<int>(names.size()));
  axes->EnableAxisLabelsStrings(1, 1);

  double row = 1.0;
  for (const Sector& sector : kSectors) {
    const std::vector<double> jobs = table.Column(sector.column);
    std::vector<double> years;
    std::vector<double> percent;
    for (const double number : jobs) {
      years.push_back(2006.0 + static_cast<double>(years.size()) / 12.0);
      percent.push_back(100.0 * number / jobs.front());
    }
    CChartObj3D* ribbon = chart->NewChartObj(transform);
    ribbon->RibbonChart25D(years.data(), percent.data(), row, static_cast<int>(years.size()), 0.6,
                           sector.color, kInk, 1, 0);
    ribbon->SetOutlineMode(0);
    row += 1.0;
  }
}
