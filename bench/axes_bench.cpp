/// Axes and texts: frames with labels, and what it takes to register a font. Drawn into an
/// off-screen window of 800 x 600 pixels.

#include <benchmark/benchmark.h>

#include "orvalix/orvalix.h"

namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 600;

/// An x axis with that many labels, made anew for each frame, and automatic y and z axes.
void LabelFrames(benchmark::State& state) {
  const auto labels = static_cast<double>(state.range(0));
  CWnd window;
  window.CreateOffscreen(kWidth, kHeight);
  CChartView3D view(&window);
  CTransform3D* transform = nullptr;
  CChart3D* chart = view.NewChart3D({0, 0, 0, 0}, {labels, 10, 10, 0}, &transform);
  transform->SetRotate({-25.0, 0.0, 30.0, 0.0});
  CAxes3D* axes = chart->AutoAxes(transform);
  axes->SetAxisTics(0, 0.0, 1.0, 1, 0.02, 0.04, 2);
  for (auto _ : state) view.DrawViewScreen();
  state.counters["fps"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
  state.counters["labels/s"] = benchmark::Counter(static_cast<double>(state.iterations()) * labels,
                                                  benchmark::Counter::kIsRate);
}

/// The characters of one face, 128 or all 256.
void RegisterFont(benchmark::State& state) {
  CWnd window;
  window.CreateOffscreen(kWidth, kHeight);
  CChartView3D view(&window);
  for (auto _ : state) {
    view.GetOpenGLPntr()->RegisterFont("Arial", 0.1, 400, 0, static_cast<int>(state.range(0)));
  }
}

BENCHMARK(LabelFrames)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(RegisterFont)->Arg(128)->Arg(256)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
