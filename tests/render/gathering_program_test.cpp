#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "orvalix/render/font_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "render/gathered_fixture.h"
#include "support/feedback.h"

// Programs that call OpenGL themselves, between operations and round drawings that are gathered.

namespace {

using namespace orvalix::test;
using Work = GatheredScene::Work;

constexpr RGBDType kRed{0.9, 0.2, 0.2, 1};
constexpr RGBDType kGreen{0.2, 0.7, 0.2, 1};
constexpr RGBDType kBlack{0, 0, 0, 1};

/// Two bars and a line.
void DrawBars(COpenGL& gl) {
  gl.DrawPrism3D(1, 1, 1, 3, 3, 6, kRed, kBlack);
  gl.DrawPrism3D(5, 5, 0, 3, 3, 3, kGreen, kBlack);
  gl.SetLineStyle3D(0, 2.0, kGreen);
  gl.LineAbs3D({0, 0, 0, 0}, {10, 10, 10, 0});
}

/// The picture of `frame`, gathered; it differs at edges alone from one by one, and a second frame
/// in nothing.
PixelBytes SameBothWays(const std::function<void(GatheredScene&)>& frame) {
  std::array<PixelBytes, 2> pictures;
  for (const int gathering : {0, 1}) {
    GatheredScene scene(gathering);
    frame(scene);
    PixelBytes& picture = pictures[static_cast<std::size_t>(gathering)];
    picture = GatheredScene::Pixels();
    scene.Clear();
    frame(scene);
    EXPECT_EQ(DifferingPixels(GatheredScene::Pixels(), picture), 0) << "the second frame differs";
  }
  EXPECT_LE(DifferingPixels(pictures[0], pictures[1]), kMostDiffering);
  EXPECT_GT(DifferingPixels(pictures[1], PixelBytes(pictures[1].size(), 255)), 1000);
  return pictures[1];
}

TEST(GatheringProgram, DrawsBetweenDrawings) {
  SameBothWays([](GatheredScene& scene) {
    scene.gl.SetColorMode(0);
    glColor3d(0.0, 1.0, 0.0);
    glRectd(-0.9, 0.5, -0.5, 0.9);
    scene.Keep(DrawBars);
    glNormal3d(1, 0, 0);
    glRectd(0.5, 0.5, 0.9, 0.9);
    scene.gl.DrawCube(2, kRed, kBlack);
    scene.Gather([](COpenGL& gl) { gl.DrawCube(0.5, kGreen, kBlack); });
    scene.gl.LineAbs3D({0, 0, 0, 0}, {1, 0, 1, 0});
    glBegin(GL_LINES);
    glVertex3d(-1, 0, 0);
    glVertex3d(1, 0, 0);
    glEnd();
  });
}

TEST(GatheringProgram, DrawsInTheMiddleOnceWhatWasGatheredIsSent) {
  SameBothWays([](GatheredScene& scene) {
    scene.Keep([](COpenGL& gl) {
      DrawBars(gl);
      gl.SendGathered();
      glColor3d(0.0, 0.0, 1.0);
      glNormal3d(1, 0, 0);
      glBegin(GL_TRIANGLES);
      glVertex3d(2, 2, 8);
      glVertex3d(8, 2, 8);
      glVertex3d(5, 8, 8);
      glEnd();
      gl.SetFillStyle3D(kRed, kRed, kBlack);
      gl.DrawPrism3D(4, 0, 8, 3, 3, 1, kGreen, kBlack);
    });
  });
}

TEST(GatheringProgram, SwitchesBetweenFrames) {
  GatheredScene scene;
  const PixelBytes gathered = scene.Kept(DrawBars);
  scene.gl.SetGathering(0);
  EXPECT_EQ(scene.gl.GetGathering(), 0);
  const PixelBytes single = scene.Kept(DrawBars);
  EXPECT_LE(DifferingPixels(gathered, single), kMostDiffering);
  EXPECT_EQ(scene.Kept(DrawBars), single);
  scene.gl.SetGathering(1);
  EXPECT_EQ(scene.Kept(DrawBars), gathered);
  scene.gl.SetGathering(-7);
  EXPECT_EQ(scene.gl.GetGathering(), -7);
  EXPECT_EQ(scene.Kept(DrawBars), gathered);
}

TEST(GatheringProgram, SwitchesInTheMiddle) {
  for (const int start : {0, 1}) {
    SCOPED_TRACE(start);
    GatheredScene scene(start);
    const PixelBytes plain = scene.Kept([](COpenGL& gl) {
      DrawBars(gl);
      DrawBars(gl);
    });
    scene.slot.Forget();
    const PixelBytes switched = scene.Kept([&](COpenGL& gl) {
      gl.SetGathering(1 - start);
      DrawBars(gl);
      gl.SetGathering(start);
      DrawBars(gl);
    });
    EXPECT_LE(DifferingPixels(switched, plain), kMostDiffering);
    EXPECT_EQ(scene.gl.GetGathering(), start);
  }
}

/// A drawing in a drawing is part of the outer one.
TEST(GatheringProgram, NestsDrawings) {
  SameBothWays([](GatheredScene& scene) {
    scene.Keep([&](COpenGL& gl) {
      orvalix::KeptDrawingSlot inner;
      orvalix::DrawKeeping(
          inner, gl, [] { return std::vector<double>{}; },
          [&] {
            gl.LoadMatrixTransform(scene.transform.GetGraphTransform());
            gl.DrawPrism3D(0, 5, 0, 2, 2, 2, kRed, kBlack);
          });
      DrawBars(gl);
    });
  });
}

/// Arrays, buffers and attributes of its own, switched on wherever that is possible.
TEST(GatheringProgram, KeepsItsArraysAndBuffers) {
  const PixelBytes alone = SameBothWays([](GatheredScene& scene) { scene.Keep(DrawBars); });
  const PixelBytes beside = SameBothWays([](GatheredScene& scene) {
    const std::array<float, 9> corners{-1, -1, 0, 0, -1, 0, -1, 0, 0};
    GLuint buffer = 0;
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    glBufferData(GL_ARRAY_BUFFER, sizeof corners, corners.data(), GL_STATIC_DRAW);
    glVertexPointer(3, GL_FLOAT, 0, nullptr);
    GLint units = 0;
    glGetIntegerv(GL_MAX_TEXTURE_COORDS, &units);
    for (const int array : {GL_VERTEX_ARRAY, GL_NORMAL_ARRAY, GL_COLOR_ARRAY, GL_EDGE_FLAG_ARRAY,
                            GL_INDEX_ARRAY, GL_SECONDARY_COLOR_ARRAY, GL_FOG_COORD_ARRAY}) {
      glEnableClientState(static_cast<GLenum>(array));
    }
    for (GLint unit = 0; unit < units; ++unit) {
      glClientActiveTexture(GL_TEXTURE0 + static_cast<GLenum>(unit));
      glTexCoordPointer(2, GL_FLOAT, 0, nullptr);
      glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    }
    scene.Keep(DrawBars);
    GLint bound = 0;
    glGetIntegerv(GL_ARRAY_BUFFER_BINDING, &bound);
    EXPECT_EQ(static_cast<GLuint>(bound), buffer);
    for (const int array : {GL_VERTEX_ARRAY, GL_NORMAL_ARRAY, GL_COLOR_ARRAY, GL_EDGE_FLAG_ARRAY,
                            GL_INDEX_ARRAY, GL_SECONDARY_COLOR_ARRAY, GL_FOG_COORD_ARRAY}) {
      EXPECT_EQ(glIsEnabled(static_cast<GLenum>(array)), GL_TRUE);
      glDisableClientState(static_cast<GLenum>(array));
    }
    for (GLint unit = units - 1; unit >= 0; --unit) {
      glClientActiveTexture(GL_TEXTURE0 + static_cast<GLenum>(unit));
      EXPECT_EQ(glIsEnabled(GL_TEXTURE_COORD_ARRAY), GL_TRUE) << unit;
      glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    }
    glDeleteBuffers(1, &buffer);
  });
  EXPECT_EQ(DifferingPixels(alone, beside), 0);
}

/// Clip planes of the program's own open solids; sides that touch are told apart all the same.
TEST(GatheringProgram, CutsSolidsOpenWithItsOwnPlanes) {
  const auto stack = [](COpenGL& gl) {
    gl.DrawPrism3D(1, 1, 1, 8, 8, 3, kRed, kBlack);
    gl.DrawPrism3D(1, 1, 4, 8, 8, 3, kGreen, kBlack);
    gl.DrawPrism3D(1, 1, 7, 8, 8, 2, {0.2, 0.3, 0.9, 1}, kBlack);
  };
  for (const point3Dtype& turn : std::vector<point3Dtype>{
           {20, 10, 30, 0}, {0, 0, 0, 0}, {90, 0, 0, 0}, {-90, 0, 0, 0}, {0, 0, 90, 0}}) {
    for (const int outlines : {0, 1}) {
      for (const double depth : {0.0, 0.3}) {
        SCOPED_TRACE(::testing::Message() << "turned by " << turn.x << " " << turn.y << " "
                                          << turn.z << ", outlines " << outlines << ", " << depth);
        SameBothWays([&](GatheredScene& scene) {
          scene.transform.SetRotate(turn);
          const std::array<double, 4> plane{0, 0, -1, depth};
          glLoadIdentity();
          glClipPlane(GL_CLIP_PLANE1, plane.data());
          glEnable(GL_CLIP_PLANE1);
          scene.Keep([&](COpenGL& gl) {
            gl.SetPolygonOutlineMode(outlines);
            stack(gl);
          });
          glDisable(GL_CLIP_PLANE1);
        });
      }
    }
  }
}

/// A viewer of the program's own, who sees solids from many directions at once.
/// Looks in perspective while it lives.
class InPerspective {
 public:
  InPerspective() {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glFrustum(-0.3, 0.3, -0.3, 0.3, 0.5, 5.0);
    glTranslated(0, 0, -2);
    glScaled(1, 1, -1);
    glMatrixMode(GL_MODELVIEW);
  }
  ~InPerspective() {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
  }
  InPerspective(const InPerspective&) = delete;
  InPerspective& operator=(const InPerspective&) = delete;
};

TEST(GatheringProgram, LooksInPerspective) {
  SameBothWays([](GatheredScene& scene) {
    const InPerspective perspective;
    scene.Keep([](COpenGL& gl) {
      for (int i = 0; i < 5; ++i) {
        gl.DrawPrism3D(2.0 * i, 2.0 * i, 0, 1, 1, 1 + 2.0 * i, kRed, kBlack);
      }
    });
  });
}

TEST(GatheringProgram, LightsFromSomewhere) {
  SameBothWays([](GatheredScene& scene) {
    constexpr std::array<float, 4> kNear{0.0F, -0.4F, 0.0F, 1.0F};
    constexpr std::array<float, 4> kBright{1.0F, 1.0F, 1.0F, 1.0F};
    scene.gl.LoadIdentity();
    glLightfv(GL_LIGHT1, GL_POSITION, kNear.data());
    glLightfv(GL_LIGHT1, GL_DIFFUSE, kBright.data());
    glLightf(GL_LIGHT1, GL_QUADRATIC_ATTENUATION, 4.0F);
    glEnable(GL_LIGHT1);
    scene.Keep(DrawBars);
    glDisable(GL_LIGHT1);
  });
}

TEST(GatheringProgram, LooksAtLightFromSomewhere) {
  SameBothWays([](GatheredScene& scene) {
    constexpr std::array<float, 4> kBright{1.0F, 1.0F, 1.0F, 1.0F};
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, kBright.data());
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, 4.0F);
    glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, GL_TRUE);
    scene.Keep(DrawBars);
    glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, GL_FALSE);
  });
}

/// A roof, whose sides meet in the ridge.
void DrawRoof(COpenGL& gl) {
  const std::array<point3Dtype, 5> front{
      {{0, 0, 2, 0}, {10, 0, 2, 0}, {10, 5, 8, 0}, {0, 5, 8, 0}, {0, 0, 2, 0}}};
  const std::array<point3Dtype, 5> back{
      {{0, 5, 8, 0}, {10, 5, 8, 0}, {10, 10, 2, 0}, {0, 10, 2, 0}, {0, 5, 8, 0}}};
  gl.SetFillStyle3D(kGreen, kGreen, kBlack);
  gl.PolyFillAbs3D(front.data(), 5);
  gl.PolyFillAbs3D(back.data(), 5);
}

TEST(GatheringProgram, MovesALightClose) {
  const auto putLight = [](float isSomewhere) {
    const std::array<float, 4> position{0.3F, 0.2F, 0.4F, isSomewhere};
    glPushMatrix();
    glLoadIdentity();
    glLightfv(GL_LIGHT0, GL_POSITION, position.data());
    glPopMatrix();
  };
  GatheredScene kept;
  GatheredScene single(0);
  PixelBytes last(single.Kept(DrawRoof).size(), 255);
  for (const float isSomewhere : {0.0F, 1.0F, 0.0F}) {
    single.gl.MakeCurrent();
    putLight(isSomewhere);
    const PixelBytes oneByOne = single.Kept(DrawRoof);
    kept.gl.MakeCurrent();
    putLight(isSomewhere);
    const PixelBytes picture = kept.Kept(DrawRoof);
    EXPECT_LE(DifferingPixels(picture, oneByOne), kMostDiffering) << isSomewhere;
    EXPECT_GT(DifferingPixels(picture, last), 1000) << isSomewhere;
    last = picture;
  }
}

/// A program that shows the direction in which faces look.
class NormalsShader {
 public:
  NormalsShader() : m_program(glCreateProgram()) {
    Add(GL_VERTEX_SHADER,
        "#version 120\nvarying vec3 normal;\n"
        "void main() { normal = gl_Normal; gl_Position = ftransform(); }\n");
    Add(GL_FRAGMENT_SHADER,
        "#version 120\nvarying vec3 normal;\n"
        "void main() { gl_FragColor = vec4(0.5 * normal + 0.5, 1.0); }\n");
    glLinkProgram(m_program);
    glUseProgram(m_program);
  }
  ~NormalsShader() {
    glUseProgram(0);
    glDeleteProgram(m_program);
  }
  NormalsShader(const NormalsShader&) = delete;
  NormalsShader& operator=(const NormalsShader&) = delete;

 private:
  void Add(GLenum type, const char* source) const {
    const GLuint shader = glCreateShader(type);
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    glAttachShader(m_program, shader);
    glDeleteShader(shader);
  }

  GLuint m_program;
};

TEST(GatheringProgram, ShadesFacesItself) {
  SameBothWays([](GatheredScene& scene) {
    const NormalsShader shader;
    GLint isLinked = 0;
    GLint program = 0;
    glGetIntegerv(GL_CURRENT_PROGRAM, &program);
    glGetProgramiv(static_cast<GLuint>(program), GL_LINK_STATUS, &isLinked);
    ASSERT_EQ(isLinked, GL_TRUE);
    scene.Keep([](COpenGL& gl) {
      gl.SetPolygonOutlineMode(0);
      DrawRoof(gl);
    });
  });
}

TEST(GatheringProgram, GeneratesTextureCoordinatesFromNormals) {
  SameBothWays([](GatheredScene& scene) {
    const std::array<RGBDType, 4> colors{
        {{1, 0, 0, 1}, {0, 0.8, 0, 1}, {0, 0, 1, 1}, {1, 0.7, 0, 1}}};
    scene.gl.SetTextureColorArray(colors.data(), 0.0, 10.0, static_cast<int>(colors.size()));
    scene.gl.SetTextureMode(2);
    glTexGeni(GL_S, GL_TEXTURE_GEN_MODE, GL_SPHERE_MAP);
    glEnable(GL_TEXTURE_GEN_S);
    scene.Keep([](COpenGL& gl) {
      gl.SetPolygonOutlineMode(0);
      gl.EnableTexture(1);
      DrawRoof(gl);
      gl.EnableTexture(0);
    });
    glDisable(GL_TEXTURE_GEN_S);
  });
}

TEST(GatheringProgram, KeepsHowItShades) {
  for (const int gathering : {0, 1}) {
    GatheredScene scene(gathering);
    for (const GLenum model : {GLenum{GL_FLAT}, GLenum{GL_SMOOTH}}) {
      glShadeModel(model);
      scene.Keep(DrawBars);
      scene.Gather(DrawBars);
      GLint left = 0;
      glGetIntegerv(GL_SHADE_MODEL, &left);
      EXPECT_EQ(static_cast<GLenum>(left), model) << gathering;
    }
  }
}

TEST(GatheringProgram, TakesColorsFromFirstVertices) {
  SameBothWays([](GatheredScene& scene) {
    glProvokingVertex(GL_FIRST_VERTEX_CONVENTION);
    scene.Keep([](COpenGL& gl) {
      DrawBars(gl);
      DrawRoof(gl);
    });
    GLint left = 0;
    glGetIntegerv(GL_PROVOKING_VERTEX, &left);
    EXPECT_EQ(left, GL_FIRST_VERTEX_CONVENTION);
  });
}

/// Frames and outlines over one another.
TEST(GatheringProgram, DrawsTheColorThatComesLast) {
  SameBothWays([](GatheredScene& scene) {
    scene.Keep([](COpenGL& gl) {
      const std::array<point3Dtype, 5> square{
          {{1, 1, 5, 0}, {9, 1, 5, 0}, {9, 9, 5, 0}, {1, 9, 5, 0}, {1, 1, 5, 0}}};
      for (const RGBDType& color : {kRed, kGreen, kRed}) {
        gl.SetFillStyle3D(kBlack, kBlack, color);
        gl.PolyFillAbs3D(square.data(), 5);
        gl.SetLineWidth3D(5.0);
        gl.Frame3D(square.data(), 5);
        gl.SetLineWidth3D(1.0);
      }
    });
  });
}

/// A text across the picture with that font, as legends draw theirs.
void DrawText(GatheredScene& scene, CFont3D* font) {
  scene.gl.SetColorMode(0);
  scene.Gather([&](COpenGL& gl) {
    CTextObj3D text(&gl, font, &scene.transform, "Text");
    text.SetColor(kRed);
    text.SetNormLocation({-0.4, -0.2, -0.2, 0});
    text.OutTextNorm();
  });
}

CFont3D* LargeFont(COpenGL& gl) {
  gl.NewFont3D();
  gl.GetFont()->SetFontExtrusion(0.3);
  gl.RegisterFont("Arial", 0.5, 700, 0, 0, 128);
  return gl.GetFont();
}

TEST(GatheringProgram, WritesWithTheFontOfAnotherContext) {
  SameBothWays([](GatheredScene& scene) {
    Offscreen other;
    CFont3D* const font = LargeFont(*other.gl);
    scene.gl.MakeCurrent();
    DrawText(scene, font);
  });
}

TEST(GatheringProgram, TurnsItsFacesOver) {
  for (const int degrees : {0, 180}) {
    SCOPED_TRACE(degrees);
    SameBothWays([&](GatheredScene& scene) {
      scene.transform.SetRotate({20.0, 10.0, 30.0 + degrees, 0});
      CFont3D* const font = LargeFont(scene.gl);
      glFrontFace(GL_CW);
      DrawText(scene, font);
      glFrontFace(GL_CCW);
    });
  }
}

TEST(GatheringProgram, WritesInPerspective) {
  for (const int degrees : {0, 90, 180}) {
    SCOPED_TRACE(degrees);
    SameBothWays([&](GatheredScene& scene) {
      scene.transform.SetRotate({20.0, 10.0, 30.0 + degrees, 0});
      const InPerspective perspective;
      DrawText(scene, LargeFont(scene.gl));
    });
  }
}

TEST(GatheringProgram, HearsOfEverythingInFeedbackMode) {
  std::array<std::vector<std::string>, 2> transcripts;
  for (const int gathering : {0, 1}) {
    GatheredScene scene(gathering);
    const auto frame = [&] {
      scene.gl.LoadIdentity();
      scene.Keep(DrawBars);
      scene.Gather([](COpenGL& gl) {
        gl.DrawCube(0.5, kGreen, kBlack);
        gl.SendGathered();
        gl.DrawCube(0.25, kRed, kBlack);
      });
    };
    std::vector<std::string>& heard = transcripts[static_cast<std::size_t>(gathering)];
    heard.push_back(ToTranscript(CaptureFeedback(frame)));
    frame();  // something is kept now
    heard.push_back(ToTranscript(CaptureFeedback(frame)));
  }
  EXPECT_EQ(transcripts[0], transcripts[1]);
  EXPECT_EQ(transcripts[1][0], transcripts[1][1]);
  EXPECT_GT(transcripts[1][0].size(), 500U);
}

/// What a program learns that has OpenGL select: the names, and the nearest and farthest depths, of
/// what lies in the middle of the picture.
std::vector<GLuint> Selected(GatheredScene& scene, const std::function<void()>& frame) {
  std::vector<GLuint> hits(256);
  scene.gl.LoadIdentity();
  glSelectBuffer(static_cast<GLsizei>(hits.size()), hits.data());
  glRenderMode(GL_SELECT);
  glInitNames();
  glPushName(7);
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  glScaled(4, 4, 1);
  glMatrixMode(GL_MODELVIEW);
  frame();
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  glMatrixMode(GL_MODELVIEW);
  hits.resize(static_cast<std::size_t>(glRenderMode(GL_RENDER)) * 4);
  return hits;
}

TEST(GatheringProgram, SelectsTheSame) {
  std::array<std::vector<GLuint>, 2> hits;
  for (const int gathering : {0, 1}) {
    GatheredScene scene(gathering);
    const auto frame = [&] {
      scene.Keep(DrawBars);
      glLoadName(8);
      scene.Gather([](COpenGL& gl) { gl.DrawCube(0.5, kGreen, kBlack); });
    };
    frame();
    hits[static_cast<std::size_t>(gathering)] = Selected(scene, frame);
    const PixelBytes picture = scene.Kept(DrawBars);
    EXPECT_GT(DifferingPixels(picture, PixelBytes(picture.size(), 255)), 1000);
  }
  EXPECT_EQ(hits[0], hits[1]);
  ASSERT_EQ(hits[1].size(), 8U);  // a hit for each of the two names
  EXPECT_EQ(hits[1][3], 7U);
  EXPECT_EQ(hits[1][7], 8U);
}

}  // namespace
