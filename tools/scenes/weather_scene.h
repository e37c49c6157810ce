#pragma once

#include <string>

class CChartView3D;

namespace orvalix {

/// A year's temperatures: the daily range as an area, the range of each month as floating bars.
void BuildWeatherScene(CChartView3D& view, const std::string& dataFolder);

}  // namespace orvalix
