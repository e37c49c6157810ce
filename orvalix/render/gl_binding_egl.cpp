/// OpenGL on Linux: an EGL context without any surface draws into a framebuffer object of the
/// bitmap's size, whose pixels are read back at the end of a frame. No display is needed.

#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "orvalix/host/pixel_rows_internal.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/gl_binding_internal.h"
#include "orvalix/render/pixel_format_internal.h"

namespace orvalix {
namespace {

constexpr EGLint kMaxDevices = 32;

bool HasExtension(const char* extensions, const char* name) {
  if (extensions == nullptr) return false;
  const std::size_t length = std::strlen(name);
  for (const char* at = std::strstr(extensions, name); at != nullptr;
       at = std::strstr(at + length, name)) {
    const bool starts = at == extensions || at[-1] == ' ';
    if (starts && (at[length] == ' ' || at[length] == '\0')) return true;
  }
  return false;
}

/// An EGL display on which desktop OpenGL can be drawn without a surface.
struct Display {
  EGLDisplay display = EGL_NO_DISPLAY;
  EGLConfig config = nullptr;
};

EGLContext CreateCompatibilityContext(const Display& display) {
  constexpr std::array<EGLint, 3> kAttributes{
      EGL_CONTEXT_OPENGL_PROFILE_MASK, EGL_CONTEXT_OPENGL_COMPATIBILITY_PROFILE_BIT, EGL_NONE};
  if (eglBindAPI(EGL_OPENGL_API) != EGL_TRUE) return EGL_NO_CONTEXT;
  return eglCreateContext(display.display, display.config, EGL_NO_CONTEXT, kAttributes.data());
}

/// Fills `candidate.config` in; true when a context can really be had on that display.
bool CanDraw(Display& candidate) {
  if (candidate.display == EGL_NO_DISPLAY) return false;
  if (eglInitialize(candidate.display, nullptr, nullptr) != EGL_TRUE) return false;
  if (!HasExtension(eglQueryString(candidate.display, EGL_EXTENSIONS),
                    "EGL_KHR_surfaceless_context")) {
    return false;
  }
  constexpr std::array<EGLint, 5> kConfig{EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_RENDERABLE_TYPE,
                                          EGL_OPENGL_BIT, EGL_NONE};
  EGLint count = 0;
  if (eglChooseConfig(candidate.display, kConfig.data(), &candidate.config, 1, &count) !=
          EGL_TRUE ||
      count < 1) {
    return false;
  }
  const EGLContext probe = CreateCompatibilityContext(candidate);
  if (probe == EGL_NO_CONTEXT) return false;
  eglDestroyContext(candidate.display, probe);
  return true;
}

/// The devices of this machine that aren't software rasterisers.
std::vector<EGLDeviceEXT> HardwareDevices() {
  const auto queryDevices =
      reinterpret_cast<PFNEGLQUERYDEVICESEXTPROC>(eglGetProcAddress("eglQueryDevicesEXT"));
  const auto queryString = reinterpret_cast<PFNEGLQUERYDEVICESTRINGEXTPROC>(
      eglGetProcAddress("eglQueryDeviceStringEXT"));
  if (queryDevices == nullptr || queryString == nullptr) return {};
  std::vector<EGLDeviceEXT> devices(kMaxDevices);
  EGLint count = 0;
  if (queryDevices(kMaxDevices, devices.data(), &count) != EGL_TRUE) return {};
  devices.resize(static_cast<std::size_t>(std::clamp(count, 0, kMaxDevices)));
  std::erase_if(devices, [&](EGLDeviceEXT device) {
    return HasExtension(queryString(device, EGL_EXTENSIONS), "EGL_MESA_device_software");
  });
  return devices;
}

Display FindDisplay() {
  const char* client = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
  const auto getPlatformDisplay = reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(
      eglGetProcAddress("eglGetPlatformDisplayEXT"));
  if (getPlatformDisplay != nullptr) {
    if (HasExtension(client, "EGL_EXT_platform_device")) {
      for (EGLDeviceEXT device : HardwareDevices()) {
        Display candidate{getPlatformDisplay(EGL_PLATFORM_DEVICE_EXT, device, nullptr)};
        if (CanDraw(candidate)) return candidate;
      }
    }
    if (HasExtension(client, "EGL_MESA_platform_surfaceless")) {
      Display candidate{
          getPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr)};
      if (CanDraw(candidate)) return candidate;
    }
  }
  Display candidate{eglGetDisplay(EGL_DEFAULT_DISPLAY)};
  return CanDraw(candidate) ? candidate : Display{};
}

enum class Lookup {
  kOnce,  ///< until one is found
  kAgain  ///< even if one was found before
};

/// The display that every context of the process shares. It is never closed: the host may be using
/// the same one.
const Display& SharedDisplay(Lookup lookup = Lookup::kOnce) {
  static Display display;
  if (lookup == Lookup::kAgain || display.display == EGL_NO_DISPLAY) display = FindDisplay();
  return display;
}

/// The 3-3-2 index of a colour: red in the lowest three bits.
unsigned char PackIndex(const unsigned char* rgb) {
  return static_cast<unsigned char>((rgb[0] >> 5) | ((rgb[1] >> 5) << 3) | (rgb[2] & 0xC0));
}

/// Gives the framebuffer a texture to draw in.
void AttachColors(GLsizei width, GLsizei height) {
  // Programs of old that number their textures themselves won't come upon it.
  constexpr GLuint kTexture = 0x7FFFFFF0;
  glBindTexture(GL_TEXTURE_2D, kTexture);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 0);
  // Where it may choose, OpenGL keeps pixels in the order in which they come: reading them into
  // bitmaps then needs no swapping of red and blue.
  constexpr int kBits = 8;
  for (const GLint format : {GL_RGBA, GL_RGBA8}) {
    glTexImage2D(GL_TEXTURE_2D, 0, format, width, height, 0, GL_BGRA, GL_UNSIGNED_BYTE, nullptr);
    GLint bits = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_RED_SIZE, &bits);
    if (bits == kBits) break;
  }
  glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, kTexture, 0);
  glBindTexture(GL_TEXTURE_2D, 0);
}

}  // namespace

struct GLBinding::Platform {
  BitmapTarget target;
  PIXELFORMATDESCRIPTOR format{};
  Display display;  ///< of the context
  EGLContext context = EGL_NO_CONTEXT;
  std::vector<unsigned char> colors;  ///< the pixels of an 8-bit bitmap before they are indices

  bool CreateFramebuffer() const;
  void ReadIndices(int width, int height);
};

bool GLBinding::Platform::CreateFramebuffer() const {
  for (const int limit : {GL_MAX_TEXTURE_SIZE, GL_MAX_RENDERBUFFER_SIZE}) {
    GLint largest = 0;
    glGetIntegerv(static_cast<GLenum>(limit), &largest);
    if (target.width > largest || target.height > largest) return false;
  }
  // A bitmap without pixels still gets a context; one pixel is the smallest target there is.
  const GLsizei width = std::max(target.width, 1);
  const GLsizei height = std::max(target.height, 1);

  // They live and die with the context.
  GLuint framebuffer = 0;
  GLuint depth = 0;
  glGenFramebuffers(1, &framebuffer);
  glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
  AttachColors(width, height);
  glGenRenderbuffers(1, &depth);
  glBindRenderbuffer(GL_RENDERBUFFER, depth);
  glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH_COMPONENT32, width, height);
  glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, depth);
  if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) return false;
  glViewport(0, 0, width, height);
  glScissor(0, 0, width, height);
  // New buffers hold whatever was in that memory before.
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  return true;
}

void GLBinding::Platform::ReadIndices(int width, int height) {
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, colors.data());
  const unsigned char* in = colors.data();
  for (int y = 0; y < height; ++y) {
    unsigned char* out = target.bits + static_cast<std::ptrdiff_t>(y) * target.stride;
    for (int x = 0; x < width; ++x, in += 3) out[x] = PackIndex(in);
  }
}

GLBinding::GLBinding(const BitmapTarget& target) : m_platform(std::make_unique<Platform>()) {
  m_platform->target = target;
  if (target.bitCount == 8) {
    m_platform->colors.resize(static_cast<std::size_t>(target.width) *
                              static_cast<std::size_t>(target.height) * 3);
  }
}

GLBinding::~GLBinding() { DeleteContext(); }

bool GLBinding::SetPixelFormat(const PIXELFORMATDESCRIPTOR& wanted) {
  const PIXELFORMATDESCRIPTOR format = StoredPixelFormat(wanted.cColorBits);
  if (!IsUsable(format) || wanted.cColorBits != m_platform->target.bitCount) return false;
  if (SharedDisplay().display == EGL_NO_DISPLAY) return false;
  m_platform->format = format;
  return true;
}

const PIXELFORMATDESCRIPTOR& GLBinding::PixelFormat() const { return m_platform->format; }

bool GLBinding::CreateContext() {
  DeleteContext();
  m_platform->display = SharedDisplay();
  m_platform->context = CreateCompatibilityContext(m_platform->display);
  if (!HasContext()) {
    // The host shares the display and may have terminated it since it was found.
    m_platform->display = SharedDisplay(Lookup::kAgain);
    m_platform->context = CreateCompatibilityContext(m_platform->display);
  }
  if (!HasContext()) return false;
  if (MakeCurrent() && m_platform->CreateFramebuffer()) return true;
  DeleteContext();
  return false;
}

bool GLBinding::HasContext() const { return m_platform->context != EGL_NO_CONTEXT; }

bool GLBinding::MakeCurrent() {
  if (m_platform->display.display == EGL_NO_DISPLAY) return false;
  eglBindAPI(EGL_OPENGL_API);
  if (HasContext()) {
    if (eglGetCurrentContext() == m_platform->context) return true;
    if (eglMakeCurrent(m_platform->display.display, EGL_NO_SURFACE, EGL_NO_SURFACE,
                       m_platform->context) == EGL_TRUE) {
      return true;
    }
  }
  // Otherwise what is drawn next would go wherever another context draws.
  MakeNonCurrent();
  return false;
}

bool GLBinding::IsCurrent() const {
  return HasContext() && eglGetCurrentContext() == m_platform->context;
}

void GLBinding::MakeNonCurrent() {
  if (m_platform->display.display == EGL_NO_DISPLAY) return;
  eglBindAPI(EGL_OPENGL_API);
  eglMakeCurrent(m_platform->display.display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
}

void GLBinding::CopyToBitmap(int width, int height) {
  const BitmapTarget& target = m_platform->target;
  width = std::min(width, target.width);
  height = std::min(height, target.height);
  if (width < 1 || height < 1 || target.bits == nullptr) return;
  if (!HasContext() || !MakeCurrent()) return;
  if (target.bitCount == 8) {
    m_platform->ReadIndices(width, height);
    return;
  }
  const int bytesPerPixel = target.bitCount / 8;
  // The rows of a bitmap are padded to 4 bytes, which is OpenGL's own alignment.
  glPixelStorei(GL_PACK_ALIGNMENT, 4);
  glPixelStorei(GL_PACK_ROW_LENGTH, target.width);
  glReadPixels(0, 0, width, height, bytesPerPixel == 4 ? GL_BGRA : GL_BGR, GL_UNSIGNED_BYTE,
               target.bits);
  glPixelStorei(GL_PACK_ROW_LENGTH, 0);
  // What OpenGL has in the fourth byte of pixels of 32 bits is nobody's.
  for (int y = 0; bytesPerPixel == 4 && y < height; ++y) {
    MakeOpaque(target.bits + static_cast<std::ptrdiff_t>(y) * target.stride, width);
  }
}

void GLBinding::DeleteContext() {
  if (!HasContext()) return;
  if (eglGetCurrentContext() == m_platform->context) MakeNonCurrent();
  eglDestroyContext(m_platform->display.display, m_platform->context);
  m_platform->context = EGL_NO_CONTEXT;
}

}  // namespace orvalix
