/// @file
/// The constants by which objects recognise each other. An object carries its tag from its defaults
/// on; an operation that is handed another object refuses one without the right tag.
#pragma once

#include "orvalix/foundation/throw_error_internal.h"

namespace orvalix {

inline constexpr int kAuxObjTag = 101;
inline constexpr int kAxesTag = 202;
inline constexpr int kAxisTag = 303;
inline constexpr int kAxisLabelsTag = 404;
inline constexpr int kChartTag = 505;
inline constexpr int kChartObjTag = 606;
inline constexpr int kChartViewTag = 707;
inline constexpr int kDibTag = 909;
inline constexpr int kDIBObjTag = 1010;
inline constexpr int kFontTag = 1111;
inline constexpr int kHeaderTag = 1212;
inline constexpr int kPolysurfaceTag = 1414;
inline constexpr int kLegendTag = 1313;  ///< of legends and of their entries
inline constexpr int kTextObjTag = 1515;
inline constexpr int kTransformTag = 1616;
inline constexpr int kOpenGLTag = 1717;

/// True when `object` exists and carries `tag`.
template <class T>
bool IsTagged(const T* object, int tag) {
  return object != nullptr && object->GetClassTag() == tag;
}

/// Refuses anything but a live object with `tag`.
/// @throws CErr3D with that type, class and place
template <class T>
void RequireTag(const T* object, int tag, CErr3DTypes type, CErr3DClass errorClass,
                const char* place) {
  if (!IsTagged(object, tag)) ThrowError(type, errorClass, place);
}

}  // namespace orvalix
