#include "viewer/viewer_window.h"

#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtGui/QDropEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressDialog>
#include <QtWidgets/QStatusBar>

#include "qt/qt_fixture.h"
#include "viewer/background_work.h"

namespace {

using namespace orvalix::test;
using orvalix::ViewerWindow;

/// Answers the dialogs that come up, each with its next answer, and takes down what they said.
class Dialogs {
 public:
  Dialogs() {
    m_timer.callOnTimeout([this] { Answer(); });
    m_timer.start(20);
  }

  QStringList said;
  QList<QMessageBox::StandardButton> answers;  ///< Ok when there are no more

 private:
  void Answer() {
    QWidget* const dialog = QApplication::activeModalWidget();
    if (auto* const box = qobject_cast<QMessageBox*>(dialog)) {
      said << box->text() + ' ' + box->informativeText();
      const auto answer = answers.isEmpty() ? QMessageBox::Ok : answers.takeFirst();
      ASSERT_NE(box->button(answer), nullptr) << said.last().toStdString();
      box->button(answer)->click();
    } else if (auto* const files = qobject_cast<QFileDialog*>(dialog)) {
      if (files == m_accepted) return;
      m_accepted = files;
      said << files->windowTitle();
      QMetaObject::invokeMethod(files, "accept", Qt::QueuedConnection);
    }
  }

  QTimer m_timer;
  QPointer<QFileDialog> m_accepted;  ///< with the name that it proposes
};

class Viewer : public ::testing::Test {
 protected:
  Viewer() : window(std::make_unique<ViewerWindow>(ORVALIX_DATA_FOLDER)) {
    CErr3D::SetErrorReportMode(0);
    QSettings().clear();
    ShowOnScreen(*window);
  }

  QString Path(const QString& name) const { return folder.filePath(name); }
  /// A file with the bars of the other tests.
  QString BarsFile() const {
    CWnd canvas;
    canvas.CreateOffscreen(20, 20);
    CChartView3D view(&canvas);
    FillWithBars(view);
    view.Save(QFile::encodeName(Path("bars.chart")).constData());
    return Path("bars.chart");
  }
  QString Status() const {
    QStringList texts;
    for (const QLabel* label : window->statusBar()->findChildren<QLabel*>()) texts << label->text();
    return texts.join('|');
  }
  QAction* ActionNamed(const QString& text) const {
    for (QAction* action : window->findChildren<QAction*>()) {
      if (action->text() == text) return action;
    }
    ADD_FAILURE() << "no action " << text.toStdString();
    return nullptr;
  }
  static const examples::Example& ExampleNamed(const std::string& name) {
    for (const examples::Example& example : examples::Examples()) {
      if (example.name == name) return example;
    }
    ADD_FAILURE() << "no example " << name;
    return examples::Examples().front();
  }

  QTemporaryDir folder;
  Dialogs dialogs;
  std::unique_ptr<ViewerWindow> window;
};

TEST_F(Viewer, OpensAChartFile) {
  EXPECT_EQ(window->GetChart(), nullptr);
  EXPECT_FALSE(ActionNamed("Save &As\u2026")->isEnabled());
  ASSERT_TRUE(window->OpenFile(BarsFile()));
  EXPECT_EQ(window->windowTitle(), "bars.chart[*]");
  EXPECT_FALSE(window->IsChanged());
  EXPECT_TRUE(ActionNamed("Save &As\u2026")->isEnabled());
  EXPECT_TRUE(Status().contains("Turned 8.0\u00b0   Tilted \u221214.0\u00b0   Zoom 100 %"))
      << Status().toStdString();
  Wait(50);
  const ChartWidget& chart = *window->GetChart();
  EXPECT_EQ(Screenshot(chart), OffscreenPicture(chart.width(), chart.height(), FillWithBars));
  EXPECT_EQ(dialogs.said, QStringList{});
}

TEST_F(Viewer, WhatCannotBeOpenedLeavesTheChartAndSaysWhatToDo) {
  ASSERT_TRUE(window->OpenFile(BarsFile()));
  const ChartWidget* const before = window->GetChart();
  QFile junk(Path("junk"));
  ASSERT_TRUE(junk.open(QIODevice::WriteOnly));
  junk.write(QByteArray(400, 'x'));
  junk.close();
  QFile empty(Path("empty"));
  ASSERT_TRUE(empty.open(QIODevice::WriteOnly));
  empty.close();
  EXPECT_FALSE(window->OpenFile(Path("missing")));
  EXPECT_FALSE(window->OpenFile(junk.fileName()));
  EXPECT_FALSE(window->OpenFile(empty.fileName()));
  ASSERT_EQ(dialogs.said.size(), 3);
  EXPECT_EQ(dialogs.said[0],
            "missing can't be shown. The file can't be opened. Check that it exists and that you "
            "may read it.");
  EXPECT_TRUE(dialogs.said[1].startsWith("junk can't be shown. This is no chart file"));
  EXPECT_TRUE(dialogs.said[2].startsWith("empty can't be shown. There is no chart in it."));
  EXPECT_EQ(window->GetChart(), before);
  EXPECT_EQ(window->windowTitle(), "bars.chart[*]");
  Wait(50);
  EXPECT_EQ(Screenshot(*before), OffscreenPicture(before->width(), before->height(), FillWithBars));
}

TEST_F(Viewer, ShowsChartsOfTheGallery) {
  const examples::Example& example = ExampleNamed("bar_rows");
  ASSERT_TRUE(window->OpenExample(example));
  EXPECT_EQ(window->windowTitle(), "bar_rows[*]");
  Wait(50);
  const ChartWidget& chart = *window->GetChart();
  EXPECT_EQ(Screenshot(chart),
            OffscreenPicture(chart.width(), chart.height(),
                             [&](CChartView3D& view) { example.draw(view, ORVALIX_DATA_FOLDER); }));
  EXPECT_TRUE(ActionNamed("Bar rows")->isChecked());
  ActionNamed("Ranges")->trigger();
  EXPECT_EQ(window->windowTitle(), "ranges[*]");
  EXPECT_FALSE(ActionNamed("Bar rows")->isChecked());
  EXPECT_TRUE(ActionNamed("Ranges")->isChecked());
}

TEST_F(Viewer, AGalleryWithoutDataSaysSo) {
  ViewerWindow poor(folder.path().toStdString());
  EXPECT_FALSE(poor.OpenExample(ExampleNamed("bar_rows")));
  ASSERT_EQ(dialogs.said.size(), 1);
  EXPECT_TRUE(dialogs.said[0].contains("electricity.csv")) << dialogs.said[0].toStdString();
}

TEST_F(Viewer, SavesAndOpensAgain) {
  ASSERT_TRUE(window->OpenExample(ExampleNamed("bar_rows")));
  window->GetChart()->RotateView(10.0, 0.0);
  const point3Dtype rotation = RotationOf(*window->GetChart());
  EXPECT_TRUE(window->SaveFile(Path("saved.chart")));
  EXPECT_EQ(window->windowTitle(), "saved.chart[*]");
  EXPECT_FALSE(window->IsChanged());
  ASSERT_TRUE(window->OpenFile(Path("saved.chart")));
  EXPECT_EQ(RotationOf(*window->GetChart()).z, rotation.z);
  EXPECT_FALSE(window->SaveFile(Path("no/such/folder/saved.chart")));
  EXPECT_EQ(dialogs.said.size(), 1);
  EXPECT_EQ(window->windowTitle(), "saved.chart[*]");
}

TEST_F(Viewer, ExportsPictures) {
  ASSERT_TRUE(window->OpenFile(BarsFile()));
  EXPECT_TRUE(window->ExportPicture(Path("bars.png")));
  EXPECT_TRUE(window->ExportPicture(Path("bars.BMP")));
  const QImage expected = OffscreenPicture(1280, 1024, FillWithBars);
  EXPECT_EQ(QImage(Path("bars.png")).convertToFormat(QImage::Format_RGB32), expected);
  EXPECT_EQ(QImage(Path("bars.BMP"), "BMP").convertToFormat(QImage::Format_RGB32), expected);
  EXPECT_FALSE(window->ExportPicture(Path("no/such/folder/bars.png")));
  EXPECT_EQ(dialogs.said.size(), 1);
  Wait(50);
  const ChartWidget& chart = *window->GetChart();
  EXPECT_EQ(Screenshot(chart), OffscreenPicture(chart.width(), chart.height(), FillWithBars));
}

TEST_F(Viewer, CopiesThePicture) {
  ASSERT_TRUE(window->OpenFile(BarsFile()));
  ActionNamed("&Copy Picture")->trigger();
  EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32),
            OffscreenPicture(1280, 1024, FillWithBars));
}

TEST_F(Viewer, SwitchesPlanes) {
  ASSERT_TRUE(window->OpenExample(ExampleNamed("bar_rows")));
  // The chart has two axes; the second ones have the planes.
  const CChart3D& chart = *window->GetChart()->GetView()->GetChart(0);
  ASSERT_EQ(chart.GetNumAxes(), 2);
  EXPECT_EQ(chart.GetAxes(0)->GetPlaneEnable(1), 0);
  CAxes3D& axes = *chart.GetAxes(1);
  QAction* const back = ActionNamed("&Back Wall (x-z)");
  QAction* const ceiling = ActionNamed("&Ceiling (x-y)");
  EXPECT_TRUE(back->isChecked());
  EXPECT_FALSE(ceiling->isChecked());
  const int grid = axes.GetGridEnable(1);
  back->trigger();
  EXPECT_EQ(axes.GetPlaneEnable(1), 0);
  EXPECT_EQ(axes.GetGridEnable(1), 0);
  EXPECT_TRUE(window->IsChanged());
  back->trigger();
  EXPECT_EQ(axes.GetPlaneEnable(1), 1);
  EXPECT_EQ(axes.GetGridEnable(1), grid);
  EXPECT_EQ(grid, 1);
  EXPECT_EQ(chart.GetAxes(0)->GetPlaneEnable(1), 0);
  ceiling->trigger();
  EXPECT_EQ(chart.GetAxes(0)->GetPlaneEnable(3), 1);
  EXPECT_EQ(chart.GetAxes(0)->GetGridEnable(3), 1);
  EXPECT_GT(chart.GetAxes(0)->GetPlaneColor(3).red, 0.5);
  EXPECT_EQ(axes.GetPlaneEnable(3), 0);
  dialogs.answers = {QMessageBox::Discard};
  EXPECT_TRUE(window->close());
}

TEST_F(Viewer, AsksBeforeChangesAreLost) {
  ASSERT_TRUE(window->OpenFile(BarsFile()));
  // A file holds how charts are turned, but no zoom.
  window->GetChart()->ZoomView(1.1);
  EXPECT_FALSE(window->IsChanged());
  window->GetChart()->RotateView(20.0, 0.0);
  EXPECT_TRUE(window->IsChanged());
  window->GetChart()->ResetView();
  EXPECT_FALSE(window->IsChanged());
  window->GetChart()->RotateView(5.0, 0.0);  // from 8 to 3 degrees
  EXPECT_TRUE(window->IsChanged());
  dialogs.answers = {QMessageBox::Cancel, QMessageBox::Cancel, QMessageBox::Cancel};
  EXPECT_FALSE(window->close());
  EXPECT_FALSE(window->OpenExample(ExampleNamed("ranges")));
  EXPECT_FALSE(window->OpenFile(Path("bars.chart")));
  EXPECT_EQ(dialogs.said.size(), 3);
  EXPECT_EQ(window->windowTitle(), "bars.chart[*]");

  dialogs.said.clear();
  dialogs.answers = {QMessageBox::Save, QMessageBox::Yes};
  EXPECT_TRUE(window->close());
  ASSERT_EQ(dialogs.said.size(), 3);
  EXPECT_EQ(dialogs.said[1], "Save Chart File");
  EXPECT_TRUE(dialogs.said[2].contains("already exists")) << dialogs.said[2].toStdString();
  ASSERT_TRUE(window->OpenFile(Path("bars.chart")));
  EXPECT_EQ(RotationOf(*window->GetChart()).z, 3.0);
}

TEST_F(Viewer, TurningAChartOfTheGalleryIsNoWorkToLose) {
  ASSERT_TRUE(window->OpenExample(ExampleNamed("bar_rows")));
  window->GetChart()->RotateView(10.0, 0.0);
  EXPECT_TRUE(Status().contains("Turned 10.0"));
  EXPECT_FALSE(window->IsChanged());
  EXPECT_TRUE(window->close());
  EXPECT_EQ(dialogs.said, QStringList{});
}

TEST_F(Viewer, RemembersItsSize) {
  window->resize(700, 500);
  Wait(50);
  EXPECT_TRUE(window->close());
  const ViewerWindow next(ORVALIX_DATA_FOLDER);
  EXPECT_EQ(next.size(), QSize(700, 500));
}

TEST_F(Viewer, OpensWhatIsDropped) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(BarsFile())});
  QDragEnterEvent enter(QPoint(100, 100), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window.get(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(100, 100), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window.get(), &drop);
  EXPECT_TRUE(WaitUntil([&] { return window->GetChart() != nullptr; }));
  EXPECT_EQ(window->windowTitle(), "bars.chart[*]");

  QMimeData text;
  text.setText("no file");
  QDragEnterEvent other(QPoint(100, 100), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
  other.ignore();
  QApplication::sendEvent(window.get(), &other);
  EXPECT_FALSE(other.isAccepted());
}

TEST_F(Viewer, ShowsAnglesWhileItIsTurnedByTheMouse) {
  if (!IsInstalled("xdotool")) GTEST_SKIP() << "there is no xdotool";
  ASSERT_TRUE(window->OpenFile(BarsFile()));
  Wait(50);
  const QString before = Status();
  const QPoint at = window->GetChart()->mapToGlobal(QPoint(100, 100));
  RunProgram("xdotool", QString("mousemove %1 %2 mousedown 1 mousemove_relative 40 0 mouseup 1")
                            .arg(at.x())
                            .arg(at.y())
                            .split(' '));
  Wait(50);
  EXPECT_NE(Status(), before);
}

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

// The program itself, on a display and without one.

QProcess& Start(QProcess& program, const QStringList& arguments) {
  program.start(ORVALIX_VIEWER, arguments);
  return program;
}

TEST(ViewerProgram, AnswersWithoutADisplay) {
  struct Case {
    QStringList arguments;
    const char* answer;
  };
  for (const Case& one : {Case{{"--help"}, "Shows a chart file"}, Case{{"--version"}, "1.0.0"},
                          Case{{"--example", "list"}, "surface"}}) {
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

}  // namespace
