#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <new>

#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/surface/polysurface.h"

namespace {

constexpr RGBDType kBlue{0, 0, 1, 1};
constexpr RGBDType kBlack{0, 0, 0, 1};

/// Added to a grid type: the mesh is open already and has its points.
constexpr int kOpenAlready = 2;
constexpr int kLastType = 3;
constexpr int kTriangleVertices = 3;

bool IsType(int type) { return type >= 0 && type <= kLastType; }

bool IsOfTriangles(int type) { return type % kOpenAlready == 1; }

int VerticesOf(int type) { return IsOfTriangles(type) ? kTriangleVertices : 4; }

/// Polygons of a grid of that type.
std::int64_t PolygonsOf(int rows, int columns, int type) {
  const std::int64_t cells = std::max<std::int64_t>(0, std::int64_t{rows} - 1) *
                             std::max<std::int64_t>(0, std::int64_t{columns} - 1);
  return IsOfTriangles(type) ? 2 * cells : cells;
}

/// Points of a grid; -1 for none that there can be.
std::int64_t PointsOf(int rows, int columns) {
  return rows < 0 || columns < 0 ? -1 : std::int64_t{rows} * columns;
}

double Step(double range, int lines) { return lines > 1 ? range / (lines - 1) : 0.0; }

/// Rows or columns that a reduced grid keeps.
std::vector<int> Kept(int lines) {
  std::vector<int> kept;
  for (int line = 0; line < lines - 1; line += 2) kept.push_back(line);
  kept.push_back(lines - 1);
  return kept;
}

[[noreturn]] void Throw(CErr3DTypes type, const char* place) {
  orvalix::ThrowError(type, ERR3DCLASS_POLYSURFACE, place);
}

}  // namespace

CPolysurface::CPolysurface(int rows, int columns, double xMin, double yMin, double xMax,
                           double yMax, double (*function)(double x, double y)) {
  CreatePolysurfaceFunction(rows, columns, xMin, yMin, xMax, yMax, function);
}

CPolysurface::CPolysurface(int rows, int columns, double xMin, double yMin, double xMax,
                           double yMax, const double* values, int type) {
  CreatePolysurfaceEvenGrid(rows, columns, xMin, yMin, xMax, yMax, values, type);
}

CPolysurface::CPolysurface(const point3Dtype* points, int rows, int columns, int type) {
  ConvertRG2PS(points, rows, columns, type);
}

CPolysurface::CPolysurface(const CPolysurface* source, int) {
  ReducePolysurface(source, source != nullptr ? source->GetGridType() : 0);
}

void CPolysurface::CreatePolysurfaceFunction(int rows, int columns, double xMin, double yMin,
                                             double xMax, double yMax,
                                             double (*function)(double x, double y)) {
  constexpr const char* kPlace = "CreatePolysurfaceFunction";
  if (rows < 2 || columns < 2 || function == nullptr) Throw(ERR3D_PARAMETER, kPlace);
  CreateEvenGrid(rows, columns, {xMin, yMin, xMax, yMax}, 1, kPlace,
                 [function](std::size_t, double x, double y) { return function(x, y); });
}

void CPolysurface::CreatePolysurfaceEvenGrid(int rows, int columns, double xMin, double yMin,
                                             double xMax, double yMax, const double* values,
                                             int type) {
  constexpr const char* kPlace = "CreatePolysurfaceEvenGrid";
  if (rows < 2 || columns < 2 || values == nullptr) Throw(ERR3D_PARAMETER, kPlace);
  if (type < 0 || type >= kOpenAlready) Throw(ERR3D_PARAMETER, kPlace);
  CreateEvenGrid(rows, columns, {xMin, yMin, xMax, yMax}, type, kPlace,
                 [values](std::size_t i, double, double) { return values[i]; });
}

template <class HeightAt>
void CPolysurface::CreateEvenGrid(int rows, int columns, const Area& area, int type,
                                  const char* place, HeightAt heightAt) {
  const std::int64_t numPoints = PointsOf(rows, columns);
  CPolysurface made;  // aside: the values may lie in this mesh
  if (!made.TryOpen(numPoints, 2 * numPoints + 2, kTriangleVertices)) {
    Throw(ERR3D_OBJECT_NEW, place);
  }
  orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_POLYSURFACE, place, [&] {
    const double stepX = (area.xMax - area.xMin) / (columns - 1);
    const double stepY = (area.yMax - area.yMin) / (rows - 1);
    std::size_t i = 0;
    for (int row = 0; row < rows; ++row) {
      const double y = area.yMin + row * stepY;
      double x = area.xMin;
      for (int column = 0; column < columns; ++column, ++i, x += stepX) {
        const double height = heightAt(i, x, y);
        made.m_points[i] = {x, y, height, height};
      }
    }
    made.BuildGrid(rows, columns, type + kOpenAlready);
    made.FindNeighbors();
  });
  made.MeasureHeights();
  made.m_grid.even = 1;
  made.m_wireFrame = m_wireFrame;
  SwapContents(made);
}

void CPolysurface::ConvertRG2PS(const point3Dtype* points, int rows, int columns, int type) {
  constexpr const char* kPlace = "ConvertRG2PS";
  if (!IsType(type)) Throw(ERR3D_PARAMETER, kPlace);
  const std::int64_t numPoints = PointsOf(rows, columns);
  const std::int64_t polygons = PolygonsOf(rows, columns, type);
  if (type < kOpenAlready) {
    CPolysurface made;  // aside: the points may lie in this mesh
    if (!made.TryOpen(numPoints, polygons, VerticesOf(type))) Throw(ERR3D_OBJECT_NEW, kPlace);
    made.SetPolysurfacePoints(points, 0, static_cast<int>(numPoints));
    made.BuildGrid(rows, columns, type);
    made.m_wireFrame = m_wireFrame;
    SwapContents(made);
    return;
  }
  if (!IsOpen()) Throw(ERR3D_OBJECT_NEW, kPlace);
  const bool fits = numPoints >= 0 && numPoints <= GetPSNumPoints() &&
                    polygons <= GetPSMaxPolygons() &&
                    polygons * VerticesOf(type) <= static_cast<std::int64_t>(m_indices.size());
  if (!fits) Throw(ERR3D_BAD_POLYSURFACE, kPlace);
  BuildGrid(rows, columns, type);
}

void CPolysurface::BuildGrid(int rows, int columns, int type) {
  SetGrid(rows, columns, type);
  ResetPolysurfacePolygons();
  if (columns < 2) return;  // of which there can be any number of rows
  for (int row = 0; row < rows - 1; ++row) {
    for (int column = 0; column < columns - 1; ++column) {
      const int corner = row * columns + column;
      if (IsOfTriangles(type)) {
        AddGridPolygon({corner, corner + 1, corner + columns});
        AddGridPolygon({corner + 1, corner + 1 + columns, corner + columns});
      } else {
        AddGridPolygon({corner, corner + 1, corner + 1 + columns, corner + columns});
      }
    }
  }
}

void CPolysurface::AddGridPolygon(std::initializer_list<int> vertices) {
  AddPolysurfacePolygon(m_numPolygons, vertices.begin(), static_cast<int>(vertices.size()), kBlue,
                        kBlack);
}

void CPolysurface::SetGrid(int rows, int columns, int type) {
  m_grid.rows = rows;
  m_grid.columns = columns;
  m_grid.type = type;
  const auto count = static_cast<std::size_t>(PointsOf(rows, columns));
  const point3Dtype first = count > 0 ? m_points.front() : point3Dtype{};
  const point3Dtype last = count > 0 ? m_points[count - 1] : point3Dtype{};
  m_grid.minX = first.x;
  m_grid.minY = first.y;
  m_grid.maxX = last.x;
  m_grid.maxY = last.y;
  m_grid.rangeX = last.x - first.x;
  m_grid.rangeY = last.y - first.y;
  m_grid.stepX = Step(m_grid.rangeX, columns);
  m_grid.stepY = Step(m_grid.rangeY, rows);
}

void CPolysurface::MeasureHeights() {
  double lowest = std::numeric_limits<double>::infinity();
  double highest = -lowest;
  const std::int64_t count = PointsOf(m_grid.rows, m_grid.columns);
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
    const double z = m_points[i].z;  // undefined heights are neither lower nor higher
    if (z < lowest) lowest = z;
    if (z > highest) highest = z;
  }
  const bool any = lowest <= highest;
  m_grid.minZ = any ? lowest : 0.0;
  m_grid.maxZ = any ? highest : 0.0;
  m_grid.rangeZ = std::abs(m_grid.maxZ - m_grid.minZ);
}

void CPolysurface::ReducePolysurface(const CPolysurface* source, int type) {
  constexpr const char* kPlace = "ReducePolysurface";
  orvalix::RequireTag(source, orvalix::kPolysurfaceTag, ERR3D_PARAMETER, ERR3DCLASS_POLYSURFACE,
                      kPlace);
  if (!IsType(type)) Throw(ERR3D_PARAMETER, kPlace);
  orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_POLYSURFACE, kPlace, [&] {
    const std::int64_t gridPoints = PointsOf(source->m_grid.rows, source->m_grid.columns);
    if (gridPoints > 0 && gridPoints <= source->GetPSNumPoints()) {
      TakeEverySecond(*source, type);
    } else {
      CPolysurface copy;
      copy.CopyContents(*source);
      SwapContents(copy);
    }
  });
}

void CPolysurface::TakeEverySecond(const CPolysurface& source, int type) {
  const std::vector<int> rows = Kept(source.m_grid.rows);
  const std::vector<int> columns = Kept(source.m_grid.columns);
  const auto numRows = static_cast<int>(rows.size());
  const auto numColumns = static_cast<int>(columns.size());
  CPolysurface made;  // aside: this mesh may be the source
  if (!made.TryOpen(PointsOf(numRows, numColumns), PolygonsOf(numRows, numColumns, type),
                    VerticesOf(type))) {
    throw std::bad_alloc();
  }
  std::size_t i = 0;
  for (const int row : rows) {
    for (const int column : columns) {
      const int from = row * source.m_grid.columns + column;
      made.m_points[i++] = source.m_points[static_cast<std::size_t>(from)];
    }
  }
  made.BuildGrid(numRows, numColumns, type);
  if (!source.m_neighbors.empty()) made.FindNeighbors();
  made.MeasureHeights();
  // An even number of rows or columns leaves a shorter last step.
  const auto staysEven = [](int lines) { return lines % 2 == 1 || lines == 2; };
  const bool even = staysEven(source.m_grid.rows) && staysEven(source.m_grid.columns);
  made.m_grid.even = even ? source.m_grid.even : 0;
  made.m_wireFrame = source.m_wireFrame;
  SwapContents(made);
}

void CPolysurface::CreateRGAdjacentPolygonList() {
  orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_POLYSURFACE,
                                "CreateRGAdjacentPolygonList", [this] { FindNeighbors(); });
}

void CPolysurface::FindNeighbors() {
  const int rows = std::max(m_grid.rows, 1) - 1;  // of cells; files may hold any number
  const int columns = std::max(m_grid.columns, 1) - 1;
  if (!IsOfTriangles(m_grid.type) || rows == 0 || columns == 0 || !HasGridTriangles()) return;
  std::vector<int> neighbors(m_polygons.size() * kTriangleVertices, -1);
  const int perRow = 2 * columns;
  auto next = neighbors.begin();
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const int first = row * perRow + 2 * column;
      const int second = first + 1;
      *next++ = row > 0 ? second - perRow : -1;
      *next++ = second;
      *next++ = column > 0 ? second - 2 : -1;
      *next++ = column < columns - 1 ? first + 2 : -1;
      *next++ = row < rows - 1 ? first + perRow : -1;
      *next++ = first;
    }
  }
  m_neighbors.swap(neighbors);
}

/// A triangulation, for one, leaves the description of a grid beside triangles of another order.
bool CPolysurface::HasGridTriangles() const {
  if (m_numPolygons != PolygonsOf(m_grid.rows, m_grid.columns, m_grid.type)) return false;
  const auto isTriangle = [this](int polygon, std::array<int, kTriangleVertices> vertices) {
    const Polygon* found = FindPolygon(polygon);
    return found != nullptr && found->count == kTriangleVertices &&
           std::equal(vertices.begin(), vertices.end(), m_indices.begin() + found->firstIndex);
  };
  const int columns = m_grid.columns;
  for (int polygon = 0; polygon < m_numPolygons; polygon += 2) {
    const int cell = polygon / 2;
    const int corner = cell / (columns - 1) * columns + cell % (columns - 1);
    if (!isTriangle(polygon, {corner, corner + 1, corner + columns}) ||
        !isTriangle(polygon + 1, {corner + 1, corner + 1 + columns, corner + columns})) {
      return false;
    }
  }
  return true;
}

int CPolysurface::GetEvenGridFlag() const { return m_grid.even; }

int CPolysurface::GetGridType() const { return m_grid.type; }

int CPolysurface::GetRGRows() const { return m_grid.rows; }

int CPolysurface::GetRGColumns() const { return m_grid.columns; }

double CPolysurface::GetRGMinX() const { return m_grid.minX; }

double CPolysurface::GetRGMaxX() const { return m_grid.maxX; }

double CPolysurface::GetRGMinY() const { return m_grid.minY; }

double CPolysurface::GetRGMaxY() const { return m_grid.maxY; }

double CPolysurface::GetRGStepX() const { return m_grid.stepX; }

double CPolysurface::GetRGStepY() const { return m_grid.stepY; }

double CPolysurface::GetRGRangeX() const { return m_grid.rangeX; }

double CPolysurface::GetRGRangeY() const { return m_grid.rangeY; }

double CPolysurface::GetRGMinZ() const { return m_grid.minZ; }

double CPolysurface::GetRGMaxZ() const { return m_grid.maxZ; }

double CPolysurface::GetRGRangeZ() const { return m_grid.rangeZ; }
