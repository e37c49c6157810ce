#include "orvalix/foundation/planes.h"

void swapcoords(int code, double x, double y, double z, double& xOut, double& yOut, double& zOut) {
  switch (code) {
    case 0:
    case 3:
      xOut = x;
      yOut = y;
      zOut = z;
      break;
    case 1:
    case 4:
      xOut = x;
      yOut = z;
      zOut = y;
      break;
    case 2:
    case 5:
      xOut = z;
      yOut = x;
      zOut = y;
      break;
    default:
      break;
  }
}

point3Dtype swapcoords(int code, point3Dtype p) {
  point3Dtype out{p.x, p.y, p.z, 0.0};
  swapcoords(code, p.x, p.y, p.z, out.x, out.y, out.z);
  return out;
}

int GetSwapCoordAxis(int code, int axis) {
  if (code < 0 || code > 5 || axis < 0 || axis > 2) return 0;
  constexpr int kAxes[3][3] = {{0, 1, 2}, {0, 2, 1}, {1, 2, 0}};
  return kAxes[code % 3][axis];
}

int GetNormalAxis(int code) {
  switch (code) {
    case 1:
    case 4:
      return 1;
    case 2:
    case 5:
      return 0;
    default:
      return 2;
  }
}
