// What the host's classes do when memory runs out: fail as documented, and change nothing.

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <new>

#include "orvalix/host/host.h"
#include "tests/host/memory_picture.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/temporary_file.h"

namespace {

using orvalix::test::AllocationFailure;
using orvalix::test::FailEachAllocation;
using orvalix::test::Failing;
using orvalix::test::FullBitmapInfo;
using orvalix::test::MemoryPicture;

/// Lets each allocation of `make` fail in turn and expects it to tell so.
/// @return how many there were
template <class Make>
int FailsEachTime(Make&& make) {
  int successes = 0;
  const int failures = FailEachAllocation([&] {
    if (make()) ++successes;
  });
  // Only the last run, in which nothing failed, succeeds.
  EXPECT_EQ(successes, 1);
  return failures;
}

class Allocation : public ::testing::Test {
 protected:
  // The stock palette is made with the first device context, once for all.
  void SetUp() override { GetStockObject(DEFAULT_PALETTE); }
};

TEST_F(Allocation, SectionIsNull) {
  const FullBitmapInfo info(2, 2, 8);
  EXPECT_GT(FailsEachTime([&] {
              int something = 0;
              void* bits = &something;
              const HBITMAP bitmap =
                  CreateDIBSection(nullptr, info.Get(), DIB_RGB_COLORS, &bits, nullptr, 0);
              EXPECT_EQ(bits == nullptr, bitmap == nullptr);
              return DeleteObject(bitmap) != FALSE;
            }),
            2);
}

TEST_F(Allocation, BitmapIsNotMade) {
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  EXPECT_GT(FailsEachTime([&] {
              CBitmap bitmap;
              const BOOL made = bitmap.CreateCompatibleBitmap(&dc, 2, 2);
              EXPECT_EQ(made != FALSE, bitmap.m_hObject != nullptr);
              return made != FALSE;
            }),
            2);
}

TEST_F(Allocation, PaletteIsNotMade) {
  LOGPALETTE description{0x300, 1, {{1, 2, 3, 0}}};
  EXPECT_GT(FailsEachTime([&] {
              CPalette palette;
              return palette.CreatePalette(&description) != FALSE;
            }),
            1);
}

TEST_F(Allocation, DeviceContextsAreNotMade) {
  EXPECT_GT(FailsEachTime([] {
              CDC dc;
              const BOOL made = dc.CreateCompatibleDC(nullptr);
              EXPECT_EQ(made != FALSE, dc.m_hDC != nullptr);
              return made != FALSE;
            }),
            3);
  std::array<BYTE, 4> pixel{};
  EXPECT_GT(FailsEachTime([&] {
              CDC dc;
              return dc.CreateOnPixels(pixel.data(), 1, 1, 4) != FALSE;
            }),
            0);
}

TEST_F(Allocation, WindowIsNotMade) {
  EXPECT_GT(FailsEachTime([] {
              CWnd window;
              const BOOL made = window.CreateOffscreen(2, 2);
              EXPECT_EQ(made != FALSE, window.m_hWnd != nullptr);
              return made != FALSE;
            }),
            3);
}

TEST_F(Allocation, WindowStaysAsItWas) {
  CWnd window;
  window.CreateOffscreen(2, 2);
  FailsEachTime([&] {
    const BOOL made = window.CreateOffscreen(5, 5);
    EXPECT_EQ(window.GetDC()->GetDeviceCaps(HORZRES), made != FALSE ? 5 : 2);
    return made != FALSE;
  });
}

TEST_F(Allocation, StandInIsNull) {
  MemoryPicture picture(1, 1, 32);
  EXPECT_EQ(FailsEachTime([&] { return CBitmap::FromHandle(picture.bitmap) != nullptr; }), 1);
}

TEST_F(Allocation, PlainCopiesNeedNone) {
  MemoryPicture source(2, 2, 32);
  MemoryPicture destination(2, 2, 32);
  const AllocationFailure failure(1, Failing::kFromThen);
  EXPECT_TRUE(destination.dc.BitBlt(0, 0, 2, 2, &source.dc, 0, 0, SRCCOPY));
  EXPECT_FALSE(failure.Happened());
}

TEST_F(Allocation, OverlappingCopyFails) {
  MemoryPicture picture(1, 3, 32);
  CDC turned;
  turned.CreateOnPixels(picture.bits, 1, 3, 4);
  EXPECT_GT(
      FailsEachTime([&] { return turned.BitBlt(0, 0, 1, 3, &picture.dc, 0, 0, SRCCOPY) != FALSE; }),
      0);
}

TEST_F(Allocation, StretchFails) {
  MemoryPicture source(2, 2, 24);
  MemoryPicture destination(4, 4, 32);
  EXPECT_GT(FailsEachTime([&] {
              return destination.dc.StretchBlt(0, 0, 4, 4, &source.dc, 0, 0, 2, 2, SRCCOPY) !=
                     FALSE;
            }),
            1);
  EXPECT_GT(FailsEachTime([&] {
              return source.dc.StretchBlt(0, 0, 2, 2, &source.dc, 1, 1, 1, 1, SRCCOPY) != FALSE;
            }),
            1);
}

TEST_F(Allocation, DibFails) {
  MemoryPicture destination(4, 4, 32);
  for (const int depth : {4, 32}) {
    const FullBitmapInfo info(1, 1, depth);
    const DWORD bits = 0;
    EXPECT_GT(FailsEachTime([&] {
                return destination.dc.StretchDIBits(0, 0, 4, 4, 0, 0, 1, 1, &bits, info.Get(),
                                                    DIB_RGB_COLORS, SRCCOPY) == 1;
              }),
              1);
    EXPECT_GT(FailsEachTime([&] {
                return SetDIBitsToDevice(destination.dc.m_hDC, 0, 0, 1, 1, 0, 0, 0, 1, &bits,
                                         info.Get(), DIB_RGB_COLORS) == 1;
              }),
              0);
  }
}

class QuietPage : public CDC {
 public:
  QuietPage() { CreateHostDC(); }
  BOOL PutImage(const RECT&, const void*, int, int, int) override { return TRUE; }
};

TEST_F(Allocation, OtherToolkitsDeviceGetsNothing) {
  QuietPage page;
  MemoryPicture source(2, 2, 24);
  EXPECT_GT(
      FailsEachTime([&] { return page.BitBlt(0, 0, 2, 2, &source.dc, 0, 0, SRCCOPY) != FALSE; }),
      0);
  EXPECT_GT(FailsEachTime([] { return QuietPage().m_hDC != nullptr; }), 0);
}

TEST_F(Allocation, FileIsNotOpened) {
  const orvalix::test::TemporaryFile file(orvalix::test::Bytes{1});
  EXPECT_GT(FailsEachTime([&] {
              CFile opened;
              return opened.Open(file.Path(), CFile::modeRead) != FALSE;
            }),
            0);
  CFileException error;
  CFile opened;
  const AllocationFailure failure(1);
  EXPECT_FALSE(opened.Open(file.Path(), CFile::modeRead, &error));
  EXPECT_EQ(error.m_cause, CFileException::genericException);
}

TEST_F(Allocation, FileExceptionIsThrownAllTheSame) {
  // The first allocation is the exception, the second its long file name.
  const char* const longName = "a name that is too long to be kept within the string object itself";
  for (const int n : {1, 2}) {
    const AllocationFailure failure(n);
    try {
      AfxThrowFileException(CFileException::diskFull, 28, longName);
    } catch (CFileException* exception) {
      EXPECT_TRUE(failure.Happened());
      EXPECT_EQ(exception->m_cause, CFileException::diskFull);
      EXPECT_EQ(exception->m_lOsError, 28);
      EXPECT_TRUE(exception->m_strFileName.IsEmpty());
      exception->Delete();
    }
  }
}

TEST_F(Allocation, StringThrowsAndKeepsItsText) {
  const char* const longText = "a text that is too long to be kept within the string object itself";
  CString text("short");
  {
    const AllocationFailure failure(1, Failing::kFromThen);
    EXPECT_THROW(text = longText, std::bad_alloc);
    EXPECT_THROW(text += longText, std::bad_alloc);
    EXPECT_THROW(text.Format("%s", longText), std::bad_alloc);
  }
  EXPECT_STREQ(text, "short");
}

}  // namespace
