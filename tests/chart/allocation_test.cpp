#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "chart/view_fixture.h"
#include "orvalix/chart/header_3d.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/fail_at.h"

namespace {

using namespace orvalix::test;

const point3Dtype kZero{0, 0, 0, 0};
const point3Dtype kOne{1, 1, 1, 0};

/// Lets each allocation of `work` fail in turn and expects one of these errors for every one.
template <class Work>
void ExpectEachFailure(const std::vector<CaughtError>& expected, Work&& work) {
  int failures = 0;
  for (int n = 1; n < 100; ++n) {
    bool happened = false;
    const CaughtError caught = FailAt(n, happened, work);
    if (!happened) break;
    EXPECT_THAT(expected, ::testing::Contains(caught)) << "allocation " << n;
    ++failures;
  }
  EXPECT_GT(failures, 0);
}

TEST(Allocation, FactoriesReportTheirOwnNames) {
  ViewOn target(20, 20);
  CChart3D* chart = target.view->NewChart3D();
  CTransform3D* transform = chart->NewTransform(kZero, kOne);
  ExpectEachFailure({{3, 4, "NewTransform"}}, [&] { chart->NewTransform(kZero, kOne); });
  ExpectEachFailure({{3, 4, "NewTransform"}}, [&] { chart->NewTransform(); });
  ExpectEachFailure({{3, 4, "NewChartObj"}}, [&] { chart->NewChartObj(transform); });
  ExpectEachFailure({{3, 4, "NewChartObj"}}, [&] { chart->NewChartObj(); });
  ExpectEachFailure({{3, 17, "NewFont3D"}}, [&] { target.view->GetOpenGLPntr()->NewFont3D(); });
  const std::vector<CaughtError> framesAndParts{
      {3, 4, "NewAxes"}, {3, 1, "SetAxesDefaults"}, {3, 3, "InitAxisLabelsDefaults"}};
  ExpectEachFailure(framesAndParts, [&] { chart->NewAxes(transform); });
  ExpectEachFailure(framesAndParts, [&] { chart->NewAxes(); });
  ExpectEachFailure({{3, 4, "NewChartTextObj"}}, [&] { chart->NewChartTextObj(transform, "a"); });
  ExpectEachFailure({{3, 4, "NewChartTextObj"}}, [&] { chart->NewChartTextObj(); });
  ExpectEachFailure({{3, 4, "NewAuxObj"}}, [&] { chart->NewAuxObj(transform, 1); });
  ExpectEachFailure({{3, 4, "NewAuxObj"}}, [&] { chart->NewAuxObj(); });
  ExpectEachFailure({{3, 4, "NewDIBObj"}}, [&] { chart->NewDIBObj(); });
  ExpectEachFailure({{3, 4, "NewDIBObj"}, {3, 10, "InitDIBObj"}},
                    [&] { chart->NewDIBObj(transform, ""); });
  ExpectEachFailure({{2, 4, "AutoTransformGroup25D"}, {3, 4, "NewTransform"}}, [&] {
    const std::array<double, 2> values{1.0, 2.0};
    chart->AutoTransformGroup25D(values.data(), values.data(), 0.0, 1, 2, 1.0, 0, 1, 1);
  });
  ExpectEachFailure({{3, 6, "NewChart3D"},
                     {3, 4, "InitChartDefaults"},
                     {3, 14, "InitHeaderDefaults"},
                     {3, 14, "InitHeaders"}},
                    [&] { target.view->NewChart3D(); });
  // What could not be made is in no list.
  EXPECT_EQ(chart->GetNumTransforms(), 4);
  EXPECT_EQ(chart->GetNumAxes(), 2);
  EXPECT_EQ(chart->GetNumChartTextObjs(), 2);
  EXPECT_EQ(chart->GetNumChartObjs(), 2);
  EXPECT_EQ(chart->GetNumAuxObjs(), 2);
  EXPECT_EQ(chart->GetNumDIBObjs(), 2);
  EXPECT_EQ(target.view->GetNumCharts(), 2);
  target.view->DrawViewScreen();
}

TEST(Allocation, TextsAreCopiedOrReported) {
  const CString text('x', 100);
  const CString longer('x', 200);
  ViewOn target(20, 20);
  target.view->SetFont(text, 400, 128);
  CHeader3D* header = target.view->GetHeader();
  header->SetTitle1(text);
  ExpectEachFailure({{2, 19, "GetString"}}, [&] { header->GetTitle1(); });
  ExpectEachFailure({{2, 19, "SetString"}}, [&] { header->SetTitle2(text); });
  ExpectEachFailure({{2, 6, "GetFontName"}}, [&] { target.view->GetFontName(); });
  ExpectEachFailure({{2, 6, "SetFont"}}, [&] { target.view->SetFont(longer, 400, 128); });
  EXPECT_STREQ(header->GetTitle1(), text);
}

TEST(Allocation, ATransformThatCannotBeMadeLosesItsChart) {
  ViewOn target(20, 20);
  int errors = 0;
  for (int n = 1; n < 100; ++n) {
    const CaughtError caught = Catch([&] {
      const AllocationFailure failure(n);
      target.view->NewChart3D(kZero, kOne);
    });
    if (caught == kNoError) break;
    EXPECT_EQ(caught.type, 3) << n;
    ++errors;
  }
  EXPECT_GT(errors, 1);
  EXPECT_EQ(target.view->GetNumCharts(), 1);
}

TEST(Allocation, AViewWithoutMemoryIsAClearError) {
  CWnd window;
  ASSERT_TRUE(window.CreateOffscreen(20, 20));
  // The memory device context, then the section with its bitmap; later ones belong to OpenGL.
  bool sawBitmap = false;
  for (int n = 1; n < 20; ++n) {
    const CaughtError caught = Catch([&] {
      const AllocationFailure failure(n);
      const CChartView3D view(&window);
    });
    if (caught == CaughtError{14, 6, "InitDeviceContext"}) continue;
    EXPECT_EQ(caught, (CaughtError{3, 6, "MakeCompatibleBitmap"})) << n;
    sawBitmap = true;
    break;
  }
  EXPECT_TRUE(sawBitmap);
}

}  // namespace
