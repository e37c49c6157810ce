#include <algorithm>
#include <cmath>

#include "orvalix/surface/delaunay_internal.h"
#include "orvalix/surface/hilbert_internal.h"

namespace orvalix {

namespace {

/// Levels of the curve that one key tells, and keys that it takes to tell all of a place.
constexpr int kLevelsPerKey = 16;
constexpr int kKeys = 3;
constexpr int kPlaceBits = kLevelsPerKey * kKeys;

/// Points in any order that need no sorting: so few are found quickly.
constexpr std::ptrdiff_t kFew = 8;

/// A part of a bin's side, from 0 to 1, in 2^-48.
std::uint64_t ToPlace(double part) {
  return static_cast<std::uint64_t>(std::ldexp(part, kPlaceBits));
}

}  // namespace

/// Bins, and where points lie in them.
class Delaunay::Bins {
 public:
  Bins(const Delaunay& work, std::size_t count)
      : m_work(work), m_perRow(rtround(std::pow(static_cast<double>(count), 0.25))) {
    m_factorX = Factor(work.m_x);
    m_factorY = Factor(work.m_y);
    // In a thin bin the curve goes along its longer side.
    if (m_factorX > 0.0 && m_factorY > 0.0) {
      m_width = std::min(1.0, m_factorY / m_factorX);
      m_height = std::min(1.0, m_factorX / m_factorY);
    }
  }

  /// Sorts by bin and along the curve in each bin, beginning with that key.
  void Sort(std::span<Entry> entries, int key) const {
    for (Entry& entry : entries) entry.key = KeyOf(entry.point, key);
    std::sort(entries.begin(), entries.end(),
              [](const Entry& a, const Entry& b) { return a.key < b.key; });
    if (key + 1 == kKeys) return;
    // Where many points crowd in one cell of the curve, it goes deeper.
    for (auto first = entries.begin(); first != entries.end();) {
      const auto last = std::find_if(first, entries.end(),
                                     [&](const Entry& entry) { return entry.key != first->key; });
      if (last - first > kFew) {
        const std::uint64_t common = first->key;
        Sort({first, last}, key + 1);
        for (Entry& entry : std::span(first, last)) entry.key = common;
      }
      first = last;
    }
  }

  /// The bin of an entry that was sorted by the first key.
  static std::uint64_t BinOf(const Entry& entry) { return entry.key >> 2 * kLevelsPerKey; }

 private:
  /// Bins per unit of the grid.
  double Factor(const Extent& extent) const {
    constexpr double kMargin = 1.01;  // so that the last point isn't beyond the last bin
    const double width = m_work.ToGrid(extent.max, extent.min);
    return width > 0.0 ? m_perRow / (width * kMargin) : 0.0;
  }

  BinPlace PlaceOf(int point) const {
    const GridPoint place = m_work.ToGrid(m_work.m_points[static_cast<std::size_t>(point)]);
    const double x = place.x * m_factorX;
    const double y = place.y * m_factorY;
    const auto column = static_cast<int>(x);
    const auto row = static_cast<int>(y);
    const std::uint64_t u = ToPlace((x - column) * m_width);
    const std::uint64_t v = ToPlace((y - row) * m_height);
    if (row % 2 == 0) return {row * m_perRow + column + 1, u, v};
    return {(row + 1) * m_perRow - column, ~u, v};
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
  int m_perRow;            ///< as many as there are rows
  double m_factorX = 0.0;  ///< bins per unit of the grid
  double m_factorY = 0.0;  ///< bins per unit of the grid
  double m_width = 1.0;    ///< of a bin, its longer side being 1
  double m_height = 1.0;   ///< of a bin, its longer side being 1
};

int Delaunay::rtround(double a) { return static_cast<int>(std::floor(a + 0.5)); }

void Delaunay::bsort() {
  std::vector<Entry> entries(m_list.size());
  std::transform(m_list.begin(), m_list.end(), entries.begin(), [](int point) {
    return Entry{0, point};
  });
  Bins(*this, m_list.size()).Sort(entries, 0);
  m_list.clear();
  for (auto first = entries.begin(); first != entries.end();) {
    const auto last = std::find_if(first, entries.end(), [&](const Entry& entry) {
      return Bins::BinOf(entry) != Bins::BinOf(*first);
    });
    AppendBin({first, last});
    first = last;
  }
}

/// Adds the points of a bin to the list: some that are spread over it first, then more between
/// them, up and down the curve. If they came as they lie along it, then each point beside a
/// straight row of earlier ones would be joined to all of those ahead, for the next point to undo.
void Delaunay::AppendBin(std::span<const Entry> bin) {
  constexpr std::size_t kThinning = 3;  // not 2 or 4, which would pick rows out of a regular grid
  std::size_t stride = 1;
  bool forward = true;
  for (; stride * kThinning < bin.size(); stride *= kThinning) forward = !forward;
  const std::size_t coarsest = stride;
  for (; stride > 0; stride /= kThinning, forward = !forward) {
    const std::size_t count = (bin.size() - 1) / stride + 1;
    for (std::size_t i = 0; i < count; ++i) {
      // From the end of the bin, so that its last point is among the first.
      const std::size_t fromEnd = forward ? count - 1 - i : i;
      if (stride < coarsest && fromEnd % kThinning == 0) continue;
      m_list.push_back(bin[bin.size() - 1 - fromEnd * stride].point);
    }
  }
}

}  // namespace orvalix
