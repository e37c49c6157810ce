#include "orvalix/host/bitmap.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "orvalix/host/dc.h"
#include "orvalix/host/device_context_internal.h"
#include "orvalix/host/gdi_handle_internal.h"

using orvalix::BitmapHandle;

namespace {

/// Hands a new bitmap, which may be null, to its owner.
BOOL Own(CBitmap& owner, BitmapHandle* bitmap) {
  return bitmap != nullptr ? owner.Attach(bitmap->Handle()) : FALSE;
}

}  // namespace

BOOL CBitmap::CreateCompatibleBitmap(CDC* dc, int width, int height) {
  const auto* context =
      orvalix::Find<orvalix::DeviceContext>(dc != nullptr ? dc->GetSafeHdc() : nullptr);
  if (context == nullptr || m_hObject != nullptr) return FALSE;
  int depth = context->BitmapDepth();
  if (context->GetType() == orvalix::DeviceContext::Type::kHost) {
    depth = dc->GetDeviceCaps(BITSPIXEL) * dc->GetDeviceCaps(PLANES);
  }
  return Own(*this, BitmapHandle::Create(width, height, depth, context->BitmapColors()));
}

BOOL CBitmap::CreateBitmap(int width, int height, UINT planes, UINT bitCount, const void* bits) {
  constexpr UINT kDeepest = 32;
  if (m_hObject != nullptr || planes != 1 || bitCount > kDeepest) return FALSE;
  auto* bitmap =
      BitmapHandle::Create(width, height, static_cast<int>(bitCount), orvalix::SystemColorTable());
  if (bitmap == nullptr) return FALSE;
  if (bits != nullptr) {
    orvalix::PixelMemory& pixels = bitmap->Pixels();
    std::memcpy(pixels.Bytes(), bits, static_cast<std::size_t>(pixels.Size()));
  }
  return Own(*this, bitmap);
}

int CBitmap::GetBitmap(BITMAP* bitmap) const {
  if (bitmap == nullptr || orvalix::Find<BitmapHandle>(m_hObject) == nullptr) return 0;
  return GetObject(sizeof(BITMAP), bitmap);
}

DWORD CBitmap::GetBitmapBits(DWORD count, void* bits) const {
  auto* bitmap = orvalix::Find<BitmapHandle>(m_hObject);
  if (bitmap == nullptr || bits == nullptr) return 0;
  const orvalix::Surface& surface = bitmap->GetSurface();
  const std::int64_t rowBytes = bitmap->Pixels().RowBytes();
  auto* to = static_cast<std::uint8_t*>(bits);
  std::int64_t left = std::min<std::int64_t>(count, bitmap->Pixels().Size());
  const auto copied = static_cast<DWORD>(left);
  for (int y = 0; left > 0; ++y, to += rowBytes, left -= rowBytes) {
    std::memcpy(to, surface.Row(y), static_cast<std::size_t>(std::min(left, rowBytes)));
  }
  return copied;
}

DWORD CBitmap::SetBitmapBits(DWORD count, const void* bits) {
  auto* bitmap = orvalix::Find<BitmapHandle>(m_hObject);
  if (bitmap == nullptr || bits == nullptr) return 0;
  const orvalix::Surface& surface = bitmap->GetSurface();
  const std::int64_t rowBytes = bitmap->Pixels().RowBytes();
  const auto* from = static_cast<const std::uint8_t*>(bits);
  std::int64_t left = std::min<std::int64_t>(count, bitmap->Pixels().Size());
  const auto copied = static_cast<DWORD>(left);
  for (int y = 0; left > 0; ++y, from += rowBytes, left -= rowBytes) {
    std::memcpy(surface.Row(y), from, static_cast<std::size_t>(std::min(left, rowBytes)));
  }
  return copied;
}

CBitmap* CBitmap::FromHandle(HBITMAP bitmap) {
  auto* handle = orvalix::Find<BitmapHandle>(bitmap);
  return handle != nullptr ? handle->OwnerOrStandIn<CBitmap>() : nullptr;
}

CBitmap::operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
