// Shapes
// The months of a year in Seattle as bubbles: the more days with rain, the larger; colours tell the
// temperature.

#include <orvalix/orvalix.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

namespace {

double MeanOf(const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

}  // namespace

void DrawShapes(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/weather.csv");

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 2.0, 0.0, 0.0}, {30.0, 5.0, 8.0, 0.0}, &transform);
  // A square chart: shapes are stretched as their chart is.
  chart->SetChartPosition({0.125, 0.0, 0.75, 1.0});
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Months of Seattle in 2014");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("National Centers for Environmental Information");
  transform->SetChartRect({0.52, 0.52, 0.52, 0.0});
  transform->SetOffset({0.0, 0.0, 0.01, 0.0});
  transform->SetRotate({-22.0, 0.0, 28.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
    axes->SetPlaneGrid(plane, 5, 5, kLine, 2.0, 0, 0);
  }
  axes->SetAxisTics(0, 0.0, 2.0, 5, 0.02, 0.03, 2);
  axes->SetAxisTics(1, 2.0, 0.2, 5, 0.02, 0.03, 3);
  axes->SetAxisTitleString(0, "warmest hour (\260C)");
  axes->SetAxisTitlePlane(0, 1);  // along its axis
  axes->SetAxisTitleString(1, "  wind (m/s)");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them
  axes->SetAxisTitleString(2, "rain a day (mm)");

  const std::vector<CString> names{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  for (int month = 1; month <= 12; ++month) {
    const std::string days = (month < 10 ? "2014-0" : "2014-") + std::to_string(month);
    const std::vector<double> rain = table.ColumnWhere("precipitation_mm", "date", days);
    const auto dry = std::count(rain.begin(), rain.end(), 0.0);
    const double rainy = static_cast<double>(rain.size()) - static_cast<double>(dry);
    const point3Dtype place{MeanOf(table.ColumnWhere("temp_max_c", "date", days)),
                            MeanOf(table.ColumnWhere("wind_ms", "date", days)), MeanOf(rain), 0.0};
    CAuxObj3D* bubble = chart->NewAuxObj(transform, CAuxObj3D::kSphere);
    bubble->SetLocation(place);
    bubble->SetScaleFactor(0.02 * std::cbrt(rainy));
    bubble->SetColor(BlueToRed(place.x / 30.0));
    CTextObj3D* name =
        chart->NewChartTextObj(transform, names[static_cast<std::size_t>(month - 1)]);
    // Names stand above their bubbles; in January and November others are there.
    const double away = 0.3 + 0.15 * std::cbrt(rainy);
    const double up = month == 11 ? 0.0 : month == 1 ? -away : away;
    name->SetLocation({place.x - (month == 11 ? 2.0 : 0.0), place.y, place.z + up, 0.0});
    name->SetJustify(month == 11 ? 2 : 1, month == 11 ? 1 : month == 1 ? 2 : 0);
  }
}
