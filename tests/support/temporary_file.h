/// @file
/// A file that is gone at the end of the test.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "orvalix/host/host.h"

namespace orvalix::test {

using Bytes = std::vector<unsigned char>;

class TemporaryFile {
 public:
  TemporaryFile() {
    static int count = 0;
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(info->test_suite_name()) + "_" + info->name();
    std::replace(name.begin(), name.end(), '/', '_');  // of tests with parameters
    m_path = ::testing::TempDir() + "orvalix_" + name + "_" + std::to_string(count++);
  }
  explicit TemporaryFile(const Bytes& content) : TemporaryFile() {
    std::ofstream(m_path, std::ios::binary)
        .write(reinterpret_cast<const char*>(content.data()),
               static_cast<std::streamsize>(content.size()));
  }
  ~TemporaryFile() { std::remove(m_path.c_str()); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const char* Path() const { return m_path.c_str(); }

  Bytes Read() const {
    std::ifstream in(m_path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

 private:
  std::string m_path;
};

/// What object.Save() writes.
template <class T>
Bytes Saved(const T& object) {
  const TemporaryFile file;
  CFile out;
  EXPECT_TRUE(out.Open(file.Path(), CFile::modeCreate | CFile::modeWrite));
  object.Save(out.m_hFile);
  out.Close();
  return file.Read();
}

/// object.Load() of those bytes.
template <class T>
void LoadFrom(T& object, const Bytes& bytes) {
  const TemporaryFile file(bytes);
  CFile in;
  EXPECT_TRUE(in.Open(file.Path(), CFile::modeRead));
  object.Load(in.m_hFile);
}

}  // namespace orvalix::test
