#pragma once

#include <string>

class CChartView3D;

namespace orvalix {

/// Weights of three species as boxes with whiskers, and their beaks and flippers as points.
void BuildPenguinsScene(CChartView3D& view, const std::string& dataFolder);

}  // namespace orvalix
