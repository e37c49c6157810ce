/// What cold_start_chart is held against: the start of an empty program that makes an OpenGL
/// context through EGL, clears 640 x 480 pixels and reads them back.

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>

#include <array>
#include <vector>

namespace {

constexpr int kWidth = 640;
constexpr int kHeight = 480;

EGLDisplay OpenDisplay() {
  const auto getPlatformDisplay = reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(
      eglGetProcAddress("eglGetPlatformDisplayEXT"));
  if (getPlatformDisplay == nullptr) return eglGetDisplay(EGL_DEFAULT_DISPLAY);
  return getPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
}

}  // namespace

int main() {
  const EGLDisplay display = OpenDisplay();
  if (eglInitialize(display, nullptr, nullptr) == EGL_FALSE) return 1;
  constexpr std::array<EGLint, 5> kWanted{EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_RENDERABLE_TYPE,
                                          EGL_OPENGL_BIT, EGL_NONE};
  EGLConfig config = nullptr;
  EGLint configs = 0;
  eglChooseConfig(display, kWanted.data(), &config, 1, &configs);
  constexpr std::array<EGLint, 5> kSize{EGL_WIDTH, kWidth, EGL_HEIGHT, kHeight, EGL_NONE};
  const EGLSurface surface = eglCreatePbufferSurface(display, config, kSize.data());
  eglBindAPI(EGL_OPENGL_API);
  const EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
  if (eglMakeCurrent(display, surface, surface, context) == EGL_FALSE) return 1;
  glClearColor(1.0F, 1.0F, 1.0F, 1.0F);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  std::vector<unsigned char> pixels(std::size_t{4} * kWidth * kHeight);
  glReadPixels(0, 0, kWidth, kHeight, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
  eglTerminate(display);
  return pixels[0] == 255 ? 0 : 1;
}
