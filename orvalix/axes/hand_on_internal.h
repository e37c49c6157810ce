/// @file
/// How a frame hands properties on to a part that may not exist.
#pragma once

#include <functional>
#include <type_traits>

namespace orvalix {

/// Calls `work` with the part; nothing happens without one.
template <class Part, class Work>
void Apply(Part* part, Work&& work) {
  if (part != nullptr) work(*part);
}

/// What `getter` tells of the part; 0 without one.
template <class Part, class Getter>
auto Ask(Part* part, Getter getter) {
  using Value = std::decay_t<std::invoke_result_t<Getter, Part&>>;
  return part != nullptr ? std::invoke(getter, *part) : Value{};
}

}  // namespace orvalix
