// Texts in a chart
// Notes beside the data: texts that face the viewer, lie on the floor, or stand in a wall.

#include <orvalix/orvalix.h>

#include <string>
#include <vector>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

namespace {

/// Where the text stands, what of it stands there (0 left, 1 middle, 2 right), and in which plane.
struct Note {
  const char* text;
  point3Dtype place;
  int justify;
  int plane;
  double size;
  RGBDType color;
};

}  // namespace

void DrawTexts(CChartView3D& view, const std::string& data) {
  const CsvTable table(data + "/temperature.csv");
  const std::vector<double> years = table.Column("year");
  const std::vector<double> anomalies = table.Column("anomaly_c");

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({1880.0, 0.0, -1.5, 0.0}, {2025.0, 1.0, 1.5, 0.0}, &transform);
  chart->EnableBorder(0);
  chart->SetFontSize(0.055);
  chart->GetHeader()->SetTitle1("Marks in the temperature of the world");
  chart->GetHeader()->GetTitle1Obj()->SetCharSize(1.3);
  chart->GetHeader()->SetFooter("NASA Goddard Institute for Space Studies");
  transform->SetChartRect({0.72, 0.34, 0.54, 0.0});
  transform->SetOffset({0.04, 0.0, 0.0, 0.0});
  transform->SetRotate({-20.0, 0.0, 14.0, 0.0});

  CAxes3D* axes = chart->AutoAxes(transform);
  axes->EnableAxis(1, 0);
  axes->EnableAxisLabels(1, 0);
  for (const int plane : {0, 1, 2}) {
    axes->SetPlaneColor(plane, kWall, kEdge);
    axes->SetPlaneColorMode(plane, 0);
  }
  const int labelled = axes->GetAxisNthTicMajor(2);
  for (const int plane : {1, 2}) axes->SetPlaneGrid(plane, 0, labelled, kLine, 2.0, 0, 0);
  axes->SetAxisTics(0, 1880.0, 10.0, 2, 0.02, 0.03, 2);
  axes->SetAxisTitleString(2, "\260C");
  chart->NewChartObj(transform)->LineChart25D(years.data(), anomalies.data(), 0.5,
                                              static_cast<int>(years.size()), 0, 7.0, kBlue, 0);

  constexpr int kOnTheFloor = 0;
  constexpr int kInTheBackWall = 1;
  constexpr int kFacingTheViewer = 3;
  for (const Note& note :
       {Note{"1909, the coldest", {1909.0, 0.5, -0.72, 0.0}, 1, kFacingTheViewer, 1.0, kInk},
        Note{"1944", {1944.0, 0.5, 0.36, 0.0}, 1, kFacingTheViewer, 1.0, kInk},
        Note{"2023, the warmest", {2020.0, 0.5, 1.22, 0.0}, 2, kFacingTheViewer, 1.0, kInk},
        Note{"1951 to 1980 is zero", {1884.0, 0.0, 0.06, 0.0}, 0, kInTheBackWall, 0.8, kGrey},
        Note{"a line through 144 years", {1952.0, 0.8, -1.5, 0.0}, 1, kOnTheFloor, 1.2, kGrey}}) {
    CTextObj3D* text = chart->NewChartTextObj(transform, note.text);
    text->SetLocation(note.place);
    text->SetJustify(note.justify, 0);
    text->SetTextPlane(note.plane);
    text->SetCharSize(note.size);
    text->SetColor(note.color);
  }
}
