#include "orvalix/host/gdi_object.h"

#include <gtest/gtest.h>

#include <memory>

#include "orvalix/host/host.h"
#include "tests/host/memory_picture.h"

namespace {

HBITMAP NewBitmap() {
  return CreateDIBSection(nullptr, orvalix::test::FullBitmapInfo(1, 1, 32).Get(), DIB_RGB_COLORS,
                          nullptr, nullptr, 0);
}

/// True while the handle stands for a bitmap.
bool Lives(HGDIOBJ object) { return GetObjectA(object, 0, nullptr) != 0; }

TEST(GdiObject, OwnsNothingAtFirst) {
  CGdiObject object;
  EXPECT_EQ(object.m_hObject, nullptr);
  EXPECT_EQ(object.GetSafeHandle(), nullptr);
  EXPECT_EQ(object.Detach(), nullptr);
  EXPECT_FALSE(object.DeleteObject());
  BITMAP description{};
  EXPECT_EQ(object.GetObject(sizeof(description), &description), 0);
}

TEST(GdiObject, DestructorDeletes) {
  const HBITMAP bitmap = NewBitmap();
  {
    CBitmap owner;
    EXPECT_TRUE(owner.Attach(bitmap));
    EXPECT_EQ(owner.GetSafeHandle(), bitmap);
    EXPECT_TRUE(Lives(bitmap));
  }
  EXPECT_FALSE(Lives(bitmap));
}

TEST(GdiObject, DetachGivesTheHandleAway) {
  const HBITMAP bitmap = NewBitmap();
  {
    CBitmap owner;
    owner.Attach(bitmap);
    EXPECT_EQ(owner.Detach(), bitmap);
    EXPECT_EQ(owner.GetSafeHandle(), nullptr);
  }
  EXPECT_TRUE(Lives(bitmap));
  CBitmap next;
  EXPECT_TRUE(next.Attach(bitmap));
}

TEST(GdiObject, AttachRefusesWhatHasAnOwner) {
  CBitmap owner;
  const HBITMAP bitmap = NewBitmap();
  EXPECT_FALSE(owner.Attach(nullptr));
  int noHandle = 0;
  EXPECT_FALSE(owner.Attach(&noHandle));
  EXPECT_TRUE(owner.Attach(bitmap));
  CBitmap second;
  EXPECT_FALSE(second.Attach(bitmap));
  const HBITMAP other = NewBitmap();
  EXPECT_FALSE(owner.Attach(other));
  EXPECT_EQ(owner.GetSafeHandle(), bitmap);
  EXPECT_TRUE(DeleteObject(other));
}

TEST(GdiObject, DeletingByHandleEmptiesTheOwner) {
  CBitmap owner;
  owner.Attach(NewBitmap());
  EXPECT_TRUE(DeleteObject(owner.m_hObject));
  EXPECT_EQ(owner.m_hObject, nullptr);
}

TEST(GdiObject, DeleteObjectDeletesOnce) {
  CBitmap owner;
  owner.Attach(NewBitmap());
  EXPECT_TRUE(owner.DeleteObject());
  EXPECT_EQ(owner.m_hObject, nullptr);
  EXPECT_FALSE(owner.DeleteObject());
}

TEST(GdiObject, DeletedAndMadeUpHandlesAreRefused) {
  const HBITMAP bitmap = NewBitmap();
  EXPECT_TRUE(DeleteObject(bitmap));
  EXPECT_FALSE(DeleteObject(bitmap));
  EXPECT_FALSE(DeleteObject(nullptr));
  int noHandle = 0;
  EXPECT_FALSE(DeleteObject(&noHandle));
  EXPECT_EQ(CBitmap::FromHandle(bitmap), nullptr);
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  EXPECT_FALSE(DeleteObject(dc.m_hDC));
  EXPECT_EQ(SelectObject(dc.m_hDC, bitmap), nullptr);
}

TEST(GdiObject, HandlesAreNeverUsedAgain) {
  // A new object may well lie where the deleted one was.
  const HBITMAP deleted = NewBitmap();
  DeleteObject(deleted);
  for (int i = 0; i < 100; ++i) {
    CBitmap bitmap;
    bitmap.Attach(NewBitmap());
    EXPECT_NE(bitmap.m_hObject, deleted);
    EXPECT_FALSE(DeleteObject(deleted));
  }
}

TEST(GdiObject, SelectedObjectsAreNotDeleted) {
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  CBitmap bitmap;
  bitmap.Attach(NewBitmap());
  CBitmap* const previous = dc.SelectObject(&bitmap);
  EXPECT_FALSE(bitmap.DeleteObject());
  EXPECT_FALSE(DeleteObject(bitmap.m_hObject));
  EXPECT_NE(bitmap.m_hObject, nullptr);
  dc.SelectObject(previous);
  EXPECT_TRUE(bitmap.DeleteObject());
}

TEST(GdiObject, SelectedObjectOutlivesItsOwner) {
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  HGDIOBJ handle = nullptr;
  CBitmap* previous = nullptr;
  {
    CBitmap bitmap;
    bitmap.Attach(NewBitmap());
    handle = bitmap.m_hObject;
    previous = dc.SelectObject(&bitmap);
  }
  EXPECT_TRUE(Lives(handle));
  EXPECT_EQ(dc.SetPixel(0, 0, RGB(1, 2, 3)), RGB(1, 2, 3));
  dc.SelectObject(previous);
  EXPECT_FALSE(Lives(handle));
}

TEST(GdiObject, GivenUpObjectDiesWithItsDeviceContext) {
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  HGDIOBJ handle = nullptr;
  {
    CBitmap bitmap;
    bitmap.Attach(NewBitmap());
    handle = bitmap.m_hObject;
    dc.SelectObject(&bitmap);
  }
  EXPECT_TRUE(Lives(handle));
  dc.DeleteDC();
  EXPECT_FALSE(Lives(handle));
}

TEST(GdiObject, FromHandleFindsTheOwner) {
  CBitmap owner;
  owner.Attach(NewBitmap());
  EXPECT_EQ(CBitmap::FromHandle(owner), &owner);
  EXPECT_EQ(CBitmap::FromHandle(nullptr), nullptr);
}

TEST(GdiObject, FromHandleMakesAStandInThatOwnsNothing) {
  const HBITMAP bitmap = NewBitmap();
  CBitmap* const standIn = CBitmap::FromHandle(bitmap);
  ASSERT_NE(standIn, nullptr);
  EXPECT_EQ(standIn->m_hObject, bitmap);
  EXPECT_EQ(CBitmap::FromHandle(bitmap), standIn);
  {
    CBitmap owner;
    EXPECT_TRUE(owner.Attach(bitmap));
    EXPECT_EQ(CBitmap::FromHandle(bitmap), &owner);
    owner.Detach();
  }
  EXPECT_TRUE(standIn->DeleteObject());
  EXPECT_FALSE(Lives(bitmap));
}

TEST(GdiObject, PaletteHandleIsNoBitmap) {
  const HGDIOBJ palette = GetStockObject(DEFAULT_PALETTE);
  EXPECT_EQ(CBitmap::FromHandle(static_cast<HBITMAP>(palette)), nullptr);
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  EXPECT_EQ(SelectObject(dc.m_hDC, palette), nullptr);
  const HBITMAP bitmap = NewBitmap();
  EXPECT_EQ(SelectPalette(dc.m_hDC, static_cast<HPALETTE>(HGDIOBJ{bitmap}), FALSE), nullptr);
  EXPECT_EQ(CPalette::FromHandle(static_cast<HPALETTE>(HGDIOBJ{bitmap})), nullptr);
  DeleteObject(bitmap);
}

TEST(GdiObject, StockObjectsAreNeverDeleted) {
  const HGDIOBJ stock = GetStockObject(DEFAULT_PALETTE);
  EXPECT_TRUE(DeleteObject(stock));
  EXPECT_EQ(GetPaletteEntries(static_cast<HPALETTE>(stock), 0, 0, nullptr), 20U);
  {
    CPalette first;
    CPalette second;
    EXPECT_TRUE(first.Attach(stock));
    EXPECT_TRUE(second.Attach(stock));
    EXPECT_TRUE(second.DeleteObject());
    EXPECT_EQ(second.m_hObject, nullptr);
  }
  EXPECT_EQ(GetPaletteEntries(static_cast<HPALETTE>(stock), 0, 0, nullptr), 20U);
  EXPECT_EQ(GetStockObject(0), nullptr);
  EXPECT_EQ(GetStockObject(-1), nullptr);
}

}  // namespace
