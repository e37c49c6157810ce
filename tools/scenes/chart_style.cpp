#include "scenes/chart_style.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvalix {
namespace {

/// Floor, back and left, darker from each to the next.
constexpr std::array<RGBDType, 3> kWalls{
    {{0.94, 0.95, 0.96, 1.0}, {0.90, 0.92, 0.95, 1.0}, {0.85, 0.88, 0.92, 1.0}}};

/// The plane behind the data: floor (side 0), back (1) or left (2). Where an axis runs backwards it
/// stands at the maximum.
int FarPlane(point3Dtype const& min, point3Dtype const& max, int side) {
  constexpr int kAtMaximum = 3;
  const std::array<bool, 3> backwards{min.z > max.z, min.y > max.y, min.x > max.x};
  return backwards[static_cast<std::size_t>(side)] ? side + kAtMaximum : side;
}

}  // namespace

StyledChart AddChart(CChartView3D& view, point3Dtype const& min, point3Dtype const& max,
                     const char* title, const Placement& placement) {
  const RGBDType line{0.45, 0.48, 0.55, 1.0};
  const RGBDType background{0.97, 0.97, 0.98, 1.0};
  view.EnableBorder(0);
  view.SetViewBkColor(background);
  view.SetFont("Arial", 400, 256);
  StyledChart styled{};
  styled.chart = view.NewChart3D(min, max, &styled.transform);
  styled.chart->SetChartPosition(placement.position);
  styled.chart->EnableBorder(0);
  styled.chart->SetChartBkColor(background);
  styled.chart->SetFontSize(placement.fontSize);
  styled.chart->GetHeader()->SetTitle1(title);
  styled.transform->SetChartRect(placement.rect);
  styled.transform->SetOffset(placement.offset);
  styled.transform->SetRotate(placement.rotate);
  styled.axes = styled.chart->AutoAxes(styled.transform);
  for (const int side : {0, 1, 2}) {
    const int plane = FarPlane(min, max, side);
    styled.axes->SetWallPlane(plane, kWalls[static_cast<std::size_t>(side)], line);
    styled.axes->SetPlaneColorMode(plane, 0);
    styled.axes->SetWallThickness(plane, 0.02);
    styled.axes->SetOutlineWidth(plane, 1.0);
  }
  const int valueTics = styled.axes->GetAxisNthTicMajor(2);
  for (const int side : {1, 2}) {
    styled.axes->SetPlaneGrid(FarPlane(min, max, side), 0, valueTics, line, 1.0, 0, 1);
  }
  return styled;
}

void SetAxisTitles(CAxes3D& axes, const char* x, const char* y, const char* z) {
  int axis = 0;
  for (const char* title : {x, y, z}) {
    if (title != nullptr) axes.SetAxisTitleString(axis, title);
    ++axis;
  }
}

void HideDepthAxis(CAxes3D& axes) {
  axes.EnableAxis(1, 0);
  axes.EnableAxisLabels(1, 0);
}

CLegend3D* AddLegend(CChartView3D& view, const GLViewRType& position) {
  constexpr int kSymbolsLeft = 1;
  CLegend3D* legend = view.NewLegend3D();
  legend->SetLegendPosition(position);
  legend->SetLegendOrientation(kSymbolsLeft);
  legend->SetLegendBkColor({1.0, 1.0, 1.0, 1.0});
  legend->SetLegendBorderColor({0.75, 0.78, 0.82, 1.0});
  legend->EnableLegendBorder(0);
  legend->SetBorderThickness(1.0);
  legend->SetFontSize(0.05);
  return legend;
}

void NameAxis(CAxes3D& axes, int axis, int direction, const std::vector<CString>& names) {
  axes.SetAxisTics(axis, 1.0, 1.0, 1, 0.02, 0.04, direction);
  axes.SetAxisLabelsStrings(axis, names.data(), static_cast<int>(names.size()));
  axes.EnableAxisLabelsStrings(axis, 1);
}

RGBDType RampColor(const std::vector<RGBDType>& ramp, double share) {
  const double place = std::clamp(share, 0.0, 1.0) * static_cast<double>(ramp.size() - 1);
  const auto below = std::min(static_cast<std::size_t>(place), ramp.size() - 2);
  const double t = place - static_cast<double>(below);
  const RGBDType& a = ramp[below];
  const RGBDType& b = ramp[below + 1];
  return {std::lerp(a.red, b.red, t), std::lerp(a.green, b.green, t), std::lerp(a.blue, b.blue, t),
          1.0};
}

const std::vector<RGBDType>& HeightColors() {
  static const std::vector<RGBDType> colors{{0.20, 0.42, 0.30, 1.0}, {0.45, 0.62, 0.36, 1.0},
                                            {0.80, 0.78, 0.52, 1.0}, {0.72, 0.56, 0.36, 1.0},
                                            {0.55, 0.40, 0.30, 1.0}, {0.96, 0.95, 0.94, 1.0}};
  return colors;
}

}  // namespace orvalix
