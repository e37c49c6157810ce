#include <EGL/egl.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <latch>
#include <thread>
#include <vector>

#include "orvalix/render/gl_api_internal.h"
#include "support/caught_error.h"
#include "support/offscreen.h"

namespace {

using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::Offscreen;
using Pixel = std::vector<unsigned char>;

constexpr int kColorAndDepth = 0x4100;

// As they stand in the bitmap: blue, green, red and a fourth byte that says opaque.
const Pixel kRed{0, 0, 255, 255};
const Pixel kBlue{255, 0, 0, 255};
const Pixel kBlack{0, 0, 0, 255};
const Pixel kUntouched{0, 0, 0, 0};

/// The pixel in the middle of a bitmap of 8 x 8 pixels and 32 bits.
Pixel MiddleOf(const Offscreen& target) {
  const auto* row = static_cast<const unsigned char*>(target.dib->FindDIBBits()) +
                    std::ptrdiff_t{4} * target.dib->StorageWidth();
  return {row + 16, row + 20};
}

void Paint(COpenGL& gl, double red, double green, double blue) {
  gl.SetClearColor(red, green, blue, 1.0);
  gl.Clear(kColorAndDepth);
}

bool IsAnyCurrent() { return glGetString(GL_VERSION) != nullptr; }

TEST(Context, StartsWithABlackPictureWithoutDepth) {
  {
    Offscreen before(8, 8);
    before.gl->SetClearColor(1.0, 0.0, 0.0, 1.0);
    glClearDepth(0.0);
    before.gl->Clear(kColorAndDepth);
    before.gl->UpdateBitmap(8, 8);
    EXPECT_EQ(MiddleOf(before), kRed);
  }
  Offscreen target(8, 8);
  target.gl->UpdateBitmap(8, 8);
  EXPECT_EQ(MiddleOf(target), kBlack);
  // Nothing is nearer than the farthest yet.
  target.gl->LoadIdentity();
  target.gl->Translate3D(0.0, 0.0, 0.999);
  target.gl->DrawSimpleZPlane(2.0, 2.0, 0.0, {1, 0, 0, 1}, {1, 0, 0, 1});
  target.gl->UpdateBitmap(8, 8);
  EXPECT_EQ(MiddleOf(target), kRed);
}

TEST(Context, StaysWhenItsPixelFormatIsSetAgain) {
  Offscreen target(8, 8);
  Paint(*target.gl, 1.0, 0.0, 0.0);
  EXPECT_NE(target.gl->bSetupPixelFormat(), 0);
  EXPECT_TRUE(IsAnyCurrent());
  target.gl->UpdateBitmap(8, 8);
  EXPECT_EQ(MiddleOf(target), kRed);
}

TEST(Context, IsReplacedByInitContext) {
  Offscreen target(8, 8);
  Paint(*target.gl, 1.0, 0.0, 0.0);
  target.gl->StartLineAbs3D({0, 0, 0, 0});
  target.gl->InitContext();
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  target.gl->EndLineAbs3D({0, 0, 0, 0});  // the line went with the old context
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  target.gl->UpdateBitmap(8, 8);
  EXPECT_EQ(MiddleOf(target), kBlack);
  Paint(*target.gl, 0.0, 0.0, 1.0);
  target.gl->UpdateBitmap(8, 8);
  EXPECT_EQ(MiddleOf(target), kBlue);
}

TEST(Context, ClosingItAgainLeavesTheOneThatIsCurrent) {
  Offscreen first(8, 8);
  Offscreen second(8, 8);
  first.gl->Close();
  EXPECT_FALSE(IsAnyCurrent());
  second.gl->MakeCurrent();
  first.gl->Close();
  EXPECT_TRUE(IsAnyCurrent());
  first.gl.reset();
  EXPECT_TRUE(IsAnyCurrent());
}

TEST(Context, BringsItsOwnPictureWhicheverIsCurrent) {
  Offscreen first(8, 8);
  Paint(*first.gl, 1.0, 0.0, 0.0);
  Offscreen second(8, 8);
  Paint(*second.gl, 0.0, 0.0, 1.0);
  first.gl->UpdateBitmap(8, 8);
  EXPECT_EQ(MiddleOf(first), kRed);
  second.gl->ExchangeBuffers();
  EXPECT_EQ(MiddleOf(second), kBlue);
}

TEST(Context, BringsNothingAfterItWasClosed) {
  Offscreen first(8, 8);
  Offscreen second(8, 8);
  first.gl->Close();
  second.gl->MakeCurrent();
  Paint(*second.gl, 0.0, 0.0, 1.0);
  first.gl->UpdateBitmap(8, 8);
  EXPECT_EQ(MiddleOf(first), kUntouched);
  EXPECT_TRUE(IsAnyCurrent());
}

TEST(Context, BringsNothingIntoADeletedBitmap) {
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(8, 8));
  CDC memory;
  ASSERT_TRUE(memory.CreateCompatibleDC(window.GetDC()));
  CDIBSection dib(window.GetDC(), &memory, 8, 8, 32);  // in no device context
  COpenGL gl(window.GetDC(), &dib);
  ASSERT_NE(dib.FindDIBBits(), nullptr);
  ASSERT_TRUE(DeleteObject(dib.GetBitmapHandle()));
  EXPECT_EQ(dib.FindDIBBits(), nullptr);
  Paint(gl, 1.0, 0.0, 0.0);
  gl.UpdateBitmap(8, 8);
  gl.ExchangeBuffers();
  EXPECT_EQ(gl.bSetupPixelFormat(), 0);
  EXPECT_EQ(Catch([&] { gl.InitContext(); }), (CaughtError{18, 17, "InitContext"}));
}

TEST(Context, DrawsNowhereWhileAnotherThreadHasIt) {
  Offscreen first(8, 8);
  first.gl->MakeNonCurrent();
  Offscreen second(8, 8);
  Paint(*second.gl, 0.0, 0.0, 1.0);
  std::latch taken(1);
  std::latch drawn(1);
  std::thread other([&] {
    first.gl->MakeCurrent();
    taken.count_down();
    drawn.wait();
    first.gl->MakeNonCurrent();
  });
  taken.wait();
  first.gl->MakeCurrent();
  EXPECT_FALSE(IsAnyCurrent());
  Paint(*first.gl, 1.0, 0.0, 0.0);
  first.gl->UpdateBitmap(8, 8);
  drawn.count_down();
  other.join();
  EXPECT_EQ(MiddleOf(first), kUntouched);
  second.gl->MakeCurrent();
  second.gl->UpdateBitmap(8, 8);
  EXPECT_EQ(MiddleOf(second), kBlue);
}

/// Runs in a process of its own and leaves it at once: terminating a display unloads its driver,
/// whose memory the leak sanitizer can then no longer tell from ours.
[[noreturn]] void DrawAfterTheDisplayWasTerminated() {
  EGLDisplay display = EGL_NO_DISPLAY;
  {
    const Offscreen before(8, 8);
    display = eglGetCurrentDisplay();
  }
  if (display == EGL_NO_DISPLAY || eglTerminate(display) != EGL_TRUE) std::_Exit(2);
  Offscreen target(8, 8);
  Paint(*target.gl, 1.0, 0.0, 0.0);
  target.gl->UpdateBitmap(8, 8);
  std::_Exit(MiddleOf(target) == kRed ? 0 : 1);
}

TEST(ContextDeathTest, IsMadeAgainOnADisplayThatTheHostTerminated) {
  ::testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(DrawAfterTheDisplayWasTerminated(), ::testing::ExitedWithCode(0), "");
}

// Programs may number their textures themselves, from 1 on.
TEST(Context, LeavesTheNumbersOfTexturesToItsProgram) {
  Offscreen target(8, 8);
  for (GLuint name = 1; name < 100; ++name) EXPECT_EQ(glIsTexture(name), GL_FALSE) << name;
  constexpr std::array<unsigned char, 4> kTexel{};
  for (GLuint name = 1; name < 10; ++name) {
    glBindTexture(GL_TEXTURE_2D, name);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, kTexel.data());
  }
  Paint(*target.gl, 1, 0, 0);
  target.gl->UpdateBitmap(8, 8);
  EXPECT_EQ(MiddleOf(target), kRed);
}

}  // namespace
