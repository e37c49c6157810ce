#include "orvalix/render/open_gl.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "orvalix/render/font_3d.h"
#include "orvalix/render/gl_api_internal.h"
#include "support/caught_error.h"
#include "support/offscreen.h"

namespace {

using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::Offscreen;

constexpr int kColorAndDepth = 0x4100;

/// The pixel at (x, y) of a bottom-up bitmap, as bytes in memory order.
std::vector<unsigned char> PixelAt(const CDIBSection& dib, int x, int y) {
  const int bytes = dib.GetDIBHeader().biBitCount / 8;
  const auto* row = static_cast<const unsigned char*>(dib.FindDIBBits()) +
                    static_cast<std::ptrdiff_t>(y) * dib.StorageWidth();
  const unsigned char* pixel = row + static_cast<std::ptrdiff_t>(x) * bytes;
  return {pixel, pixel + bytes};
}

TEST(OpenGL, SetsTheContextUp) {
  // Built by hand: the fixture selects the model-view matrix.
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(20, 10));
  CDIBSection* dib = nullptr;
  CDC memory;
  memory.CreateCompatibleDC(window.GetDC());
  dib = new CDIBSection(window.GetDC(), &memory, 20, 10, 32);
  {
    const COpenGL gl(window.GetDC(), dib);
    EXPECT_EQ(gl.GetClassTag(), 1717);
    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_TRUE(glIsEnabled(GL_NORMALIZE));
    EXPECT_FALSE(glIsEnabled(GL_POLYGON_SMOOTH));
    EXPECT_FALSE(glIsEnabled(GL_COLOR_MATERIAL));
    GLint value = 0;
    glGetIntegerv(GL_DEPTH_FUNC, &value);
    EXPECT_EQ(value, GL_LEQUAL);
    glGetIntegerv(GL_MATRIX_MODE, &value);
    EXPECT_EQ(value, GL_PROJECTION);
    glGetIntegerv(GL_COLOR_MATERIAL_FACE, &value);
    EXPECT_EQ(value, GL_FRONT);
    glGetIntegerv(GL_COLOR_MATERIAL_PARAMETER, &value);
    EXPECT_EQ(value, GL_AMBIENT_AND_DIFFUSE);
    glGetIntegerv(GL_DEPTH_BITS, &value);
    EXPECT_GE(value, 24);
    GLdouble depth = 0.0;
    glGetDoublev(GL_DEPTH_CLEAR_VALUE, &depth);
    EXPECT_EQ(depth, 1.0);
    std::array<GLdouble, 16> projection{};
    glGetDoublev(GL_PROJECTION_MATRIX, projection.data());
    for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(projection[i], i % 5 == 0 ? 1.0 : 0.0);
  }
  delete dib;
}

TEST(OpenGL, RefusesWhatItCannotDrawInto) {
  const CaughtError expected{18, 17, "InitContext"};
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(20, 10));
  CDC memory;
  memory.CreateCompatibleDC(window.GetDC());
  CDIBSection dib(window.GetDC(), &memory, 20, 10, 32);
  CDIBSection empty(window.GetDC(), &memory, 0, 10, 32);
  CDIBSection tooWide(window.GetDC(), &memory, 1 << 20, 1, 32);
  EXPECT_EQ(Catch([&] { COpenGL gl(nullptr, &dib); }), expected);
  EXPECT_EQ(Catch([&] { COpenGL gl(window.GetDC(), nullptr); }), expected);
  EXPECT_EQ(Catch([&] { COpenGL gl(window.GetDC(), &empty); }), expected);
  EXPECT_EQ(Catch([&] { COpenGL gl(window.GetDC(), &tooWide); }), expected);
  EXPECT_EQ(Catch([&] { COpenGL gl(window.GetDC(), &dib); }), orvalix::test::kNoError);
}

TEST(OpenGL, BringsPixelsIntoBitmapsOfEveryDepth) {
  for (const int bits : {24, 32}) {
    SCOPED_TRACE(bits);
    Offscreen target(21, 10, bits);
    target.gl->SetClearColor(1.0, 0.5, 0.25, 1.0);
    target.gl->Clear(kColorAndDepth);
    target.gl->UpdateBitmap(21, 10);
    // Blue, green, red; a fourth byte says opaque.
    std::vector<unsigned char> expected{64, 128, 255};
    if (bits == 32) expected.push_back(255);
    EXPECT_EQ(PixelAt(*target.dib, 0, 0), expected);
    EXPECT_EQ(PixelAt(*target.dib, 20, 9), expected);
  }
}

TEST(OpenGL, StoresIndicesInAn8BitBitmap) {
  Offscreen target(13, 7, 8);
  target.gl->SetClearColor(1.0, 0.5, 0.25, 1.0);
  target.gl->Clear(kColorAndDepth);
  target.gl->UpdateBitmap(13, 7);
  // 255 >> 5 = 7, (128 >> 5) << 3 = 32, (64 >> 6) << 6 = 64.
  const std::vector<unsigned char> expected{7 + 32 + 64};
  EXPECT_EQ(PixelAt(*target.dib, 0, 0), expected);
  EXPECT_EQ(PixelAt(*target.dib, 12, 6), expected);
}

TEST(OpenGL, BringsOnlyTheDrawnRectangle) {
  Offscreen target(8, 8);
  target.gl->SetClearColor(1.0, 1.0, 1.0, 1.0);
  target.gl->Clear(kColorAndDepth);
  target.gl->UpdateBitmap(3, 2);
  const std::vector<unsigned char> white{255, 255, 255, 255};
  const std::vector<unsigned char> untouched{0, 0, 0, 0};
  EXPECT_EQ(PixelAt(*target.dib, 2, 1), white);
  EXPECT_EQ(PixelAt(*target.dib, 3, 1), untouched);
  EXPECT_EQ(PixelAt(*target.dib, 2, 2), untouched);
  target.gl->UpdateBitmap(-1, 5);
  target.gl->UpdateBitmap(100, 100);
  EXPECT_EQ(PixelAt(*target.dib, 7, 7), white);
}

TEST(OpenGL, ExchangingBuffersShowsThePicture) {
  Offscreen target(8, 8);
  target.gl->SetClearColor(1.0, 1.0, 1.0, 1.0);
  target.gl->Clear(kColorAndDepth);
  target.gl->Flush();
  target.gl->ExchangeBuffers();
  EXPECT_EQ(PixelAt(*target.dib, 7, 7), (std::vector<unsigned char>{255, 255, 255, 255}));
}

TEST(OpenGL, SeveralContextsKeepTheirOwnPictures) {
  Offscreen first(8, 8);
  first.gl->SetClearColor(1.0, 0.0, 0.0, 1.0);
  Offscreen second(8, 8);
  second.gl->SetClearColor(0.0, 0.0, 1.0, 1.0);
  first.gl->MakeCurrent();
  first.gl->Clear(kColorAndDepth);
  first.gl->UpdateBitmap(8, 8);
  second.gl->MakeCurrent();
  second.gl->Clear(kColorAndDepth);
  second.gl->UpdateBitmap(8, 8);
  EXPECT_EQ(PixelAt(*first.dib, 4, 4), (std::vector<unsigned char>{0, 0, 255, 255}));
  EXPECT_EQ(PixelAt(*second.dib, 4, 4), (std::vector<unsigned char>{255, 0, 0, 255}));
}

TEST(OpenGL, DrawsNothingAfterClose) {
  Offscreen target(8, 8);
  target.gl->Close();
  EXPECT_EQ(glGetString(GL_VERSION), nullptr);  // no context is current
  target.gl->MakeCurrent();
  EXPECT_EQ(glGetString(GL_VERSION), nullptr);
  target.gl->DrawCube(1.0, {1, 0, 0, 1}, {0, 0, 0, 1});
  target.gl->UpdateBitmap(8, 8);
  EXPECT_EQ(PixelAt(*target.dib, 4, 4), (std::vector<unsigned char>{0, 0, 0, 0}));
  target.gl->Close();
}

TEST(OpenGL, CanBeLeft) {
  Offscreen target(8, 8);
  EXPECT_NE(glGetString(GL_VERSION), nullptr);
  target.gl->MakeNonCurrent();
  EXPECT_EQ(glGetString(GL_VERSION), nullptr);
  target.gl->MakeCurrent();
  EXPECT_NE(glGetString(GL_VERSION), nullptr);
}

TEST(OpenGL, StartsWithOneFont) {
  Offscreen target;
  ASSERT_NE(target.gl->GetFont(), nullptr);
  EXPECT_EQ(target.gl->GetCurrentFont(), 0);
  EXPECT_EQ(target.gl->GetFont()->GetListBase(), 1000);
  EXPECT_EQ(target.gl->NewFont3D(), 2);
  EXPECT_EQ(target.gl->GetCurrentFont(), 1);
  EXPECT_EQ(target.gl->GetFont()->GetListBase(), 1256);
  EXPECT_EQ(target.gl->NewFont3D(), 3);
  EXPECT_EQ(target.gl->GetFont()->GetListBase(), 1512);
}

TEST(OpenGL, ForwardsToTheCurrentFont) {
  Offscreen target;
  target.gl->NewFont3D();
  target.gl->SetFontScaleFactor(0.7);
  EXPECT_EQ(target.gl->GetFontScaleFactor(), 0.7);
  target.gl->SetCurrentFont(0);
  EXPECT_EQ(target.gl->GetFontScaleFactor(), 0.05);
  target.gl->RegisterFont("Arial", 0.2, 400, 1, 1, 99);
  EXPECT_EQ(target.gl->GetFont()->GetNumFontChars(), 99);
  target.gl->RegisterFont("Arial", 0.2, 400, 1, 60);  // without underline
  EXPECT_EQ(target.gl->GetFont()->GetNumFontChars(), 60);
  for (const int index : {-1, 2, 1000000}) {
    target.gl->SetCurrentFont(index);
    EXPECT_EQ(target.gl->GetFont(), nullptr);
    EXPECT_EQ(target.gl->GetFontScaleFactor(), 0.0);
    target.gl->SetFontScaleFactor(1.0);
    EXPECT_EQ(target.gl->RegisterFont("Arial", 0.2, 400, 1, 1, 99), 0);
  }
}

TEST(OpenGL, TurnsScalesAndMovesTheMatrix) {
  Offscreen target;
  std::array<double, 16> matrix{};
  target.gl->LoadIdentity();
  target.gl->Translate3D(1.0, 2.0, 3.0);
  target.gl->Scale3D(4.0, 5.0, 6.0);
  target.gl->ReadModelViewMatrix(matrix.data());
  EXPECT_EQ(matrix, (std::array<double, 16>{4, 0, 0, 0, 0, 5, 0, 0, 0, 0, 6, 0, 1, 2, 3, 1}));
  target.gl->Rotate3D(45.0, 3);  // no such axis
  target.gl->Rotate3D(45.0, -1);
  std::array<double, 16> same{};
  target.gl->ReadModelViewMatrix(same.data());
  EXPECT_EQ(same, matrix);
  target.gl->PushMatrix();
  target.gl->LoadIdentity();
  target.gl->Rotate3D(90.0, 2);  // x becomes y
  target.gl->ReadModelViewMatrix(same.data());
  EXPECT_NEAR(same[0], 0.0, 1e-6);
  EXPECT_NEAR(same[1], 1.0, 1e-6);
  target.gl->LoadIdentity();
  target.gl->Rotate3D(90.0, 0);  // y becomes z
  target.gl->ReadModelViewMatrix(same.data());
  EXPECT_NEAR(same[6], 1.0, 1e-6);
  target.gl->LoadIdentity();
  target.gl->Rotate3D(90.0, 1);  // z becomes x
  target.gl->ReadModelViewMatrix(same.data());
  EXPECT_NEAR(same[8], 1.0, 1e-6);
  target.gl->PopMatrix();
  target.gl->ReadModelViewMatrix(same.data());
  EXPECT_EQ(same, matrix);
  target.gl->LoadMatrixTransform(nullptr);
  target.gl->ReadModelViewMatrix(nullptr);
  target.gl->ReadModelViewMatrix(same.data());
  EXPECT_EQ(same, matrix);
}

}  // namespace
