#include "orvalix/host/global_memory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <vector>

#include "tests/host/memory_picture.h"
#include "tests/support/allocation_failure.h"

namespace {

using orvalix::test::AllocationMeter;
using orvalix::test::FailEachAllocation;
using orvalix::test::MemoryPicture;

TEST(GlobalMemory, HoldsWhatIsWritten) {
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 100);
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(GlobalSize(block), 100U);
  void* const bytes = GlobalLock(block);
  ASSERT_NE(bytes, nullptr);
  std::memset(bytes, 0x5A, 100);
  EXPECT_FALSE(GlobalUnlock(block));
  const std::vector<unsigned char> expected(100, 0x5A);
  EXPECT_EQ(std::memcmp(GlobalLock(block), expected.data(), 100), 0);
  EXPECT_EQ(GlobalFree(block), nullptr);
}

TEST(GlobalMemory, IsZeroOnDemand) {
  for (const UINT flags : {GMEM_MOVEABLE | GMEM_ZEROINIT, GHND}) {
    const HGLOBAL block = GlobalAlloc(flags, 1000);
    const std::vector<unsigned char> zeros(1000);
    EXPECT_EQ(std::memcmp(GlobalLock(block), zeros.data(), 1000), 0);
    GlobalFree(block);
  }
}

TEST(GlobalMemory, CountsItsLocks) {
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 4);
  EXPECT_FALSE(GlobalUnlock(block));  // not locked
  void* const bytes = GlobalLock(block);
  EXPECT_EQ(GlobalLock(block), bytes);
  EXPECT_TRUE(GlobalUnlock(block));
  EXPECT_FALSE(GlobalUnlock(block));
  EXPECT_FALSE(GlobalUnlock(block));
  EXPECT_EQ(GlobalLock(block), bytes);
  EXPECT_FALSE(GlobalUnlock(block));
  GlobalFree(block);
}

TEST(GlobalMemory, IsFreedEvenWhileItIsLocked) {
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 4);
  GlobalLock(block);
  EXPECT_EQ(GlobalFree(block), nullptr);
  EXPECT_EQ(GlobalLock(block), nullptr);
}

TEST(GlobalMemory, HandlesAreNotAddressesAndNeverComeBack) {
  const HGLOBAL first = GlobalAlloc(GMEM_MOVEABLE, 4);
  EXPECT_NE(GlobalLock(first), first);
  GlobalFree(first);
  const HGLOBAL second = GlobalAlloc(GMEM_MOVEABLE, 4);
  EXPECT_NE(first, second);
  GlobalFree(second);
}

TEST(GlobalMemory, OfNoBytesHasNothingToLock) {
  const HGLOBAL block = GlobalAlloc(GHND, 0);
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(GlobalSize(block), 0U);
  EXPECT_EQ(GlobalLock(block), nullptr);
  EXPECT_FALSE(GlobalUnlock(block));
  EXPECT_EQ(GlobalFree(block), nullptr);
}

TEST(GlobalMemory, KnowsBlocksBehindHandlesOnly) {
  EXPECT_EQ(GlobalAlloc(0, 4), nullptr);
  EXPECT_EQ(GlobalAlloc(GMEM_ZEROINIT, 4), nullptr);
  // A bit that asks for sharing between programs, which old programs set.
  const HGLOBAL shared = GlobalAlloc(GMEM_MOVEABLE | 0x2000, 4);
  EXPECT_NE(shared, nullptr);
  GlobalFree(shared);
}

TEST(GlobalMemory, RefusesOtherHandles) {
  const MemoryPicture picture(1, 1, 32);
  const HGLOBAL freed = GlobalAlloc(GMEM_MOVEABLE, 4);
  GlobalFree(freed);
  int something = 0;
  for (const HGLOBAL handle :
       {HGLOBAL{nullptr}, freed, HGLOBAL{picture.bitmap}, HGLOBAL{picture.dc.m_hDC},
        HGLOBAL{&something},
        reinterpret_cast<HGLOBAL>(std::numeric_limits<std::intptr_t>::max())}) {
    EXPECT_EQ(GlobalLock(handle), nullptr);
    EXPECT_FALSE(GlobalUnlock(handle));
    EXPECT_EQ(GlobalSize(handle), 0U);
    EXPECT_EQ(GlobalFree(handle), handle);
  }
  // Nor does a block pass for something else.
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 4);
  EXPECT_FALSE(DeleteObject(block));
  EXPECT_EQ(GlobalSize(block), 4U);
  GlobalFree(block);
}

TEST(GlobalMemory, WithoutMemoryIsNull) {
  int made = 0;
  const int failures = FailEachAllocation([&] {
    const HGLOBAL block = GlobalAlloc(GHND, 100);
    if (block == nullptr) return;
    ++made;
    GlobalFree(block);
  });
  EXPECT_GE(failures, 2);  // the bytes and what stands behind the handle
  EXPECT_EQ(made, 1);
  const AllocationMeter meter;
  EXPECT_EQ(GlobalAlloc(GMEM_MOVEABLE, std::numeric_limits<SIZE_T>::max()), nullptr);
  EXPECT_EQ(GlobalAlloc(GHND, std::numeric_limits<SIZE_T>::max() / 2 + 1), nullptr);
  EXPECT_EQ(meter.Largest(), 0U);
}

}  // namespace
