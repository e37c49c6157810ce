#pragma once

#include <string>

class CChartView3D;

namespace orvalix {

/// A week's stronger earthquakes below the map, each with a line up to the surface.
void BuildEarthquakesScene(CChartView3D& view, const std::string& dataFolder);
/// How deep earthquakes are under the south of Alaska: a surface through all of them, with contour
/// lines below.
void BuildEarthquakeDepthScene(CChartView3D& view, const std::string& dataFolder);

}  // namespace orvalix
