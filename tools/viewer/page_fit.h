/// @file
/// Printing a picture so that all of it is on the page.
#pragma once

class CChartView3D;
class QPagedPaintDevice;

namespace orvalix {

/// Where the viewer prints charts.
enum class PrintedSize {
  kFit,       ///< in proportion, as large as the page allows
  kWholePage  ///< stretched over the page
};

/// Sets a view's print scale mode and print rectangle for a page. A picture that scale mode 1 would
/// let reach beyond the page stands in the middle of it instead.
void SetPrintedSize(CChartView3D& view, const QPagedPaintDevice& page, PrintedSize size);

}  // namespace orvalix
