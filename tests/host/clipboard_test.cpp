#include "orvalix/host/clipboard.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>
#include <vector>

#include "orvalix/host/host.h"
#include "tests/host/memory_picture.h"

namespace {

using orvalix::test::MemoryPicture;

struct Received {
  int calls = 0;
  int width = 0;
  int height = 0;
  std::vector<BYTE> row;  ///< the lowest one
};
Received received;
BOOL answer = TRUE;

BOOL Receive(const void* bgra, int width, int height, int strideBytes) {
  ++received.calls;
  received.width = width;
  received.height = height;
  const BYTE* const lowest = static_cast<const BYTE*>(bgra) + (height - 1) * strideBytes;
  received.row.assign(lowest, lowest + 4 * width);
  return answer;
}

BOOL Throw(const void*, int, int, int) { throw std::runtime_error("no clipboard"); }

BOOL ReceiveOther(const void*, int, int, int) { return FALSE; }

HANDLE NewBitmap(UINT depth = 32) {
  CBitmap bitmap;
  bitmap.CreateBitmap(3, 2, 1, depth, nullptr);
  return bitmap.Detach();
}

bool Exists(HANDLE bitmap) { return GetObjectA(bitmap, 0, nullptr) != 0; }

class Clipboard : public ::testing::Test {
 protected:
  void SetUp() override {
    received = {};
    answer = TRUE;
  }
  void TearDown() override {
    CloseClipboard();
    OpenClipboard(nullptr);
    EmptyClipboard();
    CloseClipboard();
    SetClipboardHandler(nullptr);
  }
};

TEST_F(Clipboard, KeepsABitmapWithinTheProgram) {
  HANDLE bitmap = NewBitmap();
  ASSERT_TRUE(OpenClipboard(nullptr));
  EXPECT_EQ(GetClipboardData(CF_BITMAP), nullptr);
  EXPECT_EQ(SetClipboardData(CF_BITMAP, bitmap), bitmap);
  EXPECT_TRUE(CloseClipboard());
  ASSERT_TRUE(OpenClipboard(nullptr));
  EXPECT_EQ(GetClipboardData(CF_BITMAP), bitmap);
  EXPECT_EQ(GetClipboardData(1), nullptr);
  EXPECT_TRUE(EmptyClipboard());
  EXPECT_EQ(GetClipboardData(CF_BITMAP), nullptr);
  EXPECT_FALSE(Exists(bitmap));
}

TEST_F(Clipboard, TheNextBitmapDeletesTheOneBefore) {
  HANDLE first = NewBitmap();
  HANDLE second = NewBitmap();
  OpenClipboard(nullptr);
  SetClipboardData(CF_BITMAP, first);
  SetClipboardData(CF_BITMAP, first);
  EXPECT_TRUE(Exists(first));
  SetClipboardData(CF_BITMAP, second);
  EXPECT_FALSE(Exists(first));
  EXPECT_EQ(GetClipboardData(CF_BITMAP), second);
}

TEST_F(Clipboard, IsOpenOnceAndForOneThread) {
  ASSERT_TRUE(OpenClipboard(nullptr));
  EXPECT_FALSE(OpenClipboard(nullptr));
  HANDLE bitmap = NewBitmap();
  std::thread([&] {
    EXPECT_FALSE(OpenClipboard(nullptr));
    EXPECT_FALSE(EmptyClipboard());
    EXPECT_EQ(SetClipboardData(CF_BITMAP, bitmap), nullptr);
    EXPECT_EQ(GetClipboardData(CF_BITMAP), nullptr);
    EXPECT_FALSE(CloseClipboard());
  }).join();
  EXPECT_TRUE(CloseClipboard());
  EXPECT_FALSE(CloseClipboard());
  EXPECT_FALSE(EmptyClipboard());
  EXPECT_EQ(SetClipboardData(CF_BITMAP, bitmap), nullptr);
  DeleteObject(bitmap);
}

TEST_F(Clipboard, TakesFreeBitmapsOnly) {
  OpenClipboard(nullptr);
  MemoryPicture picture(2, 2, 32);
  CDC& dc = picture.dc;
  HANDLE bitmap = NewBitmap();
  const HGDIOBJ previous = SelectObject(dc.m_hDC, bitmap);
  EXPECT_EQ(SetClipboardData(CF_BITMAP, bitmap), nullptr);
  SelectObject(dc.m_hDC, previous);
  EXPECT_EQ(SetClipboardData(CF_BITMAP + 1, bitmap), nullptr);
  EXPECT_EQ(SetClipboardData(CF_BITMAP, nullptr), nullptr);
  EXPECT_EQ(SetClipboardData(CF_BITMAP, GetStockObject(DEFAULT_PALETTE)), nullptr);
  EXPECT_EQ(SetClipboardData(CF_BITMAP, bitmap), bitmap);
}

TEST_F(Clipboard, ForgetsABitmapThatItsOwnerDeleted) {
  OpenClipboard(nullptr);
  HANDLE bitmap = NewBitmap();
  SetClipboardData(CF_BITMAP, bitmap);
  DeleteObject(bitmap);
  EXPECT_EQ(GetClipboardData(CF_BITMAP), nullptr);
  EXPECT_EQ(SetClipboardHandler(Receive), nullptr);
  EXPECT_TRUE(CloseClipboard());
  EXPECT_EQ(received.calls, 0);
}

TEST_F(Clipboard, HandlerGetsTheOpaquePictureWhenItIsClosed) {
  for (const UINT depth : {8U, 24U, 32U}) {
    received = {};
    SetClipboardHandler(Receive);
    HANDLE bitmap = NewBitmap(depth);
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    const HGDIOBJ previous = SelectObject(dc.m_hDC, bitmap);
    dc.SetPixel(1, 1, RGB(255, 0, 0));
    SelectObject(dc.m_hDC, previous);
    OpenClipboard(nullptr);
    SetClipboardData(CF_BITMAP, bitmap);
    EXPECT_EQ(received.calls, 0);
    CloseClipboard();
    EXPECT_EQ(received.calls, 1);
    EXPECT_EQ(received.width, 3);
    EXPECT_EQ(received.height, 2);
    EXPECT_EQ(received.row, (std::vector<BYTE>{0, 0, 0, 255, 0, 0, 255, 255, 0, 0, 0, 255}));
    EXPECT_FALSE(Exists(bitmap));
    // Nothing new, so there is nothing to pass on.
    OpenClipboard(nullptr);
    EXPECT_EQ(GetClipboardData(CF_BITMAP), nullptr);
    CloseClipboard();
    EXPECT_EQ(received.calls, 1);
  }
}

TEST_F(Clipboard, IsClosedWhateverTheHandlerThrows) {
  SetClipboardHandler(Throw);
  OpenClipboard(nullptr);
  HANDLE bitmap = NewBitmap();
  SetClipboardData(CF_BITMAP, bitmap);
  EXPECT_THROW(CloseClipboard(), std::runtime_error);
  SetClipboardHandler(nullptr);
  EXPECT_TRUE(OpenClipboard(nullptr));
  EXPECT_EQ(GetClipboardData(CF_BITMAP), bitmap);
}

TEST_F(Clipboard, WhatTheHandlerRefusesStays) {
  EXPECT_EQ(SetClipboardHandler(ReceiveOther), nullptr);
  EXPECT_EQ(SetClipboardHandler(Receive), &ReceiveOther);
  answer = FALSE;
  HANDLE bitmap = NewBitmap();
  OpenClipboard(nullptr);
  SetClipboardData(CF_BITMAP, bitmap);
  CloseClipboard();
  EXPECT_EQ(received.calls, 1);
  OpenClipboard(nullptr);
  EXPECT_EQ(GetClipboardData(CF_BITMAP), bitmap);
  CloseClipboard();
  EXPECT_EQ(received.calls, 1);
}

}  // namespace
