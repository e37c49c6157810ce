/// @file
/// Reading and writing records. A class lists its persisted fields once, by name and in file order,
/// in a routine that takes either a RecordWriter or a RecordReader; both have the same members.
///
/// Numbers are little-endian (integers 32 bits, reals 64), colours and points their numbers in
/// order, with nothing between the fields.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

#include "orvalix/foundation/record_source_internal.h"
#include "orvalix/foundation/record_text_internal.h"
#include "orvalix/foundation/record_trace.h"
#include "orvalix/foundation/value_types.h"
#include "orvalix/host/host.h"

namespace orvalix {

/// Arrays of numbers, points and colours lie in memory as they do in files.
template <class T>
inline constexpr bool kIsStoredAsInMemory =
    std::is_trivially_copyable_v<T>&& std::endian::native == std::endian::little;

/// Gathers a record and writes it to an open file. Failing writes raise CFileException*.
class RecordWriter {
 public:
  static constexpr bool kReading = false;

  explicit RecordWriter(void* file);
  RecordWriter(const RecordWriter&) = delete;
  RecordWriter& operator=(const RecordWriter&) = delete;

  void Field(const char* name, const int& value);
  void Field(const char* name, const double& value);
  void Field(const char* name, const point3Dtype& value);
  void Field(const char* name, const RGBDType& value);
  void Field(const char* name, const GLViewportType& value);
  void Field(const char* name, const GLViewRType& value);
  /// A length and the bytes of the text.
  void Field(const char* name, const CString& value);

  /// The elements of an array of fixed size.
  template <class T, std::size_t N>
  void Fields(const char* name, const std::array<T, N>& values) {
    for (const T& value : values) Field(name, value);
  }
  /// The first `count` elements of an array whose number is known from an earlier field. An array
  /// that doesn't hold them raises CFileException*: such a file could not be read again.
  template <class T>
  void Array(const char*, const std::vector<T>& values, std::int64_t count) {
    static_assert(kIsStoredAsInMemory<T>);
    RequireElements(count, values.size());
    AppendBytes(values.data(), static_cast<std::size_t>(count) * sizeof(T));
  }
  /// The same for texts.
  void Array(const char* name, const std::vector<CString>& values, std::int64_t count);
  /// A number of elements that follow.
  void Count(const char* name, const int& count, std::size_t leastBytesPerElement);
  /// The record of an owned object.
  template <class T>
  void Child(const T& object) {
    Flush();
    object.Save(m_file);
  }
  /// Writes what has been gathered.
  void Flush();

 private:
  void Append(std::uint64_t bits, unsigned bytes);
  void AppendBytes(const void* data, std::size_t size);
  /// Raises CFileException* unless `count` is a number of elements that are there.
  static void RequireElements(std::int64_t count, std::size_t elements);

  void* m_file;                        ///< handle of the open file, not owned
  std::vector<unsigned char> m_bytes;  ///< gathered and not yet written
};

/// Reads a record from an open file. A field that the file no longer holds keeps its value, and so
/// do all fields after it. Numbers of elements are held against what is left of the file before
/// anything is allocated; numbers that can't be true, and failing reads, raise CFileException*.
///
/// A file that has no end to tell isn't trusted with more than ten thousand elements of a list, nor
/// with more than 256 MiB of an array.
class RecordReader {
 public:
  static constexpr bool kReading = true;

  explicit RecordReader(void* file);
  RecordReader(const RecordReader&) = delete;
  RecordReader& operator=(const RecordReader&) = delete;

  /// A number, point, colour, rectangle or text. A text ends at its first zero byte.
  template <class T>
  void Field(const char* name, T& value) {
    Traced(
        name, [&] { Get(value); }, [&] { return TextOf(value); });
  }
  /// The elements of an array of fixed size.
  template <class T, std::size_t N>
  void Fields(const char* name, std::array<T, N>& values) {
    Traced(
        name,
        [&] {
          for (T& value : values) Get(value);
        },
        [&] { return TextOfAll(values); });
  }
  /// Makes `values` the next `count` elements. `count` comes from the file: it is not trusted.
  template <class T>
  void Array(const char* name, std::vector<T>& values, std::int64_t count) {
    if (m_ended) return;
    Traced(
        name, [&] { values = TakeElements<T>(count); }, [&] { return TextOfArray(values); });
  }
  /// A number of elements that follow, each of at least that many bytes.
  void Count(const char* name, int& count, std::size_t leastBytesPerElement) {
    Traced(
        name, [&] { GetCount(count, leastBytesPerElement); }, [&] { return TextOf(count); });
  }
  /// True when a field was missing: nothing more is read.
  bool HasEnded() const { return m_ended; }
  /// The record of an owned object.
  template <class T>
  void Child(T& object) {
    object.Load(m_file);
  }
  /// Bytes in front of the next one.
  std::uint64_t Offset() const { return m_source->Offset(); }

 private:
  /// Reads a field, and tells who watches.
  template <class Read, class Text>
  void Traced(const char* name, Read read, Text text) {
    CRecordTrace* const trace = m_ended ? nullptr : CRecordTrace::Current();
    if (trace != nullptr) trace->BeginField(name, Offset());
    read();
    if (trace == nullptr) return;
    if (m_ended) {
      trace->MissField();
    } else {
      trace->EndField(text(), Offset());
    }
  }
  void Get(int& value);
  void Get(double& value);
  void Get(point3Dtype& value);
  void Get(RGBDType& value);
  void Get(GLViewportType& value);
  void Get(GLViewRType& value);
  void Get(CString& value);
  void GetCount(int& count, std::size_t leastBytesPerElement);
  /// Raises CFileException* unless `count` elements of that many bytes can still be in the file.
  /// @return how many to read at once: all that are known to be there, else a block
  std::size_t RequireRoom(std::int64_t count, std::size_t bytesPerElement) const;
  /// Fills `bytes`; false, and no more reading, when the file no longer holds them.
  bool Take(std::span<unsigned char> bytes);
  template <class Number, std::size_t N>
  bool TakeNumbers(std::array<Number, N>& numbers);
  /// The next `count` elements; raises CFileException* when the file doesn't hold them.
  template <class T>
  std::vector<T> TakeElements(std::int64_t count) {
    if constexpr (std::is_same_v<T, CString>) {
      return TakeTexts(count);
    } else {
      static_assert(kIsStoredAsInMemory<T>);
      const std::size_t atOnce = RequireRoom(count, sizeof(T));
      std::vector<T> elements;
      for (auto left = static_cast<std::size_t>(count); left > 0;) {
        const std::size_t block = std::min(left, atOnce);
        elements.resize(elements.size() + block);
        const auto bytes = std::as_writable_bytes(std::span(elements).last(block));
        if (!Take({reinterpret_cast<unsigned char*>(bytes.data()), bytes.size()})) ThrowEnd();
        left -= block;
      }
      return elements;
    }
  }
  std::vector<CString> TakeTexts(std::int64_t count);
  [[noreturn]] static void ThrowEnd();

  void* m_file;                       ///< handle of the open file, not owned
  std::optional<RecordSource> m_own;  ///< when this isn't within another record of the file
  RecordSource* m_source;             ///< where the bytes come from
  bool m_ended = false;               ///< a field was missing: nothing more is read
};

}  // namespace orvalix
