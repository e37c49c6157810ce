#include "orvalix/host/gdi.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

#include "orvalix/host/dc.h"
#include "orvalix/host/device_context_internal.h"
#include "orvalix/host/dib_internal.h"
#include "orvalix/host/gdi_handle_internal.h"
#include "orvalix/host/transfer_internal.h"

using orvalix::BitmapHandle;
using orvalix::DeviceContext;
using orvalix::Find;
using orvalix::PaletteHandle;

namespace {

/// How many of `count` elements from `first` on a list of `size` has.
UINT ClipCount(std::size_t size, UINT first, UINT count) {
  return first < size ? static_cast<UINT>(std::min<std::size_t>(count, size - first)) : 0;
}

/// The colours of the section selected into a device context; null when there are none.
orvalix::ColorTable* SectionColors(HDC dc) {
  const auto* context = Find<DeviceContext>(dc);
  BitmapHandle* const bitmap = context != nullptr ? context->Bitmap() : nullptr;
  return bitmap != nullptr && bitmap->IsSection() ? bitmap->GetSurface().colors : nullptr;
}

BITMAP DescribeBitmap(BitmapHandle& bitmap) {
  const orvalix::Surface& surface = bitmap.GetSurface();
  BITMAP description{};
  description.bmWidth = surface.width;
  description.bmHeight = surface.height;
  description.bmWidthBytes = static_cast<LONG>(bitmap.Pixels().RowBytes());
  description.bmPlanes = 1;
  description.bmBitsPixel = static_cast<WORD>(surface.bitsPerPixel);
  if (bitmap.IsSection()) description.bmBits = bitmap.Pixels().Bytes();
  return description;
}

DIBSECTION DescribeSection(BitmapHandle& bitmap) {
  DIBSECTION description{};
  description.dsBm = DescribeBitmap(bitmap);
  BITMAPINFOHEADER& header = description.dsBmih;
  header.biSize = sizeof(BITMAPINFOHEADER);
  header.biWidth = description.dsBm.bmWidth;
  header.biHeight = description.dsBm.bmHeight;
  header.biPlanes = description.dsBm.bmPlanes;
  header.biBitCount = description.dsBm.bmBitsPixel;
  header.biCompression = BI_RGB;
  header.biSizeImage = static_cast<DWORD>(bitmap.Pixels().Size());
  return description;
}

/// Writes a record; its size when there is nowhere to write, 0 when there is no room.
template <class Record>
int Report(const Record& record, int size, void* description) {
  constexpr int kBytes = sizeof(Record);
  if (description == nullptr) return kBytes;
  if (size < kBytes) return 0;
  std::memcpy(description, &record, sizeof(Record));
  return kBytes;
}

RGBQUAD ToQuad(const PALETTEENTRY& entry) { return {entry.peBlue, entry.peGreen, entry.peRed, 0}; }

bool SameColor(const RGBQUAD& a, const RGBQUAD& b) {
  return a.rgbBlue == b.rgbBlue && a.rgbGreen == b.rgbGreen && a.rgbRed == b.rgbRed;
}

}  // namespace

HBITMAP CreateDIBSection(HDC, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                         DWORD) {
  constexpr int kRowAlignment = 4;
  if (bits != nullptr) *bits = nullptr;
  const auto format = orvalix::ReadDibFormat(info, usage);
  if (!format || section != nullptr) return nullptr;
  auto pixels = orvalix::PixelMemory::Create(format->width, format->height, format->bitsPerPixel,
                                             format->order, kRowAlignment);
  if (!pixels) return nullptr;
  pixels->Colors() = orvalix::ReadDibColors(*info, format->bitsPerPixel);
  BitmapHandle* const bitmap = BitmapHandle::Create(std::move(pixels), true);
  if (bitmap == nullptr) return nullptr;
  if (bits != nullptr) *bits = bitmap->Pixels().Bytes();
  return static_cast<HBITMAP>(bitmap->Handle());
}

UINT GetDIBColorTable(HDC dc, UINT first, UINT count, RGBQUAD* colors) {
  const orvalix::ColorTable* table = SectionColors(dc);
  if (table == nullptr || colors == nullptr) return 0;
  const UINT copied = ClipCount(table->size(), first, count);
  if (copied > 0) std::copy_n(&(*table)[first], copied, colors);
  return copied;
}

UINT SetDIBColorTable(HDC dc, UINT first, UINT count, const RGBQUAD* colors) {
  orvalix::ColorTable* table = SectionColors(dc);
  if (table == nullptr || colors == nullptr) return 0;
  const UINT copied = ClipCount(table->size(), first, count);
  if (copied > 0) std::copy_n(colors, copied, &(*table)[first]);
  return copied;
}

HPALETTE CreatePalette(const LOGPALETTE* description) {
  if (description == nullptr) return nullptr;
  PaletteHandle* const palette =
      PaletteHandle::Create(&description->palPalEntry[0], description->palNumEntries);
  return palette != nullptr ? static_cast<HPALETTE>(palette->Handle()) : nullptr;
}

UINT GetPaletteEntries(HPALETTE palette, UINT first, UINT count, PALETTEENTRY* entries) {
  auto* handle = Find<PaletteHandle>(palette);
  if (handle == nullptr) return 0;
  const auto& all = handle->Entries();
  if (entries == nullptr) return static_cast<UINT>(all.size());
  const UINT copied = ClipCount(all.size(), first, count);
  if (copied > 0) std::copy_n(&all[first], copied, entries);
  return copied;
}

UINT SetPaletteEntries(HPALETTE palette, UINT first, UINT count, const PALETTEENTRY* entries) {
  auto* handle = Find<PaletteHandle>(palette);
  if (handle == nullptr || entries == nullptr || handle->IsStock()) return 0;
  auto& all = handle->Entries();
  const UINT copied = ClipCount(all.size(), first, count);
  if (copied > 0) std::copy_n(entries, copied, &all[first]);
  return copied;
}

int GetObjectA(HGDIOBJ object, int size, void* description) {
  if (auto* bitmap = Find<BitmapHandle>(object)) {
    const bool wantsSection =
        description == nullptr || size >= static_cast<int>(sizeof(DIBSECTION));
    if (bitmap->IsSection() && wantsSection) {
      return Report(DescribeSection(*bitmap), size, description);
    }
    return Report(DescribeBitmap(*bitmap), size, description);
  }
  auto* palette = Find<PaletteHandle>(object);
  if (palette == nullptr) return 0;
  return Report(static_cast<WORD>(palette->Entries().size()), size, description);
}

BOOL DeleteObject(HGDIOBJ object) {
  auto* handle = orvalix::FindGdiHandle(object);
  return handle != nullptr ? handle->Delete() : FALSE;
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ object) {
  auto* context = Find<DeviceContext>(dc);
  auto* bitmap = Find<BitmapHandle>(object);
  if (context == nullptr || bitmap == nullptr) return nullptr;
  return context->SelectBitmap(bitmap);
}

HPALETTE SelectPalette(HDC dc, HPALETTE palette, BOOL) {
  auto* context = Find<DeviceContext>(dc);
  auto* handle = Find<PaletteHandle>(palette);
  if (context == nullptr || handle == nullptr) return nullptr;
  return static_cast<HPALETTE>(context->SelectPalette(handle));
}

UINT RealizePalette(HDC dc) {
  auto* context = Find<DeviceContext>(dc);
  if (context == nullptr || context->GetType() != DeviceContext::Type::kWindow) return 0;
  orvalix::ColorTable* const colors = context->GetSurface().colors;
  PaletteHandle* const palette = context->Palette();
  if (colors == nullptr || palette->IsStock()) return 0;
  UINT changed = 0;
  const std::size_t count = std::min(palette->Entries().size(), colors->size());
  for (std::size_t i = 0; i < count; ++i) {
    const RGBQUAD color = ToQuad(palette->Entries()[i]);
    if (SameColor((*colors)[i], color)) continue;
    (*colors)[i] = color;
    ++changed;
  }
  return changed;
}

HGDIOBJ GetStockObject(int index) {
  if (index != DEFAULT_PALETTE) return nullptr;
  PaletteHandle* const palette = PaletteHandle::Stock();
  return palette != nullptr ? palette->Handle() : nullptr;
}

int StretchDIBits(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY,
                  int sourceWidth, int sourceHeight, const void* bits, const BITMAPINFO* info,
                  UINT usage, DWORD operation) {
  CDC* const device = CDC::FromHandle(dc);
  if (device == nullptr) return 0;
  return device->StretchDIBits(x, y, width, height, sourceX, sourceY, sourceWidth, sourceHeight,
                               bits, info, usage, operation);
}

int SetDIBitsToDevice(HDC dc, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY,
                      UINT firstLine, UINT lineCount, const void* bits, const BITMAPINFO* info,
                      UINT usage) {
  CDC* const device = CDC::FromHandle(dc);
  const auto format = orvalix::ReadDibFormat(info, usage);
  if (device == nullptr || !format || firstLine >= format->height) return 0;
  const std::int64_t rows = std::min<std::int64_t>(lineCount, format->height - firstLine);
  const auto dib = orvalix::DibSource::Create(*format, *info, bits, rows);
  if (!dib) return 0;
  // Counted from the top of the rows that the caller holds.
  const std::int64_t top = format->order == orvalix::RowOrder::kTopFirst
                               ? std::int64_t{sourceY} - firstLine
                               : firstLine + rows - sourceY - std::int64_t{height};
  const bool done =
      orvalix::CopyToDevice(*device, x, y, dib->GetSurface(), {sourceX, top, width, height});
  return done ? static_cast<int>(rows) : 0;
}

BOOL GdiFlush() { return TRUE; }
