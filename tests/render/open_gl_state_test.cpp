#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "orvalix/foundation/colors.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"
#include "support/offscreen.h"

namespace {

using orvalix::test::Offscreen;

std::array<float, 4> CurrentColor() {
  std::array<float, 4> color{};
  glGetFloatv(GL_CURRENT_COLOR, color.data());
  return color;
}

std::array<float, 4> Light(GLenum component) {
  std::array<float, 4> values{};
  glGetLightfv(GL_LIGHT0, component, values.data());
  return values;
}

std::array<double, 4> ClipPlane(unsigned index) {
  std::array<double, 4> plane{};
  glGetClipPlane(GL_CLIP_PLANE0 + index, plane.data());
  return plane;
}

void ExpectPlane(unsigned index, double a, double b, double c, double d) {
  const std::array<double, 4> plane = ClipPlane(index);
  EXPECT_NEAR(plane[0], a, 5e-6) << "plane " << index;
  EXPECT_NEAR(plane[1], b, 5e-6) << "plane " << index;
  EXPECT_NEAR(plane[2], c, 5e-6) << "plane " << index;
  EXPECT_NEAR(plane[3], d, 5e-6) << "plane " << index;
}

void ExpectColor(const RGBDType& actual, double red, double green, double blue, double alpha) {
  EXPECT_NEAR(actual.red, red, 1e-7);
  EXPECT_NEAR(actual.green, green, 1e-7);
  EXPECT_NEAR(actual.blue, blue, 1e-7);
  EXPECT_NEAR(actual.alpha, alpha, 1e-7);
}

TEST(OpenGLState, StartsWithItsDefaults) {
  Offscreen target;
  EXPECT_EQ(target.gl->GetColorMode(), 0);
  EXPECT_EQ(target.gl->GetLineStyle(), 0);
  EXPECT_EQ(target.gl->GetLineStyleFactor(), 1);
  EXPECT_EQ(target.gl->GetLineWidth3D(), 1.0);
  EXPECT_EQ(target.gl->GetPolygonOutlineMode(), 0);
  ExpectColor(target.gl->GetLineColor3D(), 0, 0, 0, 0);
  ExpectColor(target.gl->GetLightComponent(12345), 0.4, 0.4, 0.4, 1.0);
  ExpectColor(target.gl->GetLightComponent(GL_AMBIENT), 0.1, 0.1, 0.1, 1.0);
  ExpectColor(target.gl->GetLightComponent(GL_DIFFUSE), 1, 1, 1, 1);
  ExpectColor(target.gl->GetLightComponent(GL_SPECULAR), 0, 0, 0, 1);
  // The position, (1, 0, 0, 0) in OpenGL's frame, is only seen where it is loaded.
  target.gl->LoadIdentity();
  target.gl->LoadLight(GL_POSITION);
  EXPECT_EQ(Light(GL_POSITION), (std::array<float, 4>{1, 0, 0, 0}));
  std::array<RGBDType, 256> texture{};
  target.gl->CopyTextureArray(texture.data());
  ExpectColor(texture[0], 0, 0, 0, 0);
  GLViewportType output{};
  target.gl->GetOutputViewport(output);
  EXPECT_EQ(output.width, 0);
}

TEST(OpenGLState, ClearsWithoutAlpha) {
  Offscreen target;
  target.gl->SetClearColor(1, 1, 1, 1);
  std::array<float, 4> color{};
  glGetFloatv(GL_COLOR_CLEAR_VALUE, color.data());
  EXPECT_EQ(color, (std::array<float, 4>{1, 1, 1, 0}));
}

TEST(OpenGLState, ViewportAlsoConfinesClearing) {
  Offscreen target;
  target.gl->SetViewport({10, 20, 30, 40});
  std::array<GLint, 4> box{};
  glGetIntegerv(GL_VIEWPORT, box.data());
  EXPECT_EQ(box, (std::array<GLint, 4>{10, 20, 30, 40}));
  glGetIntegerv(GL_SCISSOR_BOX, box.data());
  EXPECT_EQ(box, (std::array<GLint, 4>{10, 20, 30, 40}));
  EXPECT_TRUE(glIsEnabled(GL_SCISSOR_TEST));
  // Read back from OpenGL, not from a stored copy.
  glViewport(1, 2, 3, 4);
  GLViewportType read{};
  target.gl->GetViewport(read);
  EXPECT_EQ(read.x, 1);
  EXPECT_EQ(read.y, 2);
  EXPECT_EQ(read.width, 3);
  EXPECT_EQ(read.height, 4);
}

TEST(OpenGLState, NegativeViewportDrawsNothing) {
  Offscreen target;
  target.gl->SetViewport({5, 5, -30, -40});
  std::array<GLint, 4> box{};
  glGetIntegerv(GL_SCISSOR_BOX, box.data());
  EXPECT_EQ(box, (std::array<GLint, 4>{5, 5, 0, 0}));
  constexpr int kLargest = std::numeric_limits<int>::max();
  target.gl->SetViewport({kLargest, kLargest, kLargest, kLargest});
  target.gl->SetViewport({-kLargest, -kLargest, kLargest, kLargest});
  target.gl->Clear(0x4100);
  target.gl->DrawCube(1.0, {1, 0, 0, 1}, {0, 0, 0, 1});
}

TEST(OpenGLState, StoresTheOutputViewport) {
  Offscreen target;
  target.gl->SetOutputViewport({1, 2, 3, 4});
  GLViewportType read{};
  target.gl->GetOutputViewport(read);
  EXPECT_EQ(read.x, 1);
  EXPECT_EQ(read.height, 4);
  target.gl->GetViewport(read);
  EXPECT_EQ(read.width, 200);
}

TEST(OpenGLState, ColorModeSwitchesTheLight) {
  Offscreen target;
  for (const int mode : {1, 2, -7}) {
    target.gl->SetColorMode(mode);
    EXPECT_EQ(target.gl->GetColorMode(), mode);
    EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
    EXPECT_TRUE(glIsEnabled(GL_LIGHT0));
    EXPECT_TRUE(glIsEnabled(GL_COLOR_MATERIAL));
  }
  target.gl->SetColorMode(0);
  EXPECT_FALSE(glIsEnabled(GL_LIGHTING));
  EXPECT_FALSE(glIsEnabled(GL_LIGHT0));
  EXPECT_FALSE(glIsEnabled(GL_COLOR_MATERIAL));
  target.gl->EnableLight(GL_LIGHT1);
  EXPECT_TRUE(glIsEnabled(GL_LIGHT1));
}

TEST(OpenGLState, LoadsLightComponents) {
  Offscreen target;
  target.gl->SetLightComponent(GL_AMBIENT, SetRGBD(0.5, 0.25, 0.125, 1.0));
  target.gl->SetLightComponent(12345, SetRGBD(0.125, 0.25, 0.5, 1.0));
  target.gl->SetLightComponent(GL_DIFFUSE, SetRGBD(0.25, 0.25, 0.75, 1.0));
  target.gl->SetLightComponent(GL_SPECULAR, SetRGBD(0.75, 0.25, 0.25, 1.0));
  target.gl->SetLightComponent(1, SetRGBD(9, 9, 9, 9));
  ExpectColor(target.gl->GetLightComponent(GL_AMBIENT), 0.5, 0.25, 0.125, 1.0);
  ExpectColor(target.gl->GetLightComponent(1), 0, 0, 0, 0);
  EXPECT_NE(Light(GL_DIFFUSE)[0], 0.25F);  // only stored so far
  target.gl->LoadLight(GL_AMBIENT);
  target.gl->LoadLight(GL_DIFFUSE);
  target.gl->LoadLight(GL_SPECULAR);
  target.gl->LoadLight(1);
  EXPECT_EQ(Light(GL_AMBIENT), (std::array<float, 4>{0.5, 0.25, 0.125, 1.0}));
  EXPECT_EQ(Light(GL_DIFFUSE), (std::array<float, 4>{0.25, 0.25, 0.75, 1.0}));
  EXPECT_EQ(Light(GL_SPECULAR), (std::array<float, 4>{0.75, 0.25, 0.25, 1.0}));
  std::array<float, 4> model{};
  glGetFloatv(GL_LIGHT_MODEL_AMBIENT, model.data());
  EXPECT_EQ(model, (std::array<float, 4>{0.125, 0.25, 0.5, 1.0}));
}

TEST(OpenGLState, TurnsTheLightIntoOpenGLsFrame) {
  Offscreen target;
  target.gl->LoadIdentity();
  target.gl->SetLightPosition({1, 2, 3, 4});
  target.gl->LoadLight(GL_POSITION);
  EXPECT_EQ(Light(GL_POSITION), (std::array<float, 4>{1, 3, -2, 0}));
}

TEST(OpenGLState, ShadesSmoothly) {
  Offscreen target;
  glShadeModel(GL_FLAT);
  glDisable(GL_DEPTH_TEST);
  glClearDepth(0.5);
  target.gl->SetupShading();
  GLint model = 0;
  glGetIntegerv(GL_SHADE_MODEL, &model);
  EXPECT_EQ(model, GL_SMOOTH);
  EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
  GLdouble depth = 0.0;
  glGetDoublev(GL_DEPTH_CLEAR_VALUE, &depth);
  EXPECT_EQ(depth, 1.0);
}

TEST(OpenGLState, ClipPlanesKeepTheBoxShiftedByTheMargin) {
  Offscreen target;
  target.gl->LoadIdentity();
  target.gl->SetClipLimits({0, 0, 0, 0}, {10, 20, 40, 0});
  // Margins 10 k, 20 k, 40 k with k = 0.00123456: x keeps 0.0123456 to 10.0123456.
  ExpectPlane(0, 1, 0, 0, -0.0123456);
  ExpectPlane(1, 0, 1, 0, -0.0246912);
  ExpectPlane(2, 0, 0, 1, -0.0493824);
  ExpectPlane(3, -1, 0, 0, 10.0123456);
  ExpectPlane(4, 0, -1, 0, 20.0246912);
  ExpectPlane(5, 0, 0, -1, 40.0493824);
}

TEST(OpenGLState, AnInvertedXAxisSwapsTheClipLimitsOfAllAxes) {
  Offscreen target;
  target.gl->LoadIdentity();
  target.gl->SetClipLimits({10, 0, 0, 0}, {0, 20, 40, 0});
  // x: low 0, high 10, margin -10 k. y: low 20, high 0, margin 20 k: an empty slab.
  ExpectPlane(0, 1, 0, 0, 0.0123456);
  ExpectPlane(3, -1, 0, 0, 9.9876544);
  ExpectPlane(1, 0, 1, 0, -20.0246912);
  ExpectPlane(4, 0, -1, 0, 0.0246912);
  // z: low 40, high 0, margin 40 k.
  ExpectPlane(2, 0, 0, 1, -40.0493824);
  ExpectPlane(5, 0, 0, -1, 0.0493824);
  // An inverted y alone is not exchanged: low 20, high 0, margin -20 k.
  target.gl->SetClipLimits({0, 20, 0, 0}, {10, 0, 40, 0});
  ExpectPlane(1, 0, 1, 0, -20.0 + 0.0246912);
  ExpectPlane(4, 0, -1, 0, -0.0246912);
}

TEST(OpenGLState, SwitchesAllClipPlanes) {
  Offscreen target;
  target.gl->EnableClipping(1);
  for (GLenum i = 0; i < 6; ++i) EXPECT_TRUE(glIsEnabled(GL_CLIP_PLANE0 + i));
  target.gl->EnableClipping(0);
  for (GLenum i = 0; i < 6; ++i) EXPECT_FALSE(glIsEnabled(GL_CLIP_PLANE0 + i));
}

TEST(OpenGLState, SendsTheFillInColorModes0And1) {
  Offscreen target;
  const RGBDType black = SetRGBD(0, 0, 0, 1);
  target.gl->SetFillStyle3D(SetRGBD(0.5, 0.25, 0.75, 0.1), black, black);
  EXPECT_EQ(CurrentColor(), (std::array<float, 4>{0.5, 0.25, 0.75, 1.0}));  // alpha isn't sent
  target.gl->SetColorMode(1);
  target.gl->SetFillStyle3D(SetRGBD(1, 0, 0, 0.1), black, black);
  EXPECT_EQ(CurrentColor(), (std::array<float, 4>{1, 0, 0, 1}));
  target.gl->SetColorMode(2);
  target.gl->SetFillStyle3D(SetRGBD(0, 1, 0, 0.1), black, black);
  EXPECT_EQ(CurrentColor(), (std::array<float, 4>{1, 0, 0, 1}));
}

TEST(OpenGLState, StoresTheLineStyle) {
  Offscreen target;
  target.gl->SetLineStyle3D(3, 2.5, SetRGBD(0.1, 0.2, 0.3, 0.4));
  EXPECT_EQ(target.gl->GetLineStyle(), 3);
  EXPECT_EQ(target.gl->GetLineWidth3D(), 2.5);
  ExpectColor(target.gl->GetLineColor3D(), 0.1, 0.2, 0.3, 0.4);
  target.gl->SetLineStyleFactor(4);
  EXPECT_EQ(target.gl->GetLineStyleFactor(), 4);
  target.gl->SetLineWidth3D(0.1);
  EXPECT_EQ(target.gl->GetLineWidth3D(), static_cast<double>(0.1F));  // kept as a float
  target.gl->SetPolygonOutlineMode(5);
  EXPECT_EQ(target.gl->GetPolygonOutlineMode(), 5);
}

TEST(OpenGLState, StoresTheNormalOfLines) {
  Offscreen target;
  const auto expectNormal = [&target](double x, double y, double z) {
    const point3Dtype normal = target.gl->GetLineNormal();
    EXPECT_EQ((std::array<double, 3>{normal.x, normal.y, normal.z}),
              (std::array<double, 3>{x, y, z}));
  };
  expectNormal(0, 0, 0);
  target.gl->SetLineNormal({-1, 2, -3, 0}, 1);
  expectNormal(1, 2, 3);
  target.gl->SetLineNormal({1, -2, 3, 0}, -1);
  expectNormal(1, 2, 3);
  target.gl->SetLineNormal({-1, 2, -3, 0}, 0);
  expectNormal(-1, 2, -3);
}

TEST(OpenGLState, KnowsTheNormalsOfPlanes) {
  Offscreen target;
  point3Dtype normal{};
  const std::array<std::array<double, 3>, 3> expected{{{0, 0, 1}, {0, 1, 0}, {1, 0, 0}}};
  for (int plane = 0; plane < 7; ++plane) {
    target.gl->GetAxesPlaneNormal(plane, normal);
    const auto& axis = expected[static_cast<std::size_t>(plane % 3)];
    EXPECT_EQ((std::array<double, 3>{normal.x, normal.y, normal.z}), axis) << plane;
  }
  target.gl->GetAxesPlaneNormal(-2, normal);  // names no plane: nothing changes
  EXPECT_EQ(normal.z, 1.0);
}

}  // namespace
