/// @file
/// A window's device context, borrowed for as long as this object lives.
#pragma once

#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/host/host.h"

namespace orvalix {

class WindowDC {
 public:
  /// @throws CErr3D type 14, class 6, `place` when the window gives no device context
  WindowDC(CWnd& window, const char* place) : m_window(window), m_dc(window.GetDC()) {
    if (m_dc == nullptr) ThrowError(ERR3D_CDC_PARAMETER, ERR3DCLASS_CHARTVIEW3D, place);
  }
  ~WindowDC() { m_window.ReleaseDC(m_dc); }
  WindowDC(const WindowDC&) = delete;
  WindowDC& operator=(const WindowDC&) = delete;

  CDC* Get() const { return m_dc; }
  CDC* operator->() const { return m_dc; }

 private:
  CWnd& m_window;
  CDC* m_dc;
};

}  // namespace orvalix
