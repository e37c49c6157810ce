/// Pictures on quadrilaterals: what is drawn, which colours come out, and what is left as it was.

#include <array>
#include <limits>
#include <vector>

#include "render/drawing_fixture.h"

namespace {

using orvalix::test::CaptureFeedback;
using orvalix::test::FeedbackPrimitive;

class Pictures : public orvalix::test::DrawingTest {
 protected:
  using Color = std::array<int, 3>;

  /// The colour of a pixel of the target, counted from its lower left corner.
  static Color PixelAt(int x, int y) {
    std::array<unsigned char, 4> pixel{};
    glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel.data());
    return {pixel[0], pixel[1], pixel[2]};
  }

  void Draw(int repeatX = 1, int repeatY = 1) {
    gl.DrawPictureQuad(rgba.data(), 2, 2, corners.data(), repeatX, repeatY);
  }

  static constexpr Color kRed{255, 0, 0};
  static constexpr Color kGreen{0, 255, 0};
  static constexpr Color kBlue{0, 0, 255};
  static constexpr Color kWhite{255, 255, 255};
  static constexpr Color kBlack{0, 0, 0};

  /// Blue and white below red and green.
  const std::vector<unsigned char> rgba{0,   0, 255, 255, 255, 255, 255, 255,
                                        255, 0, 0,   255, 0,   255, 0,   255};
  /// x from 50 to 150 and y from 25 to 75, in pixels.
  std::vector<point3Dtype> corners{
      {-0.5, -0.5, 0, 0}, {-0.5, 0.5, 0, 0}, {0.5, 0.5, 0, 0}, {0.5, -0.5, 0, 0}};
};

TEST_F(Pictures, CoverTheirCornersInOrder) {
  const auto drawn = CaptureFeedback([&] { Draw(3, -2); });
  ASSERT_EQ(drawn.size(), 1U);
  const FeedbackPrimitive quad = FromTextureOrigin(drawn[0]);
  EXPECT_EQ(quad.kind, FeedbackPrimitive::Kind::kPolygon);
  ExpectVertices(quad, {{-0.5, -0.5, 0}, {-0.5, 0.5, 0}, {0.5, 0.5, 0}, {0.5, -0.5, 0}});
  const std::vector<std::array<double, 2>> coordinates{{0, 0}, {0, -2}, {3, -2}, {3, 0}};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(quad.vertices[i].t, coordinates[i][0]) << i;
    EXPECT_EQ(quad.vertices[i].t2, coordinates[i][1]) << i;
  }
}

TEST_F(Pictures, ShowTheirOwnColorsWhateverTheLight) {
  gl.SetFillStyle3D(black, black, black);
  for (const int colorMode : {0, 1, 2}) {
    gl.SetColorMode(colorMode);
    gl.Clear(0x4100);
    Draw();
    EXPECT_EQ(PixelAt(52, 27), kBlue) << colorMode;
    EXPECT_EQ(PixelAt(148, 27), kWhite);
    EXPECT_EQ(PixelAt(52, 73), kRed);
    EXPECT_EQ(PixelAt(148, 73), kGreen);
    // Enlarged without smoothing: the colours meet in the middle.
    EXPECT_EQ(PixelAt(98, 48), kBlue);
    EXPECT_EQ(PixelAt(101, 51), kGreen);
    EXPECT_EQ(PixelAt(40, 50), kBlack);
  }
}

TEST_F(Pictures, Repeat) {
  gl.Clear(0x4100);
  Draw(2, 1);
  // Each picture is 50 pixels wide.
  EXPECT_EQ(PixelAt(52, 73), kRed);
  EXPECT_EQ(PixelAt(98, 73), kGreen);
  EXPECT_EQ(PixelAt(102, 73), kRed);
  EXPECT_EQ(PixelAt(148, 73), kGreen);
  Draw(-1, 1);  // mirrored
  EXPECT_EQ(PixelAt(52, 73), kGreen);
  EXPECT_EQ(PixelAt(148, 73), kRed);
  Draw(0, 0);  // a single point of it
  EXPECT_EQ(PixelAt(52, 73), kBlue);
  EXPECT_EQ(PixelAt(148, 27), kBlue);
}

TEST_F(Pictures, LeaveAllStateAsItWas) {
  const std::vector<RGBDType> colors{red, green};
  gl.SetTextureMode(3);
  gl.SetTextureColorArray(colors.data(), 0.0, 1.0, 2);
  glGetError();
  glPixelStorei(GL_UNPACK_ALIGNMENT, 2);
  glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
  glPolygonMode(GL_FRONT, GL_LINE);
  glColor3d(0.25, 0.5, 0.75);
  gl.EnableTexture(1);
  Draw(2, 2);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  EXPECT_TRUE(glIsEnabled(GL_TEXTURE_1D));
  EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
  EXPECT_EQ(Integer(GL_TEXTURE_BINDING_2D), 0);
  EXPECT_EQ(Integer(GL_TEXTURE_BINDING_1D), 0);
  EXPECT_EQ(Integer(GL_UNPACK_ALIGNMENT), 2);
  EXPECT_EQ(Integer(GL_POLYGON_MODE), GL_LINE);
  EXPECT_EQ(CurrentColor()[1], 0.5F);
  GLint environment = 0;
  glGetTexEnviv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, &environment);
  EXPECT_EQ(environment, GL_MODULATE);
  // The texture of the values, and of pictures none.
  GLint width = 0;
  glGetTexLevelParameteriv(GL_TEXTURE_1D, 0, GL_TEXTURE_WIDTH, &width);
  EXPECT_EQ(width, 2);
  glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
  EXPECT_EQ(width, 0);
  EXPECT_EQ(Integer(GL_ATTRIB_STACK_DEPTH), 0);
  EXPECT_EQ(Integer(GL_CLIENT_ATTRIB_STACK_DEPTH), 0);
}

TEST_F(Pictures, AreFilledEvenWhileAreasAreWire) {
  glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
  gl.Clear(0x4100);
  Draw();
  EXPECT_EQ(PixelAt(70, 35), kBlue);
}

TEST_F(Pictures, AreVisibleFromBothSides) {
  std::swap(corners[0], corners[3]);
  std::swap(corners[1], corners[2]);
  gl.Clear(0x4100);
  Draw();
  EXPECT_EQ(PixelAt(148, 27), kBlue);
}

TEST_F(Pictures, WhatCannotBeDrawnIsLeftOut) {
  const auto nothing = [&](const unsigned char* pixels, int width, int height,
                           const point3Dtype* at) {
    const auto drawn =
        CaptureFeedback([&] { gl.DrawPictureQuad(pixels, width, height, at, 1, 1); });
    EXPECT_TRUE(drawn.empty());
    EXPECT_EQ(Integer(GL_ATTRIB_STACK_DEPTH), 0);
  };
  glGetError();
  nothing(nullptr, 2, 2, corners.data());
  nothing(rgba.data(), 0, 2, corners.data());
  nothing(rgba.data(), 2, -2, corners.data());
  nothing(rgba.data(), 2, 2, nullptr);
  nothing(rgba.data(), 1 << 30, 1, corners.data());  // larger than OpenGL takes; not read
  nothing(rgba.data(), 1, 1 << 30, corners.data());
  for (const double wrong : {std::numeric_limits<double>::quiet_NaN(), 1e300}) {
    auto lost = corners;
    lost[2].y = wrong;
    nothing(rgba.data(), 2, 2, lost.data());
  }
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

}  // namespace
