#pragma once

#include <string>

class CChartView3D;

namespace orvalix {

/// A bar for each year and branch, and slabs where each branch stood in its first year.
void BuildEmploymentScene(CChartView3D& view, const std::string& dataFolder);
/// Ten years of three branches as a path in space, with its shadows on the walls.
void BuildEmploymentPathScene(CChartView3D& view, const std::string& dataFolder);

}  // namespace orvalix
