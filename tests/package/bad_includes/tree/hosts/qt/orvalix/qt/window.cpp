#include "orvalix/qt/window.h"
#include "orvalix/qt/device_internal.h"
