#include "orvalix/qt/qt_host.h"

#include <orvalix/host/host.h>

#include <QtCore/QMimeData>
#include <QtCore/QPointer>
#include <QtCore/QThread>
#include <QtGui/QClipboard>
#include <QtGui/QImage>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>
#include <cstdio>
#include <mutex>

#include "orvalix/qt/held_notices_internal.h"

namespace {

bool IsGuiThread() {
  const auto* application = qobject_cast<QApplication*>(QCoreApplication::instance());
  return application != nullptr && QThread::currentThread() == application->thread();
}

int ShowMessage(const char* text) {
  static bool isShowing = false;  // touched by one thread only
  const bool isGuiThread = IsGuiThread();
  if (isGuiThread && orvalix::HeldNotices::Take(text)) return IDOK;
  if (!isGuiThread || isShowing) {
    std::fprintf(stderr, "%s\n", text);
    return IDOK;
  }
  isShowing = true;
  // Its window may be deleted while it waits, and takes it along.
  const QPointer<QMessageBox> box =
      new QMessageBox(QMessageBox::Warning, QGuiApplication::applicationDisplayName(),
                      QString::fromUtf8(text), QMessageBox::Ok, QApplication::activeWindow());
  box->exec();
  delete box;
  isShowing = false;
  return IDOK;
}

BOOL PutOnClipboard(const void* bgra, int width, int height, int strideBytes) {
  if (!IsGuiThread()) return FALSE;
  const QImage picture(static_cast<const uchar*>(bgra), width, height, strideBytes,
                       QImage::Format_RGB32);
  // The pixels are gone after the call, the clipboard's picture is not.
  const QImage copy = picture.copy();
  if (copy.isNull()) return FALSE;
  QClipboard& clipboard = *QGuiApplication::clipboard();
  auto* const data = new QMimeData;  // the clipboard's from now on
  data->setImageData(copy);
  clipboard.setMimeData(data);
  // Another program's, where the window system didn't let this one have the clipboard.
  return clipboard.mimeData() == data ? TRUE : FALSE;
}

}  // namespace

void ConnectQtHost() {
  static std::once_flag once;
  std::call_once(once, [] {
    const MessageBoxHandler messages = SetMessageBoxHandler(ShowMessage);
    if (messages != nullptr) SetMessageBoxHandler(messages);
    const ClipboardHandler clipboard = SetClipboardHandler(PutOnClipboard);
    if (clipboard != nullptr) SetClipboardHandler(clipboard);
  });
}
