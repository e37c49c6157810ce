#include "orvalix/host/nearest_color_internal.h"

#include <algorithm>
#include <cstddef>

namespace orvalix {
namespace {

/// More than any sum of three squared differences of bytes.
constexpr int kFarAway = 3 * 256 * 256;

int Squared(int value) { return value * value; }

}  // namespace

int NearestIndex(const ColorTable& table, const RGBQUAD& color) {
  int best = 0;
  int bestDistance = kFarAway;
  for (std::size_t i = 0; i < table.size(); ++i) {
    const int distance = Squared(table[i].rgbBlue - color.rgbBlue) +
                         Squared(table[i].rgbGreen - color.rgbGreen) +
                         Squared(table[i].rgbRed - color.rgbRed);
    if (distance < bestDistance) {
      bestDistance = distance;
      best = static_cast<int>(i);
    }
  }
  return best;
}

NearestColor::NearestColor(const ColorTable& table) {
  for (std::size_t i = 0; i < table.size(); ++i) {
    m_byGreen[i] = {table[i].rgbBlue, table[i].rgbGreen, table[i].rgbRed, static_cast<int>(i)};
  }
  std::sort(m_byGreen.begin(), m_byGreen.end(), [](const Entry& a, const Entry& b) {
    return a.green != b.green ? a.green < b.green : a.index < b.index;
  });
  std::size_t next = 0;
  for (std::size_t green = 0; green < m_firstOfGreen.size(); ++green) {
    while (next < m_byGreen.size() && m_byGreen[next].green < static_cast<int>(green)) ++next;
    m_firstOfGreen[green] = static_cast<int>(next);
  }
}

std::uint8_t NearestColor::operator()(const RGBQUAD& color) {
  constexpr std::uint32_t kAnswered = 1U << 24;
  constexpr std::uint32_t kSpread = 2654435761U;  // 2^32 divided by the golden ratio
  constexpr unsigned kHashShift = 32 - 12;        // leaves as many bits as there are answers
  const std::uint32_t packed = static_cast<std::uint32_t>(color.rgbBlue) |
                               static_cast<std::uint32_t>(color.rgbGreen) << 8 |
                               static_cast<std::uint32_t>(color.rgbRed) << 16;
  Answer& answer = m_answers[(packed * kSpread) >> kHashShift];
  if (answer.key != (packed | kAnswered)) answer = {packed | kAnswered, Search(color)};
  return answer.index;
}

std::uint8_t NearestColor::Search(const RGBQUAD& color) const {
  int best = 0;
  int bestDistance = kFarAway;
  // False when the entry differs too much in green alone, as do all entries behind it.
  const auto consider = [&](const Entry& entry) {
    const int inGreen = Squared(entry.green - color.rgbGreen);
    if (inGreen > bestDistance) return false;
    const int distance =
        inGreen + Squared(entry.blue - color.rgbBlue) + Squared(entry.red - color.rgbRed);
    if (distance < bestDistance || (distance == bestDistance && entry.index < best)) {
      bestDistance = distance;
      best = entry.index;
    }
    return true;
  };
  const int start = m_firstOfGreen[color.rgbGreen];
  const int count = static_cast<int>(m_byGreen.size());
  int above = start;
  int below = start - 1;
  bool lookAbove = above < count;
  bool lookBelow = below >= 0;
  while (lookAbove || lookBelow) {
    if (lookAbove) {
      lookAbove = consider(m_byGreen[static_cast<std::size_t>(above)]) && ++above < count;
    }
    if (lookBelow) {
      lookBelow = consider(m_byGreen[static_cast<std::size_t>(below)]) && --below >= 0;
    }
  }
  return static_cast<std::uint8_t>(best);
}

}  // namespace orvalix
