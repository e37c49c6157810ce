// Ranges
// Two years in Seattle, week by week: bands reach from the mean of the nights to that of the days,
// and colours tell the middle of both.

#include <orvalix/orvalix.h>

#include <numeric>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

namespace {

/// The means of every seven values.
std::vector<double> WeeklyMeans(const std::vector<double>& days) {
  std::vector<double> means;
  for (auto day = days.begin(); days.end() - day >= 7; day += 7) {
    means.push_back(std::accumulate(day, day + 7, 0.0) / 7.0);
  }
  return means;
}

}  // namespace

void DrawRanges(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/weather.csv");

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.4, -10.0, 0.0}, {12.0, 2.6, 40.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("2015 was warmer than 2012: nights and days in Seattle");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("NOAA National Centers for Environmental Information");
  transform->SetChartRect({0.62, 0.30, 0.54, 0.0});
  transform->SetOffset({-0.02, 0.0, 0.0, 0.0});
  transform->SetRotate({-18.0, 0.0, 16.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);
  axes->SetAxisTics(0, 0.0, 1.0, 3, 0.02, 0.03, 2);
  const std::vector<CString> quarters{"Jan", "Apr", "Jul", "Oct", "Jan"};
  axes->SetAxisLabelsStrings(0, quarters.data(), static_cast<int>(quarters.size()));
  axes->EnableAxisLabelsStrings(0, 1);
  axes->SetAxisTitleString(2, "\260C");
  const std::vector<CString> names{"2012", "2015"};
  axes->SetAxisTics(1, 1.0, 1.0, 1, 0.02, 0.03, 3);
  axes->SetAxisLabelsStrings(1, names.data(), static_cast<int>(names.size()));
  axes->EnableAxisLabelsStrings(1, 1);

  double row = 1.0;
  for (const std::string year : {"2012", "2015"}) {
    const std::vector<double> nights = WeeklyMeans(table.ColumnWhere("temp_min_c", "date", year));
    const std::vector<double> noons = WeeklyMeans(table.ColumnWhere("temp_max_c", "date", year));
    std::vector<double> months;
    std::vector<RGBDType> colors;
    for (std::size_t week = 0; week < nights.size(); ++week) {
      months.push_back((static_cast<double>(week) + 0.5) * 12.0 / 52.0);
      colors.push_back(BlueToRed((nights[week] + noons[week]) / 2.0 / 22.0));
    }
    CChartObj3D* range = chart->NewChartObj(transform);
    range->AreaRangeChart25D(months.data(), nights.data(), noons.data(), row,
                             static_cast<int>(months.size()), 0.4, kSky, kInk, 1, 0);
    range->InitSegmentColorsStorage(colors.data());
    range->SetOutlineMode(0);
    row += 1.0;
  }
}
