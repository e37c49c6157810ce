/// @file
/// Writing pictures as PNG files.
#pragma once

#include "orvalix/foundation/err_3d.h"
#include "orvalix/host/host.h"

class CDIBSection;

namespace orvalix {

/// Writes a bitmap as a PNG file of 24-bit colour, row by row: beside the bitmap there is never
/// more than a few of its rows in memory. A file that can't be finished is left as far as it came.
/// @param dib has a bitmap of 8, 24 or 32 bits per pixel
/// @throws CErr3D of class `errorClass`, `place`: type 6 when the file can't be made, type 7 when a
///   write fails, type 2 when memory runs out
void WritePngFile(CDIBSection& dib, const CString& fileName, CErr3DClass errorClass,
                  const char* place);

}  // namespace orvalix
