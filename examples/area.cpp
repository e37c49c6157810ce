// Areas about zero
// Jobs gained and lost within twelve months in three sectors: areas rise and hang from zero.

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

constexpr std::array<Sector, 3> kSectors{{{"health", "education_and_health_services", kBlue},
                                          {"building", "construction", kOrange},
                                          {"industry", "manufacturing", kVermilion}}};

}  // namespace

void DrawArea(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/employment.csv");

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({2007.0, 0.4, -2.0, 0.0}, {2016.0, 3.6, 1.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Jobs gained and lost within a year");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("United States; U.S. Bureau of Labor Statistics");
  transform->SetChartRect({0.62, 0.42, 0.50, 0.0});
  transform->SetOffset({-0.01, 0.0, 0.0, 0.0});
  transform->SetRotate({-20.0, 0.0, 20.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);
  axes->SetAxisTics(0, 2007.0, 1.0, 2, 0.02, 0.03, 2);
  axes->SetAxisTitleString(2, "millions");
  std::vector<CString> names;
  for (const Sector& sector : kSectors) names.emplace_back(sector.name);
  axes->SetAxisTics(1, 1.0, 1.0, 1, 0.02, 0.03, 3);
  axes->SetAxisLabelsStrings(1, names.data(), static_cast<int>(names.size()));
  axes->EnableAxisLabelsStrings(1, 1);

  double row = 1.0;
  for (const Sector& sector : kSectors) {
    const std::vector<double> jobs = table.Column(sector.column);
    std::vector<double> years;
    std::vector<double> gained;
    for (std::size_t month = 12; month < jobs.size(); ++month) {
      years.push_back(2006.0 + static_cast<double>(month) / 12.0);
      gained.push_back((jobs[month] - jobs[month - 12]) / 1000.0);
    }
    CChartObj3D* area = chart->NewChartObj(transform);
    area->AreaFillChart25D(years.data(), gained.data(), 0.0, row, static_cast<int>(years.size()),
                           0.4, sector.color, kInk, 1, 0);
    area->SetOutlineMode(0);
    row += 1.0;
  }
}
