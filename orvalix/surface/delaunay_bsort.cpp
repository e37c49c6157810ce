#include <algorithm>
#include <cmath>

#include "orvalix/surface/delaunay_internal.h"
#include "orvalix/surface/hilbert_internal.h"

namespace orvalix {

namespace {

/// Levels of the curve that one key tells, and keys that it takes to tell all of a place.
constexpr int kLevelsPerKey = 12;
constexpr int kKeys = 4;
constexpr int kPlaceBits = kLevelsPerKey * kKeys;

/// Points in any order that need no sorting: so few are found quickly.
constexpr std::ptrdiff_t kFew = 8;

/// A part of a bin's side, from 0 to 1, in 2^-48.
std::uint64_t ToPlace(double part) {
  return static_cast<std::uint64_t>(std::ldexp(part, kPlaceBits));
}

}  // namespace

/// The order of insertion.
class Delaunay::BinOrder {
 public:
  explicit BinOrder(const Delaunay& work, std::size_t count)
      : m_work(work), m_bins(rtround(std::pow(static_cast<double>(count), 0.25))) {
    m_factorX = Factor(work.m_x);
    m_factorY = Factor(work.m_y);
  }

  /// Sorts by bin and place, beginning with that key.
  void Sort(std::span<Entry> entries, int key) const {
    for (Entry& entry : entries) entry.key = KeyOf(entry.point, key);
    std::sort(entries.begin(), entries.end(),
              [](const Entry& a, const Entry& b) { return a.key < b.key; });
    if (key + 1 == kKeys) return;
    // Where many points crowd in one cell of the curve, it goes deeper.
    for (auto first = entries.begin(); first != entries.end();) {
      const auto last = std::find_if(first, entries.end(),
                                     [&](const Entry& entry) { return entry.key != first->key; });
      if (last - first > kFew) Sort({first, last}, key + 1);
      first = last;
    }
  }

 private:
  /// Bins per unit of the grid.
  double Factor(const Extent& extent) const {
    constexpr double kMargin = 1.01;  // so that the last point isn't beyond the last bin
    const double width = m_work.ToGrid(extent.max, extent.min);
    return width > 0.0 ? m_bins / (width * kMargin) : 0.0;
  }

  BinPlace PlaceOf(int point) const {
    const GridPoint place = m_work.ToGrid(m_work.m_points[static_cast<std::size_t>(point)]);
    const double x = place.x * m_factorX;
    const double y = place.y * m_factorY;
    const auto column = static_cast<int>(x);
    const auto row = static_cast<int>(y);
    const std::uint64_t u = ToPlace(x - column);
    const std::uint64_t v = ToPlace(y - row);
    if (row % 2 == 0) return {row * m_bins + column + 1, u, v};
    return {(row + 1) * m_bins - column, ~u, v};
  }

  std::uint64_t KeyOf(int point, int key) const {
    const BinPlace place = PlaceOf(point);
    const int shift = (kKeys - 1 - key) * kLevelsPerKey;
    const std::uint64_t position =
        HilbertPosition(place.u >> shift, place.v >> shift, kLevelsPerKey);
    if (key > 0) return position;
    return static_cast<std::uint64_t>(place.bin) << 2 * kLevelsPerKey | position;
  }

  const Delaunay& m_work;
  int m_bins;  ///< per row, and rows
  double m_factorX;
  double m_factorY;
};

int Delaunay::rtround(double a) { return static_cast<int>(std::floor(a + 0.5)); }

void Delaunay::bsort() {
  std::vector<Entry> entries(m_list.size());
  std::transform(m_list.begin(), m_list.end(), entries.begin(), [](int point) {
    return Entry{0, point};
  });
  BinOrder(*this, m_list.size()).Sort(entries, 0);
  std::transform(entries.begin(), entries.end(), m_list.begin(),
                 [](const Entry& entry) { return entry.point; });
}

}  // namespace orvalix
