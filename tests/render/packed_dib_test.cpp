#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/section.h"

namespace {

using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::FailEachAllocation;
using orvalix::test::kNoError;
using orvalix::test::Section;

TEST(PackedDIB, HoldsHeaderColorsAndPixels) {
  for (const int bits : {8, 24, 32}) {
    SCOPED_TRACE(bits);
    Section section(13, 7, bits);
    section.FillWithNoise();
    const RGBQUAD color{1, 2, 3, 0};
    SetDIBColorTable(section.memory.GetSafeHdc(), 255, 1, &color);
    const HGLOBAL block = section.dib.GetDIBSectionAsDIB();
    // Rows of 13, 39 and 52 bytes are padded to 16, 40 and 52.
    const std::size_t pixelBytes = 7 * (bits == 8 ? 16U : bits == 24 ? 40U : 52U);
    EXPECT_EQ(GlobalSize(block), 1064 + pixelBytes);
    const auto* bytes = static_cast<const unsigned char*>(GlobalLock(block));
    ASSERT_NE(bytes, nullptr);
    const BITMAPINFOHEADER header = section.dib.GetDIBHeader();
    EXPECT_EQ(std::memcmp(bytes, &header, 40), 0);
    // The last entry of the table; black where there is none.
    const unsigned char* const last = bytes + 40 + 255 * 4;
    EXPECT_EQ(last[0], bits == 8 ? 1 : 0);
    EXPECT_EQ(last[1], bits == 8 ? 2 : 0);
    EXPECT_EQ(last[2], bits == 8 ? 3 : 0);
    EXPECT_EQ(std::memcmp(bytes + 1064, section.dib.FindDIBBits(), pixelBytes), 0);
    // No other lock was left on it.
    EXPECT_FALSE(GlobalUnlock(block));
    EXPECT_EQ(GlobalFree(block), nullptr);
  }
}

TEST(PackedDIB, IsTheCallers) {
  HGLOBAL block = nullptr;
  {
    const Section section(2, 2);
    section.FillRow(0, 7);
    block = section.dib.GetDIBSectionAsDIB();
    section.FillRow(0, 9);
    const HGLOBAL another = section.dib.GetDIBSectionAsDIB();
    EXPECT_NE(another, block);
    GlobalFree(another);
  }
  const auto* bytes = static_cast<const unsigned char*>(GlobalLock(block));
  EXPECT_EQ(bytes[1064 + 8], 7);  // the top row stands last
  GlobalFree(block);
}

TEST(PackedDIB, NeedsABitmap) {
  const CaughtError expected{8, 9, "GetDIBSectionAsDIB"};
  CDC memory;
  const CDIBSection empty(nullptr, &memory, 2, 2, 32);
  EXPECT_EQ(Catch([&] { empty.GetDIBSectionAsDIB(); }), expected);
  CWnd window;
  window.CreateOffscreen(1, 1);
  const CDIBSection nowhere(window.GetDC(), nullptr, 2, 2, 32);
  EXPECT_EQ(Catch([&] { nowhere.GetDIBSectionAsDIB(); }), expected);
}

TEST(PackedDIB, MemoryThatRunsOutIsAClearError) {
  const CaughtError noBlock{1, 9, "GetDIBSectionAsDIB"};
  const CaughtError noColors{2, 9, "GetDIBSectionAsDIB"};
  const Section section(2, 2);
  int blocksFailed = 0;
  int colorsFailed = 0;
  const int failures = FailEachAllocation([&] {
    HGLOBAL block = nullptr;
    const CaughtError error = Catch([&] { block = section.dib.GetDIBSectionAsDIB(); });
    if (error == noBlock) ++blocksFailed;
    if (error == noColors) ++colorsFailed;
    EXPECT_EQ(error == kNoError, block != nullptr);
    GlobalFree(block);
  });
  EXPECT_GE(blocksFailed, 2);
  EXPECT_EQ(colorsFailed, 1);
  EXPECT_EQ(blocksFailed + colorsFailed, failures);
}

TEST(PackedDIB, ABlockWithoutColorsIsFreed) {
  const Section section(2, 2);
  // The colours are the last allocation: see above.
  const int last =
      FailEachAllocation([&] { Catch([&] { GlobalFree(section.dib.GetDIBSectionAsDIB()); }); });
  const HGLOBAL between = GlobalAlloc(GMEM_MOVEABLE, 1);
  EXPECT_EQ(Catch([&] {
              const orvalix::test::AllocationFailure failure(last);
              section.dib.GetDIBSectionAsDIB();
            }),
            (CaughtError{2, 9, "GetDIBSectionAsDIB"}));
  // Handles are counted up: the block that was made meanwhile had the next one.
  const auto next = reinterpret_cast<HGLOBAL>(reinterpret_cast<std::uintptr_t>(between) + 1);
  EXPECT_EQ(GlobalSize(next), 0U);
  GlobalFree(between);
}

}  // namespace
