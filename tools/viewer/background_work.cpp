#include "viewer/background_work.h"

#include <QtCore/QEventLoop>
#include <QtCore/QThread>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QProgressDialog>
#include <exception>
#include <memory>

namespace orvalix {
namespace {

void Try(const std::function<void()>& work, std::exception_ptr& failure) {
  try {
    work();
  } catch (...) {
    failure = std::current_exception();
  }
}

}  // namespace

void RunInBackground(QWidget* parent, const QString& what, const std::function<void()>& work) {
  constexpr int kPatienceMilliseconds = 500;
  std::exception_ptr failure;
  const std::unique_ptr<QThread> thread(QThread::create([&] { Try(work, failure); }));
  QProgressDialog progress(what, QString(), 0, 0, parent);
  progress.setWindowModality(Qt::WindowModal);
  progress.setMinimumDuration(kPatienceMilliseconds);
  progress.setValue(0);

  QEventLoop loop;
  QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  thread->start();
  const bool hasStarted = thread->isRunning() || thread->isFinished();
  if (hasStarted) {
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    thread->wait();
  } else {
    // Of a thread that there was no room for, nothing would ever be heard.
    Try(work, failure);
  }
  QGuiApplication::restoreOverrideCursor();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace orvalix
