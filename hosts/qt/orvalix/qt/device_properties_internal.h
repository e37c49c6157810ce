/// @file
/// What devices of Qt answer as device contexts.
#pragma once

class QPaintDevice;
class QScreen;

#include <QtCore/QSize>

namespace orvalix {

/// The largest width and the largest height of all screens, in their pixels; empty without any.
QSize LargestScreen();

/// A device's answer to CDC::GetDeviceCaps(): see CQtDC::GetDeviceCaps().
int DeviceProperty(const QPaintDevice& device, int index);

}  // namespace orvalix
