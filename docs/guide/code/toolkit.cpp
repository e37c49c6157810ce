// A window and a device of a toolkit of one's own: a view draws to them and prints on them. They
// only tell what they are given; a real toolkit would show it.

#include <orvalix/orvalix.h>

#include <iostream>

namespace {

/// A screen or a printer.
class OwnDevice : public CDC {
 public:
  OwnDevice(int width, int height, int pixelsPerInch)
      : m_width(width), m_height(height), m_pixelsPerInch(pixelsPerInch) {
    CreateHostDC();
  }

  int GetDeviceCaps(int index) const override {
    switch (index) {
      case HORZRES:
        return m_width;
      case VERTRES:
        return m_height;
      case LOGPIXELSX:
      case LOGPIXELSY:
        return m_pixelsPerInch;
      case BITSPIXEL:
        return 32;
      case PLANES:
        return 1;
      default:
        return 0;
    }
  }

  // `bgra` holds the picture, top row first; stretch it over `place`.
  BOOL PutImage(const RECT& place, const void* bgra, int width, int height,
                int strideBytes) override {
    if (bgra == nullptr || strideBytes < 4 * width) return FALSE;
    std::cout << width << " x " << height << " pixels over " << place.left << ", " << place.top
              << " to " << place.right << ", " << place.bottom << "\n";
    return TRUE;
  }

 private:
  int m_width;
  int m_height;
  int m_pixelsPerInch;
};

/// A window of 320 x 240 pixels on a screen of 800 x 600.
class OwnWindow : public CWnd {
 public:
  OwnWindow() { m_hWnd = reinterpret_cast<HWND>(this); }  // whatever isn't null

  void GetClientRect(RECT* rect) const override {
    if (rect != nullptr) *rect = {0, 0, 320, 240};
  }
  CDC* GetDC() override { return &m_screen; }
  int ReleaseDC(CDC* dc) override { return dc == &m_screen ? 1 : 0; }
  void InvalidateRect(const RECT*, BOOL) override { std::cout << "to be painted\n"; }

 private:
  OwnDevice m_screen{800, 600, 96};
};

}  // namespace

int main() {
  OwnWindow window;
  CChartView3D view(&window);  // its bitmap is as large as the screen
  view.NewChart3D();

  std::cout << "On the window: ";
  view.DrawViewScreen();

  OwnDevice page(2480, 3508, 300);  // A4, upright
  std::cout << "On the page:\n";
  view.OnPrint(&page, nullptr);
}
