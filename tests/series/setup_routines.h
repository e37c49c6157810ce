/// @file
/// All set-up routines of a series in one table, for what is to be true of each of them.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"
#include "orvalix/series/chart_obj_3d.h"
#include "orvalix/surface/polysurface.h"

namespace orvalix::test {

/// What set-up routines copy. All are null at first.
struct SetUpArrays {
  const double* ind;
  const double* dep;
  const double* dep2;
  const double* group;
  const RGBDType* colors;
  const point3Dtype* points;
  const CString* texts;
  const CPolysurface* surface;
};

struct SetUpRoutine {
  const char* name;
  int type;
  /// The storage routines that it runs, in their order.
  std::vector<std::string> storages;
  /// Sets up n points, or n contours.
  void (*setUp)(CChartObj3D&, const SetUpArrays&, int n);
};

inline constexpr RGBDType kSomeFill{1, 0, 0, 1};
inline constexpr RGBDType kSomeOutline{0, 0, 1, 1};
inline constexpr int kGroups = 2;

inline const std::vector<std::string> kSeriesStorages{"InitIndDataStorage", "InitDepDataStorage"};
inline const std::vector<std::string> kRangeStorages{"InitIndDataStorage", "InitDepDataStorage",
                                                     "InitDepData2Storage"};
inline const std::vector<std::string> kHeightStorages{"InitIndDataStorage", "InitDepDataStorage",
                                                      "InitBarHeightsStorage"};
inline const std::vector<std::string> kGroupStorages{"InitGroupColorsStorage", "InitIndDataStorage",
                                                     "InitGroupDataStorage"};
inline const std::vector<std::string> kPointStorages{"Init3DPointStorage"};

/// Set-up routines of the two-and-a-half-dimensional types. Those with groups of their own choice
/// have two of them.
inline std::vector<SetUpRoutine> SetUpRoutines25D() {
  using Object = CChartObj3D;
  using Arrays = SetUpArrays;
  return {
      {"RibbonChart25D", 1, kSeriesStorages,
       [](Object& o, const Arrays& a, int n) {
         o.RibbonChart25D(a.ind, a.dep, 4, n, 3, kSomeFill, kSomeOutline, 0, 0);
       }},
      {"BarChart25D", 2, kSeriesStorages,
       [](Object& o, const Arrays& a, int n) {
         o.BarChart25D(a.ind, a.dep, 1, 4, n, 2, 3, kSomeFill, kSomeOutline, 0, 0, 0);
       }},
      {"AreaFillChart25D", 4, kSeriesStorages,
       [](Object& o, const Arrays& a, int n) {
         o.AreaFillChart25D(a.ind, a.dep, 1, 4, n, 3, kSomeFill, kSomeOutline, 0, 0);
       }},
      {"AreaRangeChart25D", 5, kRangeStorages,
       [](Object& o, const Arrays& a, int n) {
         o.AreaRangeChart25D(a.ind, a.dep, a.dep2, 4, n, 3, kSomeFill, kSomeOutline, 0, 0);
       }},
      {"LineChart25D", 6, kSeriesStorages,
       [](Object& o, const Arrays& a, int n) {
         o.LineChart25D(a.ind, a.dep, 4, n, 0, 1, kSomeFill, 0);
       }},
      {"GroupBarChart25D", 10, kGroupStorages,
       [](Object& o, const Arrays& a, int n) {
         o.GroupBarChart25D(a.ind, a.group, 4, 1, n, kGroups, 1, 2, 3, a.colors, kSomeOutline, 0, 0,
                            0);
       }},
      {"GroupRibbonChart25D", 11, kGroupStorages,
       [](Object& o, const Arrays& a, int n) {
         o.GroupRibbonChart25D(a.ind, a.group, 4, n, kGroups, 3, a.colors, kSomeOutline, 0, 0);
       }},
      {"GroupAreaFillChart25D", 12, kGroupStorages,
       [](Object& o, const Arrays& a, int n) {
         o.GroupAreaFillChart25D(a.ind, a.group, 4, n, kGroups, 3, a.colors, kSomeOutline, 0, 0);
       }},
      {"OHLCChart25D", 13, kGroupStorages,
       [](Object& o, const Arrays& a, int n) {
         o.OHLCChart25D(a.ind, a.group, 4, n, 0, 0, 1, 1, a.colors, kSomeOutline, 0, 0, 0, nullptr);
       }},
      {"BoxAndWhiskerChart25D", 16, kGroupStorages,
       [](Object& o, const Arrays& a, int n) {
         o.BoxAndWhiskerChart25D(a.ind, a.group, 4, n, 2, 3, 0, 1, 1, a.colors, kSomeOutline, 0, 0,
                                 0, 1);
       }},
      {"FloatingBarChart25D", 17, kHeightStorages,
       [](Object& o, const Arrays& a, int n) {
         o.FloatingBarChart25D(a.ind, a.dep, a.dep2, 4, n, 2, 3, kSomeFill, kSomeOutline, 0, 0, 0);
       }},
      {"PlaneChart25D", 18, kSeriesStorages, [](Object& o, const Arrays& a, int n) {
         o.PlaneChart25D(a.ind, a.dep, 4, n, 2, 3, kSomeFill, kSomeOutline, 0, 0, 0);
       }}};
}

inline std::vector<SetUpRoutine> SetUpRoutines3D() {
  using Object = CChartObj3D;
  using Arrays = SetUpArrays;
  return {{"BarChart3D",
           3,
           {"Init3DPointStorage", "InitBarHeightsStorage"},
           [](Object& o, const Arrays& a, int n) {
             o.BarChart3D(a.points, a.dep2, n, 2, 3, kSomeFill, kSomeOutline);
           }},
          {"ScatterChart3D", 7, kPointStorages,
           [](Object& o, const Arrays& a, int n) {
             o.ScatterChart3D(a.points, 1, n, 0, kSomeFill, kSomeOutline, 0, 0);
           }},
          {"LineChart3D", 8, kPointStorages,
           [](Object& o, const Arrays& a, int n) { o.LineChart3D(a.points, n, 0, 1, kSomeFill); }},
          {"ProjectionLineChart3D", 9, kPointStorages,
           [](Object& o, const Arrays& a, int n) {
             o.ProjectionLineChart3D(a.points, 5, n, 0, 1, kSomeFill, 0, 7);
           }},
          {"PlaneChart3D", 14, kPointStorages,
           [](Object& o, const Arrays& a, int n) {
             o.PlaneChart3D(a.points, n, 2, 3, kSomeFill, kSomeOutline);
           }},
          {"ScatterText3D",
           15,
           {"Init3DPointStorage", "InitDataStringsStorage"},
           [](Object& o, const Arrays& a, int n) {
             o.ScatterText3D(a.points, a.texts, n, 1, 1, kSomeFill, 0, 0);
           }}};
}

/// Those that take a surface and no number of points.
inline std::vector<SetUpRoutine> SetUpRoutinesOfSurfaces() {
  using Object = CChartObj3D;
  using Arrays = SetUpArrays;
  return {{"PolysurfaceChart2D",
           50,
           {"InitPolysurfaceStorage"},
           [](Object& o, const Arrays& a, int) { o.PolysurfaceChart2D(a.surface, 1, 0); }},
          {"PolysurfaceChart3D",
           51,
           {"InitPolysurfaceStorage"},
           [](Object& o, const Arrays& a, int) { o.PolysurfaceChart3D(a.surface); }},
          {"ContourPolysurface3D",
           52,
           {"InitPolysurfaceStorage", "InitContourValueStorage", "InitContourColorsStorage"},
           [](Object& o, const Arrays& a, int n) {
             o.ContourPolysurface3D(a.surface, a.ind, a.colors, n, 1, 0);
           }}};
}

inline std::vector<SetUpRoutine> SetUpRoutines() {
  std::vector<SetUpRoutine> all = SetUpRoutines25D();
  for (const auto& more : {SetUpRoutines3D(), SetUpRoutinesOfSurfaces()}) {
    all.insert(all.end(), more.begin(), more.end());
  }
  return all;
}

/// Arrays for up to four points.
class SetUpSources {
 public:
  SetUpSources() : m_surface(3, 1, 3) {
    m_group.fill(2.0);
    m_colors.fill(kSomeFill);
    m_surface.SetPolysurfacePoints(m_points.data(), 0, 3);
  }

  SetUpArrays Arrays() const {
    return {m_values.data(), m_values.data(), m_values.data(), m_group.data(),
            m_colors.data(), m_points.data(), m_texts.data(),  &m_surface};
  }

 private:
  std::array<double, 4> m_values{1, 3, 5, 7};
  std::array<double, 24> m_group;
  std::array<RGBDType, 6> m_colors;
  std::array<point3Dtype, 4> m_points{
      {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}}};
  std::array<CString, 4> m_texts{CString("1"), CString("2"), CString("3"), CString("4")};
  CPolysurface m_surface;
};

}  // namespace orvalix::test
