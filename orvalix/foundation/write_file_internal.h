/// @file
/// How every class writes a file of its own.
#pragma once

#include <utility>

#include "orvalix/foundation/throw_error_internal.h"
#include "orvalix/host/file_replacement_internal.h"

namespace orvalix {

/// Writes a file: `work` gets it open. A file of that name stays as it was until the new one is
/// complete (FileReplacement), and when it can't be completed.
/// @throws CErr3D of that class and place: type 6 when the file can't be written, type 7 when
///   writing fails, type 2 when memory runs out, and what `work` throws
template <class Work>
void WriteWholeFile(const char* fileName, CErr3DClass errorClass, const char* place, Work&& work) {
  FileReplacement replacement;
  if (!replacement.Open(fileName)) ThrowError(ERR3D_FILE_OPEN_OUTPUT, errorClass, place);
  WithFileErrors(errorClass, place, [&] {
    std::forward<Work>(work)(replacement.File());
    replacement.Commit();
  });
}

}  // namespace orvalix
