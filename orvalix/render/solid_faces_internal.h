/// @file
/// How the eight corners of a solid make its faces and edges.
#pragma once

#include <array>
#include <cstddef>

#include "orvalix/foundation/value_types.h"

namespace orvalix {

struct SolidFace {
  std::size_t flag;                    ///< index of the face's flag
  std::array<std::size_t, 4> corners;  ///< seen from outside counterclockwise
};

/// In drawing order.
inline constexpr std::array<SolidFace, 6> kSolidFaces{{{0, {0, 3, 7, 4}},
                                                       {5, {1, 5, 6, 2}},
                                                       {1, {0, 4, 5, 1}},
                                                       {2, {3, 2, 6, 7}},
                                                       {3, {0, 1, 2, 3}},
                                                       {4, {4, 7, 6, 5}}}};

/// An edge from one corner of a face to its next one.
struct SolidEdge {
  std::size_t face;
  std::size_t corner;  ///< place in the face's corners
  std::size_t other;   ///< the face on the other side
};

/// Each edge once.
constexpr std::array<SolidEdge, 12> FindSolidEdges() {
  std::array<SolidEdge, 12> edges{};
  std::size_t count = 0;
  for (std::size_t face = 0; face < kSolidFaces.size(); ++face) {
    for (std::size_t corner = 0; corner < 4; ++corner) {
      const std::size_t from = kSolidFaces[face].corners[corner];
      const std::size_t to = kSolidFaces[face].corners[(corner + 1) % 4];
      for (std::size_t other = face + 1; other < kSolidFaces.size(); ++other) {
        for (std::size_t i = 0; i < 4; ++i) {
          const bool meets = kSolidFaces[other].corners[i] == to &&
                             kSolidFaces[other].corners[(i + 1) % 4] == from;
          if (meets) edges[count++] = {face, corner, other};
        }
      }
    }
  }
  return edges;
}

inline constexpr std::array<SolidEdge, 12> kSolidEdges = FindSolidEdges();

/// Where the faces of a solid look.
struct SolidSides {
  bool isClosed = false;  ///< convex, or a flat plate; otherwise the rest isn't known
  std::array<std::array<double, 3>, 6> outward{};  ///< normals of length 1
  std::array<bool, 6> hasNoArea{};                 ///< faces that show nothing
};

SolidSides FindSides(const std::array<point3Dtype, 8>& corners);

}  // namespace orvalix
