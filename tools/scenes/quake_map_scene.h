#pragma once

#include <string>

class CChartView3D;

namespace orvalix {

/// A week's stronger earthquakes as spheres before a map that hangs on the back wall; the strongest
/// ones as outlined solids.
void BuildQuakeMapScene(CChartView3D& view, const std::string& dataFolder);

}  // namespace orvalix
