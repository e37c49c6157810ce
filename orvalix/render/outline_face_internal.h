/// @file
/// What fonts ask of a platform: the outlines of an installed face. Each platform implements this
/// in one file of its own.
#pragma once

#include <vector>

#include "orvalix/host/host.h"
#include "orvalix/render/glyph_internal.h"

namespace orvalix {

/// A face and how its characters are wanted.
struct FaceRequest {
  CString name;            ///< family, such as "Arial"; another one is taken when there is none
  int weight = 400;        ///< 400 is normal, 700 bold; 0 leaves it to the platform
  bool italic = false;     ///< slanted when the family has no italic
  bool underline = false;  ///< a bar below each character
  int count = 0;           ///< characters, from code 0 of Windows Latin-1
  double deviation = 0;    ///< for curves, in em; 0 or below: one unit of the face's own grid
};

/// Loads the first `count` characters of the nearest face. Characters without a picture are empty;
/// those that the face doesn't have get its replacement picture.
/// @return nothing when no face with outlines is installed
/// @throws std::bad_alloc
std::vector<Glyph> LoadGlyphs(const FaceRequest& request);

}  // namespace orvalix
