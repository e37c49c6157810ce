#include "orvalix/render/dib_section.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/foundation/write_file_internal.h"
#include "orvalix/render/palette_rules.h"
#include "orvalix/render/pixel_format_internal.h"
#include "orvalix/render/section_info_internal.h"

namespace {

constexpr UINT kColors = orvalix::kSectionColors;
constexpr WORD kBitmapFileType = 0x4D42;  // the letters B and M
/// Information header and colour table: what stands before the pixels of a packed bitmap.
constexpr DWORD kPackedPixelOffset = 40 + kColors * 4;
/// The same in a file, behind its file header.
constexpr DWORD kPixelOffset = 14 + kPackedPixelOffset;

using orvalix::RowBytes;

/// Bytes of all rows, as far as a header can tell them: their lowest 32 bits.
DWORD ImageBytes(int bitCount, int width, int height) {
  return static_cast<DWORD>(RowBytes(bitCount, width)) * static_cast<DWORD>(height);
}

/// The depth for which a section needs a palette.
constexpr int kPaletteBits = 8;

/// Frees a block of memory that nobody has taken over.
struct FreeGlobal {
  void operator()(HGLOBAL block) const { GlobalFree(block); }
};
using GlobalBlock = std::unique_ptr<void, FreeGlobal>;

BITMAPFILEHEADER FileHeader(DWORD pixelBytes) {
  BITMAPFILEHEADER header{};
  header.bfType = kBitmapFileType;
  header.bfSize = pixelBytes + kPixelOffset;
  header.bfOffBits = kPixelOffset;
  return header;
}

}  // namespace

CDIBSection::CDIBSection(CDC* windowDC, CDC* targetDC, int width, int height, int bitsPerPixel)
    : m_bits(nullptr), m_colorTable{}, m_normPrintRect{0.0, 0.0, 1.0, 1.0}, m_targetDC(nullptr) {
  CreateCDIBSection(windowDC, targetDC, width, height, bitsPerPixel);
}

CDIBSection::~CDIBSection() = default;

void CDIBSection::CreateCDIBSection(CDC* windowDC, CDC* targetDC, int width, int height, int) {
  m_targetDC = targetDC;
  // A bitmap of negative height stands top row first, in files too: nothing here is made for that.
  if (windowDC == nullptr || height < 0) return;
  const int bitCount = windowDC->GetDeviceCaps(BITSPIXEL) * windowDC->GetDeviceCaps(PLANES);
  orvalix::SectionInfo info{};
  info.header.biSize = sizeof(BITMAPINFOHEADER);
  info.header.biWidth = width;
  info.header.biHeight = height;
  info.header.biPlanes = 1;
  info.header.biBitCount = static_cast<WORD>(bitCount);
  info.header.biCompression = BI_RGB;
  info.header.biSizeImage = ImageBytes(bitCount, width, height);
  m_bitmap.Attach(
      CreateDIBSection(windowDC->GetSafeHdc(), info.Get(), DIB_RGB_COLORS, &m_bits, nullptr, 0));
}

BITMAPINFOHEADER CDIBSection::GetDIBHeader() const {
  DIBSECTION section{};
  if (GetObjectA(m_bitmap.GetSafeHandle(), sizeof(section), &section) == 0) return {};
  return section.dsBmih;
}

int CDIBSection::DIBWidth() const { return GetDIBHeader().biWidth; }

int CDIBSection::DIBHeight() const { return GetDIBHeader().biHeight; }

int CDIBSection::StorageWidth() const {
  const BITMAPINFOHEADER header = GetDIBHeader();
  return static_cast<int>(RowBytes(header.biBitCount, header.biWidth));
}

unsigned short CDIBSection::DIBNumColors(const BITMAPINFOHEADER& header) const {
  if (header.biClrUsed != 0) return static_cast<unsigned short>(header.biClrUsed);
  if (header.biBitCount < 1 || header.biBitCount > kPaletteBits) return 0;
  return static_cast<unsigned short>(1U << header.biBitCount);
}

unsigned short CDIBSection::PaletteSize(const BITMAPINFOHEADER& header) const {
  return static_cast<unsigned short>(DIBNumColors(header) * sizeof(RGBQUAD));
}

void* CDIBSection::FindDIBBits() const {
  // The pixels go with the bitmap, which its handle lets anyone delete.
  return GetBitmapHandle() != nullptr ? m_bits : nullptr;
}

void CDIBSection::GetCDIBColorTable() {
  if (m_targetDC == nullptr) return;
  GetDIBColorTable(m_targetDC->GetSafeHdc(), 0, kColors, m_colorTable.data());
}

void CDIBSection::CopyColors(RGBQUAD* colors) const {
  std::copy(m_colorTable.begin(), m_colorTable.end(), colors);
  if (m_targetDC != nullptr) GetDIBColorTable(m_targetDC->GetSafeHdc(), 0, kColors, colors);
}

void CDIBSection::SetCDIBColorTable(HPALETTE palette) {
  if (palette == nullptr || m_targetDC == nullptr) return;
  std::array<PALETTEENTRY, kColors> entries{};
  const UINT count = GetPaletteEntries(palette, 0, kColors, entries.data());
  for (std::size_t i = 0; i < count; ++i) {
    m_colorTable[i] = {entries[i].peBlue, entries[i].peGreen, entries[i].peRed, 0};
  }
  SetDIBColorTable(m_targetDC->GetSafeHdc(), 0, count, m_colorTable.data());
}

void CDIBSection::CreateRGBPalette() {
  const PIXELFORMATDESCRIPTOR format = orvalix::StoredPixelFormat(GetDIBHeader().biBitCount);
  const HPALETTE palette = orvalix::WithAllocationErrors(
      ERR3D_ARRAY_NEW, ERR3DCLASS_DIBSECTION, "CreateRGBPalette",
      [&] { return orvalix::CreatePaletteFor(orvalix::DefaultPaletteRules(), format); });
  if (palette == nullptr) return;
  // Owned by itself, the old palette lives on while a device context holds it.
  CPalette old;
  old.Attach(m_palette.Detach());
  m_palette.Attach(palette);
  SetCDIBColorTable(palette);
}

void CDIBSection::SaveDIB(const CString& fileName) const {
  constexpr const char* kPlace = "SaveDIB";
  if (GetBitmapHandle() == nullptr || m_targetDC == nullptr) {
    orvalix::ThrowError(ERR3D_DIB_HANDLE, ERR3DCLASS_DIBSECTION, kPlace);
  }
  auto colors = orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_DIBSECTION, kPlace,
                                              [] { return std::vector<RGBQUAD>(kColors); });
  CopyColors(colors.data());
  const BITMAPINFOHEADER header = GetDIBHeader();
  const DWORD pixelBytes = ImageBytes(header.biBitCount, header.biWidth, header.biHeight);
  const BITMAPFILEHEADER fileHeader = FileHeader(pixelBytes);

  orvalix::WriteWholeFile(fileName, ERR3DCLASS_DIBSECTION, kPlace, [&](CFile& file) {
    file.Write(&fileHeader, sizeof(fileHeader));
    file.Write(&header, sizeof(header));
    file.Write(colors.data(), static_cast<UINT>(colors.size() * sizeof(RGBQUAD)));
    file.Write(m_bits, pixelBytes);
  });
}

HGLOBAL CDIBSection::GetDIBSectionAsDIB() const {
  constexpr const char* kPlace = "GetDIBSectionAsDIB";
  if (GetBitmapHandle() == nullptr || m_targetDC == nullptr) {
    orvalix::ThrowError(ERR3D_DIB_HANDLE, ERR3DCLASS_DIBSECTION, kPlace);
  }
  const BITMAPINFOHEADER header = GetDIBHeader();
  const std::size_t pixelBytes = ImageBytes(header.biBitCount, header.biWidth, header.biHeight);
  GlobalBlock block(GlobalAlloc(GHND, kPackedPixelOffset + pixelBytes));
  auto* bytes = static_cast<std::byte*>(GlobalLock(block.get()));
  if (bytes == nullptr) orvalix::ThrowError(ERR3D_MEM_ALLOC, ERR3DCLASS_DIBSECTION, kPlace);
  auto colors = orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_DIBSECTION, kPlace,
                                              [] { return std::vector<RGBQUAD>(kColors); });
  CopyColors(colors.data());

  std::memcpy(bytes, &header, sizeof(header));
  std::memcpy(bytes + sizeof(header), colors.data(), colors.size() * sizeof(RGBQUAD));
  // kept: the pixels stand behind 256 colours even where the header tells of none, as in bitmap
  // files. Whoever unpacks the block counts on it.
  std::memcpy(bytes + kPackedPixelOffset, m_bits, pixelBytes);
  GlobalUnlock(block.get());
  return block.release();
}

HBITMAP CDIBSection::GetBitmapHandle() const {
  return static_cast<HBITMAP>(m_bitmap.GetSafeHandle());
}

HPALETTE CDIBSection::GetPaletteHandle() const {
  return static_cast<HPALETTE>(m_palette.GetSafeHandle());
}

CDC* CDIBSection::GetTargetDC() const { return m_targetDC; }

const RGBQUAD* CDIBSection::GetColorTable() const { return m_colorTable.data(); }
