#include "orvalix/render/glyph_internal.h"

#include <gtest/gtest.h>

#include <cmath>

#include "orvalix/render/code_page_internal.h"
#include "orvalix/render/glyph_solid_internal.h"

namespace {

using orvalix::ContourBuilder;
using orvalix::Glyph;
using orvalix::GlyphContour;
using orvalix::GlyphPoint;
using orvalix::GlyphSolid;

double Cross(GlyphPoint a, GlyphPoint b, GlyphPoint c) {
  return (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
}

/// Area of the triangles; each must be counterclockwise.
double Area(const GlyphSolid& solid) {
  double area = 0.0;
  for (std::size_t i = 0; i + 2 < solid.triangles.size(); i += 3) {
    const double twice = Cross(solid.triangles[i], solid.triangles[i + 1], solid.triangles[i + 2]);
    EXPECT_GE(twice, 0.0);
    area += twice / 2.0;
  }
  return area;
}

/// Area to the left of the edges.
double EnclosedArea(const GlyphSolid& solid) {
  double area = 0.0;
  for (std::size_t i = 0; i + 1 < solid.edges.size(); i += 2) {
    area += Cross({0.0, 0.0}, solid.edges[i], solid.edges[i + 1]) / 2.0;
  }
  return area;
}

GlyphContour Square(double low, double high) {
  return {{low, low}, {high, low}, {high, high}, {low, high}};
}

GlyphContour Reversed(GlyphContour contour) { return {contour.rbegin(), contour.rend()}; }

TEST(ContourBuilder, KeepsLinesAndDropsWhatEnclosesNothing) {
  ContourBuilder builder(0.01);
  builder.MoveTo({0.0, 0.0});
  builder.LineTo({1.0, 0.0});
  builder.LineTo({1.0, 0.0});
  builder.LineTo({1.0, 1.0});
  builder.LineTo({0.0, 0.0});
  builder.MoveTo({5.0, 5.0});
  builder.LineTo({6.0, 6.0});
  EXPECT_EQ(builder.Take(), (std::vector<GlyphContour>{{{0, 0}, {1, 0}, {1, 1}}}));
}

TEST(ContourBuilder, WalksQuadraticCurvesWithinTheDeviation) {
  // The curve (0, 0), (1, 2), (2, 0) bends by |(0,0) - 2 (1,2) + (2,0)| / 4 = 1: n steps stray by
  // 1 / n^2, so 1 / 16 takes 4.
  ContourBuilder builder(1.0 / 16.0);
  builder.MoveTo({0.0, 0.0});
  builder.ConicTo({1.0, 2.0}, {2.0, 0.0});
  EXPECT_EQ(builder.Take(),
            (std::vector<GlyphContour>{{{0, 0}, {0.5, 0.75}, {1, 1}, {1.5, 0.75}, {2, 0}}}));
}

TEST(ContourBuilder, WalksCubicCurvesWithinTheDeviation) {
  constexpr double kDeviation = 0.001;
  ContourBuilder builder(kDeviation);
  builder.MoveTo({1.0, 0.0});
  // A quarter of a circle, to 0.0003 of its radius.
  constexpr double kHandle = 0.5522847498;
  builder.CubicTo({1.0, kHandle}, {kHandle, 1.0}, {0.0, 1.0});
  const std::vector<GlyphContour> contours = builder.Take();
  ASSERT_EQ(contours.size(), 1U);
  ASSERT_GE(contours[0].size(), 4U);
  for (std::size_t i = 0; i + 1 < contours[0].size(); ++i) {
    const GlyphPoint a = contours[0][i];
    const GlyphPoint b = contours[0][i + 1];
    EXPECT_NEAR(std::hypot(a.x, a.y), 1.0, 0.0003);
    EXPECT_GE(std::hypot((a.x + b.x) / 2.0, (a.y + b.y) / 2.0), 1.0 - kDeviation - 0.0003);
  }
  EXPECT_EQ(contours[0].back(), (GlyphPoint{0.0, 1.0}));
}

TEST(ContourBuilder, WalksNoCurveForever) {
  for (const double deviation : {0.0, -1.0, 1e-300, std::nan("")}) {
    ContourBuilder builder(deviation);
    builder.MoveTo({0.0, 0.0});
    builder.ConicTo({1.0, 2.0}, {2.0, 0.0});
    EXPECT_LE(builder.Take()[0].size(), 65U) << deviation;
  }
}

TEST(FillGlyph, FillsWhatLiesWithinTheOutline) {
  Glyph glyph;
  EXPECT_TRUE(FillGlyph(glyph).triangles.empty());
  glyph.contours = {Square(0, 4)};
  EXPECT_NEAR(Area(FillGlyph(glyph)), 16.0, 1e-9);
  EXPECT_NEAR(EnclosedArea(FillGlyph(glyph)), 16.0, 1e-9);
  EXPECT_EQ(FillGlyph(glyph).edges.size(), 8U);
}

TEST(FillGlyph, TakesOutlinesOfEitherDirection) {
  Glyph glyph;
  glyph.contours = {Reversed(Square(0, 4))};
  EXPECT_NEAR(Area(FillGlyph(glyph)), 16.0, 1e-9);
  EXPECT_NEAR(EnclosedArea(FillGlyph(glyph)), 16.0, 1e-9);
}

TEST(FillGlyph, LeavesHolesOpen) {
  Glyph glyph;
  glyph.contours = {Square(0, 4), Reversed(Square(1, 2))};
  EXPECT_NEAR(Area(FillGlyph(glyph)), 15.0, 1e-9);
  EXPECT_NEAR(EnclosedArea(FillGlyph(glyph)), 15.0, 1e-9);
}

TEST(FillGlyph, JoinsStrokesThatCross) {
  // Two squares of the same direction that share a unit square, with new corners where they cross.
  Glyph glyph;
  glyph.contours = {Square(0, 2), Square(1, 3)};
  EXPECT_NEAR(Area(FillGlyph(glyph)), 7.0, 1e-9);
  EXPECT_NEAR(EnclosedArea(FillGlyph(glyph)), 7.0, 1e-9);
}

TEST(CodePage, IsWindowsLatin1) {
  EXPECT_EQ(orvalix::UnicodeOf('A'), U'A');
  EXPECT_EQ(orvalix::UnicodeOf(0x7E), U'~');
  EXPECT_EQ(orvalix::UnicodeOf(0x80), 0x20ACU);  // euro
  EXPECT_EQ(orvalix::UnicodeOf(0x8A), 0x0160U);  // S with caron
  EXPECT_EQ(orvalix::UnicodeOf(0x99), 0x2122U);  // trade mark
  EXPECT_EQ(orvalix::UnicodeOf(0x9F), 0x0178U);  // Y with diaeresis
  EXPECT_EQ(orvalix::UnicodeOf(0xA0), 0x00A0U);
  EXPECT_EQ(orvalix::UnicodeOf(0xE4), 0x00E4U);  // a with diaeresis
  EXPECT_EQ(orvalix::UnicodeOf(0xFF), 0x00FFU);
  for (const int code : {0x00, 0x0A, 0x1F, 0x7F, 0x81, 0x8D, 0x8F, 0x90, 0x9D}) {
    EXPECT_EQ(orvalix::UnicodeOf(static_cast<unsigned char>(code)), 0U) << code;
  }
}

TEST(CodePage, GivesUtf8) {
  EXPECT_EQ(orvalix::ToUtf8("Arial"), "Arial");
  EXPECT_EQ(orvalix::ToUtf8("\xE4\x80\n!"), "\xC3\xA4\xE2\x82\xAC!");
  EXPECT_EQ(orvalix::ToUtf8(""), "");
}

}  // namespace
