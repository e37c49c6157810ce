/// @file
/// Texts in files: a 32-bit length, least significant byte first, and as many bytes; no terminator.
#pragma once

#include "orvalix/host/host.h"

/// Writes a text to an open file. Null does nothing.
/// @throws CFileException* when the file can't be written
/// @throws CErr3D type 2 of no class, "WriteCString", when memory runs out
ORVALIX_API void WriteCString(void* file, CString const& s);
/// Reads a text from an open file; it ends at its first zero byte. Null does nothing, and a file
/// that ends within the length leaves `s` as it was.
/// @throws CFileException* when the file can't be read, when the length is negative or more than
///   the file still holds
/// @throws CErr3D type 2 of no class, "ReadCString", when memory runs out
ORVALIX_API void ReadCString(void* file, CString& s);
