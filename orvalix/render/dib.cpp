#include "orvalix/render/dib.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include "orvalix/foundation/class_tags_internal.h"
#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/render/packed_dib_internal.h"

namespace {

constexpr WORD kBitmapFileType = 0x4D42;  // the letters B and M
constexpr std::size_t kMostPaletteColors = 256;
constexpr WORD kPaletteVersion = 0x300;
constexpr int kSmallestTexture = 2;
constexpr int kLargestTexture = 8192;
/// A texture may always take that much, and that much for each byte of the file.
constexpr std::size_t kTextureBytesAllowed = std::size_t{16} << 20;
constexpr std::size_t kTextureBytesPerFileByte = 64;
constexpr int kTextureBits = 32;
constexpr std::size_t kTexturePixelBytes = 4;
constexpr unsigned char kOpaque = 255;

/// LOGPALETTE with room for all its entries.
struct FullLogPalette {
  WORD version;
  WORD count;
  std::array<PALETTEENTRY, kMostPaletteColors> entries;
};

/// The extent of a side of a rectangle, as far as an int holds it.
int Extent(LONG from, LONG to) {
  const std::int64_t extent = std::int64_t{to} - from;
  return static_cast<int>(std::clamp<std::int64_t>(extent, std::numeric_limits<int>::min(),
                                                   std::numeric_limits<int>::max()));
}

std::size_t TextureBytes(int width, int height) {
  return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kTexturePixelBytes;
}

/// The palette of a device context for as long as this lives.
class SelectedPalette {
 public:
  SelectedPalette(HDC dc, CPalette* palette)
      : m_dc(dc),
        m_before(palette != nullptr ? SelectPalette(dc, static_cast<HPALETTE>(*palette), FALSE)
                                    : nullptr) {
    if (m_before != nullptr) RealizePalette(dc);
  }
  ~SelectedPalette() {
    if (m_before != nullptr) SelectPalette(m_dc, m_before, FALSE);
  }
  SelectedPalette(const SelectedPalette&) = delete;
  SelectedPalette& operator=(const SelectedPalette&) = delete;

 private:
  HDC m_dc;
  HPALETTE m_before;  ///< null when nothing was selected
};

/// Selects a bitmap into a memory device context for as long as this lives.
class SelectedBitmap {
 public:
  SelectedBitmap(HDC dc, HBITMAP bitmap) : m_dc(dc), m_before(SelectObject(dc, bitmap)) {}
  ~SelectedBitmap() {
    if (m_before != nullptr) SelectObject(m_dc, m_before);
  }
  SelectedBitmap(const SelectedBitmap&) = delete;
  SelectedBitmap& operator=(const SelectedBitmap&) = delete;

 private:
  HDC m_dc;
  HGDIOBJ m_before;  ///< null when the bitmap can't be selected
};

}  // namespace

CDib::CDib(char const* fileName) {
  InitDefaults();
  if (fileName != nullptr && *fileName != '\0') LoadBitmapFile(fileName);
}

CDib::~CDib() = default;

void CDib::InitDefaults() {
  m_dib = {};
  m_colorsAt = 0;
  m_numColors = 0;
  m_bitsAt = 0;
  m_fileBytes = 0;
  // Owned by itself, the palette lives on while a device context holds it.
  CPalette palette;
  palette.Attach(m_palette.Detach());
  m_texture = {};
  m_textureWidth = 0;
  m_textureHeight = 0;
  m_classTag = orvalix::kDibTag;
}

void CDib::LoadBitmapFile(char const* fileName) {
  constexpr const char* kPlace = "LoadBitmapFile";
  InitDefaults();
  CFile file;
  if (!file.Open(fileName, CFile::modeRead)) {
    orvalix::ThrowError(ERR3D_FILE_OPEN_INPUT, ERR3DCLASS_DIB, kPlace);
  }
  const char* message = nullptr;
  orvalix::WithFileErrors(ERR3DCLASS_DIB, kPlace, [&] {
    orvalix::WithAllocationErrors(ERR3D_MEM_ALLOC, ERR3DCLASS_DIB, kPlace,
                                  [&] { message = ReadBitmap(file); });
  });
  if (message != nullptr) AfxMessageBox(message);
}

const char* CDib::ReadBitmap(CFile& file) {
  constexpr const char* kNoBitmap = "Not a bitmap file";
  constexpr const char* kDamaged = "Damaged or unknown bitmap file";
  BITMAPFILEHEADER fileHeader{};
  // Asked first: what has no length, such as a terminal, isn't waited for.
  const std::uint64_t length = file.GetLength();
  if (length < sizeof(fileHeader)) return kNoBitmap;
  if (file.Read(&fileHeader, sizeof(fileHeader)) < sizeof(fileHeader)) return kNoBitmap;
  if (fileHeader.bfType != kBitmapFileType) return kNoBitmap;
  if (length > static_cast<std::uint64_t>(orvalix::kMostPixelBytes)) return kDamaged;

  std::vector<unsigned char> rest(static_cast<std::size_t>(length) - sizeof(fileHeader));
  rest.resize(file.Read(rest.data(), static_cast<UINT>(rest.size())));
  auto dib = orvalix::ReadPackedDib(std::move(rest), fileHeader.bfOffBits);
  if (!dib) return kDamaged;
  m_dib = std::move(dib->bytes);
  m_colorsAt = dib->colorsAt;
  m_numColors = dib->numColors;
  m_bitsAt = dib->bitsAt;
  m_fileBytes = static_cast<std::size_t>(length);
  return nullptr;
}

CPalette* CDib::CreateDibPalette() {
  const RGBQUAD* colors = GetDibRGBTablePtr();
  if (colors == nullptr) return nullptr;
  FullLogPalette description{};
  description.version = kPaletteVersion;
  description.count = static_cast<WORD>(std::min(m_numColors, kMostPaletteColors));
  for (std::size_t i = 0; i < description.count; ++i) {
    description.entries[i] = {colors[i].rgbRed, colors[i].rgbGreen, colors[i].rgbBlue, 0};
  }
  CPalette palette;
  if (!palette.CreatePalette(reinterpret_cast<const LOGPALETTE*>(&description))) {
    orvalix::ThrowError(ERR3D_ARRAY_NEW, ERR3DCLASS_DIB, "CreateDibPalette");
  }
  CPalette old;
  old.Attach(m_palette.Detach());
  m_palette.Attach(palette.Detach());
  return &m_palette;
}

CPalette* CDib::GetDibPalette() {
  return m_palette.GetSafeHandle() != nullptr ? &m_palette : nullptr;
}

bool CDib::IsEmpty() const { return m_dib.empty(); }

const BITMAPINFOHEADER* CDib::Header() const {
  return IsEmpty() ? nullptr : reinterpret_cast<const BITMAPINFOHEADER*>(m_dib.data());
}

BITMAPINFO* CDib::GetDibInfoPtr() {
  return IsEmpty() ? nullptr : reinterpret_cast<BITMAPINFO*>(m_dib.data());
}

BITMAPINFOHEADER* CDib::GetDibInfoHeaderPtr() {
  return IsEmpty() ? nullptr : &GetDibInfoPtr()->bmiHeader;
}

RGBQUAD* CDib::GetDibRGBTablePtr() {
  return m_numColors == 0 ? nullptr : reinterpret_cast<RGBQUAD*>(&m_dib[m_colorsAt]);
}

void* CDib::GetDibBitsPtr() { return IsEmpty() ? nullptr : &m_dib[m_bitsAt]; }

int CDib::GetDibWidth() const { return IsEmpty() ? 0 : Header()->biWidth; }

int CDib::GetDibHeight() const { return IsEmpty() ? 0 : std::abs(Header()->biHeight); }

int CDib::GetDibNumColors() const { return static_cast<int>(m_numColors); }

DWORD CDib::GetDibSizeImage() const {
  if (IsEmpty()) return 0;
  return static_cast<DWORD>(orvalix::DibRowBytes(GetDibWidth(), Header()->biBitCount)) *
         static_cast<DWORD>(GetDibHeight());
}

int CDib::PaintDIB(HDC dc, const RECT* destination, const RECT* source, CPalette* palette) {
  if (IsEmpty() || destination == nullptr || source == nullptr) return 0;
  const SelectedPalette selected(dc, palette);
  return StretchDIBits(dc, destination->left, destination->top,
                       Extent(destination->left, destination->right),
                       Extent(destination->top, destination->bottom), source->left, source->top,
                       Extent(source->left, source->right), Extent(source->top, source->bottom),
                       GetDibBitsPtr(), GetDibInfoPtr(), DIB_RGB_COLORS, SRCCOPY);
}

int CDib::RoundSizeUp(int size) {
  int rounded = kSmallestTexture;
  while (rounded < size && rounded < kLargestTexture) rounded *= 2;
  return rounded;
}

unsigned char* CDib::TranslateDIBToOGL(CPalette* palette) {
  if (IsEmpty()) return nullptr;
  int width = RoundSizeUp(GetDibWidth());
  int height = RoundSizeUp(GetDibHeight());
  const std::size_t allowed =
      std::max(kTextureBytesAllowed, m_fileBytes * kTextureBytesPerFileByte);
  while (TextureBytes(width, height) > allowed) (width > height ? width : height) /= 2;
  m_texture = orvalix::WithAllocationErrors(ERR3D_ARRAY_NEW, ERR3DCLASS_DIB, "TranslateDIBToOGL",
                                            [&] { return RenderTexture(width, height, palette); });
  m_textureWidth = width;
  m_textureHeight = height;
  return m_texture.data();
}

std::vector<unsigned char> CDib::RenderTexture(int width, int height, CPalette* palette) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = kTextureBits;
  info.bmiHeader.biCompression = BI_RGB;
  CBitmap section;
  CDC memory;
  void* bits = nullptr;
  const bool isMade = memory.CreateCompatibleDC(nullptr) != FALSE &&
                      section.Attach(CreateDIBSection(memory.GetSafeHdc(), &info, DIB_RGB_COLORS,
                                                      &bits, nullptr, 0)) != FALSE;
  if (!isMade) throw std::bad_alloc();
  const SelectedBitmap selected(memory.GetSafeHdc(), static_cast<HBITMAP>(section.GetSafeHandle()));
  const RECT whole{0, 0, GetDibWidth(), GetDibHeight()};
  const RECT everywhere{0, 0, width, height};
  // Nothing but a lack of memory stands in the way of a bitmap that was read.
  if (PaintDIB(memory.GetSafeHdc(), &everywhere, &whole, palette) == 0) throw std::bad_alloc();
  GdiFlush();

  std::vector<unsigned char> texture(TextureBytes(width, height));
  const auto* from = static_cast<const unsigned char*>(bits);
  for (std::size_t i = 0; i < texture.size(); i += kTexturePixelBytes) {
    texture[i] = from[i + 2];
    texture[i + 1] = from[i + 1];
    texture[i + 2] = from[i];
    texture[i + 3] = kOpaque;
  }
  return texture;
}

int CDib::GetTextureWidth() const { return m_textureWidth; }

int CDib::GetTextureHeight() const { return m_textureHeight; }

int CDib::GetClassTag() const { return m_classTag; }
