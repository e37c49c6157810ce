/// @file
/// Areas that lie a little deeper than their points say.
#pragma once

#include "orvalix/render/gl_api_internal.h"

namespace orvalix {

/// Areas drawn while this lives give way, by the depth that they cover in a pixel, to what has the
/// same depth.
class PushedBack {
 public:
  /// @param isOutlined to the lines on their edges
  /// @param isBehind to other areas too, outlined or not
  PushedBack(bool isOutlined, bool isBehind)
      : m_isOn(isOutlined || isBehind), m_isBehind(isBehind) {
    if (m_isOn) glEnable(GL_POLYGON_OFFSET_FILL);
    if (m_isBehind) SetSteps(isOutlined ? 2.0F : 1.0F);
  }
  ~PushedBack() {
    if (m_isBehind) SetForOutlines();
    if (m_isOn) glDisable(GL_POLYGON_OFFSET_FILL);
  }
  PushedBack(const PushedBack&) = delete;
  PushedBack& operator=(const PushedBack&) = delete;

  /// How far back outlined areas lie.
  static void SetForOutlines() { SetSteps(1.0F); }

 private:
  static void SetSteps(float steps) {
    // Of areas that have the same depth everywhere, by a few of the numbers in which OpenGL
    // computes depths: these are coarser than those of a depth buffer of 32 bits.
    constexpr float kResolvable = 1024.0F;
    glPolygonOffset(steps, steps * kResolvable);
  }

  bool m_isOn;
  bool m_isBehind;
};

}  // namespace orvalix
