#include "viewer/viewer_window.h"

#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtGui/QDropEvent>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

#include "qt/viewer_fixture.h"
#include "support/allocation_failure.h"

namespace {

using namespace orvalix::test;
using orvalix::ViewerWindow;

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

// On a screen of 768 pixels, with a line of 22 pixels for each chart: 34 and no more.
TEST_F(Viewer, TheGallerysMenusFitOnASmallScreen) {
  QMenu* gallery = nullptr;
  for (QMenu* menu : window->findChildren<QMenu*>()) {
    if (menu->title() == "&Gallery") gallery = menu;
  }
  ASSERT_NE(gallery, nullptr);
  std::size_t charts = 0;
  for (const QAction* kind : gallery->actions()) {
    ASSERT_NE(kind->menu(), nullptr) << kind->text().toStdString();
    EXPECT_LE(kind->menu()->actions().size(), 12) << kind->text().toStdString();
    EXPECT_GE(kind->menu()->actions().size(), 2) << kind->text().toStdString();
    charts += static_cast<std::size_t>(kind->menu()->actions().size());
  }
  EXPECT_LE(gallery->actions().size(), 12);
  EXPECT_EQ(charts, examples::Examples().size());
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

TEST_F(Viewer, ExportsInTheFormatThatIsChosen) {
  OpenBars();
  dialogs.fileAnswers.emplace_back([](QFileDialog& files) {
    EXPECT_TRUE(files.selectedFiles().constFirst().endsWith("bars.png"));
    auto* const formats = files.findChild<QComboBox*>("fileTypeCombo");
    ASSERT_NE(formats, nullptr);
    formats->setCurrentIndex(1);
    emit formats->activated(1);
    emit formats->textActivated(formats->currentText());
    EXPECT_TRUE(files.selectedFiles().constFirst().endsWith("bars.bmp"))
        << files.selectedFiles().constFirst().toStdString();
    Dialogs::Accept(files);
  });
  ActionNamed("&Export Picture\u2026")->trigger();
  EXPECT_FALSE(QImage(Path("bars.bmp"), "BMP").isNull());
  // Without a suffix it is the format's.
  dialogs.fileAnswers.emplace_back([](QFileDialog& files) { Dialogs::Accept(files, "other"); });
  ActionNamed("&Export Picture\u2026")->trigger();
  EXPECT_FALSE(QImage(Path("other.png"), "PNG").isNull());
  EXPECT_EQ(dialogs.said, (QStringList{"Export Picture", "Export Picture"}));
}

TEST_F(Viewer, AsksBeforeAFileIsReplacedThatGetsItsSuffix) {
  OpenBars();
  QFile kept(Path("kept.chart"));
  ASSERT_TRUE(kept.open(QIODevice::WriteOnly));
  kept.write("something");
  kept.close();
  const auto type = [](QFileDialog& files) { Dialogs::Accept(files, "kept"); };
  dialogs.fileAnswers = {type, [](QFileDialog& files) { files.reject(); }};
  dialogs.answers = {QMessageBox::No};
  ActionNamed("Save &As\u2026")->trigger();
  EXPECT_EQ(dialogs.said, (QStringList{"Save Chart File", "kept.chart already exists. Replace it? ",
                                       "Save Chart File"}));
  EXPECT_EQ(QFileInfo(kept).size(), 9);
  EXPECT_EQ(window->windowTitle(), "bars.chart[*]");

  dialogs.fileAnswers = {type};
  dialogs.answers = {QMessageBox::Yes};
  ActionNamed("Save &As\u2026")->trigger();
  EXPECT_GT(QFileInfo(Path("kept.chart")).size(), 9);
  EXPECT_EQ(window->windowTitle(), "kept.chart[*]");
  EXPECT_EQ(window->windowFilePath(), Path("kept.chart"));
}

TEST_F(Viewer, CopiesThePicture) {
  ASSERT_TRUE(window->OpenFile(BarsFile()));
  ActionNamed("&Copy Picture")->trigger();
  EXPECT_EQ(window->statusBar()->currentMessage(), "The picture is on the clipboard.");
  EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32),
            OffscreenPicture(1280, 1024, FillWithBars));
}

TEST_F(Viewer, SaysThatItCouldNotCopy) {
  OpenBars();
  OpenClipboard(nullptr);
  ActionNamed("&Copy Picture")->trigger();
  CloseClipboard();
  EXPECT_EQ(dialogs.said,
            QStringList{"The picture could not be copied: The clipboard doesn't take the picture. "
                        "Close other programs and try again."});
  EXPECT_NE(window->statusBar()->currentMessage(), "The picture is on the clipboard.");
}

TEST_F(Viewer, SaysOnceThatAChartCannotBeDrawn) {
  OpenBars();
  FillWithContours(*window->GetChart()->GetView());
  const LargeAllocationFailure poor(kPoor);
  for (int i = 0; i < 5; ++i) {
    window->GetChart()->update();
    Wait(50);
  }
  EXPECT_EQ(dialogs.said, QStringList{"The chart can't be drawn: Object New Error. "
                                      "Close other programs, or open another chart."});
}

TEST_F(Viewer, ChartsWithoutAxesHaveNoPlanes) {
  CWnd canvas;
  canvas.CreateOffscreen(20, 20);
  CChartView3D view(&canvas);
  view.NewChart3D();
  view.Save(QFile::encodeName(Path("plain.chart")).constData());
  ASSERT_TRUE(window->OpenFile(Path("plain.chart")));
  EXPECT_FALSE(ActionNamed("&Floor (x-y)")->isEnabled());
  EXPECT_FALSE(ActionNamed("R&ight Wall (y-z)")->isEnabled());
  OpenBars();
  EXPECT_TRUE(ActionNamed("&Floor (x-y)")->isEnabled());
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
  EXPECT_EQ(dialogs.said[2], "bars.chart already exists. Replace it? ");
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

TEST_F(Viewer, FullScreenGoesThereAndBack) {
  QAction* const full = ActionNamed("&Full Screen");
  EXPECT_FALSE(full->isChecked());
  full->trigger();
  EXPECT_TRUE(window->isFullScreen());
  EXPECT_TRUE(full->isChecked());
  window->setWindowState(window->windowState().setFlag(Qt::WindowFullScreen, false));
  EXPECT_FALSE(full->isChecked());

  full->trigger();
  EXPECT_TRUE(window->close());
  window = std::make_unique<ViewerWindow>(ORVALIX_DATA_FOLDER);
  ASSERT_TRUE(window->isFullScreen());
  EXPECT_TRUE(ActionNamed("&Full Screen")->isChecked());
  ActionNamed("&Full Screen")->trigger();
  EXPECT_FALSE(window->isFullScreen());
}

TEST_F(Viewer, WaitsWithClosingAndDropsWhileItWorks) {
  const QString path = BarsFile();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(path)});
  bool wasAsked = false;
  QTimer::singleShot(0, window.get(), [&] {
    wasAsked = true;
    EXPECT_EQ(window->GetChart(), nullptr);
    EXPECT_FALSE(window->close());
    QDragEnterEvent enter(QPoint(100, 100), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    EXPECT_FALSE(enter.isAccepted());
    QDropEvent drop(QPointF(100, 100), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
    EXPECT_FALSE(drop.isAccepted());
  });
  EXPECT_TRUE(window->OpenFile(path));
  EXPECT_TRUE(wasAsked);
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(window->close());
}

// Whoever offers to move a file deletes it once it has been taken.
TEST_F(Viewer, CopiesWhatIsToBeMoved) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(BarsFile())});
  const Qt::DropActions offered = Qt::MoveAction | Qt::CopyAction;
  QDragEnterEvent enter(QPoint(100, 100), offered, &data, Qt::LeftButton, Qt::ShiftModifier);
  QDragMoveEvent move(QPoint(110, 100), offered, &data, Qt::LeftButton, Qt::ShiftModifier);
  QDropEvent drop(QPointF(110, 100), offered, &data, Qt::LeftButton, Qt::ShiftModifier);
  for (QDropEvent* event : std::initializer_list<QDropEvent*>{&enter, &move, &drop}) {
    event->setDropAction(Qt::MoveAction);
    QApplication::sendEvent(window.get(), event);
    EXPECT_TRUE(event->isAccepted());
    EXPECT_EQ(event->dropAction(), Qt::CopyAction);
  }
  EXPECT_TRUE(WaitUntil([&] { return window->GetChart() != nullptr; }));
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

}  // namespace
