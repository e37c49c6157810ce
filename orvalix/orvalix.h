/// @file
/// Everything that ORVALIX offers to programs: all public classes and free functions.
#pragma once

#include "orvalix/axes/axes_3d.h"
#include "orvalix/axes/axis_3d.h"
#include "orvalix/axes/axis_labels_3d.h"
#include "orvalix/chart/chart_3d.h"
#include "orvalix/chart/chart_view_3d.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/chart/legend_3d.h"
#include "orvalix/chart/legend_obj_3d.h"
#include "orvalix/foundation/foundation.h"
#include "orvalix/host/host.h"
#include "orvalix/render/aux_obj_3d.h"
#include "orvalix/render/dib_section.h"
#include "orvalix/render/font_3d.h"
#include "orvalix/render/open_gl.h"
#include "orvalix/render/shapes.h"
#include "orvalix/render/text_obj_3d.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"
#include "orvalix/series/contour_3d.h"
#include "orvalix/surface/polysurface.h"
