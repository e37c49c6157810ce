#include "orvalix/surface/polysurface.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/points.h"
#include "orvalix/foundation/throw_error_internal.h"

namespace {

/// Points behind those of the caller; a triangulation uses them.
constexpr int kSparePoints = 4;

constexpr std::size_t kNeighbors = 3;

/// True for the number of an element.
template <class T>
bool Has(const std::vector<T>& elements, int index) {
  return index >= 0 && static_cast<std::size_t>(index) < elements.size();
}

template <class T>
T& At(std::vector<T>& elements, int index) {
  return elements[static_cast<std::size_t>(index)];
}

template <class T>
const T& At(const std::vector<T>& elements, int index) {
  return elements[static_cast<std::size_t>(index)];
}

template <class T>
void Free(std::vector<T>& elements) {
  std::vector<T>().swap(elements);
}

}  // namespace

CPolysurface::CPolysurface() = default;

CPolysurface::CPolysurface(int numPoints, int maxPolygons, int pointsPerPolygon) {
  OpenPolysurface(numPoints, maxPolygons, pointsPerPolygon);
}

CPolysurface::CPolysurface(const point3Dtype* points, int start, int count) {
  constexpr int kVertices = 3;
  if (!TryOpen(count, std::int64_t{2} * count + 2, kVertices)) {
    orvalix::ThrowError(ERR3D_ARRAY_NEW, ERR3DCLASS_POLYSURFACE, "OpenPolysurface");
  }
  SetPolysurfacePoints(points, start, count);
}

CPolysurface::CPolysurface(const CPolysurface* source) { CopyPolysurface(source); }

CPolysurface::CPolysurface(const CPolysurface& source) {
  orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_POLYSURFACE, "CopyPolysurface",
                                [&] { CopyContents(source); });
}

void CPolysurface::CopyContents(const CPolysurface& source) {
  m_points = source.m_points;
  m_polygons = source.m_polygons;
  m_indices = source.m_indices;
  m_neighbors = source.m_neighbors;
  m_numPolygons = source.m_numPolygons;
  m_pointsPerPolygon = source.m_pointsPerPolygon;
  m_indexCount = source.m_indexCount;
  m_grid = source.m_grid;
  m_wireFrame = source.m_wireFrame;
  m_classTag = source.m_classTag;
}

CPolysurface::CPolysurface(CPolysurface&& source) noexcept { SwapContents(source); }

CPolysurface::~CPolysurface() = default;

CPolysurface& CPolysurface::operator=(const CPolysurface& source) {
  CPolysurface copy(source);
  SwapContents(copy);
  return *this;
}

CPolysurface& CPolysurface::operator=(CPolysurface&& source) noexcept {
  CPolysurface taken(std::move(source));
  SwapContents(taken);
  return *this;
}

void CPolysurface::SwapContents(CPolysurface& other) noexcept {
  std::swap(m_points, other.m_points);
  std::swap(m_polygons, other.m_polygons);
  std::swap(m_indices, other.m_indices);
  std::swap(m_neighbors, other.m_neighbors);
  std::swap(m_numPolygons, other.m_numPolygons);
  std::swap(m_pointsPerPolygon, other.m_pointsPerPolygon);
  std::swap(m_indexCount, other.m_indexCount);
  std::swap(m_grid, other.m_grid);
  std::swap(m_wireFrame, other.m_wireFrame);
  // A mesh that has been open remains one.
  m_classTag = other.m_classTag = std::max(m_classTag, other.m_classTag);
}

bool CPolysurface::IsOpen() const { return !m_points.empty(); }

bool CPolysurface::TryOpen(std::int64_t numPoints, std::int64_t maxPolygons, int pointsPerPolygon) {
  const double indices = static_cast<double>(maxPolygons) * pointsPerPolygon;
  if (numPoints < 0 || maxPolygons < 0 || pointsPerPolygon < 0) return false;
  if (numPoints > INT_MAX - kSparePoints || maxPolygons > INT_MAX || indices > INT_MAX)
    return false;
  try {
    CPolysurface opened;
    opened.m_points.resize(static_cast<std::size_t>(numPoints) + kSparePoints);
    opened.m_polygons.resize(static_cast<std::size_t>(maxPolygons));
    opened.m_indices.resize(static_cast<std::size_t>(indices));
    opened.m_pointsPerPolygon = pointsPerPolygon;
    opened.m_wireFrame = m_wireFrame;
    opened.m_classTag = orvalix::kPolysurfaceTag;
    SwapContents(opened);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

void CPolysurface::OpenPolysurface(int numPoints, int maxPolygons, int pointsPerPolygon) {
  if (!TryOpen(numPoints, maxPolygons, pointsPerPolygon)) {
    orvalix::ThrowError(ERR3D_ARRAY_NEW, ERR3DCLASS_POLYSURFACE, "OpenPolysurface");
  }
}

void CPolysurface::ClosePolysurface() {
  Free(m_points);
  Free(m_polygons);
  Free(m_indices);
  Free(m_neighbors);
  m_numPolygons = 0;
  m_indexCount = 0;
}

void CPolysurface::CopyPolysurface(const CPolysurface* source) {
  orvalix::RequireTag(source, orvalix::kPolysurfaceTag, ERR3D_PARAMETER, ERR3DCLASS_POLYSURFACE,
                      "CopyPolysurface");
  *this = *source;
}

int CPolysurface::GetPSNumPoints() const {
  return IsOpen() ? static_cast<int>(m_points.size()) - kSparePoints : 0;
}

point3Dtype* CPolysurface::GetPSPoints() { return IsOpen() ? m_points.data() : nullptr; }

const point3Dtype* CPolysurface::GetPSPoints() const {
  return IsOpen() ? m_points.data() : nullptr;
}

void CPolysurface::GetOnePolysurfacePoint(int index, point3Dtype& point) const {
  if (Has(m_points, index)) point = At(m_points, index);
}

void CPolysurface::SetOnePolysurfacePoint(int index, point3Dtype const& point) {
  if (Has(m_points, index)) At(m_points, index) = point;
}

void CPolysurface::SetPolysurfacePoints(const point3Dtype* source, int start, int count) {
  if (source == nullptr) return;
  const auto stored = static_cast<std::int64_t>(m_points.size());
  // Kept: the start is part of the length, so that as many more elements are copied; programs that
  // fill a mesh in pieces hand over arrays that hold them.
  const std::int64_t length = std::min(stored, std::int64_t{start} + count);
  const std::int64_t first = std::max<std::int64_t>(0, -std::int64_t{start});
  const std::int64_t last = std::min(length, stored - start);
  if (first >= last) return;
  // The source may be a part of the mesh.
  std::memmove(m_points.data() + start + first, source + first,
               static_cast<std::size_t>(last - first) * sizeof(point3Dtype));
}

void CPolysurface::CopyXYorZtoV(double scale, double offset, int axis) {
  constexpr int kAxes = 3;
  if (axis < 0 || axis >= kAxes) return;
  for (point3Dtype& point : m_points) point.v = (GetCoord3D(point, axis) - offset) * scale;
}

int CPolysurface::GetPSMaxPolygons() const { return static_cast<int>(m_polygons.size()); }

int CPolysurface::GetPSNumPolygons() const { return m_numPolygons; }

int CPolysurface::GetPSPointsPerPolygon() const { return m_pointsPerPolygon; }

void CPolysurface::AddPolysurfacePolygon(int polygon, const int* indices, int count,
                                         RGBDType const& first, RGBDType const& second) {
  if (!IsOpen()) return;
  if (m_polygons.empty() || m_indices.empty()) {
    orvalix::ThrowError(ERR3D_BAD_POLYSURFACE, ERR3DCLASS_POLYSURFACE, "AddPolysurfacePolygon");
  }
  const auto room = static_cast<std::int64_t>(m_indices.size()) - m_indexCount;
  if (!Has(m_polygons, polygon) || count < 0 || count > room) return;
  if (indices == nullptr && count > 0) return;
  Polygon& record = At(m_polygons, polygon);
  record.first = first;
  record.second = second;
  record.count = static_cast<std::uint8_t>(count);
  record.firstIndex = m_indexCount;
  std::copy(indices, indices + count, m_indices.begin() + m_indexCount);
  m_indexCount += count;
  m_numPolygons = std::min(m_numPolygons + 1, GetPSMaxPolygons());
}

const CPolysurface::Polygon* CPolysurface::FindPolygon(int polygon) const {
  if (!Has(m_polygons, polygon)) return nullptr;
  const Polygon& found = At(m_polygons, polygon);
  const std::int64_t end = std::int64_t{found.firstIndex} + found.count;
  const bool inside = found.firstIndex >= 0 && end <= static_cast<std::int64_t>(m_indices.size());
  return inside ? &found : nullptr;
}

const CPolysurface::Polygon* CPolysurface::FindPolygonWithPoints(int polygon) const {
  const Polygon* found = FindPolygon(polygon);
  if (found == nullptr) return nullptr;
  const auto first = m_indices.begin() + found->firstIndex;
  const bool complete =
      std::all_of(first, first + found->count, [this](int index) { return Has(m_points, index); });
  return complete ? found : nullptr;
}

const point3Dtype& CPolysurface::Vertex(const Polygon& polygon, std::size_t k) const {
  return At(m_points, m_indices[static_cast<std::size_t>(polygon.firstIndex) + k]);
}

void CPolysurface::GetPSPolygonIndices(int polygon, int* indices, int& count, RGBDType& first,
                                       RGBDType& second) const {
  count = 0;
  const Polygon* found = FindPolygon(polygon);
  if (found == nullptr) return;
  count = found->count;
  first = found->first;
  second = found->second;
  if (indices != nullptr) std::copy_n(m_indices.begin() + found->firstIndex, count, indices);
}

void CPolysurface::GetPolysurfacePolygon(int polygon, point3Dtype* points, int& count,
                                         RGBDType& first, RGBDType& second) const {
  GPSPolygon(polygon, points, count);
  const Polygon* found = FindPolygonWithPoints(polygon);
  if (found == nullptr) return;
  first = found->first;
  second = found->second;
}

void CPolysurface::GPSPolygon(int polygon, point3Dtype* points, int& count) const {
  count = 0;
  const Polygon* found = FindPolygonWithPoints(polygon);
  if (found == nullptr) return;
  count = found->count;
  if (points == nullptr) return;
  for (std::size_t k = 0; k < found->count; ++k) points[k] = Vertex(*found, k);
}

void CPolysurface::SetPolysurfaceColors(int polygon, RGBDType const& first,
                                        RGBDType const& second) {
  if (!Has(m_polygons, polygon)) return;
  At(m_polygons, polygon).first = first;
  At(m_polygons, polygon).second = second;
}

void CPolysurface::ResetPolysurfacePolygons() {
  std::fill(m_polygons.begin(), m_polygons.end(), Polygon{});
  Free(m_neighbors);
  m_numPolygons = 0;
  m_indexCount = 0;
}

double CPolysurface::GetPSPMean(int polygon, int axis) const {
  const Polygon* found = FindPolygonWithPoints(polygon);
  if (found == nullptr || found->count == 0) return 0.0;
  double sum = 0.0;
  for (std::size_t k = 0; k < found->count; ++k) {
    point3Dtype vertex = Vertex(*found, k);
    sum += GetCoord3D(vertex, axis);
  }
  return sum / found->count;
}

bool CPolysurface::GetPSPHeights(int polygon, double& lowest, double& highest) const {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  lowest = kInfinity;
  highest = -kInfinity;
  const Polygon* found = FindPolygon(polygon);
  if (found == nullptr) return false;
  double low = kInfinity;
  double high = -kInfinity;
  const int* index = m_indices.data() + found->firstIndex;
  for (const int* end = index + found->count; index != end; ++index) {
    if (!Has(m_points, *index)) return false;
    const double z = At(m_points, *index).z;
    low = z < low ? z : low;
    high = z > high ? z : high;
  }
  lowest = low;
  highest = high;
  return low <= high;
}

void CPolysurface::GetAdjacentPolyList(int polygon, int* neighbors) const {
  if (neighbors == nullptr) return;
  const bool known = Has(m_polygons, polygon) && !m_neighbors.empty();
  const std::size_t first = known ? static_cast<std::size_t>(polygon) * kNeighbors : 0;
  for (std::size_t k = 0; k < kNeighbors; ++k) {
    const int neighbor = known ? m_neighbors[first + k] : -1;
    neighbors[k] = Has(m_polygons, neighbor) ? neighbor : -1;
  }
}

void CPolysurface::SetWireFrame(int flag) { m_wireFrame = flag; }

int CPolysurface::GetWireFrame() const { return m_wireFrame; }

int CPolysurface::GetClassTag() const { return m_classTag; }
