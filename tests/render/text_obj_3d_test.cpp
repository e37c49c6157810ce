#include "orvalix/render/text_obj_3d.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <ostream>
#include <string>

#include "orvalix/render/font_3d.h"
#include "orvalix/render/transform_3d.h"
#include "render/drawing_fixture.h"
#include "support/caught_error.h"
#include "support/hex_bytes.h"
#include "support/temporary_file.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::CaptureFeedback;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::DrawingTest;
using orvalix::test::FeedbackPrimitive;
using orvalix::test::FromHex;
using orvalix::test::LoadFrom;
using orvalix::test::Saved;

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(TextObj3D, StartsWithItsDefaults) {
  const int before = CTextObj3D::nSelfID;
  const CTextObj3D text;
  EXPECT_EQ(CTextObj3D::nSelfID, before + 1);
  EXPECT_STREQ(text.GetString(), "");
  EXPECT_EQ(text.GetLocation().x, 0.0);
  EXPECT_EQ(text.GetLocation().y, 0.0);
  EXPECT_EQ(text.GetLocation().z, 0.0);
  EXPECT_EQ(text.GetXJustify(), 0);
  EXPECT_EQ(text.GetYJustify(), 0);
  EXPECT_EQ(text.GetColor().red, 0.0);
  EXPECT_EQ(text.GetColor().alpha, 1.0);
  EXPECT_EQ(text.GetTextPlane(), 3);
  EXPECT_EQ(text.GetRotation(), 0);
  EXPECT_EQ(text.GetClipping(), 0);
  EXPECT_EQ(text.GetTextEnable(), 1);
  EXPECT_EQ(text.GetFlipX(), 0);
  EXPECT_EQ(text.GetFlipY(), 0);
  EXPECT_EQ(text.GetCharSize(), 1.0);
  EXPECT_EQ(text.GetClassTag(), 1515);
}

TEST(TextObj3D, KeepsItsProperties) {
  CTextObj3D text;
  text.SetString("abc");
  text.SetLocation({1, 2, 3, 4});
  text.SetNormLocation({5, 6, 7, 8});
  text.SetJustify(1, 2);
  text.SetColor({0.1, 0.2, 0.3, 0.4});
  text.SetTextPlane(2);
  text.SetRotation(30);
  text.SetFlipX(1);
  text.SetFlipY(2);
  text.SetCharSize(3.0);
  text.SetClipping(4);
  text.EnableTextObj(0);
  CString copy;
  text.GetString(copy);
  EXPECT_STREQ(copy, "abc");
  EXPECT_EQ(text.GetLocation().v, 4.0);
  EXPECT_EQ(text.GetNormLocation().x, 5.0);
  int x = 0;
  int y = 0;
  text.GetJustify3D(&x, &y);
  text.GetJustify3D(nullptr, nullptr);
  EXPECT_EQ(x, 1);
  EXPECT_EQ(y, 2);
  EXPECT_EQ(text.GetColor().blue, 0.3);
  EXPECT_EQ(text.GetTextPlane(), 2);
  EXPECT_EQ(text.GetRotation(), 30);
  EXPECT_EQ(text.GetFlipX(), 1);
  EXPECT_EQ(text.GetFlipY(), 2);
  EXPECT_EQ(text.GetCharSize(), 3.0);
  EXPECT_EQ(text.GetClipping(), 4);
  EXPECT_EQ(text.GetTextEnable(), 0);
}

TEST(TextObj3D, SavesItsFieldsInOrder) {
  CTextObj3D text;
  CTextObj3D::nSelfID = 0x11;
  text.SetString("Hi");
  text.SetLocation({1, 2, 0, 0});
  text.SetJustify(1, 2);
  text.SetTextPlane(3);
  text.SetFlipX(4);
  text.SetFlipY(5);
  text.SetRotation(6);
  text.SetClipping(7);
  text.SetCharSize(2.0);
  const Bytes expected = FromHex(R"(
      11000000 00000000                                      # counter, transform id
      02000000 4869                                          # string
      000000000000f03f 0000000000000040 0000000000000000 0000000000000000  # location
      0000000000000000 0000000000000000 0000000000000000 0000000000000000  # normalised
      01000000 02000000                                      # justification
      0000000000000000 0000000000000000 0000000000000000 000000000000f03f  # colour
      03000000 04000000 05000000 06000000                    # plane, flips, rotation
      00000000 07000000 01000000                             # reserved, clipping, enable
      0000000000000040                                       # char size
  )");
  EXPECT_EQ(Saved(text), expected);
  CTextObj3D loaded;
  LoadFrom(loaded, expected);
  EXPECT_EQ(CTextObj3D::nSelfID, 0x11);
  EXPECT_EQ(Saved(loaded), expected);
  loaded.Save(nullptr);
  loaded.Load(nullptr);
}

TEST(TextObj3D, CountsOnFromTheLargestNumber) {
  CTextObj3D::nSelfID = std::numeric_limits<int>::max();
  const CTextObj3D text;
  EXPECT_EQ(CTextObj3D::nSelfID, std::numeric_limits<int>::min());
  CTextObj3D::nSelfID = 0;
}

TEST(TextObj3D, DistrustsItsRecord) {
  Bytes record = Saved(CTextObj3D());
  CTextObj3D text;
  record[8] = 0xFF;  // a string of 255 bytes, which aren't there
  EXPECT_EQ(Catch([&] { LoadFrom(text, record); }), (CaughtError{7, 19, "Load"}));
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { text.Save(full.m_hFile); }), (CaughtError{7, 19, "Save"}));
}

class DrawnText : public DrawingTest {
 protected:
  DrawnText()
      : font(*gl.GetFont()),
        transform(&gl, {0, 0, 0, 0}, {1, 1, 1, 0}),
        text(&gl, &font, &transform, "H") {
    gl.RegisterFont("Arial", 0.2, 400, 0, 0, 128);
    transform.ChartTransform();
  }

  struct Box {
    double left = 1e9, bottom = 1e9, right = -1e9, top = -1e9, near = 1e9, far = -1e9;

    double Width() const { return right - left; }
    double Height() const { return top - bottom; }
  };

  /// Bounds in pixels of what `draw` draws; 100 pixels are one unit across, 50 one unit up.
  template <class Draw>
  static Box Bounds(Draw draw) {
    Box box;
    for (const FeedbackPrimitive& primitive : CaptureFeedback(draw)) {
      for (const auto& vertex : primitive.vertices) {
        box.left = std::min(box.left, vertex.x);
        box.right = std::max(box.right, vertex.x);
        box.bottom = std::min(box.bottom, vertex.y);
        box.top = std::max(box.top, vertex.y);
        box.near = std::min(box.near, vertex.z);
        box.far = std::max(box.far, vertex.z);
      }
    }
    return box;
  }
  Box TextBounds() {
    return Bounds([this] { text.OutTextNorm(); });
  }
  bool DrawsNothing() {
    return CaptureFeedback([this] { text.OutText(); }).empty() &&
           CaptureFeedback([this] { text.OutTextNorm(); }).empty();
  }
  /// The black box of the H, in em.
  double GlyphWidth() const { return font.GetGlyphMetrics('H').gmfBlackBoxX; }
  double GlyphHeight() const { return font.GetGlyphMetrics('H').gmfBlackBoxY; }

  CFont3D& font;
  CTransform3D transform;
  CTextObj3D text;
};

TEST_F(DrawnText, RefusesWhatIsNotAlive) {
  alignas(16) static std::array<unsigned char, 8192> untagged{};
  auto* notContext = reinterpret_cast<COpenGL*>(untagged.data());
  auto* notFont = reinterpret_cast<CFont3D*>(untagged.data());
  auto* notTransform = reinterpret_cast<CTransform3D*>(untagged.data());
  for (COpenGL* bad : {static_cast<COpenGL*>(nullptr), notContext}) {
    EXPECT_EQ(Catch([&] { text.InitTextObj(bad, &font, &transform); }),
              (CaughtError{16, 19, "InitTextObj"}));
  }
  for (CFont3D* bad : {static_cast<CFont3D*>(nullptr), notFont}) {
    EXPECT_EQ(Catch([&] { text.InitTextObj(&gl, bad, &transform); }),
              (CaughtError{17, 19, "InitTextObj"}));
  }
  for (CTransform3D* bad : {static_cast<CTransform3D*>(nullptr), notTransform}) {
    EXPECT_EQ(Catch([&] { text.InitTextObj(&gl, &font, bad); }),
              (CaughtError{15, 19, "InitTextObj"}));
  }
  EXPECT_TRUE(DrawsNothing());
  EXPECT_EQ(Catch([&] { CTextObj3D(nullptr, &font, &transform, "x"); }),
            (CaughtError{16, 19, "InitTextObj"}));
}

TEST_F(DrawnText, MeasuresWithItsFont) {
  text.SetString("Hello");
  EXPECT_EQ(text.TextWidth(), font.TextWidth3D("Hello"));
  EXPECT_EQ(text.TextHeight(), font.TextHeight3D("Hello"));
  EXPECT_GT(text.TextWidth(), 0.0);
  EXPECT_EQ(text.GetTransformID(), transform.GetTransformID());
  EXPECT_EQ(CTextObj3D().TextWidth(), 0.0);
  EXPECT_EQ(CTextObj3D().TextHeight(), 0.0);
}

TEST_F(DrawnText, StandsAtItsPlaceFacingTheViewer) {
  // The view spans -1 to 1; x = 0.5 lies at pixel 150 and z = 0.4 at pixel 70.
  text.SetNormLocation({0.5, 0.0, 0.4, 0.0});
  const Box box = TextBounds();
  const double bearing = font.GetGlyphMetrics('H').gmfptGlyphOrigin.x;
  EXPECT_NEAR(box.left, 150.0 + 100.0 * 0.2 * bearing, 0.05);
  EXPECT_NEAR(box.Width(), 100.0 * 0.2 * GlyphWidth(), 0.05);
  EXPECT_NEAR(box.bottom, 70.0, 0.05);
  EXPECT_NEAR(box.Height(), 50.0 * 0.2 * GlyphHeight(), 0.05);
}

TEST_F(DrawnText, StaysFacingTheViewerHoweverTheChartIsTurned) {
  const Box straight = TextBounds();
  for (const point3Dtype turn :
       {point3Dtype{-30, 0, 0, 0}, point3Dtype{0, 40, 0, 0}, point3Dtype{-25, 15, 130, 0}}) {
    transform.SetRotate(turn);
    const Box turned = TextBounds();
    EXPECT_NEAR(turned.left, straight.left, 0.02);
    EXPECT_NEAR(turned.Width(), straight.Width(), 0.02);
    EXPECT_NEAR(turned.Height(), straight.Height(), 0.02);
    EXPECT_NEAR(turned.far - turned.near, 0.0, 1e-3);
  }
}

TEST_F(DrawnText, LiesInItsPlane) {
  // Seen from the front, plane 1 (x-z) is seen straight, plane 0 (x-y) from its edge, and so is
  // plane 2 (y-z).
  text.SetTextPlane(1);
  const Box front = TextBounds();
  EXPECT_NEAR(front.Width(), 100.0 * 0.2 * GlyphWidth(), 0.05);
  EXPECT_NEAR(front.Height(), 50.0 * 0.2 * GlyphHeight(), 0.05);
  transform.SetRotate({-90, 0, 0, 0});  // seen from above
  text.SetTextPlane(0);
  const Box above = TextBounds();
  EXPECT_NEAR(above.Width(), 100.0 * 0.2 * GlyphWidth(), 0.05);
  EXPECT_NEAR(above.Height(), 50.0 * 0.2 * GlyphHeight(), 0.05);
  text.SetTextPlane(1);
  EXPECT_LT(TextBounds().Height(), 0.5);
  transform.SetRotate({0, 0, 90, 0});  // seen from the side
  text.SetTextPlane(2);
  const Box side = TextBounds();
  EXPECT_NEAR(side.Width(), 100.0 * 0.2 * GlyphWidth(), 0.05);
  EXPECT_NEAR(side.Height(), 50.0 * 0.2 * GlyphHeight(), 0.05);
}

/// Where the heavy corner of an L lies on the screen: -1 left or down, 1 right or up. Upright it is
/// left and down.
struct Corner {
  int x;
  int y;
  bool operator==(const Corner&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const Corner& corner) {
    return out << corner.x << ", " << corner.y;
  }
};

class TurnedText : public DrawnText {
 protected:
  TurnedText() { text.SetString("L"); }

  Corner CornerSeen() {
    const auto drawn = CaptureFeedback([this] { text.OutTextNorm(); });
    const Box box = TextBounds();
    double area = 0.0;
    double x = 0.0;
    double y = 0.0;
    for (const FeedbackPrimitive& primitive : drawn) {
      const auto& v = primitive.vertices;
      for (std::size_t i = 1; i + 1 < v.size(); ++i) {
        const double part = std::abs((v[i].x - v[0].x) * (v[i + 1].y - v[0].y) -
                                     (v[i + 1].x - v[0].x) * (v[i].y - v[0].y));
        area += part;
        x += part * (v[0].x + v[i].x + v[i + 1].x) / 3.0;
        y += part * (v[0].y + v[i].y + v[i + 1].y) / 3.0;
      }
    }
    EXPECT_GT(area, 0.0);
    return {x / area < (box.left + box.right) / 2.0 ? -1 : 1,
            y / area < (box.bottom + box.top) / 2.0 ? -1 : 1};
  }
  /// Upright, turned by 90 and by -90 degrees, and with each flip.
  void ExpectCorners(const std::array<Corner, 5>& expected) {
    const std::array<std::array<int, 3>, 5> cases{
        {{0, 0, 0}, {90, 0, 0}, {-90, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    for (std::size_t i = 0; i < cases.size(); ++i) {
      text.SetRotation(cases[i][0]);
      text.SetFlipX(cases[i][1]);
      text.SetFlipY(cases[i][2]);
      EXPECT_EQ(CornerSeen(), expected[i]) << "case " << i;
    }
  }
};

// Plane 0 and what faces the viewer turn counterclockwise, planes 1 and 2 clockwise. A flipped text
// shows its back, which is drawn mirrored.
TEST_F(TurnedText, ReadsFromAboveInPlane0) {
  transform.SetRotate({-90, 0, 0, 0});
  text.SetTextPlane(0);
  ExpectCorners({{{-1, -1}, {1, -1}, {-1, 1}, {-1, 1}, {1, -1}}});
}

TEST_F(TurnedText, ReadsFromTheFrontInPlane1) {
  text.SetTextPlane(1);
  ExpectCorners({{{-1, -1}, {-1, 1}, {1, -1}, {-1, 1}, {1, -1}}});
}

TEST_F(TurnedText, ReadsFromInsideTheBoxInPlane2) {
  transform.SetRotate({0, 0, 90, 0});
  text.SetTextPlane(2);
  ExpectCorners({{{-1, -1}, {-1, 1}, {1, -1}, {-1, 1}, {1, -1}}});
}

TEST_F(TurnedText, ReadsFromAnywhereInPlane3) {
  transform.SetRotate({-35, 20, 110, 0});
  ExpectCorners({{{-1, -1}, {1, -1}, {-1, 1}, {-1, 1}, {1, -1}}});
}

TEST_F(TurnedText, FlipsAfterItTurns) {
  text.SetRotation(90);
  text.SetFlipX(1);  // half a turn about the text's own x, which now runs up
  EXPECT_EQ(CornerSeen(), (Corner{-1, -1}));
}

TEST_F(DrawnText, TakesOtherPlanesForTheViewersOwn) {
  transform.SetRotate({-25, 15, 130, 0});
  const Box viewer = TextBounds();
  for (const int plane : {-1, 4, 1000}) {
    text.SetTextPlane(plane);
    const Box other = TextBounds();
    EXPECT_EQ(other.left, viewer.left) << plane;
    EXPECT_EQ(other.top, viewer.top) << plane;
  }
}

TEST_F(DrawnText, IsJustifiedAboutItsPlace) {
  const double width = 100.0 * text.TextWidth();
  const double height = 50.0 * text.TextHeight();
  const Box start = TextBounds();
  text.SetJustify(1, 1);
  const Box middle = TextBounds();
  EXPECT_NEAR(middle.left, start.left - width / 2.0, 0.02);
  EXPECT_NEAR(middle.bottom, start.bottom - height / 2.0, 0.02);
  text.SetJustify(2, 2);
  const Box end = TextBounds();
  EXPECT_NEAR(end.left, start.left - width, 0.02);
  EXPECT_NEAR(end.bottom, start.bottom - height, 0.02);
  text.SetJustify(-7, 3);
  EXPECT_EQ(TextBounds().left, start.left);
}

TEST_F(DrawnText, KeepsItsShapeWhateverTheViewsShape) {
  // The target is half as high as wide, so the aspect 0.5 makes an em as wide as it is high.
  transform.SetFontAspect(0.5);
  const Box straight = TextBounds();
  EXPECT_NEAR(straight.Width() / straight.Height(), GlyphWidth() / GlyphHeight(), 0.01);
  // Turned by 90 degrees, what ran across runs up: (1, a, 1) instead of (a, 1, a).
  text.SetRotation(90);
  const Box turned = TextBounds();
  EXPECT_NEAR(turned.Height(), 50.0 * 0.2 * GlyphWidth(), 0.05);
  EXPECT_NEAR(turned.Width(), 100.0 * 0.2 * 0.5 * GlyphHeight(), 0.05);
}

TEST_F(DrawnText, TurnsWithItsRoundedDegree) {
  // Kept rounding: 0.01745 to the degree. At 45 degrees in plane 3, with aspect 0.5 and size 0.2:
  constexpr double kAngle = 45 * 0.01745;
  const double across = 0.2 * (std::cos(kAngle) * 0.5 + std::sin(kAngle));
  transform.SetFontAspect(0.5);
  text.SetRotation(45);
  text.SetString("-");
  const GLYPHMETRICSFLOAT dash = font.GetGlyphMetrics('-');
  const Box box = TextBounds();
  const double length = across * static_cast<double>(dash.gmfBlackBoxX) * std::sqrt(0.5);
  const double up = 0.2 * (std::sin(kAngle) * 0.5 + std::cos(kAngle));
  const double thick = up * static_cast<double>(dash.gmfBlackBoxY) * std::sqrt(0.5);
  EXPECT_NEAR(box.Width(), 100.0 * (length + thick), 0.05);
  EXPECT_NEAR(box.Height(), 50.0 * (length + thick), 0.05);
}

TEST_F(DrawnText, CountsDegreesRoundedWhereTheyAddUp) {
  // A hundred whole turns look like none, but 36000 x 0.01745 is 628.2, 0.118 away from them.
  constexpr double kAngle = 36000 * 0.01745;
  transform.SetFontAspect(0.5);
  text.SetRotation(36000);
  const double across = 0.2 * (std::abs(std::cos(kAngle)) * 0.5 + std::abs(std::sin(kAngle)));
  EXPECT_NEAR(TextBounds().Width(), 100.0 * across * GlyphWidth(), 0.05);
  EXPECT_NEAR(across, 0.2 * 0.615, 0.001);
}

TEST_F(DrawnText, IsAsDeepAsItIsWide) {
  font.SetFontExtrusion(0.25);
  gl.RegisterFont("Arial", 0.2, 400, 0, 0, 128);
  transform.SetFontAspect(0.5);
  text.SetTextPlane(1);
  transform.SetRotate({0, 0, 45, 0});
  const Box box = TextBounds();
  // Depth and width have the factor 0.5; both reach across, and half of the depth of the view is
  // one unit of it.
  const double depth = 0.2 * 0.5 * 0.25 * std::sqrt(0.5);
  const double width = 0.2 * 0.5 * GlyphWidth() * std::sqrt(0.5);
  EXPECT_NEAR(box.Width(), 100.0 * (width + depth), 0.1);
}

TEST_F(DrawnText, GrowsWithEachOfItsSizes) {
  const Box normal = TextBounds();
  text.SetCharSize(2.0);
  EXPECT_NEAR(TextBounds().Width(), 2.0 * normal.Width(), 0.05);
  transform.SetFontHeightSF(1.5);
  EXPECT_NEAR(TextBounds().Height(), 3.0 * normal.Height(), 0.05);
  font.SetFontScaleFactor(0.1);
  EXPECT_NEAR(TextBounds().Height(), 1.5 * normal.Height(), 0.05);
}

TEST_F(DrawnText, FlipsByHalfATurn) {
  const Box normal = TextBounds();
  text.SetFlipX(1);
  const Box aboutX = TextBounds();
  EXPECT_NEAR(aboutX.left, normal.left, 0.02);
  EXPECT_NEAR(aboutX.top, 100.0 - normal.bottom, 0.02);
  text.SetFlipX(0);
  text.SetFlipY(1);
  const Box aboutY = TextBounds();
  EXPECT_NEAR(aboutY.right, 200.0 - normal.left, 0.02);
  EXPECT_NEAR(aboutY.bottom, normal.bottom, 0.02);
}

TEST_F(DrawnText, OutTextGoesToItsWorldPlace) {
  // The world 0 to 1 lies between -0.5 and 0.5: x = 0.75 at 0.25, z = 1 at 0.5.
  text.SetLocation({0.75, 0.5, 1.0, 9.0});
  const Box box = Bounds([this] { text.OutText(); });
  EXPECT_NEAR(text.GetNormLocation().x, 0.25, 1e-12);
  EXPECT_NEAR(text.GetNormLocation().y, 0.0, 1e-12);
  EXPECT_NEAR(text.GetNormLocation().z, 0.5, 1e-12);
  EXPECT_EQ(text.GetNormLocation().v, 9.0);
  EXPECT_NEAR(box.bottom, 75.0, 0.05);
}

TEST_F(DrawnText, IsPaintedInItsColorWithoutLight) {
  gl.SetColorMode(1);
  text.SetColor({0.25, 0.5, 0.75, 0.0});
  const auto drawn = CaptureFeedback([this] { text.OutTextNorm(); });
  ASSERT_FALSE(drawn.empty());
  for (const FeedbackPrimitive& primitive : drawn) ExpectColor(primitive, 0.25, 0.5, 0.75);
  EXPECT_EQ(gl.GetColorMode(), 1);
}

TEST_F(DrawnText, LeavesTheMatricesAsTheyWere) {
  const auto depth = [] {
    GLint value = 0;
    glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &value);
    return value;
  };
  std::array<double, 16> before{};
  gl.ReadModelViewMatrix(before.data());
  const int start = depth();
  text.OutTextNorm();
  std::array<double, 16> after{};
  gl.ReadModelViewMatrix(after.data());
  EXPECT_EQ(after, before);
  EXPECT_EQ(depth(), start);
  // The first text of a view finds the projection's matrix current.
  glMatrixMode(GL_PROJECTION);
  text.OutTextNorm();
  EXPECT_EQ(Integer(GL_PROJECTION_STACK_DEPTH), 1);
  EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

TEST_F(DrawnText, ADisabledOneDrawsNothing) {
  text.EnableTextObj(0);
  text.SetLocation({0.75, 0.5, 1.0, 9.0});
  std::array<double, 16> before{};
  gl.ReadModelViewMatrix(before.data());
  EXPECT_TRUE(DrawsNothing());
  std::array<double, 16> after{};
  gl.ReadModelViewMatrix(after.data());
  EXPECT_EQ(after, before);
  EXPECT_EQ(text.GetNormLocation().z, 0.0);
}

TEST_F(DrawnText, TransformLoadsTheChartsMatrix) {
  transform.SetRotate({-20, 0, 30, 0});
  text.Transform();
  std::array<double, 16> loaded{};
  gl.ReadModelViewMatrix(loaded.data());
  EXPECT_TRUE(std::equal(loaded.begin(), loaded.end(), transform.GetGraphTransform()));
  transform.TextTransform();
  std::array<double, 16> expected{};
  gl.ReadModelViewMatrix(expected.data());
  text.Transform();
  EXPECT_TRUE(std::equal(expected.begin(), expected.end(), transform.GetFontTransform()));
  CTextObj3D().Transform();
}

TEST_F(DrawnText, DrawsNothingWhereThereIsNoPlace) {
  text.SetNormLocation({kNotANumber, 0, 0, 0});
  EXPECT_TRUE(CaptureFeedback([this] { text.OutTextNorm(); }).empty());
  text.SetNormLocation({0, std::numeric_limits<double>::infinity(), 0, 0});
  EXPECT_TRUE(CaptureFeedback([this] { text.OutTextNorm(); }).empty());
  text.SetNormLocation({0, 0, 0, 0});
  text.SetCharSize(kNotANumber);
  EXPECT_TRUE(CaptureFeedback([this] { text.OutTextNorm(); }).empty());
  text.SetCharSize(1.0);
  font.SetFontScaleFactor(0.0);
  text.SetJustify(1, 1);
  text.OutTextNorm();
  EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

TEST_F(DrawnText, TakesAnyText) {
  const std::string longText(100000, 'x');
  text.SetString(longText.c_str());
  EXPECT_GT(text.TextWidth(), 1000.0);
  text.OutTextNorm();
  text.SetString("\x01\x80\xFF\n");
  EXPECT_TRUE(CaptureFeedback([this] { text.OutTextNorm(); }).empty());
  text.SetString(CString("a\0b", 3));
  EXPECT_FALSE(CaptureFeedback([this] { text.OutTextNorm(); }).empty());
}

}  // namespace
