// Pixels of the program's own
// A chart in memory that belongs to the program, without any toolkit: whatever can show pixels can
// show charts. Writes them to the standard output as a PPM picture.

#include <orvalix/orvalix.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <vector>

namespace {

constexpr int kWidth = 640;
constexpr int kHeight = 480;

void FillView(CChartView3D& view) {
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0.0, 0.0, 0.0, 0.0}, {5.0, 1.0, 10.0, 0.0}, &transform);
  transform->SetRotate({-14.0, 0.0, 8.0, 0.0});
  chart->AutoAxes(transform);
  const std::array<double, 4> month{1.0, 2.0, 3.0, 4.0};
  const std::array<double, 4> sales{4.0, 7.5, 6.0, 9.0};
  chart->NewChartObj(transform)->BarChart25D(month.data(), sales.data(), 0.0, 0.5, 4, 0.8, 0.5,
                                             SetRGBD(0.2, 0.5, 0.9, 1.0),
                                             SetRGBD(0.1, 0.1, 0.1, 1.0), 1, 1, 0);
}

void WritePpm(const std::vector<std::uint32_t>& pixels) {
  std::printf("P6\n%d %d\n255\n", kWidth, kHeight);
  for (const std::uint32_t pixel : pixels) {
    for (const int bits : {16, 8, 0}) std::putchar(static_cast<int>(pixel >> bits & 0xFF));
  }
}

}  // namespace

int main() {
  std::vector<std::uint32_t> pixels(std::size_t{kWidth} * kHeight);  // blue in the lowest byte
  CDC device;
  device.CreateOnPixels(pixels.data(), kWidth, kHeight, kWidth * 4);

  try {
    CWnd window;
    window.CreateOffscreen(kWidth, kHeight);
    CChartView3D view(&window);
    FillView(view);
    view.DrawViewScreen(&device);
  } catch (const CErr3D&) {
    return 1;  // a message has told why
  }
  WritePpm(pixels);
  return 0;
}
