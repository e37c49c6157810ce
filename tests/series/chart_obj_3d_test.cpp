#include "orvalix/series/chart_obj_3d.h"

#include <gtest/gtest.h>

#include <array>

#include "orvalix/foundation/colors.h"
#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/transform_3d.h"
#include "support/caught_error.h"
#include "support/feedback.h"
#include "support/offscreen.h"

namespace {

using orvalix::test::CaptureFeedback;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::Offscreen;

void ExpectColor(const RGBDType& actual, double red, double green, double blue, double alpha) {
  EXPECT_EQ(actual.red, red);
  EXPECT_EQ(actual.green, green);
  EXPECT_EQ(actual.blue, blue);
  EXPECT_EQ(actual.alpha, alpha);
}

TEST(ChartObj3D, StartsWithItsDefaults) {
  const int before = CChartObj3D::nSelfID;
  const CChartObj3D object;
  EXPECT_EQ(CChartObj3D::nSelfID, before + 1);
  EXPECT_EQ(object.GetConstValue(), 0.0);
  EXPECT_EQ(object.GetBaseValue(), 0.0);
  EXPECT_EQ(object.GetRelSize(), 1.0);
  EXPECT_EQ(object.GetConstWidth(), 1.0);
  EXPECT_EQ(object.GetIndWidth(), 1.0);
  EXPECT_EQ(object.GetFillGap(), 0.0016);
  EXPECT_EQ(object.GetOutlineWidth(), 1.0);
  EXPECT_EQ(object.GetPlaneThickness(), 0.02);
  ExpectColor(object.GetFillColor(), 0, 0, 1, 1);
  ExpectColor(object.GetOutlineColor(), 0, 0, 0, 1);
  EXPECT_EQ(object.GetSymbol(), 0);
  EXPECT_EQ(object.GetSymbol2(), 0);
  EXPECT_EQ(object.GetNumDataPnts(), 0);
  EXPECT_EQ(object.GetNumGroups(), 0);
  EXPECT_EQ(object.GetLineWidth(), 1);
  EXPECT_EQ(object.GetLineStyle(), 0);
  EXPECT_EQ(object.GetIndJustify(), 0);
  EXPECT_EQ(object.GetConstJustify(), 0);
  EXPECT_EQ(object.GetIndAxis(), 0);
  EXPECT_EQ(object.GetProjectionPlane(), 0);
  EXPECT_EQ(object.GetTextPlane(), 1);
  EXPECT_EQ(object.GetGroupType(), 0);
  EXPECT_EQ(object.GetChartType(), 0);
  EXPECT_EQ(object.GetNumContours(), 0);
  EXPECT_EQ(object.GetColorMode(), 1);
  EXPECT_EQ(object.GetContourLabelFlag(), 0);
  EXPECT_EQ(object.GetSegmentColorMode(), 0);
  EXPECT_EQ(object.GetClipping(), 0);
  EXPECT_EQ(object.GetOutlineMode(), 1);
  EXPECT_EQ(object.GetChartObjEnable(), 1);
  EXPECT_EQ(object.GetOwnerID(), 0);
  EXPECT_EQ(object.GetClassTag(), 606);
  std::array<int, 6> flags{9, 9, 9, 9, 9, 9};
  object.GetComboChartFlags(flags.data());
  EXPECT_EQ(flags, (std::array<int, 6>{}));
}

TEST(ChartObj3D, StoresItsAttributes) {
  CChartObj3D object;
  object.SetConstValue(1.5);
  object.SetBaseValue(2.5);
  object.SetRelSize(3.5);
  object.SetConstWidth(4.5);
  object.SetIndWidth(5.5);
  object.SetFillGap(6.5);
  object.SetOutlineWidth(7.5);
  object.SetPlaneThickness(8.5);
  EXPECT_EQ(object.GetConstValue(), 1.5);
  EXPECT_EQ(object.GetBaseValue(), 2.5);
  EXPECT_EQ(object.GetRelSize(), 3.5);
  EXPECT_EQ(object.GetConstWidth(), 4.5);
  EXPECT_EQ(object.GetIndWidth(), 5.5);
  EXPECT_EQ(object.GetFillGap(), 6.5);
  EXPECT_EQ(object.GetOutlineWidth(), 7.5);
  EXPECT_EQ(object.GetPlaneThickness(), 8.5);
  object.SetFillColor(SetRGBD(0.1, 0.2, 0.3, 0.4));
  object.SetOutlineColor(SetRGBD(0.5, 0.6, 0.7, 0.8));
  ExpectColor(object.GetFillColor(), 0.1, 0.2, 0.3, 0.4);
  ExpectColor(object.GetOutlineColor(), 0.5, 0.6, 0.7, 0.8);

  using Set = void (CChartObj3D::*)(int);
  using Get = int (CChartObj3D::*)() const;
  const std::vector<std::pair<Set, Get>> integers{
      {&CChartObj3D::SetChartType, &CChartObj3D::GetChartType},
      {&CChartObj3D::SetClipping, &CChartObj3D::GetClipping},
      {&CChartObj3D::SetColorMode, &CChartObj3D::GetColorMode},
      {&CChartObj3D::SetConstJustify, &CChartObj3D::GetConstJustify},
      {&CChartObj3D::SetContourLabelFlag, &CChartObj3D::GetContourLabelFlag},
      {&CChartObj3D::SetGroupType, &CChartObj3D::GetGroupType},
      {&CChartObj3D::SetIndAxis, &CChartObj3D::GetIndAxis},
      {&CChartObj3D::SetIndJustify, &CChartObj3D::GetIndJustify},
      {&CChartObj3D::SetLineStyle, &CChartObj3D::GetLineStyle},
      {&CChartObj3D::SetLineWidth, &CChartObj3D::GetLineWidth},
      {&CChartObj3D::SetNumContours, &CChartObj3D::GetNumContours},
      {&CChartObj3D::SetNumDataPnts, &CChartObj3D::GetNumDataPnts},
      {&CChartObj3D::SetNumGroups, &CChartObj3D::GetNumGroups},
      {&CChartObj3D::SetOutlineMode, &CChartObj3D::GetOutlineMode},
      {&CChartObj3D::SetProjectionPlane, &CChartObj3D::GetProjectionPlane},
      {&CChartObj3D::SetSegmentColorMode, &CChartObj3D::GetSegmentColorMode},
      {&CChartObj3D::SetSymbol, &CChartObj3D::GetSymbol},
      {&CChartObj3D::SetSymbol2, &CChartObj3D::GetSymbol2},
      {&CChartObj3D::SetTextPlane, &CChartObj3D::GetTextPlane},
      {&CChartObj3D::EnableChartObj, &CChartObj3D::GetChartObjEnable}};
  int value = 100;
  for (const auto& [set, get] : integers) (object.*set)(value++);
  value = 100;
  for (const auto& [set, get] : integers) EXPECT_EQ((object.*get)(), value++);

  const std::array<int, 6> flags{1, 2, 3, 4, 5, 6};
  object.SetComboChartFlags(flags.data());
  object.SetComboChartFlags(nullptr);
  std::array<int, 6> read{};
  object.GetComboChartFlags(read.data());
  object.GetComboChartFlags(nullptr);
  EXPECT_EQ(read, flags);
}

TEST(ChartObj3D, BindsToContextAndTransform) {
  Offscreen target;
  CTransform3D transform(target.gl.get());
  const CChartObj3D object(target.gl.get(), &transform);
  EXPECT_EQ(object.GetOwnerID(), transform.GetTransformID());
}

TEST(ChartObj3D, RefusesBadBindings) {
  Offscreen target;
  CTransform3D transform(target.gl.get());
  alignas(COpenGL) static std::array<unsigned char, sizeof(COpenGL)> noContext{};
  alignas(CTransform3D) static std::array<unsigned char, sizeof(CTransform3D)> noTransform{};
  const CaughtError badContext{16, 5, "InitChartObj3D"};
  const CaughtError badTransform{15, 5, "InitChartObj3D"};
  CChartObj3D object(target.gl.get(), &transform);
  EXPECT_EQ(Catch([&] { object.InitChartObj3D(nullptr, &transform); }), badContext);
  EXPECT_EQ(Catch([&] { object.InitChartObj3D(nullptr, nullptr); }), badContext);
  EXPECT_EQ(Catch([&] {
              object.InitChartObj3D(reinterpret_cast<COpenGL*>(noContext.data()), &transform);
            }),
            badContext);
  EXPECT_EQ(Catch([&] { object.InitChartObj3D(target.gl.get(), nullptr); }), badTransform);
  EXPECT_EQ(Catch([&] {
              object.InitChartObj3D(target.gl.get(),
                                    reinterpret_cast<CTransform3D*>(noTransform.data()));
            }),
            badTransform);
  EXPECT_EQ(object.GetOwnerID(), transform.GetTransformID());  // still bound as before
}

TEST(ChartObj3D, CopiesShareNothing) {
  CChartObj3D object;
  std::array<double, 2> values{1, 2};
  object.SetNumDataPnts(2);
  object.InitIndDataStorage(values.data());
  const int before = CChartObj3D::nSelfID;
  CChartObj3D copy(object);
  CChartObj3D assigned;
  assigned = object;
  EXPECT_EQ(CChartObj3D::nSelfID, before + 1);  // only the default constructor counts
  object.SetIndData(0, 99);
  EXPECT_EQ(copy.GetIndData(0), 1.0);
  EXPECT_EQ(assigned.GetIndData(0), 1.0);
}

TEST(ChartObj3D, LeavesItsStateForEveryType) {
  Offscreen target;
  CTransform3D transform(target.gl.get());
  for (const int type : {0, 2, 19, -1}) {
    SCOPED_TRACE(type);
    CChartObj3D object(target.gl.get(), &transform);
    object.SetChartType(type);
    object.SetClipping(1);
    object.SetColorMode(2);
    target.gl->EnableTexture(1);
    target.gl->EnableClipping(1);
    object.DrawChartObj();
    EXPECT_FALSE(glIsEnabled(GL_CLIP_PLANE0));
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_1D));
    EXPECT_EQ(target.gl->GetPolygonOutlineMode(), 0);
    EXPECT_EQ(target.gl->GetColorMode(), 2);
    EXPECT_EQ(transform.GetClipping(), 0);
  }
}

TEST(ChartObj3D, NumbersWithoutATypeDrawNothing) {
  Offscreen target;
  CTransform3D transform(target.gl.get(), {0, 0, 0, 0}, {10, 10, 10, 0});
  const std::array<double, 1> values{5};
  CChartObj3D object(target.gl.get(), &transform);
  object.BarChart25D(values.data(), values.data(), 0, 4, 1, 2, 3, SetRGBD(1, 0, 0, 1),
                     SetRGBD(0, 0, 1, 1), 0, 0, 0);
  EXPECT_FALSE(CaptureFeedback([&] { object.DrawChartObj(); }).empty());
  for (const int type : {0, 19, -1, 2147483647}) {
    object.SetChartType(type);
    EXPECT_TRUE(CaptureFeedback([&] { object.DrawChartObj(); }).empty()) << type;
  }
}

TEST(ChartObj3D, DrawsNothingDisabledOrUnbound) {
  Offscreen target;
  CTransform3D transform(target.gl.get());
  CChartObj3D object(target.gl.get(), &transform);
  object.EnableChartObj(0);
  target.gl->SetPolygonOutlineMode(7);
  object.DrawChartObj();
  EXPECT_EQ(target.gl->GetPolygonOutlineMode(), 7);
  CChartObj3D().DrawChartObj();
}

}  // namespace
