// A surface from a function
// Sunshine at the top of the atmosphere by day and latitude, computed from the tilt of the Earth:
// the poles have the longest days and the longest nights.

#include <orvalix/orvalix.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "support/colors.h"

using namespace examples;

namespace {

/// Mean sunshine of a day in W/m2, on a circular orbit.
double Sunshine(double day, double latitude) {
  constexpr double kSolarConstant = 1361.0;
  constexpr double kDegree = std::numbers::pi / 180.0;
  const double declination = -23.44 * kDegree * std::cos((day + 10.0) * 360.0 / 365.0 * kDegree);
  const double phi = latitude * kDegree;
  const double noon = std::clamp(-std::tan(phi) * std::tan(declination), -1.0, 1.0);
  const double halfDay = std::acos(noon);
  return kSolarConstant / std::numbers::pi *
         (halfDay * std::sin(phi) * std::sin(declination) +
          std::cos(phi) * std::cos(declination) * std::sin(halfDay));
}

}  // namespace

void DrawFunctionSurface(CChartView3D& view, const std::string&) {
  CPolysurface sunshine(46, 74, 0.0, 89.9, 365.0, -89.9, Sunshine);

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart =  // north is at the back: the axis runs backwards
      view.NewChart3D({0.0, 90.0, 0.0, 0.0}, {365.0, -90.0, 600.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Sunshine by day and latitude");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->SetLightComponent(LIGHT3D_MODEL_AMBIENT, SetRGBD(0.7, 0.7, 0.7, 1.0));
  transform->SetChartRect({0.54, 0.54, 0.44, 0.0});
  transform->SetOffset({0.04, 0.0, 0.03, 0.0});
  transform->SetRotate({-38.0, 0.0, 30.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 4, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
    axes->SetPlaneGrid(plane, 0, plane == 0 ? 0 : 2, kLine, 2.0, 0, 0);
  }
  const std::vector<CString> months{"Jan", "Apr", "Jul", "Oct", "Jan"};
  axes->SetAxisTics(0, 0.0, 365.0 / 12.0, 3, 0.02, 0.03, 2);
  axes->SetAxisLabelsStrings(0, months.data(), static_cast<int>(months.size()));
  axes->EnableAxisLabelsStrings(0, 1);
  axes->SetAxisTics(1, 0.0, 15.0, 3, 0.02, 0.03, 3);
  axes->SetAxisTics(2, 0.0, 100.0, 2, 0.01, 0.02, 0);
  axes->SetAxisTitleString(1, "latitude");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them
  axes->SetAxisTitleString(2, "W/m\262");

  // Faces have the first colour, edges the second.
  for (int polygon = 0; polygon < sunshine.GetPSNumPolygons(); ++polygon) {
    const RGBDType color = Viridis(sunshine.GetPSPMean(polygon, 2) / 540.0);
    sunshine.SetPolysurfaceColors(polygon, color, kInk);
  }
  chart->NewChartObj(transform)->PolysurfaceChart3D(&sunshine);
}
