/// @file
/// A section in a memory device context, for tests that look at single pixels.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "orvalix/host/host.h"

namespace orvalix::test {

/// A header with room for 256 colours.
struct FullBitmapInfo {
  BITMAPINFOHEADER header{};
  RGBQUAD colors[256]{};

  FullBitmapInfo(LONG width, LONG height, int bitCount) {
    header.biSize = sizeof(BITMAPINFOHEADER);
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(bitCount);
  }
  const BITMAPINFO* Get() const { return reinterpret_cast<const BITMAPINFO*>(this); }
};

/// A picture in memory with access to its pixels. An 8-bit one has index i showing the grey (i, i,
/// i) unless told otherwise.
class MemoryPicture {
 public:
  /// @param height negative for the top row first
  MemoryPicture(LONG width, LONG height, int bitCount) : m_info(width, height, bitCount) {
    for (int i = 0; i < 256; ++i) {
      const auto grey = static_cast<BYTE>(i);
      m_info.colors[i] = {grey, grey, grey, 0};
    }
    Create();
  }
  MemoryPicture(LONG width, LONG height, const std::vector<RGBQUAD>& colors)
      : m_info(width, height, 8) {
    std::copy(colors.begin(), colors.end(), m_info.colors);
    Create();
  }
  ~MemoryPicture() {
    dc.DeleteDC();
    EXPECT_TRUE(DeleteObject(bitmap));
  }
  MemoryPicture(const MemoryPicture&) = delete;
  MemoryPicture& operator=(const MemoryPicture&) = delete;

  int Width() const { return m_info.header.biWidth; }
  int Height() const { return std::abs(m_info.header.biHeight); }

  /// Fills everything with one colour.
  void Fill(COLORREF color) {
    for (int y = 0; y < Height(); ++y) {
      for (int x = 0; x < Width(); ++x) dc.SetPixel(x, y, color);
    }
  }
  /// Gives every pixel a grey of its own: 1, 2, 3, ... row by row.
  void Number() {
    for (int y = 0; y < Height(); ++y) {
      for (int x = 0; x < Width(); ++x) dc.SetPixel(x, y, Grey(y * Width() + x + 1));
    }
  }
  /// The red of each pixel of a row.
  std::vector<int> Row(int y) const {
    std::vector<int> row;
    for (int x = 0; x < Width(); ++x) row.push_back(GetRValue(dc.GetPixel(x, y)));
    return row;
  }
  /// The red of each pixel, row by row from the top.
  std::vector<std::vector<int>> Rows() const {
    std::vector<std::vector<int>> rows;
    for (int y = 0; y < Height(); ++y) rows.push_back(Row(y));
    return rows;
  }
  static COLORREF Grey(int value) { return RGB(value, value, value); }

  CDC dc;
  HBITMAP bitmap = nullptr;
  std::uint8_t* bits = nullptr;

 private:
  void Create() {
    EXPECT_TRUE(dc.CreateCompatibleDC(nullptr));
    void* memory = nullptr;
    bitmap = CreateDIBSection(nullptr, m_info.Get(), DIB_RGB_COLORS, &memory, nullptr, 0);
    EXPECT_NE(bitmap, nullptr);
    EXPECT_NE(SelectObject(dc.m_hDC, bitmap), nullptr);
    bits = static_cast<std::uint8_t*>(memory);
  }

  FullBitmapInfo m_info;
};

using Rows = std::vector<std::vector<int>>;

}  // namespace orvalix::test
