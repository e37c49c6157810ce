#include "orvalix/foundation/persisted_string.h"

#include "orvalix/foundation/record_internal.h"
#include "orvalix/foundation/throw_error_internal.h"

void WriteCString(void* file, CString const& s) {
  if (file == nullptr) return;
  orvalix::WithFileErrors(ERR3DCLASS_NONE, "WriteCString", [&] {
    orvalix::RecordWriter writer(file);
    writer.Field("text", s);
    writer.Flush();
  });
}

void ReadCString(void* file, CString& s) {
  if (file == nullptr) return;
  orvalix::WithFileErrors(ERR3DCLASS_NONE, "ReadCString", [&] {
    orvalix::RecordReader reader(file);
    reader.Field("text", s);
  });
}
