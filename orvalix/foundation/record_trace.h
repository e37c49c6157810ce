/// @file
/// Watching records while they are read.
#pragma once

#include <cstdint>
#include <string>

#include "orvalix/foundation/err_3d.h"

/// Addition: is told, while it lives, of every record that is read on its thread, field by field: a
/// chart file or polysurface file can be shown as the library reads it. Derive from it, make one,
/// and load the file. One made while another lives is told instead of that one until it goes.
///
/// Offsets are bytes from the start of the file; in files without positions, such as pipes, from
/// where the outermost record begins.
class ORVALIX_API CRecordTrace {
 public:
  CRecordTrace();
  virtual ~CRecordTrace();
  CRecordTrace(const CRecordTrace&) = delete;
  CRecordTrace& operator=(const CRecordTrace&) = delete;

  /// The one that is told on this thread; null when there is none.
  static CRecordTrace* Current();

  /// A record of that class begins; records within it follow before it ends.
  virtual void BeginRecord(CErr3DClass recordClass, std::uint64_t offset) = 0;
  /// The record begun last ends. Records that can't be read don't end.
  virtual void EndRecord(std::uint64_t offset) = 0;
  /// A field is about to be read. docs/chart-file.md tells the names.
  virtual void BeginField(const char* name, std::uint64_t offset) = 0;
  /// The field begun last has been read.
  /// @param value as text; of long arrays the first few
  virtual void EndField(const std::string& value, std::uint64_t offset) = 0;
  /// The file ends within the field begun last, which keeps its value, as do the fields after it in
  /// this record; these aren't told of.
  virtual void MissField() = 0;

 private:
  CRecordTrace* m_outer;  ///< told before and afterwards
};
