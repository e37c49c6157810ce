#include <gtest/gtest.h>

#include <vector>

#include "render/drawing_fixture.h"

namespace {

using orvalix::test::CaptureFeedback;

class Textures : public orvalix::test::DrawingTest {
 protected:
  using Bytes = std::array<int, 4>;

  /// The texture as OpenGL holds it.
  static std::vector<Bytes> Uploaded() {
    GLint size = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_1D, 0, GL_TEXTURE_WIDTH, &size);
    std::vector<unsigned char> raw(static_cast<std::size_t>(size) * 4);
    glGetTexImage(GL_TEXTURE_1D, 0, GL_RGBA, GL_UNSIGNED_BYTE, raw.data());
    std::vector<Bytes> colors;
    for (std::size_t i = 0; i < raw.size(); i += 4) {
      colors.push_back({raw[i], raw[i + 1], raw[i + 2], raw[i + 3]});
    }
    return colors;
  }

  static GLint Parameter(GLenum name) {
    GLint value = 0;
    glGetTexParameteriv(GL_TEXTURE_1D, name, &value);
    return value;
  }

  /// The first texture coordinate that a polygon at this point gets.
  double CoordinateOf(const point3Dtype& point) {
    const std::vector<point3Dtype> points{point, {0.5, 0, 0, 0}, {0.5, 0.5, 0, 0}};
    gl.EnableTexture(1);
    const auto drawn = CaptureFeedback([&] { gl.PolyFillAbs3D(points.data(), 3); });
    gl.EnableTexture(0);
    return drawn.empty() ? -1.0 : drawn[0].vertices[0].t;
  }
};

std::vector<RGBDType> Ramp(int n) {
  std::vector<RGBDType> colors;
  for (int i = 0; i < n; ++i) colors.push_back(SetRGBD(i / 255.0, (255 - i) / 255.0, 0.0, 1.0));
  return colors;
}

TEST_F(Textures, ModesSetDecalNearestAndRepeat) {
  ASSERT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  gl.SetTextureMode(3);
  // The third parameter has no such name.
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_ENUM));
  EXPECT_EQ(Integer(GL_UNPACK_ALIGNMENT), 1);
  GLint environment = 0;
  glGetTexEnviv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, &environment);
  EXPECT_EQ(environment, GL_DECAL);
  EXPECT_EQ(Parameter(GL_TEXTURE_MAG_FILTER), GL_NEAREST);
  EXPECT_EQ(Parameter(GL_TEXTURE_MIN_FILTER), GL_NEAREST);
  EXPECT_EQ(Parameter(GL_TEXTURE_WRAP_S), GL_REPEAT);
}

TEST_F(Textures, NegativeModesAreOnlyStored) {
  gl.SetTextureMode(-1);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  EXPECT_EQ(Integer(GL_UNPACK_ALIGNMENT), 4);
  EXPECT_NE(Parameter(GL_TEXTURE_MAG_FILTER), GL_NEAREST);
}

TEST_F(Textures, EnableSwitchesThem) {
  gl.EnableTexture(7);
  EXPECT_TRUE(glIsEnabled(GL_TEXTURE_1D));
  gl.EnableTexture(0);
  EXPECT_FALSE(glIsEnabled(GL_TEXTURE_1D));
}

TEST_F(Textures, ArraysGrowToAPowerOfTwo) {
  const auto colors = Ramp(5);
  gl.SetTextureColorArray(colors.data(), 0.0, 10.0, 5);
  const auto uploaded = Uploaded();
  ASSERT_EQ(uploaded.size(), 8U);
  EXPECT_EQ(uploaded[0], (Bytes{0, 255, 0, 255}));
  EXPECT_EQ(uploaded[4], (Bytes{4, 251, 0, 255}));
  for (const std::size_t i : {5U, 6U, 7U}) EXPECT_EQ(uploaded[i], uploaded[4]) << i;
  gl.SetTextureColorArray(colors.data(), 0.0, 10.0, 1);
  EXPECT_EQ(Uploaded().size(), 2U);
  EXPECT_EQ(Uploaded()[1], (Bytes{0, 255, 0, 255}));
  gl.SetTextureColorArray(colors.data(), 0.0, 10.0, 4);
  EXPECT_EQ(Uploaded().size(), 4U);
}

TEST_F(Textures, ArraysAreCutToWhatFits) {
  const auto colors = Ramp(300);
  gl.SetTextureColorArray(colors.data(), 0.0, 1.0, 300);
  EXPECT_EQ(Uploaded().size(), 256U);
  gl.SetTextureColorArray(colors.data(), 0.0, 1.0, 2);
  gl.SetTextureColorArray(colors.data(), 0.0, 1.0, 0);
  gl.SetTextureColorArray(colors.data(), 0.0, 1.0, -4);
  gl.SetTextureColorArray(nullptr, 0.0, 1.0, 4);
  EXPECT_EQ(Uploaded().size(), 2U);
}

TEST_F(Textures, MapValuesToColors) {
  const auto colors = Ramp(5);
  gl.SetTextureMode(3);
  gl.SetTextureColorArray(colors.data(), 0.0, 10.0, 5);
  // size / n = 8/5; the scale is 1 / 16, so that 10 lands at 5/8, the end of the real colours.
  EXPECT_NEAR(CoordinateOf({0, 0, 0, 0.0}), 0.004, 1e-6);
  EXPECT_NEAR(CoordinateOf({0, 0, 0, 10.0}), 0.625 + 0.004, 1e-6);
  // With another minimum: scale 1 / (1.6 * 10 - 2) = 1/14, (10 - 2) / 14.
  gl.SetTextureColorArray(colors.data(), 2.0, 10.0, 5);
  EXPECT_NEAR(CoordinateOf({0, 0, 0, 2.0}), 0.004, 1e-6);
  EXPECT_NEAR(CoordinateOf({0, 0, 0, 10.0}), 8.0 / 14.0 + 0.004, 1e-6);
}

TEST_F(Textures, ModesChooseTheCoordinate) {
  const auto colors = Ramp(4);
  gl.SetTextureColorArray(colors.data(), 0.0, 1.0, 4);
  const point3Dtype point{0.1, 0.2, 0.3, 0.4};
  const std::vector<std::pair<int, double>> expected{{0, 0.1}, {1, 0.2}, {2, 0.3},
                                                     {3, 0.4}, {4, 0.3}, {-1, 0.3}};
  for (const auto& [mode, value] : expected) {
    gl.SetTextureMode(mode);
    EXPECT_NEAR(CoordinateOf(point), value + 0.004, 1e-6) << mode;
  }
}

TEST_F(Textures, EveryVertexHasItsOwnCoordinate) {
  const auto colors = Ramp(4);
  gl.SetTextureColorArray(colors.data(), 0.0, 1.0, 4);
  gl.SetTextureMode(3);
  gl.EnableTexture(1);
  const std::vector<point3Dtype> points{
      {-0.5, -0.5, 0, 0.125}, {0.5, -0.5, 0, 0.25}, {0, 0.5, 0, 0.75}};
  const auto drawn = CaptureFeedback([&] { gl.PolyFillAbs3D(points.data(), 3); });
  ASSERT_EQ(drawn.size(), 1U);
  ASSERT_EQ(drawn[0].vertices.size(), 3U);
  EXPECT_NEAR(drawn[0].vertices[0].t, 0.129, 1e-6);
  EXPECT_NEAR(drawn[0].vertices[1].t, 0.254, 1e-6);
  EXPECT_NEAR(drawn[0].vertices[2].t, 0.754, 1e-6);
}

TEST_F(Textures, EndpointColorsBecomeAGreyRamp) {
  gl.SetTextureEndpointColors(SetRGBD(1, 0, 0, 0.25), SetRGBD(0, 0, 1, 0.5), 10.0, 20.0, 16);
  const auto uploaded = Uploaded();
  ASSERT_EQ(uploaded.size(), 256U);
  for (int i = 0; i < 256; ++i) {
    // The alpha of the two colours at the ends (0.25 * 255 = 63.75), 1 between them.
    const int alpha = i == 0 ? 63 : i == 255 ? 127 : 255;
    EXPECT_EQ(uploaded[static_cast<std::size_t>(i)], (Bytes{i, i, i, alpha})) << i;
  }
  gl.SetTextureMode(3);
  EXPECT_NEAR(CoordinateOf({0, 0, 0, 10.0}), 0.004, 1e-6);
  EXPECT_NEAR(CoordinateOf({0, 0, 0, 20.0}), 1.004, 1e-6);
}

TEST_F(Textures, EndpointStepsOfAnySizeAreSafe) {
  for (const int steps : {0, -1, 1, 1000, -2147483647}) {
    gl.SetTextureEndpointColors(red, blue, 0.0, 1.0, steps);
    EXPECT_EQ(Uploaded().size(), 256U) << steps;
  }
}

TEST_F(Textures, CanBeCopiedOut) {
  const auto colors = Ramp(2);
  gl.SetTextureColorArray(colors.data(), 0.0, 1.0, 2);
  std::array<RGBDType, 256> out{};
  gl.CopyTextureArray(out.data());
  EXPECT_NEAR(out[1].red, 1.0 / 255.0, 1e-12);
  EXPECT_NEAR(out[1].green, 254.0 / 255.0, 1e-12);
  EXPECT_EQ(out[1].alpha, 1.0);
  gl.CopyTextureArray(nullptr);
}

TEST_F(Textures, AllColorsAreCopiedOut) {
  std::vector<RGBDType> colors;
  // As 51 = 0.2 * 255, these come back from bytes as they were.
  for (int i = 0; i < 300; ++i) colors.push_back(SetRGBD(i % 2, (i / 2) % 2, 0.2, 1.0));
  colors[255] = SetRGBD(0.0, 0.0, 1.0, 0.2);
  gl.SetTextureColorArray(colors.data(), 0.0, 1.0, 300);
  std::vector<RGBDType> out(257, SetRGBD(7, 7, 7, 7));
  gl.CopyTextureArray(out.data());
  for (std::size_t i = 0; i < 256; ++i) {
    EXPECT_EQ(out[i].red, colors[i].red) << i;
    EXPECT_EQ(out[i].green, colors[i].green) << i;
    EXPECT_EQ(out[i].blue, colors[i].blue) << i;
    EXPECT_EQ(out[i].alpha, colors[i].alpha) << i;
  }
  EXPECT_EQ(out[256].red, 7.0);
}

TEST_F(Textures, CoordinatesBecomeValues) {
  const std::vector<point3Dtype> original{{1, 2, 3, 9}, {4, 5, 6, 9}, {7, 8, 9, 9}};
  for (int axis = 0; axis < 3; ++axis) {
    auto points = original;
    gl.CopyXYorZtoV(points.data(), 2.0, 1.0, axis, 2);
    EXPECT_EQ(points[0].v, (1.0 + axis - 1.0) * 2.0);
    EXPECT_EQ(points[1].v, (4.0 + axis - 1.0) * 2.0);
    EXPECT_EQ(points[2].v, 9.0);
  }
  auto points = original;
  gl.CopyXYorZtoV(points.data(), 2.0, 1.0, 3, 3);
  gl.CopyXYorZtoV(points.data(), 2.0, 1.0, -1, 3);
  gl.CopyXYorZtoV(points.data(), 2.0, 1.0, 0, 0);
  gl.CopyXYorZtoV(points.data(), 2.0, 1.0, 0, -3);
  gl.CopyXYorZtoV(nullptr, 2.0, 1.0, 0, 3);
  for (const auto& point : points) EXPECT_EQ(point.v, 9.0);
}

}  // namespace
