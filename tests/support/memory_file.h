/// @file
/// A file in memory, reached by a name: quick enough for very many contents.
#pragma once

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace orvalix::test {

class MemoryFile {
 public:
  MemoryFile()
      : m_descriptor(memfd_create("orvalix", MFD_CLOEXEC)),
        m_path("/proc/self/fd/" + std::to_string(m_descriptor)) {
    if (m_descriptor == -1) std::abort();
  }
  ~MemoryFile() { close(m_descriptor); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  void Fill(const std::uint8_t* data, std::size_t size) const {
    const bool isFilled = pwrite(m_descriptor, data, size, 0) == static_cast<ssize_t>(size) &&
                          ftruncate(m_descriptor, static_cast<off_t>(size)) == 0;
    if (!isFilled) std::abort();
  }
  void Fill(const std::vector<unsigned char>& content) const {
    Fill(content.data(), content.size());
  }
  std::vector<unsigned char> Read() const {
    struct stat status {};
    if (fstat(m_descriptor, &status) != 0) std::abort();
    std::vector<unsigned char> content(static_cast<std::size_t>(status.st_size));
    const ssize_t read = pread(m_descriptor, content.data(), content.size(), 0);
    if (read != static_cast<ssize_t>(content.size())) std::abort();
    return content;
  }
  const char* Path() const { return m_path.c_str(); }

 private:
  int m_descriptor;
  std::string m_path;
};

}  // namespace orvalix::test
