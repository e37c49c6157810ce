#pragma once

#include <string>

class CChartView3D;

namespace orvalix {

/// Open, high, low and close of a market index, day by day.
void BuildVolatilityScene(CChartView3D& view, const std::string& dataFolder);

}  // namespace orvalix
