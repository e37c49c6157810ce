/// Surfaces of a million points: making them from values, following contour lines over their two
/// million triangles, and copying them into a chart.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

#include "orvalix/orvalix.h"

namespace {

constexpr int kSide = 1001;
constexpr int kLevels = 20;
constexpr int kTriangles = 1;

/// Hills and valleys between -1 and 1.
std::vector<double> Heights() {
  std::vector<double> heights;
  heights.reserve(std::size_t{kSide} * kSide);
  for (int row = 0; row < kSide; ++row) {
    for (int column = 0; column < kSide; ++column) {
      const double x = column * 0.01;
      const double y = row * 0.01;
      heights.push_back(0.6 * std::sin(x) * std::cos(0.8 * y) + 0.3 * std::sin(2.3 * x + y) +
                        0.1 * std::cos(7.0 * x - 5.0 * y));
    }
  }
  return heights;
}

CPolysurface Hills() {
  const std::vector<double> heights = Heights();
  return CPolysurface(kSide, kSide, 0.0, 0.0, 1.0, 1.0, heights.data(), kTriangles);
}

std::vector<double> Levels() {
  std::vector<double> levels;
  for (int k = 0; k < kLevels; ++k) levels.push_back(-0.95 + 0.1 * k);
  return levels;
}

void EvenGrid(benchmark::State& state) {
  const std::vector<double> heights = Heights();
  for (auto _ : state) {
    const CPolysurface surface(kSide, kSide, 0.0, 0.0, 1.0, 1.0, heights.data(), kTriangles);
    benchmark::DoNotOptimize(surface.GetPSNumPolygons());
  }
  state.counters["per point"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * kSide * kSide,
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

/// The copy that a chart keeps.
void SurfaceIntoChart(benchmark::State& state) {
  const CPolysurface surface = Hills();
  for (auto _ : state) {
    CChartObj3D series;
    series.PolysurfaceChart3D(&surface);
    benchmark::DoNotOptimize(series.GetChartType());
  }
}

void CopySurface(benchmark::State& state) {
  const CPolysurface surface = Hills();
  for (auto _ : state) {
    const CPolysurface copy(surface);
    benchmark::DoNotOptimize(copy.GetPSNumPolygons());
  }
}

/// What following is measured against: each triangle in turn with each height that crosses it.
void PlainContourLoop(benchmark::State& state) {
  const CPolysurface surface = Hills();
  const std::vector<double> levels = Levels();
  const auto polygons = static_cast<std::size_t>(surface.GetPSNumPolygons());
  std::vector<int> corners;
  for (std::size_t polygon = 0; polygon < polygons; ++polygon) {
    std::array<int, 255> indices{};
    int count = 0;
    RGBDType color{};
    surface.GetPSPolygonIndices(static_cast<int>(polygon), indices.data(), count, color, color);
    corners.insert(corners.end(), indices.begin(), indices.begin() + 3);
  }
  const point3Dtype* points = surface.GetPSPoints();
  std::size_t crossings = 0;
  for (auto _ : state) {
    crossings = 0;
    double sum = 0.0;
    for (std::size_t polygon = 0; polygon < polygons; ++polygon) {
      const std::array<const point3Dtype*, 3> vertices{points + corners[3 * polygon],
                                                       points + corners[3 * polygon + 1],
                                                       points + corners[3 * polygon + 2]};
      const double low = std::min({vertices[0]->z, vertices[1]->z, vertices[2]->z});
      const double high = std::max({vertices[0]->z, vertices[1]->z, vertices[2]->z});
      auto k = static_cast<std::size_t>(std::max(0.0, std::ceil((low - levels[0]) / 0.1)));
      for (; k < levels.size() && levels[k] <= high; ++k) {
        ++crossings;
        for (std::size_t edge = 0; edge < 3; ++edge) {
          const point3Dtype& a = *vertices[edge];
          const point3Dtype& b = *vertices[(edge + 1) % 3];
          if ((a.z <= levels[k]) == (b.z <= levels[k])) continue;
          const double t = (levels[k] - a.z) / (b.z - a.z);
          sum += a.x + t * (b.x - a.x) + a.y + t * (b.y - a.y);
        }
      }
    }
    benchmark::DoNotOptimize(sum);
  }
  state.counters["crossings"] = static_cast<double>(crossings);
}

/// Following all lines without drawing them.
void FollowContours(benchmark::State& state) {
  const CPolysurface surface = Hills();
  const std::vector<double> levels = Levels();
  long long crossings = 0;
  for (auto _ : state) {
    const CContour3D contour(nullptr, nullptr, &surface, levels.data(), nullptr, kLevels, 0.0, 0);
    crossings = contour.GetNumCrossings();
  }
  state.counters["crossings"] = static_cast<double>(crossings);
}

BENCHMARK(EvenGrid)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(CopySurface)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(SurfaceIntoChart)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(PlainContourLoop)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(FollowContours)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
