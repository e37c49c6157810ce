/// @file
/// The places through which every error of the library leaves.
#pragma once

#include <new>
#include <stdexcept>
#include <utility>

#include "orvalix/foundation/err_3d.h"

namespace orvalix {

/// Throws the error; the one place for a breakpoint. The error tells no place when there is no
/// memory for its name.
[[noreturn]] void ThrowError(CErr3DTypes type, CErr3DClass errorClass, const char* place);

/// Runs `work`; when memory runs out (or an array can't be that long), throws the given error.
template <class Work>
auto WithAllocationErrors(CErr3DTypes type, CErr3DClass errorClass, const char* place,
                          Work&& work) {
  try {
    return std::forward<Work>(work)();
  } catch (const std::bad_alloc&) {
    ThrowError(type, errorClass, place);
  } catch (const std::length_error&) {
    ThrowError(type, errorClass, place);
  }
}

/// A copy of a text; type 2 when memory runs out.
inline CString CopyText(CString const& text, CErr3DClass errorClass, const char* place) {
  return WithAllocationErrors(ERR3D_ARRAY_NEW, errorClass, place, [&] { return text; });
}

/// Runs `work`, which reads or writes a file: a file exception becomes type 7, running out of
/// memory type 2.
template <class Work>
void WithFileErrors(CErr3DClass errorClass, const char* place, Work&& work) {
  try {
    WithAllocationErrors(ERR3D_ARRAY_NEW, errorClass, place, std::forward<Work>(work));
  } catch (CFileException* error) {
    error->Delete();
    ThrowError(ERR3D_DISK_IO, errorClass, place);
  }
}

}  // namespace orvalix
