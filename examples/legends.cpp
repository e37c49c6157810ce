// Legends
// Earthquakes around the Pacific: a legend of symbols in columns tells the magnitudes, one of
// colours in a column the depths.

#include <orvalix/orvalix.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawLegends(CChartView3D& view, const std::string& data) {
  const std::vector<point3Dtype> quakes =
      CsvTable(data + "/earthquakes.csv").Points("longitude", "latitude", "magnitude", "depth_km");
  // A colour for the depths from each limit on; that above all of them isn't shown.
  const std::vector<double> limits{0.0, 35.0, 70.0, 150.0, 300.0};
  const std::vector<RGBDType> colors{kYellow, kOrange, kVermilion, kPurple, kBlue, kInk};

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({-180.0, 90.0, 0.0, 0.0}, {180.0, -90.0, 7.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Deep earthquakes: most of them at the rim of the Pacific");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  transform->SetChartRect({0.50, 0.58, 0.36, 0.0});
  transform->SetOffset({-0.12, 0.0, 0.03, 0.0});
  transform->SetRotate({-34.0, 0.0, 16.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 4, 2}) {  // the axis that runs backwards has its far plane at 4
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  axes->SetAxisTics(0, -180.0, 30.0, 4, 0.02, 0.03, 2);
  axes->SetAxisTitleString(0, "longitude");
  axes->SetAxisTitleString(1, "latitude");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them
  axes->SetAxisTitleString(2, "magnitude");
  CLegend3D* symbols = view.NewLegend3D();  // in a row below
  symbols->SetLegendPosition({0.17, 0.03, 0.54, 0.05});
  symbols->SetLegendColumns(3);
  CLegend3D* bands = view.NewLegend3D();  // in a column at the right
  bands->SetLegendPosition({0.85, 0.40, 0.13, 0.28});
  bands->SetTitle1("from, km");
  bands->ContourLegend2(limits.data(), colors.data(), static_cast<int>(limits.size()), 0, kInk, 1);
  for (CLegend3D* legend : {symbols, bands}) {
    legend->SetLegendOrientation(1);  // symbols to the left
    legend->SetLegendBorderColor(kEdge);
    legend->SetFontSize(0.055);
  }

  constexpr std::array<int, 3> kSymbols{CChartObj3D::kCube, CChartObj3D::kPyramid,
                                        CChartObj3D::kDiamond};
  constexpr std::array<const char*, 3> kNames{"magnitude 4", "magnitude 5", "magnitude 6"};
  for (std::size_t i = 0; i < kSymbols.size(); ++i) {
    const double from = 4.0 + static_cast<double>(i);
    symbols->NewLegendObj(kNames[i], kSymbols[i], kGrey)->SetSymbolScale(0.4);
    std::vector<point3Dtype> points;
    std::vector<RGBDType> byDepth;
    for (const point3Dtype& quake : quakes) {
      if (quake.z < from || quake.z >= from + 1.0) continue;
      points.push_back(quake);
      const auto band = std::upper_bound(limits.begin(), limits.end(), quake.v) - limits.begin();
      byDepth.push_back(colors[static_cast<std::size_t>(band - 1)]);
    }
    CChartObj3D* series = chart->NewChartObj(transform);
    constexpr int kFloor = 0;
    series->ScatterChart3D(points.data(), 0.15 + 0.12 * static_cast<double>(i),
                           static_cast<int>(points.size()), kSymbols[i], kGrey, kInk, kFloor, 0.0);
    series->InitSegmentColorsStorage(byDepth.data());
  }
}
