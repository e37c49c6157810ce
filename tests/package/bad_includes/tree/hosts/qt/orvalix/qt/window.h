#include <QtWidgets/QWidget>
#include "orvalix/orvalix.h"
#include "orvalix/qt/device_internal.h"
#include "orvalix/host/blit_internal.h"
