#include "orvalix/host/dc.h"

#include <cstdlib>
#include <utility>

#include "orvalix/host/bitmap.h"
#include "orvalix/host/device_context_internal.h"
#include "orvalix/host/dib_internal.h"
#include "orvalix/host/gdi.h"
#include "orvalix/host/palette.h"
#include "orvalix/host/pixel_rows_internal.h"
#include "orvalix/host/transfer_internal.h"

using orvalix::DeviceContext;

namespace {

/// What a memory device context answers that is compatible with nothing.
constexpr orvalix::DeviceCaps kNoDeviceCaps = {1024, 768, 32, orvalix::kDefaultPixelsPerInch,
                                               orvalix::kDefaultPixelsPerInch};
constexpr int kPlanes = 1;

orvalix::DeviceCaps AskCaps(const CDC& dc) {
  return {dc.GetDeviceCaps(HORZRES), dc.GetDeviceCaps(VERTRES),
          dc.GetDeviceCaps(BITSPIXEL) * dc.GetDeviceCaps(PLANES), dc.GetDeviceCaps(LOGPIXELSX),
          dc.GetDeviceCaps(LOGPIXELSY)};
}

bool HasMemory(const DeviceContext* context) {
  return context != nullptr && context->GetType() != DeviceContext::Type::kHost;
}

COLORREF ToColorRef(const RGBQUAD& color) {
  return RGB(color.rgbRed, color.rgbGreen, color.rgbBlue);
}

}  // namespace

CDC::CDC() = default;

CDC::~CDC() = default;

HDC CDC::GetSafeHdc() const { return m_hDC; }

CDC* CDC::FromHandle(HDC dc) {
  const auto* context = orvalix::Find<DeviceContext>(dc);
  return context != nullptr ? context->Owner() : nullptr;
}

BOOL CDC::Adopt(std::unique_ptr<DeviceContext> context) {
  if (!context || m_context) return FALSE;
  m_context = std::move(context);
  m_context->SetOwner(this);
  m_hDC = m_context->Handle();
  return TRUE;
}

BOOL CDC::CreateCompatibleDC(CDC* dc) {
  if (m_context) return FALSE;
  if (dc == nullptr) {
    return Adopt(DeviceContext::CreateMemory(kNoDeviceCaps, orvalix::SystemColorTable()));
  }
  if (!dc->m_context) return FALSE;
  return Adopt(DeviceContext::CreateMemory(AskCaps(*dc), dc->m_context->BitmapColors()));
}

BOOL CDC::CreateOnPixels(void* bgra, int width, int height, int strideBytes) {
  constexpr int kPixelBytes = 4;
  if (bgra == nullptr || width < 1 || height < 1 || m_context) return FALSE;
  const std::int64_t rowBytes = std::int64_t{width} * kPixelBytes;
  if (height > 1 && std::abs(std::int64_t{strideBytes}) < rowBytes) return FALSE;
  orvalix::Surface surface;
  surface.top = static_cast<std::uint8_t*>(bgra);
  surface.stride = strideBytes;
  surface.width = width;
  surface.height = height;
  surface.bitsPerPixel = kPixelBytes * 8;
  return Adopt(DeviceContext::Create(DeviceContext::Type::kPixels, surface));
}

BOOL CDC::CreateHostDC() {
  return m_context ? FALSE : Adopt(DeviceContext::Create(DeviceContext::Type::kHost, {}));
}

BOOL CDC::DeleteDC() {
  if (!m_context || m_context->GetType() == DeviceContext::Type::kWindow) return FALSE;
  m_context.reset();
  m_hDC = nullptr;
  return TRUE;
}

CBitmap* CDC::SelectObject(CBitmap* bitmap) {
  if (bitmap == nullptr) return nullptr;
  return CBitmap::FromHandle(static_cast<HBITMAP>(::SelectObject(m_hDC, bitmap->m_hObject)));
}

CPalette* CDC::SelectPalette(CPalette* palette, BOOL forceBackground) {
  if (palette == nullptr) return nullptr;
  return CPalette::FromHandle(
      ::SelectPalette(m_hDC, static_cast<HPALETTE>(palette->m_hObject), forceBackground));
}

UINT CDC::RealizePalette() { return ::RealizePalette(m_hDC); }

int CDC::GetDeviceCaps(int index) const {
  if (!m_context) return 0;
  const orvalix::DeviceCaps& caps = m_context->Caps();
  switch (index) {
    case HORZRES:
      return caps.width;
    case VERTRES:
      return caps.height;
    case BITSPIXEL:
      return caps.bitsPerPixel;
    case PLANES:
      return kPlanes;
    case LOGPIXELSX:
      return caps.pixelsPerInchX;
    case LOGPIXELSY:
      return caps.pixelsPerInchY;
    default:
      return 0;
  }
}

BOOL CDC::BitBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY,
                 DWORD operation) {
  if (!m_context || source == nullptr || !HasMemory(source->m_context.get())) return FALSE;
  if (operation != SRCCOPY || width < 0 || height < 0) return FALSE;
  return orvalix::CopyToDevice(*this, x, y, source->m_context->GetSurface(),
                               {sourceX, sourceY, width, height})
             ? TRUE
             : FALSE;
}

BOOL CDC::StretchBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY,
                     int sourceWidth, int sourceHeight, DWORD operation) {
  if (!m_context || source == nullptr || !HasMemory(source->m_context.get())) return FALSE;
  if (operation != SRCCOPY) return FALSE;
  return orvalix::StretchToDevice(
             *this, source->m_context->GetSurface(),
             orvalix::StretchAxis::FromExtents(x, width, sourceX, sourceWidth),
             orvalix::StretchAxis::FromExtents(y, height, sourceY, sourceHeight))
             ? TRUE
             : FALSE;
}

int CDC::StretchDIBits(int x, int y, int width, int height, int sourceX, int sourceY,
                       int sourceWidth, int sourceHeight, const void* bits, const BITMAPINFO* info,
                       UINT usage, DWORD operation) {
  const auto format = orvalix::ReadDibFormat(info, usage);
  if (!format || operation != SRCCOPY) return 0;
  const auto dib = orvalix::DibSource::Create(*format, *info, bits, format->height);
  if (!dib) return 0;
  auto down = orvalix::StretchAxis::FromExtents(y, height, sourceY, sourceHeight);
  if (format->order == orvalix::RowOrder::kBottomFirst) {
    down.from = format->height - down.from - down.fromCount;
  }
  const bool done = orvalix::StretchToDevice(
      *this, dib->GetSurface(), orvalix::StretchAxis::FromExtents(x, width, sourceX, sourceWidth),
      down);
  return done ? static_cast<int>(format->height) : 0;
}

BOOL CDC::PutImage(const RECT&, const void*, int, int, int) { return FALSE; }

COLORREF CDC::GetPixel(int x, int y) const {
  if (!HasMemory(m_context.get())) return CLR_INVALID;
  const orvalix::Surface& surface = m_context->GetSurface();
  return surface.Contains(x, y) ? ToColorRef(orvalix::ReadPixel(surface, x, y)) : CLR_INVALID;
}

COLORREF CDC::SetPixel(int x, int y, COLORREF color) {
  if (!HasMemory(m_context.get())) return CLR_INVALID;
  const orvalix::Surface& surface = m_context->GetSurface();
  if (!surface.Contains(x, y)) return CLR_INVALID;
  orvalix::WritePixel(surface, x, y, {GetBValue(color), GetGValue(color), GetRValue(color), 0});
  return ToColorRef(orvalix::ReadPixel(surface, x, y));
}

int CDC::SetStretchBltMode(int mode) {
  if (!m_context || mode < BLACKONWHITE || mode > HALFTONE) return 0;
  const int previous = m_context->StretchMode();
  m_context->SetStretchMode(mode);
  return previous;
}
