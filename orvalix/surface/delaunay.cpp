#include "orvalix/surface/delaunay_internal.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace orvalix {

namespace {

/// The longer side of the extent, in units of the grid.
constexpr double kGrid = 0x1p52;

/// The corners of the enclosing triangle are that far away, in longer sides of the extent.
constexpr double kFar = 100.0 * kGrid;

constexpr std::size_t kCorners = 3;

/// The edge opposite a triangle's first vertex.
constexpr int kOpposite = 1;

constexpr int Next(int k) { return k < 2 ? k + 1 : 0; }

constexpr std::size_t Index(int k) { return static_cast<std::size_t>(k); }

/// Kept: a broken triangulation ends the whole process, as programs that watch for it expect.
[[noreturn]] void EndProcess(const char* where, const char* what) {
  std::printf("%s%s", where, what);
  std::exit(1);
}

bool IsFinite(const point3Dtype& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

}  // namespace

void Delaunay::Init(std::span<const point3Dtype> points) {
  m_points = points;
  m_list.clear();
  m_list.reserve(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (IsFinite(points[i])) m_list.push_back(static_cast<int>(i));
  }
  constexpr std::size_t kSpare = 2;
  m_stack.assign(points.size() + kSpare, kNone);
  m_stackLimit = points.size();
  m_top = 0;
}

bool Delaunay::Measure() {
  if (m_list.empty()) return false;
  const point3Dtype& first = m_points[Index(m_list.front())];
  m_x = {first.x, first.x};
  m_y = {first.y, first.y};
  for (const int number : m_list) {
    const point3Dtype& point = m_points[Index(number)];
    m_x = {std::min(m_x.min, point.x), std::max(m_x.max, point.x)};
    m_y = {std::min(m_y.min, point.y), std::max(m_y.max, point.y)};
  }
  m_halve = !std::isfinite(m_x.max - m_x.min) || !std::isfinite(m_y.max - m_y.min);
  m_dmax = std::max(Difference(m_x.max, m_x.min), Difference(m_y.max, m_y.min));
  return m_dmax > 0.0;
}

double Delaunay::Difference(double value, double min) const {
  return m_halve ? value / 2 - min / 2 : value - min;
}

double Delaunay::ToGrid(double value, double min) const {
  const double place = Difference(value, min) / m_dmax * kGrid;
  // From 2^52 to 2^53 doubles are the whole numbers: adding rounds.
  return place + kGrid - kGrid;
}

GridPoint Delaunay::ToGrid(const point3Dtype& point) const {
  return {ToGrid(point.x, m_x.min), ToGrid(point.y, m_y.min)};
}

void Delaunay::MakeTables() {
  const std::size_t triangles = 2 * m_list.size() + 1;
  if (triangles > INT_MAX) throw std::bad_alloc();  // more than can be numbered
  m_places.clear();
  m_places.reserve(m_list.size() + kCorners);
  m_triangles.clear();
  m_triangles.reserve(triangles);
  m_numbers.clear();
  m_numbers.reserve(triangles);
}

void Delaunay::Close() { *this = Delaunay(); }

void Delaunay::delaunwork() {
  const auto corner = static_cast<int>(m_list.size());
  for (const int number : m_list) m_places.push_back(ToGrid(m_points[Index(number)]));
  m_places.insert(m_places.end(), {{-kFar, -kFar}, {kFar, -kFar}, {0.0, kFar}});
  m_triangles.push_back({{corner, corner + 1, corner + 2}, {kNone, kNone, kNone}});
  std::size_t insertions = 0;
  for (int p = 0; p < corner; ++p) {
    if (Insert(p)) ++insertions;
  }
  RequireTrianglesOf(insertions);
  RemoveEnclosing();
}

void Delaunay::RequireTrianglesOf(std::size_t insertions) const {
  if (m_triangles.size() != 2 * insertions + 1) {
    EndProcess("Error in function delaun \n", "incorrect number of triangles formed \n");
  }
}

/// False when there is a vertex at that place already.
bool Delaunay::Insert(int p) {
  const GridPoint& place = Place(p);
  const int t = triloc(place, static_cast<int>(m_triangles.size()) - 1);
  for (const int vertex : At(t).vertex) {
    if (Place(vertex) == place) return false;
  }
  Split(t, p);
  return true;
}

void Delaunay::Split(int t, int p) {
  const Triangle old = At(t);
  const auto [a, b, c] = old.vertex;
  const auto second = static_cast<int>(m_triangles.size());
  const int third = second + 1;
  At(t) = {{p, a, b}, {third, old.neighbor[0], second}};
  m_triangles.push_back({{p, b, c}, {t, old.neighbor[1], third}});
  m_triangles.push_back({{p, c, a}, {second, old.neighbor[2], t}});
  Replace(old.neighbor[1], t, second);
  Replace(old.neighbor[2], t, third);
  ExchangeDiagonals(t);
}

/// Tells the neighbour t, if there is one, that another triangle took the place of one beside it.
void Delaunay::Replace(int t, int oldNeighbor, int newNeighbor) {
  if (t != kNone) At(t).neighbor[Index(edg(t, oldNeighbor))] = newNeighbor;
}

/// Checks the edges opposite the new point, which is the first vertex of the triangle `first` and
/// of the two that were made last, and those that come to lie opposite it.
void Delaunay::ExchangeDiagonals(int first) {
  const auto count = static_cast<int>(m_triangles.size());
  // The triangle to check next is kept apart, not pushed to be popped at once. So there are never
  // more on the stack than there are points; of three points there could be four otherwise.
  int next = kNone;
  const auto check = [this, &next](int t) {
    if (At(t).neighbor[kOpposite] == kNone) return;
    if (next != kNone) push(next);
    next = t;
  };
  for (const int t : {first, count - 2, count - 1}) check(t);
  while (next != kNone) {
    const int l = next;
    next = kNone;
    const int r = At(l).neighbor[kOpposite];
    const int edge = edg(r, l);
    if (MustExchange(l, r, edge)) {
      Exchange(l, r, edge);
      check(l);
      check(r);
    }
    if (next == kNone && m_top > 0) next = pop();
  }
}

bool Delaunay::MustExchange(int l, int r, int edge) const {
  const auto& vertex = At(r).vertex;
  const int a = vertex[Index(edge)];
  const int b = vertex[Index(Next(edge))];
  const int c = vertex[Index(Next(Next(edge)))];
  return swap(Place(a), Place(b), Place(c), Place(At(l).vertex[0]));
}

/// l = (p, b, a) and r, with the edge from a to b and c opposite, become (p, b, c) and (p, c, a).
void Delaunay::Exchange(int l, int r, int edge) {
  Triangle& left = At(l);
  Triangle& right = At(r);
  const int c = right.vertex[Index(Next(Next(edge)))];
  const int a = right.vertex[Index(edge)];
  const int acrossBC = right.neighbor[Index(Next(edge))];
  const int acrossCA = right.neighbor[Index(Next(Next(edge)))];
  const int acrossAP = left.neighbor[2];
  right = {{left.vertex[0], c, a}, {l, acrossCA, acrossAP}};
  left.vertex[2] = c;
  left.neighbor = {left.neighbor[0], acrossBC, r};
  Replace(acrossBC, r, l);
  Replace(acrossAP, l, r);
}

void Delaunay::RemoveEnclosing() {
  const auto corner = static_cast<int>(m_list.size());
  int count = 0;
  for (const Triangle& triangle : m_triangles) {
    const bool stays = std::all_of(triangle.vertex.begin(), triangle.vertex.end(),
                                   [corner](int vertex) { return vertex < corner; });
    m_numbers.push_back(stays ? count++ : kNone);
  }
  std::size_t kept = 0;
  for (std::size_t t = 0; t < m_triangles.size(); ++t) {
    if (m_numbers[t] == kNone) continue;
    Triangle& triangle = m_triangles[kept++];
    triangle = m_triangles[t];
    for (int& neighbor : triangle.neighbor) {
      if (neighbor != kNone) neighbor = m_numbers[Index(neighbor)];
    }
  }
  m_triangles.resize(kept);
}

int Delaunay::triloc(const GridPoint& p, int t) const {
  // No point lies outside an edge that has no neighbour, or outside the one that was just crossed.
  int from = kNone;
  for (;;) {
    const Triangle& triangle = At(t);
    const auto outside = [&](std::size_t k) {
      return triangle.neighbor[k] != from &&
             LiesOutside(Place(triangle.vertex[k]), Place(triangle.vertex[k < 2 ? k + 1 : 0]), p);
    };
    std::size_t k = 0;
    while (k < triangle.neighbor.size() && !outside(k)) ++k;
    if (k == triangle.neighbor.size()) return t;
    from = t;
    t = triangle.neighbor[k];
  }
}

int Delaunay::edg(int l, int k) const {
  const auto& neighbor = At(l).neighbor;
  if (neighbor[0] == k) return 0;
  if (neighbor[1] == k) return 1;
  if (neighbor[2] == k) return 2;
  EndProcess("Error in function edg\n", "Elements not adjacent\n");
}

bool Delaunay::swap(const GridPoint& a, const GridPoint& b, const GridPoint& c,
                    const GridPoint& p) {
  return ExceedHalfTurn(a, b, c, p);
}

void Delaunay::push(int t) {
  if (m_top >= m_stackLimit) EndProcess("Error in routine push\n", "Stack Overflow \n ");
  m_stack[m_top++] = t;
}

int Delaunay::pop() {
  if (m_top == 0) EndProcess("Error in function pop\n", "Stack underflow\n");
  return m_stack[--m_top];
}

}  // namespace orvalix
