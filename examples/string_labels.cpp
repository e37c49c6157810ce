// Names on axes
// Rain by month and day of the week in Seattle, with names of months and days instead of numbers:
// the months differ, the days hardly do.

#include <orvalix/orvalix.h>

#include <array>
#include <chrono>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawStringLabels(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/weather.csv");
  const std::vector<double> rain = table.Column("precipitation_mm");
  std::array<std::array<double, 12>, 7> sums{};
  std::array<std::array<int, 12>, 7> days{};
  std::chrono::sys_days day = std::chrono::sys_days{std::chrono::year{2012} / 1 / 1};
  for (const double amount : rain) {
    const std::chrono::year_month_day date{day};
    const unsigned weekday = std::chrono::weekday{day}.iso_encoding() - 1;  // Monday is 0
    const unsigned month = static_cast<unsigned>(date.month()) - 1;
    sums[weekday][month] += amount;
    ++days[weekday][month];
    day += std::chrono::days{1};
  }
  std::vector<point3Dtype> bars;
  std::vector<RGBDType> colors;
  for (unsigned weekday = 0; weekday < 7; ++weekday) {
    for (unsigned month = 0; month < 12; ++month) {
      const double mean = sums[weekday][month] / days[weekday][month];
      bars.push_back({month + 0.65, weekday + 0.65, mean, 0.0});
      colors.push_back(Viridis(mean / 10.0));
    }
  }

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.4, 0.4, 0.0, 0.0}, {12.6, 7.6, 12.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Rain keeps to the seasons, not to the week");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("Seattle, 2012 to 2015; NOAA");
  transform->SetChartRect({0.62, 0.54, 0.38, 0.0});
  transform->SetOffset({0.03, 0.0, 0.0, 0.0});
  transform->SetRotate({-34.0, 0.0, 22.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  axes->SetAxisTics(2, 0.0, 1.0, 4, 0.01, 0.02, 0);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, 4, kLine, 2.0, 0, 0);
  axes->SetAxisTitleString(2, "mm a day");
  const std::vector<CString> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const std::vector<CString> names{"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
  axes->SetAxisTics(0, 1.0, 1.0, 1, 0.02, 0.03, 2);  // a tic and a label at 1, 2, 3, ...
  axes->SetAxisLabelsStrings(0, months.data(), static_cast<int>(months.size()));
  axes->EnableAxisLabelsStrings(0, 1);
  axes->SetAxisTics(1, 1.0, 1.0, 1, 0.02, 0.03, 3);
  axes->SetAxisLabelsStrings(1, names.data(), static_cast<int>(names.size()));
  axes->EnableAxisLabelsStrings(1, 1);

  CChartObj3D* series = chart->NewChartObj(transform);
  series->BarChart3D(bars.data(), nullptr, static_cast<int>(bars.size()), 0.7, 0.7, kBlue, kInk);
  series->InitSegmentColorsStorage(colors.data());
}
