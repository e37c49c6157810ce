#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "render/drawing_fixture.h"

namespace {

using orvalix::test::CaptureFeedback;

class BadGeometry : public orvalix::test::DrawingTest {};

const std::vector<double> kBad{std::numeric_limits<double>::quiet_NaN(),
                               std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(), 1e300, -1e300};

TEST_F(BadGeometry, PolygonsThatCannotBePlacedAreLeftOut) {
  gl.SetPolygonOutlineMode(1);
  for (const double bad : kBad) {
    for (int coordinate = 0; coordinate < 3; ++coordinate) {
      std::vector<point3Dtype> points{{0, 0, 0, 0}, {0.5, 0, 0, 0}, {0, 0.5, 0, 0}};
      (coordinate == 0 ? points[1].x : coordinate == 1 ? points[1].y : points[1].z) = bad;
      EXPECT_TRUE(CaptureFeedback([&] { gl.PolyFillAbs3D(points.data(), 3); }).empty()) << bad;
      EXPECT_TRUE(CaptureFeedback([&] { gl.PolyAbs3D(points.data(), 3); }).empty()) << bad;
    }
  }
}

TEST_F(BadGeometry, SolidsThatCannotBePlacedAreLeftOut) {
  for (const double bad : kBad) {
    // Also the bottom, whose corners are finite: it would look like a bar of no height.
    EXPECT_TRUE(
        CaptureFeedback([&] { gl.DrawPrism3D(0, 0, 0, 0.5, 0.5, bad, red, blue); }).empty());
    EXPECT_TRUE(
        CaptureFeedback([&] { gl.DrawPrism3D(bad, 0, 0, 0.5, 0.5, 0.5, red, blue); }).empty());
    gl.DrawCube(bad, red, blue);
    gl.DrawArrowSolidObject3D(bad, 1, bad, red, blue);
    gl.DrawSimpleZPlane(bad, bad, bad, red, blue);
  }
}

TEST_F(BadGeometry, TextureValuesOfAnyKindAreSafe) {
  const std::vector<RGBDType> colors{red, green, blue};
  for (const double bad : kBad) {
    gl.SetTextureMode(3);
    gl.SetTextureColorArray(colors.data(), bad, bad, 3);
    gl.EnableTexture(1);
    const std::vector<point3Dtype> points{{0, 0, 0, bad}, {0.5, 0, 0, 0}, {0, 0.5, 0, 1}};
    gl.PolyFillAbs3D(points.data(), 3);
    gl.SetTextureEndpointColors(SetRGBD(bad, bad, bad, bad), blue, bad, 0, 3);
    gl.PolyFillAbs3D(points.data(), 3);
    gl.UpdateBitmap(200, 100);
  }
}

TEST_F(BadGeometry, MatricesOfAnyKindAreSafe) {
  for (const double bad : kBad) {
    std::vector<double> matrix(16, bad);
    gl.LoadMatrixTransform(matrix.data());
    gl.DrawCube(1.0, red, blue);
    gl.LoadIdentity();
    gl.Scale3D(bad, 0.0, bad);
    gl.Rotate3D(bad, 1);
    gl.Translate3D(bad, bad, bad);
    gl.DrawCube(1.0, red, blue);
    gl.SetClipLimits({bad, 0, 0, 0}, {0, bad, 1, 0});
    gl.EnableClipping(1);
    gl.DrawCube(1.0, red, blue);
    gl.EnableClipping(0);
    gl.SetLightPosition({bad, bad, bad, 0});
    gl.LoadLight(GL_POSITION);
    gl.SetColorMode(1);
    gl.DrawCube(1.0, red, blue);
    gl.SetColorMode(0);
    gl.SetClearColor(bad, bad, bad, bad);
    gl.Clear(0x4100);
    gl.LoadIdentity();
    gl.UpdateBitmap(200, 100);
  }
}

}  // namespace
