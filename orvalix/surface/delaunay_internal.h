/// @file
/// The Delaunay triangulation of scattered points.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/surface/exact_signs_internal.h"

namespace orvalix {

/// Triangulates points by their x and y: they are inserted one after the other into a triangle that
/// encloses them all, and after each insertion diagonals are exchanged until every triangle's
/// circle is empty again.
///
/// It works on a copy of the coordinates, in whole numbers: x and y run from 0 to 2^52 along the
/// longer side of the points' extent. So every test is exact and it always ends; and the points
/// themselves are never touched: there is nothing to restore, neither afterwards, with the rounding
/// that this would bring, nor when memory runs out. Points that fall on the same place of that grid
/// count as one: the first of them to be inserted gets the triangles. Points whose x or y isn't
/// finite take no part.
class Delaunay {
 public:
  /// No triangle.
  static constexpr int kNone = -1;

  /// Vertices anticlockwise; neighbour k lies across the edge from vertex k to vertex k + 1.
  struct Triangle {
    std::array<int, 3> vertex;
    std::array<int, 3> neighbor;
  };

  /// @name The steps, in this order
  /// They throw std::bad_alloc.
  /// @{

  /// Takes the points, which must live as long as this.
  void Init(std::span<const point3Dtype> points);
  /// Measures the extent. False when there are no two points at different places: no triangles.
  bool Measure();
  /// Sorts the points into the order of insertion: by bins, which run back and forth row by row.
  void bsort();
  /// Allocates the tables.
  void MakeTables();
  /// Makes the triangles.
  void delaunwork();
  /// @}

  /// Frees all memory.
  void Close();

  /// The triangles, once they are made. Vertices are numbered in the order of insertion.
  const std::vector<Triangle>& Triangles() const { return m_triangles; }
  /// The number of the point that was inserted as that vertex.
  int PointOf(int vertex) const { return m_list[static_cast<std::size_t>(vertex)]; }

  /// @name Parts of delaunwork()
  /// @{

  /// The nearest whole number.
  static int rtround(double a);
  /// The triangle that contains p, found by walking from triangle t.
  int triloc(const GridPoint& p, int t) const;
  /// The edge of triangle l across which triangle k lies. Ends the process when they aren't
  /// neighbours.
  int edg(int l, int k) const;
  /// True when the diagonal from a to b must be exchanged for the one from c to p.
  static bool swap(const GridPoint& a, const GridPoint& b, const GridPoint& c, const GridPoint& p);
  /// Keeps a triangle whose edge opposite its first vertex is to be checked. Ends the process when
  /// more are kept than there are points.
  void push(int t);
  /// The triangle that was kept last. Ends the process when there is none.
  int pop();
  /// Ends the process unless there are as many triangles as that many insertions make.
  void RequireTrianglesOf(std::size_t insertions) const;
  /// @}

 private:
  /// Part of a bin sort: a point and what it is sorted by.
  struct Entry {
    std::uint64_t key;
    int point;
  };
  /// Where a point lies among the bins.
  struct BinPlace {
    int bin;          ///< from 1
    std::uint64_t u;  ///< along the bin's row, in the direction in which the bins run, in 2^-48
    std::uint64_t v;  ///< across, in 2^-48
  };
  /// Along one axis.
  struct Extent {
    double min;
    double max;
  };
  class Bins;

  Triangle& At(int t) { return m_triangles[static_cast<std::size_t>(t)]; }
  const Triangle& At(int t) const { return m_triangles[static_cast<std::size_t>(t)]; }
  const GridPoint& Place(int vertex) const { return m_places[static_cast<std::size_t>(vertex)]; }

  void AppendBin(std::span<const Entry> bin);
  double Difference(double value, double min) const;
  double ToGrid(double value, double min) const;
  GridPoint ToGrid(const point3Dtype& point) const;
  bool Insert(int p);
  void Split(int t, int p);
  void ExchangeDiagonals(int first);
  bool MustExchange(int l, int r, int edge) const;
  void Exchange(int l, int r, int edge);
  void Replace(int t, int oldNeighbor, int newNeighbor);
  void RemoveEnclosing();

  std::span<const point3Dtype> m_points;  ///< of the caller
  std::vector<int> m_list;                ///< numbers of points, in the order of insertion
  std::vector<int> m_stack;               ///< triangles to check
  std::size_t m_top = 0;                  ///< used in m_stack
  std::size_t m_stackLimit = 0;           ///< the most that m_top may be
  Extent m_x{};                           ///< of the points
  Extent m_y{};                           ///< of the points
  bool m_halve = false;                   ///< halved coordinates: the extent is beyond any number
  double m_dmax = 0.0;                    ///< the longer side of the extent
  std::vector<GridPoint> m_places;        ///< in the order of insertion, and the enclosing three
  std::vector<Triangle> m_triangles;      ///< all that there are
  std::vector<int> m_numbers;             ///< new number of each triangle, or kNone
};

}  // namespace orvalix
