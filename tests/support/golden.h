/// @file
/// Stored results: pictures and transcripts that a test compares with. A result that differs is
/// left behind under the build folder, from where `scripts/compare-images --accept` takes it over
/// after showing the difference; nothing else writes stored results.
#pragma once

#include <string>

#include "support/picture.h"

namespace orvalix::test {

/// How far a picture may be from the stored one. The defaults allow for the rounding of another
/// version of the software rasteriser along edges.
struct PictureLimits {
  double mean = 0.5;             ///< of all components, 0 to 255
  double differingShare = 0.02;  ///< pixels that may differ at all, 0 to 1
  double worstTile = 8.0;        ///< mean of any tile of 32 x 32 pixels: a word shifted has 20
};

/// Fails the test unless the picture is like tests/golden/NAME.png. Actual, expected and difference
/// are then left side by side.
void ExpectGoldenPicture(const Picture& actual, const std::string& name,
                         const PictureLimits& limits = {});

/// Fails the test unless the text is tests/golden/NAME.txt.
void ExpectGoldenTranscript(const std::string& actual, const std::string& name);

}  // namespace orvalix::test
