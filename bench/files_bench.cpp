/// Files: the surface of a million points against a plain copy of its file, and a chart of many
/// small objects.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "orvalix/orvalix.h"

namespace {

constexpr int kSide = 1001;
constexpr int kTriangles = 1;
constexpr int kTexts = 10000;

/// A name in the folder for temporary files, which is removed at the end.
class TemporaryFile {
 public:
  explicit TemporaryFile(const char* name)
      : m_path((std::filesystem::temp_directory_path() / name).string()) {}
  ~TemporaryFile() { std::filesystem::remove(m_path); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  CString Name() const { return m_path.c_str(); }
  const std::string& Path() const { return m_path; }
  std::int64_t Size() const {
    return static_cast<std::int64_t>(std::filesystem::file_size(m_path));
  }

 private:
  std::string m_path;
};

CPolysurface Hills() {
  std::vector<double> heights;
  heights.reserve(std::size_t{kSide} * kSide);
  for (int row = 0; row < kSide; ++row) {
    for (int column = 0; column < kSide; ++column) {
      heights.push_back(std::sin(column * 0.01) * std::cos(row * 0.01));
    }
  }
  return CPolysurface(kSide, kSide, 0.0, 0.0, 1.0, 1.0, heights.data(), kTriangles);
}

/// What saving and loading are held against: the same bytes read and written by streams, block by
/// block, into a file that is made anew.
void Copy(benchmark::State& state) {
  const TemporaryFile from("orvalix_bench_from.ps");
  const TemporaryFile to("orvalix_bench_to.ps");
  Hills().Save(from.Name());
  std::vector<char> block(std::size_t{1} << 16);
  for (auto _ : state) {
    std::filesystem::remove(to.Path());
    std::ifstream in(from.Path(), std::ios::binary);
    std::ofstream out(to.Path(), std::ios::binary);
    while (in.read(block.data(), static_cast<std::streamsize>(block.size())) || in.gcount() > 0) {
      out.write(block.data(), in.gcount());
    }
  }
  state.SetBytesProcessed(state.iterations() * from.Size());
}

void SaveSurface(benchmark::State& state) {
  const TemporaryFile file("orvalix_bench_save.ps");
  const CPolysurface surface = Hills();
  for (auto _ : state) surface.Save(file.Name());
  state.SetBytesProcessed(state.iterations() * file.Size());
}

void LoadSurface(benchmark::State& state) {
  const TemporaryFile file("orvalix_bench_load.ps");
  Hills().Save(file.Name());
  for (auto _ : state) {
    const CPolysurface surface{file.Name()};
    benchmark::DoNotOptimize(surface.GetPSNumPolygons());
  }
  state.SetBytesProcessed(state.iterations() * file.Size());
}

void FillWithTexts(CChartView3D& view) {
  CChart3D* chart = view.NewChart3D();
  CTransform3D* transform = chart->NewTransform({0, 0, 0, 0}, {1, 1, 1, 0});
  for (int i = 0; i < kTexts; ++i) chart->NewChartTextObj(transform, "a text");
}

void SaveTexts(benchmark::State& state) {
  const TemporaryFile file("orvalix_bench_save.chart");
  CWnd window;
  window.CreateOffscreen(100, 100);
  CChartView3D view(&window);
  FillWithTexts(view);
  for (auto _ : state) view.Save(file.Name());
  state.SetBytesProcessed(state.iterations() * file.Size());
  state.SetItemsProcessed(state.iterations() * kTexts);
}

void LoadTexts(benchmark::State& state) {
  const TemporaryFile file("orvalix_bench_load.chart");
  CWnd window;
  window.CreateOffscreen(100, 100);
  CChartView3D view(&window);
  FillWithTexts(view);
  view.Save(file.Name());
  for (auto _ : state) view.Load(file.Name());
  state.SetBytesProcessed(state.iterations() * file.Size());
  state.SetItemsProcessed(state.iterations() * kTexts);
}

BENCHMARK(Copy)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(SaveSurface)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(LoadSurface)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(SaveTexts)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(LoadTexts)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
