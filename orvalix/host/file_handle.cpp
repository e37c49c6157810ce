#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include "orvalix/host/file.h"
#include "orvalix/host/file_handle_internal.h"

namespace orvalix {
namespace {

/// The most that one call of the system is asked for.
constexpr std::size_t kLargestChunk = std::size_t{1} << 30;

[[noreturn]] void ThrowSystemError() {
  const int error = errno;
  AfxThrowFileException(CFileException::OsErrorToException(error), error);
}

/// Asks the file system for the room of a large write: it then needn't look for it, and bring
/// everything to the disk, when the file takes the place of another one. Where it can't, writing
/// tells.
void MakeRoom(int descriptor, std::size_t size) {
  constexpr std::size_t kLarge = std::size_t{1} << 20;
  if (size < kLarge) return;
  const off_t position = ::lseek(descriptor, 0, SEEK_CUR);
  if (position < 0) return;
  ::fallocate(descriptor, FALLOC_FL_KEEP_SIZE, position, static_cast<off_t>(size));
}

/// Repeats a call of the system that a signal interrupts.
template <class Call>
std::size_t Transfer(Call&& call) {
  for (;;) {
    const ssize_t moved = call();
    if (moved >= 0) return static_cast<std::size_t>(moved);
    if (errno != EINTR) ThrowSystemError();
  }
}

}  // namespace

void WriteToHandle(void* file, const void* data, std::size_t size) {
  const int descriptor = DescriptorOfHandle(file);
  MakeRoom(descriptor, size);
  const char* next = static_cast<const char*>(data);
  while (size > 0) {
    const std::size_t moved =
        Transfer([&] { return ::write(descriptor, next, std::min(size, kLargestChunk)); });
    // A device that takes nothing and reports nothing would keep this loop for ever.
    if (moved == 0) AfxThrowFileException(CFileException::diskFull, ENOSPC);
    next += moved;
    size -= moved;
  }
}

std::size_t ReadFromHandle(void* file, void* data, std::size_t size) {
  const int descriptor = DescriptorOfHandle(file);
  char* next = static_cast<char*>(data);
  std::size_t total = 0;
  while (total < size) {
    const std::size_t moved = Transfer(
        [&] { return ::read(descriptor, next + total, std::min(size - total, kLargestChunk)); });
    if (moved == 0) break;
    total += moved;
  }
  return total;
}

std::uint64_t BytesLeft(void* file) noexcept {
  constexpr std::uint64_t kUnknown = std::numeric_limits<std::uint64_t>::max();
  const int descriptor = DescriptorOfHandle(file);
  struct stat status {};
  if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return kUnknown;
  const off_t position = ::lseek(descriptor, 0, SEEK_CUR);
  if (position < 0) return kUnknown;
  return position < status.st_size ? static_cast<std::uint64_t>(status.st_size - position) : 0;
}

std::uint64_t PositionOf(void* file) noexcept {
  const off_t position = ::lseek(DescriptorOfHandle(file), 0, SEEK_CUR);
  return position < 0 ? 0 : static_cast<std::uint64_t>(position);
}

void MoveBack(void* file, std::size_t bytes) noexcept {
  if (bytes != 0) ::lseek(DescriptorOfHandle(file), -static_cast<off_t>(bytes), SEEK_CUR);
}

// One is added so that descriptor 0 is no null handle; then -1 comes out as null, which the handle
// of no file is not.
void* HandleOfDescriptor(int descriptor) noexcept {
  if (descriptor < 0) return CFile::hFileNull;
  return reinterpret_cast<void*>(static_cast<std::intptr_t>(descriptor) + 1);
}

int DescriptorOfHandle(void* file) noexcept {
  const auto value = reinterpret_cast<std::intptr_t>(file);
  return value > 0 && value <= std::numeric_limits<int>::max() ? static_cast<int>(value - 1) : -1;
}

}  // namespace orvalix
