/// Any bytes as a polysurface file: loaded, every polygon looked at, and saved again.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "orvalix/foundation/err_3d.h"
#include "orvalix/surface/polysurface.h"
#include "support/memory_file.h"

namespace {

using orvalix::test::MemoryFile;

/// False when the file is refused.
bool Load(CPolysurface& mesh, const MemoryFile& file) {
  try {
    mesh.Load(CString(file.Path()));
    return true;
  } catch (const CErr3D& error) {
    const CErr3DTypes type = error.GetErrorType();
    if (type != ERR3D_DISK_IO && type != ERR3D_ARRAY_NEW) std::abort();
    return false;
  }
}

/// Everything that drawing asks for.
void Use(const CPolysurface& mesh) {
  constexpr int kMostVertices = 255;
  std::array<point3Dtype, kMostVertices + 1> points{};
  std::array<int, 3> neighbors{};
  for (int i = -1; i <= mesh.GetPSNumPolygons(); ++i) {
    RGBDType first{};
    RGBDType second{};
    int count = 0;
    mesh.GetPolysurfacePolygon(i, points.data(), count, first, second);
    if (count < 0 || count > kMostVertices) std::abort();
    mesh.GetAdjacentPolyList(i, neighbors.data());
    for (const int neighbor : neighbors) {
      if (neighbor < -1 || neighbor >= mesh.GetPSMaxPolygons()) std::abort();
    }
    double lowest = 0.0;
    double highest = 0.0;
    mesh.GetPSPHeights(i, lowest, highest);
    mesh.GetPSPMean(i, 2);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const MemoryFile input;
  static const MemoryFile output;
  CErr3D::nErrorReportMode = 0;
  input.Fill(data, size);
  CPolysurface mesh;
  Load(mesh, input);
  Use(mesh);
  mesh.Save(CString(output.Path()));
  CPolysurface again;
  if (!Load(again, output)) std::abort();  // what was saved can be loaded
  Use(again);
  return 0;
}
