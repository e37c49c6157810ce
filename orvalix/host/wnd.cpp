#include "orvalix/host/wnd.h"

#include <algorithm>
#include <new>
#include <utility>

#include "orvalix/host/dc.h"
#include "orvalix/host/device_context_internal.h"
#include "orvalix/host/surface_internal.h"

namespace orvalix {

/// The pixels of a window without a display and what waits to be redrawn in it.
class OffscreenWindow {
 public:
  CDC dc;                               ///< over the pixels
  std::unique_ptr<PixelMemory> pixels;  ///< never null once the window is made
  RECT update{};                        ///< empty when nothing waits

  RECT Client() const {
    const Surface& surface = pixels->GetSurface();
    return {0, 0, surface.width, surface.height};
  }
};

namespace {

bool IsEmpty(const RECT& rect) { return rect.left >= rect.right || rect.top >= rect.bottom; }

RECT Intersection(const RECT& a, const RECT& b) {
  const RECT both{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                  std::min(a.bottom, b.bottom)};
  return IsEmpty(both) ? RECT{} : both;
}

RECT Around(const RECT& a, const RECT& b) {
  if (IsEmpty(a)) return b;
  if (IsEmpty(b)) return a;
  return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
          std::max(a.bottom, b.bottom)};
}

bool Covers(const RECT& outer, const RECT& inner) {
  return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
         outer.bottom >= inner.bottom;
}

}  // namespace
}  // namespace orvalix

CWnd::CWnd() = default;

CWnd::~CWnd() = default;

HWND CWnd::GetSafeHwnd() const { return m_hWnd; }

BOOL CWnd::CreateOffscreen(int width, int height, int bitsPerPixel) {
  constexpr int kRowAlignment = 4;
  if (m_hWnd != nullptr && !m_offscreen) return FALSE;
  auto pixels = orvalix::PixelMemory::Create(width, height, bitsPerPixel,
                                             orvalix::RowOrder::kTopFirst, kRowAlignment);
  if (!pixels) return FALSE;
  pixels->Colors() = orvalix::SystemColorTable();

  if (!m_offscreen) {
    using orvalix::DeviceContext;
    std::unique_ptr<orvalix::OffscreenWindow> window(new (std::nothrow) orvalix::OffscreenWindow);
    if (!window) return FALSE;
    if (window->dc.Adopt(DeviceContext::Create(DeviceContext::Type::kWindow, {})) == FALSE) {
      return FALSE;
    }
    m_offscreen = std::move(window);
    m_hWnd = static_cast<HWND>(static_cast<void*>(m_offscreen.get()));
  }
  m_offscreen->dc.m_context->SetSurface(pixels->GetSurface());
  m_offscreen->pixels = std::move(pixels);
  m_offscreen->update = {};
  m_invalidateCount = 0;
  return TRUE;
}

BOOL CWnd::DestroyWindow() {
  if (!m_offscreen) return FALSE;
  m_offscreen.reset();
  m_hWnd = nullptr;
  return TRUE;
}

void CWnd::GetClientRect(RECT* rect) const {
  if (rect != nullptr) *rect = m_offscreen ? m_offscreen->Client() : RECT{};
}

CDC* CWnd::GetDC() { return m_offscreen ? &m_offscreen->dc : nullptr; }

int CWnd::ReleaseDC(CDC* dc) { return m_offscreen && dc == &m_offscreen->dc ? 1 : 0; }

void CWnd::Invalidate(BOOL erase) { InvalidateRect(nullptr, erase); }

void CWnd::InvalidateRect(const RECT* rect, BOOL) {
  ++m_invalidateCount;
  if (!m_offscreen) return;
  const RECT client = m_offscreen->Client();
  const RECT part = rect != nullptr ? orvalix::Intersection(*rect, client) : client;
  m_offscreen->update = orvalix::Around(m_offscreen->update, part);
}

BOOL CWnd::GetUpdateRect(RECT* rect, BOOL) const {
  const RECT update = m_offscreen ? m_offscreen->update : RECT{};
  const bool waits = !orvalix::IsEmpty(update);
  if (rect != nullptr) *rect = waits ? update : RECT{};
  return waits ? TRUE : FALSE;
}

void CWnd::ValidateRect(const RECT* rect) {
  if (!m_offscreen) return;
  if (rect == nullptr || orvalix::Covers(*rect, m_offscreen->update)) m_offscreen->update = {};
}

UINT CWnd::GetInvalidateCount() const { return m_invalidateCount; }
