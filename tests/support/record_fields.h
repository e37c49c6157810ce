/// @file
/// What the library reads of a file, field by field, as a list that tests look things up in.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "orvalix/foundation/err_3d.h"
#include "orvalix/foundation/record_trace.h"
#include "support/temporary_file.h"

namespace orvalix::test {

struct RecordField {
  CErr3DClass recordClass;
  std::string name;
  std::size_t begin;
  std::size_t end;
};

/// Gathers the fields that are read on its thread while it lives.
class RecordFields : public CRecordTrace {
 public:
  void BeginRecord(CErr3DClass recordClass, std::uint64_t) override {
    m_open.push_back(recordClass);
  }
  void EndRecord(std::uint64_t) override { m_open.pop_back(); }
  void BeginField(const char* name, std::uint64_t offset) override {
    const auto at = static_cast<std::size_t>(offset);
    m_fields.push_back({m_open.back(), name, at, at});
  }
  void EndField(const std::string&, std::uint64_t offset) override {
    m_fields.back().end = static_cast<std::size_t>(offset);
  }
  void MissField() override { m_fields.pop_back(); }

  const std::vector<RecordField>& All() const { return m_fields; }

 private:
  std::vector<CErr3DClass> m_open;
  std::vector<RecordField> m_fields;
};

/// Class and name of fields.
using FieldNames = std::set<std::pair<int, std::string>>;

/// The fields of a file that `load` reads.
template <class Load>
std::vector<RecordField> FieldsReadBy(Load&& load) {
  RecordFields fields;
  load();
  return fields.All();
}

/// The n-th field of that class and name, from 0.
inline const RecordField& FieldAt(const std::vector<RecordField>& fields, CErr3DClass recordClass,
                                  const std::string& name, int n = 0) {
  for (const RecordField& field : fields) {
    if (field.recordClass == recordClass && field.name == name && n-- == 0) return field;
  }
  throw std::out_of_range(name);
}

/// Which fields of two files with the same fields at the same places differ.
inline FieldNames Differences(const std::vector<RecordField>& fields, const Bytes& first,
                              const Bytes& second) {
  FieldNames names;
  EXPECT_EQ(first.size(), second.size());
  if (first.size() != second.size()) return names;
  EXPECT_EQ(fields.back().end, first.size());
  for (const RecordField& field : fields) {
    const std::size_t size = field.end - field.begin;
    if (std::memcmp(&first[field.begin], &second[field.begin], size) != 0) {
      names.emplace(field.recordClass, field.name);
    }
  }
  return names;
}

/// Without the fields named "counter", which count objects of the process.
inline FieldNames WithoutCounters(FieldNames names) {
  std::erase_if(names, [](const auto& name) { return name.second == "counter"; });
  return names;
}

}  // namespace orvalix::test
