#include "orvalix/render/font_3d.h"

#include <gtest/gtest.h>

#include <fontconfig/fontconfig.h>
#include <ft2build.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "render/drawing_fixture.h"
#include "support/caught_error.h"
#include "support/offscreen.h"
#include "support/temporary_file.h"
#include FT_FREETYPE_H

namespace {

using orvalix::test::Bytes;
using orvalix::test::CaptureFeedback;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::DrawingTest;
using orvalix::test::FeedbackPrimitive;
using orvalix::test::LoadFrom;
using orvalix::test::Offscreen;
using orvalix::test::Saved;

TEST(Font3D, StartsWithItsDefaults) {
  const int before = CFont3D::nSelfID;
  const CFont3D font;
  EXPECT_EQ(CFont3D::nSelfID, before + 1);
  EXPECT_EQ(font.GetNumFontChars(), 128);
  EXPECT_EQ(font.GetFontExtrusion(), 0.01);
  EXPECT_EQ(font.GetFontRendering(), 0.1);
  EXPECT_EQ(font.GetFontScaleFactor(), 0.05);
  EXPECT_STREQ(font.GetFaceName(), "Arial");
  EXPECT_EQ(font.GetListBase(), 0);
  EXPECT_EQ(font.GetClassTag(), 1111);
}

TEST(Font3D, RefusesBadContexts) {
  Offscreen target;
  CDC withoutHandle;
  CFont3D font;
  EXPECT_EQ(Catch([&] { font.InitFont(target.gl.get(), nullptr, 1); }),
            (CaughtError{14, 13, "InitFont"}));
  EXPECT_EQ(Catch([&] { font.InitFont(target.gl.get(), &withoutHandle, 1); }),
            (CaughtError{14, 13, "InitFont"}));
  EXPECT_EQ(Catch([&] { font.InitFont(nullptr, &target.memory, 1); }),
            (CaughtError{16, 13, "InitFont"}));
  alignas(COpenGL) static std::array<unsigned char, sizeof(COpenGL)> untagged{};
  EXPECT_EQ(
      Catch([&] { font.InitFont(reinterpret_cast<COpenGL*>(untagged.data()), &target.memory, 1); }),
      (CaughtError{16, 13, "InitFont"}));
  const CFont3D bound(target.gl.get(), &target.memory, 77);
  EXPECT_EQ(bound.GetListBase(), 77);
}

TEST(Font3D, SavesItsScaleFactorTwice) {
  CFont3D font;
  font.SetFontExtrusion(0.5);
  font.SetFontRendering(0.25);
  font.SetFontScaleFactor(2.0);
  font.SetNumFontChars(3);
  const Bytes record = Saved(font);
  const Bytes expected{0,   0,   0,   0,                       // the spare number
                       0,   0,   0,   0,                       // list base
                       0,   0,   0,   0,                       // italic
                       0,   0,   0,   0,                       // underline
                       188, 2,   0,   0,                       // weight 700
                       3,   0,   0,   0,                       // number of characters
                       0,   0,   0,   0,   0,  0, 0xE0, 0x3F,  // extrusion 0.5
                       0,   0,   0,   0,   0,  0, 0xD0, 0x3F,  // rendering 0.25
                       0,   0,   0,   0,   0,  0, 0xF0, 0x3F,  // the spare factor 1.0
                       0,   0,   0,   0,   0,  0, 0,    0x40,  // scale factor 2.0
                       0,   0,   0,   0,   0,  0, 0,    0x40,  // and again
                       5,   0,   0,   0,                       // length of the face name
                       'A', 'r', 'i', 'a', 'l'};
  EXPECT_EQ(record, expected);

  Bytes changed = record;
  changed[63] = 0x3F;  // the second copy: bytes 56 to 63
  changed[62] = 0xF0;
  CFont3D loaded;
  LoadFrom(loaded, changed);
  EXPECT_EQ(loaded.GetFontScaleFactor(), 1.0);  // the second one holds
  EXPECT_EQ(loaded.GetFontExtrusion(), 0.5);
  EXPECT_EQ(loaded.GetNumFontChars(), 3);
  loaded.Save(nullptr);
  loaded.Load(nullptr);
}

TEST(Font3D, DistrustsItsRecord) {
  Bytes record = Saved(CFont3D());
  CFont3D font;
  record[64] = 0xFF;  // a face name of 255 bytes, of which 5 are there
  EXPECT_EQ(Catch([&] { LoadFrom(font, record); }), (CaughtError{7, 13, "Load"}));
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { font.Save(full.m_hFile); }), (CaughtError{7, 13, "Save"}));
}

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

/// FreeType's own view of a face that fontconfig finds.
class ReferenceFace {
 public:
  explicit ReferenceFace(const char* pattern) {
    FcPattern* wanted = FcNameParse(reinterpret_cast<const FcChar8*>(pattern));
    FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result = FcResultNoMatch;
    FcPattern* found = FcFontMatch(nullptr, wanted, &result);
    FcChar8* file = nullptr;
    FcPatternGetString(found, FC_FILE, 0, &file);
    FT_Init_FreeType(&m_library);
    FT_New_Face(m_library, reinterpret_cast<const char*>(file), 0, &m_face);
    FcPatternDestroy(found);
    FcPatternDestroy(wanted);
  }
  ~ReferenceFace() {
    FT_Done_Face(m_face);
    FT_Done_FreeType(m_library);
  }
  ReferenceFace(const ReferenceFace&) = delete;
  ReferenceFace& operator=(const ReferenceFace&) = delete;

  const FT_Glyph_Metrics& Load(char32_t character) {
    FT_Load_Char(m_face, character, FT_LOAD_NO_SCALE);
    return m_face->glyph->metrics;
  }
  double InEm(FT_Pos units) const {
    return static_cast<double>(units) / static_cast<double>(m_face->units_per_EM);
  }

 private:
  FT_Library m_library = nullptr;
  FT_Face m_face = nullptr;
};

void ExpectMetrics(const GLYPHMETRICSFLOAT& actual, ReferenceFace& face, char32_t character) {
  constexpr double kThreeDigits = 5e-4;
  const FT_Glyph_Metrics& expected = face.Load(character);
  EXPECT_NEAR(actual.gmfBlackBoxX, face.InEm(expected.width), kThreeDigits);
  EXPECT_NEAR(actual.gmfBlackBoxY, face.InEm(expected.height), kThreeDigits);
  EXPECT_NEAR(actual.gmfptGlyphOrigin.x, face.InEm(expected.horiBearingX), kThreeDigits);
  EXPECT_NEAR(actual.gmfptGlyphOrigin.y, face.InEm(expected.horiBearingY), kThreeDigits);
  EXPECT_NEAR(actual.gmfCellIncX, face.InEm(expected.horiAdvance), kThreeDigits);
  EXPECT_EQ(actual.gmfCellIncY, 0.0F);
}

class RegisteredFont : public DrawingTest {
 protected:
  RegisteredFont() : font(target.gl.get(), &target.memory, 5000) {}

  /// What a text draws, 50 pixels to the em and its origin at (50, 50).
  std::vector<FeedbackPrimitive> Drawn(CString const& text) {
    return CaptureFeedback([&] {
      gl.LoadIdentity();
      gl.Translate3D(-0.5, 0.0, 0.0);
      gl.Scale3D(0.5, 1.0, 1.0);
      font.DrawText3D(text);
    });
  }

  /// Bounds of what was drawn.
  struct Box {
    double left = 1e9, bottom = 1e9, right = -1e9, top = -1e9;
  };
  Box Bounds(CString const& text) {
    Box box;
    for (const FeedbackPrimitive& primitive : Drawn(text)) {
      for (const auto& vertex : primitive.vertices) {
        box.left = std::min(box.left, vertex.x);
        box.right = std::max(box.right, vertex.x);
        box.bottom = std::min(box.bottom, vertex.y);
        box.top = std::max(box.top, vertex.y);
      }
    }
    return box;
  }

  CFont3D font;
};

TEST_F(RegisteredFont, TellsTheMetricsOfTheFace) {
  ASSERT_NE(font.RegisterFont("Arial", 0.25, 400, 0, 0, 256), 0);
  EXPECT_EQ(font.GetFontScaleFactor(), 0.25);
  EXPECT_STREQ(font.GetFaceName(), "Arial");
  EXPECT_EQ(font.GetNumFontChars(), 256);
  ReferenceFace face("Arial:weight=80:slant=0");
  for (const char character : {'A', 'g', '.', 'W', '0', '~'}) {
    ExpectMetrics(font.GetGlyphMetrics(character), face, static_cast<char32_t>(character));
  }
  ExpectMetrics(font.GetGlyphMetrics(0xE4), face, 0xE4);    // a with diaeresis
  ExpectMetrics(font.GetGlyphMetrics(0x80), face, 0x20AC);  // euro
  const GLYPHMETRICSFLOAT space = font.GetGlyphMetrics(' ');
  EXPECT_NEAR(space.gmfCellIncX, face.InEm(face.Load(' ').horiAdvance), 5e-4);
  EXPECT_EQ(space.gmfBlackBoxX, 0.0F);
}

TEST_F(RegisteredFont, TakesTheStyleAskedFor) {
  ReferenceFace bold("Arial:weight=200:slant=0");
  ReferenceFace italic("Arial:weight=80:slant=100");
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 700, 0, 0, 128), 0);
  ExpectMetrics(font.GetGlyphMetrics('m'), bold, U'm');
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 1, 128), 0);
  ExpectMetrics(font.GetGlyphMetrics('m'), italic, U'm');
}

TEST_F(RegisteredFont, MeasuresTexts) {
  ASSERT_NE(font.RegisterFont("Arial", 0.5, 400, 0, 0, 128), 0);
  const auto metrics = [&](char c) { return font.GetGlyphMetrics(c); };
  const auto width = static_cast<double>(metrics('A').gmfCellIncX + metrics('p').gmfCellIncX);
  EXPECT_NEAR(font.TextWidth3D("Ap"), 0.5 * width, 1e-6);
  const auto height = static_cast<double>(metrics('p').gmfBlackBoxY);
  ASSERT_GT(height, static_cast<double>(metrics('x').gmfBlackBoxY));
  EXPECT_NEAR(font.TextHeight3D("xpx"), 0.5 * height, 1e-6);
  EXPECT_NEAR(font.TextDiagonal3D("p"), std::hypot(font.TextWidth3D("p"), font.TextHeight3D("p")),
              1e-12);
  EXPECT_EQ(font.TextWidth3D(""), 0.0);
  EXPECT_EQ(font.TextHeight3D(""), 0.0);
  EXPECT_EQ(font.TextDiagonal3D(""), 0.0);
  // Codes from the number of characters on, and control characters, count as nothing.
  EXPECT_EQ(font.TextWidth3D("\xE4\x80\n\t"), 0.0);
  EXPECT_EQ(font.TextWidth3D("A\xFF"), font.TextWidth3D("A"));
  font.SetFontScaleFactor(1.0);
  EXPECT_NEAR(font.TextWidth3D("Ap"), width, 1e-6);
  font.SetNumFontChars('p');
  EXPECT_NEAR(font.TextWidth3D("Ap"), static_cast<double>(metrics('A').gmfCellIncX), 1e-6);
  EXPECT_EQ(font.GetGlyphMetrics(-1).gmfCellIncX, 0.0F);
  EXPECT_EQ(font.GetGlyphMetrics(1000).gmfCellIncX, 0.0F);
}

TEST_F(RegisteredFont, DrawsEachCharacterInItsCell) {
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 0, 128), 0);
  const GLYPHMETRICSFLOAT h = font.GetGlyphMetrics('H');
  const Box one = Bounds("H");
  EXPECT_NEAR(one.left, 50.0 + 50.0 * static_cast<double>(h.gmfptGlyphOrigin.x), 0.1);
  EXPECT_NEAR(one.right - one.left, 50.0 * static_cast<double>(h.gmfBlackBoxX), 0.1);
  EXPECT_NEAR(one.bottom, 50.0, 0.1);
  EXPECT_NEAR(one.top, 50.0 + 50.0 * static_cast<double>(h.gmfBlackBoxY), 0.1);
  const Box two = Bounds("IH");
  const auto cell = static_cast<double>(font.GetGlyphMetrics('I').gmfCellIncX);
  EXPECT_NEAR(two.right, one.right + 50.0 * cell, 0.1);
  EXPECT_TRUE(Drawn("").empty());
  EXPECT_TRUE(Drawn(" ").empty());
  EXPECT_TRUE(Drawn("\xE4").empty());  // beyond the 128 characters
}

TEST_F(RegisteredFont, DrawsWhatFacesTheViewerOnly) {
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 0, 128), 0);
  // Seen straight, walls have no width and the back is turned away: all is at the front, z = 0.
  for (const FeedbackPrimitive& primitive : Drawn("O")) {
    for (const auto& vertex : primitive.vertices) EXPECT_NEAR(vertex.z, 0.5, 1e-6);
  }
  EXPECT_FALSE(glIsEnabled(GL_CULL_FACE));
}

TEST_F(RegisteredFont, ExtrudesAwayFromTheFront) {
  font.SetFontExtrusion(0.25);
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 0, 128), 0);
  const auto deepest = [&] {
    double depth = 0.0;
    const auto drawn = CaptureFeedback([&] {
      gl.LoadIdentity();
      gl.Rotate3D(180.0, 1);  // the back turns to the viewer
      font.DrawText3D("H");
    });
    for (const FeedbackPrimitive& primitive : drawn) {
      for (const auto& vertex : primitive.vertices) depth = std::max(depth, vertex.z);
    }
    return depth;
  };
  // z = -0.25 becomes +0.25 and, from -1 to 1, the depth 0.625.
  EXPECT_NEAR(deepest(), 0.625, 1e-5);
  font.SetFontExtrusion(0.0);
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 0, 128), 0);
  EXPECT_NEAR(deepest(), 0.5, 1e-5);
}

TEST_F(RegisteredFont, HasWallsBetweenFrontAndBack) {
  const auto facing = [&](double extrusion) {
    font.SetFontExtrusion(extrusion);
    EXPECT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 0, 128), 0);
    return CaptureFeedback([&] {
             gl.LoadIdentity();
             gl.Rotate3D(50.0, 1);
             font.DrawText3D("l");  // a box in this face
           })
        .size();
  };
  const std::size_t flat = facing(0.0);
  // Of the four walls of a box one faces the viewer from this side; above and below are edge-on.
  EXPECT_EQ(facing(0.3), flat + 2);  // two triangles
  for (const double none : {-0.5, kNotANumber, std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(facing(none), flat) << none;
    for (const FeedbackPrimitive& primitive : Drawn("l")) {
      for (const auto& vertex : primitive.vertices) EXPECT_NEAR(vertex.z, 0.5, 1e-6) << none;
    }
  }
}

TEST_F(RegisteredFont, LeavesTheListsOfOtherContextsAlone) {
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 0, 128), 0);
  Offscreen other;
  CFont3D itsOwn(other.gl.get(), &other.memory, 5000);
  ASSERT_NE(itsOwn.RegisterFont("Arial", 1.0, 400, 0, 0, 128), 0);
  font.InitFont(other.gl.get(), &other.memory, 6000);
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 0, 128), 0);
  EXPECT_TRUE(glIsList(5000 + 'A'));
  EXPECT_TRUE(glIsList(6000 + 'A'));
  gl.MakeCurrent();
}

TEST_F(RegisteredFont, NeedsAListBase) {
  for (const int base : {0, -65, std::numeric_limits<int>::min()}) {
    font.InitFont(&gl, &target.memory, base);
    EXPECT_EQ(font.RegisterFont("Arial", 1.0, 400, 0, 0, 128), 0);
  }
  EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

TEST_F(RegisteredFont, FollowsCurvesAsCloselyAsAsked) {
  font.SetFontRendering(2.0);
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 0, 128), 0);
  const std::size_t coarse = Drawn("O").size();
  font.SetFontRendering(0.0);
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 0, 128), 0);
  EXPECT_GT(Drawn("O").size(), 2 * coarse);
}

TEST_F(RegisteredFont, UnderlinesWithoutMovingAnything) {
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 0, 128), 0);
  const double height = font.TextHeight3D("H");
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 1, 128), 0);
  EXPECT_EQ(font.TextHeight3D("H"), height);
  const Box box = Bounds("H ");
  EXPECT_LT(box.bottom, 49.0);
  // The bar is as wide as both cells.
  EXPECT_NEAR(box.left, 50.0, 0.1);
  EXPECT_NEAR(box.right, 50.0 + 50.0 * font.TextWidth3D("H "), 0.1);
}

TEST_F(RegisteredFont, TakesTheNearestFace) {
  EXPECT_NE(font.RegisterFont("No Such Face At All", 0.3, 400, 0, 0, 128), 0);
  EXPECT_STREQ(font.GetFaceName(), "No Such Face At All");
  EXPECT_GT(font.TextWidth3D("A"), 0.0);
  EXPECT_NE(font.RegisterFont("", 0.3, 0, 0, 0, 128), 0);
  EXPECT_NE(font.RegisterFont(CString('x', 5000), 0.3, 1 << 30, 0, 0, 128), 0);
  EXPECT_NE(font.RegisterFont("\xE4\xFF\x81", 0.3, -5, 0, 0, 128), 0);
}

TEST_F(RegisteredFont, DropsTheCharactersBefore) {
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 0, 128), 0);
  EXPECT_TRUE(glIsList(5000 + 'z'));
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 0, 'B'), 0);
  EXPECT_TRUE(glIsList(5000 + 'A'));
  EXPECT_FALSE(glIsList(5000 + 'z'));
  EXPECT_TRUE(Drawn("z").empty());
  EXPECT_EQ(font.TextWidth3D("z"), 0.0);
}

TEST_F(RegisteredFont, BuildsAtMostTheCodesThereAre) {
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 0, 100000), 0);
  EXPECT_EQ(font.GetNumFontChars(), 100000);
  EXPECT_TRUE(glIsList(5000 + 255));
  EXPECT_FALSE(glIsList(5000 + 256));
  EXPECT_GT(font.TextWidth3D("\xFF"), 0.0);
}

TEST_F(RegisteredFont, ReportsFailureAndKeepsWhatItHad) {
  ASSERT_NE(font.RegisterFont("Arial", 0.5, 400, 0, 0, 128), 0);
  for (const int count : {0, -1, std::numeric_limits<int>::min()}) {
    EXPECT_EQ(font.RegisterFont("Courier New", 2.0, 400, 0, 0, count), 0);
    EXPECT_EQ(font.GetNumFontChars(), count);
  }
  EXPECT_EQ(font.GetFontScaleFactor(), 0.5);
  EXPECT_STREQ(font.GetFaceName(), "Arial");
  EXPECT_FALSE(Drawn("A").empty());
}

TEST_F(RegisteredFont, NeedsAContext) {
  CFont3D unbound;
  EXPECT_EQ(unbound.RegisterFont("Courier", 0.3, 400, 1, 1, 50), 0);
  EXPECT_EQ(unbound.GetNumFontChars(), 50);
  EXPECT_EQ(unbound.GetFontScaleFactor(), 0.05);
  EXPECT_STREQ(unbound.GetFaceName(), "Arial");
  EXPECT_EQ(unbound.RegisterFont("Courier", 0.3, 400, 1, 60), 0);
  EXPECT_EQ(unbound.GetNumFontChars(), 60);
}

TEST_F(RegisteredFont, BuildsInItsOwnContext) {
  Offscreen other;  // its context is current now
  ASSERT_NE(font.RegisterFont("Arial", 1.0, 400, 0, 0, 128), 0);
  EXPECT_TRUE(glIsList(5000 + 'A'));
  other.gl->MakeCurrent();
  EXPECT_FALSE(glIsList(5000 + 'A'));
  gl.MakeCurrent();
}

}  // namespace
