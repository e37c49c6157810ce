#include "viewer/background_work.h"

#include <pthread.h>
#include <QtCore/QTimer>
#include <QtWidgets/QProgressDialog>

#include "qt/qt_fixture.h"

namespace {

using namespace orvalix::test;

/// Whether a box told of progress while work ran.
bool ShowsProgress(unsigned long milliseconds) {
  bool seen = false;
  QTimer watcher;
  watcher.callOnTimeout([&] {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* const box = qobject_cast<QProgressDialog*>(widget);
      if (box != nullptr && box->isVisible()) seen = box->labelText() == "Working";
    }
  });
  watcher.start(10);
  bool done = false;
  orvalix::RunInBackground(nullptr, "Working", [&] {
    QThread::msleep(milliseconds);
    done = true;
  });
  EXPECT_TRUE(done);
  return seen;
}

TEST(BackgroundWork, ShowsProgressAfterHalfASecond) {
  EXPECT_FALSE(ShowsProgress(50));
  EXPECT_TRUE(ShowsProgress(1200));
}

TEST(BackgroundWork, HandsFailuresOn) {
  EXPECT_THROW(orvalix::RunInBackground(nullptr, "Working", [] { throw std::runtime_error("x"); }),
               std::runtime_error);
}

/// Lets no thread start while it lives: none gets the stack that each is to have.
class NoThreads {
 public:
  NoThreads() {
    pthread_getattr_default_np(&m_before);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, std::size_t{1} << 46);
    pthread_setattr_default_np(&attributes);
    pthread_attr_destroy(&attributes);
  }
  ~NoThreads() {
    pthread_setattr_default_np(&m_before);
    pthread_attr_destroy(&m_before);
  }
  NoThreads(const NoThreads&) = delete;
  NoThreads& operator=(const NoThreads&) = delete;

 private:
  pthread_attr_t m_before{};
};

TEST(BackgroundWork, IsDoneHereWithoutAThread) {
  // Qt waits for threads of its own, which it starts with the first box.
  orvalix::RunInBackground(nullptr, "Working", [] {});
  const NoThreads none;
  const QThread* where = nullptr;
  orvalix::RunInBackground(nullptr, "Working", [&] { where = QThread::currentThread(); });
  EXPECT_EQ(where, QThread::currentThread());
  EXPECT_THROW(orvalix::RunInBackground(nullptr, "Working", [] { throw std::runtime_error("x"); }),
               std::runtime_error);
}

}  // namespace
