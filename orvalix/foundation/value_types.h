/// @file
/// The plain values that cross every interface of the library. None has a constructor: a fresh one
/// is undefined until it is filled.
#pragma once

/// A point in world, working or normalised coordinates, with a value that it carries.
struct point3Dtype {
  double x;
  double y;
  double z;
  double v;  ///< carried with the point, for example to colour a surface by; interpolated with it
};

/// A colour; each component nominally 0 to 1.
struct RGBDType {
  double red;
  double green;
  double blue;
  double alpha;
};

/// The same colour as OpenGL's float arrays take it.
struct RGBFType {
  float red;
  float green;
  float blue;
  float alpha;
};

/// The same colour as bytes, 0 to 255.
struct RGBBType {
  unsigned char red;
  unsigned char green;
  unsigned char blue;
  unsigned char alpha;
};

/// A viewport in device pixels, from the lower left corner.
struct GLViewportType {
  int x;
  int y;
  int width;
  int height;
};

/// A viewport in fractions of the view, from the lower left corner.
struct GLViewRType {
  double x;
  double y;
  double width;
  double height;
};

/// A rectangle in fractions of a printed page, from the upper left corner.
struct REALRECT {
  double x;
  double y;
  double width;
  double height;
};
