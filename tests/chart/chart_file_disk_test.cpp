/// Disks that are full, files that aren't files, and folders that take none.

#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

#include "chart/full_view.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/file_size_limit.h"
#include "support/without_rights.h"

namespace {

namespace fs = std::filesystem;
using namespace orvalix::test;

const Bytes kBefore{'b', 'e', 'f', 'o', 'r', 'e'};

/// A folder of its own for each test.
class ChartFileDisk : public ::testing::Test {
 protected:
  ChartFileDisk() : m_folder(::testing::TempDir() + "orvalix_disk_" + std::to_string(::getpid())) {
    fs::create_directory(m_folder);
  }
  ~ChartFileDisk() override {
    fs::permissions(m_folder, fs::perms::owner_all);
    fs::remove_all(m_folder);
  }

  std::string Path(const char* name) const { return m_folder / name; }
  static Bytes Read(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  static void Put(const std::string& path, const Bytes& bytes) {
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
  }
  std::ptrdiff_t FilesInFolder() const {
    return std::distance(fs::directory_iterator(m_folder), fs::directory_iterator());
  }

  /// Saves over a file on a disk that takes fewer bytes than are saved, for many such numbers.
  void ExpectKept(const CaughtError& error, const std::function<void(const CString&)>& save) {
    constexpr std::uintmax_t kSteps = 60;
    const std::string path = Path("file");
    save(path.c_str());
    const std::uintmax_t whole = fs::file_size(path);
    for (std::uintmax_t step = 0; step <= kSteps; ++step) {
      const std::uintmax_t limit = (whole - 1) * step / kSteps;
      SCOPED_TRACE(limit);
      Put(path, kBefore);
      CaughtError caught = kNoError;
      {
        const FileSizeLimit full(limit);
        caught = Catch([&] { save(path.c_str()); });
      }
      caught.errorClass = error.errorClass;  // that of the record in which the disk was full
      EXPECT_EQ(caught, error);
      EXPECT_EQ(Read(path), kBefore);
      EXPECT_EQ(FilesInFolder(), 1);
    }
    const FileSizeLimit enough(whole);
    EXPECT_EQ(Catch([&] { save(path.c_str()); }), kNoError);
    EXPECT_EQ(Read(path).size(), whole);
  }

  fs::path m_folder;
};

TEST_F(ChartFileDisk, FullOnesKeepTheChartFileBefore) {
  const FullView full;
  ExpectKept({7, 6, "Save"}, [&](const CString& name) { full.view->Save(name); });
}

TEST_F(ChartFileDisk, FullOnesKeepThePicturesBefore) {
  FullView full;
  ExpectKept({7, 9, "SaveDIB"}, [&](const CString& name) { full.view->SaveToFile(name); });
  ExpectKept({7, 6, "SaveToPng"}, [&](const CString& name) { full.view->SaveToPng(name); });
}

TEST_F(ChartFileDisk, FullOnesKeepThePolysurfaceFileBefore) {
  const std::array<double, 4> values{1.0, 2.0, 3.0, 4.0};
  const CPolysurface mesh(2, 2, 0.0, 0.0, 1.0, 1.0, values.data(), 1);
  ExpectKept({7, 18, "Save"}, [&](const CString& name) { mesh.Save(name); });
}

TEST_F(ChartFileDisk, WhatIsNoFileIsNotWritten) {
  const FullView full;
  const std::string missing = Path("no_folder") + "/file";
  const CaughtError noFile{6, 6, "Save"};
  EXPECT_EQ(Catch([&] { full.view->Save(m_folder.c_str()); }), noFile);
  EXPECT_EQ(Catch([&] { full.view->Save(missing.c_str()); }), noFile);
  EXPECT_EQ(Catch([&] { full.view->Save(""); }), noFile);
  EXPECT_EQ(FilesInFolder(), 0);
  const CaughtError error = Catch([&] { full.view->Save("/dev/full"); });
  EXPECT_EQ(error.type, 7);
  EXPECT_EQ(error.place, "Save");
}

TEST_F(ChartFileDisk, WhatMayNotBeWrittenIsNotWritten) {
  const FullView full;
  GiveAway(m_folder.c_str());
  const CString file = Path("file").c_str();
  const CString other = Path("other").c_str();
  const CaughtError noFile{6, 6, "Save"};
  RunWithoutRights([&] {
    Put(Path("file"), kBefore);
    ::chmod(file, 0440);
    EXPECT_EQ(Catch([&] { full.view->Save(file); }), noFile);
    EXPECT_EQ(Read(Path("file")), kBefore);
    ::chmod(m_folder.c_str(), 0550);
    EXPECT_EQ(Catch([&] { full.view->Save(other); }), noFile);
    EXPECT_EQ(FilesInFolder(), 1);
    ::chmod(file, 0640);  // written in place: the folder takes no new file
    EXPECT_EQ(Catch([&] { full.view->Save(file); }), kNoError);
    EXPECT_GT(Read(Path("file")).size(), kBefore.size());
    EXPECT_EQ(FilesInFolder(), 1);
  });
}

TEST_F(ChartFileDisk, WhatMayNotBeReadIsNotLoaded) {
  const FullView full;
  GiveAway(m_folder.c_str());
  const CString file = Path("file").c_str();
  RunWithoutRights([&] {
    full.view->Save(file);
    ::chmod(file, 0);
    EXPECT_EQ(Catch([&] { full.view->Load(file); }), (CaughtError{5, 6, "Load"}));
    EXPECT_EQ(full.view->GetNumCharts(), 2);
  });
}

TEST_F(ChartFileDisk, FilesThatCannotBeOpenedLeaveTheViewAsItWas) {
  const FullView full;
  full.view->DrawViewScreen();
  full.view->Save(Path("before").c_str());
  const CaughtError noFile{5, 6, "Load"};
  EXPECT_EQ(Catch([&] { full.view->Load(Path("missing").c_str()); }), noFile);
  EXPECT_EQ(Catch([&] { full.view->Load(""); }), noFile);
  EXPECT_EQ(Catch([&] { full.view->Load((Path("before") + "/file").c_str()); }), noFile);
  full.view->Save(Path("after").c_str());
  EXPECT_EQ(Read(Path("before")), Read(Path("after")));
}

TEST_F(ChartFileDisk, FoldersCannotBeLoaded) {
  ViewOn target(20, 20);
  EXPECT_EQ(Catch([&] { target.view->Load(m_folder.c_str()); }), (CaughtError{5, 6, "Load"}));
}

TEST_F(ChartFileDisk, FilesWithoutAnEndComeToOne) {
  using Clock = std::chrono::steady_clock;
  constexpr std::size_t kMuchMemory = std::size_t{2} << 30;
  ViewOn target(20, 20);
  for (const char* name : {"/dev/null", "/dev/zero", "/dev/urandom", "/dev/urandom"}) {
    SCOPED_TRACE(name);
    const Clock::time_point start = Clock::now();
    const AllocationMeter meter;
    const CaughtError error = Catch([&] { target.view->Load(name); });
    EXPECT_LT(meter.Total(), kMuchMemory);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(20));
    EXPECT_TRUE(error == kNoError || error.type == 7 || error.type == 2) << error;
    EXPECT_EQ(Catch([&] { target.view->Save("/dev/null"); }), kNoError);
  }
}

TEST_F(ChartFileDisk, ReadersSeeOneFileOrTheOther) {
  constexpr int kMostLoads = 20000;
  constexpr int kEach = 100;
  const FullView full;
  ViewOn empty(20, 20);
  empty.view->SetViewBkMode(5);
  const CString name = Path("file").c_str();
  empty.view->Save(name);
  const pid_t writer = ::fork();
  ASSERT_NE(writer, -1);
  if (writer == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (;;) {
      full.view->Save(name);
      empty.view->Save(name);
    }
  }
  ViewOn reader(20, 20);
  int loads = 0;
  std::array<int, 2> seen{};
  for (; loads < kMostLoads && std::min(seen[0], seen[1]) < kEach; ++loads) {
    EXPECT_EQ(Catch([&] { reader.view->Load(name); }), kNoError);
    const bool isEmpty = reader.view->GetViewBkMode() == 5;
    EXPECT_EQ(reader.view->GetNumCharts(), isEmpty ? 0 : 2);
    EXPECT_EQ(reader.view->GetNumLegends(), isEmpty ? 0 : 1);
    ++seen[isEmpty ? 0 : 1];
  }
  ::kill(writer, SIGKILL);
  ::waitpid(writer, nullptr, 0);
  EXPECT_LT(loads, kMostLoads);  // the writer was at work
}

}  // namespace
