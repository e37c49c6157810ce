#include <gtest/gtest.h>

#include <array>
#include <random>
#include <vector>

#include "render/gathered_fixture.h"

// Operations in any order, with any state between them: gathered, kept, interrupted, or one by one.

namespace {

using namespace orvalix::test;

/// Draws what a seed tells, always the same.
class RandomDrawing {
 public:
  explicit RandomDrawing(unsigned seed) : m_seed(seed) {}

  /// @param interruptions sends what was gathered now and then
  void operator()(COpenGL& gl, bool interruptions) {
    m_random.seed(m_seed);
    m_pushed = 0;
    gl.SetFillStyle3D(Color(), Color(), Color());  // whatever was drawn before
    for (int i = 0; i < 40; ++i) {
      if (Pick(4) == 0) ChangeState(gl);
      Draw(gl);
      if (Pick(10) == 0 && interruptions) gl.SendGathered();
    }
    for (; m_pushed > 0; --m_pushed) gl.PopMatrix();
    gl.EnableTexture(0);
    gl.SetColorMode(1);
    gl.LineAbs3D({0, 0, 0, 0}, {1, 1, 1, 0});  // sends the line style that was set last
  }

 private:
  unsigned Pick(unsigned n) { return static_cast<unsigned>(m_random() % n); }
  double Share() { return static_cast<double>(Pick(1000)) / 1000.0; }
  point3Dtype Point() {
    const double x = 10.0 * Share();
    const double y = 10.0 * Share();
    return {x, y, 10.0 * Share(), 10.0 * Share()};
  }
  RGBDType Color() {
    constexpr std::array<RGBDType, 4> kColors{
        {{0.9, 0.2, 0.1, 1}, {0.1, 0.7, 0.2, 1}, {0.2, 0.2, 0.8, 1}, {0, 0, 0, 1}}};
    return kColors[Pick(4)];
  }

  void ChangeState(COpenGL& gl) {
    switch (Pick(8)) {
      case 0:
        return gl.SetColorMode(static_cast<int>(Pick(3)));
      case 1:
        return gl.EnableTexture(static_cast<int>(Pick(2)));
      case 2:
        return gl.SetPolygonOutlineMode(static_cast<int>(Pick(2)));
      case 3:
        return gl.SetLineStyle3D(static_cast<int>(Pick(5)), 1.0 + Pick(3), Color());
      case 4:
        ++m_pushed;
        return gl.PushMatrix();
      case 5:
        if (m_pushed == 0) return;
        --m_pushed;
        return gl.PopMatrix();
      case 6:
        return gl.Rotate3D(5.0 * Pick(10), static_cast<int>(Pick(3)));
      default:
        return gl.SetLineWidth3D(1.0 + Pick(2));
    }
  }

  /// Polygons that meet, each in a colour of its own, and now and then in another state.
  void DrawPatch(COpenGL& gl, const point3Dtype& at, double size) {
    constexpr int kSide = 4;
    std::array<point3Dtype, kSide * kSide> points;
    for (int i = 0; i < kSide * kSide; ++i) {
      points[static_cast<std::size_t>(i)] = {at.x + size * (i % kSide), at.y + size * (i / kSide),
                                             at.z + size * Share(), 10.0 * Share()};
    }
    for (int i = 0; i < kSide * (kSide - 1); ++i) {
      if (i % kSide == kSide - 1) continue;
      const auto corner = [&](int x, int y) {
        return points[static_cast<std::size_t>(i + x + kSide * y)];
      };
      for (const point3Dtype& third : {corner(1, 0), corner(0, 1)}) {
        const std::array<point3Dtype, 4> triangle{corner(0, 0), corner(1, 1), third, corner(0, 0)};
        if (Pick(4) == 0) gl.SetColorMode(static_cast<int>(Pick(3)));
        if (Pick(4) == 0) gl.EnableTexture(static_cast<int>(Pick(2)));
        const RGBDType fill = Color();
        gl.SetFillStyle3D(fill, fill, Color());
        gl.PolyFillAbs3D(triangle.data(), 4);
      }
    }
  }

  void Draw(COpenGL& gl) {
    const RGBDType fill = Color();
    const RGBDType outline = Color();
    const point3Dtype at = Point();
    const point3Dtype to = Point();
    const std::array<point3Dtype, 4> triangle{at, to, Point(), at};
    const double size = 0.5 + 2.0 * Share();
    switch (Pick(10)) {
      case 0:
        return gl.DrawPrism3D(at.x, at.y, at.z, size, size, 2.0 * size, fill, outline);
      case 1:
        return gl.LineAbs3D(at, to);
      case 2:
        gl.StartLineAbs3D(at);
        gl.SetFillStyle3D(fill, fill, outline);
        gl.AppendLineAbs3D(Point());
        return gl.EndLineAbs3D(to);
      case 3:
        gl.SetFillStyle3D(fill, fill, outline);
        return gl.PolyFillAbs3D(triangle.data(), 4);
      case 4:
        return gl.Frame3D(triangle.data(), 4);
      case 5:
        gl.PushMatrix();
        gl.Translate3D(at.x, at.y, at.z);
        gl.Scale3D(size, 1, size);
        gl.DrawCube(1, fill, outline);
        return gl.PopMatrix();
      case 6:
        gl.PushMatrix();
        gl.Translate3D(at.x, at.y, at.z);
        gl.DrawDiamondSolidObject3D(size, size, size, fill, outline);
        return gl.PopMatrix();
      case 7:
        return gl.DrawPrism3D(at.x, at.y, at.z, size, size, 0, fill, outline);
      case 8:
        return DrawPatch(gl, at, size);
      default:
        return gl.SetFillStyle3D(fill, fill, outline);
    }
  }

  unsigned m_seed;
  std::mt19937 m_random;
  int m_pushed = 0;
};

void LoadTexture(COpenGL& gl) {
  const std::array<RGBDType, 4> colors{
      {{1, 0, 0, 1}, {0, 0.8, 0, 1}, {0, 0, 1, 1}, {1, 0.7, 0, 1}}};
  gl.SetTextureColorArray(colors.data(), 0.0, 10.0, 4);
  gl.SetTextureMode(2);
}

/// Matrices that OpenGL has multiplied itself are a little less precise.
void ExpectState(const COpenGL& gl, const std::vector<double>& expected) {
  const std::vector<double> state = StateOf(gl);
  ASSERT_EQ(state.size(), expected.size());
  for (std::size_t i = 0; i < state.size(); ++i) EXPECT_NEAR(state[i], expected[i], 1e-5) << i;
}

TEST(RandomDrawing, IsTheSameGatheredAndOneByOne) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    GatheredScene gathered;
    GatheredScene single(0);
    LoadTexture(single.gl);
    gathered.gl.MakeCurrent();
    LoadTexture(gathered.gl);
    RandomDrawing drawing(seed);
    const auto whole = [&](COpenGL& gl) { drawing(gl, false); };
    const PixelBytes oneByOne = single.Kept(whole);
    const std::vector<double> state = StateOf(single.gl);
    const PixelBytes first = gathered.Kept(whole);
    ExpectState(gathered.gl, state);
    EXPECT_LE(DifferingPixels(first, oneByOne), kMostDiffering);
    EXPECT_EQ(DifferingPixels(gathered.Kept(whole), first), 0);
    ExpectState(gathered.gl, state);
    gathered.slot.Forget();
    EXPECT_LE(DifferingPixels(gathered.Kept([&](COpenGL& gl) { drawing(gl, true); }), oneByOne),
              kMostDiffering);
    ExpectState(gathered.gl, state);
  }
}

}  // namespace
