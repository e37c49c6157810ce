#include "orvalix/render/glyph_solid_internal.h"

#include <GL/glu.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>
#include <memory>
#include <new>

namespace orvalix {
namespace {

struct DeleteTessellator {
  void operator()(GLUtesselator* tessellator) const { gluDeleteTess(tessellator); }
};

/// A point as the tessellator keeps it while it works.
using TessVertex = std::array<GLdouble, 3>;

GlyphPoint PointOf(const TessVertex& vertex) { return {vertex[0], vertex[1]}; }

/// One run of the tessellator over a glyph. It calls back through C, where no exception may pass:
/// running out of memory is noted and raised at the end.
class TessellatorRun {
 public:
  /// @param boundaryOnly gather the edges of the area rather than its triangles
  explicit TessellatorRun(bool boundaryOnly)
      : m_boundaryOnly(boundaryOnly), m_tessellator(gluNewTess()) {
    if (!m_tessellator) throw std::bad_alloc();
    GLUtesselator* tessellator = m_tessellator.get();
    using Callback = void (*)();
    gluTessCallback(tessellator, GLU_TESS_BEGIN_DATA, reinterpret_cast<Callback>(Begin));
    gluTessCallback(tessellator, GLU_TESS_VERTEX_DATA, reinterpret_cast<Callback>(Vertex));
    gluTessCallback(tessellator, GLU_TESS_END_DATA, reinterpret_cast<Callback>(End));
    gluTessCallback(tessellator, GLU_TESS_COMBINE_DATA, reinterpret_cast<Callback>(Combine));
    // With this one, areas come as single triangles instead of fans and strips.
    gluTessCallback(tessellator, GLU_TESS_EDGE_FLAG_DATA, reinterpret_cast<Callback>(EdgeFlag));
    gluTessProperty(tessellator, GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_NONZERO);
    gluTessProperty(tessellator, GLU_TESS_BOUNDARY_ONLY, boundaryOnly ? GL_TRUE : GL_FALSE);
    gluTessNormal(tessellator, 0.0, 0.0, 1.0);
  }

  std::vector<GlyphPoint> Gather(const std::vector<GlyphContour>& contours) {
    gluTessBeginPolygon(m_tessellator.get(), this);
    for (const GlyphContour& contour : contours) {
      gluTessBeginContour(m_tessellator.get());
      for (const GlyphPoint& point : contour) {
        TessVertex& vertex = m_vertices.emplace_back(TessVertex{point.x, point.y, 0.0});
        gluTessVertex(m_tessellator.get(), vertex.data(), &vertex);
      }
      gluTessEndContour(m_tessellator.get());
    }
    gluTessEndPolygon(m_tessellator.get());
    if (m_outOfMemory) throw std::bad_alloc();
    return std::move(m_points);
  }

 private:
  template <class Work>
  void Guarded(Work&& work) noexcept {
    try {
      work();
    } catch (const std::bad_alloc&) {
      m_outOfMemory = true;
    }
  }

  static void Begin(GLenum, void* run) { static_cast<TessellatorRun*>(run)->m_loop.clear(); }

  static void Vertex(void* vertex, void* data) {
    auto* run = static_cast<TessellatorRun*>(data);
    if (vertex == nullptr) return;
    run->Guarded([&] { run->m_loop.push_back(PointOf(*static_cast<TessVertex*>(vertex))); });
  }

  static void End(void* data) {
    auto* run = static_cast<TessellatorRun*>(data);
    run->Guarded([&] { run->TakeLoop(); });
  }

  static void Combine(GLdouble* position, void**, GLfloat*, void** result, void* data) {
    auto* run = static_cast<TessellatorRun*>(data);
    *result = nullptr;
    run->Guarded([&] {
      *result = &run->m_vertices.emplace_back(TessVertex{position[0], position[1], 0.0});
    });
  }

  static void EdgeFlag(GLboolean, void*) {}

  void TakeLoop() {
    if (!m_boundaryOnly) {
      m_points.insert(m_points.end(), m_loop.begin(), m_loop.end());
      return;
    }
    for (std::size_t i = 0; i < m_loop.size(); ++i) {
      m_points.push_back(m_loop[i]);
      m_points.push_back(m_loop[(i + 1) % m_loop.size()]);
    }
  }

  bool m_boundaryOnly;
  bool m_outOfMemory = false;
  std::unique_ptr<GLUtesselator, DeleteTessellator> m_tessellator;
  std::deque<TessVertex> m_vertices;  ///< the tessellator keeps pointers to them
  std::vector<GlyphPoint> m_loop;     ///< the triangles or the boundary being received
  std::vector<GlyphPoint> m_points;   ///< all that was received
};

/// A wall's corners, two triangles; it faces away from the area.
std::array<point3Dtype, 6> Wall(const GlyphPoint& a, const GlyphPoint& b, double depth) {
  const point3Dtype aBack{a.x, a.y, -depth, 0.0};
  const point3Dtype bFront{b.x, b.y, 0.0, 0.0};
  return {aBack, {b.x, b.y, -depth, 0.0}, bFront, aBack, bFront, {a.x, a.y, 0.0, 0.0}};
}

template <class Point>
void SendFace(Point begin, Point end, double z) {
  std::for_each(begin, end, [z](const GlyphPoint& point) { glVertex3d(point.x, point.y, z); });
}

void SendWalls(const std::vector<GlyphPoint>& edges, double depth) {
  for (std::size_t i = 0; i + 1 < edges.size(); i += 2) {
    const GlyphPoint& a = edges[i];
    const GlyphPoint& b = edges[i + 1];
    glNormal3d(b.y - a.y, a.x - b.x, 0.0);
    for (const point3Dtype& corner : Wall(a, b, depth)) glVertex3d(corner.x, corner.y, corner.z);
  }
}

}  // namespace

double GlyphDepth(double extrusion) {
  return extrusion > 0.0 && std::isfinite(static_cast<float>(extrusion)) ? extrusion : 0.0;
}

GlyphSolid FillGlyph(const Glyph& glyph) {
  if (glyph.contours.empty()) return {};
  return {.triangles = TessellatorRun(false).Gather(glyph.contours),
          .edges = TessellatorRun(true).Gather(glyph.contours)};
}

void SendGlyphSolid(const GlyphSolid& solid, double extrusion) {
  if (solid.triangles.empty()) return;
  glBegin(GL_TRIANGLES);
  glNormal3d(0.0, 0.0, 1.0);
  SendFace(solid.triangles.begin(), solid.triangles.end(), 0.0);
  glNormal3d(0.0, 0.0, -1.0);
  const double depth = GlyphDepth(extrusion);
  SendFace(solid.triangles.rbegin(), solid.triangles.rend(), -depth);
  if (depth > 0.0) SendWalls(solid.edges, depth);
  glEnd();
}

}  // namespace orvalix
