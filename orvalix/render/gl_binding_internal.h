/// @file
/// What the rendering context asks of a platform: OpenGL bound to one bitmap. Each platform
/// implements these members, in this order, in one file of its own.
#pragma once

#include <memory>

#include "orvalix/host/host.h"

namespace orvalix {

/// The memory of the bitmap drawn into: `height` rows of `stride` bytes, bottom row first.
struct BitmapTarget {
  int width = 0;
  int height = 0;
  int bitCount = 0;  ///< 8, 24 or 32
  int stride = 0;    ///< bytes from a row to the next
  unsigned char* bits = nullptr;
};

/// An OpenGL context whose pictures end up in a bitmap.
class GLBinding {
 public:
  /// @param target memory drawn into; it must outlive the binding
  explicit GLBinding(const BitmapTarget& target);
  /// Deletes the context.
  ~GLBinding();
  GLBinding(const GLBinding&) = delete;
  GLBinding& operator=(const GLBinding&) = delete;

  /// Looks for OpenGL that can draw in a format like `wanted`.
  /// @return false when there is none
  bool SetPixelFormat(const PIXELFORMATDESCRIPTOR& wanted);
  /// The format in force; unusable before SetPixelFormat() succeeded.
  const PIXELFORMATDESCRIPTOR& PixelFormat() const;
  /// Creates the context, in place of one that is there, and makes it current.
  /// @return false when OpenGL refuses, for example because the bitmap is too large for it
  bool CreateContext();
  /// False before CreateContext() and after DeleteContext().
  bool HasContext() const;
  /// Makes the context current on this thread, or none when it was deleted or can't be current.
  /// @return true when it is current
  bool MakeCurrent();
  /// True while the context is current on this thread.
  bool IsCurrent() const;
  /// Leaves this thread without a current context.
  void MakeNonCurrent();
  /// Waits for the drawing and copies the lower left `width` x `height` pixels, as far as they
  /// exist, into the bitmap's memory. Makes the context current; does nothing without one.
  void CopyToBitmap(int width, int height);
  /// Deletes the context, if there is one.
  void DeleteContext();

 private:
  struct Platform;
  std::unique_ptr<Platform> m_platform;
};

}  // namespace orvalix
