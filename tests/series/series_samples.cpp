#include <gtest/gtest.h>

#include <utility>

#include "orvalix/host/host.h"
#include "series/gathering_fixture.h"

namespace orvalix::test {
namespace {

const double* Ind() { return kSampleInd.data(); }
const double* Dep() { return kSampleDep.data(); }
const double* Groups() { return kSampleGroups.data(); }
const double* Rows() { return kSampleRows.data(); }
const RGBDType* Colors() { return kSampleColors.data(); }

std::vector<SeriesSample> SamplesInRows() {
  using Object = CChartObj3D;
  return {
      {"ribbon",
       [](Object& o, int axis) {
         o.RibbonChart25D(Ind(), Dep(), 3, 4, 3, kSampleFill, kSampleOutline, 0, axis);
       }},
      {"bars",
       [](Object& o, int axis) {
         o.BarChart25D(Ind(), Dep(), 0, 3, 4, 1.5, 3, kSampleFill, kSampleOutline, 1, 0, axis);
       }},
      {"areas",
       [](Object& o, int axis) {
         o.AreaFillChart25D(Ind(), Dep(), 0, 3, 4, 3, kSampleFill, kSampleOutline, 0, axis);
       }},
      {"ranges",
       [](Object& o, int axis) {
         o.AreaRangeChart25D(Ind(), Dep(), kSampleDep2.data(), 3, 4, 3, kSampleFill, kSampleOutline,
                             0, axis);
       }},
      {"line",
       [](Object& o, int axis) { o.LineChart25D(Ind(), Dep(), 3, 4, 0, 2, kSampleFill, axis); }},
      {"group_bars",
       [](Object& o, int axis) {
         o.GroupBarChart25D(Ind(), Groups(), 3, 0, 4, 3, 0, 1.5, 3, Colors(), kSampleOutline, 1, 0,
                            axis);
       }},
      {"stacked_bars",
       [](Object& o, int axis) {
         o.GroupBarChart25D(Ind(), Groups(), 3, 0, 4, 3, 1, 1.5, 3, Colors(), kSampleOutline, 1, 0,
                            axis);
       }},
      {"group_ribbons",
       [](Object& o, int axis) {
         o.GroupRibbonChart25D(Ind(), Groups(), 3, 4, 3, 3, Colors(), kSampleOutline, 0, axis);
       }},
      {"group_areas",
       [](Object& o, int axis) {
         o.GroupAreaFillChart25D(Ind(), Groups(), 3, 4, 3, 3, Colors(), kSampleOutline, 0, axis);
       }},
      {"market",
       [](Object& o, int axis) {
         o.OHLCChart25D(Ind(), Rows(), 3, 4, Object::kCube, Object::kPyramid, 1, 2, Colors(),
                        kSampleOutline, 0, 0, axis, nullptr);
       }},
      {"market_tics",
       [](Object& o, int axis) {
         o.OHLCChart25D(Ind(), Rows(), 3, 4, 0, 0, 1, 2, Colors(), kSampleOutline, 0, 0, axis,
                        nullptr);
       }},
      {"boxes",
       [](Object& o, int axis) {
         o.BoxAndWhiskerChart25D(Ind(), Rows(), 3, 4, 1, 2, Object::kDiamond, 1, 2, Colors(),
                                 kSampleOutline, 0, 0, axis, 1);
       }},
      {"floating_bars",
       [](Object& o, int axis) {
         o.FloatingBarChart25D(Ind(), Dep(), kSampleDep2.data(), 3, 4, 1.5, 3, kSampleFill,
                               kSampleOutline, 1, 0, axis);
       }},
      {"planes", [](Object& o, int axis) {
         o.PlaneChart25D(Ind(), Dep(), 3, 4, 1.5, 3, kSampleFill, kSampleOutline, 1, 0, axis);
       }}};
}

SeriesSample Scatter(const char* name, int symbol) {
  return {name,
          [symbol](CChartObj3D& o, int) {
            o.ScatterChart3D(kSamplePoints.data(), 1.5, 4, symbol, kSampleFill, kSampleOutline, 0,
                             -5);
          },
          false};
}

std::vector<SeriesSample> SamplesInSpace() {
  using Object = CChartObj3D;
  std::vector<SeriesSample> samples{
      {"bars_3d",
       [](Object& o, int) {
         o.BarChart3D(kSamplePoints.data(), kSampleDep2.data(), 4, 1.5, 2, kSampleFill,
                      kSampleOutline);
       },
       false},
      {"line_3d", [](Object& o, int) { o.LineChart3D(kSamplePoints.data(), 4, 0, 2, kSampleFill); },
       false},
      {"projected_line",
       [](Object& o, int) {
         o.ProjectionLineChart3D(kSamplePoints.data(), 0, 4, 0, 2, kSampleFill, 0, 1);
       },
       false},
      {"planes_3d",
       [](Object& o, int) {
         o.PlaneChart3D(kSamplePoints.data(), 4, 2, 3, kSampleFill, kSampleOutline);
       },
       false},
      {"texts",
       [](Object& o, int) {
         const std::array<CString, 4> texts{CString("a"), CString("b"), CString("c"), CString("d")};
         o.ScatterText3D(kSamplePoints.data(), texts.data(), 4, 3, 1, kSampleFill, 0, -5);
       },
       false},
      {"surface",
       [](Object& o, int) {
         const CPolysurface surface = SampleSurface(0);
         o.PolysurfaceChart3D(&surface);
       },
       false},
      {"wire_frame",
       [](Object& o, int) {
         const CPolysurface surface = SampleSurface(1);
         o.PolysurfaceChart3D(&surface);
       },
       false},
      {"flat_surface",
       [](Object& o, int) {
         const CPolysurface surface = SampleSurface(0);
         o.PolysurfaceChart2D(&surface, 2, 0);
       },
       false},
      {"flat_wire_frame",
       [](Object& o, int) {
         const CPolysurface surface = SampleSurface(1);
         o.PolysurfaceChart2D(&surface, 2, 0);
       },
       false},
      {"contours",
       [](Object& o, int) {
         const CPolysurface surface = SampleSurface(0);
         const std::array<double, 3> values{0.5, 3.5, 6.5};
         o.ContourPolysurface3D(&surface, values.data(), Colors(), 3, 2, 0);
       },
       false}};
  samples.push_back(Scatter("cubes", Object::kCube));
  samples.push_back(Scatter("pluses", Object::kPlus));
  samples.push_back(Scatter("diamonds", Object::kDiamond));
  samples.push_back(Scatter("pyramids", Object::kPyramid));
  samples.push_back(Scatter("hourglasses", Object::kHourglass));
  samples.push_back(Scatter("arrows", Object::kArrow));
  return samples;
}

}  // namespace

std::vector<SeriesSample> SeriesSamples() {
  std::vector<SeriesSample> samples = SamplesInRows();
  for (SeriesSample& sample : SamplesInSpace()) samples.push_back(std::move(sample));
  return samples;
}

SeriesSample SampleNamed(const std::string& name) {
  for (SeriesSample& sample : SeriesSamples()) {
    if (sample.name == name) return std::move(sample);
  }
  return {name, [](CChartObj3D&, int) { FAIL() << "there is no such sample"; }};
}

}  // namespace orvalix::test
