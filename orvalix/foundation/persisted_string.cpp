#include "orvalix/foundation/persisted_string.h"

#include "orvalix/foundation/record_internal.h"

void WriteCString(void* file, CString const& s) {
  if (file == nullptr) return;
  orvalix::RecordWriter writer(file);
  writer.Field(s);
  writer.Flush();
}

void ReadCString(void* file, CString& s) {
  if (file == nullptr) return;
  orvalix::RecordReader reader(file);
  reader.Field(s);
}
