#pragma once

#include <string>

class CChartView3D;

namespace orvalix {

/// The temperature anomaly as an area about zero, its mean of ten years as a ribbon, and both
/// lines.
void BuildAnomalyScene(CChartView3D& view, const std::string& dataFolder);

}  // namespace orvalix
