/// What legends draw: colours, lit or not, texts, symbols and their lines.

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

#include "chart/legend_fixture.h"

namespace {

using namespace orvalix::test;
using Kind = FeedbackPrimitive::Kind;
using Primitives = std::vector<FeedbackPrimitive>;

constexpr RGBDType kOrange{0.9, 0.5, 0.1, 1.0};
constexpr RGBDType kPureBlue{0.0, 0.0, 1.0, 1.0};

/// From the leftmost to the rightmost, and from the lowest to the highest vertex.
struct Extent {
  double left = 1e9;
  double right = -1e9;
  double low = 1e9;
  double high = -1e9;
};

Extent ExtentOf(const Primitives& primitives) {
  Extent extent;
  for (const FeedbackPrimitive& primitive : primitives) {
    for (const FeedbackVertex& vertex : primitive.vertices) {
      extent.left = std::min(extent.left, vertex.x);
      extent.right = std::max(extent.right, vertex.x);
      extent.low = std::min(extent.low, vertex.y);
      extent.high = std::max(extent.high, vertex.y);
    }
  }
  return extent;
}

bool IsBlue(const FeedbackPrimitive& primitive) {
  const FeedbackVertex& vertex = primitive.vertices[0];
  return vertex.blue > 0.99 && vertex.red < 0.01 && vertex.green < 0.01;
}

/// What of it is blue.
Primitives Blue(const Primitives& primitives) {
  Primitives blue;
  std::copy_if(primitives.begin(), primitives.end(), std::back_inserter(blue), IsBlue);
  return blue;
}

class LegendDrawing : public LegendTest {
 protected:
  /// Draws with one text in blue alone, and returns what of it is drawn.
  Primitives BlueText(CTextObj3D& text) {
    text.SetColor(kPureBlue);
    return Blue(Drawn());
  }
};

TEST_F(LegendDrawing, SlabsAreLitInColorModeOne) {
  COpenGL& gl = *view.GetOpenGLPntr();
  legend.NewLegendObj();
  legend.SetLegendBkColor(kOrange);
  const auto redOfTheFront = [&](int mode) {
    gl.MakeCurrent();
    gl.SetColorMode(1 - mode);  // that of what was drawn before
    legend.SetColorMode(mode);
    const Primitives faces = OfKind(Drawn(), Kind::kPolygon);
    EXPECT_EQ(gl.GetColorMode(), mode);
    return faces.size() == 6U ? faces[1].vertices[0].red : -1.0;
  };
  EXPECT_NEAR(redOfTheFront(0), 0.9, 1e-6);
  const double lit = redOfTheFront(1);
  EXPECT_GE(lit, 0.0);
  EXPECT_GT(std::abs(lit - 0.9), 0.02);
  EXPECT_NEAR(redOfTheFront(0), 0.9, 1e-6);
  // Charts bring light: theirs comes from above the viewer.
  view.NewChart3D();
  view.DrawViewScreen();
  EXPECT_GT(redOfTheFront(1), 2.0 * lit);
}

TEST_F(LegendDrawing, EveryTextIsDrawnOnce) {
  legend.NewLegendObj("", 0, kOrange);
  const std::size_t without = Drawn().size();
  const auto letterAt = [&](CTextObj3D& text, double z) {
    text.SetString("I");
    const Primitives letter = BlueText(text);
    ASSERT_FALSE(letter.empty());
    const Extent extent = ExtentOf(letter);
    // Centred, and standing on its place: z = -1 to 1 is y = 0 to 100.
    EXPECT_NEAR((extent.left + extent.right) / 2.0, 100.0, 0.5);
    EXPECT_NEAR(extent.low, 50.0 + 50.0 * z, 0.5);
    EXPECT_EQ(Drawn().size(), without + letter.size());
    text.SetString("");
    EXPECT_EQ(Drawn().size(), without);
  };
  const double top = 0.9 - Height("");
  letterAt(*legend.GetTitle1Obj(), top);
  letterAt(*legend.GetTitle2Obj(), top);
  letterAt(*legend.GetFooterObj(), -0.9);
  legend.SetText(0, "I");
  legend.SetTextColor(0, kPureBlue);
  const Primitives drawn = Drawn();
  const Primitives letter = Blue(drawn);
  ASSERT_FALSE(letter.empty());
  EXPECT_EQ(drawn.size(), without + letter.size());
  EXPECT_NEAR(ExtentOf(letter).low, 50.0 + 50.0 * (0.9 - Height("I")), 0.5);
  // Left: its first pixel is at the margin of 0.2, the room before the letter aside.
  EXPECT_NEAR(ExtentOf(letter).left, 20.0, 3.0);
}

TEST_F(LegendDrawing, TextsKeepTheirColorsInALitLegend) {
  legend.NewLegendObj("I");
  legend.SetTextColor(0, kPureBlue);
  const std::size_t flat = Blue(Drawn()).size();
  EXPECT_GT(flat, 0U);
  legend.SetColorMode(1);
  EXPECT_EQ(Blue(Drawn()).size(), flat);
}

TEST_F(LegendDrawing, ViewAspectWidensTexts) {
  legend.NewLegendObj("H");
  legend.SetTextColor(0, kPureBlue);
  const auto sizeAt = [&](double viewAspect) {
    legend.SetViewAspect(viewAspect);
    const Extent extent = ExtentOf(Blue(Drawn()));
    return std::pair(extent.right - extent.left, extent.high - extent.low);
  };
  const auto [width, height] = sizeAt(1.0);
  const auto [wide, sameHeight] = sizeAt(2.0);
  EXPECT_GT(width, 1.0);
  EXPECT_NEAR(wide, 2.0 * width, 1e-2);
  EXPECT_NEAR(sameHeight, height, 1e-2);
}

TEST_F(LegendDrawing, SlabFrameAndOutlineHaveTheirDepths) {
  legend.NewLegendObj();
  legend.SetLegendYLoc(0.2);
  legend.SetLegendBorderColor(kPureBlue);
  const Primitives drawn = Drawn();
  const auto depth = [](double y) { return (1.0 - y) / 2.0; };  // of the window: 0 is nearest
  double nearest = 1.0;
  double farthest = 0.0;
  for (const FeedbackPrimitive& face : OfKind(drawn, Kind::kPolygon)) {
    for (const FeedbackVertex& vertex : face.vertices) {
      nearest = std::min(nearest, vertex.z);
      farthest = std::max(farthest, vertex.z);
    }
  }
  EXPECT_NEAR(nearest, depth(0.3), 1e-5);
  EXPECT_NEAR(farthest, depth(0.2), 1e-5);
  const Primitives lines = OfKind(drawn, Kind::kLine);
  ASSERT_EQ(lines.size(), 28U);
  EXPECT_TRUE(std::all_of(lines.begin(), lines.end(), IsBlue));
  for (std::size_t i = 24; i < 28; ++i) EXPECT_NEAR(lines[i].vertices[0].z, depth(0.25), 1e-5);
}

// Turned about x, then y, then z: a vertex v comes to Rx Ry Rz v.
TEST_F(LegendDrawing, SymbolsTurnAboutXThenYThenZ) {
  constexpr double kDegree = 3.14159265358979323846 / 180.0;
  CLegendObj3D& entry = *legend.NewLegendObj("", 9, kOrange);
  entry.SetSymbolRotation({20.0, 35.0, 65.0, 0.0});
  const Primitives faces = DrawnSymbol(entry);
  ASSERT_EQ(faces.size(), 6U);
  for (int corner = 0; corner < 8; ++corner) {
    SCOPED_TRACE(corner);
    double x = (corner & 1) != 0 ? 0.5 : -0.5;
    double y = (corner & 2) != 0 ? 0.5 : -0.5;
    double z = (corner & 4) != 0 ? 0.5 : -0.5;
    const auto turn = [](double& a, double& b, double degrees) {
      const double cosine = std::cos(degrees * kDegree);
      const double sine = std::sin(degrees * kDegree);
      const double turned = a * cosine - b * sine;
      b = a * sine + b * cosine;
      a = turned;
    };
    turn(x, y, 65.0);
    turn(z, x, 35.0);
    turn(y, z, 20.0);
    // Size 0.1, enlarged by 1.5; 100 pixels a unit across, in an aspect of 1/2, and 50 up.
    const double pixelX = 100.0 + x * 0.15 * 0.5 * 100.0;
    const double pixelY = 50.0 + y * 0.15 * 50.0;
    const auto isThere = [&](const FeedbackPrimitive& face) {
      return std::any_of(face.vertices.begin(), face.vertices.end(), [&](const auto& vertex) {
        return std::hypot(vertex.x - pixelX, vertex.y - pixelY) < 1e-2;
      });
    };
    EXPECT_EQ(std::count_if(faces.begin(), faces.end(), isThere), 3);
  }
}

TEST_F(LegendDrawing, SolidsHaveBlackOutlines) {
  legend.EnableLegendBorder(0);
  legend.SetLegendBorderColor(kPureBlue);
  CLegendObj3D& entry = *legend.NewLegendObj("", 0, kOrange);
  for (const int symbol : {2, 3, 8, 9, 10, 11, 12, 13, 14, 15}) {
    SCOPED_TRACE(symbol);
    entry.SetSymbol(symbol);
    const Primitives lines = OfKind(Drawn(), Kind::kLine);
    ASSERT_GT(lines.size(), 24U);  // those of the slab come first
    for (std::size_t i = 24; i < lines.size(); ++i) {
      const FeedbackVertex& vertex = lines[i].vertices[0];
      EXPECT_EQ(vertex.red + vertex.green + vertex.blue, 0.0) << i;
    }
  }
}

TEST_F(LegendDrawing, SymbolsOfNegativeSizeAreMirroredAndOfNoSizeNothing) {
  CLegendObj3D& entry = *legend.NewLegendObj("", 3, kOrange);
  const auto extentAt = [&](double scale) {
    entry.SetSymbolScale(scale);
    return ExtentOf(DrawnSymbol(entry));
  };
  const Extent positive = extentAt(0.2);
  const Extent negative = extentAt(-0.2);
  EXPECT_NEAR(positive.right - positive.left, 0.2 * 1.5 * 0.5 * 100.0, 1e-2);
  EXPECT_NEAR(negative.left, positive.left, 1e-2);
  EXPECT_NEAR(negative.high, positive.high, 1e-2);
  const Extent none = extentAt(0.0);
  if (none.right >= none.left) {
    EXPECT_NEAR(none.left, 100.0, 1e-2);
    EXPECT_NEAR(none.right, 100.0, 1e-2);
  }
  for (const double scale : {std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity(), 1e300, -1e300}) {
    entry.SetSymbolScale(scale);
    view.DrawViewScreen();
  }
  entry.SetSymbolScale(0.1);
  Drawn();  // places it again
  entry.SetSymbolPosition({0.0, 0.0, 0.0, 0.0});
  EXPECT_NEAR(ExtentOf(DrawnSymbol(entry)).right - 100.0, 0.05 * 1.5 * 0.5 * 100.0, 1e-2);
}

/// Widths of lines, measured in the pixels of a view of 450 x 450. The edges of the slab, 0.02 from
/// those of the square, lie in the middle of the fifth pixel.
class LegendLines : public ::testing::Test {
 protected:
  LegendLines() : on(450, 450), legend(*on.view->NewLegend3D()) {
    on.view->EnableBorder(0);
    legend.SetLegendBorderColor(kPureBlue);
  }

  /// How many pixels are not white, from (x, y) on to the right or upwards.
  int InkAlong(int x, int y, int dx, int dy, int count) {
    on.view->DrawViewScreen();
    int ink = 0;
    for (int i = 0; i < count; ++i) ink += on.BitmapPixel(x + i * dx, y + i * dy) != kWhite;
    return ink;
  }

  ViewOn on;
  CLegend3D& legend;
};

TEST_F(LegendLines, OutlineOfTheSlabHasTheBorderThickness) {
  legend.NewLegendObj();
  legend.EnableLegendBorder(0);
  for (const int thickness : {1, 3, 5, 7}) {
    legend.SetBorderThickness(thickness);
    EXPECT_EQ(InkAlong(0, 225, 1, 0, 50), thickness) << thickness;
  }
}

TEST_F(LegendLines, FrameIsThreeWide) {
  legend.NewLegendObj();
  legend.SetBorderThickness(1.0);
  // Halfway into the slab, whose front hides what of the frame is inside the edge.
  EXPECT_EQ(InkAlong(0, 225, 1, 0, 4), 1);
  EXPECT_EQ(InkAlong(446, 225, 1, 0, 4), 1);
  legend.EnableLegendBorder(0);
  EXPECT_EQ(InkAlong(0, 225, 1, 0, 4), 0);
}

TEST_F(LegendLines, SymbolsHaveThinOutlinesAndLinesOfTwo) {
  legend.SetBorderThickness(9.0);
  legend.SetLegendOrientation(1);
  CLegendObj3D* entry = legend.NewLegendObj("", 3, {1.0, 1.0, 1.0, 1.0});
  entry->SetSymbolScale(0.2);
  on.view->DrawViewScreen();
  // The symbol's centre; its edges are 0.15 away, 33.75 pixels.
  const point3Dtype centre = entry->GetSymbolPosition();
  const int x = static_cast<int>(225.0 + 225.0 * centre.x);
  const int y = static_cast<int>(225.0 + 225.0 * centre.z);
  EXPECT_EQ(InkAlong(x, y, 1, 0, 45), 1);
  EXPECT_EQ(InkAlong(x, y - 45, 0, 1, 45), 1);
  entry->SetSymbol(1);
  entry->SetSymbolColor(kPureBlue);
  EXPECT_EQ(InkAlong(x, y - 10, 0, 1, 20), 2);
}

}  // namespace
