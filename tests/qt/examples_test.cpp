// The programs in examples/, as their users see them.

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtGui/QImage>

#include "qt/qt_fixture.h"

namespace {

using namespace orvalix::test;

QImage Screen() { return QGuiApplication::primaryScreen()->grabWindow(0).toImage(); }

/// A program in a window.
class Program {
 public:
  explicit Program(const QString& path) {
    // The address sanitizer would keep what is freed for a while.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("ASAN_OPTIONS",
                       environment.value("ASAN_OPTIONS") +
                           ":quarantine_size_mb=0:thread_local_quarantine_size_kb=0");
    m_process.setProcessEnvironment(environment);
    m_process.start(path, QStringList());
    EXPECT_TRUE(m_process.waitForStarted());
  }
  ~Program() {
    m_process.terminate();
    m_process.waitForFinished();
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  bool IsRunning() const { return m_process.state() == QProcess::Running; }
  /// Kilobytes of memory that it holds.
  int Memory() const {
    QFile status(QString("/proc/%1/status").arg(m_process.processId()));
    status.open(QIODevice::ReadOnly);
    const QRegularExpression line("RssAnon:\\s+(\\d+) kB");
    return line.match(QString::fromLatin1(status.readAll())).captured(1).toInt();
  }

 private:
  QProcess m_process;
};

TEST(Examples, AWindowWithAChart) {
  const Program program(ORVALIX_EXAMPLE_WINDOW);
  // It shows what the other tests show, in the widget's usual size.
  const QImage expected = OffscreenPicture(640, 480, FillWithBars);
  EXPECT_TRUE(WaitUntil([&] {
    return Screen().copy(0, 0, 640, 480).convertToFormat(QImage::Format_RGB32) == expected;
  }));
  EXPECT_TRUE(program.IsRunning());
}

TEST(Examples, LiveDataMovesAndDoesNotGrow) {
  const Program program(ORVALIX_EXAMPLE_LIVE_DATA);
  ASSERT_TRUE(WaitUntil([] { return Screen().pixelColor(300, 20) == QColor(255, 255, 255); }));
  Wait(2000);
  const int before = program.Memory();
  ASSERT_GT(before, 0);
  int changes = 0;
  QImage last = Screen();
  for (int i = 0; i < 10; ++i) {
    Wait(300);
    const QImage now = Screen();
    changes += now != last ? 1 : 0;
    last = now;
  }
  EXPECT_EQ(changes, 10);
  // Some 90 frames of values and pictures later.
  EXPECT_LE(program.Memory(), before + 1024);
  EXPECT_TRUE(program.IsRunning());
}

}  // namespace
