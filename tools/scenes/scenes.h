/// @file
/// The pictures that the gallery shows and the tests check: each one fills a view with charts of
/// real data.
#pragma once

#include <span>
#include <string>

class CChartView3D;

namespace orvalix {

struct Scene {
  const char* name;   ///< of its picture file
  const char* title;  ///< one line about what it shows
  int width;          ///< pixels in the gallery
  int height;
  /// Puts the charts into an empty view.
  /// @param dataFolder where the files of data stand
  void (*build)(CChartView3D& view, const std::string& dataFolder);
};

std::span<const Scene> Scenes();

}  // namespace orvalix
