#include "orvalix/foundation/record_internal.h"
#include "orvalix/orvalix.h"
#include "orvalix/qt/device_internal.h"
