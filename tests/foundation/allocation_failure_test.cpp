#include "support/allocation_failure.h"

#include <gtest/gtest.h>

#include <new>
#include <vector>

namespace {

using orvalix::test::AllocationFailure;
using orvalix::test::AllocationMeter;
using orvalix::test::FailEachAllocation;
using orvalix::test::Failing;

/// True when an allocation succeeds. Called by name: a `new` whose result isn't needed may be left
/// out by the compiler.
bool Allocates() {
  try {
    ::operator delete(::operator new(1));
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

TEST(AllocationFailure, FailsTheChosenOneAlone) {
  {
    const AllocationFailure failure(2);
    EXPECT_TRUE(Allocates());
    EXPECT_FALSE(failure.Happened());
    EXPECT_FALSE(Allocates());
    EXPECT_TRUE(failure.Happened());
    EXPECT_TRUE(Allocates());
  }
  const AllocationFailure none(0);
  EXPECT_TRUE(Allocates());
}

TEST(AllocationFailure, FailsAllFromTheChosenOneOn) {
  {
    const AllocationFailure failure(2, Failing::kFromThen);
    EXPECT_TRUE(Allocates());
    EXPECT_FALSE(Allocates());
    EXPECT_FALSE(Allocates());
  }
  EXPECT_TRUE(Allocates());
}

TEST(AllocationFailure, ReachesFormsThatDoNotThrow) {
  const AllocationFailure failure(1);
  void* memory = ::operator new[](4, std::nothrow);
  EXPECT_EQ(memory, nullptr);
  ::operator delete[](memory);
}

TEST(AllocationFailure, TakesTurns) {
  int successes = 0;
  EXPECT_EQ(FailEachAllocation([&] {
              for (int i = 0; i < 3; ++i) successes += Allocates() ? 1 : 0;
            }),
            3);
  EXPECT_EQ(successes, 3 * 2 + 3);  // two in each of the three failing runs, three in the last
}

TEST(AllocationFailure, TheMeterKnowsTheLargest) {
  const AllocationMeter meter;
  std::vector<char> large(5000);
  std::vector<char> small(10);
  EXPECT_EQ(meter.Largest(), 5000U);
  EXPECT_EQ(large.size() + small.size(), 5010U);
}

}  // namespace
