/// @file
/// What stands behind the handles of device contexts.
#pragma once

#include <memory>
#include <utility>

#include "orvalix/host/gdi_handle_internal.h"
#include "orvalix/host/handle_table_internal.h"
#include "orvalix/host/surface_internal.h"

class CDC;

namespace orvalix {

/// What a device answers about itself.
struct DeviceCaps {
  int width;           ///< pixels
  int height;          ///< pixels
  int bitsPerPixel;    ///< of all planes together
  int pixelsPerInchX;  ///< across
  int pixelsPerInchY;  ///< down
};

/// Resolution of devices that don't tell theirs.
inline constexpr int kDefaultPixelsPerInch = 96;

/// A device context: its pixels or its bitmap, and what is selected into it.
class DeviceContext : public HandleOwner {
 public:
  static constexpr HandleKind kKind = HandleKind::kDeviceContext;

  /// What a device context draws to.
  enum class Type { kMemory, kWindow, kPixels, kHost };

  /// A memory device context with a stock bitmap.
  /// @param caps of the device that it is compatible with
  /// @param colors that 8-bit bitmaps made for it get
  /// @return null when memory runs out
  static std::unique_ptr<DeviceContext> CreateMemory(const DeviceCaps& caps,
                                                     const ColorTable& colors);
  /// A device context over pixels that outlive it, or, for kHost, without any.
  /// @return null when memory runs out
  static std::unique_ptr<DeviceContext> Create(Type type, const Surface& surface);
  ~DeviceContext();

  HDC Handle() const;
  Type GetType() const { return m_type; }
  CDC* Owner() const { return m_owner; }
  void SetOwner(CDC* owner) { m_owner = owner; }

  const DeviceCaps& Caps() const { return m_caps; }
  /// The pixels; none for a host's device.
  const Surface& GetSurface() const;
  /// Replaces the pixels of a window, and what the device answers with them.
  void SetSurface(const Surface& surface);
  /// The colours that 8-bit bitmaps for this device get.
  const ColorTable& BitmapColors() const;
  /// The depth that bitmaps for this device get.
  int BitmapDepth() const;

  /// Selects a bitmap. @return the one before; null when it can't be selected here
  HGDIOBJ SelectBitmap(BitmapHandle* bitmap);
  /// The selected bitmap; null when this is no memory device context.
  BitmapHandle* Bitmap() const { return m_bitmap; }
  /// Selects a palette. @return the one before
  HGDIOBJ SelectPalette(PaletteHandle* palette);
  PaletteHandle* Palette() const { return m_palette; }

  /// The memory of the last picture for a device without pixels in memory, so that frame after
  /// frame takes no new memory; null when there is none.
  std::unique_ptr<PixelMemory> TakePicture() { return std::move(m_picture); }
  void KeepPicture(std::unique_ptr<PixelMemory> picture) { m_picture = std::move(picture); }

  int StretchMode() const { return m_stretchMode; }
  void SetStretchMode(int mode) { m_stretchMode = mode; }

 private:
  /// @throws std::bad_alloc
  DeviceContext(Type type, const DeviceCaps& caps);

  Type m_type;
  DeviceCaps m_caps;
  Surface m_surface;                      ///< of windows and pixels of the caller's
  ColorTable m_colors;                    ///< for 8-bit bitmaps, while the stock one is selected
  BitmapHandle* m_stockBitmap = nullptr;  ///< of memory device contexts; owned
  BitmapHandle* m_bitmap = nullptr;       ///< of memory device contexts; selected
  PaletteHandle* m_palette;               ///< selected
  int m_stretchMode = BLACKONWHITE;
  std::unique_ptr<PixelMemory> m_picture;  ///< see TakePicture()
  CDC* m_owner = nullptr;                  ///< whose m_hDC this is
};

}  // namespace orvalix
