#include "orvalix/host/gdi_handle_internal.h"

#include "orvalix/host/palette.h"
#include "orvalix/host/system_colors_internal.h"

namespace orvalix {

GdiHandle::~GdiHandle() {
  if (m_owner != nullptr) m_owner->m_hObject = nullptr;
  // The stand-in owns nothing, so its destructor must find nothing.
  if (m_standIn) m_standIn->m_hObject = nullptr;
}

void GdiHandle::Release() {
  --m_selections;
  if (m_isGivenUp && m_selections == 0) delete this;
}

BOOL GdiHandle::Delete() {
  if (m_isStock) return TRUE;
  if (IsSelected()) return FALSE;
  delete this;
  return TRUE;
}

void GdiHandle::GiveUp() {
  m_owner = nullptr;
  if (IsSelected()) {
    m_isGivenUp = !m_isStock;
  } else {
    Delete();
  }
}

BitmapHandle::BitmapHandle(std::unique_ptr<PixelMemory> pixels, bool isSection)
    : GdiHandle(kKind), m_pixels(std::move(pixels)), m_isSection(isSection) {}

BitmapHandle* BitmapHandle::Create(std::unique_ptr<PixelMemory> pixels, bool isSection) {
  if (!pixels) return nullptr;
  try {
    return new BitmapHandle(std::move(pixels), isSection);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

BitmapHandle* BitmapHandle::Create(int width, int height, int bitsPerPixel,
                                   const ColorTable& colors) {
  constexpr int kRowAlignment = 2;
  if (width < 1 || height < 1) return nullptr;
  auto pixels =
      PixelMemory::Create(width, height, bitsPerPixel, RowOrder::kTopFirst, kRowAlignment);
  if (pixels) pixels->Colors() = colors;
  return Create(std::move(pixels), false);
}

PaletteHandle::PaletteHandle(std::vector<PALETTEENTRY> entries)
    : GdiHandle(kKind), m_entries(std::move(entries)) {}

PaletteHandle* PaletteHandle::Create(const PALETTEENTRY* entries, std::size_t count) {
  if (count == 0) return nullptr;
  try {
    return new PaletteHandle(std::vector<PALETTEENTRY>(entries, entries + count));
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

PaletteHandle* PaletteHandle::MakeStock() {
  PaletteHandle* const made = Create(kSystemColors.data(), kSystemColors.size());
  if (made == nullptr) throw std::bad_alloc();
  made->SetStock(true);
  // Made now, since several threads may ask for it later.
  made->OwnerOrStandIn<CPalette>();
  return made;
}

PaletteHandle* PaletteHandle::Stock() {
  // Never destroyed: device contexts with static storage may outlive every static object. Made anew
  // while memory is short, kept from the first success on.
  try {
    static PaletteHandle* const stock = MakeStock();
    return stock;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

GdiHandle* FindGdiHandle(HGDIOBJ object) noexcept {
  if (auto* bitmap = Find<BitmapHandle>(object)) return bitmap;
  return Find<PaletteHandle>(object);
}

}  // namespace orvalix
