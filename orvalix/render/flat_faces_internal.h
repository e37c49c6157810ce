/// @file
/// Faces of one colour.
#pragma once

namespace orvalix {

/// True when OpenGL gives all of a face one colour, that of any of its vertices: light comes, and
/// is looked at, along one direction, and nothing else depends on the normals of vertices.
bool AreFacesFlat();

}  // namespace orvalix
