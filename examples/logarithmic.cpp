// Linear and logarithmic
// Earthquakes of a week by magnitude, on a linear axis and on a logarithmic one, which shows the
// rare strong ones, too.

#include <orvalix/orvalix.h>

#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

namespace {

void AddChart(CChartView3D& view, bool logarithmic, const std::vector<double>& magnitudes,
              const std::vector<double>& counts) {
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.7, 0.0, logarithmic ? 1.0 : 0.0, 0.0},
                                    {6.8, 1.0, logarithmic ? 1000.0 : 400.0, 0.0}, &transform);
  chart->SetChartPosition({logarithmic ? 0.5 : 0.0, 0.08, 0.5, 0.8});
  chart->EnableBorder(0);
  chart->SetFontSize(0.065);
  chart->GetHeader()->SetTitle1(logarithmic ? "logarithmic" : "linear");
  transform->SetChartRect({0.68, 0.20, 0.62, 0.0});
  transform->SetOffset({0.14, 0.0, 0.01, 0.0});
  transform->SetRotate({-14.0, 0.0, 14.0, 0.0});
  if (logarithmic) transform->SetAxisScaleMode(2, 1);  // before the axes are made

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);
  axes->EnableAxisLabels(1, 0);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  // Grid lines: every fifth tic, or in a decade all of them.
  const int step = logarithmic ? 1 : axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, step, kLine, 2.0, 0, 0);
  axes->SetAxisTics(0, 1.0, 0.5, 2, 0.01, 0.02, 2);
  axes->SetAxisTitleString(0, "magnitude");
  axes->SetAxisTitleString(2, "earthquakes");

  const double base = logarithmic ? 1.0 : 0.0;
  chart->NewChartObj(transform)->BarChart25D(magnitudes.data(), counts.data(), base, 0.5,
                                             static_cast<int>(counts.size()), 0.4, 0.8, kBlue, kInk,
                                             1, 1, 0);
}

}  // namespace

void DrawLogarithmic(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/earthquakes.csv");
  std::vector<double> magnitudes;  // the middles of bins
  std::vector<double> counts;
  for (double from = 1.0; from < 6.5; from += 0.5) {
    double count = 0.0;
    for (const double magnitude : table.Column("magnitude")) {
      if (magnitude >= from && magnitude < from + 0.5) count += 1.0;
    }
    magnitudes.push_back(from + 0.25);
    counts.push_back(count);
  }

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  view.GetHeader()->SetTitle1("Few earthquakes are strong");
  view.GetHeader()->GetTitle1Obj()->SetCharSize(0.36);
  view.GetHeader()->SetFooter("31 January to 7 February 2018; U.S. Geological Survey");
  view.GetHeader()->GetFooterObj()->SetCharSize(0.275);
  AddChart(view, false, magnitudes, counts);
  AddChart(view, true, magnitudes, counts);
}
