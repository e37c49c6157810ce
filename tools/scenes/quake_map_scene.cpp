#include "scenes/quake_map_scene.h"

#include <array>
#include <limits>
#include <vector>

#include "scenes/chart_style.h"
#include "scenes/csv_table.h"
#include "scenes/map_picture.h"

namespace orvalix {
namespace {

/// Earthquakes of a range of magnitudes and the shape that marks them.
struct Strength {
  const char* name;
  double from;
  double to;
  CAuxObj3D::AuxObjTypes shape;
  RGBDType color;
};

constexpr double kUnlimited = std::numeric_limits<double>::infinity();
constexpr std::array<Strength, 3> kStrengths{
    {{"magnitude 4", 4.0, 5.0, CAuxObj3D::kSphere, {0.95, 0.78, 0.30, 1.0}},
     {"magnitude 5", 5.0, 6.0, CAuxObj3D::kSphere, {0.92, 0.46, 0.16, 1.0}},
     {"magnitude 6", 6.0, kUnlimited, CAuxObj3D::kDodecahedron, {0.78, 0.14, 0.16, 1.0}}}};

// North is up, and the deeper an earthquake the farther it stands before the wall.
// A margin at the sides holds whole shapes.
constexpr point3Dtype kMin{-200.0, 0.0, -90.0, 0.0};
constexpr point3Dtype kMax{200.0, 500.0, 90.0, 0.0};

/// The radius that tells a magnitude, in normalised units.
double RadiusOf(double magnitude) { return 0.014 + 0.018 * (magnitude - 4.0); }

/// Hangs the map on the back wall where its grid lies.
void AddMap(const StyledChart& styled, const std::string& dataFolder) {
  constexpr double kMost = 3000.0;
  // Cells of one degree around the outermost points.
  constexpr double kWest = -180.0;
  constexpr double kEast = 180.0;
  constexpr double kSouth = -81.0;
  constexpr double kNorth = 87.0;
  constexpr double kOffTheWall = 2.0;
  const MapPicture map(CsvGrid(dataFolder + "/precipitation.csv"), kMost,
                       {{0.97, 0.94, 0.84, 1.0},
                        {0.80, 0.88, 0.76, 1.0},
                        {0.54, 0.74, 0.72, 1.0},
                        {0.36, 0.54, 0.70, 1.0}});
  CDIBObj3D* picture = styled.chart->NewDIBObj(styled.transform, map.Path());
  picture->SetPlanePoints({kWest, kOffTheWall, kSouth, 0.0}, {kWest, kOffTheWall, kNorth, 0.0},
                          {kEast, kOffTheWall, kNorth, 0.0});
}

}  // namespace

void BuildQuakeMapScene(CChartView3D& view, const std::string& dataFolder) {
  const CsvTable table(dataFolder + "/earthquakes.csv");
  const std::vector<double> longitude = table.Column("longitude");
  const std::vector<double> latitude = table.Column("latitude");
  const std::vector<double> depth = table.Column("depth_km");
  const std::vector<double> magnitude = table.Column("magnitude");

  constexpr Placement kPlacement{.rect = {0.66, 0.42, 0.42, 0.0},
                                 .offset = {0.02, 0.0, 0.02, 0.0},
                                 .rotate = {-22.0, 0.0, 14.0, 0.0},
                                 .fontSize = 0.055};
  const StyledChart styled =
      AddChart(view, kMin, kMax, "A week of earthquakes and a year of rain", kPlacement);
  styled.chart->GetHeader()->SetTitle2("the deeper, the farther before the wall");
  styled.chart->GetHeader()->GetTitle2Obj()->SetCharSize(0.8);
  styled.chart->GetHeader()->SetFooter("U.S. Geological Survey; NOAA");
  styled.chart->GetHeader()->GetFooterObj()->SetCharSize(0.7);
  SetAxisTitles(*styled.axes, "longitude", "km", "latitude");
  AddMap(styled, dataFolder);

  CLegend3D* legend = AddLegend(view, {0.76, 0.81, 0.22, 0.10});
  for (const Strength& strength : kStrengths) {
    legend->NewLegendObj(strength.name, kCubeSymbol, strength.color)->SetSymbolScale(0.15);
    for (std::size_t i = 0; i < magnitude.size(); ++i) {
      if (magnitude[i] < strength.from || magnitude[i] >= strength.to) continue;
      CAuxObj3D* quake = styled.chart->NewAuxObj(styled.transform, strength.shape);
      quake->SetLocation({longitude[i], depth[i], latitude[i], 0.0});
      quake->SetScaleFactor(RadiusOf(magnitude[i]));
      quake->SetColor(strength.color);
      quake->SetOutlineMode(1);
      if (strength.shape == CAuxObj3D::kDodecahedron) quake->SetSizeParameters(1.73, 1.0, 1.0);
    }
  }
}

}  // namespace orvalix
