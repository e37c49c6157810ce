#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/surface/delaunay_internal.h"
#include "orvalix/surface/polysurface.h"

namespace {

constexpr RGBDType kBlue{0, 0, 1, 1};
constexpr RGBDType kWhite{1, 1, 1, 1};

constexpr std::size_t kVertices = 3;

/// Runs a step of the triangulation; reports memory that runs out.
template <class Step>
auto WithMemory(const char* place, Step&& step) {
  return orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_POLYSURFACE, place, step);
}

}  // namespace

void CPolysurface::DelaunaySurface(int makeAdjacency) {
  if (GetPSNumPoints() == 0) return;
  orvalix::Delaunay work;
  InitDelaunay(work);
  deltri(work);
  TakeTriangles(work, makeAdjacency != 0);
  CloseDelaunay(work);
}

void CPolysurface::InitDelaunay(orvalix::Delaunay& work) const {
  const auto count = static_cast<std::size_t>(GetPSNumPoints());
  WithMemory("InitDelaunay", [&] { work.Init(std::span(m_points).first(count)); });
}

void CPolysurface::deltri(orvalix::Delaunay& work) {
  if (!work.Measure()) return;
  WithMemory("bsort", [&] { work.bsort(); });
  WithMemory("Deltri", [&] { work.MakeTables(); });
  work.delaunwork();
}

void CPolysurface::TakeTriangles(const orvalix::Delaunay& work, bool withNeighbors) {
  const auto& triangles = work.Triangles();
  const std::size_t count = triangles.size();
  if (count > m_polygons.size() || count * kVertices > m_indices.size()) {
    orvalix::ThrowError(ERR3D_BAD_POLYSURFACE, ERR3DCLASS_POLYSURFACE, "DelaunaySurface");
  }
  std::vector<int> neighbors;
  if (withNeighbors) {
    WithMemory("DelaunaySurface", [&] { neighbors.assign(m_polygons.size() * kVertices, -1); });
  }
  ResetPolysurfacePolygons();
  auto neighbor = neighbors.begin();
  for (std::size_t t = 0; t < count; ++t) {
    std::array<int, kVertices> vertices{};
    std::transform(triangles[t].vertex.begin(), triangles[t].vertex.end(), vertices.begin(),
                   [&work](int vertex) { return work.PointOf(vertex); });
    AddPolysurfacePolygon(static_cast<int>(t), vertices.data(), static_cast<int>(kVertices), kBlue,
                          kWhite);
    if (withNeighbors) {
      neighbor = std::copy(triangles[t].neighbor.begin(), triangles[t].neighbor.end(), neighbor);
    }
  }
  m_neighbors.swap(neighbors);
}

void CPolysurface::CloseDelaunay(orvalix::Delaunay& work) { work.Close(); }
