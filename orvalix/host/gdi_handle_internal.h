/// @file
/// What stands behind the handles of bitmaps and palettes.
#pragma once

#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "orvalix/host/gdi_object.h"
#include "orvalix/host/handle_table_internal.h"
#include "orvalix/host/surface_internal.h"

namespace orvalix {

/// A bitmap or a palette: knows its owner and how often it is selected.
class GdiHandle : public HandleOwner {
 public:
  virtual ~GdiHandle();

  HGDIOBJ Handle() const { return RawHandle(); }
  bool IsStock() const { return m_isStock; }
  void SetStock(bool isStock) { m_isStock = isStock; }

  /// A device context selects the object.
  void Select() { ++m_selections; }
  /// A device context releases the object, which dies with it when nobody owns it any more.
  void Release();
  bool IsSelected() const { return m_selections > 0; }

  /// Destroys the object unless it is selected or a stock object.
  /// @return FALSE when it is selected
  BOOL Delete();
  /// Destroys the object, now or when the last device context releases it. Stock objects stay.
  void GiveUp();

  /// The class object that owns the handle, or null.
  CGdiObject* Owner() const { return m_owner; }
  void SetOwner(CGdiObject* owner) { m_owner = owner; }
  /// The owner, or a stand-in that dies with this object. Null when memory runs out.
  template <class Wrapper>
  Wrapper* OwnerOrStandIn();

 protected:
  /// @throws std::bad_alloc
  explicit GdiHandle(HandleKind kind) : HandleOwner(kind) {}

 private:
  bool m_isStock = false;                 ///< not deleted by its users
  bool m_isGivenUp = false;               ///< waits for its last release
  int m_selections = 0;                   ///< device contexts that it is selected into
  CGdiObject* m_owner = nullptr;          ///< whose m_hObject is this object
  std::unique_ptr<CGdiObject> m_standIn;  ///< made on demand
};

template <class Wrapper>
Wrapper* GdiHandle::OwnerOrStandIn() {
  if (auto* owner = dynamic_cast<Wrapper*>(m_owner)) return owner;
  if (!m_standIn) m_standIn.reset(new (std::nothrow) Wrapper);
  if (!m_standIn) return nullptr;
  m_standIn->m_hObject = Handle();
  return static_cast<Wrapper*>(m_standIn.get());
}

/// A bitmap with its pixels.
class BitmapHandle : public GdiHandle {
 public:
  static constexpr HandleKind kKind = HandleKind::kBitmap;

  /// Makes a bitmap around pixels. A null `pixels` is passed through.
  /// @return null when memory runs out
  static BitmapHandle* Create(std::unique_ptr<PixelMemory> pixels, bool isSection);
  /// Makes a bitmap that is no section: top row first, rows of a multiple of 2 bytes.
  /// @param colors of an 8-bit bitmap
  /// @return null for sizes below 1, other depths, too many bytes, or when memory runs out
  static BitmapHandle* Create(int width, int height, int bitsPerPixel, const ColorTable& colors);

  PixelMemory& Pixels() { return *m_pixels; }
  const Surface& GetSurface() const { return m_pixels->GetSurface(); }
  bool IsSection() const { return m_isSection; }

 private:
  BitmapHandle(std::unique_ptr<PixelMemory> pixels, bool isSection);

  std::unique_ptr<PixelMemory> m_pixels;  ///< never null
  bool m_isSection;                       ///< the caller knows where the pixels are
};

/// A palette with its colours.
class PaletteHandle : public GdiHandle {
 public:
  static constexpr HandleKind kKind = HandleKind::kPalette;

  /// @return null without entries or when memory runs out
  static PaletteHandle* Create(const PALETTEENTRY* entries, std::size_t count);
  /// The palette of the 20 static system colours; null when memory runs out.
  static PaletteHandle* Stock();

  std::vector<PALETTEENTRY>& Entries() { return m_entries; }

 private:
  explicit PaletteHandle(std::vector<PALETTEENTRY> entries);
  static PaletteHandle* MakeStock();

  std::vector<PALETTEENTRY> m_entries;  ///< one at least
};

/// The bitmap or palette behind a handle; null when there is none.
GdiHandle* FindGdiHandle(HGDIOBJ object) noexcept;

}  // namespace orvalix
