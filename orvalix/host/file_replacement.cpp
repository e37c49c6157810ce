#include "orvalix/host/file_replacement_internal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "orvalix/host/file_handle_internal.h"

namespace orvalix {
namespace {

/// What permissions say, without the kind of file.
constexpr mode_t kPermissions = 07777;
/// Of new files, less what the process's mask takes away; and while permissions are still to come.
constexpr mode_t kNewFilePermissions = 0666;
constexpr mode_t kOwnerOnly = 0600;

/// Names that are tried beside a file: others may have left theirs behind.
constexpr int kMostNames = 100;

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
bool IsReplaceable(const char* fileName, const struct stat& status) {
  const bool hasAccessList = ::getxattr(fileName, "system.posix_acl_access", nullptr, 0) > 0;
  return status.st_nlink == 1 && status.st_uid == ::geteuid() && !hasAccessList;
}

/// True for what is wrong with a folder that takes no new files, though its files can be written.
bool RefusesNewFiles(int error) {
  return error == EACCES || error == EPERM || error == EROFS || error == ENAMETOOLONG;
}

/// Gives a file the group and the permissions of another one.
bool TakeRights(int descriptor, const struct stat& from) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) return false;
  constexpr uid_t kSameOwner = static_cast<uid_t>(-1);
  if (status.st_gid != from.st_gid && ::fchown(descriptor, kSameOwner, from.st_gid) != 0) {
    return false;
  }
  return ::fchmod(descriptor, from.st_mode & kPermissions) == 0;
}

/// Writes the bytes of one file into another one, in place.
void CopyInto(const char* target, const char* source) {
  CFile in(source, CFile::modeRead);
  CFile out(target, CFile::modeCreate | CFile::modeWrite);
  std::vector<unsigned char> block(std::size_t{1} << 16);
  for (;;) {
    const UINT count = in.Read(block.data(), static_cast<UINT>(block.size()));
    if (count == 0) break;
    out.Write(block.data(), count);
  }
  out.Close();
}

}  // namespace

FileReplacement::~FileReplacement() {
  m_file.Abort();
  if (!m_temporary.empty()) ::unlink(m_temporary.c_str());
}

bool FileReplacement::Open(const char* fileName) {
  if (fileName == nullptr || *fileName == '\0') return false;
  try {
    return OpenBesideOrInPlace(fileName);
  } catch (const std::bad_alloc&) {
    return false;
  }
}

bool FileReplacement::OpenBesideOrInPlace(const char* fileName) {
  struct stat link {};
  struct stat status {};
  const bool isThere = ::lstat(fileName, &link) == 0;
  const bool isFile = ::stat(fileName, &status) == 0 && S_ISREG(status.st_mode);
  if (isFile) {
    // Whoever may not write the file may not replace it either.
    CFile before;
    if (!before.Open(fileName, CFile::modeWrite)) return false;
  }
  const bool isReplaced = isFile ? IsReplaceable(fileName, status) : !isThere;
  if (isReplaced) {
    const int error = OpenBeside(Resolved(fileName), isFile ? &status : nullptr);
    if (error == 0) return true;
    // A full disk, for one, must not cost the file that is there.
    if (!RefusesNewFiles(error)) return false;
  }
  return m_file.Open(fileName, CFile::modeCreate | CFile::modeWrite) != FALSE;
}

int FileReplacement::OpenBeside(const std::string& target, const struct stat* before) {
  m_target = target;
  for (int i = 0; i < kMostNames; ++i) {
    std::string name = NameBeside(target);
    const int descriptor = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                                  before != nullptr ? kOwnerOnly : kNewFilePermissions);
    if (descriptor == -1 && errno == EEXIST) continue;
    if (descriptor == -1) return errno;
    m_temporary = std::move(name);
    m_file.m_hFile = HandleOfDescriptor(descriptor);
    if (before == nullptr || TakeRights(descriptor, *before)) return 0;
    m_file.Abort();
    ::unlink(m_temporary.c_str());
    m_temporary.clear();
    return EPERM;
  }
  return EEXIST;
}

void FileReplacement::Commit() {
  m_file.Close();
  if (m_temporary.empty()) return;
  if (::rename(m_temporary.c_str(), m_target.c_str()) != 0) {
    const int error = errno;
    // A file that is itself a mount can't be moved over, but written.
    if (error != EBUSY) {
      AfxThrowFileException(CFileException::OsErrorToException(error), error);
    }
    CopyInto(m_target.c_str(), m_temporary.c_str());
    ::unlink(m_temporary.c_str());
  }
  m_temporary.clear();
}

}  // namespace orvalix
