/// @file
/// The file behind the records that are being read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace orvalix {

/// Reads a file in blocks, for as long as the outermost of its records is being read: the records
/// within find it by its handle. When it goes, the file stands behind what was taken.
///
/// A file that has no end to tell, such as a pipe, is read no further than asked for.
class RecordSource {
 public:
  /// What BytesLeft() says of a pipe or a device.
  static constexpr std::uint64_t kUnknownLength = std::numeric_limits<std::uint64_t>::max();

  /// @param file handle of an open file, not owned
  explicit RecordSource(void* file);
  ~RecordSource();
  RecordSource(const RecordSource&) = delete;
  RecordSource& operator=(const RecordSource&) = delete;

  /// The source of a file that is being read on this thread; null when there is none.
  static RecordSource* Of(void* file);

  /// Takes up to `size` bytes.
  /// @return the bytes taken: fewer only at the end of the file
  /// @throws CFileException*, and std::bad_alloc for the block
  std::size_t Take(void* data, std::size_t size);
  /// Bytes to the end of the file, or kUnknownLength.
  std::uint64_t BytesLeft() const;
  /// Bytes in front of the next one.
  std::uint64_t Offset() const { return m_offset; }

 private:
  std::size_t TakeFromBlock(unsigned char* data, std::size_t size);

  void* m_file;
  RecordSource* m_outer;   ///< being read on this thread meanwhile, of another file
  std::uint64_t m_end;     ///< offset of the end when reading began, or kUnknownLength
  std::uint64_t m_offset;  ///< of the next byte to take
  std::vector<unsigned char> m_block;
  std::size_t m_next = 0;  ///< of m_block, the first byte that wasn't taken yet
};

}  // namespace orvalix
