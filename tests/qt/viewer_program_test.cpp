// orvalix-viewer itself, on a display and without one.

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include "qt/qt_fixture.h"

namespace {

using namespace orvalix::test;

QProcess& Start(QProcess& program, const QStringList& arguments) {
  program.start(ORVALIX_VIEWER, arguments);
  return program;
}

TEST(ViewerProgram, AnswersWithoutADisplay) {
  struct Case {
    QStringList arguments;
    const char* answer;
  };
  for (const Case& one :
       {Case{{"--help"}, "Shows a chart file"}, Case{{"--version"}, "1.0.0"},
        Case{{"--example", "list"}, "surface"}, Case{{"--example=list"}, "surface"},
        Case{{"--data", "/", "--example", "list"}, "surface"}}) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("DISPLAY");
    program.setProcessEnvironment(environment);
    Start(program, one.arguments).waitForFinished();
    EXPECT_EQ(program.exitCode(), 0) << one.answer;
    EXPECT_TRUE(program.readAllStandardOutput().contains(one.answer)) << one.answer;
  }
}

TEST(ViewerProgram, RefusesWhatItDoesNotKnow) {
  for (const QStringList& arguments :
       {QStringList{"--example", "nothing"}, QStringList{"a", "b"}, QStringList{"--nonsense"}}) {
    QProcess program;
    Start(program, arguments).waitForFinished();
    EXPECT_NE(program.exitCode(), 0) << arguments.join(' ').toStdString();
    EXPECT_FALSE(program.readAllStandardError().isEmpty());
  }
}

TEST(ViewerProgram, ShowsTheFileThatItWasGiven) {
  if (!IsInstalled("xdotool")) GTEST_SKIP() << "there is no xdotool";
  QTemporaryDir folder;
  CWnd canvas;
  canvas.CreateOffscreen(20, 20);
  CChartView3D view(&canvas);
  view.EnableBorder(0);
  CChart3D* chart = view.NewChart3D();
  chart->EnableBorder(0);
  chart->SetChartBkColor(SetRGBD(0.0, 0.0, 1.0, 1.0));
  const QString path = folder.filePath("blue.chart");
  view.Save(QFile::encodeName(path).constData());
  QProcess program;
  Start(program, {path});
  const auto middle = [] {
    const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    return screen.pixelColor(400, 400);
  };
  EXPECT_TRUE(WaitUntil([&] { return middle() == QColor(0, 0, 255); }));
  // It has a window of that name, and closes when it is asked to.
  const QByteArray window = RunProgram("xdotool", {"search", "--name", "blue.chart"}).trimmed();
  EXPECT_FALSE(window.isEmpty());
  RunProgram("xdotool", {"mousemove", "400", "400", "click", "1", "key", "ctrl+q"});
  EXPECT_TRUE(WaitUntil([&] { return program.state() == QProcess::NotRunning; }));
  EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(program.exitCode(), 0);
}

/// The program with a window that can be looked for by its title, and is closed at the end.
class ShownProgram {
 public:
  explicit ShownProgram(const QStringList& arguments) { Start(m_process, arguments); }
  ~ShownProgram() {
    m_process.terminate();
    m_process.waitForFinished();
  }
  ShownProgram(const ShownProgram&) = delete;
  ShownProgram& operator=(const ShownProgram&) = delete;

  /// Whether a window of that name comes up.
  static bool Shows(const QString& name, int milliseconds = 10000) {
    return WaitUntil([&] { return Count({"--name", name}) == 1; }, milliseconds);
  }
  /// Windows that are shown.
  static qsizetype Count(const QStringList& criteria) {
    QProcess search;
    search.start("xdotool", QStringList{"search", "--onlyvisible"} + criteria);
    search.waitForFinished();  // with a failure when it finds none
    return search.readAllStandardOutput().count('\n');
  }

 private:
  QProcess m_process;
};

TEST(ViewerProgram, ShowsTheFirstChartOfTheGallery) {
  if (!IsInstalled("xdotool")) GTEST_SKIP() << "there is no xdotool";
  const ShownProgram program({});
  EXPECT_TRUE(ShownProgram::Shows("^auto_axes"));
}

TEST(ViewerProgram, ShowsTheChartOfTheGalleryThatItWasGiven) {
  if (!IsInstalled("xdotool")) GTEST_SKIP() << "there is no xdotool";
  const ShownProgram program({"--example", "contour_map"});
  EXPECT_TRUE(ShownProgram::Shows("^contour_map"));
}

TEST(ViewerProgram, TakesTheDataFromTheFolderThatItWasGiven) {
  if (!IsInstalled("xdotool")) GTEST_SKIP() << "there is no xdotool";
  const QTemporaryDir folder;
  {
    const ShownProgram program({"--data", folder.path(), "--example", "bar_rows"});
    // The window, and what it says.
    EXPECT_TRUE(WaitUntil([] { return ShownProgram::Count({"--class", "orvalix-viewer"}) == 2; }));
    EXPECT_EQ(ShownProgram::Count({"--name", "^bar_rows"}), 0);
  }
  for (const QString& name : QDir(ORVALIX_DATA_FOLDER).entryList(QDir::Files)) {
    QFile::copy(QDir(ORVALIX_DATA_FOLDER).filePath(name), folder.filePath(name));
  }
  const ShownProgram program({"--data", folder.path(), "--example", "bar_rows"});
  EXPECT_TRUE(ShownProgram::Shows("^bar_rows"));
}

}  // namespace
