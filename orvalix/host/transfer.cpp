#include "orvalix/host/transfer_internal.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>

#include "orvalix/host/dc.h"
#include "orvalix/host/device_context_internal.h"
#include "orvalix/host/pixel_rows_internal.h"

namespace orvalix {
namespace {

LONG ToLong(std::int64_t value) {
  return static_cast<LONG>(std::clamp<std::int64_t>(value, std::numeric_limits<LONG>::min(),
                                                    std::numeric_limits<LONG>::max()));
}

/// The part of an axis whose source lies within a picture. A device that stretches by itself is
/// given whole source pixels and the edges where they belong.
StretchAxis ClipSource(const StretchAxis& axis, std::int64_t limit) {
  const std::int64_t first = std::clamp<std::int64_t>(-axis.from, 0, axis.fromCount);
  const std::int64_t last = std::clamp<std::int64_t>(limit - axis.from, first, axis.fromCount);
  const auto edge = [&](std::int64_t source) { return source * axis.toCount / axis.fromCount; };
  const std::int64_t firstEdge = edge(axis.isMirrored ? axis.fromCount - last : first);
  const std::int64_t lastEdge = edge(axis.isMirrored ? axis.fromCount - first : last);
  return {axis.to + firstEdge, lastEdge - firstEdge, axis.from + first, last - first,
          axis.isMirrored};
}

constexpr int kPictureDepth = 32;

/// Fills a picture with the source pixels of two axes, one for one.
bool CopyOrMirror(const Surface& picture, const Surface& from, const StretchAxis& columns,
                  const StretchAxis& rows) {
  if (columns.isMirrored || rows.isMirrored) {
    if (!StretchPixels(picture, from,
                       {0, columns.fromCount, columns.from, columns.fromCount, columns.isMirrored},
                       {0, rows.fromCount, rows.from, rows.fromCount, rows.isMirrored})) {
      return false;
    }
    for (int y = 0; y < picture.height; ++y) MakeOpaque(picture.Row(y), picture.width);
    return true;
  }
  RowConverter converter(from, picture);
  for (int y = 0; y < picture.height; ++y) {
    converter.Convert(from.Pixel(columns.from, rows.from + y), picture.Row(y), picture.width);
    MakeOpaque(picture.Row(y), picture.width);
  }
  return true;
}

/// Memory for a picture of that size: what the device's last picture left, when it fits.
std::unique_ptr<PixelMemory> PictureFor(DeviceContext& context, std::int64_t width,
                                        std::int64_t height) {
  std::unique_ptr<PixelMemory> picture = context.TakePicture();
  if (picture && picture->GetSurface().width == width && picture->GetSurface().height == height) {
    return picture;
  }
  picture.reset();
  return PixelMemory::Create(width, height, kPictureDepth, RowOrder::kTopFirst, 1);
}

/// Hands a finished picture to a device that has no pixels in memory.
bool PutPart(CDC& device, DeviceContext& context, const Surface& from, const StretchAxis& across,
             const StretchAxis& down) {
  if (from.top == nullptr || across.IsEmpty() || down.IsEmpty()) return true;
  const StretchAxis columns = ClipSource(across, from.width);
  const StretchAxis rows = ClipSource(down, from.height);
  if (columns.IsEmpty() || rows.IsEmpty()) return true;
  std::unique_ptr<PixelMemory> picture = PictureFor(context, columns.fromCount, rows.fromCount);
  if (!picture) return false;
  const Surface& surface = picture->GetSurface();
  if (!CopyOrMirror(surface, from, columns, rows)) return false;
  const RECT destination{ToLong(columns.to), ToLong(rows.to), ToLong(columns.to + columns.toCount),
                         ToLong(rows.to + rows.toCount)};
  const bool isPut = device.PutImage(destination, surface.top, surface.width, surface.height,
                                     static_cast<int>(surface.stride)) != FALSE;
  // Unless the device has deleted itself.
  auto* const left = Find<DeviceContext>(device.GetSafeHdc());
  if (left != nullptr) left->KeepPicture(std::move(picture));
  return isPut;
}

}  // namespace

bool CopyToDevice(CDC& device, std::int64_t x, std::int64_t y, const Surface& from,
                  const PixelRect& source) {
  auto* context = Find<DeviceContext>(device.GetSafeHdc());
  if (context == nullptr) return false;
  if (context->GetType() != DeviceContext::Type::kHost) {
    return CopyPixels(context->GetSurface(), x, y, from, source);
  }
  return PutPart(device, *context, from, {x, source.width, source.x, source.width, false},
                 {y, source.height, source.y, source.height, false});
}

bool StretchToDevice(CDC& device, const Surface& from, const StretchAxis& across,
                     const StretchAxis& down) {
  auto* context = Find<DeviceContext>(device.GetSafeHdc());
  if (context == nullptr) return false;
  if (context->GetType() != DeviceContext::Type::kHost) {
    return StretchPixels(context->GetSurface(), from, across, down);
  }
  return PutPart(device, *context, from, across, down);
}

}  // namespace orvalix
