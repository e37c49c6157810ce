#include "orvalix/foundation/err_3d.h"

#include <gtest/gtest.h>

#include <array>
#include <new>
#include <string>
#include <vector>

#include "orvalix/foundation/throw_error_internal.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"

namespace {

using orvalix::test::Catch;
using orvalix::test::CaughtError;

std::vector<std::string>& Shown() {
  static std::vector<std::string> shown;
  return shown;
}

int Remember(const char* text) {
  Shown().emplace_back(text);
  return IDOK;
}

class Err3D : public ::testing::Test {
 protected:
  Err3D() : m_before(SetMessageBoxHandler(Remember)) { Shown().clear(); }
  ~Err3D() override {
    SetMessageBoxHandler(m_before);
    CErr3D::nErrorReportMode = 1;
  }

 private:
  decltype(SetMessageBoxHandler(nullptr)) m_before;
};

TEST_F(Err3D, IsNoErrorByDefault) {
  const CErr3D error;
  EXPECT_EQ(error.GetErrorClass(), 12);
  EXPECT_EQ(error.GetErrorType(), 0);
  EXPECT_STREQ(error.GetErrorLocation(), "");
  EXPECT_TRUE(Shown().empty());
}

TEST_F(Err3D, ShowsItsMessageOnce) {
  ASSERT_EQ(CErr3D::nErrorReportMode, 1);
  const CErr3D error(ERR3D_DISK_IO, ERR3DCLASS_CHART3D, "Load");
  EXPECT_EQ(Shown(), std::vector<std::string>{"Disk I/O Error"});
  const CErr3D copy(error);
  CErr3D assigned;
  assigned = error;
  EXPECT_EQ(Shown().size(), 1U);
  for (const CErr3D* same : {&copy, static_cast<const CErr3D*>(&assigned)}) {
    EXPECT_EQ(same->GetErrorType(), ERR3D_DISK_IO);
    EXPECT_EQ(same->GetErrorClass(), ERR3DCLASS_CHART3D);
    EXPECT_STREQ(same->GetErrorLocation(), "Load");
  }
  assigned.InitErr3DDefaults();
  EXPECT_EQ(assigned.GetErrorClass(), ERR3DCLASS_NONE);
  EXPECT_EQ(assigned.GetErrorType(), ERR3D_NOT_AN_ERROR);
  EXPECT_STREQ(assigned.GetErrorLocation(), "");
}

TEST_F(Err3D, IsSilentInEveryOtherMode) {
  CErr3D error;
  for (const int mode : {0, 2, -1}) {
    error.SetErrorReportMode(mode);
    EXPECT_EQ(CErr3D::nErrorReportMode, mode);
    const CErr3D made(ERR3D_DISK_IO, ERR3DCLASS_CHART3D, "Load");
    EXPECT_TRUE(Shown().empty());
  }
}

TEST_F(Err3D, HasAMessageForEveryType) {
  const std::array<const char*, 20> messages{"Not an error",
                                             "Mem Alloc Error",
                                             "Array New Error",
                                             "Object New Error",
                                             "Memory Null Pointer",
                                             "Error Opening File for Input",
                                             "Error Opening File for Output",
                                             "Disk I/O Error",
                                             "DIB Handle Error",
                                             "Print DC Error",
                                             "Parameter Error",
                                             "CWnd Parameter Error",
                                             "CView Parameter Error",
                                             "CChartView Parameter Error",
                                             "CDC Parameter Error",
                                             "Transform Parameter Error",
                                             "OpenGL Parameter Error",
                                             "Font Parameter Error",
                                             "Pixel Format Error",
                                             "Bad Polysurface Error"};
  const CErr3D error;
  for (std::size_t i = 0; i < messages.size(); ++i) {
    EXPECT_STREQ(error.GetErrorDescription(static_cast<CErr3DTypes>(i)), messages[i]) << i;
  }
  for (const int unknown : {20, 1000, -1, -2147483647}) {
    EXPECT_STREQ(error.GetErrorDescription(static_cast<CErr3DTypes>(unknown)), "Unknown Error");
  }
}

TEST_F(Err3D, ShowsTheMessageAlone) {
  const CErr3D unknown(static_cast<CErr3DTypes>(77), ERR3DCLASS_CHART3D, "Load");
  const CErr3D none(ERR3D_NOT_AN_ERROR, ERR3DCLASS_CHART3D, "Load");
  EXPECT_EQ(Shown(), (std::vector<std::string>{"Unknown Error", "Not an error"}));
  EXPECT_EQ(unknown.GetErrorType(), 77);
}

int timesShown = 0;

int CountShown(const char*) {
  ++timesShown;
  return IDOK;
}

// Longer than what a string holds without memory of its own.
constexpr const char* kLongPlace = "TheLongestNameOfAnOperation";

TEST_F(Err3D, IsThrownWithoutMemoryForItsPlace) {
  SetMessageBoxHandler(CountShown);
  timesShown = 0;
  int type = -1;
  int errorClass = -1;
  int placeLength = -1;
  {
    const orvalix::test::AllocationFailure failure(1, orvalix::test::Failing::kFromThen);
    try {
      orvalix::ThrowError(ERR3D_OBJECT_NEW, ERR3DCLASS_FONT3D, kLongPlace);
    } catch (CErr3D& error) {
      type = error.GetErrorType();
      errorClass = error.GetErrorClass();
      placeLength = error.GetErrorLocation().GetLength();
    }
  }
  EXPECT_EQ(type, ERR3D_OBJECT_NEW);
  EXPECT_EQ(errorClass, ERR3DCLASS_FONT3D);
  EXPECT_EQ(placeLength, 0);
  EXPECT_EQ(timesShown, 1);
}

TEST_F(Err3D, ArrivesWhicheverAllocationFails) {
  CErr3D::nErrorReportMode = 0;
  const int failures = orvalix::test::FailEachAllocation([] {
    try {
      orvalix::ThrowError(ERR3D_OBJECT_NEW, ERR3DCLASS_FONT3D, kLongPlace);
    } catch (CErr3D caughtByValue) {  // NOLINT: programs do
      CErr3D assigned;
      assigned = caughtByValue;
      EXPECT_EQ(assigned.GetErrorType(), ERR3D_OBJECT_NEW);
      EXPECT_EQ(assigned.GetErrorClass(), ERR3DCLASS_FONT3D);
    }
  });
  EXPECT_EQ(failures, 4);  // the place, its copy in the error, and those of the two copies
}

TEST_F(Err3D, TellsNothingWithoutMemoryForTheText) {
  CErr3D::nErrorReportMode = 0;
  const CErr3D error(ERR3D_FILE_OPEN_INPUT, ERR3DCLASS_CHART3D, kLongPlace);
  std::array<int, 6> lengths{};
  std::size_t next = 0;
  const int failures = orvalix::test::FailEachAllocation([&] {
    if (next + 2 > lengths.size()) return;
    lengths[next++] = error.GetErrorLocation().GetLength();
    lengths[next++] = error.GetErrorDescription(ERR3D_FILE_OPEN_INPUT).GetLength();
  });
  EXPECT_EQ(failures, 2);
  // "TheLongestNameOfAnOperation" has 27 characters, "Error Opening File for Input" 28.
  EXPECT_EQ(lengths, (std::array<int, 6>{0, 28, 27, 0, 27, 28}));
}

TEST_F(Err3D, NumbersAreFixed) {
  const std::array<int, 20> types{ERR3D_NOT_AN_ERROR,     ERR3D_MEM_ALLOC,
                                  ERR3D_ARRAY_NEW,        ERR3D_OBJECT_NEW,
                                  ERR3D_NULL_POINTER,     ERR3D_FILE_OPEN_INPUT,
                                  ERR3D_FILE_OPEN_OUTPUT, ERR3D_DISK_IO,
                                  ERR3D_DIB_HANDLE,       ERR3D_PRINT_DC,
                                  ERR3D_PARAMETER,        ERR3D_CWND_PARAMETER,
                                  ERR3D_CVIEW_PARAMETER,  ERR3D_CHARTVIEW_PARAMETER,
                                  ERR3D_CDC_PARAMETER,    ERR3D_TRANSFORM_PARAMETER,
                                  ERR3D_OPENGL_PARAMETER, ERR3D_FONT_PARAMETER,
                                  ERR3D_PIXEL_FORMAT,     ERR3D_BAD_POLYSURFACE};
  for (int i = 0; i < 20; ++i) EXPECT_EQ(types[static_cast<std::size_t>(i)], i);
  const std::array<int, 21> classes{
      ERR3DCLASS_AUXOBJ3D,     ERR3DCLASS_AXES3D,      ERR3DCLASS_AXIS3D,
      ERR3DCLASS_AXISLABELS3D, ERR3DCLASS_CHART3D,     ERR3DCLASS_CHARTOBJ3D,
      ERR3DCLASS_CHARTVIEW3D,  ERR3DCLASS_RESERVED7,   ERR3DCLASS_DIB,
      ERR3DCLASS_DIBSECTION,   ERR3DCLASS_DIBOBJ3D,    ERR3DCLASS_RESERVED11,
      ERR3DCLASS_NONE,         ERR3DCLASS_FONT3D,      ERR3DCLASS_HEADER3D,
      ERR3DCLASS_LEGEND3D,     ERR3DCLASS_LEGENDOBJ3D, ERR3DCLASS_OPENGL,
      ERR3DCLASS_POLYSURFACE,  ERR3DCLASS_TEXTOBJ3D,   ERR3DCLASS_TRANSFORM3D};
  for (int i = 0; i < 21; ++i) EXPECT_EQ(classes[static_cast<std::size_t>(i)], i);
}

TEST_F(Err3D, StandsForWhatElseIsThrown) {
  const auto outOfMemory = [] { throw std::bad_alloc(); };
  EXPECT_EQ(Catch([&] {
              orvalix::WithAllocationErrors(ERR3D_OBJECT_NEW, ERR3DCLASS_FONT3D, "Somewhere",
                                            outOfMemory);
            }),
            (CaughtError{3, 13, "Somewhere"}));
  EXPECT_EQ(Catch([&] {
              orvalix::WithFileErrors(ERR3DCLASS_FONT3D, "Load",
                                      [] { throw new CFileException(CFileException::endOfFile); });
            }),
            (CaughtError{7, 13, "Load"}));
  EXPECT_EQ(Catch([&] { orvalix::WithFileErrors(ERR3DCLASS_FONT3D, "Load", outOfMemory); }),
            (CaughtError{2, 13, "Load"}));
  EXPECT_EQ(Catch([&] {
              orvalix::WithFileErrors(ERR3DCLASS_FONT3D, "Load", [] {
                orvalix::ThrowError(ERR3D_PARAMETER, ERR3DCLASS_DIB, "Inside");
              });
            }),
            (CaughtError{10, 8, "Inside"}));
}

}  // namespace
