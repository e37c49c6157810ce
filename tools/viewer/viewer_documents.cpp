#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QStatusBar>
#include <algorithm>
#include <stdexcept>

#include "orvalix/orvalix.h"
#include "viewer/background_work.h"
#include "viewer/error_text.h"
#include "viewer/viewer_window.h"

namespace orvalix {
namespace {

constexpr const char* kFolderKey = "files/folder";

/// The folder of the file opened or saved last.
QString LastFolder() { return QSettings().value(kFolderKey, QDir::homePath()).toString(); }

void RememberFolder(const QString& path) {
  QSettings().setValue(kFolderKey, QFileInfo(path).absolutePath());
}

CString FileName(const QString& path) { return QFile::encodeName(path).constData(); }

/// The file that is chosen; empty when none is. Asks before one is replaced: a desktop's dialog may
/// have asked before the suffix was added.
QString AskForNewFile(QFileDialog& dialog) {
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  while (dialog.exec() == QDialog::Accepted) {
    const QString path = dialog.selectedFiles().constFirst();
    if (!QFileInfo::exists(path)) return path;
    const auto answer = QMessageBox::question(
        &dialog, dialog.windowTitle(),
        ViewerWindow::tr("%1 already exists. Replace it?").arg(QFileInfo(path).fileName()));
    if (answer == QMessageBox::Yes) return path;
  }
  return {};
}

/// Draws a first frame, which takes longer than the ones after it, where nobody waits for it.
void WarmUp(CChartView3D& view, int width, int height) {
  CWnd canvas;
  if (canvas.CreateOffscreen(width, height))
    view.DrawViewScreen(canvas.GetDC(), 0, 0, width, height);
}

}  // namespace

void ViewerWindow::WorkOnView(ChartWidget& chart, const QString& what,
                              const std::function<void(CChartView3D&)>& work) {
  CChartView3D& view = *chart.GetView();
  // The context goes to the other thread and comes back; no chart may be painted meanwhile.
  m_isBusy = true;
  statusBar()->showMessage(what);
  chart.EnablePainting(false);
  if (m_chart != nullptr) m_chart->EnablePainting(false);
  view.GetOpenGLPntr()->MakeNonCurrent();
  const auto restore = [this, &chart] {
    chart.EnablePainting(true);
    if (m_chart != nullptr) m_chart->EnablePainting(true);
    statusBar()->clearMessage();
    m_isBusy = false;
  };
  try {
    RunInBackground(this, what, [&] {
      try {
        work(view);
      } catch (...) {
        view.GetOpenGLPntr()->MakeNonCurrent();
        throw;
      }
      view.GetOpenGLPntr()->MakeNonCurrent();
    });
  } catch (...) {
    restore();
    throw;
  }
  restore();
}

bool ViewerWindow::Open(const Document& document, const std::function<void(CChartView3D&)>& fill) {
  if (m_isBusy || !MayLoseChart()) return false;
  try {
    auto chart = std::make_unique<ChartWidget>();
    const QSize size = centralWidget()->size() * devicePixelRatioF();
    WorkOnView(*chart, tr("Opening %1\u2026").arg(document.name), [&](CChartView3D& view) {
      fill(view);
      if (view.GetNumCharts() == 0 && view.GetNumLegends() == 0) {
        throw std::runtime_error(
            tr("There is no chart in it. Choose a file that was saved by ORVALIX.").toStdString());
      }
      WarmUp(view, std::max(size.width(), 1), std::max(size.height(), 1));
    });
    ShowChart(std::move(chart), document);
    return true;
  } catch (...) {
    ShowFailure(tr("%1 can't be shown.").arg(document.name),
                AdviceOn(std::current_exception(), Purpose::kOpening));
    return false;
  }
}

void ViewerWindow::SetDocument(const Document& document) {
  m_document = document;
  setWindowTitle(QStringLiteral("%1[*]").arg(document.name));
  setWindowFilePath(document.path);
  MarkUnchanged();
  UpdateGallery();
}

void ViewerWindow::ShowChart(std::unique_ptr<ChartWidget> chart, const Document& document) {
  m_planes = std::make_unique<AxesPlanes>(*chart->GetView());
  m_chart = chart.release();
  setCentralWidget(m_chart);
  m_chart->setFocus();
  connect(m_chart, &ChartWidget::viewChanged, this, &ViewerWindow::ChartTurned);
  connect(m_chart, &ChartWidget::drawingFailed, this, [this](const QString& message) {
    ShowFailure(tr("The chart can't be drawn: %1.").arg(message),
                tr("Close other programs, or open another chart."));
  });
  connect(m_chart, &ChartWidget::copyingFailed, this, [this](const QString& message) {
    ShowFailure(tr("The picture could not be copied: %1.").arg(message),
                tr("Close other programs and try again."));
  });
  SetDocument(document);
  for (QAction* action : m_chartActions) action->setEnabled(true);
  m_hint->show();
  UpdatePlanes();
  UpdateAngles();
  UpdateSize();
}

bool ViewerWindow::OpenFile(const QString& path) {
  const QString absolute = QFileInfo(path).absoluteFilePath();
  const Document document{QFileInfo(path).fileName(), absolute};
  if (!Open(document, [&](CChartView3D& view) { view.Load(FileName(absolute)); })) return false;
  RememberFolder(absolute);
  return true;
}

bool ViewerWindow::OpenExample(const examples::Example& example) {
  return Open({QString::fromUtf8(example.name), {}},
              [&](CChartView3D& view) { example.draw(view, m_dataFolder); });
}

bool ViewerWindow::SaveFile(const QString& path) {
  const QString name = QFileInfo(path).fileName();
  try {
    WorkOnView(*m_chart, tr("Saving %1\u2026").arg(name),
               [&](CChartView3D& view) { view.Save(FileName(path)); });
  } catch (...) {
    ShowFailure(tr("%1 could not be saved. The chart is still here.").arg(name),
                AdviceOn(std::current_exception(), Purpose::kSaving));
    return false;
  }
  SetDocument({name, QFileInfo(path).absoluteFilePath()});
  RememberFolder(path);
  statusBar()->showMessage(tr("Saved %1.").arg(name), kMessageMilliseconds);
  return true;
}

bool ViewerWindow::ExportPicture(const QString& path) {
  const QString name = QFileInfo(path).fileName();
  const bool isBmp = QFileInfo(path).suffix().compare("bmp", Qt::CaseInsensitive) == 0;
  try {
    WorkOnView(*m_chart, tr("Writing %1\u2026").arg(name), [&](CChartView3D& view) {
      if (isBmp) {
        view.SaveToFile(FileName(path));
      } else {
        view.SaveToPng(FileName(path));
      }
    });
  } catch (...) {
    ShowFailure(tr("%1 could not be written.").arg(name),
                AdviceOn(std::current_exception(), Purpose::kSaving));
    return false;
  }
  RememberFolder(path);
  statusBar()->showMessage(tr("Wrote %1.").arg(name), kMessageMilliseconds);
  return true;
}

bool ViewerWindow::MayLoseChart() {
  if (!isWindowModified()) return true;
  const auto answer = QMessageBox::question(
      this, tr("Save Changes?"),
      tr("%1 has been changed. Without saving it, the changes are lost.").arg(m_document.name),
      QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
  if (answer == QMessageBox::Save) return SaveAs();
  return answer == QMessageBox::Discard;
}

void ViewerWindow::AskAndOpen() {
  const QString path = QFileDialog::getOpenFileName(this, tr("Open Chart File"), LastFolder(),
                                                    tr("Chart files (*.chart);;All files (*)"));
  if (!path.isEmpty()) OpenFile(path);
}

bool ViewerWindow::SaveAs() {
  const QString proposed = m_document.path.isEmpty()
                               ? QDir(LastFolder()).filePath(m_document.name + ".chart")
                               : m_document.path;
  QFileDialog dialog(this, tr("Save Chart File"), QFileInfo(proposed).absolutePath(),
                     tr("Chart files (*.chart);;All files (*)"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix("chart");
  dialog.selectFile(QFileInfo(proposed).fileName());
  const QString path = AskForNewFile(dialog);
  return !path.isEmpty() && SaveFile(path);
}

void ViewerWindow::AskAndExport() {
  const QString png = tr("PNG pictures (*.png)");
  const QString bmp = tr("BMP pictures (*.bmp)");
  QFileDialog dialog(this, tr("Export Picture"), LastFolder());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilters({png, bmp});
  dialog.setDefaultSuffix("png");
  dialog.selectFile(QFileInfo(m_document.name).completeBaseName() + ".png");
  connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
    const QString suffix = filter == bmp ? "bmp" : "png";
    dialog.setDefaultSuffix(suffix);
    const QStringList selected = dialog.selectedFiles();
    if (selected.isEmpty()) return;
    dialog.selectFile(QFileInfo(selected.constFirst()).completeBaseName() + '.' + suffix);
  });
  const QString path = AskForNewFile(dialog);
  if (!path.isEmpty()) ExportPicture(path);
}

}  // namespace orvalix
