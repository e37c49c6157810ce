#include <algorithm>
#include <array>
#include <cstddef>

#include "orvalix/render/open_gl.h"
#include "orvalix/render/transform_3d.h"
#include "orvalix/series/chart_obj_3d.h"

namespace {

/// A polygon's vertices, and the first one again.
using Vertices = std::array<point3Dtype, 256>;

/// Twice the area that a polygon covers on the screen; positive when it goes round
/// counterclockwise there.
double ScreenArea(const double* matrix, const Vertices& vertices, int count) {
  const auto onScreen = [&](int i) {
    const point3Dtype& p = vertices[static_cast<std::size_t>(i)];
    return std::array{matrix[0] * p.x + matrix[4] * p.y + matrix[8] * p.z + matrix[12],
                      matrix[1] * p.x + matrix[5] * p.y + matrix[9] * p.z + matrix[13]};
  };
  double area = 0.0;
  for (int i = 0; i < count; ++i) {
    const auto a = onScreen(i);
    const auto b = onScreen(i + 1);
    area += a[0] * b[1] - b[0] * a[1];
  }
  return area;
}

}  // namespace

template <class DrawPolygon>
void CChartObj3D::DrawPolygons(DrawPolygon drawPolygon) {
  if (!m_polysurface.has_value()) return;
  Vertices vertices;
  RGBDType first{};
  RGBDType second{};
  m_openGL->SetLineWidth3D(m_outlineWidth);
  for (int polygon = 0; polygon < m_polysurface->GetPSNumPolygons(); ++polygon) {
    int count = 0;
    m_polysurface->GetPolysurfacePolygon(polygon, vertices.data(), count, first, second);
    if (count == 0) continue;
    vertices[static_cast<std::size_t>(count)] = vertices[0];
    drawPolygon(vertices, count, first, second);
  }
  m_openGL->SetLineWidth3D(1.0);
}

void CChartObj3D::DrawPolysurfaceChart3D() {
  DrawPolygons(
      [this](Vertices& vertices, int count, RGBDType const& first, RGBDType const& second) {
        m_openGL->SetFillStyle3D(first, second, second);
        m_transform->C3DATWS(vertices.data(), count + 1);
        if (m_polysurface->GetWireFrame() != 0) {
          m_openGL->Frame3D(vertices.data(), count + 1);
        } else {
          m_openGL->PolyFillAbs3D(vertices.data(), count + 1);
        }
      });
}

void CChartObj3D::DrawPolysurfaceChart2D() {
  constexpr RGBDType kBlack{0.0, 0.0, 0.0, 1.0};
  constexpr int kPlanes = 3;
  DrawPolygons(
      [this, kBlack](Vertices& vertices, int count, RGBDType const& first, RGBDType const& second) {
        const int plane = m_projectionPlane < kPlanes ? m_projectionPlane : -1;
        for (int i = 0; i <= count; ++i) {
          point3Dtype& vertex = vertices[static_cast<std::size_t>(i)];
          vertex = ProjectOnto(plane, m_constValue, vertex);
        }
        m_openGL->SetFillStyle3D(kBlack, first, second);
        m_transform->C3DATWS(vertices.data(), count + 1);
        if (m_polysurface->GetWireFrame() == 0) {
          m_openGL->PolyFillAbs3D(vertices.data(), count + 1);
          return;
        }
        // Only what goes round counterclockwise on the screen is drawn as an outline.
        if (ScreenArea(m_transform->GetGraphTransform(), vertices, count) < 0.0) {
          std::reverse(vertices.begin(), vertices.begin() + count + 1);
        }
        m_openGL->SetLineColor3D(second);
        m_openGL->PolyAbs3D(vertices.data(), count);
      });
}
