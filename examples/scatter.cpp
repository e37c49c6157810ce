// Points in space
// Beaks and flippers of 342 penguins: a symbol for each bird, whose shape and colour tell the
// species.

#include <orvalix/orvalix.h>

#include <array>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawScatter(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/penguins.csv");

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({30.0, 12.0, 160.0, 0.0}, {60.0, 22.0, 240.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Three species of penguins, told apart by their measures");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("Palmer Station Antarctica LTER");
  transform->SetChartRect({0.54, 0.50, 0.50, 0.0});
  transform->SetOffset({-0.02, 0.0, -0.03, 0.0});
  transform->SetRotate({-22.0, 0.0, 28.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
    axes->SetPlaneGrid(plane, 5, 5, kLine, 2.0, 0, 0);
  }
  axes->SetAxisTics(0, 30.0, 2.0, 5, 0.02, 0.03, 2);
  axes->SetAxisTics(1, 12.0, 1.0, 5, 0.02, 0.03, 3);
  axes->SetAxisTics(2, 160.0, 4.0, 5, 0.01, 0.02, 0);
  axes->SetAxisTitleString(0, "beak length (mm)");
  axes->SetAxisTitlePlane(0, 1);  // along its axis
  axes->SetAxisTitleString(1, "beak depth (mm)");
  axes->GetAxisLabels(1)->SetAxisTitleAutomatic(0);  // beside its labels, not centred on them
  axes->SetAxisTitleString(2, "flipper (mm)");

  CLegend3D* legend = view.NewLegend3D();
  legend->SetLegendPosition({0.25, 0.85, 0.52, 0.05});
  legend->SetLegendOrientation(1);  // symbols to the left
  legend->SetLegendColumns(3);
  legend->EnableLegendBorder(0);
  legend->SetLegendBorderColor(kWhite);
  legend->SetFontSize(0.055);
  constexpr std::array<const char*, 3> kSpecies{"Adelie", "Chinstrap", "Gentoo"};
  constexpr std::array<RGBDType, 3> kColors{kOrange, kPurple, kBlue};
  constexpr std::array<int, 3> kSymbols{CChartObj3D::kCube, CChartObj3D::kPyramid,
                                        CChartObj3D::kDiamond};
  for (std::size_t i = 0; i < kSpecies.size(); ++i) {
    legend->NewLegendObj(kSpecies[i], kSymbols[i], kColors[i])->SetSymbolScale(0.4);
    const auto column = [&](const char* name) {
      return table.ColumnWhere(name, "species", kSpecies[i]);
    };
    const std::vector<double> lengths = column("beak_length_mm");
    const std::vector<double> depths = column("beak_depth_mm");
    const std::vector<double> flippers = column("flipper_length_mm");
    std::vector<point3Dtype> points;
    for (std::size_t bird = 0; bird < lengths.size(); ++bird) {
      points.push_back({lengths[bird], depths[bird], flippers[bird], 0.0});
    }
    constexpr int kNoLines = -1;
    chart->NewChartObj(transform)->ScatterChart3D(points.data(), 0.25,
                                                  static_cast<int>(points.size()), kSymbols[i],
                                                  kColors[i], kInk, kNoLines, 0.0);
  }
}
