// Open, high, low and close
// Two months of an index of the stock market's volatility: blue on days on which it rose, orange on
// days on which it fell.

#include <orvalix/orvalix.h>

#include <array>
#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

void DrawMarket(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/volatility.csv");
  const std::vector<std::string> dates = table.TextColumn("date");
  const std::array<std::vector<double>, 4> prices{table.Column("open"), table.Column("high"),
                                                  table.Column("low"), table.Column("close")};

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.0, 22.0, 0.0}, {45.0, 1.0, 34.0, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Nerves calm down: volatility index, summer 2009");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("CBOE historical index values");
  transform->SetChartRect({0.76, 0.10, 0.66, 0.0});
  transform->SetOffset({0.07, 0.0, 0.01, 0.0});
  transform->SetRotate({-10.0, 0.0, 8.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);
  axes->EnableAxisLabels(1, 0);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  axes->SetAxisTics(2, 22.0, 1.0, 2, 0.01, 0.02, 0);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, 2, kLine, 2.0, 0, 0);
  axes->SetAxisTitleString(2, "points");
  // A tic for each day of trading, a label for every tenth of them.
  constexpr int kLabelStep = 10;
  std::vector<CString> labels;
  for (std::size_t i = 0; i < dates.size(); i += kLabelStep) labels.emplace_back(dates[i].c_str());
  axes->SetAxisTics(0, 1.0, 1.0, kLabelStep, 0.02, 0.04, 2);
  axes->SetAxisLabelsStrings(0, labels.data(), static_cast<int>(labels.size()));
  axes->EnableAxisLabelsStrings(0, 1);

  for (const bool rose : {true, false}) {
    std::vector<double> days;
    std::array<std::vector<double>, 4> rows;
    for (std::size_t i = 0; i < dates.size(); ++i) {
      if ((prices[3][i] >= prices[0][i]) != rose) continue;
      days.push_back(static_cast<double>(i) + 1.0);
      for (std::size_t row = 0; row < rows.size(); ++row) rows[row].push_back(prices[row][i]);
    }
    std::vector<double> group;
    for (const auto& row : rows) group.insert(group.end(), row.begin(), row.end());
    const RGBDType color = rose ? kBlue : kVermilion;
    const std::array<RGBDType, 5> colors{color, color, color, color, color};
    constexpr std::array<int, 5> kLineAndTics{1, 0, 0, 1, 1};  // no slabs at high and low
    chart->NewChartObj(transform)->OHLCChart25D(days.data(), group.data(), 0.5,
                                                static_cast<int>(days.size()), 0, 0, 0.14, 6,
                                                colors.data(), kInk, 1, 0, 0, kLineAndTics.data());
  }
}
