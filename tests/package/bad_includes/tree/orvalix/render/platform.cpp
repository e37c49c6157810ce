#include "orvalix/chart/chart_3d.h"

#if defined(_WIN32)
#endif
