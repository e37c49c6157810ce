// Boxes and whiskers
// How heavy penguins of three species are: whiskers from the lightest to the heaviest, boxes over
// the middle half, divided at the median.

#include <orvalix/orvalix.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

namespace {

/// Lower end, lower edge, median, upper edge and upper end; the last value would mark a symbol.
std::array<double, 6> BoxOf(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const auto at = [&](double share) {
    return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1))];
  };
  return {at(0.0), at(0.25), at(0.5), at(0.75), at(1.0), at(0.5)};
}

}  // namespace

void DrawBoxes(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/penguins.csv");
  const std::vector<CString> species{"Adelie", "Chinstrap", "Gentoo"};

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.4, 0.0, 2500.0, 0.0}, {3.6, 1.0, 6500.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Gentoo penguins are the heaviest");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("Palmer Station Antarctica LTER");
  transform->SetChartRect({0.70, 0.20, 0.58, 0.0});
  transform->SetOffset({0.07, 0.0, -0.01, 0.0});
  transform->SetRotate({-14.0, 0.0, 14.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);
  axes->EnableAxisLabels(1, 0);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);
  axes->SetAxisTitleString(2, "g");
  axes->SetAxisTics(0, 1.0, 1.0, 1, 0.02, 0.03, 2);
  axes->SetAxisLabelsStrings(0, species.data(), static_cast<int>(species.size()));
  axes->EnableAxisLabelsStrings(0, 1);

  constexpr std::array<RGBDType, 3> kColors{kOrange, kPurple, kBlue};
  for (std::size_t i = 0; i < species.size(); ++i) {
    const double place = static_cast<double>(i) + 1.0;
    const std::array<double, 6> box =
        BoxOf(table.ColumnWhere("body_mass_g", "species", static_cast<const char*>(species[i])));
    const std::array<RGBDType, 6> colors{kGrey, kColors[i], kColors[i], kGrey, kInk, kWhite};
    CChartObj3D* series = chart->NewChartObj(transform);
    series->BoxAndWhiskerChart25D(&place, box.data(), 0.5, 1, 0.5, 0.6, CChartObj3D::kDiamond, 0.5,
                                  4, colors.data(), kInk, 1, 0, 0, 0);
    series->SetPlaneThickness(0.01);
  }
}
