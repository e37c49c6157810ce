#pragma once

#include <GL/gl.h>
#include <QWidget>
#include <ft2build.h>

#include "orvalix/foundation/record_internal.h"
#include "orvalix/orvalix.h"
