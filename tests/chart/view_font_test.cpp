#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "chart/view_fixture.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/render/font_3d.h"
#include "orvalix/render/gl_api_internal.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/feedback.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

/// What a font's record says of the last registration.
struct Request {
  int italics;
  int underline;
  int weight;
  int characters;

  bool operator==(const Request&) const = default;
};

/// The request stands behind a spare number and the name of the first display list.
Request RequestOf(const CFont3D& font) {
  const Bytes record = Saved(font);
  Request request{};
  EXPECT_GE(record.size(), 8 + sizeof request);
  std::memcpy(&request, record.data() + 8, sizeof request);
  return request;
}

/// Extent of a character in em.
double WidthOf(const CFont3D& font, char character) {
  return static_cast<double>(font.GetGlyphMetrics(character).gmfCellIncX);
}

std::vector<Pixel> PixelsOf(ViewOn& target, int width, int height) {
  std::vector<Pixel> pixels;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) pixels.push_back(target.WindowPixel(x, y));
  }
  return pixels;
}

class ViewFont : public ::testing::Test {
 protected:
  const CFont3D& Registered() {
    target.view->DrawViewScreen();
    return *target.view->GetOpenGLPntr()->GetFont();
  }

  ViewOn target{20, 20};
};

TEST_F(ViewFont, IsArialBoldByDefault) {
  const CFont3D& font = Registered();
  EXPECT_STREQ(font.GetFaceName(), "Arial");
  EXPECT_EQ(RequestOf(font), (Request{0, 0, 700, 128}));
  EXPECT_GT(WidthOf(font, 'W'), WidthOf(font, 'i'));
  EXPECT_GT(WidthOf(font, '~'), 0.0);  // code 126, nearly the last
}

TEST_F(ViewFont, IsRegisteredAsItWasSet) {
  target.view->SetFont("Courier New", 400, 1, 0, 100);
  const CFont3D& font = Registered();
  EXPECT_STREQ(font.GetFaceName(), "Courier New");
  EXPECT_EQ(RequestOf(font), (Request{1, 0, 400, 100}));
  EXPECT_EQ(WidthOf(font, 'W'), WidthOf(font, 'I'));  // of fixed width
  EXPECT_EQ(WidthOf(font, 'i'), 0.0);                 // beyond the 100 characters
  target.view->SetFont("Courier New", 300, 0, 1, 128);
  EXPECT_EQ(RequestOf(Registered()), (Request{0, 1, 300, 128}));
  EXPECT_EQ(WidthOf(font, 'i'), WidthOf(font, 'W'));
}

TEST_F(ViewFont, GetsDisplayListsWhenTheyAreAskedFor) {
  const CFont3D& font = Registered();
  EXPECT_FALSE(glIsList(1000 + 'A'));
  EXPECT_EQ(font.GetListBase(), 1000);
  EXPECT_TRUE(glIsList(1000 + 'A'));
  EXPECT_TRUE(glIsList(1000 + 127));
  EXPECT_FALSE(glIsList(1000 + 128));
  // Another font: those of the one before go.
  target.view->SetFont("Arial", 400, 100);
  Registered();
  EXPECT_FALSE(glIsList(1000 + 'A'));
  EXPECT_EQ(font.GetListBase(), 1000);
  EXPECT_TRUE(glIsList(1000 + 99));
  EXPECT_FALSE(glIsList(1000 + 100));
}

TEST_F(ViewFont, DrawsTheSameWithAndWithoutDisplayLists) {
  ViewOn large(200, 100);
  large.view->EnableBorder(0);
  large.view->GetHeader()->SetTitle1("Title");
  COpenGL& gl = *large.view->GetOpenGLPntr();
  gl.SetGathering(0);
  large.view->DrawViewScreen();
  const std::vector<Pixel> without = PixelsOf(large, 200, 100);
  EXPECT_GT(std::count(without.begin(), without.end(), kBlack), 20);
  EXPECT_EQ(gl.GetFont()->GetListBase(), 1000);
  large.view->DrawViewScreen();
  EXPECT_EQ(PixelsOf(large, 200, 100), without);
}

/// OpenGL is neither between glBegin() and glEnd() nor compiling a list.
void ExpectOpenGLInOrder() {
  EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
  GLint list = -1;
  glGetIntegerv(GL_LIST_INDEX, &list);
  EXPECT_EQ(list, 0);
}

TEST_F(ViewFont, ThrowsWhenMemoryRunsOutForDisplayLists) {
  const CFont3D& font = Registered();
  const int failures = FailEachAllocation([&] {
    const CaughtError error = Catch([&] { font.GetListBase(); });
    EXPECT_TRUE(error == kNoError || error == (CaughtError{3, 13, "GetListBase"})) << error;
    ExpectOpenGLInOrder();
  });
  EXPECT_GT(failures, 10);
  EXPECT_TRUE(glIsList(1000 + 'A'));
  EXPECT_TRUE(glIsList(1000 + 127));
}

TEST_F(ViewFont, EndsWhatItBeginsWhereMemoryRunsOut) {
  const CFont3D& font = Registered();
  const GLuint list = glGenLists(1);
  glNewList(list, GL_COMPILE);
  const int failures = FailEachAllocation([&] { font.DrawText3D("AB"); });
  glEndList();
  EXPECT_GT(failures, 10);
  glCallList(list);
  ExpectOpenGLInOrder();
  glDeleteLists(list, 1);
}

TEST_F(ViewFont, MakesListsOfTheCharactersThatAreDrawnOneByOne) {
  const CFont3D& font = Registered();
  font.DrawText3D("AB");
  EXPECT_TRUE(glIsList(1000 + 'A'));
  EXPECT_TRUE(glIsList(1000 + 'B'));
  EXPECT_FALSE(glIsList(1000 + 'C'));
}

TEST_F(ViewFont, GoesIntoAListOfTheProgram) {
  const CFont3D& font = Registered();
  const GLuint list = glGenLists(1);
  glNewList(list, GL_COMPILE);
  font.DrawText3D("AB");
  EXPECT_EQ(font.GetListBase(), 1000);
  glEndList();
  ExpectOpenGLInOrder();
  EXPECT_FALSE(glIsList(1000 + 'A')) << "lists aren't made in lists";
  const auto drawn = [](const std::function<void()>& draw) {
    glLoadIdentity();
    return ToTranscript(CaptureFeedback(draw));
  };
  const std::string called = drawn([&] { glCallList(list); });
  EXPECT_GT(called.size(), 500U);
  EXPECT_EQ(called, drawn([&] { font.DrawText3D("AB"); }));
  glDeleteLists(list, 1);
}

TEST_F(ViewFont, WeightAndSlantChangeTheCharacters) {
  target.view->SetFont("Arial", 400, 128);
  const GLYPHMETRICSFLOAT plain = Registered().GetGlyphMetrics('l');
  target.view->SetFont("Arial", 700, 128);
  const GLYPHMETRICSFLOAT bold = Registered().GetGlyphMetrics('l');
  target.view->SetFont("Arial", 400, 0, 1, 128);
  const GLYPHMETRICSFLOAT underlined = Registered().GetGlyphMetrics('l');
  target.view->SetFont("Arial", 400, 1, 0, 128);
  const GLYPHMETRICSFLOAT slanted = Registered().GetGlyphMetrics('l');
  EXPECT_GT(bold.gmfCellIncX, plain.gmfCellIncX);
  EXPECT_EQ(underlined.gmfBlackBoxX, plain.gmfBlackBoxX);
  EXPECT_GT(slanted.gmfBlackBoxX, 1.5F * plain.gmfBlackBoxX);  // an upright stroke leans
}

TEST_F(ViewFont, HasItsOwnSizeWhereNoChartSetsAnother) {
  EXPECT_EQ(Registered().GetFontScaleFactor(), 0.2);
  target.view->NewChart3D()->SetFontSize(0.5);
  EXPECT_EQ(Registered().GetFontScaleFactor(), 0.5);
}

TEST_F(ViewFont, TheShortFormKeepsItalicsAndUnderline) {
  target.view->SetFont("Arial", 700, 1, 2, 90);
  target.view->SetFont("Arial", 400, 100);
  EXPECT_EQ(target.view->GetFontItalics(), 1);
  EXPECT_EQ(target.view->GetFontUnderline(), 2);
  EXPECT_EQ(RequestOf(Registered()), (Request{1, 2, 400, 100}));
}

}  // namespace
