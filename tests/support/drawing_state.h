/// @file
/// The state that one drawing leaves to the next.
#pragma once

#include <array>
#include <utility>
#include <vector>

#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/open_gl.h"

namespace orvalix::test {

/// What a drawing leaves behind for whoever draws next.
inline std::vector<double> StateOf(const COpenGL& gl) {
  const RGBDType line = gl.GetLineColor3D();
  const point3Dtype normal = gl.GetLineNormal();
  std::vector<double> state{double(gl.GetColorMode()),
                            double(gl.GetLineStyle()),
                            double(gl.GetLineStyleFactor()),
                            gl.GetLineWidth3D(),
                            double(gl.GetPolygonOutlineMode()),
                            line.red,
                            line.green,
                            line.blue,
                            normal.x,
                            normal.y,
                            normal.z};
  for (const int name :
       {GL_LINE_WIDTH, GL_LIGHTING, GL_TEXTURE_1D, GL_CLIP_PLANE0, GL_LINE_STIPPLE_PATTERN,
        GL_SHADE_MODEL, GL_CULL_FACE, GL_POLYGON_OFFSET_FILL, GL_LINE_STIPPLE, GL_MATRIX_MODE,
        GL_MODELVIEW_STACK_DEPTH, GL_VERTEX_ARRAY, GL_COLOR_ARRAY, GL_ARRAY_BUFFER_BINDING,
        GL_POLYGON_OFFSET_FACTOR, GL_POLYGON_OFFSET_UNITS}) {
    double value = 0.0;
    glGetDoublev(static_cast<GLenum>(name), &value);
    state.push_back(value);
  }
  for (const auto& [name, count] : {std::pair{GL_CURRENT_COLOR, 4}, {GL_MODELVIEW_MATRIX, 16}}) {
    std::array<double, 16> values{};
    glGetDoublev(static_cast<GLenum>(name), values.data());
    state.insert(state.end(), values.begin(), values.begin() + count);
  }
  return state;
}

}  // namespace orvalix::test
