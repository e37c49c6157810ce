// Points with drop lines
// Earthquakes of a week under the ground, north at the back: lines lead up to the surface.

#include <orvalix/orvalix.h>

#include <array>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawDropLines(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/earthquakes.csv");
  const std::vector<point3Dtype> quakes =
      table.Points("longitude", "latitude", "depth_km", "magnitude");

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  // Depth runs down and latitude to the back: both axes are given backwards.
  CChart3D* chart =
      view.NewChart3D({-180.0, 90.0, 700.0, 0.0}, {180.0, -90.0, 0.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("A week of earthquakes, hanging from the surface");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("31 January to 7 February 2018; U.S. Geological Survey");
  transform->SetChartRect({0.62, 0.44, 0.46, 0.0});
  transform->SetOffset({0.03, 0.0, -0.04, 0.0});
  transform->SetRotate({-24.0, 0.0, 14.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {3, 4, 2}) {  // backwards axes have their far planes at the maximum
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {4, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);
  axes->SetAxisTics(0, -180.0, 30.0, 4, 0.02, 0.03, 5);  // down, where the depth grows
  axes->SetAxisLabelsDir(0, 5);
  axes->SetAxisTics(1, 0.0, 15.0, 3, 0.02, 0.03, 3);
  const std::vector<CString> longitudes{"180\260 W", "60\260 W", "60\260 E", "180\260 E"};
  axes->SetAxisLabelsStrings(0, longitudes.data(), static_cast<int>(longitudes.size()));
  axes->EnableAxisLabelsStrings(0, 1);
  axes->SetAxisTitleString(1, "latitude");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them
  axes->SetAxisTitleString(2, "depth (km)");

  CLegend3D* legend = view.NewLegend3D();
  legend->SetLegendPosition({0.24, 0.84, 0.58, 0.06});
  legend->SetLegendOrientation(1);  // symbols to the left
  legend->SetLegendColumns(3);
  legend->EnableLegendBorder(0);
  legend->SetLegendBorderColor(kWhite);
  legend->SetFontSize(0.055);
  constexpr std::array<RGBDType, 3> kColors{kSky, kOrange, kVermilion};
  constexpr std::array<int, 3> kSymbols{CChartObj3D::kCube, CChartObj3D::kPyramid,
                                        CChartObj3D::kDiamond};
  for (std::size_t i = 0; i < kColors.size(); ++i) {
    const double from = 4.0 + static_cast<double>(i);  // magnitude
    CString text;
    text.Format("magnitude %.0f", from);
    legend->NewLegendObj(text, kSymbols[i], kColors[i])->SetSymbolScale(0.4);
    std::vector<point3Dtype> points;
    for (const point3Dtype& quake : quakes) {
      if (quake.v >= from && quake.v < from + 1.0) points.push_back(quake);
    }
    constexpr int kHorizontal = 0;  // the plane of the lines' upper ends, at depth 0
    chart->NewChartObj(transform)->ScatterChart3D(points.data(), 0.16 * (from - 3.0),
                                                  static_cast<int>(points.size()), kSymbols[i],
                                                  kColors[i], kInk, kHorizontal, 0.0);
  }
}
