// Light
// The same land lit from four sides: what the light strikes sideways shows its shape best.

#include <orvalix/orvalix.h>

#include <array>
#include <string>

#include "support/colors.h"
#include "support/csv_table.h"

using namespace examples;

namespace {

struct Light {
  const char* title;
  point3Dtype from;  ///< x to the right, y to the viewer, z up
};

constexpr std::array<Light, 4> kLights{{{"from above", {0.0, 0.0, 1.0, 0.0}},
                                        {"from the viewer", {0.0, 1.0, 0.5, 0.0}},
                                        {"from the left", {-1.0, 0.0, 0.4, 0.0}},
                                        {"from the right", {1.0, 0.0, 0.4, 0.0}}}};

}  // namespace

void DrawLight(CChartView3D& view, const std::string& data) {
  const CsvGrid grid(data + "/terrain.csv");
  constexpr int kTriangles = 1;
  CPolysurface terrain(grid.rows, grid.columns, 0.0, 0.0, 29.9, 31.8, grid.values.data(),
                       kTriangles);
  terrain.ReducePolysurface(&terrain, terrain.GetGridType());  // every second row and column
  constexpr RGBDType kStone{0.62, 0.59, 0.53, 1.0};
  for (int polygon = 0; polygon < terrain.GetPSNumPolygons(); ++polygon) {
    terrain.SetPolysurfaceColors(polygon, kStone, kStone);
  }

  view.EnableBorder(0);
  view.SetFont("Arial", 400, 256);
  for (std::size_t i = 0; i < kLights.size(); ++i) {
    CTransform3D* transform = nullptr;
    CChart3D* chart =
        view.NewChart3D({0.0, 0.0, 200.0, 0.0}, {30.0, 32.0, 1100.0, 0.0}, &transform);
    chart->SetChartPosition({i % 2 == 0 ? 0.0 : 0.5, i < 2 ? 0.5 : 0.0, 0.5, 0.5});
    chart->EnableBorder(0);
    chart->SetFontSize(0.09);
    chart->GetHeader()->SetTitle1(kLights[i].title);
    chart->SetLightPosition(kLights[i].from);
    transform->SetChartRect({0.76, 0.76, 0.07, 0.0});
    transform->SetOffset({0.0, 0.0, -0.06, 0.0});
    transform->SetRotate({-50.0, 0.0, 18.0, 0.0});
    CChartObj3D* surface = chart->NewChartObj(transform);
    surface->PolysurfaceChart3D(&terrain);
    surface->SetOutlineMode(0);
  }
}
