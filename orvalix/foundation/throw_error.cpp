#include "orvalix/foundation/throw_error_internal.h"

namespace orvalix {
namespace {

CString NameOf(const char* place) noexcept {
  try {
    return place;
  } catch (const std::bad_alloc&) {
    return {};
  }
}

}  // namespace

void ThrowError(CErr3DTypes type, CErr3DClass errorClass, const char* place) {
  throw CErr3D(type, errorClass, NameOf(place));
}

}  // namespace orvalix
