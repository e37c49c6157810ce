/// @file
/// The constants by which objects recognise each other. An object carries its tag from its defaults
/// on; an operation that is handed another object refuses one without the right tag.
#pragma once

namespace orvalix {

inline constexpr int kChartTag = 505;
inline constexpr int kChartObjTag = 606;
inline constexpr int kChartViewTag = 707;
inline constexpr int kFontTag = 1111;
inline constexpr int kTransformTag = 1616;
inline constexpr int kOpenGLTag = 1717;

/// True when `object` exists and carries `tag`.
template <class T>
bool IsTagged(const T* object, int tag) {
  return object != nullptr && object->GetClassTag() == tag;
}

}  // namespace orvalix
