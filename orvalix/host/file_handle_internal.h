/// @file
/// Reading and writing through the handle of an open file, as CFile::m_hFile holds it.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvalix {

/// Writes all of `size` bytes.
/// @throws CFileException*
void WriteToHandle(void* file, const void* data, std::size_t size);

/// Reads up to `size` bytes.
/// @return the bytes read: fewer only at the end of the file
/// @throws CFileException*
std::size_t ReadFromHandle(void* file, void* data, std::size_t size);

/// Bytes from the position to the end; 0 behind the end. The largest value for a file that has no
/// end to tell, such as a device, and for a handle of no file.
std::uint64_t BytesLeft(void* file) noexcept;

/// Bytes in front of the position; 0 for a file that has no positions, and for a handle of no file.
std::uint64_t PositionOf(void* file) noexcept;

/// Moves the position towards the start. Files that have no positions stay where they are.
void MoveBack(void* file, std::size_t bytes) noexcept;

/// The handle of an open file descriptor, never null; CFile::hFileNull for -1.
void* HandleOfDescriptor(int descriptor) noexcept;

/// The file descriptor behind a handle; -1 when there is none.
int DescriptorOfHandle(void* file) noexcept;

}  // namespace orvalix
