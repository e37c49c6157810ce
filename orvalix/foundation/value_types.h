/// @file
/// The plain values that cross every interface of the library. None has a constructor: a fresh one
/// is undefined until it is filled.
#pragma once

/// A point in world, working or normalised coordinates, with a value that it carries.
struct point3Dtype {
  double x;  ///< along the x axis
  double y;  ///< along the y axis
  double z;  ///< along the z axis
  double v;  ///< carried with the point, for example to colour a surface by; interpolated with it
};

/// A colour; each component nominally 0 to 1.
struct RGBDType {
  double red;    ///< share of red
  double green;  ///< share of green
  double blue;   ///< share of blue
  double alpha;  ///< opacity
};

/// The same colour as OpenGL's float arrays take it.
struct RGBFType {
  float red;    ///< share of red
  float green;  ///< share of green
  float blue;   ///< share of blue
  float alpha;  ///< opacity
};

/// The same colour as bytes, 0 to 255.
struct RGBBType {
  unsigned char red;    ///< share of red
  unsigned char green;  ///< share of green
  unsigned char blue;   ///< share of blue
  unsigned char alpha;  ///< opacity
};

/// A viewport in device pixels, from the lower left corner.
struct GLViewportType {
  int x;       ///< of the left edge
  int y;       ///< of the lower edge
  int width;   ///< to the right
  int height;  ///< upwards
};

/// A viewport in fractions of the view, from the lower left corner.
struct GLViewRType {
  double x;       ///< of the left edge
  double y;       ///< of the lower edge
  double width;   ///< to the right
  double height;  ///< upwards
};

/// A rectangle in fractions of a printed page, from the upper left corner.
struct REALRECT {
  double x;       ///< of the left edge
  double y;       ///< of the upper edge
  double width;   ///< to the right
  double height;  ///< downwards
};
