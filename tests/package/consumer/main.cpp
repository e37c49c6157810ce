// Draws three bars without a display, looks for their colour in the picture, and catches an error.

#include <orvalix/orvalix.h>

#include <cstdio>

namespace {

/// Number of pixels of the view's last picture that are mostly red.
int CountRedPixels(const CDIBSection& dib) {
  int count = 0;
  for (int y = 0; y < dib.DIBHeight(); ++y) {
    const unsigned char* row =
        static_cast<const unsigned char*>(dib.FindDIBBits()) + y * dib.StorageWidth();
    for (int x = 0; x < dib.DIBWidth(); ++x) {
      const unsigned char* bgra = row + 4 * x;
      if (bgra[2] > 2 * bgra[1] && bgra[2] > 2 * bgra[0]) ++count;
    }
  }
  return count;
}

bool DrawsBars() {
  CWnd window;
  window.CreateOffscreen(160, 120);
  CChartView3D view(&window);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.0, 0.0, 0.0}, {4.0, 1.0, 3.0, 0.0}, &transform);
  double x[] = {1.0, 2.0, 3.0};
  double y[] = {1.0, 3.0, 2.0};
  chart->NewChartObj(transform)->BarChart25D(x, y, 0.0, 0.5, 3, 0.8, 0.5, SetRGBD(1, 0, 0, 1),
                                             SetRGBD(0, 0, 0, 1), 1, 1, 0);
  view.DrawViewScreen();
  const int red = CountRedPixels(*view.GetDIBSection());
  std::printf("%d red pixels\n", red);
  return red > 100;
}

bool CatchesErrors() {
  CErr3D::SetErrorReportMode(0);
  try {
    const CChartView3D view(nullptr);
  } catch (CErr3D& error) {
    std::printf("caught type %d in %s\n", static_cast<int>(error.GetErrorType()),
                static_cast<const char*>(error.GetErrorLocation()));
    return error.GetErrorType() == 11;
  }
  return false;
}

}  // namespace

int main() { return DrawsBars() && CatchesErrors() ? 0 : 1; }
