#include <array>

#include "orvalix/chart/border_internal.h"
#include "orvalix/foundation/points.h"
#include "orvalix/render/open_gl.h"

namespace orvalix {

void DrawBorder(COpenGL& openGL, double thickness, int width, int height, RGBDType const& color) {
  // Kept: these two place the frame just inside the view volume; pictures depend on both.
  constexpr double kEdge = 0.999;
  constexpr double kDepth = 0.998;
  const double x = kEdge - 2.0 / (static_cast<double>(width) - thickness);
  const double y = kEdge - 2.0 / (static_cast<double>(height) - thickness);
  std::array<point3Dtype, 5> frame;
  AssignPoint3D(frame[0], -x, y, kDepth);
  AssignPoint3D(frame[1], x, y, kDepth);
  AssignPoint3D(frame[2], x, -y, kDepth);
  AssignPoint3D(frame[3], -x, -y, kDepth);
  frame[4] = frame[0];
  openGL.SetLineWidth3D(thickness);
  openGL.SetFillStyle3D(color, color, color);
  openGL.Frame3D(frame.data(), static_cast<int>(frame.size()));
}

}  // namespace orvalix
