#pragma once

#include <string>

class CChartView3D;

namespace orvalix {

void BuildTemperatureScene(CChartView3D& view, const std::string& dataFolder);

}  // namespace orvalix
