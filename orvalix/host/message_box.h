/// @file
/// Failure notices to the user.
#pragma once

#include "orvalix/host/export.h"
#include "orvalix/host/host_types.h"

/// Shows a text and waits until it was seen; the answer is the value to return from
/// AfxMessageBox().
using MessageBoxHandler = int (*)(const char* text);

/// Shows a text through the handler; without one writes it and a line end to the standard error
/// stream. A null text is an empty one.
/// @param type, help not consulted
/// @return the handler's answer; IDOK without a handler
ORVALIX_API int AfxMessageBox(const char* text, UINT type = MB_OK, UINT help = 0);

/// Addition: sets who shows texts; null for nobody.
/// @return the handler before
ORVALIX_API MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler);
