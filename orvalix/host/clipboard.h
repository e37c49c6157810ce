/// @file
/// The clipboard as the framework's platform has it: one picture, passed on by its handle.
#pragma once

#include "orvalix/host/export.h"
#include "orvalix/host/host_types.h"

inline constexpr UINT CF_BITMAP = 2;  ///< clipboard format: a bitmap

/// Opens the clipboard for the calling thread.
/// @param owner not consulted
/// @return FALSE while it is open
ORVALIX_API BOOL OpenClipboard(HWND owner);

/// Deletes what the open clipboard holds.
/// @return FALSE when this thread hasn't opened it
ORVALIX_API BOOL EmptyClipboard();

/// Puts a bitmap on the open clipboard, in place of the one before. From then on it belongs to the
/// clipboard: whoever owned it detaches it.
/// @param format CF_BITMAP
/// @return `data`; null, with nothing changed, for other formats, for what is no bitmap or is
///   selected into a device context, and when this thread hasn't opened the clipboard
ORVALIX_API HANDLE SetClipboardData(UINT format, HANDLE data);

/// What the open clipboard holds; it still belongs to the clipboard.
/// @param format CF_BITMAP
/// @return null for other formats, when there is nothing, when the handler has taken it, and when
///   this thread hasn't opened the clipboard
ORVALIX_API HANDLE GetClipboardData(UINT format);

/// Closes the clipboard. A bitmap that was put there meanwhile is shown to the handler; when that
/// takes it, the clipboard is empty afterwards.
/// @return FALSE when this thread hasn't opened it
ORVALIX_API BOOL CloseClipboard();

/// Passes a picture on to the clipboard that all programs share.
///
/// Called with the top row's first byte (blue, green, red and 255 for each pixel, valid during the
/// call), the size in pixels and the bytes from a row to the one below it; answers whether it has
/// taken the picture.
using ClipboardHandler = BOOL (*)(const void* bgra, int width, int height, int strideBytes);

/// Addition: sets who passes pictures on; null for nobody: pictures then stay within the program.
/// @return the handler before
ORVALIX_API ClipboardHandler SetClipboardHandler(ClipboardHandler handler);
