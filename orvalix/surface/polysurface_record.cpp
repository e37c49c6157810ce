#include <cstddef>
#include <utility>

#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/save_record_internal.h"
#include "orvalix/foundation/write_file_internal.h"
#include "orvalix/surface/polysurface.h"

namespace {

constexpr std::int64_t kNeighbors = 3;
constexpr int kSparePoints = 4;

/// A file that says what no mesh can be is as bad as one that ends early.
void Require(bool possible) {
  if (!possible) AfxThrowFileException(CFileException::genericException);
}

}  // namespace

CPolysurface::CPolysurface(void* file) { Load(file); }

CPolysurface::CPolysurface(CString const& name) { Load(name); }

template <class Record, class Self>
void CPolysurface::RecordFields(Record& record, Self& self) {
  constexpr std::size_t kPolygonBytes = 104;
  static_assert(sizeof(Polygon) == kPolygonBytes && sizeof(int) == sizeof(std::int32_t));
  int adjacencyFlag = self.m_neighbors.empty() ? 0 : 1;
  RecordGrid(record, self, adjacencyFlag);
  auto points = static_cast<int>(self.m_points.size());
  record.Field("number of points", points);
  if constexpr (Record::kReading) Require(points == 0 || points >= kSparePoints);
  record.Array("points", self.m_points, points);
  if constexpr (Record::kReading) {
    if (self.IsOpen()) self.m_classTag = orvalix::kPolysurfaceTag;
  }
  int maxPolygons = self.GetPSMaxPolygons();
  int numPolygons = self.m_numPolygons;
  auto indexCapacity = static_cast<int>(self.m_indices.size());
  int indexCount = self.m_indexCount;
  record.Field("most polygons", maxPolygons);
  record.Field("number of polygons", numPolygons);
  record.Field("index capacity", indexCapacity);
  record.Field("points per polygon", self.m_pointsPerPolygon);
  record.Field("index count", indexCount);
  if constexpr (Record::kReading) {
    Require(numPolygons >= 0 && numPolygons <= maxPolygons);
    Require(indexCount >= 0 && indexCount <= indexCapacity);
    Require(self.IsOpen() || (maxPolygons == 0 && indexCapacity == 0));
  }
  record.Array("polygons", self.m_polygons, maxPolygons);
  record.Array("indices", self.m_indices, indexCapacity);
  if constexpr (Record::kReading) {
    // Only now: what the file no longer holds isn't there to be counted.
    self.m_numPolygons = self.m_polygons.empty() ? 0 : numPolygons;
    self.m_indexCount = self.m_indices.empty() ? 0 : indexCount;
  }
  if (adjacencyFlag != 0) record.Array("neighbours", self.m_neighbors, maxPolygons * kNeighbors);
}

template <class Record, class Self>
void CPolysurface::RecordGrid(Record& record, Self& self, int& adjacencyFlag) {
  auto& grid = self.m_grid;
  record.Field("rows", grid.rows);
  record.Field("columns", grid.columns);
  // Kept: not in the order in which the mesh tells them; stored meshes have this one.
  record.Field("minimum x", grid.minX);
  record.Field("maximum x", grid.maxX);
  record.Field("range x", grid.rangeX);
  record.Field("minimum y", grid.minY);
  record.Field("maximum y", grid.maxY);
  record.Field("range y", grid.rangeY);
  record.Field("minimum z", grid.minZ);
  record.Field("maximum z", grid.maxZ);
  record.Field("range z", grid.rangeZ);
  record.Field("step x", grid.stepX);
  record.Field("step y", grid.stepY);
  record.Field("adjacency flag", adjacencyFlag);
  record.Field("even grid", grid.even);
  record.Field("grid type", grid.type);
  if constexpr (Record::kReading) {
    // Kept: a loaded mesh is a grid of triangles at any distances; programs count on it.
    grid.even = 0;
    grid.type = 1;
  }
}

void CPolysurface::Save(void* file) const {
  orvalix::SaveRecord(file, ERR3DCLASS_POLYSURFACE,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CPolysurface::Save(CString const& name) const {
  orvalix::WriteWholeFile(name, ERR3DCLASS_POLYSURFACE, "Save",
                          [this](CFile& file) { Save(file.m_hFile); });
}

void CPolysurface::Load(void* file) {
  if (file == nullptr) return;
  CPolysurface closed;
  SwapContents(closed);
  orvalix::LoadRecord(file, ERR3DCLASS_POLYSURFACE,
                      [this](auto& record) { RecordFields(record, *this); });
}

void CPolysurface::Load(CString const& name) {
  CFile file;
  if (!file.Open(name, CFile::modeRead)) {
    orvalix::ThrowError(ERR3D_FILE_OPEN_INPUT, ERR3DCLASS_POLYSURFACE, "Load");
  }
  Load(file.m_hFile);
}
