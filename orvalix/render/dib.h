/// @file
/// Bitmap files that are shown as pictures.
#pragma once

#include <cstddef>
#include <vector>

#include "orvalix/host/host.h"

/// Reads a bitmap file and turns it into a texture.
///
/// Read are bitmaps of 1, 4, 8, 16, 24 and 32 bits per pixel, with the bottom or the top row first,
/// behind information headers of 12, 40, 52, 56, 64, 108 and 124 bytes: uncompressed ones, with 16
/// and 32 bits also those whose components are told by masks, with 4 and 8 bits also those in runs.
///
/// The colour table has as many entries as the header says; else 2 to the power of the bits per
/// pixel for 8 bits or fewer, and above that as many as fit in front of the place where the file
/// header says that the pixels are. The pixels follow it.
///
/// An object is empty when there is nothing to show: its pointers are null and its sizes 0.
class ORVALIX_API CDib {
 public:
  /// Loads a file. Null or an empty name opens nothing and makes an empty object.
  ///
  /// A file that doesn't start with the letters B and M, or has fewer than 14 bytes, shows the
  /// message "Not a bitmap file" (AfxMessageBox()) and makes an empty object; one that does, but is
  /// cut short, contradicts itself or has an unknown format, does the same with "Damaged or unknown
  /// bitmap file". Pixels in runs may end early; those missing have index 0.
  ///
  /// Memory is taken for the file (2 GiB at most), and for the decoded pixels, if they are: twice
  /// their bytes in the file, or 128 times the bytes of runs, which is what runs can fill. Larger
  /// bitmaps are damaged ones.
  /// @throws CErr3D class 8, "LoadBitmapFile": type 5 when the file can't be opened, type 1 when
  ///   memory runs out, type 7 when reading fails
  explicit CDib(char const* fileName);
  ~CDib();
  CDib(const CDib&) = delete;
  CDib& operator=(const CDib&) = delete;

  /// Makes the object empty.
  void InitDefaults();

  /// Makes a palette of the first 256 colours of the colour table, in place of one made before.
  /// @return the palette, which belongs to this object; null without a colour table
  /// @throws CErr3D type 2, class 8, "CreateDibPalette"
  CPalette* CreateDibPalette();
  /// The palette made last; null when there is none.
  CPalette* GetDibPalette();

  /// @name The bitmap
  /// The bitmap stands in one block of memory as StretchDIBits() takes it: what the file holds
  /// behind its file header. Pixels in runs, pixels told by masks, and everything behind a header
  /// of 12 bytes are decoded: then there is a header of 40 bytes without compression, the colour
  /// table, and pixels of the file's bits per pixel, or of 24 bits in place of masks, whose alpha
  /// is dropped. The rows keep their order. biSizeImage holds GetDibSizeImage() and biClrUsed
  /// GetDibNumColors(), whatever the file says.
  ///
  /// The pointers are null in an empty object. Whoever writes through them must leave the format as
  /// it is.
  /// @{

  /// The information header with its colour table.
  BITMAPINFO* GetDibInfoPtr();
  /// The information header.
  BITMAPINFOHEADER* GetDibInfoHeaderPtr();
  /// The colour table, GetDibNumColors() entries; null when it has none.
  RGBQUAD* GetDibRGBTablePtr();
  /// The pixels.
  void* GetDibBitsPtr();
  /// Pixels in a row; 0 in an empty object.
  int GetDibWidth() const;
  /// Number of rows, positive whatever their order; 0 in an empty object.
  int GetDibHeight() const;
  /// Entries of the colour table.
  int GetDibNumColors() const;
  /// Bytes of the pixels: rows of whole groups of four bytes.
  DWORD GetDibSizeImage() const;
  /// @}

  /// Stretches a part of the bitmap over a rectangle of a device with StretchDIBits(). The palette
  /// is selected into the device context and realised meanwhile.
  /// @param destination pixels of the device
  /// @param source pixels of the bitmap: `top` counts from the lowest row when that stands first in
  ///   memory, else from the highest
  /// @param palette may be null
  /// @return rows of the bitmap; 0 on failure, for an empty object and without both rectangles
  int PaintDIB(HDC dc, const RECT* destination, const RECT* source, CPalette* palette);

  /// Stretches the whole bitmap over a texture whose sides are its own, rounded up to powers of two
  /// from 2 to 8192, and takes that in place of the texture before.
  ///
  /// A texture takes at most 16 MiB, or 64 times the bytes of the file where that is more: beyond
  /// that its longer side is halved until it fits. Only files that hold large areas in few bytes
  /// come near. As much again is needed while the texture is made.
  /// @param palette may be null
  /// @return the texture, which belongs to this object: red, green, blue and 255 for each pixel,
  ///   the lowest row first, without gaps; null for an empty object
  /// @throws CErr3D type 2, class 8, "TranslateDIBToOGL"; the texture before stays
  unsigned char* TranslateDIBToOGL(CPalette* palette);
  /// Pixels in a row of the texture; 0 while there is none.
  int GetTextureWidth() const;
  /// Rows of the texture; 0 while there is none.
  int GetTextureHeight() const;
  /// Addition: 909 in a live object.
  int GetClassTag() const;

 protected:
  /// Loads a file in place of what the object holds: see the constructor.
  void LoadBitmapFile(char const* fileName);
  /// The smallest power of two that isn't below `size`, 2 at least and 8192 at most.
  static int RoundSizeUp(int size);

 private:
  bool IsEmpty() const;
  /// Reads the open file. @return what to tell the user; null when all is well
  const char* ReadBitmap(CFile& file);
  const BITMAPINFOHEADER* Header() const;
  std::vector<unsigned char> RenderTexture(int width, int height, CPalette* palette);

  std::vector<unsigned char> m_dib;  ///< information header, colour table, pixels
  std::size_t m_colorsAt;            ///< where the colour table starts in m_dib
  std::size_t m_numColors;           ///< entries of the colour table
  std::size_t m_bitsAt;              ///< where the pixels start in m_dib
  std::size_t m_fileBytes;           ///< of the file, by which the texture is bounded
  CPalette m_palette;                ///< made from the colour table
  std::vector<unsigned char> m_texture;
  int m_textureWidth;
  int m_textureHeight;
  int m_classTag;  ///< 909 marks a live object
};
