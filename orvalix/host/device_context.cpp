#include "orvalix/host/device_context_internal.h"

#include <new>

namespace orvalix {
namespace {

DeviceCaps CapsOf(const Surface& surface) {
  return {surface.width, surface.height, surface.bitsPerPixel, kDefaultPixelsPerInch,
          kDefaultPixelsPerInch};
}

// Stock palettes are shared by all threads; nothing counts who selected them.
void Release(PaletteHandle* palette) {
  if (!palette->IsStock()) palette->Release();
}

}  // namespace

DeviceContext::DeviceContext(Type type, const DeviceCaps& caps)
    : HandleOwner(kKind),
      m_type(type),
      m_caps(caps),
      m_colors(SystemColorTable()),
      m_palette(PaletteHandle::Stock()) {
  if (m_palette == nullptr) throw std::bad_alloc();
}

std::unique_ptr<DeviceContext> DeviceContext::CreateMemory(const DeviceCaps& caps,
                                                           const ColorTable& colors) {
  constexpr int kFallbackDepth = 32;
  auto context = Create(Type::kMemory, {});
  if (!context) return nullptr;
  context->m_caps = caps;
  context->m_colors = colors;
  const int depth = PixelMemory::IsDepth(caps.bitsPerPixel) ? caps.bitsPerPixel : kFallbackDepth;
  context->m_stockBitmap = BitmapHandle::Create(1, 1, depth, colors);
  if (context->m_stockBitmap == nullptr) return nullptr;
  context->m_stockBitmap->SetStock(true);
  context->m_bitmap = context->m_stockBitmap;
  context->m_bitmap->Select();
  return context;
}

std::unique_ptr<DeviceContext> DeviceContext::Create(Type type, const Surface& surface) {
  try {
    std::unique_ptr<DeviceContext> context(new DeviceContext(type, CapsOf(surface)));
    context->m_surface = surface;
    return context;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

DeviceContext::~DeviceContext() {
  if (m_bitmap != nullptr) m_bitmap->Release();
  if (m_stockBitmap != nullptr) {
    m_stockBitmap->SetStock(false);
    m_stockBitmap->GiveUp();
  }
  Release(m_palette);
}

HDC DeviceContext::Handle() const { return static_cast<HDC>(RawHandle()); }

const Surface& DeviceContext::GetSurface() const {
  return m_bitmap != nullptr ? m_bitmap->GetSurface() : m_surface;
}

void DeviceContext::SetSurface(const Surface& surface) {
  m_surface = surface;
  m_caps = CapsOf(surface);
}

const ColorTable& DeviceContext::BitmapColors() const {
  const ColorTable* colors = m_bitmap == m_stockBitmap ? nullptr : m_bitmap->GetSurface().colors;
  if (m_bitmap == nullptr) colors = m_surface.colors;
  return colors != nullptr ? *colors : m_colors;
}

int DeviceContext::BitmapDepth() const { return GetSurface().bitsPerPixel; }

HGDIOBJ DeviceContext::SelectBitmap(BitmapHandle* bitmap) {
  if (m_bitmap == nullptr || bitmap == nullptr) return nullptr;
  if (bitmap == m_bitmap) return bitmap->Handle();
  if (bitmap->IsSelected()) return nullptr;
  const HGDIOBJ previous = m_bitmap->Handle();
  BitmapHandle* const released = m_bitmap;
  m_bitmap = bitmap;
  m_bitmap->Select();
  released->Release();
  return previous;
}

HGDIOBJ DeviceContext::SelectPalette(PaletteHandle* palette) {
  if (palette == nullptr) return nullptr;
  const HGDIOBJ previous = m_palette->Handle();
  PaletteHandle* const released = m_palette;
  m_palette = palette;
  if (!palette->IsStock()) palette->Select();
  Release(released);
  return previous;
}

}  // namespace orvalix
