/// Stored pictures of axes frames and texts in all their positions.

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "orvalix/orvalix.h"
#include "support/golden.h"
#include "support/view_picture.h"

namespace {

const RGBDType kBlack{0.0, 0.0, 0.0, 1.0};
const RGBDType kGrey{0.45, 0.47, 0.52, 1.0};
const RGBDType kBlue{0.10, 0.30, 0.70, 1.0};

/// A chart that shows the box from `min` to `max` turned to the right, with automatic axes.
struct Turned {
  Turned(CChartView3D& view, const point3Dtype& min, const point3Dtype& max)
      : chart(view.NewChart3D()), transform(chart->NewTransform(min, max)) {
    view.SetFont("Arial", 400, 256);
    chart->SetFontSize(0.09);
    transform->SetRotate({-22.0, 0.0, 25.0, 0.0});
  }

  CChart3D* chart;
  CTransform3D* transform;
};

/// Six charts; each shows one plane of the same box.
template <class Dress>
void ShowEachPlane(CChartView3D& view, Dress dress) {
  for (int plane = 0; plane < 6; ++plane) {
    Turned turned(view, {0, 0, 0, 0}, {10, 10, 10, 0});
    turned.chart->SetChartPosition({plane % 3 / 3.0, plane < 3 ? 0.5 : 0.0, 1.0 / 3.0, 0.5});
    turned.chart->SetFontSize(0.12);
    turned.chart->GetHeader()->SetTitle1(("plane " + std::to_string(plane)).c_str());
    CAxes3D* axes = turned.chart->AutoAxes(turned.transform);
    for (int axis = 0; axis < 3; ++axis) axes->EnableAxisLabels(axis, 0);
    dress(*axes, plane);
  }
}

void PlanesWithGrids(CChartView3D& view) {
  ShowEachPlane(view, [](CAxes3D& axes, int plane) {
    axes.SetPlaneGrid(plane, 2, 4, plane < 3 ? kBlue : kGrey, 1.0, plane < 3 ? 0 : 2, 0);
  });
}

void PlanesFilled(CChartView3D& view) {
  ShowEachPlane(view, [](CAxes3D& axes, int plane) {
    axes.SetPlaneGrid(plane, 5, 5, kGrey, 1.0, 0, 0);
    axes.SetPlaneColor(plane, SetRGBD(0.85, 0.90, 0.97, 1.0), kBlue);
    axes.SetPlaneColorMode(plane, 0);
  });
}

void PlanesAsWalls(CChartView3D& view) {
  ShowEachPlane(view, [](CAxes3D& axes, int plane) {
    axes.SetWallThickness(plane, 0.08);
    axes.SetPlaneGrid(plane, 5, 5, kGrey, 1.0, 0, 1);
    axes.SetWallPlane(plane, SetRGBD(0.75, 0.80, 0.88, 1.0), kBlack);
  });
}

void AddText(const Turned& turned, const char* text, int plane, int rotation, int flipX, int flipY,
             const point3Dtype& at) {
  CTextObj3D* made = turned.chart->NewChartTextObj(turned.transform, text);
  made->SetTextPlane(plane);
  made->SetRotation(rotation);
  made->SetFlipX(flipX);
  made->SetFlipY(flipY);
  made->SetLocation(at);
  made->SetColor(kBlue);
}

/// One chart for each text plane, with the same five texts just in front of a plane of the box.
void TextPlanes(CChartView3D& view) {
  for (int plane = 0; plane < 4; ++plane) {
    Turned turned(view, {-1, -1, -1, 0}, {1, 1, 1, 0});
    turned.transform->SetRotate({-40.0, 0.0, 40.0, 0.0});
    turned.transform->SetChartRect({0.48, 0.48, 0.48, 0});
    turned.transform->SetOffset({0, 0, -0.12, 0});
    turned.chart->SetChartPosition({plane % 2 * 0.5, plane < 2 ? 0.5 : 0.0, 0.5, 0.5});
    turned.chart->SetFontSize(0.12);
    turned.chart->GetHeader()->SetTitle1(("text plane " + std::to_string(plane)).c_str());
    CAxes3D* axes = turned.chart->NewAxes(turned.transform);
    const int behind = plane == 3 ? 1 : plane;
    axes->SetPlaneColor(behind, SetRGBD(0.92, 0.94, 0.97, 1.0), kGrey);
    axes->SetPlaneColorMode(behind, 0);
    const auto at = [&](double across, double up) -> point3Dtype {
      if (plane == 0) return {across, -up, -0.96, 0};
      if (plane == 2) return {-0.96, -across, up, 0};
      // What faces the viewer needs more room before the plane.
      return {across, plane == 1 ? -0.96 : 0.0, up, 0};
    };
    AddText(turned, "turn 0", plane, 0, 0, 0, at(-0.9, 0.65));
    AddText(turned, "turn 45", plane, 45, 0, 0, at(-0.1, 0.1));
    AddText(turned, "turn 90", plane, 90, 0, 0, at(0.8, -0.4));
    AddText(turned, "flip x", plane, 0, 1, 0, at(-0.9, -0.2));
    AddText(turned, "flip y", plane, 0, 0, 1, at(0.2, -0.8));
  }
}

void LogarithmicAxes(CChartView3D& view) {
  Turned turned(view, {1, 0, 0.01, 0}, {10000, 10, 100, 0});
  turned.transform->SetChartRect({0.6, 0.4, 0.5, 0});
  turned.transform->SetAxisScaleMode(0, 1);
  turned.transform->SetAxisScaleMode(2, 1);
  CAxes3D* axes = turned.chart->AutoAxes(turned.transform);
  axes->SetAxisCenterPoint(0, 1);
  axes->SetAxisCenterPoint(2, 0.1);
  axes->SetAxisNthTicMajor(0, 1);
  axes->SetAxisNthTicMajor(2, 1);
  axes->SetAxisLabelsFormat(0, 2);
  axes->SetAxisLabelsFormat(2, 3);
  axes->SetAxisLabelsDecimals(2, 3);
  axes->SetAxisTitleString(0, "logarithmic x");
  axes->SetPlaneGrid(1, 1, 5, kGrey, 1.0, 0, 0);
  axes->SetPlaneGrid(0, 10, 2, kGrey, 1.0, 0, 0);
  axes->SetPlaneColor(1, SetRGBD(0.92, 0.94, 0.97, 1.0), kGrey);
  axes->SetPlaneColorMode(1, 0);
}

/// x runs from right to left, z downwards. Directions are those of the axes, so they turn round
/// too.
void InvertedAxes(CChartView3D& view) {
  constexpr int kPlusX = 3;
  constexpr int kPlusZ = 5;
  constexpr int kMinusX = 0;
  Turned turned(view, {10, 0, 50, 0}, {0, 4, -50, 0});
  turned.transform->SetChartRect({0.5, 0.4, 0.5, 0});
  CAxes3D* axes = turned.chart->AutoAxes(turned.transform);
  const std::array<int, 3> directions{kPlusZ, kMinusX, kPlusX};
  for (int axis = 0; axis < 3; ++axis) {
    axes->SetAxisTicDir(axis, directions[static_cast<std::size_t>(axis)]);
    axes->SetAxisLabelsDir(axis, directions[static_cast<std::size_t>(axis)]);
  }
  axes->SetPlaneGrid(1, 2, 2, kGrey, 1.0, 0, 0);
}

void UserStrings(CChartView3D& view) {
  Turned turned(view, {0.5, 0, 0, 0}, {4.5, 4, 10, 0});
  turned.transform->SetRotate({-18.0, 0.0, 12.0, 0.0});
  turned.transform->SetChartRect({0.6, 0.4, 0.5, 0});
  CAxes3D* axes = turned.chart->AutoAxes(turned.transform);
  const std::array<CString, 4> quarters{"Q1", "Q2", "Q3", "Q4"};
  axes->SetAxisTics(0, 1.0, 1.0, 1, 0.02, 0.04, 2);
  axes->SetAxisLabelsStrings(0, quarters.data(), 4);
  axes->EnableAxisLabelsStrings(0, 1);
  axes->SetAxisLabelsColor(0, kBlue);
  const std::array<CString, 3> levels{"none", "M\xE4\xDFig", ""};  // two for three major tics
  axes->SetAxisTics(2, 0.0, 1.0, 5, 0.02, 0.04, 0);
  axes->SetAxisLabelsStrings(2, levels.data(), 2);
  axes->EnableAxisLabelsStrings(2, 1);
  axes->SetAxisTics(1, 0.0, 1.0, 2, 0.02, 0.04, 3);
  axes->SetAxisLabelsRotation(1, 30);
  axes->SetAxisTitleString(0, "quarter");
  axes->SetAxisTitleColor(0, kBlue);
  CTextObj3D* note = turned.chart->NewChartTextObj(turned.transform, "a note at (3, 2, 8)");
  note->SetLocation({3, 2, 8, 0});
  note->SetJustify(1, 1);
  note->SetCharSize(0.8);
}

/// Two titles, a footer, axes: in a view of any shape the letters keep theirs.
void FullChart(CChartView3D& view) {
  Turned turned(view, {0, 0, 0, 0}, {10, 4, 10, 0});
  turned.transform->SetRotate({-18.0, 0.0, 12.0, 0.0});
  turned.transform->SetChartRect({0.5, 0.4, 0.4, 0});
  turned.chart->SetFontSize(0.08);
  turned.chart->GetHeader()->SetTitle1("A title");
  turned.chart->GetHeader()->SetTitle2("and a second one");
  turned.chart->GetHeader()->SetFooter("a footer");
  CAxes3D* axes = turned.chart->AutoAxes(turned.transform);
  axes->SetAxisTitleString(0, "x axis");
  axes->SetAxisTitleString(2, "z axis");
  axes->SetPlaneGrid(1, 10, 10, kGrey, 1.0, 0, 0);
}

struct PictureCase {
  const char* name;
  int width;
  int height;
  void (*build)(CChartView3D& view);
};

class AxesPicture : public ::testing::TestWithParam<PictureCase> {};

TEST_P(AxesPicture, LooksAsStored) {
  CWnd window;
  window.CreateOffscreen(GetParam().width, GetParam().height);
  CChartView3D view(&window);
  GetParam().build(view);
  view.DrawViewScreen();
  orvalix::test::ExpectGoldenPicture(orvalix::TakePicture(view), GetParam().name);
}

constexpr std::array<PictureCase, 9> kCases{{{"planes_with_grids", 720, 480, PlanesWithGrids},
                                             {"planes_filled", 720, 480, PlanesFilled},
                                             {"planes_as_walls", 720, 480, PlanesAsWalls},
                                             {"text_planes", 960, 800, TextPlanes},
                                             {"logarithmic_axes", 640, 480, LogarithmicAxes},
                                             {"inverted_axes", 640, 480, InvertedAxes},
                                             {"user_strings", 640, 480, UserStrings},
                                             {"narrow_view", 360, 600, FullChart},
                                             {"wide_view", 900, 360, FullChart}}};

INSTANTIATE_TEST_SUITE_P(Axes, AxesPicture, ::testing::ValuesIn(kCases),
                         [](const auto& picture) { return std::string(picture.param.name); });

}  // namespace
