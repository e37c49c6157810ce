#include "orvalix/qt/chart_widget.h"

#include <orvalix/orvalix.h>

#include <QtCore/QMetaObject>
#include <QtGui/QPagedPaintDevice>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

#include "orvalix/qt/device_properties_internal.h"
#include "orvalix/qt/navigation_internal.h"
#include "orvalix/qt/page_dc_internal.h"
#include "orvalix/qt/qt_dc.h"
#include "orvalix/qt/qt_wnd.h"

using orvalix::Navigation;
using orvalix::ViewPoint;

namespace {

constexpr QSize kUsualSize(640, 480);
constexpr QSize kSmallestSize(80, 60);

QString MessageOf(const CErr3D& error) {
  const CString description = error.GetErrorDescription(error.GetErrorType());
  return QString::fromUtf8(static_cast<const char*>(description));
}

/// True when the picture that was copied last went on to the clipboard of all programs: what its
/// handler refuses stays within this one.
bool IsPassedOn() {
  if (!OpenClipboard(nullptr)) return false;
  const bool isKept = GetClipboardData(CF_BITMAP) != nullptr;
  CloseClipboard();
  return !isKept;
}

}  // namespace

ChartWidget::ChartWidget(QWidget* parent) : ChartWidget(orvalix::LargestScreen(), parent) {}

ChartWidget::ChartWidget(const QSize& bitmapSize, QWidget* parent)
    : QWidget(parent),
      m_interactions(kRotation | kZoom | kPanning | kReset | kContextMenu | kKeyboard) {
  m_window = std::make_unique<CQtWnd>(this);
  m_view = std::make_unique<CChartView3D>(m_window.get(), bitmapSize.width(), bitmapSize.height());
  m_dc = std::make_unique<CQtDC>();
  m_navigation = std::make_unique<Navigation>(*m_view);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("3D chart"));
  setAccessibleDescription(
      tr("Arrow keys turn the chart, with Shift they move it; plus and minus "
         "magnify it; Home goes back to the first view."));
}

ChartWidget::~ChartWidget() = default;

CChartView3D* ChartWidget::GetView() const { return m_view.get(); }

void ChartWidget::SetInteractions(Interactions interactions) { m_interactions = interactions; }

ChartWidget::Interactions ChartWidget::GetInteractions() const { return m_interactions; }

void ChartWidget::EnableInteraction(Interaction interaction, bool enable) {
  m_interactions.setFlag(interaction, enable);
}

bool ChartWidget::Allows(Interaction interaction) const {
  return m_interactions.testFlag(interaction);
}

void ChartWidget::RotateView(double right, double up) {
  m_navigation->Rotate(m_navigation->AllCharts(), right, up);
  Changed();
}

void ChartWidget::ZoomView(double factor) {
  const ViewPoint size = SizeInPixels();
  // Outside of every chart, so that each grows about its own middle.
  m_navigation->Zoom(m_navigation->AllCharts(), factor, {-1.0, -1.0}, size);
  Changed();
}

void ChartWidget::PanView(double right, double down) {
  const double ratio = devicePixelRatioF();
  m_navigation->Pan(m_navigation->AllCharts(), {right * ratio, down * ratio}, SizeInPixels());
  Changed();
}

void ChartWidget::ResetView() {
  m_navigation->Reset();
  Changed();
}

void ChartWidget::KeepView() { m_navigation->Keep(); }

void ChartWidget::Changed() {
  update();
  emit viewChanged();
}

bool ChartWidget::CopyToClipboard() {
  QString failure;
  try {
    m_view->CopyToClipboard();
    if (IsPassedOn()) return true;
    // Nobody has thrown, and so nobody has told.
    failure = tr("The clipboard doesn't take the picture");
    if (CErr3D::nErrorReportMode == 1) AfxMessageBox(failure.toUtf8().constData());
  } catch (const CErr3D& error) {
    failure = MessageOf(error);
  }
  emit copyingFailed(failure);
  return false;
}

bool ChartWidget::Print(QPagedPaintDevice& pages) {
  orvalix::PageDC dc(pages);
  CPrintInfo info;
  try {
    m_view->OnPrint(&dc, &info);
    m_view->OnEndPrinting(&dc, &info);
  } catch (const CErr3D&) {
    return false;
  }
  return dc.End();
}

QSize ChartWidget::sizeHint() const { return kUsualSize; }

QSize ChartWidget::minimumSizeHint() const { return kSmallestSize; }

ViewPoint ChartWidget::ToPixels(const QPointF& position) const {
  const double ratio = devicePixelRatioF();
  return {position.x() * ratio, position.y() * ratio};
}

ViewPoint ChartWidget::SizeInPixels() const { return ToPixels(QPointF(width(), height())); }

void ChartWidget::EnablePainting(bool enable) {
  if (enable == m_isPainting) return;
  m_isPainting = enable;
  m_keptFrame = enable ? QImage() : CopyOfFrame();
  if (enable) update();
}

/// Null when the bitmap holds another picture, for example one for the clipboard.
QImage ChartWidget::CopyOfFrame() const {
  int width = 0;
  int height = 0;
  m_view->GetViewSize(width, height);
  RECT client{};
  m_window->GetClientRect(&client);
  if (!m_wasPainted || width != client.right || height != client.bottom) return {};
  QImage frame(width, height, QImage::Format_RGB32);
  if (frame.isNull()) return {};
  QPainter painter(&frame);
  painter.fillRect(frame.rect(), palette().window());
  CQtDC dc(&painter);
  CDIBSection& bitmap = *m_view->GetDIBSection();
  dc.BitBlt(0, 0, width, height, bitmap.GetTargetDC(), 0, bitmap.DIBHeight() - height, SRCCOPY);
  painter.end();
  frame.setDevicePixelRatio(devicePixelRatioF());
  return frame;
}

void ChartWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (m_isPainting) PaintView(painter);
  if (!m_failure.isNull()) {
    PaintFailure(painter);
  } else if (m_isPainting) {
    PaintRest(painter);
  } else {
    PaintKeptFrame(painter);
  }
}

void ChartWidget::PaintView(QPainter& painter) {
  m_wasPainted = true;
  m_dc->SetPainter(&painter);
  try {
    m_view->DrawViewScreen(m_dc.get());
    m_failure = QString();
  } catch (const CErr3D& error) {
    Fail(MessageOf(error));
  }
  m_dc->SetPainter(nullptr);
}

void ChartWidget::PaintKeptFrame(QPainter& painter) const {
  painter.fillRect(rect(), palette().window());
  painter.drawImage(0, 0, m_keptFrame);
}

/// The view lies at the lower left; a widget that is larger than its bitmap has more.
void ChartWidget::PaintRest(QPainter& painter) const {
  const CDIBSection* const bitmap = m_view->GetDIBSection();
  const double unit = 1.0 / devicePixelRatioF();
  const double drawnWidth = bitmap->DIBWidth() * unit;
  const double drawnHeight = bitmap->DIBHeight() * unit;
  const QRectF above(0.0, 0.0, width(), height() - drawnHeight);
  const QRectF beside(drawnWidth, 0.0, width() - drawnWidth, height());
  if (above.height() > 0.0) painter.fillRect(above, palette().window());
  if (beside.width() > 0.0) painter.fillRect(beside, palette().window());
}

void ChartWidget::PaintFailure(QPainter& painter) const {
  painter.fillRect(rect(), palette().window());
  painter.setPen(palette().windowText().color());
  painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                   tr("The chart can't be drawn: %1.").arg(m_failure));
}

void ChartWidget::Fail(const QString& message) {
  const bool isKnown = !m_failure.isNull();
  m_failure = message;
  if (isKnown) return;
  // Who is told may open a box, which must not wait within painting.
  const auto tell = [this, message] { emit drawingFailed(message); };
  QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}
