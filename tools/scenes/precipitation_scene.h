#pragma once

#include <string>

class CChartView3D;

namespace orvalix {

/// A year's rain over the world as a surface coloured by value.
void BuildPrecipitationScene(CChartView3D& view, const std::string& dataFolder);

}  // namespace orvalix
