#include "orvalix/host/clipboard.h"

#include <atomic>

#include "orvalix/host/dc.h"
#include "orvalix/host/gdi.h"
#include "orvalix/host/gdi_handle_internal.h"
#include "orvalix/host/transfer_internal.h"

namespace orvalix {
namespace {

std::atomic<ClipboardHandler> currentHandler{nullptr};
std::atomic<bool> isOpen{false};
thread_local bool isMine = false;  ///< this thread has opened it

// Touched only by the thread that has opened the clipboard.
HGDIOBJ content = nullptr;
bool isNew = false;  ///< put there since it was opened

/// A device that shows its one picture to a handler.
class HandlerDevice : public CDC {
 public:
  explicit HandlerDevice(ClipboardHandler handler) : m_handler(handler) { CreateHostDC(); }

  BOOL PutImage(const RECT&, const void* bgra, int width, int height, int strideBytes) override {
    m_taken = m_handler(bgra, width, height, strideBytes) != FALSE;
    return TRUE;
  }
  bool HasTaken() const { return m_taken; }

 private:
  ClipboardHandler m_handler;
  bool m_taken = false;
};

void DeleteContent() {
  ::DeleteObject(content);
  content = nullptr;
  isNew = false;
}

bool PassOn(ClipboardHandler handler) {
  const auto* bitmap = Find<BitmapHandle>(content);
  if (bitmap == nullptr) return false;
  const Surface& picture = bitmap->GetSurface();
  HandlerDevice device(handler);
  return CopyToDevice(device, 0, 0, picture, {0, 0, picture.width, picture.height}) &&
         device.HasTaken();
}

/// Closes the clipboard when it goes, whatever a handler throws.
class Closing {
 public:
  Closing() = default;
  ~Closing() {
    isMine = false;
    isOpen = false;
  }
  Closing(const Closing&) = delete;
  Closing& operator=(const Closing&) = delete;
};

}  // namespace
}  // namespace orvalix

BOOL OpenClipboard(HWND) {
  if (orvalix::isOpen.exchange(true)) return FALSE;
  orvalix::isMine = true;
  orvalix::isNew = false;
  return TRUE;
}

BOOL EmptyClipboard() {
  if (!orvalix::isMine) return FALSE;
  orvalix::DeleteContent();
  return TRUE;
}

HANDLE SetClipboardData(UINT format, HANDLE data) {
  const auto* bitmap = orvalix::Find<orvalix::BitmapHandle>(data);
  if (!orvalix::isMine || format != CF_BITMAP || bitmap == nullptr || bitmap->IsSelected()) {
    return nullptr;
  }
  if (orvalix::content != data) orvalix::DeleteContent();
  orvalix::content = data;
  orvalix::isNew = true;
  return data;
}

HANDLE GetClipboardData(UINT format) {
  if (!orvalix::isMine || format != CF_BITMAP) return nullptr;
  return orvalix::Find<orvalix::BitmapHandle>(orvalix::content) != nullptr ? orvalix::content
                                                                           : nullptr;
}

BOOL CloseClipboard() {
  if (!orvalix::isMine) return FALSE;
  const orvalix::Closing closing;
  const ClipboardHandler handler = orvalix::currentHandler;
  if (orvalix::isNew && handler != nullptr && orvalix::PassOn(handler)) orvalix::DeleteContent();
  return TRUE;
}

ClipboardHandler SetClipboardHandler(ClipboardHandler handler) {
  return orvalix::currentHandler.exchange(handler);
}
