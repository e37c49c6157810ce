/// @file
/// A window of the viewer, and a user who answers its dialogs.
#pragma once

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QAction>
#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrintPreviewDialog>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QStatusBar>
#include <deque>
#include <functional>
#include <utility>

#include "qt/qt_fixture.h"
#include "viewer/viewer_window.h"

namespace orvalix::test {

/// Answers the dialogs that come up, each with its next answer, and takes down what they said.
class Dialogs {
 public:
  Dialogs() {
    m_timer.callOnTimeout([this] { Answer(); });
    m_timer.start(20);
  }

  /// Accepts a dialog, which may ask something first, once this is not being answered any more.
  static void Accept(QDialog& dialog) {
    QMetaObject::invokeMethod(&dialog, "accept", Qt::QueuedConnection);
  }
  /// Accepts a dialog with another name.
  static void Accept(QFileDialog& files, const QString& name) {
    files.selectFile(name);  // which leaves a name alone that is being edited
    auto* const edit = files.findChild<QLineEdit*>("fileNameEdit");
    ASSERT_NE(edit, nullptr);
    edit->setText(name);
    // At once: the list of files, when it is read, selects what was proposed.
    QMetaObject::invokeMethod(&files, "accept");
  }

  QStringList said;
  QList<QMessageBox::StandardButton> answers;  ///< Ok when there are no more
  /// What is done with the next dialogs for files; the name that they propose is taken when there
  /// are no more.
  std::deque<std::function<void(QFileDialog&)>> fileAnswers;
  std::function<void(QPrintDialog&)> printAnswer;           ///< before it is accepted
  std::function<void(QPrintPreviewDialog&)> previewAnswer;  ///< before it is closed

 private:
  void Answer() {
    QWidget* const dialog = QApplication::activeModalWidget();
    if (auto* const box = qobject_cast<QMessageBox*>(dialog)) {
      said << box->text() + ' ' + box->informativeText();
      const auto answer = answers.isEmpty() ? QMessageBox::Ok : answers.takeFirst();
      ASSERT_NE(box->button(answer), nullptr) << said.last().toStdString();
      box->button(answer)->click();
    } else if (auto* const files = qobject_cast<QFileDialog*>(dialog)) {
      AnswerFiles(*files);
    } else if (auto* const print = qobject_cast<QPrintDialog*>(dialog)) {
      if (printAnswer) std::exchange(printAnswer, {})(*print);
      Accept(*print);
    } else if (auto* const preview = qobject_cast<QPrintPreviewDialog*>(dialog)) {
      if (previewAnswer) std::exchange(previewAnswer, {})(*preview);
      preview->reject();
    }
  }
  void AnswerFiles(QFileDialog& files) {
    said << files.windowTitle();
    if (fileAnswers.empty()) {
      Accept(files);
      return;
    }
    const auto answer = fileAnswers.front();
    fileAnswers.pop_front();
    answer(files);
  }

  QTimer m_timer;
};

class Viewer : public ::testing::Test {
 protected:
  Viewer() : window(std::make_unique<ViewerWindow>(ORVALIX_DATA_FOLDER)) {
    CErr3D::SetErrorReportMode(0);
    QSettings().clear();
    ShowOnScreen(*window);
  }

  QString Path(const QString& name) const { return folder.filePath(name); }
  /// A file with what `fill` puts into a view.
  QString ChartFile(const QString& name, void (*fill)(CChartView3D&)) const {
    CWnd canvas;
    canvas.CreateOffscreen(20, 20);
    CChartView3D view(&canvas);
    fill(view);
    view.Save(QFile::encodeName(Path(name)).constData());
    return Path(name);
  }
  /// A file with the bars of the other tests.
  QString BarsFile() const { return ChartFile("bars.chart", FillWithBars); }
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
  void OpenBars() { ASSERT_TRUE(window->OpenFile(BarsFile())); }
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

}  // namespace orvalix::test
