#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "orvalix/surface/polysurface.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/temporary_file.h"
#include "surface/sample_meshes.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::kNoError;
using orvalix::test::LoadFrom;
using orvalix::test::Quadrilaterals;
using orvalix::test::Saved;
using orvalix::test::SmallGrid;
using orvalix::test::StoredAgain;
using orvalix::test::TemporaryFile;

/// A record whose last byte is missing.
Bytes Shortened() {
  Bytes record = Saved(SmallGrid());
  record.pop_back();
  return record;
}

// --- the file ---

TEST(PolysurfaceFile, IsTheRecordAlone) {
  const TemporaryFile file(Bytes(5000, 0xff));  // longer than what takes its place
  SmallGrid().Save(CString(file.Path()));
  EXPECT_EQ(file.Read(), Saved(SmallGrid()));
  CPolysurface mesh = Quadrilaterals();
  mesh.Load(CString(file.Path()));
  EXPECT_EQ(Saved(mesh), StoredAgain(Saved(SmallGrid())));
  const CPolysurface constructed{CString(file.Path())};
  EXPECT_EQ(Saved(constructed), StoredAgain(Saved(SmallGrid())));
  EXPECT_EQ(constructed.GetEvenGridFlag(), 0);
  EXPECT_EQ(constructed.GetGridType(), 1);
}

TEST(PolysurfaceFile, IsCreated) {
  const TemporaryFile file;
  EXPECT_FALSE(std::filesystem::exists(file.Path()));
  CPolysurface().Save(CString(file.Path()));
  EXPECT_EQ(file.Read().size(), 132U);  // 2 integers, 11 reals, 9 integers
}

/// The handle of a file that is opened now. It is that of the first descriptor that isn't open.
HANDLE NextHandle() {
  CFile file;
  EXPECT_TRUE(file.Open("/dev/null", CFile::modeRead));
  return file.m_hFile;
}

TEST(PolysurfaceFile, IsClosedAgain) {
  const HANDLE next = NextHandle();
  const TemporaryFile file;
  const CString name(file.Path());
  SmallGrid().Save(name);
  EXPECT_EQ(NextHandle(), next);
  EXPECT_EQ(CPolysurface(name).GetPSNumPoints(), 4);
  EXPECT_EQ(NextHandle(), next);
  Catch([] { SmallGrid().Save(CString("/dev/full")); });
  EXPECT_EQ(NextHandle(), next);
  const TemporaryFile broken(Shortened());
  Catch([&] { CPolysurface(CString(broken.Path())); });
  EXPECT_EQ(NextHandle(), next);
}

// --- failures ---

TEST(PolysurfaceRecord, ReportsFailingFiles) {
  const CaughtError saving{7, 18, "Save"};
  const CaughtError loading{7, 18, "Load"};
  CPolysurface mesh = SmallGrid();
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { mesh.Save(full.m_hFile); }), saving);
  EXPECT_EQ(Catch([&] { mesh.Save(CString("/dev/full")); }), saving);
  EXPECT_EQ(Catch([&] { mesh.Save(CFile::hFileNull); }), saving);
  EXPECT_EQ(Saved(mesh), Saved(SmallGrid()));

  EXPECT_EQ(Catch([&] { mesh.Load(CFile::hFileNull); }), loading);
  EXPECT_EQ(Catch([] { CPolysurface constructed(CFile::hFileNull); }), loading);
  const TemporaryFile file(Saved(SmallGrid()));
  CFile in;
  ASSERT_TRUE(in.Open(file.Path(), CFile::modeRead));
  EXPECT_EQ(Catch([&] { SmallGrid().Save(in.m_hFile); }), saving);  // opened for reading
  CFile out;
  ASSERT_TRUE(out.Open(file.Path(), CFile::modeWrite));
  EXPECT_EQ(Catch([&] { mesh.Load(out.m_hFile); }), loading);  // opened for writing
  EXPECT_EQ(mesh.GetPSPoints(), nullptr);                      // nothing could be read

  const TemporaryFile broken(Shortened());
  EXPECT_EQ(Catch([&] { mesh.Load(CString(broken.Path())); }), loading);
  EXPECT_EQ(Catch([&] { CPolysurface constructed{CString(broken.Path())}; }), loading);
}

TEST(PolysurfaceFile, ReportsWhatCannotBeOpened) {
  const CaughtError saving{6, 18, "Save"};
  const CaughtError loading{5, 18, "Load"};
  CPolysurface mesh = SmallGrid();
  mesh.SetWireFrame(3);
  const TemporaryFile missing;
  const std::string folder = ::testing::TempDir();
  EXPECT_EQ(Catch([&] { mesh.Load(CString(missing.Path())); }), loading);
  EXPECT_FALSE(std::filesystem::exists(missing.Path()));  // not created by reading
  for (const std::string& name : {std::string(), folder, missing.Path() + std::string("/mesh")}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(Catch([&] { mesh.Save(CString(name.c_str())); }), saving);
    EXPECT_EQ(Catch([&] { mesh.Load(CString(name.c_str())); }), loading);
    EXPECT_EQ(Catch([&] { CPolysurface constructed{CString(name.c_str())}; }), loading);
  }
  EXPECT_EQ(Saved(mesh), Saved(SmallGrid()));  // as it was
  EXPECT_EQ(mesh.GetWireFrame(), 3);
}

/// Lets each allocation of `work` fail in turn, alone.
/// @return the errors, one for each
template <class Work>
std::vector<CaughtError> ErrorsOfFailingMemory(Work&& work) {
  std::vector<CaughtError> errors;
  const int failures = orvalix::test::FailEachAllocation([&] {
    const CaughtError caught = Catch(work);
    if (caught != kNoError) errors.push_back(caught);
  });
  EXPECT_GT(failures, 0);
  EXPECT_EQ(errors.size(), static_cast<std::size_t>(failures)) << "a failure went unnoticed";
  return errors;
}

TEST(PolysurfaceRecord, ReportsMemoryThatRunsOut) {
  const CPolysurface mesh = SmallGrid();
  CFile nowhere;
  ASSERT_TRUE(nowhere.Open("/dev/null", CFile::modeWrite));
  for (const CaughtError& error : ErrorsOfFailingMemory([&] { mesh.Save(nowhere.m_hFile); })) {
    EXPECT_EQ(error, (CaughtError{2, 18, "Save"}));
  }
  const TemporaryFile file(Saved(SmallGrid()));
  CFile in;
  ASSERT_TRUE(in.Open(file.Path(), CFile::modeRead));
  CPolysurface loaded;
  const std::vector<CaughtError> errors = ErrorsOfFailingMemory([&] {
    in.SeekToBegin();
    loaded.Load(in.m_hFile);
  });
  // The block of the file, points, polygons, vertices, neighbours.
  EXPECT_EQ(errors, (std::vector<CaughtError>(5, {2, 18, "Load"})));
  EXPECT_EQ(Saved(loaded), StoredAgain(Saved(mesh)));  // from the run in which nothing failed
}

TEST(PolysurfaceRecord, HoldsWhatWasReadBeforeMemoryRanOut) {
  const TemporaryFile file(Saved(SmallGrid()));
  CFile in;
  ASSERT_TRUE(in.Open(file.Path(), CFile::modeRead));
  for (int n = 1; n <= 5; ++n) {
    SCOPED_TRACE(n);
    CPolysurface mesh = Quadrilaterals();
    in.SeekToBegin();
    {
      const orvalix::test::AllocationFailure failure(n);
      EXPECT_EQ(Catch([&] { mesh.Load(in.m_hFile); }), (CaughtError{2, 18, "Load"}));
    }
    EXPECT_EQ(mesh.GetRGRows(), n > 1 ? 2 : 0);
    EXPECT_EQ(mesh.GetPSNumPoints(), n > 2 ? 4 : 0);
    EXPECT_EQ(mesh.GetPSMaxPolygons(), n > 3 ? 2 : 0);
    EXPECT_EQ(mesh.GetPSNumPolygons(), n > 4 ? 2 : 0);
    const Bytes record = Saved(mesh);
    CPolysurface again;
    EXPECT_EQ(Catch([&] { LoadFrom(again, record); }), kNoError);
    EXPECT_EQ(Saved(again), StoredAgain(record));
  }
}

TEST(PolysurfaceFile, ReportsMemoryThatRunsOut) {
  const CPolysurface mesh = SmallGrid();
  const TemporaryFile file(Saved(SmallGrid()));
  const CString name(file.Path());
  for (const CaughtError& error : ErrorsOfFailingMemory([&] {
         CPolysurface loaded;
         loaded.Load(name);
       })) {
    EXPECT_TRUE(error == (CaughtError{2, 18, "Load"}) || error == (CaughtError{5, 18, "Load"}))
        << error;
  }
  for (const CaughtError& error : ErrorsOfFailingMemory([&] { mesh.Save(name); })) {
    EXPECT_TRUE(error == (CaughtError{2, 18, "Save"}) || error == (CaughtError{6, 18, "Save"}))
        << error;
  }
  EXPECT_EQ(file.Read(), Saved(SmallGrid()));
}

}  // namespace
