/// @file
/// How classes count their objects.
#pragma once

namespace orvalix {

/// Counts one more object. Files overwrite the counts, so one may already be the largest number; it
/// then goes on with the smallest.
/// @return the new count
inline int CountInstance(int& count) {
  count = static_cast<int>(static_cast<unsigned>(count) + 1U);
  return count;
}

}  // namespace orvalix
