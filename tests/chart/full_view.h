/// @file
/// A view with one of everything that a chart file holds, in few bytes.
#pragma once

#include <array>

#include "chart/view_fixture.h"
#include "orvalix/axes/axes_3d.h"
#include "orvalix/axes/axis_labels_3d.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/chart/legend_3d.h"
#include "orvalix/chart/legend_obj_3d.h"
#include "orvalix/render/aux_obj_3d.h"
#include "orvalix/render/dib_obj_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "support/bitmap_files.h"
#include "support/temporary_file.h"

namespace orvalix::test {

// Places of the children of FillView()'s charts.
inline constexpr int kBars = 0;       ///< of the first chart: with segment colours
inline constexpr int kGroups = 1;     ///< of the first chart
inline constexpr int kFloating = 2;   ///< of the first chart: with second values
inline constexpr int kSpaceBars = 0;  ///< of the second chart: with bar heights of 0
inline constexpr int kTexts = 1;      ///< of the second chart
inline constexpr int kSurface = 2;    ///< of the second chart
inline constexpr int kContours = 3;   ///< of the second chart

inline void AddTitles(CHeader3D& header) {
  header.SetTitle1("Title");
  header.SetTitle2("Second");
  header.SetFooter("Footer");
  header.GetTitle2Obj()->SetColor(SetRGBD(0.5, 0.0, 0.0, 1.0));
}

/// Tics, labels, titles, a grid, a wall, strings in place of numbers.
inline void AddAxes(CChart3D& chart, CTransform3D* transform) {
  CAxes3D* axes = chart.AutoAxes(transform);
  const std::array<CString, 2> strings{"low", "high"};
  axes->SetAxisTitleString(0, "across");
  axes->SetAxisLabelsStrings(0, strings.data(), static_cast<int>(strings.size()));
  axes->EnableAxisLabelsStrings(0, 1);
  axes->SetAxisTitleString(2, "up");
  axes->SetPlaneGrid(0, 5, 5, SetRGBD(0.7, 0.7, 0.7, 1.0), 1.0, 0, 0);
  axes->SetWallPlane(1, SetRGBD(0.9, 0.9, 1.0, 1.0), SetRGBD(0.0, 0.0, 0.0, 1.0));
  axes->SetPlaneColor(0, SetRGBD(0.9, 1.0, 0.9, 1.0), SetRGBD(0.0, 0.0, 0.0, 1.0));
}

inline void AddSeriesInRows(CChart3D& chart, CTransform3D* transform) {
  const std::array<double, 3> ind{1.0, 4.0, 7.0};
  const std::array<double, 3> dep{8.0, 3.0, 6.0};
  const std::array<double, 3> heights{2.0, 1.0, 4.0};
  const std::array<double, 6> groups{1.0, 2.0, 3.0, 3.0, 1.0, 2.0};
  const RGBDType red = SetRGBD(1.0, 0.0, 0.0, 1.0);
  const RGBDType green = SetRGBD(0.0, 0.6, 0.0, 1.0);
  const RGBDType black = SetRGBD(0.0, 0.0, 0.0, 1.0);
  const std::array<RGBDType, 3> colors{red, green, SetRGBD(0.0, 0.0, 1.0, 1.0)};
  CChartObj3D* bars = chart.NewChartObj(transform);
  bars->BarChart25D(ind.data(), dep.data(), 0.0, 1.0, 3, 1.0, 1.0, red, black, 0, 0, 0);
  bars->InitSegmentColorsStorage(colors.data());
  chart.NewChartObj(transform)->GroupBarChart25D(ind.data(), groups.data(), 3.0, 0.0, 3, 2, 1, 1.0,
                                                 1.0, colors.data(), black, 0, 0, 0);
  CChartObj3D* floating = chart.NewChartObj(transform);
  floating->FloatingBarChart25D(ind.data(), dep.data(), heights.data(), 5.0, 3, 1.0, 1.0, green,
                                black, 0, 0, 0);
  floating->InitDepData2Storage(heights.data());
  floating->SetDepData2(0, 1.5);
}

inline void AddSeriesInSpace(CChart3D& chart, CTransform3D* linear, CTransform3D* logarithmic) {
  const std::array<point3Dtype, 2> points{{{2.0, 2.0, 5.0, 0.0}, {6.0, 5.0, 9.0, 1.0}}};
  const std::array<double, 2> heights{0.0, 0.0};
  const std::array<CString, 2> texts{"one", "two"};
  const RGBDType blue = SetRGBD(0.0, 0.0, 1.0, 1.0);
  const RGBDType black = SetRGBD(0.0, 0.0, 0.0, 1.0);
  const std::array<RGBDType, 3> colors{blue, SetRGBD(1.0, 0.0, 1.0, 1.0), black};
  chart.NewChartObj(linear)->BarChart3D(points.data(), heights.data(), 2, 1.0, 1.0, blue, black);
  chart.NewChartObj(logarithmic)
      ->ScatterText3D(points.data(), texts.data(), 2, 1.0, 1, black, 0, 0.0);
  const std::array<double, 4> values{1.0, 4.0, 6.0, 2.0};
  const CPolysurface surface(2, 2, 4.0, 1.0, 9.0, 4.0, values.data(), 1);
  const std::array<double, 2> levels{2.5, 4.5};
  chart.NewChartObj(linear)->PolysurfaceChart3D(&surface);
  chart.NewChartObj(linear)->ContourPolysurface3D(&surface, levels.data(), colors.data(), 2, 9.0,
                                                  1);
}

inline void AddShapesAndPicture(CChart3D& chart, CTransform3D* transform, const char* bitmap) {
  CAuxObj3D* sphere = chart.NewAuxObj(transform, CAuxObj3D::kSphere);
  sphere->SetLocation({8.0, 8.0, 8.0, 0.0});
  CAuxObj3D* wire = chart.NewAuxObj(transform, CAuxObj3D::kCylinder);
  wire->SetSolidType(0);
  wire->SetColor(SetRGBD(1.0, 0.0, 0.0, 1.0));
  wire->SetLocation({2.0, 2.0, 8.0, 0.0});
  CDIBObj3D* picture = chart.NewDIBObj(transform, bitmap);
  picture->SetPlanePoints({7.0, 9.0, 1.0, 0.0}, {7.0, 9.0, 3.0, 0.0}, {9.0, 9.0, 3.0, 0.0});
  picture->SetRepeatFactors(2, 1);
}

inline void AddLegend(CChartView3D& view) {
  CLegend3D* legend = view.NewLegend3D();
  legend->SetLegendPosition({0.0, 0.0, 0.3, 0.3});
  legend->NewLegendObj("entry", 3, SetRGBD(0.0, 1.0, 0.0, 1.0));
  const std::array<double, 1> levels{2.5};
  const std::array<RGBDType, 2> colors{SetRGBD(0.0, 0.0, 1.0, 1.0), SetRGBD(1.0, 0.0, 0.0, 1.0)};
  legend->ContourLegend(levels.data(), colors.data(), 1, 1, SetRGBD(0.0, 0.0, 0.0, 1.0), 1, "above",
                        "below");
  legend->SetTitle1("Legend");
  legend->SetFooter("end");
}

/// Fills a view that can draw.
/// @param bitmap file of the picture
inline void FillView(CChartView3D& view, const char* bitmap) {
  const point3Dtype zero{0.0, 0.0, 0.0, 0.0};
  const point3Dtype one{1.0, 1.0, 1.0, 0.0};
  const point3Dtype ten{10.0, 10.0, 10.0, 0.0};
  const point3Dtype turned{20.0, 5.0, 30.0, 0.0};
  AddTitles(*view.GetHeader());
  CChart3D* rows = view.NewChart3D();
  rows->SetChartPosition({0.0, 0.0, 0.5, 1.0});
  CTransform3D* flat = rows->NewTransform(zero, ten);
  flat->SetRotate(turned);
  AddTitles(*rows->GetHeader());
  AddAxes(*rows, flat);
  AddSeriesInRows(*rows, flat);
  CTextObj3D* text = rows->NewChartTextObj(flat, "note");
  text->SetLocation({5.0, 5.0, 9.0, 0.0});

  CChart3D* space = view.NewChart3D();
  space->SetChartPosition({0.5, 0.0, 0.5, 1.0});
  space->SetChartBkColor(SetRGBD(1.0, 1.0, 0.9, 1.0));
  CTransform3D* linear = space->NewTransform(zero, ten);
  linear->SetRotate(turned);
  CTransform3D* logarithmic = space->NewTransform(one, ten);
  logarithmic->SetAxisScaleMode(2, 1);
  logarithmic->SetRotate(turned);
  AddAxes(*space, logarithmic);
  AddSeriesInSpace(*space, linear, logarithmic);
  AddShapesAndPicture(*space, linear, bitmap);
  AddLegend(view);
}

/// A view of 160 x 80 pixels, filled; the bitmap's file lives as long.
class FullView : public ViewOn {
 public:
  FullView() : ViewOn(160, 80), m_bitmap(Encode(FourColors())) { FillView(*view, m_bitmap.Path()); }

 private:
  TemporaryFile m_bitmap;
};

/// What CChartView3D::Save() writes.
inline Bytes SavedFile(const CChartView3D& view) {
  const TemporaryFile file;
  view.Save(file.Path());
  return file.Read();
}

/// CChartView3D::Load() of those bytes.
inline void LoadFile(CChartView3D& view, const Bytes& bytes) {
  const TemporaryFile file(bytes);
  view.Load(file.Path());
}

}  // namespace orvalix::test
