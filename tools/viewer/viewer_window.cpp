#include "viewer/viewer_window.h"

#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtGui/QActionGroup>
#include <QtGui/QCloseEvent>
#include <QtGui/QDragEnterEvent>
#include <QtGui/QDropEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QStatusBar>
#include <utility>

#include "orvalix/orvalix.h"
#include "viewer/gallery_menu.h"

namespace orvalix {
namespace {

constexpr QSize kFirstSize(1024, 720);
constexpr int kStatusGap = 8;
constexpr const char* kGeometryKey = "window/geometry";

QLabel* NewHint() {
  auto* const hint =
      new QLabel(ViewerWindow::tr("Open a chart file, drop one here,\n"
                                  "or choose a chart from View \u2192 Gallery."));
  hint->setAlignment(Qt::AlignCenter);
  return hint;
}

/// The first local file among what is dragged; empty when there is none.
QString FileIn(const QMimeData& data) {
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) return url.toLocalFile();
  }
  return {};
}

/// How all transforms of a view are turned.
std::vector<std::array<double, 3>> RotationsOf(const CChartView3D& view) {
  std::vector<std::array<double, 3>> rotations;
  for (int i = 0; i < view.GetNumCharts(); ++i) {
    const CChart3D& chart = *view.GetChart(i);
    for (int j = 0; j < chart.GetNumTransforms(); ++j) {
      const point3Dtype rotation = chart.GetTransform(j)->GetRotation();
      rotations.push_back({rotation.x, rotation.y, rotation.z});
    }
  }
  return rotations;
}

/// With a minus sign as long as the digits are wide.
QString Degrees(double degrees) {
  return QString::number(degrees, 'f', 1).replace('-', QChar(0x2212)) + QChar(0x00b0);
}

}  // namespace

ViewerWindow::ViewerWindow(const std::string& dataFolder) : m_dataFolder(dataFolder) {
  setAcceptDrops(true);
  setWindowTitle(QStringLiteral("[*]"));
  setCentralWidget(NewHint());
  MakeFileMenu();
  MakeEditMenu();
  MakeViewMenu();
  MakeHelpMenu();
  MakeStatusBar();
  for (QAction* action : m_chartActions) action->setEnabled(false);
  resize(kFirstSize);
  restoreGeometry(QSettings().value(kGeometryKey).toByteArray());
}

ViewerWindow::~ViewerWindow() = default;

QAction* ViewerWindow::AddForChart(QMenu& menu, const QString& text, const QKeySequence& keys,
                                   const std::function<void()>& done) {
  QAction* const action = menu.addAction(text, keys, this, done);
  m_chartActions << action;
  return action;
}

void ViewerWindow::MakeFileMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&File"));
  menu.addAction(tr("&Open\u2026"), QKeySequence::Open, this, &ViewerWindow::AskAndOpen);
  AddForChart(menu, tr("Save &As\u2026"), QKeySequence::Save, [this] { SaveAs(); });
  AddForChart(menu, tr("&Export Picture\u2026"), QKeySequence(tr("Ctrl+E")),
              [this] { AskAndExport(); });
  menu.addSeparator();
  AddForChart(menu, tr("&Print\u2026"), QKeySequence::Print, [this] { Print(); });
  AddForChart(menu, tr("Print Pre&view\u2026"), QKeySequence(tr("Ctrl+Shift+P")),
              [this] { PreviewPrint(); });
  MakePrintSizeMenu(*menu.addMenu(tr("P&rinted Size")));
  menu.addSeparator();
  menu.addAction(tr("&Quit"), QKeySequence(tr("Ctrl+Q")), this, &QWidget::close);
}

void ViewerWindow::MakePrintSizeMenu(QMenu& menu) {
  auto* const group = new QActionGroup(this);
  for (const auto& [size, text] : {std::pair(PrintedSize::kFit, tr("&Fit in Proportion")),
                                   std::pair(PrintedSize::kWholePage, tr("Fill the &Page"))}) {
    QAction* const action =
        menu.addAction(text, this, [this, size = size] { m_printedSize = size; });
    action->setCheckable(true);
    action->setChecked(size == m_printedSize);
    group->addAction(action);
  }
}

void ViewerWindow::MakeEditMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&Edit"));
  AddForChart(menu, tr("&Copy Picture"), QKeySequence::Copy, [this] { Copy(); });
}

void ViewerWindow::Copy() {
  // What fails comes as a signal, which the chart's own menu gives as well.
  if (!m_chart->CopyToClipboard()) return;
  statusBar()->showMessage(tr("The picture is on the clipboard."), kMessageMilliseconds);
}

void ViewerWindow::MakeViewMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&View"));
  MakeGalleryMenu(*menu.addMenu(tr("&Gallery")));
  MakePlanesMenu(*menu.addMenu(tr("&Planes")));
  menu.addSeparator();
  AddForChart(menu, tr("&Reset View"), QKeySequence(tr("Ctrl+0")),
              [this] { m_chart->ResetView(); });
  AddForChart(menu, tr("Zoom &In"), QKeySequence::ZoomIn,
              [this] { m_chart->ZoomView(ChartWidget::kZoomPerStep); });
  AddForChart(menu, tr("Zoom &Out"), QKeySequence::ZoomOut,
              [this] { m_chart->ZoomView(1.0 / ChartWidget::kZoomPerStep); });
  menu.addSeparator();
  m_fullScreenAction = menu.addAction(
      tr("&Full Screen"), QKeySequence(tr("F11")), this,
      [this](bool on) { setWindowState(windowState().setFlag(Qt::WindowFullScreen, on)); });
  m_fullScreenAction->setCheckable(true);
}

void ViewerWindow::MakeGalleryMenu(QMenu& menu) {
  menu.setEnabled(!m_dataFolder.empty());
  m_exampleActions = new QActionGroup(this);
  m_exampleActions->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
  FillGalleryMenu(menu, *m_exampleActions, [this](const examples::Example& example) {
    OpenExample(example);
    UpdateGallery();
  });
}

void ViewerWindow::MakePlanesMenu(QMenu& menu) {
  for (int plane = 0; plane < AxesPlanes::kPlanes; ++plane) {
    QAction* const action =
        menu.addAction(tr(AxesPlanes::NameOf(plane)), this, [this, plane](bool on) {
          m_planes->Show(plane, on);
          PlanesSwitched();
        });
    action->setCheckable(true);
    m_planeActions.at(static_cast<std::size_t>(plane)) = action;
    m_chartActions << action;
  }
}

void ViewerWindow::MakeHelpMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&Help"));
  menu.addAction(tr("&Mouse and Keys"), QKeySequence::HelpContents, this, &ViewerWindow::ShowKeys);
  menu.addAction(tr("&About"), this, &ViewerWindow::ShowAbout);
}

void ViewerWindow::MakeStatusBar() {
  m_angles = new QLabel;
  m_size = new QLabel;
  m_hint = new QLabel(tr("Drag to turn, wheel to zoom, double-click to reset"));
  m_hint->hide();
  statusBar()->addWidget(m_hint);
  for (QLabel* label : {m_angles, m_size}) {
    label->setContentsMargins(kStatusGap, 0, kStatusGap, 0);
    statusBar()->addPermanentWidget(label);
  }
}

void ViewerWindow::ShowKeys() {
  QMessageBox::information(
      this, tr("Mouse and Keys"),
      tr("<table cellspacing=4>"
         "<tr><td>Drag</td><td>turns the chart under the pointer</td></tr>"
         "<tr><td>Shift and drag, middle button</td><td>moves it</td></tr>"
         "<tr><td>Wheel</td><td>magnifies it about the pointer</td></tr>"
         "<tr><td>Double click</td><td>goes back to the first view</td></tr>"
         "<tr><td>Right button</td><td>menu</td></tr>"
         "<tr><td>Arrow keys, with Shift</td><td>turn all charts, move them</td></tr>"
         "<tr><td>+ and \u2212</td><td>magnify and shrink</td></tr>"
         "<tr><td>Home</td><td>goes back to the first view</td></tr>"
         "</table>"));
}

void ViewerWindow::ShowAbout() {
  QMessageBox::about(
      this, tr("About"),
      tr("<b>%1 %2</b><p>Shows the charts of ORVALIX.</p>")
          .arg(QApplication::applicationDisplayName(), QApplication::applicationVersion()));
}

void ViewerWindow::ShowFailure(const QString& what, const QString& advice) {
  QMessageBox box(QMessageBox::Warning, QApplication::applicationDisplayName(), what,
                  QMessageBox::Ok, this);
  box.setInformativeText(advice);
  box.exec();
}

void ViewerWindow::ChartTurned() {
  MarkChanges();
  UpdateAngles();
}

void ViewerWindow::PlanesSwitched() {
  m_planesChanged = true;
  MarkChanges();
  m_chart->update();
}

void ViewerWindow::MarkChanges() {
  // How a chart of the gallery is turned is no work of the user's; a file keeps it.
  const bool isTurned =
      !m_document.path.isEmpty() && RotationsOf(*m_chart->GetView()) != m_keptRotations;
  setWindowModified(m_planesChanged || isTurned);
}

void ViewerWindow::MarkUnchanged() {
  m_keptRotations = RotationsOf(*m_chart->GetView());
  m_planesChanged = false;
  setWindowModified(false);
}

void ViewerWindow::UpdateGallery() {
  for (QAction* action : m_exampleActions->actions()) {
    action->setChecked(m_document.path.isEmpty() && action->objectName() == m_document.name);
  }
}

void ViewerWindow::UpdateAngles() {
  const CChart3D* const chart = m_chart->GetView()->GetChart(0);
  const CTransform3D* const transform = chart != nullptr ? chart->GetTransform(0) : nullptr;
  if (transform == nullptr) {
    m_angles->clear();
  } else {
    const point3Dtype rotation = transform->GetRotation();
    double zoom = 1.0;
    double x = 0.0;
    double y = 0.0;
    chart->GetZoom(zoom, x, y);
    m_angles->setText(tr("Turned %1   Tilted %2   Zoom %3 %")
                          .arg(Degrees(rotation.z), Degrees(rotation.x))
                          .arg(zoom * 100.0, 0, 'f', 0));
  }
}

void ViewerWindow::UpdateSize() {
  const CDIBSection& picture = *m_chart->GetView()->GetDIBSection();
  m_size->setText(tr("Picture size %1 \u00d7 %2").arg(picture.DIBWidth()).arg(picture.DIBHeight()));
}

void ViewerWindow::UpdatePlanes() {
  for (int plane = 0; plane < AxesPlanes::kPlanes; ++plane) {
    QAction* const action = m_planeActions.at(static_cast<std::size_t>(plane));
    action->setEnabled(m_planes->Exist());
    action->setChecked(m_planes->IsShown(plane));
  }
}

void ViewerWindow::changeEvent(QEvent* event) {
  // Not only the action goes there and back: the window manager does, and the size of last time.
  if (event->type() == QEvent::WindowStateChange) m_fullScreenAction->setChecked(isFullScreen());
  QMainWindow::changeEvent(event);
}

void ViewerWindow::closeEvent(QCloseEvent* event) {
  if (m_isBusy || !MayLoseChart()) {
    event->ignore();
    return;
  }
  QSettings().setValue(kGeometryKey, saveGeometry());
  event->accept();
}

void ViewerWindow::dragEnterEvent(QDragEnterEvent* event) { AcceptFile(*event); }

void ViewerWindow::dragMoveEvent(QDragMoveEvent* event) { AcceptFile(*event); }

void ViewerWindow::AcceptFile(QDropEvent& event) const {
  if (m_isBusy || FileIn(*event.mimeData()).isEmpty()) {
    event.ignore();
    return;
  }
  // Whoever proposes to move the file would delete it afterwards.
  event.setDropAction(Qt::CopyAction);
  event.accept();
}

void ViewerWindow::dropEvent(QDropEvent* event) {
  AcceptFile(*event);
  if (!event->isAccepted()) return;
  const QString file = FileIn(*event->mimeData());
  // The program that the file was dragged from waits until this returns.
  QMetaObject::invokeMethod(
      this, [this, file] { OpenFile(file); }, Qt::QueuedConnection);
}

}  // namespace orvalix
