/// @file
/// Gathering what is drawn instead of drawing it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "orvalix/foundation/value_types.h"
#include "orvalix/render/gathered_geometry_internal.h"

namespace orvalix {

/// How a polygon or solid looks.
struct RecordedFill {
  std::array<float, 3> color;
  int isOutlined;  ///< 0 or 1
  RGBDType outlineColor;
  float outlineWidth;  ///< pixels
};

/// The faces of a solid after the first one have this colour, where it isn't the same.
using LaterColor = std::optional<std::array<float, 3>>;

/// How lines look.
struct RecordedStroke {
  float width;  ///< pixels
  unsigned short stipple;
  int stippleFactor;
};

/// Takes polygons, closed solids and lines with the state in which they are drawn, and sorts them
/// into few groups. Within a group the order is kept; where depth alone doesn't decide what is seen
/// (faces drawn over lines at the same depth), a new segment begins.
///
/// Vertices are moved by what was done to the matrix since one was loaded. When memory runs out,
/// the recorder fails and takes nothing more.
class DrawRecorder {
 public:
  /// State of everything that follows, until it is changed.
  struct State {
    int isLit = 0;
    int isTextured = 0;
    int isClipped = 0;
  };
  explicit DrawRecorder(const State& state) : m_state(state) {
    m_geometry.isClippedAtFirst = state.isClipped;
  }

  State& GetState() { return m_state; }

  /// @name The matrix
  /// @{
  void LoadMatrix(const double* matrix);
  /// Multiplies the matrix by another one, column by column, from the right.
  void Multiply(const std::array<double, 16>& matrix);
  void PushMatrix();
  void PopMatrix();
  /// @}

  /// @param normal of the face, before the matrix
  /// @param textures a texture coordinate for each point; null without a texture
  void AddPolygon(const point3Dtype* points, int n, const point3Dtype& normal,
                  const float* textures, const RecordedFill& fill);
  /// A character of a text.
  /// @param mesh, font as in GatheredGlyph
  void AddGlyph(const GlyphMesh& mesh, std::uint64_t font, const std::array<float, 3>& color);
  /// The outline of a polygon alone: a line through its points.
  void AddFrame(const point3Dtype* points, int n, const RGBDType& color, float width);
  /// All faces of a solid of eight corners (kSolidFaces).
  /// @param textures a texture coordinate for each corner; null without a texture
  void AddSolid(const point3Dtype* corners, const float* textures, const RecordedFill& fill,
                const LaterColor& later = std::nullopt);
  void AddLine(const point3Dtype& from, const point3Dtype& to, const std::array<float, 3>& color,
               const RecordedStroke& stroke);
  /// A line through points, each with the colour of the line that ends there. Its stipple goes on
  /// from point to point.
  void StartStrip(const RecordedStroke& stroke);
  void AddToStrip(const point3Dtype& point, const std::array<float, 3>& color);
  /// The next point begins a new line.
  void InterruptStrip();

  /// Room for so many texture coordinates, until the next call; null when memory runs out.
  float* TexturesFor(int n);

  bool HasFailed() const { return m_hasFailed; }
  /// What should have been added can't be made.
  void Fail() { m_hasFailed = true; }
  const GatheredGeometry& Geometry() const { return m_geometry; }
  /// Nothing may be added afterwards.
  GatheredGeometry TakeGeometry() { return std::move(m_geometry); }
  /// The matrix at present: what was loaded last, and what was done to it since.
  const double* LoadedMatrix() const { return m_matrix.loaded; }
  const std::array<double, 16>& MovedSince() const { return m_matrix.moved; }
  struct SavedMatrix {
    const double* loaded = nullptr;  ///< null: the identity
    std::array<double, 16> moved{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    bool isMoved = false;
  };
  /// Pushed and not yet popped, the first one first.
  const std::vector<SavedMatrix>& SavedMatrices() const { return m_stack; }

 private:
  /// The ends of an edge and the group that it is drawn in.
  struct Edge {
    std::array<std::array<float, 3>, 2> ends{};
    std::array<float, 3> color{};
    std::size_t group = 0;
    std::uint32_t segment = 0;  ///< counted from 1; 0: no edge
  };
  using Position = std::array<float, 3>;

  template <class Work>
  void Try(Work work);
  point3Dtype Moved(const point3Dtype& point) const;
  std::array<float, 3> MovedNormal(const point3Dtype& normal) const;
  DrawSegment& SegmentFor(bool hasPlainFill);
  IndexList& FillIndices(const RecordedFill& fill, int facing);
  TextGroup& TextGroupNow();
  std::size_t LineGroupFor(const LineState& state);
  /// Edges of the colour that came first in a segment share the vertices of their faces; from the
  /// first one of another colour on all have vertices of their own, which keeps their order.
  std::size_t EdgeGroupFor(const RecordedFill& fill, int facing, int otherFacing);
  LineState StrokeState(const RecordedStroke& stroke, int isStrip) const;
  std::uint32_t AddFillVertex(const point3Dtype& moved, const std::array<float, 3>& normal,
                              const std::array<float, 3>& color, float texture);
  void AddEdge(std::size_t group, std::uint32_t from, std::uint32_t to, const RGBDType& color);
  void AddLineVertices(std::size_t group, const Position& from, const Position& to,
                       const std::array<float, 3>& color);
  void RememberMoreEdges();
  bool IsDrawnAlready(std::size_t group, const Position& from, const Position& to,
                      const std::array<float, 3>& color);
  int DirectionOf(const std::array<double, 3>& outward);
  void Extend(const std::array<point3Dtype, 8>& corners);

  GatheredGeometry m_geometry;
  State m_state;
  SavedMatrix m_matrix;
  std::vector<SavedMatrix> m_stack;
  std::vector<float> m_textures;
  std::vector<Edge> m_recentEdges;  ///< by a hash of the edge; later ones replace earlier ones
  std::size_t m_rememberedEdges = 0;
  bool m_hasEdgeColor = false;  ///< of the segment
  bool m_hasManyEdgeColors = false;
  RGBDType m_edgeColor{};
  std::size_t m_lastFill = 0;  ///< groups of the segment that were used last
  std::size_t m_lastLine = 0;
  RecordedStroke m_strip{};
  std::size_t m_stripGroup = 0;
  bool m_isStripOpen = false;  ///< the next point of the strip ends a line
  Position m_stripEnd{};       ///< where that line begins
  bool m_hasFailed = false;
};

}  // namespace orvalix
