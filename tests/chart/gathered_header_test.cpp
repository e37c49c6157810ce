#include <gtest/gtest.h>

#include "chart/gathered_fixture.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/render/font_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "support/temporary_file.h"

// Titles, which are gathered in each frame: changed, they show at once.

namespace {

using namespace orvalix::test;

constexpr RGBDType kPink{0.9, 0.1, 0.5, 1};

struct HeaderScene : DrawnView {
  HeaderScene() : header(&gl) {
    header.SetTitle1("First");
    header.SetTitle2("Second");
    header.SetFooter("Below");
  }
  PixelBytes Picture() {
    return PictureOf([&] { header.DrawHeader(); });
  }
  CHeader3D header;
};

using Change = SceneChange<HeaderScene>;

Change Of(const char* name, void (*set)(CHeader3D&)) {
  return {name, [set](HeaderScene& scene) { set(scene.header); }};
}

Change OfTitle(const char* name, void (*set)(CTextObj3D&)) {
  return {name, [set](HeaderScene& scene) { set(*scene.header.GetTitle1Obj()); }};
}

TEST(GatheredHeader, ShowsWhatIsSetAtOnce) {
  ExpectShownAtOnce<HeaderScene>({
      Of("first title", [](CHeader3D& h) { h.SetTitle1("Else"); }),
      Of("no first title", [](CHeader3D& h) { h.SetTitle1(""); }),
      Of("second title", [](CHeader3D& h) { h.SetTitle2("Else"); }),
      Of("footer", [](CHeader3D& h) { h.SetFooter("Else"); }),
      Of("no footer", [](CHeader3D& h) { h.SetFooter(""); }),
      Of("enabling", [](CHeader3D& h) { h.EnableHeader(0); }),
      Of("aspect", [](CHeader3D& h) { h.SetViewAspect(0.5); }),
      Of("height of the font", [](CHeader3D& h) { h.SetFontHeightSF(0.5); }),
      Unseen(Of("size of the font", [](CHeader3D& h) { h.SetFontSize(0.3); })),
      {"loading",
       [](HeaderScene& scene) {
         CHeader3D other;
         other.SetTitle1("Loaded");
         other.SetFontHeightSF(0.7);
         LoadFrom(scene.header, Saved(other));
       }},
  });
}

TEST(GatheredHeader, ShowsWhatIsSetOfItsTextsAtOnce) {
  ExpectShownAtOnce<HeaderScene>({
      OfTitle("text", [](CTextObj3D& t) { t.SetString("Else"); }),
      OfTitle("colour", [](CTextObj3D& t) { t.SetColor(kPink); }),
      OfTitle("size", [](CTextObj3D& t) { t.SetCharSize(0.5); }),
      OfTitle("plane", [](CTextObj3D& t) { t.SetTextPlane(0); }),
      OfTitle("rotation", [](CTextObj3D& t) { t.SetRotation(20); }),
      OfTitle("flip about x", [](CTextObj3D& t) { t.SetFlipX(1); }),
      OfTitle("flip about y", [](CTextObj3D& t) { t.SetFlipY(1); }),
      OfTitle("enabling", [](CTextObj3D& t) { t.EnableTextObj(0); }),
      // Titles have their places.
      Unseen(OfTitle("justification", [](CTextObj3D& t) { t.SetJustify(0, 0); })),
      Unseen(OfTitle("place",
                     [](CTextObj3D& t) {
                       t.SetNormLocation({0.5, 0.5, 0.5, 0});
                     })),
      Unseen(OfTitle("clipping", [](CTextObj3D& t) { t.SetClipping(1); })),
      {"colour of the footer",
       [](HeaderScene& scene) { scene.header.GetFooterObj()->SetColor(kPink); }},
      {"colour of the second title",
       [](HeaderScene& scene) { scene.header.GetTitle2Obj()->SetColor(kPink); }},
  });
}

TEST(GatheredHeader, ShowsOtherFontsAtOnce) {
  ExpectShownAtOnce<HeaderScene>({
      {"another font",
       [](HeaderScene& s) { s.gl.RegisterFont("Courier New", 0.2, 400, 0, 0, 128); }},
      {"fewer characters", [](HeaderScene& s) { s.gl.RegisterFont("Arial", 0.2, 400, 0, 0, 90); }},
      {"extruded",
       [](HeaderScene& s) {
         s.gl.GetFont()->SetFontExtrusion(0.5);
         s.gl.RegisterFont("Arial", 0.2, 400, 0, 0, 128);
       }},
      {"a second font",
       [](HeaderScene& s) {
         s.gl.NewFont3D();  // the current one from now on
         s.gl.RegisterFont("Courier New", 0.2, 400, 0, 0, 128);
         s.header.InitHeaders(&s.gl);
       }},
      // Fonts leave their size to whoever draws with them.
      {"size of the font for all",
       [](HeaderScene& s) { s.header.GetTitle1Obj()->SetCharSize(0.25); }},
  });
}

/// The buffers that OpenGL has.
std::vector<GLuint> Buffers() {
  constexpr GLuint kMostBuffers = 1000;
  std::vector<GLuint> names;
  for (GLuint name = 1; name < kMostBuffers; ++name) {
    if (glIsBuffer(name) == GL_TRUE) names.push_back(name);
  }
  return names;
}

TEST(GatheredHeader, KeepsItsTrianglesWhileItStaysTheSame) {
  HeaderScene scene;
  scene.Picture();
  const std::vector<GLuint> first = Buffers();
  EXPECT_FALSE(first.empty());
  scene.Picture();
  EXPECT_EQ(Buffers(), first);
  scene.header.SetTitle1("Else");
  scene.Picture();
  EXPECT_NE(Buffers(), first);
}

TEST(GatheredHeader, IsBoundToAnotherView) {
  HeaderScene first;
  DrawnView second;
  second.view.SetFont("Courier New", 400, 128);
  second.view.DrawViewScreen();
  const PixelBytes onFirst = first.Picture();
  first.header.InitHeaders(&second.gl);
  const auto draw = [&] { first.header.DrawHeader(); };
  const PixelBytes onSecond = second.PictureOf(draw);
  EXPECT_GT(DifferingPixels(onFirst, onSecond), kMostDiffering);
  EXPECT_EQ(DifferingPixels(second.PictureOf(draw), onSecond), 0);
  first.header.InitHeaders(&first.gl);
  EXPECT_EQ(DifferingPixels(first.Picture(), onFirst), 0);
  // One by one in one view, gathered in the other.
  first.gl.SetGathering(0);
  EXPECT_LE(DifferingPixels(first.Picture(), onFirst), kMostDiffering);
  first.header.InitHeaders(&second.gl);
  EXPECT_EQ(DifferingPixels(second.PictureOf(draw), onSecond), 0);
}

}  // namespace
