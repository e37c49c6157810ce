#include "orvalix/host/palette.h"

#include "orvalix/host/gdi.h"
#include "orvalix/host/gdi_handle_internal.h"

BOOL CPalette::CreatePalette(const LOGPALETTE* description) {
  return m_hObject == nullptr ? Attach(::CreatePalette(description)) : FALSE;
}

int CPalette::GetEntryCount() const {
  return static_cast<int>(::GetPaletteEntries(*this, 0, 0, nullptr));
}

UINT CPalette::GetPaletteEntries(UINT first, UINT count, PALETTEENTRY* entries) const {
  return ::GetPaletteEntries(*this, first, count, entries);
}

UINT CPalette::SetPaletteEntries(UINT first, UINT count, const PALETTEENTRY* entries) {
  return ::SetPaletteEntries(*this, first, count, entries);
}

CPalette* CPalette::FromHandle(HPALETTE palette) {
  auto* handle = orvalix::Find<orvalix::PaletteHandle>(palette);
  return handle != nullptr ? handle->OwnerOrStandIn<CPalette>() : nullptr;
}

CPalette::operator HPALETTE() const { return static_cast<HPALETTE>(m_hObject); }
