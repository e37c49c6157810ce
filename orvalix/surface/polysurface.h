/// @file
/// A surface made of polygons.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

namespace orvalix {
class Delaunay;
}

/// A mesh: points, and polygons that name their vertices by the numbers of points. Each polygon has
/// two colours. A mesh that was made from a rectangular grid also knows the grid, and may know the
/// neighbours of each polygon.
///
/// A mesh is open while it has storage: opening it decides how many points and polygons there can
/// be. Points and polygons are numbered from 0. A number that is out of range does no harm: nothing
/// is written, and nothing or zero is read. Behind the points that were asked for lie four spare
/// ones, which a triangulation uses; they can be read and written like the others.
///
/// Copying a mesh copies all that it holds.
class ORVALIX_API CPolysurface {
 public:
  /// @name Making a mesh
  /// @{

  /// A closed mesh.
  CPolysurface();
  /// Opens with OpenPolysurface().
  CPolysurface(int numPoints, int maxPolygons, int pointsPerPolygon);
  /// Samples a function with CreatePolysurfaceFunction().
  CPolysurface(int rows, int columns, double xMin, double yMin, double xMax, double yMax,
               double (*function)(double x, double y));
  /// Makes an even grid with CreatePolysurfaceEvenGrid().
  CPolysurface(int rows, int columns, double xMin, double yMin, double xMax, double yMax,
               const double* values, int type);
  /// Opens for `count` points and 2 * count + 2 triangles and copies the points in with
  /// SetPolysurfacePoints(). There are no triangles yet.
  /// @throws CErr3D type 2, class 18, "OpenPolysurface"
  CPolysurface(const point3Dtype* points, int start, int count);
  /// Converts a rectangular grid of points with ConvertRG2PS().
  CPolysurface(const point3Dtype* points, int rows, int columns, int type);
  /// Copies with CopyPolysurface().
  explicit CPolysurface(const CPolysurface* source);
  /// A reduced copy: ReducePolysurface() with the grid type of the source. The second argument only
  /// tells this from a copy.
  CPolysurface(const CPolysurface* source, int reduce);
  /// Reads an open file with Load().
  explicit CPolysurface(void* file);
  /// Reads a polysurface file with Load().
  explicit CPolysurface(CString const& name);
  /// @throws CErr3D type 2, class 18, "CopyPolysurface"
  CPolysurface(const CPolysurface& source);
  /// The source is closed afterwards.
  CPolysurface(CPolysurface&& source) noexcept;
  /// Closes the mesh.
  ~CPolysurface();
  /// @throws CErr3D type 2, class 18, "CopyPolysurface"; the mesh is then as it was
  CPolysurface& operator=(const CPolysurface& source);
  /// The source is closed afterwards.
  CPolysurface& operator=(CPolysurface&& source) noexcept;

  /// Opens an empty mesh in place of what there was: its points are zero, it has no polygons and
  /// no grid. The wire frame flag stays.
  /// @param numPoints points; four spare ones are added
  /// @param maxPolygons polygons that there can be
  /// @param pointsPerPolygon vertices for which there is room, on average over all polygons
  /// @throws CErr3D type 2, class 18, "OpenPolysurface" when there is no memory for it, which there
  ///   never is for a negative size; the mesh is then as it was
  void OpenPolysurface(int numPoints, int maxPolygons, int pointsPerPolygon);
  /// Frees points, polygons and neighbours. The description of the grid, the points per polygon
  /// and the wire frame flag stay.
  void ClosePolysurface();
  /// Makes the mesh a copy.
  /// @throws CErr3D class 18, "CopyPolysurface": type 10 for something that never was an open mesh,
  ///   type 2 when memory runs out; the mesh is then as it was
  void CopyPolysurface(const CPolysurface* source);
  /// Makes the mesh of every second row and column of the source's grid, beginning with the first,
  /// and of the last row and the last column in any case. Points keep their values, polygons get
  /// the colours of ConvertRG2PS(). There are neighbours when the source has them. A source without
  /// a grid is copied as it is.
  /// @param type of the grid, as for ConvertRG2PS()
  /// @throws CErr3D class 18, "ReducePolysurface": type 10 for something that never was an open
  ///   mesh and for another type than 0 to 3, type 2 when memory runs out; the mesh is then as it
  ///   was
  void ReducePolysurface(const CPolysurface* source, int type);
  /// Makes a mesh of triangles, with neighbours, from values of a function at evenly spaced
  /// points, among them those on the borders. As CreatePolysurfaceEvenGrid() otherwise.
  /// @param function the height at (x, y); called once per point, row by row
  /// @throws CErr3D class 18, "CreatePolysurfaceFunction": type 10 for fewer than two rows or
  ///   columns and for no function, type 3 when memory runs out; the mesh is then as it was
  void CreatePolysurfaceFunction(int rows, int columns, double xMin, double yMin, double xMax,
                                 double yMax, double (*function)(double x, double y));
  /// Makes a mesh of values at evenly spaced points. z and v of a point are its value.
  /// @param rows, columns at least 2; rows follow each other along y, columns along x
  /// @param xMin, yMin place of the first point
  /// @param xMax, yMax place of the last point
  /// @param values rows * columns values, row by row; copied
  /// @param type 0: quadrilaterals, without neighbours; 1: triangles, with neighbours
  /// @throws CErr3D class 18, "CreatePolysurfaceEvenGrid": type 10 for fewer than two rows or
  ///   columns, no values and another type; type 3 when memory runs out. The mesh is then as it
  ///   was.
  void CreatePolysurfaceEvenGrid(int rows, int columns, double xMin, double yMin, double xMax,
                                 double yMax, const double* values, int type);
  /// Makes polygons of a rectangular grid, in which point r * columns + c stands in row r and
  /// column c. They are blue with a black second colour, and numbered row by row.
  /// @param points of types 0 and 1: rows * columns points, copied; null leaves them zero
  /// @param type 0: quadrilaterals, for which the mesh is opened; 1: triangles, two to a cell, for
  ///   which the mesh is opened; 2 and 3: the same of the points that the open mesh has. Fewer than
  ///   two rows or columns have no polygons.
  /// @throws CErr3D class 18, "ConvertRG2PS": type 3 when the mesh can't be opened or, for types 2
  ///   and 3, isn't; type 10 for another type; type 19 when the open mesh has no room for that
  ///   many polygons or fewer points. The mesh is then as it was.
  void ConvertRG2PS(const point3Dtype* points, int rows, int columns, int type);
  /// Triangulates the points, without the spare ones, by their x and y, in place of the polygons
  /// that there were. The triangles go anticlockwise and are blue with a white second colour. They
  /// are the Delaunay triangulation: no point lies inside the circle through the vertices of a
  /// triangle. Flat triangles on the border, whose circles are wider than about a hundred times the
  /// extent of the points, may be missing. A closed mesh and one for no points stay as they are.
  ///
  /// Points keep their coordinates, bit by bit; the triangles are those of the coordinates rounded
  /// to 2^-52 of the longer side of the points' extent. Of points that coincide then one gets the
  /// triangles. Points on one line, or all at one place, have no triangles. Points whose x or y
  /// isn't a finite number are left out.
  ///
  /// The description of a grid stays, although the triangles are no longer those of the grid.
  /// @param makeAdjacency nonzero: the neighbours of all triangles become known, too
  /// @throws CErr3D class 18: type 2 when memory runs out, with the place "InitDelaunay", "bsort",
  ///   "Deltri" or, for the neighbours, "DelaunaySurface"; type 19, "DelaunaySurface", when the
  ///   mesh was opened for fewer polygons or vertices than the triangles have. n points have at
  ///   most 2 * n - 5 triangles. The mesh is then as it was.
  void DelaunaySurface(int makeAdjacency);
  /// @}

  /// @name Points
  /// @{

  /// Points, without the spare ones; 0 while the mesh is closed.
  int GetPSNumPoints() const;
  /// All points, spare ones included; null while the mesh is closed. Opening, closing and loading
  /// end their life.
  point3Dtype* GetPSPoints();
  const point3Dtype* GetPSPoints() const;
  /// Reads one point; `point` stays as it was when there is none.
  void GetOnePolysurfacePoint(int index, point3Dtype& point) const;
  /// Writes one point.
  void SetOnePolysurfacePoint(int index, point3Dtype const& point);
  /// Copies points: element k of `source` becomes point start + k. Null does nothing.
  /// @param source start + count points, unless the mesh has fewer
  void SetPolysurfacePoints(const point3Dtype* source, int start, int count);
  /// Gives every point the value v = (coordinate - offset) * scale.
  /// @param axis of the coordinate: 0 x, 1 y, 2 z; others change nothing
  void CopyXYorZtoV(double scale, double offset, int axis);
  /// @}

  /// @name Polygons
  /// @{

  /// Polygons that there can be; 0 while the mesh is closed.
  int GetPSMaxPolygons() const;
  /// Polygons that were added, at most as many as there can be; 0 while the mesh is closed.
  int GetPSNumPolygons() const;
  /// Points per polygon that the mesh was opened for.
  int GetPSPointsPerPolygon() const;
  /// Writes a polygon and counts it. Does nothing in a closed mesh and when the vertices don't fit.
  /// @param polygon its number, chosen by the caller. One that is written again is counted again,
  ///   and its earlier vertices keep their room.
  /// @param indices numbers of the vertices; copied
  /// @param count vertices. Only the low 8 bits of the number are stored: more than 255 can't be
  ///   read back.
  /// @throws CErr3D type 19, class 18, "AddPolysurfacePolygon" when the mesh was opened for no
  ///   polygons or no vertices
  void AddPolysurfacePolygon(int polygon, const int* indices, int count, RGBDType const& first,
                             RGBDType const& second);
  /// Reads the numbers of a polygon's vertices and its colours. Without such a polygon `count` is 0
  /// and the rest as it was.
  /// @param indices room for `count`, at most 255; null leaves them out
  void GetPSPolygonIndices(int polygon, int* indices, int& count, RGBDType& first,
                           RGBDType& second) const;
  /// Reads the vertices of a polygon and its colours. Without such a polygon, or when one of its
  /// vertices doesn't exist, `count` is 0 and the rest as it was.
  /// @param points room for `count`, at most 255; null leaves them out. The first vertex isn't
  ///   repeated at the end.
  void GetPolysurfacePolygon(int polygon, point3Dtype* points, int& count, RGBDType& first,
                             RGBDType& second) const;
  /// The same without colours.
  void GPSPolygon(int polygon, point3Dtype* points, int& count) const;
  /// Changes the colours of a polygon.
  void SetPolysurfaceColors(int polygon, RGBDType const& first, RGBDType const& second);
  /// Leaves the mesh without polygons and neighbours; there can be as many as before.
  void ResetPolysurfacePolygons();
  /// The mean of a coordinate over the vertices of a polygon; 0 when there is none.
  /// @param axis of the coordinate: 0 x, 1 y, 2 z; others give 0
  double GetPSPMean(int polygon, int axis) const;
  /// Addition: the smallest and the largest height of a polygon's vertices; undefined heights are
  /// passed over.
  /// @return false, with infinite ends the wrong way round, when there are no heights: without such
  ///   a polygon, or when one of its vertices doesn't exist
  bool GetPSPHeights(int polygon, double& lowest, double& highest) const;
  /// Finds the neighbours of all polygons. Only for a grid of triangles: nothing happens otherwise,
  /// nor when the grid's triangles have been replaced.
  /// @throws CErr3D type 2, class 18, "CreateRGAdjacentPolygonList"
  void CreateRGAdjacentPolygonList();
  /// The numbers of a polygon's three neighbours, each -1 where there is none: neighbour k lies
  /// across the edge from vertex k to vertex k + 1. All are -1 when neighbours aren't known.
  void GetAdjacentPolyList(int polygon, int* neighbors) const;
  /// Nonzero: only the edges of the polygons are to be drawn. Default 0. Not saved.
  void SetWireFrame(int flag);
  int GetWireFrame() const;
  /// @}

  /// @name The grid that the mesh was made from
  /// All are 0 in a mesh that wasn't made from one.
  /// @{

  /// 1 when the points are evenly spaced.
  int GetEvenGridFlag() const;
  /// The type that ConvertRG2PS() got: 2 or 3 for even grids of type 0 or 1.
  int GetGridType() const;
  /// Points along y.
  int GetRGRows() const;
  /// Points along x.
  int GetRGColumns() const;
  /// Of the first point.
  double GetRGMinX() const;
  /// Of the last point.
  double GetRGMaxX() const;
  /// Of the first point.
  double GetRGMinY() const;
  /// Of the last point.
  double GetRGMaxY() const;
  /// From a column to the next on average; 0 when there is only one.
  double GetRGStepX() const;
  /// From a row to the next on average; 0 when there is only one.
  double GetRGStepY() const;
  /// From the first point to the last.
  double GetRGRangeX() const;
  /// From the first point to the last.
  double GetRGRangeY() const;
  /// The smallest value; 0 unless the mesh was made from values or a function, or reduced.
  double GetRGMinZ() const;
  /// The largest value.
  double GetRGMaxZ() const;
  /// From the smallest value to the largest.
  double GetRGRangeZ() const;
  /// @}

  /// @name Record and file
  /// @{

  /// Writes the mesh to an open file. Null does nothing.
  /// @throws CErr3D type 7, class 18, "Save"
  void Save(void* file) const;
  /// Writes a polysurface file, which is the record alone. A file of that name stays as it was
  /// until the new one is complete, and when it can't be completed.
  /// @throws CErr3D class 18, "Save": type 6 when the file can't be created, else type 7
  void Save(CString const& name) const;
  /// Reads a mesh from an open file in place of what there was. It then has the even grid flag 0,
  /// the grid type 1 and the wire frame flag 0, whatever was saved. Null does nothing.
  /// @throws CErr3D class 18, "Load": type 7, or type 2 when memory runs out. The mesh then holds
  ///   what could be read.
  void Load(void* file);
  /// Reads a polysurface file.
  /// @throws CErr3D class 18, "Load": type 5 when the file can't be opened, else as Load(void*)
  void Load(CString const& name);
  /// @}

  /// Addition: 1414 as soon as the mesh has been open.
  int GetClassTag() const;

 private:
  friend class CChartObj3D;  // reports errors of its copy as its own

  /// A polygon as it lies in memory and in files.
  struct Polygon {
    RGBDType first;                       ///< colour
    std::array<double, 4> unused;         ///< room that files have
    RGBDType second;                      ///< colour
    std::uint8_t count;                   ///< vertices
    std::array<std::uint8_t, 3> padding;  ///< 0
    std::int32_t firstIndex;              ///< place of the first vertex in m_indices
  };

  /// The grid that a mesh was made from.
  struct Grid {
    int even;                       ///< 1: evenly spaced
    int type;                       ///< as ConvertRG2PS() got it
    int rows, columns;              ///< of points
    double minX, maxX, minY, maxY;  ///< of the first and the last point
    double stepX, stepY;            ///< mean distances
    double rangeX, rangeY;          ///< from the first point to the last
    double minZ, maxZ, rangeZ;      ///< of the values
  };

  /// A rectangle of the x-y plane.
  struct Area {
    double xMin, yMin, xMax, yMax;
  };

  template <class Record, class Self>
  static void RecordFields(Record& record, Self& self);
  template <class Record, class Self>
  static void RecordGrid(Record& record, Self& self, int& adjacencyFlag);

  void SwapContents(CPolysurface& other) noexcept;
  /// Makes an empty mesh a copy. Lets std::bad_alloc out, with the mesh in parts.
  void CopyContents(const CPolysurface& source);
  bool IsOpen() const;
  /// Opens the mesh; false, and nothing changed, when there is no memory or a size is negative.
  bool TryOpen(std::int64_t numPoints, std::int64_t maxPolygons, int pointsPerPolygon);
  /// Null unless there is such a polygon and its vertices lie in m_indices.
  const Polygon* FindPolygon(int polygon) const;
  /// FindPolygon() for one whose vertices exist.
  const Polygon* FindPolygonWithPoints(int polygon) const;
  const point3Dtype& Vertex(const Polygon& polygon, std::size_t k) const;
  /// Gives a mesh that holds the points of a grid, and has room for them, its polygons.
  void BuildGrid(int rows, int columns, int type);
  void AddGridPolygon(std::initializer_list<int> vertices);
  void SetGrid(int rows, int columns, int type);
  void MeasureHeights();
  /// @param heightAt the height of the i-th point, at (x, y)
  template <class HeightAt>
  void CreateEvenGrid(int rows, int columns, const Area& area, int type, const char* place,
                      HeightAt heightAt);
  void FindNeighbors();
  /// True when the polygons are those that BuildGrid() makes of triangles.
  bool HasGridTriangles() const;
  void TakeEverySecond(const CPolysurface& source, int type);
  void InitDelaunay(orvalix::Delaunay& work) const;
  static void deltri(orvalix::Delaunay& work);
  /// Gives the mesh the triangles that were made; nothing has changed when it throws.
  void TakeTriangles(const orvalix::Delaunay& work, bool withNeighbors);
  static void CloseDelaunay(orvalix::Delaunay& work);

  std::vector<point3Dtype> m_points;  ///< with the spare ones; empty while the mesh is closed
  std::vector<Polygon> m_polygons;    ///< as many as there can be
  std::vector<int> m_indices;         ///< of all vertices, one run per polygon
  std::vector<int> m_neighbors;       ///< three per polygon, -1 for none; empty: not known
  int m_numPolygons = 0;              ///< at most m_polygons.size()
  int m_pointsPerPolygon = 0;         ///< as requested at opening
  int m_indexCount = 0;               ///< used in m_indices, at most its size
  Grid m_grid{};                      ///< zeros: none
  int m_wireFrame = 0;                ///< nonzero: edges only
  int m_classTag = 0;                 ///< 1414 marks a mesh that has been open
};
