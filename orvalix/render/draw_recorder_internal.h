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
#include "orvalix/render/recent_table_internal.h"

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
  /// @param isFlat as in GatheredGeometry
  DrawRecorder(const State& state, bool isFlat) : m_state(state) {
    m_geometry.isClippedAtFirst = state.isClipped;
    m_geometry.isFlat = isFlat;
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
  using Position = std::array<float, 3>;
  /// A line between two places that was drawn.
  struct Edge {
    std::uint32_t from = 0;  ///< a number of a place; equal to `to`: no edge
    std::uint32_t to = 0;
    std::size_t group = 0;         ///< counted through all segments
    std::array<float, 3> color{};  ///< that was drawn last
    bool isMet = false;            ///< two polygons have met there, more hardly ever do

    bool IsSpare() const { return isMet || from == to; }
    bool IsSameLine(const Edge& other) const {
      return from == other.from && to == other.to && group == other.group;
    }
    std::uint32_t Hash() const;
  };
  /// A place where polygons may meet.
  struct Corner {
    Position position{};
    float texture = 0.0F;
    std::uint32_t number = 0;  ///< of polygons, that of a vertex there
    bool isUsed = false;
    bool hasFace = false;  ///< a triangle takes its light from the vertex, which must stay as it is

    bool IsSpare() const { return !isUsed; }
    bool IsSamePlace(const Corner& other) const {
      return isUsed && position == other.position && texture == other.texture;
    }
    std::uint32_t Hash() const;
  };
  /// A corner of the polygon that is being added.
  struct PolygonCorner {
    std::uint32_t vertex;  ///< of its triangles
    std::uint32_t place;   ///< vertex of the polygons that meet there
  };
  /// How a polygon takes light.
  struct Face {
    std::array<float, 3> normal;
    std::array<float, 3> color;
  };

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
  std::uint32_t AddFillVertex(const Position& moved, const Face& face, float texture);
  /// Gives each vertex a colour of its own unless all have this one.
  void NeedColor(const std::array<float, 3>& color);
  /// Gives each vertex a texture coordinate where faces are textured.
  void NeedTextures();
  static Corner* FindKnown(RecentTable<Corner>& table, const Corner& corner);
  /// What is known of the place of a corner, until the next call; a new one gets a vertex.
  Corner& CornerAt(const Position& moved, const Face& face, float texture);
  /// A vertex at a corner that has the normal and the colour of a face.
  std::uint32_t VertexOfFace(Corner& corner, const Face& face);
  void AddEdge(std::size_t group, std::uint32_t from, std::uint32_t to,
               const std::array<float, 3>& color);
  void AddLineVertices(std::size_t group, const Position& from, const Position& to,
                       const std::array<float, 3>& color);
  /// Of a place of frames: the same each time, as long as it is remembered.
  std::uint32_t NumberOf(const Position& place);
  /// True when the line that is seen between two places isn't one of that group and colour; it is
  /// from then on.
  /// @param from, to numbers of places
  bool IsNewEdge(std::size_t group, std::uint32_t from, std::uint32_t to,
                 const std::array<float, 3>& color);
  int DirectionOf(const std::array<double, 3>& outward);
  void Extend(const std::array<point3Dtype, 8>& corners);

  GatheredGeometry m_geometry;
  State m_state;
  SavedMatrix m_matrix;
  std::vector<SavedMatrix> m_stack;
  std::vector<float> m_textures;
  /// Of polygons between numbers of vertices, of frames between numbers of their places: no group
  /// has both.
  RecentTable<Edge> m_recentEdges;
  RecentTable<Corner> m_recentCorners;
  RecentTable<Corner> m_recentFrameCorners;
  std::uint32_t m_frameCorners = 0;  ///< places of frames that got a number
  std::vector<PolygonCorner> m_corners;
  std::size_t m_groupsBefore = 0;  ///< groups of lines in front of the segment
  bool m_hasEdgeColor = false;     ///< of the segment
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
