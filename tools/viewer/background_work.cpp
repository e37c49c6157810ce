#include "viewer/background_work.h"

#include <QtCore/QEventLoop>
#include <QtCore/QThread>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QProgressDialog>
#include <exception>
#include <memory>

namespace orvalix {

void RunInBackground(QWidget* parent, const QString& what, const std::function<void()>& work) {
  constexpr int kPatienceMilliseconds = 500;
  std::exception_ptr failure;
  const std::unique_ptr<QThread> thread(QThread::create([&] {
    try {
      work();
    } catch (...) {
      failure = std::current_exception();
    }
  }));
  QProgressDialog progress(what, QString(), 0, 0, parent);
  progress.setWindowModality(Qt::WindowModal);
  progress.setMinimumDuration(kPatienceMilliseconds);
  progress.setValue(0);

  QEventLoop loop;
  QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  thread->start();
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  thread->wait();
  QGuiApplication::restoreOverrideCursor();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace orvalix
