/// @file
/// What ORVALIX asks of a program as a whole: message boxes and the clipboard.
#pragma once

#include "orvalix/qt/export.h"

/// Lets failure notices (AfxMessageBox()) appear as message boxes of Qt, and pictures
/// (CChartView3D::CopyToClipboard()) go to the clipboard of Qt. A handler that the program has set
/// itself stays. Every CQtWnd, and so every ChartWidget, calls this when it is made; only the first
/// call in a program does something, so that handlers set afterwards stay as well.
///
/// A notice waits for its button, and there is one box at a time: what is reported while one is
/// open, on another thread, or without a QApplication is written to the standard error stream.
ORVALIX_QT_API void ConnectQtHost();
