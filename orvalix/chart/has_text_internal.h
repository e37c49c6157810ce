/// @file
/// Texts that may be empty.
#pragma once

#include "orvalix/render/text_obj_3d.h"

namespace orvalix {

/// True when there is something to draw: a text of spaces counts, one without a font doesn't.
inline bool HasText(const CTextObj3D& text) { return text.TextWidth() != 0.0; }

}  // namespace orvalix
