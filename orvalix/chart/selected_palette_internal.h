/// @file
/// A palette, selected into a device context for as long as this object lives.
#pragma once

#include "orvalix/host/host.h"

namespace orvalix {

class SelectedPalette {
 public:
  /// Selects the palette and gives the device its colours. Does nothing when either is null.
  SelectedPalette(CDC* dc, HPALETTE palette)
      : m_dc(dc != nullptr ? dc->GetSafeHdc() : nullptr),
        m_previous(SelectPalette(m_dc, palette, FALSE)) {
    RealizePalette(m_dc);
  }
  ~SelectedPalette() { SelectPalette(m_dc, m_previous, FALSE); }
  SelectedPalette(const SelectedPalette&) = delete;
  SelectedPalette& operator=(const SelectedPalette&) = delete;

 private:
  HDC m_dc;
  HPALETTE m_previous;
};

}  // namespace orvalix
