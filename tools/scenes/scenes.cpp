#include "scenes/scenes.h"

#include <array>

#include "scenes/anomaly_scene.h"
#include "scenes/earthquakes_scenes.h"
#include "scenes/electricity_groups_scene.h"
#include "scenes/electricity_scene.h"
#include "scenes/employment_scenes.h"
#include "scenes/penguins_scene.h"
#include "scenes/precipitation_scene.h"
#include "scenes/quake_map_scene.h"
#include "scenes/temperature_scene.h"
#include "scenes/terrain_scenes.h"
#include "scenes/volatility_scene.h"
#include "scenes/weather_scene.h"

namespace orvalix {

std::span<const Scene> Scenes() {
  static constexpr std::array kScenes{
      Scene{"temperature",
            "Global land-ocean temperature anomaly, 1880 to 2023: a bar a year, coloured by value",
            1280, 720, BuildTemperatureScene},
      Scene{"electricity",
            "Net generation in Iowa by source, 2001 to 2017: one row of bars a source", 1280, 720,
            BuildElectricityScene},
      Scene{"electricity_groups",
            "The same as group bars side by side and stacked, as ribbons and as areas", 1280, 720,
            BuildElectricityGroupsScene},
      Scene{"anomaly",
            "Temperature anomaly as an area about zero, a ribbon of ten-year means, a line", 1280,
            720, BuildAnomalyScene},
      Scene{"weather",
            "Temperatures in Seattle, 2015: daily range as an area, months as floating bars", 1280,
            720, BuildWeatherScene},
      Scene{"volatility", "Volatility index, summer 2009: open, high, low and close of each day",
            1280, 720, BuildVolatilityScene},
      Scene{"penguins",
            "Three species of penguins: body mass as boxes, beaks and flippers as points", 1280,
            720, BuildPenguinsScene},
      Scene{"employment", "People at work by branch and year: bars, and slabs at the level of 2006",
            1280, 720, BuildEmploymentScene},
      Scene{"employment_path", "Three branches through the crisis: a path with its shadows", 1280,
            720, BuildEmploymentPathScene},
      Scene{"earthquakes", "A week of earthquakes: symbols by magnitude, lines up to the surface",
            1280, 720, BuildEarthquakesScene},
      Scene{"earthquake_depth",
            "Earthquakes under Alaska: a surface through scattered points, contours", 1280, 720,
            BuildEarthquakeDepthScene},
      Scene{"quake_map",
            "A week of earthquakes before a map: spheres by magnitude, the strongest as solids",
            900, 900, BuildQuakeMapScene},
      Scene{"terrain", "Heights around the Jacksboro fault: 277 000 lit triangles", 1280, 720,
            BuildTerrainScene},
      Scene{"terrain_wire", "Every eighth line of the same grid as a wire frame", 1280, 720,
            BuildTerrainWireScene},
      Scene{"terrain_map", "The same heights laid flat, with contour lines", 1280, 720,
            BuildTerrainMapScene},
      Scene{"precipitation", "Precipitation over the world in 2016, coloured by value", 1280, 720,
            BuildPrecipitationScene},
  };
  return kScenes;
}

}  // namespace orvalix
