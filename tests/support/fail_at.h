/// @file
/// What comes of one allocation that fails.
#pragma once

#include "support/allocation_failure.h"
#include "support/caught_error.h"

namespace orvalix::test {

/// Runs `work` with its n-th allocation failing.
/// @return its error; `happened` is false when it needs fewer
template <class Work>
CaughtError FailAt(int n, bool& happened, Work&& work) {
  happened = false;
  return Catch([&] {
    const AllocationFailure failure(n);
    try {
      work();
    } catch (...) {
      happened = failure.Happened();
      throw;
    }
    happened = failure.Happened();
  });
}

}  // namespace orvalix::test
