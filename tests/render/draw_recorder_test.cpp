#include "orvalix/render/draw_recorder_internal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "support/allocation_failure.h"

// What is put where: groups, segments, and what is taken once.

namespace {

using orvalix::DrawRecorder;
using orvalix::DrawSegment;
using orvalix::FillGroup;
using orvalix::GatheredGeometry;
using orvalix::LineGroup;
using orvalix::RecordedFill;
using orvalix::RecordedStroke;

constexpr RGBDType kBlack{0, 0, 0, 1};
constexpr RGBDType kRed{1, 0, 0, 1};
constexpr std::array<float, 3> kGray{0.5F, 0.5F, 0.5F};
constexpr std::array<float, 3> kGreen{0.0F, 1.0F, 0.0F};
constexpr point3Dtype kUp{0, 0, 1, 0};
constexpr RecordedStroke kThin{1.0F, 0xFFFF, 1};
constexpr RecordedStroke kThick{3.0F, 0xFFFF, 1};
constexpr RecordedStroke kDashed{1.0F, 0x00FF, 1};

constexpr std::array<double, 16> kIdentity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
constexpr std::array<double, 16> kOther = kIdentity;

RecordedFill Outlined(const RGBDType& outline = kBlack) {
  return {.color = kGray, .isOutlined = 1, .outlineColor = outline, .outlineWidth = 1.0F};
}

RecordedFill Plain(const std::array<float, 3>& color = kGray) {
  return {.color = color, .isOutlined = 0, .outlineColor = {}, .outlineWidth = 1.0F};
}

/// A square of size 1 from (x, 0, 0) on, closed.
std::array<point3Dtype, 5> Square(double x) {
  return {{{x, 0, 0, 0}, {x + 1, 0, 0, 0}, {x + 1, 1, 0, 0}, {x, 1, 0, 0}, {x, 0, 0, 0}}};
}

void AddSquare(DrawRecorder& recorder, double x, const RecordedFill& fill) {
  recorder.AddPolygon(Square(x).data(), 5, kUp, nullptr, fill);
}

std::vector<std::size_t> TrianglesByGroup(const DrawSegment& segment) {
  std::vector<std::size_t> triangles;
  for (const FillGroup& group : segment.fills) triangles.push_back(group.indices.size() / 3);
  return triangles;
}

std::vector<std::size_t> LinesByGroup(const DrawSegment& segment) {
  std::vector<std::size_t> lines;
  for (const LineGroup& group : segment.lines) lines.push_back(group.indices.size() / 2);
  return lines;
}

std::size_t LinesOf(const GatheredGeometry& geometry) {
  std::size_t lines = 0;
  for (const DrawSegment& segment : geometry.segments) {
    for (const std::size_t count : LinesByGroup(segment)) lines += count;
  }
  return lines;
}

using Counts = std::vector<std::size_t>;

TEST(DrawRecorder, CutsPolygonsIntoTriangles) {
  const std::array<point3Dtype, 5> square = Square(0);
  for (const int n : {0, 1, 2, 3, 4, 5}) {
    SCOPED_TRACE(n);
    DrawRecorder recorder({}, true);
    recorder.AddPolygon(square.data(), n, kUp, nullptr, Outlined());
    const GatheredGeometry& geometry = recorder.Geometry();
    // The fifth point closes the outline and is no corner.
    EXPECT_EQ(geometry.fillVertices.size(), static_cast<std::size_t>(std::min(n, 4)));
    ASSERT_EQ(geometry.segments.size(), 1U);
    EXPECT_EQ(TrianglesByGroup(geometry.segments[0]),
              Counts{static_cast<std::size_t>(std::clamp(n - 2, 0, 2))});
    EXPECT_EQ(LinesOf(geometry), static_cast<std::size_t>(std::max(n - 1, 0)));
  }
}

TEST(DrawRecorder, DrawsAnEdgeThatTwoPolygonsShareOnce) {
  DrawRecorder recorder({}, true);
  AddSquare(recorder, 0, Outlined());
  AddSquare(recorder, 1, Outlined());
  EXPECT_EQ(LinesOf(recorder.Geometry()), 7U);
  AddSquare(recorder, 1, Outlined());  // all are there already
  EXPECT_EQ(LinesOf(recorder.Geometry()), 7U);
}

TEST(DrawRecorder, DrawsAnEdgeOnceForEachColor) {
  DrawRecorder recorder({}, true);
  AddSquare(recorder, 0, Outlined(kBlack));
  AddSquare(recorder, 1, Outlined(kRed));
  const DrawSegment& segment = recorder.Geometry().segments.at(0);
  EXPECT_EQ(LinesByGroup(segment), (Counts{4, 4}));
  EXPECT_EQ(segment.lines[0].state.isEdge, 1);
  EXPECT_EQ(segment.lines[1].state.isEdge, 0) << "in the order in which they come, from now on";
  AddSquare(recorder, 2, Outlined(kBlack));
  AddSquare(recorder, 3, Outlined(kRed));
  // (2,0)-(2,1) was drawn in red, (3,0)-(3,1) in black.
  EXPECT_EQ(LinesByGroup(segment), (Counts{4, 12}));
}

// The line that came last is seen.
TEST(DrawRecorder, DrawsAnEdgeAgainOverOneOfAnotherColor) {
  const auto lastColor = [](const GatheredGeometry& geometry) {
    return geometry.lineVertices[geometry.lineVertices.size() - 1].color;
  };
  DrawRecorder frames({}, true);
  DrawRecorder polygons({}, true);
  AddSquare(polygons, 5, Outlined(kBlack));
  AddSquare(polygons, 7, Outlined(kRed));  // from now on edges have colours of their own
  std::size_t lines = LinesOf(polygons.Geometry());
  for (const RGBDType& color : {kRed, kBlack, kRed, kBlack, kRed}) {
    frames.AddFrame(Square(0).data(), 5, color, 1.0F);
    AddSquare(polygons, 0, Outlined(color));
    lines += 4;
    EXPECT_EQ(LinesOf(polygons.Geometry()), lines);
    EXPECT_EQ(lastColor(polygons.Geometry()), orvalix::ToGathered(color));
    EXPECT_EQ(lastColor(frames.Geometry()), orvalix::ToGathered(color));
  }
  EXPECT_EQ(LinesOf(frames.Geometry()), 20U);
}

TEST(DrawRecorder, DrawsEdgesOfOtherWidthsAndMatricesAgain) {
  DrawRecorder recorder({}, true);
  AddSquare(recorder, 0, Outlined());
  RecordedFill wide = Outlined();
  wide.outlineWidth = 3.0F;
  AddSquare(recorder, 0, wide);
  recorder.LoadMatrix(kOther.data());
  AddSquare(recorder, 0, Outlined());
  EXPECT_EQ(LinesByGroup(recorder.Geometry().segments.at(0)), (Counts{4, 4, 4}));
}

TEST(DrawRecorder, TellsOpenOutlinesFromClosedOnes) {
  DrawRecorder recorder({}, true);
  recorder.AddFrame(Square(0).data(), 5, kBlack, 1.0F);
  recorder.AddFrame(Square(1).data(), 4, kBlack, 1.0F);  // its last edge is shared, and left open
  EXPECT_EQ(LinesOf(recorder.Geometry()), 7U);
  recorder.AddFrame(Square(5).data(), 1, kBlack, 1.0F);
  EXPECT_EQ(LinesOf(recorder.Geometry()), 7U);
}

TEST(DrawRecorder, SortsFacesByState) {
  DrawRecorder recorder({}, true);
  const std::vector<std::pair<const char*, int DrawRecorder::State::*>> parts{
      {"lit", &DrawRecorder::State::isLit},
      {"textured", &DrawRecorder::State::isTextured},
      {"clipped", &DrawRecorder::State::isClipped}};
  AddSquare(recorder, 0, Outlined());
  std::size_t groups = 1;
  const std::array<float, 5> textures{};
  for (const auto& [name, part] : parts) {
    SCOPED_TRACE(name);
    recorder.GetState().*part = 1;
    recorder.AddPolygon(Square(0).data(), 5, kUp, textures.data(), Outlined());
    EXPECT_EQ(recorder.Geometry().segments.at(0).fills.size(), ++groups);
    // Vertices that were there before have a coordinate too, should there be textures.
    const bool hasTextures = recorder.GetState().isTextured != 0;
    if (hasTextures || !recorder.Geometry().fillTextures.empty()) {
      EXPECT_EQ(recorder.Geometry().fillTextures.size(), recorder.Geometry().fillVertices.size());
    }
    recorder.GetState().*part = 0;
    AddSquare(recorder, 0, Outlined());
    EXPECT_EQ(recorder.Geometry().segments.at(0).fills.size(), groups) << "into the first one";
  }
  recorder.LoadMatrix(kOther.data());
  AddSquare(recorder, 0, Outlined());
  EXPECT_EQ(recorder.Geometry().segments.at(0).fills.size(), ++groups);
}

TEST(DrawRecorder, PutsTextsIntoGroupsByTheirState) {
  const orvalix::GlyphMesh mesh{
      .corners = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}, .front = {0, 1, 2}, .walls = {}, .back = {}};
  DrawRecorder recorder({}, true);
  recorder.AddGlyph(mesh, 7, kGray);
  recorder.Multiply({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1});
  recorder.AddGlyph(mesh, 7, kGray);
  recorder.Multiply({0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 0, 1});
  recorder.AddGlyph(mesh, 7, kGray);
  recorder.LoadMatrix(kOther.data());
  recorder.AddGlyph(mesh, 7, kGray);
  const std::vector<orvalix::TextGroup>& texts = recorder.Geometry().texts;
  ASSERT_EQ(texts.size(), 3U);
  ASSERT_EQ(texts[0].glyphs.size(), 2U);
  EXPECT_EQ(texts[0].glyphs[1].mesh, &mesh);
  EXPECT_EQ(texts[0].glyphs[1].font, 7U);
  EXPECT_EQ(texts[0].glyphs[1].placement[13], 6.0);
  EXPECT_EQ(texts[0].glyphs[1].color, kGray);
  EXPECT_EQ(texts[0].state.axis, (std::array<double, 3>{0, 0, 1}));
  EXPECT_EQ(texts[1].state.axis, (std::array<double, 3>{1, 0, 0})) << "turned";
  EXPECT_EQ(texts[2].state.matrix, kOther.data());
}

TEST(DrawRecorder, LeavesOutCharactersWithoutTriangles) {
  const orvalix::GlyphMesh space;
  DrawRecorder recorder({}, true);
  recorder.AddGlyph(space, 7, kGray);
  EXPECT_TRUE(recorder.Geometry().texts.empty());
}

TEST(DrawRecorder, BeginsASegmentForAFillOverLinesOfItsMatrix) {
  DrawRecorder recorder({}, true);
  AddSquare(recorder, 0, Plain());
  AddSquare(recorder, 1, Plain());
  EXPECT_EQ(recorder.Geometry().segments.size(), 1U);
  recorder.AddLine({0, 0, 0, 0}, {1, 0, 0, 0}, kGray, kThin);
  EXPECT_EQ(recorder.Geometry().segments.size(), 1U);
  AddSquare(recorder, 0, Outlined());
  EXPECT_EQ(recorder.Geometry().segments.size(), 1U) << "it gives way to lines at its depth";
  recorder.LoadMatrix(kOther.data());
  AddSquare(recorder, 0, Plain());
  EXPECT_EQ(recorder.Geometry().segments.size(), 1U) << "no lines lie below it";
  recorder.LoadMatrix(nullptr);
  AddSquare(recorder, 0, Plain());
  EXPECT_EQ(recorder.Geometry().segments.size(), 2U);
  AddSquare(recorder, 1, Plain());
  EXPECT_EQ(recorder.Geometry().segments.size(), 2U);
  // An edge is drawn again where a fill has come over it.
  AddSquare(recorder, 0, Outlined());
  EXPECT_EQ(LinesOf(recorder.Geometry()), 9U);
}

TEST(DrawRecorder, KeepsTheOrderOfStrokes) {
  DrawRecorder recorder({}, true);
  const auto add = [&](const RecordedStroke& stroke) {
    recorder.AddLine({0, 0, 0, 0}, {1, 1, 1, 0}, kGray, stroke);
  };
  add(kThin);
  add(kThin);
  add(kThick);
  add(kThin);  // over the thick one
  EXPECT_EQ(LinesByGroup(recorder.Geometry().segments.at(0)), (Counts{2, 1, 1}));
  recorder.LoadMatrix(kOther.data());
  add(kThin);
  recorder.LoadMatrix(nullptr);
  add(kThin);  // no line of this matrix came between
  EXPECT_EQ(LinesByGroup(recorder.Geometry().segments.at(0)), (Counts{2, 1, 2, 1}));
}

TEST(DrawRecorder, CutsSolidLinesApartAndKeepsDashedOnesWhole) {
  DrawRecorder recorder({}, true);
  const auto strip = [&](const RecordedStroke& stroke) {
    recorder.StartStrip(stroke);
    recorder.AddToStrip({0, 0, 0, 0}, kGray);
    recorder.AddToStrip({1, 0, 0, 0}, kGreen);
    recorder.AddToStrip({2, 0, 0, 0}, kGray);
    recorder.InterruptStrip();
    recorder.AddToStrip({3, 0, 0, 0}, kGray);
    recorder.InterruptStrip();
    recorder.InterruptStrip();
    recorder.AddToStrip({4, 0, 0, 0}, kGray);
    recorder.AddToStrip({5, 0, 0, 0}, kGray);
  };
  strip(kThin);
  strip(kDashed);
  const GatheredGeometry& geometry = recorder.Geometry();
  const DrawSegment& segment = geometry.segments.at(0);
  ASSERT_EQ(segment.lines.size(), 2U);
  EXPECT_EQ(segment.lines[0].indices.size(), 6U);  // three lines
  EXPECT_EQ(segment.lines[0].state.isStrip, 0);
  EXPECT_EQ(segment.lines[1].indices.size(), 6U);  // six points
  EXPECT_EQ(segment.lines[1].strips, (std::vector<std::uint32_t>{0, 3, 4}));
  EXPECT_EQ(geometry.lineVertices[1].color, kGreen) << "a line has the colour of its end";
}

TEST(DrawRecorder, KeepsOneColorForAllAsLongAsThereIsOnlyOne) {
  DrawRecorder recorder({}, true);
  AddSquare(recorder, 0, Plain(kGray));
  AddSquare(recorder, 2, Plain(kGray));
  EXPECT_TRUE(recorder.Geometry().fillColors.empty());
  EXPECT_EQ(recorder.Geometry().fillColor, kGray);
  AddSquare(recorder, 4, Plain(kGreen));
  AddSquare(recorder, 6, Plain(kGray));
  const GatheredGeometry& geometry = recorder.Geometry();
  ASSERT_EQ(geometry.fillColors.size(), geometry.fillVertices.size());
  for (std::size_t i = 0; i < 16; ++i) {
    EXPECT_EQ(geometry.fillColors[i], i / 4 == 2 ? kGreen : kGray) << i;
  }
}

TEST(DrawRecorder, KeepsTextureCoordinatesOnceThereAreSome) {
  DrawRecorder recorder({}, true);
  AddSquare(recorder, 0, Plain());
  EXPECT_TRUE(recorder.Geometry().fillTextures.empty());
  recorder.GetState().isTextured = 1;
  float* const textures = recorder.TexturesFor(5);
  for (int i = 0; i < 5; ++i) textures[i] = 0.25F * static_cast<float>(i);
  recorder.AddPolygon(Square(2).data(), 5, kUp, textures, Plain());
  recorder.GetState().isTextured = 0;
  AddSquare(recorder, 4, Plain());
  const GatheredGeometry& geometry = recorder.Geometry();
  ASSERT_EQ(geometry.fillTextures.size(), 12U);
  // The first corner comes last.
  constexpr std::array<float, 12> kExpected{0, 0, 0, 0, 0.25F, 0.5F, 0.75F, 0, 0, 0, 0, 0};
  for (std::size_t i = 0; i < kExpected.size(); ++i) {
    EXPECT_EQ(geometry.fillTextures[i], kExpected[i]) << i;
  }
}

}  // namespace
