/// Writes the seeds of the fuzz targets into a folder: the files of small views and meshes.

#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "chart/full_view.h"
#include "orvalix/surface/polysurface.h"

namespace {

using namespace orvalix::test;

constexpr const char* kBitmap = "picture.bmp";

/// One chart with a linear transform, filled by `fill`, as a file of that name.
template <class Fill>
void SaveChart(const char* name, Fill fill) {
  ViewOn target(16, 16);
  CChart3D* chart = target.view->NewChart3D();
  fill(*chart, chart->NewTransform({0.0, 0.0, 0.0, 0.0}, {10.0, 10.0, 10.0, 0.0}));
  target.view->Save(name);
}

void SaveChartFiles() {
  ViewOn(16, 16).view->Save("empty");
  ViewOn legends(16, 16);
  AddLegend(*legends.view);
  AddTitles(*legends.view->GetHeader());
  legends.view->Save("legend");
  SaveChart("axes", [](CChart3D& chart, CTransform3D* transform) { AddAxes(chart, transform); });
  SaveChart("rows",
            [](CChart3D& chart, CTransform3D* transform) { AddSeriesInRows(chart, transform); });
  SaveChart("space", [](CChart3D& chart, CTransform3D* transform) {
    transform->SetAxisScaleMode(2, 1);
    AddSeriesInSpace(chart, transform, transform);
  });
  SaveChart("shapes", [](CChart3D& chart, CTransform3D* transform) {
    AddShapesAndPicture(chart, transform, kBitmap);
    chart.NewChartTextObj(transform, "text");
  });
  ViewOn full(16, 16);
  FillView(*full.view, kBitmap);
  full.view->Save("full");
}

void SavePolysurfaceFiles() {
  const std::array<double, 6> values{1.0, 4.0, 6.0, 2.0, 3.0, 5.0};
  CPolysurface(2, 3, 0.0, 0.0, 9.0, 4.0, values.data(), 0).Save(CString("quadrilaterals"));
  CPolysurface(2, 3, 0.0, 0.0, 9.0, 4.0, values.data(), 1).Save(CString("triangles"));
  const std::array<point3Dtype, 4> points{{{0, 0, 1, 0}, {3, 0, 2, 0}, {1, 3, 3, 0}, {1, 1, 4, 0}}};
  CPolysurface scattered(points.data(), 0, 4);
  scattered.DelaunaySurface(1);
  scattered.Save(CString("scattered"));
  CPolysurface().Save(CString("closed"));
}

}  // namespace

int main(int argc, char** argv) {
  namespace fs = std::filesystem;
  if (argc != 2) {
    std::cerr << "usage: make_seeds FOLDER\n";
    return 1;
  }
  const fs::path folder = fs::absolute(argv[1]);
  for (const char* name : {"chart_file", "polysurface_file"}) fs::create_directories(folder / name);
  fs::current_path(folder / "chart_file");
  const Bytes bitmap = Encode(FourColors());
  std::ofstream(kBitmap, std::ios::binary)
      .write(reinterpret_cast<const char*>(bitmap.data()),
             static_cast<std::streamsize>(bitmap.size()));
  SaveChartFiles();
  fs::remove(kBitmap);
  fs::current_path(folder / "polysurface_file");
  SavePolysurfaceFiles();
  return 0;
}
