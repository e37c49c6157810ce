/// @file
/// The colours of the examples. People with colour blindness can tell them apart: those of series
/// are Okabe and Ito's, the ramps grow evenly lighter or part from a pale middle.
#pragma once

#include "orvalix/foundation/value_types.h"

namespace examples {

// Of series.
inline constexpr RGBDType kBlue{0.00, 0.45, 0.70, 1.0};
inline constexpr RGBDType kOrange{0.90, 0.62, 0.00, 1.0};
inline constexpr RGBDType kGreen{0.00, 0.62, 0.45, 1.0};
inline constexpr RGBDType kVermilion{0.84, 0.37, 0.00, 1.0};
inline constexpr RGBDType kSky{0.34, 0.71, 0.91, 1.0};
inline constexpr RGBDType kPurple{0.80, 0.47, 0.65, 1.0};
inline constexpr RGBDType kYellow{0.94, 0.89, 0.26, 1.0};
inline constexpr RGBDType kGrey{0.45, 0.48, 0.53, 1.0};

// Of what stands around the data.
inline constexpr RGBDType kInk{0.13, 0.14, 0.17, 1.0};   ///< texts, outlines
inline constexpr RGBDType kLine{0.74, 0.77, 0.82, 1.0};  ///< grids
inline constexpr RGBDType kEdge{0.55, 0.58, 0.63, 1.0};  ///< edges of walls
inline constexpr RGBDType kWall{0.95, 0.96, 0.98, 1.0};  ///< walls behind the data
inline constexpr RGBDType kWhite{1.0, 1.0, 1.0, 1.0};

/// From dark violet over green to yellow; `share` runs from 0 to 1.
RGBDType Viridis(double share);
/// From blue over a pale middle to red.
RGBDType BlueToRed(double share);
/// From the green of valleys over brown to pale summits.
RGBDType Heights(double share);

}  // namespace examples
