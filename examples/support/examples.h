/// @file
/// All examples that draw a picture, in the order in which the gallery shows them.
#pragma once

#include <span>

#include "support/run.h"

namespace examples {

struct Example {
  const char* name;   ///< of its source and of its picture
  const char* title;  ///< the first line of its source
  Draw draw;
};

std::span<const Example> Examples();

}  // namespace examples
