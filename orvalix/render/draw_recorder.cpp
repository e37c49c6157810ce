#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <new>
#include <stdexcept>

#include "orvalix/foundation/points.h"
#include "orvalix/render/draw_recorder_internal.h"
#include "orvalix/render/solid_faces_internal.h"

namespace orvalix {
namespace {

using Vector = std::array<double, 3>;

constexpr double kSameDirection = 1e-6;

/// OpenGL counts what a call draws in an int.
void RequireRoom(std::size_t drawn, std::size_t more) {
  constexpr std::size_t kMost = std::numeric_limits<int>::max();
  if (more > kMost || drawn > kMost - more) {
    throw std::length_error("more vertices than OpenGL can draw");
  }
}

double Dot(const Vector& a, const Vector& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

Vector Cross(const Vector& a, const Vector& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

std::array<float, 3> ToFloats(const point3Dtype& point) {
  return {static_cast<float>(point.x), static_cast<float>(point.y), static_cast<float>(point.z)};
}

bool IsSameColor(const RGBDType& a, const RGBDType& b) {
  return a.red == b.red && a.green == b.green && a.blue == b.blue;
}

bool IsSamePlace(const point3Dtype& a, const point3Dtype& b) {
  return a.x == b.x && a.y == b.y && a.z == b.z;
}

constexpr std::uint64_t kPrime = 0x9E3779B97F4A7C15U;

/// Two numbers in a hash.
std::uint64_t Hashed(std::uint64_t hash, std::uint32_t a, std::uint32_t b) {
  hash = (hash ^ (std::uint64_t{a} << 32U | b)) * kPrime;
  return hash ^ hash >> 32U;
}

/// Every bit of a hash counts for each of these.
std::uint32_t Mixed(std::uint64_t hash) { return static_cast<std::uint32_t>(hash * kPrime >> 32U); }

std::uint32_t BitsOf(float number) { return std::bit_cast<std::uint32_t>(number); }

}  // namespace

bool LineState::operator==(const LineState& other) const {
  return matrix == other.matrix && width == other.width && stipple == other.stipple &&
         stippleFactor == other.stippleFactor && isClipped == other.isClipped &&
         isStrip == other.isStrip && isStroke == other.isStroke && isEdge == other.isEdge &&
         IsSameColor(color, other.color) && facing == other.facing &&
         otherFacing == other.otherFacing;
}

std::uint32_t DrawRecorder::Edge::Hash() const { return Mixed(Hashed(0, from, to)); }

std::uint32_t DrawRecorder::Corner::Hash() const {
  const std::uint64_t hash = Hashed(0, BitsOf(position[0]), BitsOf(position[1]));
  return Mixed(Hashed(hash, BitsOf(position[2]), BitsOf(texture)));
}

template <class Work>
void DrawRecorder::Try(Work work) {
  if (m_hasFailed) return;
  try {
    work();
  } catch (const std::bad_alloc&) {
    m_hasFailed = true;
  } catch (const std::length_error&) {
    m_hasFailed = true;
  }
}

// --- the matrix ---

void DrawRecorder::LoadMatrix(const double* matrix) {
  m_matrix = {};
  m_matrix.loaded = matrix;
}

void DrawRecorder::Multiply(const std::array<double, 16>& matrix) {
  std::array<double, 16> product{};
  for (std::size_t column = 0; column < 4; ++column) {
    for (std::size_t row = 0; row < 4; ++row) {
      for (std::size_t i = 0; i < 4; ++i) {
        product[column * 4 + row] += m_matrix.moved[i * 4 + row] * matrix[column * 4 + i];
      }
    }
  }
  m_matrix.moved = product;
  m_matrix.isMoved = true;
}

void DrawRecorder::PushMatrix() {
  Try([this] { m_stack.push_back(m_matrix); });
}

void DrawRecorder::PopMatrix() {
  if (m_stack.empty()) return;
  m_matrix = m_stack.back();
  m_stack.pop_back();
}

point3Dtype DrawRecorder::Moved(const point3Dtype& point) const {
  if (!m_matrix.isMoved) return point;
  const std::array<double, 16>& m = m_matrix.moved;
  return {m[0] * point.x + m[4] * point.y + m[8] * point.z + m[12],
          m[1] * point.x + m[5] * point.y + m[9] * point.z + m[13],
          m[2] * point.x + m[6] * point.y + m[10] * point.z + m[14], point.v};
}

std::array<float, 3> DrawRecorder::MovedNormal(const point3Dtype& normal) const {
  if (!m_matrix.isMoved) return ToFloats(normal);
  const std::array<double, 16>& m = m_matrix.moved;
  const Vector x{m[0], m[1], m[2]};
  const Vector y{m[4], m[5], m[6]};
  const Vector z{m[8], m[9], m[10]};
  // The columns of the inverse, transposed; only its direction counts.
  const Vector yz = Cross(y, z);
  const Vector zx = Cross(z, x);
  const Vector xy = Cross(x, y);
  const double sign = Dot(x, yz) < 0.0 ? -1.0 : 1.0;
  Vector moved;
  for (std::size_t i = 0; i < 3; ++i) {
    moved[i] = sign * (yz[i] * normal.x + zx[i] * normal.y + xy[i] * normal.z);
  }
  const double length = std::sqrt(Dot(moved, moved));
  const double scale = length > 0.0 ? 1.0 / length : 1.0;
  return {static_cast<float>(moved[0] * scale), static_cast<float>(moved[1] * scale),
          static_cast<float>(moved[2] * scale)};
}

// --- the groups ---

DrawSegment& DrawRecorder::SegmentFor(bool hasPlainFill) {
  std::vector<DrawSegment>& segments = m_geometry.segments;
  const auto liesBelow = [this](const LineGroup& group) {
    return group.state.matrix == m_matrix.loaded;
  };
  const bool isCovering =
      hasPlainFill && !segments.empty() &&
      std::any_of(segments.back().lines.begin(), segments.back().lines.end(), liesBelow);
  if (segments.empty() || isCovering) {
    if (!segments.empty()) m_groupsBefore += segments.back().lines.size();
    segments.emplace_back();
    m_hasEdgeColor = false;
    m_hasManyEdgeColors = false;
    m_lastFill = 0;
    m_lastLine = 0;
  }
  return segments.back();
}

IndexList& DrawRecorder::FillIndices(const RecordedFill& fill, int facing) {
  const FillState state{.matrix = m_matrix.loaded,
                        .isLit = m_state.isLit,
                        .isTextured = m_state.isTextured,
                        .isClipped = m_state.isClipped,
                        .isPushedBack = fill.isOutlined,
                        .facing = facing};
  std::vector<FillGroup>& groups = SegmentFor(fill.isOutlined == 0).fills;
  if (m_lastFill < groups.size() && groups[m_lastFill].state == state) {
    return groups[m_lastFill].indices;
  }
  const auto found = std::find_if(groups.begin(), groups.end(),
                                  [&](const FillGroup& group) { return group.state == state; });
  m_lastFill = static_cast<std::size_t>(found - groups.begin());
  if (found == groups.end()) groups.push_back({state, {}});
  return groups[m_lastFill].indices;
}

TextGroup& DrawRecorder::TextGroupNow() {
  const std::array<double, 16>& m = m_matrix.moved;
  const TextState state{.matrix = m_matrix.loaded,
                        .isTextured = m_state.isTextured,
                        .isClipped = m_state.isClipped,
                        .axis = Cross({m[0], m[1], m[2]}, {m[4], m[5], m[6]})};
  std::vector<TextGroup>& groups = m_geometry.texts;
  if (groups.empty() || !(groups.back().state == state)) groups.push_back({state, {}});
  return groups.back();
}

std::size_t DrawRecorder::LineGroupFor(const LineState& state) {
  std::vector<LineGroup>& groups = SegmentFor(false).lines;
  if (m_lastLine < groups.size() && groups[m_lastLine].state == state) return m_lastLine;
  // Of strokes that may lie on each other the later one is seen: only the last group goes on.
  const auto ends = [&](const LineGroup& group) {
    return group.state == state ||
           (state.isStroke != 0 && group.state.isStroke != 0 && group.state.matrix == state.matrix);
  };
  const auto last = std::find_if(groups.rbegin(), groups.rend(), ends);
  if (last != groups.rend() && last->state == state) {
    m_lastLine = static_cast<std::size_t>(groups.rend() - last) - 1;
  } else {
    m_lastLine = groups.size();
    groups.push_back({state, {}, {}});
  }
  return m_lastLine;
}

std::size_t DrawRecorder::EdgeGroupFor(const RecordedFill& fill, int facing, int otherFacing) {
  SegmentFor(false);
  if (!m_hasEdgeColor) m_edgeColor = fill.outlineColor;
  m_hasEdgeColor = true;
  if (!IsSameColor(m_edgeColor, fill.outlineColor)) m_hasManyEdgeColors = true;
  return LineGroupFor({.matrix = m_matrix.loaded,
                       .width = fill.outlineWidth,
                       .stipple = kSolidLine,
                       .stippleFactor = 1,
                       .isClipped = m_state.isClipped,
                       .isStrip = 0,
                       .isStroke = 0,
                       .isEdge = m_hasManyEdgeColors ? 0 : 1,
                       .color = m_hasManyEdgeColors ? RGBDType{} : m_edgeColor,
                       .facing = std::min(facing, otherFacing),
                       .otherFacing = std::max(facing, otherFacing)});
}

LineState DrawRecorder::StrokeState(const RecordedStroke& stroke, int isStrip) const {
  return {.matrix = m_matrix.loaded,
          .width = stroke.width,
          .stipple = stroke.stipple,
          .stippleFactor = stroke.stippleFactor,
          .isClipped = m_state.isClipped,
          .isStrip = isStrip,
          .isStroke = 1,
          .isEdge = 0,
          .color = {},
          .facing = -1,
          .otherFacing = -1};
}

void DrawRecorder::NeedColor(const std::array<float, 3>& color) {
  const std::size_t count = m_geometry.fillVertices.size();
  if (count == 0) m_geometry.fillColor = color;
  if (!m_geometry.fillColors.empty() || color == m_geometry.fillColor) return;
  for (std::size_t i = 0; i < count; ++i) m_geometry.fillColors.push_back(m_geometry.fillColor);
}

void DrawRecorder::NeedTextures() {
  if (m_state.isTextured == 0 || !m_geometry.fillTextures.empty()) return;
  const std::size_t count = m_geometry.fillVertices.size();
  for (std::size_t i = 0; i < count; ++i) m_geometry.fillTextures.push_back(0.0F);
}

DrawRecorder::Corner* DrawRecorder::FindKnown(RecentTable<Corner>& table, const Corner& corner) {
  return table.Find(corner.Hash(), [&](const Corner& known) { return known.IsSamePlace(corner); });
}

std::uint32_t DrawRecorder::AddFillVertex(const Position& moved, const Face& face, float texture) {
  const std::size_t before = m_geometry.fillVertices.size();
  RequireRoom(before, 1);
  NeedColor(face.color);
  if (!m_geometry.fillColors.empty()) m_geometry.fillColors.push_back(face.color);
  NeedTextures();
  const bool hasTextures = m_state.isTextured != 0 || !m_geometry.fillTextures.empty();
  if (hasTextures) m_geometry.fillTextures.push_back(texture);
  m_geometry.fillVertices.push_back({moved, face.normal});
  return static_cast<std::uint32_t>(before);
}

DrawRecorder::Corner& DrawRecorder::CornerAt(const Position& moved, const Face& face,
                                             float texture) {
  Corner corner{.position = moved, .texture = texture, .isUsed = true};
  if (Corner* const known = FindKnown(m_recentCorners, corner)) return *known;
  corner.number = AddFillVertex(moved, face, texture);
  return m_recentCorners.Remember(corner);
}

std::uint32_t DrawRecorder::VertexOfFace(Corner& corner, const Face& face) {
  FillVertex& vertex = m_geometry.fillVertices[corner.number];
  if (!corner.hasFace) {
    NeedColor(face.color);
    vertex.normal = face.normal;
    if (!m_geometry.fillColors.empty()) m_geometry.fillColors[corner.number] = face.color;
    corner.hasFace = true;
    return corner.number;
  }
  const std::array<float, 3>& color =
      m_geometry.fillColors.empty() ? m_geometry.fillColor : m_geometry.fillColors[corner.number];
  if (vertex.normal == face.normal && color == face.color) return corner.number;
  return AddFillVertex(corner.position, face, corner.texture);
}

std::uint32_t DrawRecorder::NumberOf(const Position& place) {
  Corner corner{.position = place, .isUsed = true};
  if (const Corner* const known = FindKnown(m_recentFrameCorners, corner)) return known->number;
  corner.number = m_frameCorners++;
  return m_recentFrameCorners.Remember(corner).number;
}

bool DrawRecorder::IsNewEdge(std::size_t group, std::uint32_t from, std::uint32_t to,
                             const std::array<float, 3>& color) {
  const Edge edge{.from = std::min(from, to),
                  .to = std::max(from, to),
                  .group = m_groupsBefore + group,
                  .color = color};
  Edge* const known =
      m_recentEdges.Find(edge.Hash(), [&](const Edge& recent) { return recent.IsSameLine(edge); });
  if (known == nullptr) {
    m_recentEdges.Remember(edge);
    return true;
  }
  if (!known->isMet) m_recentEdges.HasBecomeSpare();
  known->isMet = true;
  if (known->color == color) return false;
  known->color = color;
  return true;
}

void DrawRecorder::AddLineVertices(std::size_t group, const Position& from, const Position& to,
                                   const std::array<float, 3>& color) {
  RequireRoom(m_geometry.lineVertices.size(), 2);
  const auto first = static_cast<std::uint32_t>(m_geometry.lineVertices.size());
  m_geometry.lineVertices.push_back({from, color});
  m_geometry.lineVertices.push_back({to, color});
  ChunkedArray<std::uint32_t>& indices = m_geometry.segments.back().lines[group].indices;
  indices.push_back(first);
  indices.push_back(first + 1);
}

void DrawRecorder::AddEdge(std::size_t group, std::uint32_t from, std::uint32_t to,
                           const std::array<float, 3>& color) {
  const Position a = m_geometry.fillVertices[from].position;
  const Position b = m_geometry.fillVertices[to].position;
  if (a == b) return;  // of a solid without extent there
  LineGroup& lines = m_geometry.segments.back().lines[group];
  if (lines.state.isEdge == 0) {
    AddLineVertices(group, a, b, color);
    return;
  }
  RequireRoom(lines.indices.size(), 2);
  lines.indices.push_back(from);
  lines.indices.push_back(to);
}

int DrawRecorder::DirectionOf(const std::array<double, 3>& outward) {
  std::vector<FacingDirection>& directions = m_geometry.directions;
  for (std::size_t i = 0; i < directions.size(); ++i) {
    const Vector& known = directions[i].normal;
    if (directions[i].matrix == m_matrix.loaded &&
        std::abs(known[0] - outward[0]) < kSameDirection &&
        std::abs(known[1] - outward[1]) < kSameDirection &&
        std::abs(known[2] - outward[2]) < kSameDirection) {
      return static_cast<int>(i);
    }
  }
  if (directions.size() == kMostDirections) return -1;
  directions.push_back({m_matrix.loaded, outward});
  return static_cast<int>(directions.size() - 1);
}

void DrawRecorder::Extend(const std::array<point3Dtype, 8>& corners) {
  std::vector<SolidExtent>& extents = m_geometry.extents;
  auto extent = std::find_if(extents.begin(), extents.end(), [this](const SolidExtent& known) {
    return known.matrix == m_matrix.loaded;
  });
  if (extent == extents.end()) extent = extents.insert(extents.end(), {m_matrix.loaded, {}});
  for (const point3Dtype& corner : corners) extent->extent.Include(corner);
}

// --- what is drawn ---

void DrawRecorder::AddPolygon(const point3Dtype* points, int n, const point3Dtype& normal,
                              const float* textures, const RecordedFill& fill) {
  Try([&] {
    const bool isClosed = n > 1 && IsSamePlace(points[0], points[n - 1]);
    const auto corners = static_cast<std::uint32_t>(isClosed ? n - 1 : n);
    const Face face{MovedNormal(normal), fill.color};
    IndexList& indices = FillIndices(fill, -1);
    RequireRoom(indices.size(), 3 * static_cast<std::size_t>(corners));
    NeedTextures();
    m_corners.resize(corners);
    // Cut as OpenGL cuts polygons, whose first corner is each triangle's last one: depths are then
    // rounded as in one that is drawn by itself.
    for (std::uint32_t i = 0; i < corners; ++i) {
      const std::uint32_t at = (i + 1) % corners;
      Corner& corner =
          CornerAt(ToFloats(Moved(points[at])), face, textures != nullptr ? textures[at] : 0.0F);
      const bool takesLight = at == 0 || !m_geometry.isFlat;
      m_corners[at] = {takesLight ? VertexOfFace(corner, face) : corner.number, corner.number};
    }
    for (std::uint32_t i = 2; i < corners; ++i) {
      for (const std::uint32_t corner : {i - 1, i, 0U}) indices.push_back(m_corners[corner].vertex);
    }
    if (fill.isOutlined == 0) return;
    const std::size_t edges = EdgeGroupFor(fill, -1, -1);
    const std::array<float, 3> shown = ToGathered(fill.outlineColor);
    for (std::uint32_t i = 1; i < static_cast<std::uint32_t>(n); ++i) {
      const std::uint32_t from = m_corners[i - 1].place;
      const std::uint32_t to = m_corners[i % corners].place;
      // Polygons that meet share it.
      if (from != to && IsNewEdge(edges, from, to, shown)) AddEdge(edges, from, to, shown);
    }
  });
}

void DrawRecorder::AddGlyph(const GlyphMesh& mesh, std::uint64_t font,
                            const std::array<float, 3>& color) {
  Try([&] {
    if (mesh.front.empty()) return;
    TextGroupNow().glyphs.push_back(
        {.mesh = &mesh, .font = font, .placement = m_matrix.moved, .color = color});
  });
}

void DrawRecorder::AddFrame(const point3Dtype* points, int n, const RGBDType& color, float width) {
  Try([&] {
    const std::size_t group = LineGroupFor(StrokeState({width, kSolidLine, 1}, 0));
    const std::array<float, 3> shown = ToGathered(color);
    Position from{};
    std::uint32_t fromPlace = 0;
    for (int i = 0; i < n; ++i) {
      const Position to = ToFloats(Moved(points[i]));
      const std::uint32_t toPlace = NumberOf(to);
      const bool isLine = i > 0 && from != to;
      if (isLine && IsNewEdge(group, fromPlace, toPlace, shown)) {
        AddLineVertices(group, from, to, shown);
      }
      from = to;
      fromPlace = toPlace;
    }
  });
}

void DrawRecorder::AddSolid(const point3Dtype* corners, const float* textures,
                            const RecordedFill& fill, const LaterColor& later) {
  Try([&] {
    std::array<point3Dtype, 8> moved;
    for (std::size_t i = 0; i < moved.size(); ++i) moved[i] = Moved(corners[i]);
    const SolidSides sides = FindSides(moved);
    // Clip planes open solids: what they show inside is a matter of the order too.
    const bool canHide = sides.isClosed && m_state.isClipped == 0;
    if (canHide) Extend(moved);
    std::array<int, 6> facing{};
    std::array<std::uint32_t, 6> first{};
    for (std::size_t i = 0; i < kSolidFaces.size(); ++i) {
      const bool isKnown = canHide && !sides.hasNoArea[i];
      facing[i] = isKnown ? DirectionOf(sides.outward[i]) : -1;
      const std::array<std::size_t, 4>& around = kSolidFaces[i].corners;
      point3Dtype normal;
      CalcNormal(corners[around[0]], corners[around[1]], corners[around[2]], normal);
      const Face face{MovedNormal(normal), i > 0 ? later.value_or(fill.color) : fill.color};
      IndexList& indices = FillIndices(fill, facing[i]);
      RequireRoom(indices.size(), 6);
      first[i] = static_cast<std::uint32_t>(m_geometry.fillVertices.size());
      for (const std::size_t corner : around) {
        AddFillVertex(ToFloats(moved[corner]), face, textures != nullptr ? textures[corner] : 0.0F);
      }
      for (const std::uint32_t corner : {1U, 2U, 0U, 2U, 3U, 0U}) {
        indices.push_back(first[i] + corner);
      }
    }
    if (fill.isOutlined == 0) return;
    const std::array<float, 3> shown = ToGathered(fill.outlineColor);
    for (const SolidEdge& edge : kSolidEdges) {
      const std::size_t group = EdgeGroupFor(fill, facing[edge.face], facing[edge.other]);
      const auto from = static_cast<std::uint32_t>(edge.corner);
      AddEdge(group, first[edge.face] + from, first[edge.face] + (from + 1) % 4, shown);
    }
  });
}

float* DrawRecorder::TexturesFor(int n) {
  Try([&] { m_textures.resize(static_cast<std::size_t>(n)); });
  return m_hasFailed ? nullptr : m_textures.data();
}

void DrawRecorder::AddLine(const point3Dtype& from, const point3Dtype& to,
                           const std::array<float, 3>& color, const RecordedStroke& stroke) {
  Try([&] {
    AddLineVertices(LineGroupFor(StrokeState(stroke, 0)), ToFloats(Moved(from)),
                    ToFloats(Moved(to)), color);
  });
}

void DrawRecorder::StartStrip(const RecordedStroke& stroke) {
  m_strip = stroke;
  m_isStripOpen = false;
  const int isStrip = stroke.stipple != kSolidLine ? 1 : 0;
  Try([&] { m_stripGroup = LineGroupFor(StrokeState(m_strip, isStrip)); });
}

void DrawRecorder::AddToStrip(const point3Dtype& point, const std::array<float, 3>& color) {
  Try([&] {
    LineGroup& group = m_geometry.segments.back().lines[m_stripGroup];
    const Position end = ToFloats(Moved(point));
    if (group.state.isStrip == 0) {
      if (m_isStripOpen) AddLineVertices(m_stripGroup, m_stripEnd, end, color);
      m_stripEnd = end;
      m_isStripOpen = true;
      return;
    }
    RequireRoom(m_geometry.lineVertices.size(), 1);
    if (!m_isStripOpen) group.strips.push_back(static_cast<std::uint32_t>(group.indices.size()));
    m_isStripOpen = true;
    m_geometry.lineVertices.push_back({end, color});
    group.indices.push_back(static_cast<std::uint32_t>(m_geometry.lineVertices.size() - 1));
  });
}

void DrawRecorder::InterruptStrip() { m_isStripOpen = false; }

}  // namespace orvalix
