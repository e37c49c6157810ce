/// @file
/// Vectors of three numbers, as plain arrays, and 3 by 3 matrices of them. The functions read and
/// write exactly the elements that they need; input and output may be the same array. Passing null
/// is not allowed.
#pragma once

#include "orvalix/host/export.h"

/// Registers the function that is told of errors in vector and matrix stack operations, which
/// return a usable result nevertheless; null takes it away again. Without one, such an error ends
/// the program with exit status 1: programs that draw shapes should register one.
ORVALIX_API void seterrorfunc(void (*function)(const char* message));

/// out = a + b.
ORVALIX_API void add3(const double* a, const double* b, double* out);
/// out = a - b.
ORVALIX_API void diff3(const double* a, const double* b, double* out);
/// to = from.
ORVALIX_API void copy3(const double* from, double* to);
/// out = s * v.
ORVALIX_API void scalarmult(double s, const double* v, double* out);
/// The scalar product.
ORVALIX_API double dot3(const double* a, const double* b);
/// out = a x b.
ORVALIX_API void crossprod(const double* a, const double* b, double* out);
/// The length of a vector.
ORVALIX_API double length3(const double* v);
/// The distance between two points.
ORVALIX_API double dist3(const double* a, const double* b);
/// Gives a vector the length 1. One of length 0 is reported ("normalize: zero length vector") and
/// becomes (1, 0, 0).
ORVALIX_API void normalize(double* v);
/// The normal, of length 1, of the triangle a, b, c: it points to where the corners go round
/// anticlockwise. One without area is reported as by normalize() and gives (1, 0, 0).
ORVALIX_API void perpnorm(const double* a, const double* b, const double* c, double* out);
/// 1 when all three numbers are equal, else 0.
ORVALIX_API long samepoint(const double* a, const double* b);

/// Makes a matrix the identity.
ORVALIX_API void identifymat3(double matrix[3][3]);
/// to = from.
ORVALIX_API void copymat3(const double from[3][3], double to[3][3]);
/// out = v times the matrix: element j is the sum of v[i] * matrix[i][j].
ORVALIX_API void xformvec3(const double* v, const double matrix[3][3], double* out);
