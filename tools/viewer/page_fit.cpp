#include "viewer/page_fit.h"

#include <QtGui/QPagedPaintDevice>
#include <algorithm>

#include "orvalix/orvalix.h"

namespace orvalix {
namespace {

constexpr int kFitMode = 1;
constexpr int kWholePageMode = 2;
constexpr int kNormalisedMode = 3;

/// What a view asks about a page, to which nothing is painting yet.
class PageInformation : public CDC {
 public:
  explicit PageInformation(const QPagedPaintDevice& page) : m_page(page) { CreateHostDC(); }

  int GetDeviceCaps(int index) const override {
    switch (index) {
      case HORZRES:
        return m_page.width();
      case VERTRES:
        return m_page.height();
      case LOGPIXELSX:
        return m_page.logicalDpiX();
      case LOGPIXELSY:
        return m_page.logicalDpiY();
      default:
        return 0;
    }
  }

 private:
  const QPagedPaintDevice& m_page;
};

/// The place of a picture in the middle of a page, in its proportions, as scale mode 3 takes it:
/// with the margins, which are taken off it again.
REALRECT CenteredPlace(const CDC& page, const CDIBSection& picture, int marginX, int marginY) {
  const double pageWidth = page.GetDeviceCaps(HORZRES);
  const double pageHeight = page.GetDeviceCaps(VERTRES);
  // Pixels of the page for each of the picture's are k times these.
  const double unitX = page.GetDeviceCaps(LOGPIXELSX);
  const double unitY = page.GetDeviceCaps(LOGPIXELSY);
  const double k = std::min((pageWidth - 2 * marginX) / (picture.DIBWidth() * unitX),
                            (pageHeight - 2 * marginY) / (picture.DIBHeight() * unitY));
  const double width = (k * picture.DIBWidth() * unitX + 2 * marginX) / pageWidth;
  const double height = (k * picture.DIBHeight() * unitY + 2 * marginY) / pageHeight;
  return {(1.0 - width) / 2.0, (1.0 - height) / 2.0, width, height};
}

}  // namespace

void SetPrintedSize(CChartView3D& view, const QPagedPaintDevice& page, PrintedSize size) {
  if (size == PrintedSize::kWholePage) {
    view.SetPrintScaleMode(kWholePageMode);
    return;
  }
  view.SetPrintScaleMode(kFitMode);
  PageInformation information(page);
  const CDIBSection& picture = *view.GetDIBSection();
  RECT place{};
  picture.CalculatePrintRect(&information, place, kFitMode, {});
  // That mode begins at the upper left corner, less the margin.
  const int marginX = place.left;
  const int marginY = place.top;
  if (place.right + marginX <= page.width() && place.bottom + marginY <= page.height()) return;
  view.SetNormPrintRect(CenteredPlace(information, picture, marginX, marginY));
  view.SetPrintScaleMode(kNormalisedMode);
}

}  // namespace orvalix
