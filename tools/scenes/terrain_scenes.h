#pragma once

#include <string>

class CChartView3D;

namespace orvalix {

/// Heights as a lit surface.
void BuildTerrainScene(CChartView3D& view, const std::string& dataFolder);
/// Every eighth line of the grid as a wire frame.
void BuildTerrainWireScene(CChartView3D& view, const std::string& dataFolder);
/// The surface laid flat in bands of colour, with contour lines on it.
void BuildTerrainMapScene(CChartView3D& view, const std::string& dataFolder);

}  // namespace orvalix
