#include <QtGui/QGuiApplication>
#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrintPreviewDialog>
#include <QtPrintSupport/QPrinter>

#include "viewer/page_fit.h"
#include "viewer/viewer_window.h"

namespace orvalix {
namespace {

/// Charts are wider than tall, as is the bitmap.
void SetUpPrinter(QPrinter& printer, const QString& name) {
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setDocName(name);
}

}  // namespace

void ViewerWindow::Print() {
  QPrinter printer(QPrinter::HighResolution);
  SetUpPrinter(printer, m_document.name);
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() == QDialog::Accepted) PrintOn(printer);
}

void ViewerWindow::PreviewPrint() {
  QPrinter printer(QPrinter::HighResolution);
  SetUpPrinter(printer, m_document.name);
  QPrintPreviewDialog preview(&printer, this);
  connect(&preview, &QPrintPreviewDialog::paintRequested, this,
          [this](QPrinter* pages) { PrintOn(*pages); });
  preview.resize(size());
  preview.exec();
}

void ViewerWindow::PrintOn(QPrinter& printer) {
  SetPrintedSize(*m_chart->GetView(), printer, m_printedSize);
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const bool isPrinted = m_chart->Print(printer);
  QGuiApplication::restoreOverrideCursor();
  if (isPrinted) return;
  ShowFailure(
      tr("The chart could not be printed."),
      tr("Check that the printer is ready, or that the file can be written, and try again."));
}

}  // namespace orvalix
