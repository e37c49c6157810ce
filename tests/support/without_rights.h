/// @file
/// Permissions stop every user but one: tests about them run as another.
#pragma once

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>

namespace orvalix::test {

/// A user, and a group, without any rights.
inline constexpr unsigned kNobody = 65534;

/// Gives a file or folder to the user that RunWithoutRights() runs as.
inline void GiveAway(const char* path) {
  if (::geteuid() != 0) return;
  ASSERT_EQ(::chown(path, kNobody, kNobody), 0) << path;
}

/// Runs `work` in a process of its own, by a user whom permissions stop, and expects that nothing
/// in it fails.
template <class Work>
void RunWithoutRights(Work&& work) {
  std::fflush(nullptr);
  const pid_t child = ::fork();
  ASSERT_NE(child, -1);
  if (child == 0) {
    const bool isReady = ::geteuid() != 0 || (::setgroups(0, nullptr) == 0 &&
                                              ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
    bool isDone = false;
    try {
      if (isReady) work();
      isDone = isReady;
    } catch (const std::exception& error) {
      std::fprintf(stderr, "%s\n", error.what());
    }
    std::fflush(nullptr);
    ::_exit(isDone && !::testing::Test::HasFailure() ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0) << "see what the other process has written";
}

}  // namespace orvalix::test
