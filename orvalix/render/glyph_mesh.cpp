#include "orvalix/render/glyph_mesh_internal.h"

#include <algorithm>

namespace orvalix {
namespace {

bool IsBefore(const GlyphPoint& a, const GlyphPoint& b) {
  return a.x < b.x || (a.x == b.x && a.y < b.y);
}

/// The points of a character, each once.
class PointTable {
 public:
  explicit PointTable(const GlyphSolid& solid) : m_points(solid.triangles) {
    m_points.insert(m_points.end(), solid.edges.begin(), solid.edges.end());
    std::sort(m_points.begin(), m_points.end(), IsBefore);
    m_points.erase(std::unique(m_points.begin(), m_points.end()), m_points.end());
  }

  const std::vector<GlyphPoint>& Points() const { return m_points; }
  std::uint32_t IndexOf(const GlyphPoint& point) const {
    const auto found = std::lower_bound(m_points.begin(), m_points.end(), point, IsBefore);
    return static_cast<std::uint32_t>(found - m_points.begin());
  }

 private:
  std::vector<GlyphPoint> m_points;
};

}  // namespace

GlyphMesh MeshOfGlyph(const GlyphSolid& solid, double extrusion) {
  const PointTable table(solid);
  const double depth = GlyphDepth(extrusion);
  GlyphMesh mesh;
  for (const GlyphPoint& point : table.Points()) mesh.corners.push_back({point.x, point.y, 0.0});
  if (depth > 0.0) {
    for (const GlyphPoint& point : table.Points()) {
      mesh.corners.push_back({point.x, point.y, -depth});
    }
  }
  const auto behind = static_cast<std::uint32_t>(depth > 0.0 ? table.Points().size() : 0);
  for (const GlyphPoint& point : solid.triangles) mesh.front.push_back(table.IndexOf(point));
  for (auto corner = mesh.front.rbegin(); corner != mesh.front.rend(); ++corner) {
    mesh.back.push_back(*corner + behind);
  }
  if (depth == 0.0) return mesh;
  for (std::size_t i = 0; i + 1 < solid.edges.size(); i += 2) {
    const std::uint32_t a = table.IndexOf(solid.edges[i]);
    const std::uint32_t b = table.IndexOf(solid.edges[i + 1]);
    for (const std::uint32_t corner : {a + behind, b + behind, b, a + behind, b, a}) {
      mesh.walls.push_back(corner);
    }
  }
  return mesh;
}

}  // namespace orvalix
