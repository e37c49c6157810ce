#include <QtWidgets/QWidget>
#include "orvalix/host/blit_internal.h"
#include "orvalix/orvalix.h"
#include "orvalix/qt/device_internal.h"
