#include "orvalix/qt/device_internal.h"
#include "orvalix/qt/window.h"
