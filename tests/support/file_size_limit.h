/// @file
/// Disks that fill up.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace orvalix::test {

/// Lets no file grow beyond some bytes while it lives.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : m_handler(signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_limit);
    const rlimit limit{bytes, m_limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &m_limit);
    signal(SIGXFSZ, m_handler);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  void (*m_handler)(int);
  rlimit m_limit{};
};

}  // namespace orvalix::test
