#include "scenes/scenes.h"

#include <array>

#include "scenes/electricity_scene.h"
#include "scenes/temperature_scene.h"

namespace orvalix {

std::span<const Scene> Scenes() {
  static constexpr std::array<Scene, 2> kScenes{{
      {"temperature",
       "Global land-ocean temperature anomaly, 1880 to 2023: a bar a year, coloured by value", 1280,
       720, BuildTemperatureScene},
      {"electricity", "Net generation in Iowa by source, 2001 to 2017: one row of bars a source",
       1280, 720, BuildElectricityScene},
  }};
  return kScenes;
}

}  // namespace orvalix
