/// @file
/// The public part of the foundation: values, free functions, errors.
#pragma once

#include "orvalix/foundation/colors.h"
#include "orvalix/foundation/err_3d.h"
#include "orvalix/foundation/extremes.h"
#include "orvalix/foundation/logarithms.h"
#include "orvalix/foundation/matrix_stack.h"
#include "orvalix/foundation/persisted_string.h"
#include "orvalix/foundation/planes.h"
#include "orvalix/foundation/points.h"
#include "orvalix/foundation/record_trace.h"
#include "orvalix/foundation/value_types.h"
#include "orvalix/foundation/vectors.h"
