#pragma once

#include <string>

class CChartView3D;

namespace orvalix {

/// The same sources as bars side by side, stacked bars, stacked ribbons and stacked areas.
void BuildElectricityGroupsScene(CChartView3D& view, const std::string& dataFolder);

}  // namespace orvalix
