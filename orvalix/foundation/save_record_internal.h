/// @file
/// How every class saves and loads its record: the one place that turns file errors into CErr3D.
#pragma once

#include <utility>

#include "orvalix/foundation/err_3d.h"
#include "orvalix/foundation/record_internal.h"
#include "orvalix/foundation/throw_error_internal.h"

namespace orvalix {

/// Writes a record: `work` gets a RecordWriter. A null file does nothing.
/// @throws CErr3D type 7 of that class, "Save"
template <class Work>
void SaveRecord(void* file, CErr3DClass errorClass, Work&& work) {
  if (file == nullptr) return;
  WithFileErrors(errorClass, "Save", [&] {
    RecordWriter writer(file);
    std::forward<Work>(work)(writer);
    writer.Flush();
  });
}

/// Reads a record: `work` gets a RecordReader. A null file does nothing.
/// @throws CErr3D of that class, "Load": type 7, or type 2 when memory runs out
template <class Work>
void LoadRecord(void* file, CErr3DClass errorClass, Work&& work) {
  if (file == nullptr) return;
  WithFileErrors(errorClass, "Load", [&] {
    RecordReader reader(file);
    CRecordTrace* const trace = CRecordTrace::Current();
    if (trace != nullptr) trace->BeginRecord(errorClass, reader.Offset());
    std::forward<Work>(work)(reader);
    if (trace != nullptr) trace->EndRecord(reader.Offset());
  });
}

}  // namespace orvalix
