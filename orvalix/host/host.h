/// @file
/// What a host application brings: string, file, window, device context, bitmap, palette and
/// message box. With the framework at hand these are its own classes; elsewhere this folder
/// supplies classes of the same names with the same members.
#pragma once

#if defined(_WIN32)
#include <afxext.h>
#include <afxwin.h>
#else
#include "orvalix/host/bitmap.h"
#include "orvalix/host/clipboard.h"
#include "orvalix/host/dc.h"
#include "orvalix/host/file.h"
#include "orvalix/host/gdi.h"
#include "orvalix/host/gdi_object.h"
#include "orvalix/host/global_memory.h"
#include "orvalix/host/host_string.h"
#include "orvalix/host/host_types.h"
#include "orvalix/host/message_box.h"
#include "orvalix/host/palette.h"
#include "orvalix/host/print_info.h"
#include "orvalix/host/wnd.h"
#endif
