/// Triangulations of scattered points: how many points a second, and the most memory that they take
/// meanwhile. Sorting the same points along a curve, the least that an algorithm which goes from
/// point to point has to do, is measured beside it.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

#include "orvalix/orvalix.h"

namespace {

std::size_t g_allocated = 0;      // bytes now
std::size_t g_mostAllocated = 0;  // bytes at most since the meter was set

void* Allocate(std::size_t size) {
  void* memory = std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  g_allocated += malloc_usable_size(memory);
  g_mostAllocated = std::max(g_mostAllocated, g_allocated);
  return memory;
}

void Release(void* memory) {
  g_allocated -= malloc_usable_size(memory);
  std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void operator delete(void* memory) noexcept { Release(memory); }
void operator delete[](void* memory) noexcept { Release(memory); }
void operator delete(void* memory, std::size_t) noexcept { Release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { Release(memory); }

namespace {

using Random = std::mt19937_64;
using Points = std::vector<point3Dtype>;

double Uniform(Random& random) { return std::uniform_real_distribution<double>(0, 1)(random); }

double Normal(Random& random) { return std::normal_distribution<double>()(random); }

// Each makes point i of n.

point3Dtype Scattered(Random& random, int, int) { return {Uniform(random), Uniform(random), 0, 0}; }

point3Dtype OnGrid(Random&, int i, int n) {
  const int side = static_cast<int>(std::sqrt(n));
  return {std::floor(i % side), std::floor(i / side), 0, 0};
}

point3Dtype OnSpiral(Random&, int i, int n) {
  const double turns = 100.0 * i / n;
  const double angle = 2 * std::numbers::pi * turns;
  return {turns * std::cos(angle), turns * std::sin(angle), 0, 0};
}

point3Dtype InClusters(Random& random, int i, int) {
  constexpr int kClusters = 1000;
  Random centre(static_cast<std::uint64_t>(i % kClusters));
  constexpr double kSpread = 1e-6;
  return {Uniform(centre) + kSpread * Normal(random), Uniform(centre) + kSpread * Normal(random), 0,
          0};
}

point3Dtype Repeated(Random& random, int, int) {
  constexpr double kPlaces = 100;
  return {std::floor(kPlaces * Uniform(random)), std::floor(kPlaces * Uniform(random)), 0, 0};
}

point3Dtype OnCircle(Random& random, int, int) {
  const double angle = 2 * std::numbers::pi * Uniform(random);
  return {std::cos(angle), std::sin(angle), 0, 0};
}

point3Dtype InTwoFarClusters(Random& random, int i, int) {
  constexpr double kSize = 1e-6;
  return {i % 2 + kSize * Uniform(random), i % 2 + kSize * Uniform(random), 0, 0};
}

point3Dtype OnLine(Random& random, int, int) {
  const double at = Uniform(random);
  return {at, at, 0, 0};
}

using MakePoint = point3Dtype (*)(Random& random, int i, int n);

Points MakePoints(int n, MakePoint makePoint) {
  Random random(1);
  Points points;
  for (int i = 0; i < n; ++i) points.push_back(makePoint(random, i, n));
  return points;
}

/// How far along the Hilbert curve a cell of 2^32 by 2^32 lies.
std::uint64_t CurvePosition(std::uint64_t x, std::uint64_t y) {
  std::uint64_t position = 0;
  for (int level = 31; level >= 0; --level) {
    const std::uint64_t right = x >> level & 1;
    const std::uint64_t upper = y >> level & 1;
    position = position << 2 | ((3 * right) ^ upper);
    // Without branches: in the lower quarters the curve is mirrored about a diagonal.
    const std::uint64_t turned = 0 - (right & ~upper);
    const std::uint64_t exchanged = ((x ^ y) & (upper - 1));
    x ^= turned ^ exchanged;
    y ^= turned ^ exchanged;
  }
  return position;
}

void SortAlongCurve(const Points& points) {
  const auto byX = [](const point3Dtype& a, const point3Dtype& b) { return a.x < b.x; };
  const auto byY = [](const point3Dtype& a, const point3Dtype& b) { return a.y < b.y; };
  const auto [left, right] = std::minmax_element(points.begin(), points.end(), byX);
  const auto [lower, upper] = std::minmax_element(points.begin(), points.end(), byY);
  const double scale = 4294967295.0 / std::max(right->x - left->x, upper->y - lower->y);
  std::vector<std::pair<std::uint64_t, int>> sorted;
  sorted.reserve(points.size());
  for (const point3Dtype& point : points) {
    const auto x = static_cast<std::uint64_t>((point.x - left->x) * scale);
    const auto y = static_cast<std::uint64_t>((point.y - lower->y) * scale);
    sorted.emplace_back(CurvePosition(x, y), static_cast<int>(sorted.size()));
  }
  std::sort(sorted.begin(), sorted.end());
  benchmark::DoNotOptimize(sorted.data());
}

void CountPoints(benchmark::State& state) {
  state.counters["points/s"] = benchmark::Counter(
      static_cast<double>(state.iterations() * state.range(0)), benchmark::Counter::kIsRate);
}

void Sort(benchmark::State& state, MakePoint makePoint) {
  const Points points = MakePoints(static_cast<int>(state.range(0)), makePoint);
  for (auto _ : state) SortAlongCurve(points);
  CountPoints(state);
}

void Triangulate(benchmark::State& state, MakePoint makePoint) {
  const Points points = MakePoints(static_cast<int>(state.range(0)), makePoint);
  CPolysurface mesh(points.data(), 0, static_cast<int>(points.size()));
  const std::size_t before = g_allocated;
  g_mostAllocated = before;
  for (auto _ : state) mesh.DelaunaySurface(0);
  CountPoints(state);
  state.counters["triangles"] = mesh.GetPSNumPolygons();
  state.counters["bytes/point"] =
      static_cast<double>(g_mostAllocated - before) / static_cast<double>(state.range(0));
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(Sort, Scattered, Scattered)->Apply(Sizes);
BENCHMARK_CAPTURE(Triangulate, Scattered, Scattered)->Apply(Sizes);
BENCHMARK_CAPTURE(Triangulate, OnGrid, OnGrid)->Apply(Sizes);
BENCHMARK_CAPTURE(Triangulate, OnSpiral, OnSpiral)->Apply(Sizes);
BENCHMARK_CAPTURE(Triangulate, InClusters, InClusters)->Apply(Sizes);
BENCHMARK_CAPTURE(Triangulate, Repeated, Repeated)->Apply(Sizes);
BENCHMARK_CAPTURE(Triangulate, OnCircle, OnCircle)->Apply(Sizes);
BENCHMARK_CAPTURE(Triangulate, InTwoFarClusters, InTwoFarClusters)->Apply(Sizes);
BENCHMARK_CAPTURE(Triangulate, OnLine, OnLine)->Apply(Sizes);

}  // namespace
