/// @file
/// Light that makes a face one colour.
#pragma once

namespace orvalix {

/// True when OpenGL's lights give all of a flat face one colour: they come, and it is looked at,
/// along one direction.
bool IsLightEven();

}  // namespace orvalix
