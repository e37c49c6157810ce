/// @file
/// Memory that runs out when a test wants it to. A test program that links orvalix_test_allocation
/// gets its operator new from here.
#pragma once

#include <cstddef>

namespace orvalix::test {

/// Which allocations fail once the chosen one has been reached.
enum class Failing {
  kOne,      ///< that one alone
  kFromThen  ///< that one and all after it
};

/// Makes the n-th allocation of this thread from now on throw std::bad_alloc; 1 is the next one, 0
/// lets all succeed.
void FailAllocation(int n, Failing extent = Failing::kOne);

/// Lets the n-th allocation of this thread fail while it lives.
class AllocationFailure {
 public:
  explicit AllocationFailure(int n, Failing extent = Failing::kOne) { FailAllocation(n, extent); }
  ~AllocationFailure() { FailAllocation(0); }
  AllocationFailure(const AllocationFailure&) = delete;
  AllocationFailure& operator=(const AllocationFailure&) = delete;

  /// True when the n-th allocation has been reached.
  bool Happened() const;
};

/// Lets allocations of this thread fail that ask for more than `bytes`, while it lives.
class LargeAllocationFailure {
 public:
  explicit LargeAllocationFailure(std::size_t bytes);
  ~LargeAllocationFailure();
  LargeAllocationFailure(const LargeAllocationFailure&) = delete;
  LargeAllocationFailure& operator=(const LargeAllocationFailure&) = delete;
};

/// Lets allocations of this thread fail that ask for exactly so many bytes, while it lives: those
/// of one class, where others have other sizes.
class SizedAllocationFailure {
 public:
  explicit SizedAllocationFailure(std::size_t bytes);
  ~SizedAllocationFailure();
  SizedAllocationFailure(const SizedAllocationFailure&) = delete;
  SizedAllocationFailure& operator=(const SizedAllocationFailure&) = delete;
};

/// Runs `work` with its first allocation failing, then with its second, until a run needs no more.
/// @return how many allocations failed, one in each run
template <class Work>
int FailEachAllocation(Work&& work) {
  for (int n = 1;; ++n) {
    const AllocationFailure failure(n);
    work();
    if (!failure.Happened()) return n - 1;
  }
}

/// Watches the allocations of this thread while it lives.
class AllocationMeter {
 public:
  AllocationMeter();
  /// Bytes of the largest allocation asked for.
  std::size_t Largest() const;
  /// Bytes of all allocations asked for, whether freed again or not.
  std::size_t Total() const;
};

}  // namespace orvalix::test
