/// @file
/// A series of each type, and the pictures that it gives, gathered or one by one.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "orvalix/foundation/colors.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"
#include "support/drawn_pixels.h"
#include "support/offscreen.h"

namespace orvalix::test {

inline constexpr int kSceneSize = 200;

/// A target with a transform and a series bound to them.
class SeriesScene {
 public:
  SeriesScene()
      : target(kSceneSize, kSceneSize),
        gl(*target.gl),
        transform(&gl, {0, 0, -5, 0}, {10, 10, 10, 0}),
        series(&gl, &transform) {
    const std::array<RGBDType, 4> colors{
        {{1, 0, 0, 1}, {0, 0.8, 0, 1}, {0, 0, 1, 1}, {1, 0.7, 0, 1}}};
    gl.SetTextureColorArray(colors.data(), -5.0, 10.0, static_cast<int>(colors.size()));
    gl.SetTextureMode(2);
    for (const int which : {GL_AMBIENT, GL_DIFFUSE, GL_SPECULAR, GL_POSITION}) gl.LoadLight(which);
    gl.RegisterFont("Arial", 0.1, 400, 0, 0, 256);
    transform.SetRotate({20, 10, 30, 0});
  }

  /// A frame of a white window with the series in it.
  PixelBytes Picture() { return PictureOf(series); }
  PixelBytes PictureOf(CChartObj3D& object) {
    Clear();
    object.DrawChartObj();
    return Pixels();
  }
  void Clear() { ClearToWhite(gl); }
  static PixelBytes Pixels() { return DrawnPixels(kSceneSize, kSceneSize); }

  Offscreen target;
  COpenGL& gl;
  CTransform3D transform;
  CChartObj3D series;
};

/// How many pixels aren't white.
inline int DrawnPixels(const PixelBytes& picture) {
  return DifferingPixels(picture, PixelBytes(picture.size(), 255));
}

/// A series of one type. Some of its bars are negative, some have no height, and some colours meet.
struct SeriesSample {
  std::string name;
  std::function<void(CChartObj3D&, int indAxis)> setUp;
  bool hasIndAxis = true;
  friend void PrintTo(const SeriesSample& sample, std::ostream* out) { *out << sample.name; }
};

inline constexpr std::array<double, 4> kSampleInd{1, 3, 5, 7.5};
inline constexpr std::array<double, 4> kSampleDep{3, -2, 0, 6};
inline constexpr std::array<double, 4> kSampleDep2{1, 2, 3, -1};
/// Three rows of four values.
inline constexpr std::array<double, 12> kSampleGroups{0, 3, 1, 2, 3, 0, 2, 1, 2, 1, 0, 3};
/// Six rows of four values that rise from row to row.
inline constexpr std::array<double, 24> kSampleRows{-3, 1,   0, 2, -1, 2,   2, 3, 1, 3.5, 2, 4,
                                                    2,  5.5, 4, 6, 4,  7.5, 5, 8, 6, 8.5, 6, 9};
inline constexpr std::array<RGBDType, 6> kSampleColors{{{0.9, 0.2, 0.2, 1},
                                                        {0.2, 0.7, 0.2, 1},
                                                        {0.2, 0.3, 0.9, 1},
                                                        {0.9, 0.8, 0.2, 1},
                                                        {0.2, 0.8, 0.8, 1},
                                                        {0.7, 0.2, 0.8, 1}}};
inline constexpr RGBDType kSampleFill{0.3, 0.6, 0.9, 1};
inline constexpr RGBDType kSampleOutline{0.1, 0.1, 0.1, 1};
inline constexpr std::array<point3Dtype, 4> kSamplePoints{
    {{1, 2, 3, 0}, {4, 7, -2, 3}, {6, 3, 0, 6}, {8, 6, 7, 9}}};

/// Polygons with edges of two colours, which they share.
inline CPolysurface SampleSurface(int isWireFrame) {
  constexpr int kAcross = 6;
  std::array<double, std::size_t{kAcross} * kAcross> values{};
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = static_cast<double>((i * 7) % 11) - 2.0;
  }
  CPolysurface surface(kAcross, kAcross, 1.0, 1.0, 9.0, 9.0, values.data(), 1);
  for (int i = 0; i < surface.GetPSNumPolygons(); ++i) {
    surface.SetPolysurfaceColors(i, kSampleColors[static_cast<std::size_t>(i % 5)],
                                 kSampleColors[static_cast<std::size_t>(i % 3) + 1]);
  }
  surface.SetWireFrame(isWireFrame);
  return surface;
}

std::vector<SeriesSample> SeriesSamples();

/// The sample of that name.
SeriesSample SampleNamed(const std::string& name);

}  // namespace orvalix::test
