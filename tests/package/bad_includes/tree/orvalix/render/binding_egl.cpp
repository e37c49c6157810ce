// Right as it is: a binding file may ask for the platform, and a source file include OpenGL.
#include <GL/gl.h>

#include "orvalix/render/gl_binding_internal.h"
#ifdef __linux__
#endif
