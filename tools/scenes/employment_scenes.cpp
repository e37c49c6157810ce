#include "scenes/employment_scenes.h"

#include <array>
#include <vector>

#include "scenes/chart_style.h"
#include "scenes/csv_table.h"

namespace orvalix {
namespace {

struct Branch {
  const char* name;
  const char* column;
  RGBDType color;
};

// The largest at the back.
constexpr std::array<Branch, 5> kBranches{
    {{"education", "education_and_health_services", {0.16, 0.40, 0.62, 1.0}},
     {"retail", "retail_trade", {0.20, 0.56, 0.52, 1.0}},
     {"manufacturing", "manufacturing", {0.52, 0.54, 0.22, 1.0}},
     {"leisure", "leisure_and_hospitality", {0.84, 0.58, 0.18, 1.0}},
     {"construction", "construction", {0.76, 0.32, 0.18, 1.0}}}};

constexpr int kMonthsPerYear = 12;

/// Means of years of monthly values, in millions.
std::vector<double> YearlyMillions(const std::vector<double>& thousands) {
  std::vector<double> years;
  for (std::size_t month = 0; month < thousands.size(); month += kMonthsPerYear) {
    double sum = 0.0;
    for (std::size_t i = month; i < month + kMonthsPerYear; ++i) sum += thousands[i];
    years.push_back(sum / kMonthsPerYear / 1000.0);
  }
  return years;
}

}  // namespace

void BuildEmploymentScene(CChartView3D& view, const std::string& dataFolder) {
  const CsvTable table(dataFolder + "/employment.csv");
  constexpr Placement kPlacement{.rect = {0.62, 0.50, 0.48, 0.0},
                                 .offset = {-0.08, 0.0, 0.02, 0.0},
                                 .rotate = {-24.0, 0.0, 24.0, 0.0}};
  constexpr double kBranchCount = static_cast<double>(kBranches.size());
  const StyledChart styled =
      AddChart(view, {2005.5, 0.4, 0.0, 0.0}, {2016.0, kBranchCount + 0.6, 25.0, 0.0},
               "People at work in the United States, millions", kPlacement);
  std::vector<CString> names;
  for (const Branch& branch : kBranches) names.emplace_back(branch.name);
  NameAxis(*styled.axes, 1, kRight, names);
  styled.axes->SetAxisTics(0, 2006.0, 1.0, 2, 0.02, 0.04, kDown);

  CLegend3D* legend = AddLegend(view, {0.01, 0.80, 0.16, 0.18});
  constexpr double kWidth = 0.6;
  constexpr RGBDType kSlabs{0.95, 0.95, 0.95, 1.0};
  double row = 1.0;
  for (const Branch& branch : kBranches) {
    legend->NewLegendObj(branch.name, kCubeSymbol, branch.color)->SetSymbolScale(0.12);
    const std::vector<double> millions = YearlyMillions(table.Column(branch.column));
    std::vector<point3Dtype> bars;
    for (std::size_t year = 0; year < millions.size(); ++year) {
      bars.push_back({2006.0 + static_cast<double>(year) - kWidth / 2.0, row - kWidth / 2.0,
                      millions[year], 0.0});
    }
    std::vector<point3Dtype> slabs = bars;
    for (point3Dtype& slab : slabs) slab.z = millions.front();
    const auto count = static_cast<int>(bars.size());
    styled.chart->NewChartObj(styled.transform)
        ->BarChart3D(bars.data(), nullptr, count, kWidth, kWidth, branch.color, kDark);
    CChartObj3D* firstYear = styled.chart->NewChartObj(styled.transform);
    firstYear->PlaneChart3D(slabs.data(), count, kWidth, kWidth, kSlabs, kDark);
    firstYear->SetPlaneThickness(0.01);
    row += 1.0;
  }
  legend->NewLegendObj("level of 2006", kCubeSymbol, kSlabs)->SetSymbolScale(0.12);
}

void BuildEmploymentPathScene(CChartView3D& view, const std::string& dataFolder) {
  const CsvTable table(dataFolder + "/employment.csv");
  constexpr Placement kPlacement{.rect = {0.60, 0.52, 0.52, 0.0},
                                 .offset = {0.0, 0.0, -0.02, 0.0},
                                 .rotate = {-24.0, 0.0, 22.0, 0.0}};
  constexpr point3Dtype kMin{5.0, 11.0, 14.0, 0.0};
  constexpr point3Dtype kMax{8.0, 15.0, 16.0, 0.0};
  const StyledChart styled =
      AddChart(view, kMin, kMax, "Through the crisis, 2006 to 2015, and back", kPlacement);
  styled.chart->GetHeader()->SetTitle2(
      "construction to the right, manufacturing to the front, retail upwards, in millions");
  styled.chart->GetHeader()->GetTitle2Obj()->SetCharSize(0.7);

  const std::vector<double> x = table.Column("construction");
  const std::vector<double> y = table.Column("manufacturing");
  const std::vector<double> z = table.Column("retail_trade");
  std::vector<point3Dtype> path;
  for (std::size_t month = 0; month < x.size(); ++month) {
    path.push_back({x[month] / 1000.0, y[month] / 1000.0, z[month] / 1000.0, 0.0});
  }
  const auto count = static_cast<int>(path.size());
  const RGBDType shadow{0.50, 0.54, 0.62, 1.0};
  // Just off the walls.
  for (const auto& [plane, place] :
       {std::pair{0, kMin.z + 0.01}, std::pair{1, kMin.y + 0.02}, std::pair{2, kMin.x + 0.02}}) {
    styled.chart->NewChartObj(styled.transform)
        ->ProjectionLineChart3D(path.data(), 0.0, count, 0, 2, shadow, plane, place);
  }
  CChartObj3D* line = styled.chart->NewChartObj(styled.transform);
  line->LineChart3D(path.data(), count, 0, 3, {0.80, 0.25, 0.12, 1.0});
  // From blue (2006) to red (2015).
  std::vector<RGBDType> colors;
  for (int month = 0; month < count; ++month) {
    colors.push_back(RampColor({{0.10, 0.30, 0.70, 1.0}, {0.80, 0.20, 0.12, 1.0}},
                               static_cast<double>(month) / count));
  }
  line->InitSegmentColorsStorage(colors.data());
}

}  // namespace orvalix
