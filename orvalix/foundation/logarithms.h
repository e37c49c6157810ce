/// @file
/// Logarithms as logarithmic axes use them.
#pragma once

#include "orvalix/host/export.h"

/// The base-10 logarithm of x; 0 for x <= 0.
/// Kept: x up to 1e-30 gives 1e-30 itself and x above 1e30 gives 1e30 itself, not their logarithms;
/// stored scales depend on it.
ORVALIX_API double log10Ex(double x);
/// 10 raised to x.
ORVALIX_API double Antilog10Ex(double x);
/// Antilog10Ex(log10Ex(x)): x itself between 1e-30 and 1e30, 1 for x <= 0.
ORVALIX_API double AntilogLog10Ex(double x);
