/// Frames of large charts, drawn, read back and copied to an off-screen window, in turns with a
/// plain OpenGL program that does the same with the same triangles and lines from static buffers in
/// two calls ("raw", whose milliseconds are a counter). The ratio of the two times is what counts:
/// docs/performance.md.

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>
#include <benchmark/benchmark.h>

#include <array>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "bench/replayed_picture.h"
#include "orvalix/orvalix.h"

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 1024;
constexpr double kTurn = 31.0;  ///< degrees from frame to frame: a few show all sides

const RGBDType kFill = SetRGBD(0.2, 0.5, 0.8, 1.0);
const RGBDType kBlack = SetRGBD(0.0, 0.0, 0.0, 1.0);

double Height(double x, double y) { return 0.5 + 0.3 * std::sin(9.0 * x) * std::cos(7.0 * y); }

/// A view with one chart over the unit cube.
struct Scene {
  Scene() {
    window.CreateOffscreen(kWidth, kHeight);
    view = std::make_unique<CChartView3D>(&window);
    chart = view->NewChart3D({0, 0, 0, 0}, {1, 1, 1, 0}, &transform);
    turned.push_back(transform);
    Turn(0.0);
    view->DrawViewScreen();
  }
  void Turn(double degrees) {
    for (CTransform3D* each : turned) each->SetRotate({-30.0, 0.0, 30.0 + degrees, 0.0});
  }

  CWnd window;
  std::unique_ptr<CChartView3D> view;
  CTransform3D* transform = nullptr;
  CChart3D* chart = nullptr;
  std::vector<CTransform3D*> turned;
};

struct Vertex {
  std::array<float, 3> position;
  std::array<float, 3> normal;
};

/// Triangles and lines as a plain program holds them.
struct RawGeometry {
  std::vector<Vertex> vertices;
  std::vector<std::uint32_t> triangles;
  std::vector<std::uint32_t> lines;
};

/// Clears the target of a scene, as a plain program does.
void ClearTarget(Scene& scene) {
  scene.view->GetOpenGLPntr()->MakeCurrent();
  glViewport(0, 0, kWidth, kHeight);
  glDisable(GL_SCISSOR_TEST);
  glClearColor(1.0F, 1.0F, 1.0F, 1.0F);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

/// Reads the target back and copies it to the window.
void ShowTarget(Scene& scene) {
  scene.view->GetOpenGLPntr()->UpdateBitmap(kWidth, kHeight);
  CDIBSection& dib = *scene.view->GetDIBSection();
  scene.window.GetDC()->BitBlt(0, 0, kWidth, kHeight, dib.GetTargetDC(), 0,
                               dib.DIBHeight() - kHeight, SRCCOPY);
}

/// A plain program: its own buffers in the context of a view.
class RawScene {
 public:
  template <class Build>
  explicit RawScene(Scene& scene, Build build) : m_scene(scene) {
    Context().MakeCurrent();
    RawGeometry geometry;
    build(geometry);
    m_triangles = static_cast<GLsizei>(geometry.triangles.size());
    m_lines = static_cast<GLsizei>(geometry.lines.size());
    glGenBuffers(2, m_buffers.data());
    glBindBuffer(GL_ARRAY_BUFFER, m_buffers[0]);
    glBufferData(GL_ARRAY_BUFFER, Bytes(geometry.vertices), geometry.vertices.data(),
                 GL_STATIC_DRAW);
    geometry.triangles.insert(geometry.triangles.end(), geometry.lines.begin(),
                              geometry.lines.end());
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, m_buffers[1]);
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, Bytes(geometry.triangles), geometry.triangles.data(),
                 GL_STATIC_DRAW);
  }
  ~RawScene() {
    Context().MakeCurrent();
    glDeleteBuffers(2, m_buffers.data());
  }
  RawScene(const RawScene&) = delete;
  RawScene& operator=(const RawScene&) = delete;

  void Draw() {
    COpenGL& context = Context();
    ClearTarget(m_scene);
    m_scene.transform->ChartTransform();
    glBindBuffer(GL_ARRAY_BUFFER, m_buffers[0]);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, m_buffers[1]);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_NORMAL_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(Vertex), nullptr);
    glNormalPointer(GL_FLOAT, sizeof(Vertex), Offset(offsetof(Vertex, normal)));
    context.SetColorMode(1);
    glEnable(GL_POLYGON_OFFSET_FILL);
    glColor3d(kFill.red, kFill.green, kFill.blue);
    glDrawElements(GL_TRIANGLES, m_triangles, GL_UNSIGNED_INT, nullptr);
    glDisable(GL_POLYGON_OFFSET_FILL);
    context.SetColorMode(0);
    glDisableClientState(GL_NORMAL_ARRAY);
    glColor3d(0.0, 0.0, 0.0);
    glDrawElements(GL_LINES, m_lines, GL_UNSIGNED_INT,
                   Offset(static_cast<std::size_t>(m_triangles) * sizeof(std::uint32_t)));
    glDisableClientState(GL_VERTEX_ARRAY);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
    ShowTarget(m_scene);
  }

 private:
  template <class T>
  static GLsizeiptr Bytes(const std::vector<T>& elements) {
    return static_cast<GLsizeiptr>(elements.size() * sizeof(T));
  }
  static const void* Offset(std::size_t bytes) { return reinterpret_cast<const void*>(bytes); }
  COpenGL& Context() const { return *m_scene.view->GetOpenGLPntr(); }

  Scene& m_scene;
  std::array<GLuint, 2> m_buffers{};
  GLsizei m_triangles = 0;
  GLsizei m_lines = 0;
};

// --- surfaces ---

int SideFor(std::int64_t triangles) {
  return static_cast<int>(std::lround(std::sqrt(static_cast<double>(triangles) / 2.0))) + 1;
}

CPolysurface Surface(int side) {
  std::vector<double> heights;
  heights.reserve(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
  const double step = 1.0 / (side - 1);
  for (int row = 0; row < side; ++row) {
    for (int column = 0; column < side; ++column) {
      heights.push_back(Height(column * step, row * step));
    }
  }
  CPolysurface surface(side, side, 0.0, 0.0, 1.0, 1.0, heights.data(), 1);
  for (int polygon = 0; polygon < surface.GetPSNumPolygons(); ++polygon) {
    surface.SetPolysurfaceColors(polygon, kFill, kBlack);
  }
  return surface;
}

void BuildRawSurface(int side, RawGeometry& out) {
  const double step = 1.0 / (side - 1);
  const auto at = [&](int row, int column) {
    return std::array<double, 3>{column * step, row * step, Height(column * step, row * step)};
  };
  const auto addTriangle = [&](const std::array<double, 3>& a, const std::array<double, 3>& b,
                               const std::array<double, 3>& c) {
    const std::array<double, 3> u{b[0] - a[0], b[1] - a[1], b[2] - a[2]};
    const std::array<double, 3> v{c[0] - a[0], c[1] - a[1], c[2] - a[2]};
    const std::array<float, 3> normal{static_cast<float>(u[1] * v[2] - u[2] * v[1]),
                                      static_cast<float>(u[2] * v[0] - u[0] * v[2]),
                                      static_cast<float>(u[0] * v[1] - u[1] * v[0])};
    for (const std::array<double, 3>& p : {a, b, c}) {
      out.triangles.push_back(static_cast<std::uint32_t>(out.vertices.size()));
      out.vertices.push_back(
          {{static_cast<float>(p[0]), static_cast<float>(p[1]), static_cast<float>(p[2])}, normal});
    }
  };
  for (int row = 0; row + 1 < side; ++row) {
    for (int column = 0; column + 1 < side; ++column) {
      const auto first = static_cast<std::uint32_t>(out.vertices.size());
      addTriangle(at(row, column), at(row, column + 1), at(row + 1, column + 1));
      addTriangle(at(row, column), at(row + 1, column + 1), at(row + 1, column));
      // The lower and the left edge and the diagonal; the last ones of the grid as well.
      out.lines.insert(out.lines.end(), {first, first + 1, first, first + 5, first, first + 2});
      if (row + 2 == side) out.lines.insert(out.lines.end(), {first + 2, first + 5});
      if (column + 2 == side) out.lines.insert(out.lines.end(), {first + 1, first + 2});
    }
  }
}

// --- boxes ---

void BuildRawBoxes(const std::vector<std::array<double, 6>>& boxes, RawGeometry& out) {
  constexpr std::array<std::array<int, 4>, 6> kFaces{
      {{0, 4, 6, 2}, {1, 3, 7, 5}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 2, 3, 1}, {4, 5, 7, 6}}};
  constexpr std::array<std::array<float, 3>, 6> kNormals{
      {{-1, 0, 0}, {1, 0, 0}, {0, -1, 0}, {0, 1, 0}, {0, 0, -1}, {0, 0, 1}}};
  for (const std::array<double, 6>& box : boxes) {
    const auto first = static_cast<std::uint32_t>(out.vertices.size());
    for (std::size_t face = 0; face < kFaces.size(); ++face) {
      const auto at = static_cast<std::uint32_t>(out.vertices.size());
      for (const int corner : kFaces[face]) {
        const auto place = [&](int axis) {
          return static_cast<float>(
              box[static_cast<std::size_t>((corner >> axis) & 1 ? axis + 3 : axis)]);
        };
        out.vertices.push_back({{place(0), place(1), place(2)}, kNormals[face]});
      }
      out.triangles.insert(out.triangles.end(), {at, at + 1, at + 2, at, at + 2, at + 3});
    }
    // The edges of the faces at -x and +x, and those between them.
    for (std::uint32_t k = 0; k < 4; ++k) {
      out.lines.insert(out.lines.end(), {first + k, first + (k + 1) % 4});
      out.lines.insert(out.lines.end(), {first + 4 + k, first + 4 + (k + 1) % 4});
    }
    out.lines.insert(out.lines.end(), {first, first + 4, first + 1, first + 7, first + 2, first + 6,
                                       first + 3, first + 5});
  }
}

std::vector<point3Dtype> Places(int count) {
  const int side = static_cast<int>(std::lround(std::sqrt(static_cast<double>(count))));
  std::vector<point3Dtype> points;
  points.reserve(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
  for (int row = 0; row < side; ++row) {
    for (int column = 0; column < side; ++column) {
      const double x = (column + 0.1) / side;
      const double y = (row + 0.1) / side;
      points.push_back({x, y, Height(x, y), 0.0});
    }
  }
  return points;
}

double BarWidth(std::size_t count) { return 0.8 / std::sqrt(static_cast<double>(count)); }

constexpr double kCubeSize = 0.06;          ///< of a scatter symbol
constexpr double kNormalisedPerSize = 0.1;  ///< extent of a symbol of size 1
constexpr double kCubesUnits = 1.0;         ///< the chart box is 1 normalised unit wide

// --- small charts ---

constexpr int kPoints = 200;

/// Walls behind the data, grids on two of them, and titles of the axes.
void Dress(CAxes3D& axes) {
  const RGBDType wall{0.90, 0.92, 0.95, 1.0};
  const RGBDType line{0.45, 0.48, 0.55, 1.0};
  const int valueTics = axes.GetAxisNthTicMajor(2);
  for (const int plane : {0, 1, 2}) {
    axes.SetWallPlane(plane, wall, line);
    axes.SetPlaneColorMode(plane, 0);
    axes.SetWallThickness(plane, 0.02);
    axes.SetOutlineWidth(plane, 1.0);
    if (plane > 0) axes.SetPlaneGrid(plane, 0, valueTics, line, 1.0, 0, 1);
    axes.SetAxisTitleString(plane, std::array{"x", "y", "z"}[static_cast<std::size_t>(plane)]);
  }
}

/// Four charts with axes, labels and titles, and a legend each.
void AddCharts(Scene& scene, std::int64_t) {
  scene.chart->EnableChart(0);
  scene.view->EnableBorder(0);
  scene.view->SetFont("Arial", 400, 256);
  const std::vector<point3Dtype> places = Places(kPoints);
  for (int i = 0; i < 4; ++i) {
    const double left = i % 2 == 0 ? 0.0 : 0.5;
    const double bottom = i / 2 == 0 ? 0.0 : 0.5;
    CTransform3D* transform = nullptr;
    CChart3D* chart = scene.view->NewChart3D({0, 0, 0, 0}, {1, 1, 1, 0}, &transform);
    chart->SetChartPosition({left, bottom, 0.5, 0.5});
    chart->EnableBorder(0);
    chart->SetFontSize(0.07);
    chart->GetHeader()->SetTitle1("A chart of points");
    transform->SetChartRect({0.62, 0.42, 0.52, 0.0});
    transform->SetOffset({0.02, 0.0, 0.02, 0.0});
    transform->SetRotate({-22.0, 0.0, 20.0, 0.0});
    Dress(*chart->AutoAxes(transform));
    chart->NewChartObj(transform)->ScatterChart3D(
        places.data(), 0.2, static_cast<int>(places.size()), 10, kFill, kBlack, -1, 0.0);
    scene.turned.push_back(transform);
    constexpr int kCubeSymbol = 3;
    CLegend3D* legend = scene.view->NewLegend3D();
    legend->SetLegendPosition({left + 0.35, bottom + 0.4, 0.14, 0.08});
    legend->SetLegendOrientation(1);
    legend->EnableLegendBorder(0);
    legend->SetFontSize(0.05);
    legend->NewLegendObj("points", kCubeSymbol, kFill);
    legend->NewLegendObj("others", kCubeSymbol, kBlack);
  }
}

// --- the measurements ---

using AddSeries = void (*)(Scene&, std::int64_t);
using BuildRaw = void (*)(std::int64_t, RawGeometry&);

void AddSurface(Scene& scene, std::int64_t triangles) {
  const CPolysurface surface = Surface(SideFor(triangles));
  scene.chart->NewChartObj(scene.transform)->PolysurfaceChart3D(&surface);
}

void AddBars(Scene& scene, std::int64_t count) {
  const std::vector<point3Dtype> points = Places(static_cast<int>(count));
  const double width = BarWidth(points.size());
  scene.chart->NewChartObj(scene.transform)
      ->BarChart3D(points.data(), nullptr, static_cast<int>(points.size()), width, width, kFill,
                   kBlack);
}

void AddCubes(Scene& scene, std::int64_t count) {
  const std::vector<point3Dtype> points = Places(static_cast<int>(count));
  scene.chart->NewChartObj(scene.transform)
      ->ScatterChart3D(points.data(), kCubeSize, static_cast<int>(points.size()), 10, kFill, kBlack,
                       -1, 0.0);
}

void RawSurface(std::int64_t triangles, RawGeometry& out) {
  BuildRawSurface(SideFor(triangles), out);
}

void RawBars(std::int64_t count, RawGeometry& out) {
  const std::vector<point3Dtype> points = Places(static_cast<int>(count));
  const double width = BarWidth(points.size());
  std::vector<std::array<double, 6>> boxes;
  for (const point3Dtype& p : points) {
    boxes.push_back({p.x, p.y, 0.0, p.x + width, p.y + width, p.z});
  }
  BuildRawBoxes(boxes, out);
}

void RawCubes(std::int64_t count, RawGeometry& out) {
  const double half = kCubeSize * kNormalisedPerSize / kCubesUnits / 2.0;
  std::vector<std::array<double, 6>> boxes;
  for (const point3Dtype& p : Places(static_cast<int>(count))) {
    boxes.push_back({p.x - half, p.y - half, p.z - half, p.x + half, p.y + half, p.z + half});
  }
  BuildRawBoxes(boxes, out);
}

template <class Work>
double SecondsOf(Work work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// Times of a frame and of raw's.
class InTurns {
 public:
  explicit InTurns(benchmark::State& state) : m_state(state) {}
  ~InTurns() { m_state.counters["raw_ms"] = {1000.0 * m_raw, benchmark::Counter::kAvgIterations}; }
  InTurns(const InTurns&) = delete;
  InTurns& operator=(const InTurns&) = delete;

  template <class Work, class Raw>
  void Take(Work work, Raw raw) {
    m_state.SetIterationTime(SecondsOf(work));
    m_raw += SecondsOf(raw);
  }

 private:
  benchmark::State& m_state;
  double m_raw = 0.0;
};

/// Raw of a series of that size.
template <BuildRaw kBuild>
class RawSeries {
 public:
  RawSeries(Scene& scene, std::int64_t size)
      : m_raw(scene, [&](RawGeometry& out) { kBuild(size, out); }) {}

  static void Prepare() {}
  void Draw() { m_raw.Draw(); }

 private:
  RawScene m_raw;
};

/// Raw of the small charts.
class RawCharts {
 public:
  RawCharts(Scene& scene, std::int64_t) : m_scene(scene) {
    scene.view->GetOpenGLPntr()->MakeCurrent();
    m_picture = std::make_unique<ReplayedPicture>(OnScreen());
  }

  static void Prepare() { OnScreen(); }
  void Draw() {
    ClearTarget(m_scene);
    m_picture->Draw();
    ShowTarget(m_scene);
  }

 private:
  /// What the charts draw, all of it, seen or not.
  static const ScreenGeometry& OnScreen() {
    static const ScreenGeometry geometry = [] {
      Scene scene;
      AddCharts(scene, 0);
      scene.view->GetOpenGLPntr()->MakeCurrent();
      return ScreenGeometry([&] { scene.view->DrawViewScreen(); }, kWidth, kHeight);
    }();
    return geometry;
  }

  Scene& m_scene;
  std::unique_ptr<ReplayedPicture> m_picture;
};

template <AddSeries kAdd, class Raw>
void First(benchmark::State& state) {
  Raw::Prepare();
  InTurns turns(state);
  for (auto _ : state) {
    auto scene = std::make_unique<Scene>();
    kAdd(*scene, state.range(0));
    auto rawScene = std::make_unique<Scene>();
    std::unique_ptr<Raw> raw;
    turns.Take([&] { scene->view->DrawViewScreen(); },
               [&] {
                 raw = std::make_unique<Raw>(*rawScene, state.range(0));
                 raw->Draw();
               });
  }
}

template <AddSeries kAdd, class Raw>
void Turned(benchmark::State& state) {
  Raw::Prepare();
  Scene scene;
  kAdd(scene, state.range(0));
  scene.view->DrawViewScreen();
  Scene rawScene;
  Raw raw(rawScene, state.range(0));
  raw.Draw();
  double degrees = 0.0;
  InTurns turns(state);
  for (auto _ : state) {
    degrees += kTurn;
    turns.Take(
        [&] {
          scene.Turn(degrees);
          scene.view->DrawViewScreen();
        },
        [&] {
          rawScene.Turn(degrees);
          raw.Draw();
        });
  }
}

// How time grows with the data.

void GrowthFirst(benchmark::State& state) {
  for (auto _ : state) {
    auto scene = std::make_unique<Scene>();
    AddSurface(*scene, state.range(0));
    state.SetIterationTime(SecondsOf([&] { scene->view->DrawViewScreen(); }));
  }
}

void GrowthTurned(benchmark::State& state) {
  Scene scene;
  AddSurface(scene, state.range(0));
  scene.view->DrawViewScreen();
  double degrees = 0.0;
  for (auto _ : state) {
    scene.Turn(degrees += kTurn);
    state.SetIterationTime(SecondsOf([&] { scene.view->DrawViewScreen(); }));
  }
}

void Measure(benchmark::internal::Benchmark* benchmark) {
  benchmark->Unit(benchmark::kMillisecond)->UseManualTime();
}

void SurfaceSizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(20000)->Arg(500000)->Arg(2000000);
}

void GrowingSizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(1000)->Arg(10000)->Arg(100000)->Arg(1000000)->Arg(5000000);
}

BENCHMARK(First<AddSurface, RawSeries<RawSurface>>)
    ->Name("First/surface")
    ->Apply(SurfaceSizes)
    ->Apply(Measure);
BENCHMARK(Turned<AddSurface, RawSeries<RawSurface>>)
    ->Name("Turned/surface")
    ->Apply(SurfaceSizes)
    ->Apply(Measure);
BENCHMARK(First<AddBars, RawSeries<RawBars>>)->Name("First/bars")->Arg(40000)->Apply(Measure);
BENCHMARK(Turned<AddBars, RawSeries<RawBars>>)->Name("Turned/bars")->Arg(40000)->Apply(Measure);
BENCHMARK(First<AddCubes, RawSeries<RawCubes>>)->Name("First/cubes")->Arg(100000)->Apply(Measure);
BENCHMARK(Turned<AddCubes, RawSeries<RawCubes>>)->Name("Turned/cubes")->Arg(100000)->Apply(Measure);
BENCHMARK(First<AddCharts, RawCharts>)->Name("First/charts")->Arg(4)->Apply(Measure);
BENCHMARK(Turned<AddCharts, RawCharts>)->Name("Turned/charts")->Arg(4)->Apply(Measure);
BENCHMARK(GrowthFirst)->Name("GrowthFirst/surface")->Apply(GrowingSizes)->Apply(Measure);
BENCHMARK(GrowthTurned)->Name("GrowthTurned/surface")->Apply(GrowingSizes)->Apply(Measure);

}  // namespace
