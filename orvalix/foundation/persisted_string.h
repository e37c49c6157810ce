/// @file
/// Texts in files: a 32-bit length, least significant byte first, and as many bytes; no terminator.
#pragma once

#include "orvalix/host/host.h"

/// Writes a text to an open file. Null does nothing.
/// @throws CErr3D of no class, "WriteCString": type 7 when the file can't be written, type 2 when
///   memory runs out
ORVALIX_API void WriteCString(void* file, CString const& s);
/// Reads a text from an open file; it ends at its first zero byte. Null does nothing, and a file
/// that ends within the length leaves `s` as it was.
/// @throws CErr3D of no class, "ReadCString": type 7 when the file can't be read, or when the
/// length
///   is negative or more than the file still holds; type 2 when memory runs out
ORVALIX_API void ReadCString(void* file, CString& s);
