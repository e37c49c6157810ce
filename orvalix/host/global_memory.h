/// @file
/// The framework's blocks of memory that are known by a handle: what a program hands to another
/// part of the system, such as a picture for the clipboard. Each function accepts any handle: one
/// that is null, freed or of another kind makes the call fail.
#pragma once

#include "orvalix/host/export.h"
#include "orvalix/host/host_types.h"

/// Makes a block, which belongs to the caller until GlobalFree().
/// @param flags GMEM_MOVEABLE, and GMEM_ZEROINIT to have it filled with zero bytes; bits beyond
///   these change nothing
/// @param bytes 0 makes a block that has no memory to lock
/// @return null without GMEM_MOVEABLE, or when memory runs out
ORVALIX_API HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes);

/// Locks a block, once more with each call. Where it lies never changes.
/// @return its first byte; null for a block of 0 bytes and on failure
ORVALIX_API void* GlobalLock(HGLOBAL block);

/// Takes back one GlobalLock().
/// @return TRUE while further locks remain; FALSE when that was the last one, when there was none,
///   and on failure
ORVALIX_API BOOL GlobalUnlock(HGLOBAL block);

/// The bytes that a block was made with; 0 on failure.
ORVALIX_API SIZE_T GlobalSize(HGLOBAL block);

/// Frees a block, locked or not.
/// @return null; on failure the handle
ORVALIX_API HGLOBAL GlobalFree(HGLOBAL block);
