#include "orvalix/foundation/throw_error_internal.h"

namespace orvalix {

void ThrowError(CErr3DTypes type, CErr3DClass errorClass, const char* place) {
  throw CErr3D(type, errorClass, place);
}

}  // namespace orvalix
