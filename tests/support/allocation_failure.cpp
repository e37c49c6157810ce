#include "support/allocation_failure.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <new>

namespace orvalix::test {
namespace {

thread_local int allocationsUntilFailure = 0;  ///< 0 when none is to fail
thread_local bool failsFromThen = false;
thread_local bool hasFailed = false;
thread_local std::size_t limit = std::numeric_limits<std::size_t>::max();
thread_local std::size_t failingSize = std::numeric_limits<std::size_t>::max();
thread_local std::size_t largest = 0;
thread_local std::size_t total = 0;

bool IsToFail(std::size_t size) {
  if (size > limit || size == failingSize) return true;
  if (hasFailed && failsFromThen) return true;
  if (allocationsUntilFailure == 0 || --allocationsUntilFailure > 0) return false;
  hasFailed = true;
  return true;
}

void* Allocate(std::size_t size) noexcept {
  largest = std::max(largest, size);
  total += size;
  return IsToFail(size) ? nullptr : std::malloc(std::max<std::size_t>(size, 1));
}

void* AllocateOrThrow(std::size_t size) {
  void* memory = Allocate(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void FailAllocation(int n, Failing extent) {
  allocationsUntilFailure = n;
  failsFromThen = extent == Failing::kFromThen;
  hasFailed = false;
}

bool AllocationFailure::Happened() const { return hasFailed; }

LargeAllocationFailure::LargeAllocationFailure(std::size_t bytes) { limit = bytes; }

LargeAllocationFailure::~LargeAllocationFailure() {
  limit = std::numeric_limits<std::size_t>::max();
}

SizedAllocationFailure::SizedAllocationFailure(std::size_t bytes) { failingSize = bytes; }

SizedAllocationFailure::~SizedAllocationFailure() {
  failingSize = std::numeric_limits<std::size_t>::max();
}

AllocationMeter::AllocationMeter() {
  largest = 0;
  total = 0;
}

std::size_t AllocationMeter::Largest() const { return largest; }

std::size_t AllocationMeter::Total() const { return total; }

}  // namespace orvalix::test

void* operator new(std::size_t size) { return orvalix::test::AllocateOrThrow(size); }
void* operator new[](std::size_t size) { return orvalix::test::AllocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return orvalix::test::Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return orvalix::test::Allocate(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
