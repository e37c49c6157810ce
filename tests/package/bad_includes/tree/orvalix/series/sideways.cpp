#include <orvalix/axes/axis_3d.h>
#include "orvalix/surface/polysurface.h"
