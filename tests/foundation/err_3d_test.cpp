#include "orvalix/foundation/err_3d.h"

#include <gtest/gtest.h>

#include <array>
#include <new>
#include <string>
#include <vector>

#include "orvalix/foundation/throw_error_internal.h"
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
  for (const int unknown : {20, -1}) {
    EXPECT_STREQ(error.GetErrorDescription(static_cast<CErr3DTypes>(unknown)), "Unknown Error");
  }
}

TEST_F(Err3D, NumbersAreFixed) {
  EXPECT_EQ(ERR3D_BAD_POLYSURFACE, 19);
  EXPECT_EQ(ERR3D_CDC_PARAMETER, 14);
  EXPECT_EQ(ERR3DCLASS_AUXOBJ3D, 0);
  EXPECT_EQ(ERR3DCLASS_CHARTVIEW3D, 6);
  EXPECT_EQ(ERR3DCLASS_RESERVED7, 7);
  EXPECT_EQ(ERR3DCLASS_DIBSECTION, 9);
  EXPECT_EQ(ERR3DCLASS_RESERVED11, 11);
  EXPECT_EQ(ERR3DCLASS_NONE, 12);
  EXPECT_EQ(ERR3DCLASS_OPENGL, 17);
  EXPECT_EQ(ERR3DCLASS_TRANSFORM3D, 20);
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
