#pragma once

#include "orvalix/foundation/value_types.h"
