#pragma once

#include <GL/gl.h>
#include <ft2build.h>
#include <QWidget>

#include "orvalix/foundation/record_internal.h"
#include "orvalix/orvalix.h"
