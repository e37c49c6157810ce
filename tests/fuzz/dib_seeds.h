/// @file
/// Bitmap files to begin with when looking for bytes that do harm.
#pragma once

#include <vector>

#include "support/bitmap_files.h"

namespace orvalix::test {

/// Small bitmap files of every format.
std::vector<Bytes> DibSeeds();

}  // namespace orvalix::test
