#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "chart/gathered_fixture.h"
#include "orvalix/chart/legend_3d.h"
#include "orvalix/chart/legend_obj_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "support/fail_at.h"
#include "support/temporary_file.h"

// Legends, which are gathered in each frame: changed, they show at once.

namespace {

using namespace orvalix::test;

constexpr RGBDType kPink{0.9, 0.1, 0.5, 1};
constexpr RGBDType kTeal{0.1, 0.6, 0.6, 1};
constexpr RGBDType kInk{0.1, 0.1, 0.1, 1};
constexpr std::array<double, 2> kHeights{2.5, 4.5};
constexpr std::array<RGBDType, 3> kBands{{{1, 0, 0, 1}, {0, 1, 0, 1}, {0, 0, 1, 1}}};

/// Three entries, titles, a slab.
struct LegendScene : DrawnView {
  LegendScene() : legend(*view.NewLegend3D()) {
    legend.NewLegendObj("one", 3, kTeal);
    legend.NewLegendObj("two", 12, kPink);
    legend.NewLegendObj("three", 1, kInk);
    legend.SetTitle1("First");
    legend.SetTitle2("Second");
    legend.SetFooter("Below");
    legend.SetLegendBkColor({0.9, 0.9, 1.0, 1});
  }
  PixelBytes Picture() {
    return PictureOf([&] { legend.DrawLegend(); });
  }
  CLegend3D& legend;
};

using Change = SceneChange<LegendScene>;

Change Of(const char* name, void (*set)(CLegend3D&)) {
  return {name, [set](LegendScene& scene) { set(scene.legend); }};
}

Change OfEntry(const char* name, void (*set)(CLegendObj3D&)) {
  return {name, [set](LegendScene& scene) { set(*scene.legend.GetLegendObj(1)); }};
}

Change OfTitle(const char* name, void (*set)(CTextObj3D&)) {
  return {name, [set](LegendScene& scene) { set(*scene.legend.GetTitle1Obj()); }};
}

TEST(GatheredLegend, ShowsItsEntriesAtOnce) {
  ExpectShownAtOnce<LegendScene>({
      Of("new entry", [](CLegend3D& l) { l.NewLegendObj("four", 15, kTeal); }),
      Of("new entry without a symbol", [](CLegend3D& l) { l.NewLegendObj("four"); }),
      Of("new entry without a text", [](CLegend3D& l) { l.NewLegendObj(); }),
      Of("text", [](CLegend3D& l) { l.SetText(0, "Else"); }),
      Of("text colour", [](CLegend3D& l) { l.SetTextColor(0, kPink); }),
      Of("symbol", [](CLegend3D& l) { l.SetSymbol(0, 13); }),
      Of("symbol colour", [](CLegend3D& l) { l.SetSymbolColor(0, kPink); }),
      Of("colour", [](CLegend3D& l) { l.SetColor(0, kPink); }),
      Of("symbol scale", [](CLegend3D& l) { l.SetSymbolScale(0, 0.2); }),
      Of("enabling", [](CLegend3D& l) { l.EnableLegendObj(1, 0); }),
      Of("bands",
         [](CLegend3D& l) {
           l.ContourLegend(kHeights.data(), kBands.data(), 2, 1, kInk, 1, "above", "below");
         }),
      Of("bands in their colours",
         [](CLegend3D& l) { l.ContourLegend2(kHeights.data(), kBands.data(), 2, 1, kInk, 0); }),
      OfEntry("text of the entry", [](CLegendObj3D& e) { e.SetText("Else"); }),
      OfEntry("text colour of the entry", [](CLegendObj3D& e) { e.SetTextColor(kPink); }),
      OfEntry("symbol of the entry", [](CLegendObj3D& e) { e.SetSymbol(14); }),
      OfEntry("symbol colour of the entry", [](CLegendObj3D& e) { e.SetSymbolColor(kTeal); }),
      OfEntry("colour of the entry", [](CLegendObj3D& e) { e.SetColor(kTeal); }),
      OfEntry("symbol scale of the entry", [](CLegendObj3D& e) { e.SetSymbolScale(0.2); }),
      OfEntry("rotation of the symbol",
              [](CLegendObj3D& e) {
                e.SetSymbolRotation({40, 40, 0, 0});
              }),
      OfEntry("enabling of the entry", [](CLegendObj3D& e) { e.EnableLegendObj(0); }),
      OfEntry("size of the text", [](CLegendObj3D& e) { e.GetTextObj()->SetCharSize(0.5); }),
      // The table gives them their places.
      Unseen(OfEntry("place of the text",
                     [](CLegendObj3D& e) {
                       e.SetTextPosition({0.5, 0.5, 0.5, 0});
                     })),
      Unseen(OfEntry("place of the symbol",
                     [](CLegendObj3D& e) {
                       e.SetSymbolPosition({0.5, 0.5, 0.5, 0});
                     })),
  });
}

TEST(GatheredLegend, ShowsItsTitlesAtOnce) {
  ExpectShownAtOnce<LegendScene>({
      Of("first title", [](CLegend3D& l) { l.SetTitle1("Else"); }),
      Of("no first title", [](CLegend3D& l) { l.SetTitle1(""); }),
      Of("second title", [](CLegend3D& l) { l.SetTitle2("Else"); }),
      Of("footer", [](CLegend3D& l) { l.SetFooter("Else"); }),
      OfTitle("colour", [](CTextObj3D& t) { t.SetColor(kPink); }),
      OfTitle("size", [](CTextObj3D& t) { t.SetCharSize(0.5); }),
      OfTitle("rotation", [](CTextObj3D& t) { t.SetRotation(20); }),
      OfTitle("enabling", [](CTextObj3D& t) { t.EnableTextObj(0); }),
      Of("colour of the second title", [](CLegend3D& l) { l.GetTitle2Obj()->SetColor(kPink); }),
      Of("height of the second title", [](CLegend3D& l) { l.GetTitle2Obj()->SetYJustify(2); }),
      Of("colour of the footer", [](CLegend3D& l) { l.GetFooterObj()->SetColor(kPink); }),
  });
}

TEST(GatheredLegend, ShowsItsLayoutAtOnce) {
  ExpectShownAtOnce<LegendScene>({
      Of("position",
         [](CLegend3D& l) {
           l.SetLegendPosition({0.2, 0.3, 0.6, 0.5});
         }),
      Of("no area",
         [](CLegend3D& l) {
           l.SetLegendPosition({0.2, 0.3, 0.0, 0.0});
         }),
      Of("orientation", [](CLegend3D& l) { l.SetLegendOrientation(1); }),
      Of("columns", [](CLegend3D& l) { l.SetLegendColumns(3); }),
      Unseen(Of("rows", [](CLegend3D& l) { l.SetLegendRows(5); })),
      Of("enabling", [](CLegend3D& l) { l.EnableLegend(0); }),
      Of("frame", [](CLegend3D& l) { l.EnableLegendBorder(0); }),
      Of("lit", [](CLegend3D& l) { l.SetColorMode(1); }),
      Of("in the colours of what was drawn before", [](CLegend3D& l) { l.SetColorMode(2); }),
      Of("aspect", [](CLegend3D& l) { l.SetViewAspect(0.5); }),
      Unseen(Of("height of the font", [](CLegend3D& l) { l.SetFontHeightSF(0.5); })),
      Of("size of the font", [](CLegend3D& l) { l.SetFontSize(0.15); }),
      Of("thickness of the edges", [](CLegend3D& l) { l.SetBorderThickness(7.0); }),
      Of("room beside symbols", [](CLegend3D& l) { l.SetSymbolTextSpace(4.0); }),
      Of("depth", [](CLegend3D& l) { l.SetLegendYLoc(0.95); }),
      Of("slab", [](CLegend3D& l) { l.SetLegendBkColor(kPink); }),
      Of("colour of the frame", [](CLegend3D& l) { l.SetLegendBorderColor(kPink); }),
      Unseen(Of("viewport",
                [](CLegend3D& l) {
                  const GLViewportType small{0, 0, 20, 20};
                  l.SetLegendViewport(&small);
                })),
      {"loading",
       [](LegendScene& scene) {
         LegendScene other;
         other.legend.SetTitle1("Loaded");
         other.legend.SetSymbol(0, 11);
         const auto record = Saved(other.legend);
         scene.gl.MakeCurrent();
         LoadFrom(scene.legend, record);
         scene.legend.InitLegend(&scene.view);
       }},
      {"lights",
       [](LegendScene& scene) {
         scene.legend.SetColorMode(1);
         scene.gl.MakeCurrent();
         scene.gl.SetLightComponent(GL_DIFFUSE, kPink);
         scene.gl.LoadLight(GL_DIFFUSE);
       }},
  });
}

/// What a lit legend of one view shows doesn't depend on those of others.
TEST(GatheredLegend, IsThatOfItsView) {
  auto first = std::make_unique<LegendScene>();
  LegendScene second;
  second.legend.SetSymbol(0, 11);
  second.view.SetFont("Courier New", 400, 128);
  second.view.DrawViewScreen();
  const PixelBytes onFirst = first->Picture();
  const PixelBytes onSecond = second.Picture();
  EXPECT_GT(DifferingPixels(onFirst, onSecond), kMostDiffering);
  for (int frame = 0; frame < 3; ++frame) {
    EXPECT_EQ(DifferingPixels(first->Picture(), onFirst), 0);
    EXPECT_EQ(DifferingPixels(second.Picture(), onSecond), 0);
  }
  first.reset();
  EXPECT_EQ(DifferingPixels(second.Picture(), onSecond), 0);
  second.gl.SetGathering(0);
  EXPECT_LE(DifferingPixels(second.Picture(), onSecond), kMostDiffering);
}

// Texts may need memory either way, and say so; whoever gets to the end has drawn everything.
TEST(GatheredLegend, IsDrawnWithoutMemoryOrReported) {
  LegendScene scene;
  scene.gl.SetGathering(0);
  scene.Picture();
  scene.gl.SetGathering(1);
  const PixelBytes whole = scene.Picture();
  const std::vector<double> state = StateOf(scene.gl);
  int drawn = 0;
  bool hasFailed = true;
  for (int n = 1; hasFailed; ++n) {
    SCOPED_TRACE(n);
    ASSERT_LT(n, 1000);
    CaughtError error = kNoError;
    const PixelBytes picture =
        scene.PictureOf([&] { error = FailAt(n, hasFailed, [&] { scene.legend.DrawLegend(); }); });
    if (error == kNoError) {
      EXPECT_LE(DifferingPixels(picture, whole), kMostDiffering);
      EXPECT_EQ(StateOf(scene.gl), state);
      if (hasFailed) ++drawn;
    }
    EXPECT_EQ(DifferingPixels(scene.Picture(), whole), 0) << "the next frame";
  }
  EXPECT_GT(drawn, 3);
}

}  // namespace
