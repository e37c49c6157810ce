#include <limits>
#include <string>
#include <utility>

#include "orvalix/render/font_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "series/chart_3d_fixture.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"

namespace {

using namespace orvalix::test;

constexpr int kNoPlane = -1;
constexpr int kInXZ = 1;  ///< a text plane, seen from the front

class ScatterText3D : public Chart3DTest {
 protected:
  ScatterText3D() : font(*gl.GetFont()) { gl.RegisterFont("Arial", 0.2, 400, 0, 0, 128); }

  void SetUpTexts(const std::vector<point3Dtype>& points, const std::vector<CString>& texts,
                  int plane = kNoPlane, double constant = 0.0, double size = 1.0,
                  int textPlane = kInXZ) {
    chart.ScatterText3D(points.data(), texts.data(), static_cast<int>(texts.size()), size,
                        textPlane, red, plane, constant);
    chart.SetNumDataPnts(static_cast<int>(points.size()));
  }

  /// What lies between the lines: the solids of each text in turn.
  static std::vector<Primitives> TextsIn(const Primitives& drawn) {
    std::vector<Primitives> texts(1);
    for (const auto& primitive : drawn) {
      if (primitive.kind == Kind::kLine) {
        texts.emplace_back();
      } else {
        texts.back().push_back(primitive);
      }
    }
    return texts;
  }

  struct Bounds {
    double left = 1e9, bottom = 1e9, right = -1e9, top = -1e9;
  };
  static Bounds BoundsOf(const Primitives& primitives) {
    Bounds bounds;
    for (const auto& primitive : primitives) {
      for (const auto& vertex : primitive.vertices) {
        bounds.left = std::min(bounds.left, vertex.x);
        bounds.right = std::max(bounds.right, vertex.x);
        bounds.bottom = std::min(bounds.bottom, vertex.y);
        bounds.top = std::max(bounds.top, vertex.y);
      }
    }
    return bounds;
  }

  /// Expects an H, so many normalised units to the em, centred on a pixel.
  void ExpectCentredH(const Primitives& text, double x, double y, double unitsPerEm) const {
    const GLYPHMETRICSFLOAT h = font.GetGlyphMetrics('H');
    const double scale = 100.0 * unitsPerEm;
    const Bounds bounds = BoundsOf(text);
    // Across, the room that the H takes is centred; up, its black box, which stands on the line.
    const double left = x + scale * (static_cast<double>(h.gmfptGlyphOrigin.x) -
                                     static_cast<double>(h.gmfCellIncX) / 2.0);
    const double height = scale * static_cast<double>(h.gmfBlackBoxY);
    EXPECT_NEAR(bounds.left, left, 0.05);
    EXPECT_NEAR(bounds.right, left + scale * static_cast<double>(h.gmfBlackBoxX), 0.05);
    EXPECT_NEAR(bounds.bottom, y - height / 2.0, 0.05);
    EXPECT_NEAR(bounds.top, y + height / 2.0, 0.05);
  }

  CFont3D& font;
};

TEST_F(ScatterText3D, SetUpStoresItsArguments) {
  SetUpTexts({{1, 2, 3, 4}, {5, 6, 7, 8}}, {"one", "two"}, 4, 5.5, 1.5, 2);
  EXPECT_EQ(chart.GetChartType(), 15);
  EXPECT_EQ(chart.Get3DPoint(1).v, 8.0);
  EXPECT_STREQ(chart.GetScatterTextString(1), "two");
  EXPECT_EQ(chart.GetRelSize(), 1.5);
  EXPECT_EQ(chart.GetTextPlane(), 2);
  EXPECT_EQ(chart.GetProjectionPlane(), 4);
  EXPECT_EQ(chart.GetConstValue(), 5.5);
  ExpectSameColor(chart.GetFillColor(), red);
}

TEST_F(ScatterText3D, EachTextIsCentredOnItsPoint) {
  // The middle half of the window has the scale from 0 to 10: 10 pixels to a unit, from 50 on.
  SetUpTexts({{2, 4, 6, 0}, {9, 1, 3, 0}}, {"H", "H"}, 0);
  const auto drawn = Drawn();
  const auto texts = TextsIn(drawn);
  ASSERT_EQ(texts.size(), 3U);  // nothing follows the second line
  ExpectCentredH(texts[0], 70.0, 110.0, 0.2);
  ExpectCentredH(texts[1], 140.0, 80.0, 0.2);
  EXPECT_TRUE(texts[2].empty());
}

TEST_F(ScatterText3D, SizesMultiplyTheFontsOwn) {
  SetUpTexts({{5, 5, 5, 0}}, {"H"}, kNoPlane, 0.0, 2.5);
  ExpectCentredH(Drawn(), 100.0, 100.0, 0.5);
  transform.SetFontHeightSF(0.5);
  ExpectCentredH(Drawn(), 100.0, 100.0, 0.25);
}

TEST_F(ScatterText3D, TextsHaveTheFillColorWithoutLight) {
  chart.SetColorMode(1);
  SetUpTexts({{5, 5, 5, 0}}, {"H"}, 0);
  const std::array<RGBDType, 1> colors{green};
  chart.InitSegmentColorsStorage(colors.data());  // of no use to texts
  const auto drawn = Drawn();
  ASSERT_FALSE(drawn.empty());
  for (const auto& primitive : drawn) ExpectColor(primitive, red);
  EXPECT_EQ(gl.GetColorMode(), 1);
}

TEST_F(ScatterText3D, LiesInItsTextPlane) {
  transform.SetRotate({-30, 10, 40, 0});
  CTextObj3D text(&gl, &font, &transform, "Text");
  text.SetLocation({2, 4, 6, 0});
  text.SetJustify(1, 1);
  text.SetColor(red);
  text.SetCharSize(0.75);
  for (const int plane : {0, 1, 2, 3, -1, 7}) {
    SCOPED_TRACE(plane);
    SetUpTexts({{2, 4, 6, 0}}, {"Text"}, kNoPlane, 0.0, 0.75, plane);
    const std::string drawn = ToTranscript(Drawn());
    text.SetTextPlane(plane);
    EXPECT_EQ(drawn, ToTranscript(CaptureFeedback([&] { text.OutText(); })));
    EXPECT_FALSE(drawn.empty());
  }
}

TEST_F(ScatterText3D, LinesLeadStraightToThePlane) {
  const std::vector<std::pair<int, Place>> ends{{0, {2, 4, 1}}, {1, {2, 1, 6}}, {2, {1, 4, 6}},
                                                {3, {2, 4, 1}}, {4, {2, 1, 6}}, {5, {1, 4, 6}}};
  for (const auto& [plane, end] : ends) {
    SCOPED_TRACE(plane);
    SetUpTexts({{2, 4, 6, 0}}, {"H"}, plane, 1.0);
    const auto lines = OfKind(Drawn(), Kind::kLine);
    ASSERT_EQ(lines.size(), 1U);
    ExpectLine(lines[0], {2, 4, 6}, end);
  }
  for (const int plane : {-1, 6, 1000}) {
    SetUpTexts({{2, 4, 6, 0}}, {"H"}, plane, 1.0);
    EXPECT_TRUE(OfKind(Drawn(), Kind::kLine).empty()) << plane;
  }
}

TEST_F(ScatterText3D, LinesHaveTheLineStyle) {
  const int dotted = PatternOf(3);
  SetUpTexts({{2, 4, 6, 0}}, {"H"}, 0);
  chart.SetLineStyle(3);
  chart.SetLineWidth(5);
  Drawn();
  EXPECT_EQ(PatternInUse(), dotted);
  EXPECT_EQ(WidthInUse(), 1.0F);
  EXPECT_EQ(gl.GetLineStyle(), 0);
  ExpectSameColor(gl.GetLineColor3D(), red);
}

TEST_F(ScatterText3D, LogarithmicAxes) {
  transform.SetScale({1, 0, 1, 0}, {100, 10, 1000, 0});
  transform.SetAxisScaleMode(0, 1);
  transform.SetAxisScaleMode(2, 1);
  SetUpTexts({{10, 5, 1000, 0}}, {"H"}, 0, 10.0);
  const auto drawn = Drawn();
  // log10(10) = 1 of 0 to 2 is the middle, log10(1000) the upper end, at 150 pixels.
  ExpectCentredH(OfKind(drawn, Kind::kPolygon), 100.0, 150.0, 0.2);
  const auto lines = OfKind(drawn, Kind::kLine);
  ASSERT_EQ(lines.size(), 1U);
  ExpectLine(lines[0], {1, 5, 3}, {1, 5, 1});
}

TEST_F(ScatterText3D, PointsWithoutTextsAreLeftOut) {
  SetUpTexts({{2, 4, 6, 0}, {8, 8, 8, 0}}, {"H", "H"}, 0);
  chart.SetNumDataPnts(1);
  const std::array<CString, 1> one{CString("H")};
  chart.InitDataStringsStorage(one.data());
  chart.SetNumDataPnts(2);
  auto lines = OfKind(Drawn(), Kind::kLine);
  ASSERT_EQ(lines.size(), 1U);
  ExpectLine(lines[0], {2, 4, 6}, {2, 4, 0});
  chart.DeleteDataStringsStorage();
  EXPECT_TRUE(Drawn().empty());
  chart.InitDataStringsStorage(nullptr);
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(ScatterText3D, EmptyTextsHaveLinesAllTheSame) {
  SetUpTexts({{2, 4, 6, 0}, {8, 8, 8, 0}}, {"", "H"}, 0);
  const auto texts = TextsIn(Drawn());
  ASSERT_EQ(texts.size(), 3U);
  EXPECT_TRUE(texts[0].empty());
  EXPECT_FALSE(texts[1].empty());
}

TEST_F(ScatterText3D, FewOrNoPoints) {
  chart.ScatterText3D(nullptr, nullptr, 3, 1.0, kInXZ, red, 0, 0.0);
  EXPECT_EQ(chart.GetNumDataPnts(), 0);
  EXPECT_TRUE(Drawn().empty());
  SetUpTexts({{2, 4, 6, 0}}, {"H"}, 0);
  chart.SetNumDataPnts(-1);
  EXPECT_TRUE(Drawn().empty());
  chart.SetNumDataPnts(1000000);
  EXPECT_EQ(OfKind(Drawn(), Kind::kLine).size(), 1U);
  chart.Delete3DPointStorage();
  EXPECT_TRUE(Drawn().empty());
}

TEST_F(ScatterText3D, TextsWithoutAPlaceAreLeftOut) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  SetUpTexts({{nan, 4, 6, 0}, {2, 4, 6, 0}}, {"H", "H"});
  ExpectCentredH(Drawn(), 70.0, 110.0, 0.2);
  SetUpTexts({{2, 4, 6, 0}}, {"H"}, kNoPlane, 0.0, nan);
  EXPECT_TRUE(Drawn().empty());
  EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

TEST_F(ScatterText3D, EachTextCountsAsATextObject) {
  SetUpTexts({{2, 4, 6, 0}, {8, 8, 8, 0}, {1, 1, 1, 0}}, {"a", "b", "c"});
  const int before = CTextObj3D::nSelfID;
  Drawn();
  EXPECT_EQ(CTextObj3D::nSelfID, before + 3);
}

/// Clipping and the like are off after an error, too, so that they don't spoil what is drawn next.
TEST_F(ScatterText3D, WithoutAFontThereIsAnError) {
  SetUpTexts({{2, 4, 6, 0}}, {"H"}, 0);
  chart.SetClipping(1);
  chart.SetOutlineMode(1);
  chart.SetColorMode(2);
  gl.SetCurrentFont(99);
  EXPECT_EQ(Catch([&] { chart.DrawChartObj(); }), (CaughtError{17, 19, "InitTextObj"}));
  EXPECT_FALSE(glIsEnabled(GL_CLIP_PLANE0));
  EXPECT_FALSE(glIsEnabled(GL_TEXTURE_1D));
  EXPECT_EQ(transform.GetClipping(), 0);
  EXPECT_EQ(gl.GetPolygonOutlineMode(), 0);
}

TEST_F(ScatterText3D, MemoryThatRunsOutIsReported) {
  // Longer than what a string holds in itself.
  SetUpTexts({{2, 4, 6, 0}}, {"a text of many letters"}, 0);
  const auto errorWithout = [&](int allocation) {
    return Catch([&] {
      const AllocationFailure failure(allocation);
      chart.DrawChartObj();
    });
  };
  // What comes after these two belongs to OpenGL's driver.
  EXPECT_EQ(errorWithout(1), (CaughtError{3, 5, "DrawScatterText3D"}));
  EXPECT_EQ(errorWithout(2), (CaughtError{2, 19, "SetString"}));
  EXPECT_EQ(OfKind(Drawn(), Kind::kLine).size(), 1U);
}

}  // namespace
