/// @file
/// The framework's window.
#pragma once

#include <memory>

#include "orvalix/host/export.h"
#include "orvalix/host/host_types.h"

class CDC;

namespace orvalix {
class OffscreenWindow;
}

/// What charts are shown in. This class can be a window without a display, see CreateOffscreen().
///
/// Another toolkit brings its windows by deriving: it sets m_hWnd to a handle of its own and
/// overrides GetClientRect(), GetDC(), ReleaseDC() and InvalidateRect().
class ORVALIX_API CWnd {
 public:
  /// No window yet.
  CWnd();
  /// Destroys an off-screen window; a handle of another toolkit's is left alone.
  virtual ~CWnd();
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;

  /// The handle; null while there is no window.
  HWND GetSafeHwnd() const;

  /// Addition: makes a window without a display, black and with nothing to redraw. Made again, it
  /// starts anew; its handle and its device context stay the same.
  /// @param width, height pixels, 0 or more
  /// @param bitsPerPixel 8, 24 or 32
  /// @return FALSE, with the window as it was, for other values, more than 2^31 - 1 bytes of
  ///   pixels, a window of another toolkit's, or when memory runs out
  BOOL CreateOffscreen(int width, int height, int bitsPerPixel = 32);
  /// Destroys the off-screen window.
  /// @return FALSE when there is none
  virtual BOOL DestroyWindow();

  /// The inside of the window: (0, 0) to its size; all 0 while there is no window. A null pointer
  /// does nothing.
  virtual void GetClientRect(RECT* rect) const;
  /// The window's device context, which belongs to the window; null while there is no window. Each
  /// one got is released once.
  virtual CDC* GetDC();
  /// Releases a device context got from GetDC().
  /// @return 1, or 0 when it isn't this window's
  virtual int ReleaseDC(CDC* dc);

  /// Asks for the whole window to be redrawn: calls InvalidateRect() with null.
  void Invalidate(BOOL erase = TRUE);
  /// Asks for a part of the window to be redrawn; null for the whole. Without a display nobody
  /// redraws: the request shows in GetUpdateRect() and GetInvalidateCount().
  /// @param erase not consulted
  virtual void InvalidateRect(const RECT* rect, BOOL erase = TRUE);
  /// The smallest rectangle around all that waits to be redrawn, all 0 when nothing does.
  /// @param rect receives it; may be null
  /// @return TRUE when something waits
  BOOL GetUpdateRect(RECT* rect, BOOL erase = FALSE) const;
  /// Takes back what waits to be redrawn, when `rect` covers all of it; null for the whole.
  void ValidateRect(const RECT* rect);
  /// Addition: how often InvalidateRect() was called since the off-screen window was made.
  UINT GetInvalidateCount() const;

  HWND m_hWnd = nullptr;  ///< the handle; null while there is no window

 private:
  UINT m_invalidateCount = 0;                             ///< calls of InvalidateRect()
  std::unique_ptr<orvalix::OffscreenWindow> m_offscreen;  ///< null for other toolkits' windows
};
