#include "orvalix/foundation/record_internal.h"
#include "orvalix/orvalix.h"
