#include "orvalix/host/file_replacement_internal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <utility>

#include "orvalix/host/file_handle_internal.h"

namespace orvalix {
namespace {

/// What permissions say, without the kind of file.
constexpr mode_t kPermissions = 07777;
constexpr mode_t kNewFilePermissions = 0666;  // less what the process's mask takes away

struct FreeMemory {
  void operator()(char* memory) const { std::free(memory); }
};

/// The name without links in it; as it is when nothing of that name can be reached.
std::string Resolved(const char* fileName) {
  const std::unique_ptr<char, FreeMemory> resolved(::realpath(fileName, nullptr));
  return resolved != nullptr ? resolved.get() : fileName;
}

/// A name in the same folder that no other save of this process uses.
std::string NameBeside(const std::string& target) {
  static std::atomic<unsigned> saves{0};
  const std::size_t folderEnd = target.rfind('/') + 1;  // 0 without a folder
  return target.substr(0, folderEnd) + ".orvalix-" + std::to_string(::getpid()) + "-" +
         std::to_string(saves++) + ".tmp";
}

/// True for a file that nobody misses when another takes its place.
bool IsReplaceable(const struct stat& status) {
  return S_ISREG(status.st_mode) && status.st_nlink == 1 && status.st_uid == ::geteuid();
}

}  // namespace

FileReplacement::~FileReplacement() {
  m_file.Abort();
  if (!m_temporary.empty()) ::unlink(m_temporary.c_str());
}

bool FileReplacement::Open(const char* fileName) {
  if (fileName == nullptr || *fileName == '\0') return false;
  try {
    struct stat status {};
    const bool isThere = ::lstat(fileName, &status) == 0;
    if (isThere) {
      // Whoever may not write the file may not replace it either.
      CFile before;
      if (::stat(fileName, &status) == 0 && !before.Open(fileName, CFile::modeWrite)) return false;
    }
    const bool isBeside = (!isThere || IsReplaceable(status)) &&
                          OpenBeside(Resolved(fileName), isThere ? &status : nullptr);
    return isBeside || m_file.Open(fileName, CFile::modeCreate | CFile::modeWrite);
  } catch (const std::bad_alloc&) {
    return false;
  }
}

bool FileReplacement::OpenBeside(const std::string& target, const struct stat* before) {
  std::string name = NameBeside(target);
  m_target = target;
  const int descriptor =
      ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFilePermissions);
  if (descriptor == -1) return false;
  m_temporary = std::move(name);
  m_file.m_hFile = HandleOfDescriptor(descriptor);
  if (before == nullptr || ::fchmod(descriptor, before->st_mode & kPermissions) == 0) return true;
  m_file.Abort();
  ::unlink(m_temporary.c_str());
  m_temporary.clear();
  return false;
}

void FileReplacement::Commit() {
  m_file.Close();
  if (m_temporary.empty()) return;
  if (::rename(m_temporary.c_str(), m_target.c_str()) != 0) {
    const int error = errno;
    AfxThrowFileException(CFileException::OsErrorToException(error), error);
  }
  m_temporary.clear();
}

}  // namespace orvalix
