/// Frames of bar charts: how many a second, drawn into the bitmap and copied to an off-screen
/// window of 800 x 600 pixels.

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "orvalix/orvalix.h"

namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 600;

/// Rows of as many bars as there are rows.
void BarFrames(benchmark::State& state) {
  const int rows = static_cast<int>(std::lround(std::sqrt(static_cast<double>(state.range(0)))));
  CWnd window;
  window.CreateOffscreen(kWidth, kHeight);
  CChartView3D view(&window);
  CTransform3D* transform = nullptr;
  const auto extent = static_cast<double>(rows);
  CChart3D* chart = view.NewChart3D({0, 0, 0, 0}, {extent, extent, 1.0, 0}, &transform);
  transform->SetRotate({-25.0, 0.0, 30.0, 0.0});
  std::vector<double> places;
  for (int i = 0; i < rows; ++i) places.push_back(i);
  for (int row = 0; row < rows; ++row) {
    std::vector<double> heights;
    for (int i = 0; i < rows; ++i) heights.push_back(0.5 + 0.5 * std::sin(0.3 * i + 0.2 * row));
    chart->NewChartObj(transform)->BarChart25D(places.data(), heights.data(), 0.0, row, rows, 0.8,
                                               0.8, SetRGBD(0.2, 0.5, 0.8, 1.0),
                                               SetRGBD(0.0, 0.0, 0.0, 1.0), 0, 0, 0);
  }
  for (auto _ : state) view.DrawViewScreen();
  state.counters["fps"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
  state.counters["bars/s"] = benchmark::Counter(
      static_cast<double>(state.iterations()) * rows * rows, benchmark::Counter::kIsRate);
}

BENCHMARK(BarFrames)->Arg(100)->Arg(2500)->Arg(40000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
