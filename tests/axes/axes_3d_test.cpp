#include "orvalix/axes/axes_3d.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "axes/axes_fixture.h"
#include "orvalix/axes/axis_3d.h"
#include "orvalix/axes/axis_labels_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/hex_bytes.h"
#include "support/temporary_file.h"

namespace {

using orvalix::test::AxesTest;
using orvalix::test::Bytes;
using orvalix::test::CaptureFeedback;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::FeedbackPrimitive;
using orvalix::test::FromHex;
using orvalix::test::LoadFrom;
using orvalix::test::Saved;

constexpr RGBDType kRed{1, 0, 0, 1};
constexpr RGBDType kGreen{0, 1, 0, 1};

TEST(Axes3D, StartWithTheirDefaults) {
  const int before = CAxes3D::nSelfID;
  const CAxes3D axes;
  EXPECT_EQ(CAxes3D::nSelfID, before + 1);
  EXPECT_EQ(axes.GetClassTag(), 202);
  EXPECT_EQ(axes.GetOutlineMode(), 1);
  point3Dtype min{1, 1, 1, 1};
  point3Dtype max{1, 1, 1, 1};
  axes.GetAxesLimits(min, max);
  EXPECT_EQ(min.x, 0.0);
  EXPECT_EQ(max.z, 0.0);
  for (int i = 0; i < 3; ++i) {
    ASSERT_NE(axes.GetAxis(i), nullptr);
    ASSERT_NE(axes.GetAxisLabels(i), nullptr);
    EXPECT_EQ(axes.GetAxisEnable(i), 0);
    EXPECT_EQ(axes.GetAxisLabelsEnable(i), 0);
    EXPECT_EQ(axes.GetAxisColorMode(i), 1);
  }
  for (int p = 0; p < 6; ++p) {
    EXPECT_EQ(axes.GetGridEnable(p), 0);
    EXPECT_EQ(axes.GetPlaneGridNthTic1(p), 1);
    EXPECT_EQ(axes.GetPlaneGridNthTic2(p), 1);
    EXPECT_EQ(axes.GetPlaneGridWallFlag(p), 0);
    EXPECT_EQ(axes.GetPlaneGridThickness(p), 1.0);
    EXPECT_EQ(axes.GetPlaneGridStyle(p), 1);
    EXPECT_EQ(axes.GetPlaneGridColor(p).red, 0.0);
    EXPECT_EQ(axes.GetPlaneGridColor(p).alpha, 1.0);
    EXPECT_EQ(axes.GetPlaneColor(p).alpha, 0.0);
    EXPECT_EQ(axes.GetOutlineColor(p).alpha, 0.0);
    EXPECT_EQ(axes.GetWallThickness(p), 0.06);
    EXPECT_EQ(axes.GetWallOffset(p), 0.002);
    EXPECT_EQ(axes.GetOutlineWidth(p), 2.0);
    EXPECT_EQ(axes.GetPlaneEnable(p), 0);
    EXPECT_EQ(axes.GetPlaneColorMode(p), 1);
  }
}

TEST(Axes3D, SwitchOnWhatIsSetUp) {
  CAxes3D axes;
  axes.SetAxisTics(1, 2, 3, 4, 0.5, 0.25, 5);
  EXPECT_EQ(axes.GetAxisEnable(1), 1);
  EXPECT_EQ(axes.GetAxisEnable(0), 0);
  EXPECT_EQ(axes.GetAxisCenterPoint(1), 2.0);
  EXPECT_EQ(axes.GetAxisTicSpace(1), 3.0);
  EXPECT_EQ(axes.GetAxisNthTicMajor(1), 4);
  EXPECT_EQ(axes.GetAxisMinorTicLength(1), 0.5);
  EXPECT_EQ(axes.GetAxisMajorTicLength(1), 0.25);
  EXPECT_EQ(axes.GetAxisTicDir(1), 5);
  const CString text = "a";
  axes.SetAxisLabels(2, 1, 2, 3, 4, 5, kRed, &text, 1);
  EXPECT_EQ(axes.GetAxisLabelsEnable(2), 1);
  EXPECT_EQ(axes.GetAxisLabelsPlane(2), 1);
  EXPECT_EQ(axes.GetAxisLabelsRotation(2), 2);
  EXPECT_EQ(axes.GetAxisLabelsDir(2), 3);
  EXPECT_EQ(axes.GetAxisLabelsDecimals(2), 4);
  EXPECT_EQ(axes.GetAxisLabelsEnds(2), 5);
  EXPECT_EQ(axes.GetNumAxisLabelStrings(2), 1);
  axes.SetAxisLabelsStrings(0, &text, 1);
  EXPECT_EQ(axes.GetAxisLabelsEnable(0), 1);
  EXPECT_STREQ(axes.GetAxisLabelsStrings(0)[0], "a");
  EXPECT_EQ(axes.GetAxisLabelsEnable(1), 0);
  axes.SetPlaneGrid(3, 4, 5, kRed, 6.0, 7, 8);
  EXPECT_EQ(axes.GetGridEnable(3), 1);
  EXPECT_EQ(axes.GetPlaneGridNthTic1(3), 4);
  EXPECT_EQ(axes.GetPlaneGridNthTic2(3), 5);
  EXPECT_EQ(axes.GetPlaneGridColor(3).red, 1.0);
  EXPECT_EQ(axes.GetPlaneGridThickness(3), 6.0);
  EXPECT_EQ(axes.GetPlaneGridStyle(3), 7);
  EXPECT_EQ(axes.GetPlaneGridWallFlag(3), 8);
  axes.SetPlaneColor(4, kRed, kGreen);
  EXPECT_EQ(axes.GetPlaneEnable(4), 1);
  EXPECT_EQ(axes.GetPlaneColor(4).red, 1.0);
  EXPECT_EQ(axes.GetOutlineColor(4).green, 1.0);
  axes.SetWallPlane(5, kGreen, kRed);
  EXPECT_EQ(axes.GetWallEnable(5), 1);
  EXPECT_EQ(axes.GetWallColor(5).green, 1.0);
  EXPECT_EQ(axes.GetOutlineColor(5).red, 1.0);
}

TEST(Axes3D, KeepTheirProperties) {
  CAxes3D axes;
  axes.EnableAxis(0, 2);
  axes.EnableAxisLabels(1, 3);
  axes.SetAxisColorMode(2, 0);
  EXPECT_EQ(axes.GetAxisEnable(0), 2);
  EXPECT_EQ(axes.GetAxisLabelsEnable(1), 3);
  EXPECT_EQ(axes.GetAxis(2)->GetColorMode(), 0);
  axes.GetAxis(2)->SetColorMode(2);
  EXPECT_EQ(axes.GetAxisColorMode(2), 2);  // the axis's own
  axes.EnableGrid(1, 4);
  axes.SetPlaneGridStyle(1, 9);
  axes.SetPlaneGridAttrib(1, kRed, 5.0, 3);
  EXPECT_EQ(axes.GetGridEnable(1), 4);
  EXPECT_EQ(axes.GetPlaneGridColor(1).red, 1.0);
  EXPECT_EQ(axes.GetPlaneGridThickness(1), 5.0);
  EXPECT_EQ(axes.GetPlaneGridStyle(1), 9);  // kept: not set with the attributes
  axes.SetPlaneGridNthTic1(1, 6);
  axes.SetPlaneGridNthTic2(1, 7);
  axes.SetPlaneGridWallFlag(1, 8);
  axes.SetPlaneGridThickness(1, 9.0);
  axes.SetPlaneGridColor(1, kGreen);
  EXPECT_EQ(axes.GetPlaneGridNthTic1(1), 6);
  EXPECT_EQ(axes.GetPlaneGridNthTic2(1), 7);
  EXPECT_EQ(axes.GetPlaneGridWallFlag(1), 8);
  EXPECT_EQ(axes.GetPlaneGridThickness(1), 9.0);
  EXPECT_EQ(axes.GetPlaneGridColor(1).green, 1.0);
  axes.SetPlaneColorMode(2, 10);
  axes.SetOutlineColor(2, kGreen);
  axes.SetOutlineWidth(2, 11.0);
  axes.SetOutlineMode(12);
  axes.SetWallOffset(2, 13.0);
  EXPECT_EQ(axes.GetPlaneColorMode(2), 10);
  EXPECT_EQ(axes.GetOutlineColor(2).green, 1.0);
  EXPECT_EQ(axes.GetOutlineWidth(2), 11.0);
  EXPECT_EQ(axes.GetOutlineMode(), 12);
  EXPECT_EQ(axes.GetWallOffset(2), 13.0);
}

TEST(Axes3D, EnableWallWritesThePlanesSwitch) {
  CAxes3D axes;
  axes.SetPlaneColor(1, kRed, kGreen);
  axes.EnableWall(1, 0);
  EXPECT_EQ(axes.GetPlaneEnable(1), 0);
  axes.EnablePlane(1, 1);
  EXPECT_EQ(axes.GetWallEnable(1), 1);
}

TEST(Axes3D, HandTheWallsThicknessToTheAxesInThePlane) {
  const std::array<std::array<int, 3>, 6> planes{
      {{0, 1, 2}, {0, 2, 1}, {1, 2, 0}, {0, 1, 2}, {0, 2, 1}, {1, 2, 0}}};
  for (int p = 0; p < 6; ++p) {
    CAxes3D axes;
    axes.SetWallThickness(p, 0.5);
    const auto& of = planes[static_cast<std::size_t>(p)];
    EXPECT_EQ(axes.GetWallThickness(p), 0.5);
    EXPECT_EQ(axes.GetAxis(of[0])->GetAxisWallThickness(), 0.5) << p;
    EXPECT_EQ(axes.GetAxis(of[1])->GetAxisWallThickness(), 0.5) << p;
    EXPECT_EQ(axes.GetAxis(of[2])->GetAxisWallThickness(), 0.05) << p;
  }
}

TEST(Axes3D, HandPropertiesOnToTheAxis) {
  CAxes3D axes;
  const CAxis3D& y = *axes.GetAxis(1);
  axes.SetAxisAttrib(1, kRed, kGreen, 2.0, 3);
  EXPECT_EQ(y.GetAxisColor().red, 1.0);
  EXPECT_EQ(axes.GetAxisColor(1).red, 1.0);
  EXPECT_EQ(axes.GetAxisTicColor(1).green, 1.0);
  EXPECT_EQ(axes.GetAxisThickness(1), 2.0);
  EXPECT_EQ(axes.GetAxisStyle(1), 3);
  axes.SetAxisLimits(1, 9, 4);
  EXPECT_EQ(axes.GetAxisMin(1), 4.0);
  EXPECT_EQ(axes.GetAxisMax(1), 9.0);
  EXPECT_EQ(axes.GetAxisStart(1), 9.0);
  EXPECT_EQ(axes.GetAxisStop(1), 4.0);
  EXPECT_EQ(axes.GetAxisRange(1), 5.0);
  axes.SetAxisMin(1, 2);
  axes.SetAxisMax(1, 20);
  EXPECT_EQ(y.GetAxisMin(), 2.0);
  EXPECT_EQ(y.GetAxisMax(), 20.0);
  axes.SetAxisIntercept(1, 5, 6);
  EXPECT_EQ(axes.GetAxisIntercept1(1), 5.0);
  EXPECT_EQ(axes.GetAxisIntercept2(1), 6.0);
  axes.SetAxisIntercept1(1, 7);
  axes.SetAxisIntercept2(1, 8);
  EXPECT_EQ(y.GetAxisIntercept1(), 7.0);
  EXPECT_EQ(y.GetAxisIntercept2(), 8.0);
  axes.SetAxisCenterPoint(1, 9);
  axes.SetAxisColor(1, kGreen);
  axes.SetAxisTicColor(1, kRed);
  axes.SetAxisThickness(1, 10);
  axes.SetAxisStyle(1, 11);
  axes.SetAxisTicSpace(1, 12);
  axes.SetAxisTicDir(1, 4);
  axes.SetAxisMajorTicLength(1, 13);
  axes.SetAxisMinorTicLength(1, 14);
  axes.SetAxisNthTicMajor(1, 15);
  EXPECT_EQ(axes.GetAxisCenterPoint(1), 9.0);
  EXPECT_EQ(y.GetAxisColor().green, 1.0);
  EXPECT_EQ(y.GetAxisTicColor().red, 1.0);
  EXPECT_EQ(y.GetAxisThickness(), 10.0);
  EXPECT_EQ(y.GetAxisStyle(), 11);
  EXPECT_EQ(axes.GetAxisTicSpace(1), 12.0);
  EXPECT_EQ(axes.GetAxisTicDir(1), 4);
  EXPECT_EQ(axes.GetAxisMajorTicLength(1), 13.0);
  EXPECT_EQ(axes.GetAxisMinorTicLength(1), 14.0);
  EXPECT_EQ(axes.GetAxisNthTicMajor(1), 15);
  EXPECT_EQ(axes.GetAxisScaleMode(1), 0);
  EXPECT_EQ(axes.GetAxisEnable(1), 0);  // none of these switches the axis on
}

TEST(Axes3D, HandPropertiesOnToTheLabels) {
  CAxes3D axes;
  const CAxisLabels3D& z = *axes.GetAxisLabels(2);
  axes.SetAxisLabelsColor(2, kRed);
  axes.SetAxisLabelsDecimals(2, 1);
  axes.SetAxisLabelsDir(2, 2);
  axes.SetAxisLabelsEnds(2, 3);
  axes.SetAxisLabelsFlipX(2, 4);
  axes.SetAxisLabelsFlipY(2, 5);
  axes.SetAxisLabelsFormat(2, 6);
  axes.SetAxisLabelsNthTic(2, 7);
  axes.SetAxisLabelsPlane(2, 8);
  axes.SetAxisLabelsRotation(2, 9);
  axes.SetAxisLabelsSize(2, 10);
  axes.SetAxisLabelsTicOffset(2, 11);
  axes.SetAxisLabelsXJust(2, 12);
  axes.SetAxisLabelsYJust(2, 13);
  axes.SetAxisTitleColor(2, kGreen);
  axes.SetAxisTitleFlipX(2, 14);
  axes.SetAxisTitleFlipY(2, 15);
  axes.SetAxisTitlePlane(2, 16);
  axes.SetAxisTitleSize(2, 17);
  axes.EnableAxisLabelsStrings(2, 18);
  axes.SetAxisTitleString(2, "title");
  EXPECT_EQ(axes.GetAxisLabelsColor(2).red, 1.0);
  EXPECT_EQ(axes.GetAxisLabelsDecimals(2), 1);
  EXPECT_EQ(axes.GetAxisLabelsDir(2), 2);
  EXPECT_EQ(axes.GetAxisLabelsEnds(2), 3);
  EXPECT_EQ(axes.GetAxisLabelsFlipX(2), 4);
  EXPECT_EQ(axes.GetAxisLabelsFlipY(2), 5);
  EXPECT_EQ(axes.GetAxisLabelsFormat(2), 6);
  EXPECT_EQ(axes.GetAxisLabelsNthTic(2), 7);
  EXPECT_EQ(axes.GetAxisLabelsPlane(2), 8);
  EXPECT_EQ(axes.GetAxisLabelsRotation(2), 9);
  EXPECT_EQ(axes.GetAxisLabelsSize(2), 10.0);
  EXPECT_EQ(axes.GetAxisLabelsTicOffset(2), 11.0);
  EXPECT_EQ(axes.GetAxisLabelsXJust(2), 12);
  EXPECT_EQ(axes.GetAxisLabelsYJust(2), 13);
  EXPECT_EQ(axes.GetAxisTitleColor(2).green, 1.0);
  EXPECT_EQ(axes.GetAxisTitleFlipX(2), 14);
  EXPECT_EQ(axes.GetAxisTitleFlipY(2), 15);
  EXPECT_EQ(axes.GetAxisTitlePlane(2), 16);
  EXPECT_EQ(axes.GetAxisTitleSize(2), 17.0);
  EXPECT_EQ(axes.GetAxisLabelsStringEnable(2), 18);
  EXPECT_EQ(z.GetAxisLabelsTicOffset(), 11.0);
  CString title;
  axes.GetAxisTitleString(2, title);
  EXPECT_STREQ(title, "title");
  axes.SetAxisTitleString(2, nullptr);
  axes.GetAxisTitleString(2, title);
  EXPECT_STREQ(title, "");
  EXPECT_EQ(axes.GetAxisLabelsEnable(2), 0);
}

TEST(Axes3D, HaveNoOtherAxesAndPlanes) {
  CAxes3D axes;
  const Bytes before = Saved(axes);
  constexpr int kMost = std::numeric_limits<int>::max();
  for (const int bad : {-1, 6, kMost, std::numeric_limits<int>::min()}) {
    EXPECT_EQ(axes.GetAxis(bad), nullptr);
    EXPECT_EQ(axes.GetAxisLabels(bad), nullptr);
    axes.EnableAxis(bad, 1);
    axes.EnableAxisLabels(bad, 1);
    axes.SetAxisColorMode(bad, 2);
    axes.SetAxisTics(bad, 1, 1, 1, 1, 1, 1);
    axes.SetAxisLabels(bad, 1, 1, 1, 1, 1, kRed, nullptr, 0);
    axes.SetAxisLabelsStrings(bad, nullptr, 0);
    axes.SetAxisMin(bad, 1);
    axes.SetAxisLabelsSize(bad, 2);
    axes.SetAxisTitleString(bad, "x");
    axes.EnableGrid(bad, 1);
    axes.SetPlaneGrid(bad, 1, 1, kRed, 1, 1, 1);
    axes.SetPlaneGridAttrib(bad, kRed, 1, 1);
    axes.SetPlaneColor(bad, kRed, kRed);
    axes.SetWallPlane(bad, kRed, kRed);
    axes.EnablePlane(bad, 1);
    axes.SetPlaneColorMode(bad, 1);
    axes.SetWallThickness(bad, 1);
    axes.SetOutlineWidth(bad, 1);
    EXPECT_EQ(axes.GetAxisEnable(bad), 0);
    EXPECT_EQ(axes.GetAxisColorMode(bad), 0);
    EXPECT_EQ(axes.GetAxisMax(bad), 0.0);
    EXPECT_EQ(axes.GetAxisLabelsEnds(bad), 0);
    EXPECT_EQ(axes.GetAxisLabelsStrings(bad), nullptr);
    EXPECT_EQ(axes.GetPlaneEnable(bad), 0);
    EXPECT_EQ(axes.GetPlaneColor(bad).alpha, 0.0);
    EXPECT_EQ(axes.GetWallThickness(bad), 0.0);
    CString title = "as before";
    axes.GetAxisTitleString(bad, title);
    EXPECT_STREQ(title, "as before");
  }
  EXPECT_EQ(Saved(axes), before);
}

TEST(Axes3D, SaveTheirFieldsInOrder) {
  CAxes3D axes;
  axes.SetAxesLimits({1, 2, 3, 4}, {5, 6, 7, 8});
  axes.SetPlaneGrid(0, 0x11, 0x12, kRed, 1.0, 0x13, 0x14);
  axes.SetWallPlane(5, kRed, kGreen);
  axes.SetWallThickness(5, 0.5);
  axes.SetWallOffset(5, 0.25);
  axes.EnableAxis(1, 0x21);
  axes.EnableAxisLabels(2, 0x22);
  axes.SetAxisColorMode(0, 0x23);
  axes.SetPlaneColorMode(5, 0x24);
  axes.SetOutlineMode(0x25);
  CAxes3D::nSelfID = 3;
  const Bytes record = Saved(axes);

  EXPECT_EQ(Bytes(record.begin(), record.begin() + 8), FromHex("03000000 00000000"));
  std::size_t at = 8;
  const auto expectNext = [&](const Bytes& expected) {
    ASSERT_LE(at + expected.size(), record.size());
    EXPECT_EQ(Bytes(record.begin() + static_cast<std::ptrdiff_t>(at),
                    record.begin() + static_cast<std::ptrdiff_t>(at + expected.size())),
              expected)
        << "at " << at;
    at += expected.size();
  };
  // Saving a part doesn't count it: the records are those of the parts on their own.
  for (int i = 0; i < 3; ++i) expectNext(Saved(*axes.GetAxis(i)));
  for (int i = 0; i < 3; ++i) expectNext(Saved(*axes.GetAxisLabels(i)));
  expectNext(FromHex(R"(
      11000000 12000000 14000000 00000000  000000000000f03f  13000000 00000000
      000000000000f03f 0000000000000000 0000000000000000 000000000000f03f  01000000 00000000)"));
  for (int plane = 1; plane < 6; ++plane) {
    expectNext(FromHex(R"(
      01000000 01000000 00000000 00000000  000000000000f03f  01000000 00000000
      0000000000000000 0000000000000000 0000000000000000 000000000000f03f  00000000 00000000)"));
  }
  at += 5 * 96;
  expectNext(FromHex(R"(
      000000000000f03f 0000000000000000 0000000000000000 000000000000f03f
      0000000000000000 000000000000f03f 0000000000000000 000000000000f03f
      000000000000e03f 000000000000d03f 0000000000000040 01000000 01000000)"));
  for (int half = 0; half < 2; ++half) {
    expectNext(FromHex(R"(00000000 01000000 02000000
                          00000000 02000000 01000000
                          01000000 02000000 00000000)"));
  }
  expectNext(FromHex(R"(
      000000000000f03f 0000000000000040 0000000000000840 0000000000001040
      0000000000001440 0000000000001840 0000000000001c40 0000000000002040
      23000000 01000000 01000000
      01000000 01000000 01000000 01000000 01000000 24000000
      00000000 21000000 00000000
      00000000 00000000 22000000
      25000000)"));
  EXPECT_EQ(at, record.size());

  CAxes3D loaded;
  LoadFrom(loaded, record);
  EXPECT_EQ(CAxes3D::nSelfID, 3);
  EXPECT_EQ(Saved(loaded), record);
  loaded.Save(nullptr);
  loaded.Load(nullptr);
}

TEST(Axes3D, DistrustTheirRecord) {
  const Bytes record = Saved(CAxes3D());
  // Truncated anywhere, it loads what is there or reports the file.
  for (std::size_t size = 0; size < record.size(); size += 7) {
    CAxes3D axes;
    const Bytes head(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(size));
    const CaughtError caught = Catch([&] { LoadFrom(axes, head); });
    EXPECT_TRUE(caught == orvalix::test::kNoError || caught.type == 7) << size << " " << caught;
  }
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { CAxes3D().Save(full.m_hFile); }), (CaughtError{7, 1, "Save"}));
  // A file that is open for writing can't be read.
  EXPECT_EQ(Catch([&] { CAxes3D().Load(full.m_hFile); }), (CaughtError{7, 1, "Load"}));
}

TEST(Axes3D, ReportThatTheirPartsCannotBeMade) {
  int unmade = 0;
  orvalix::test::FailEachAllocation([&] {
    const CaughtError caught = Catch([] { const CAxes3D axes; });
    if (caught == orvalix::test::kNoError) return;
    ++unmade;
    EXPECT_TRUE(caught == (CaughtError{3, 1, "SetAxesDefaults"}) ||
                caught == (CaughtError{3, 3, "InitAxisLabelsDefaults"}))
        << caught;
  });
  EXPECT_GE(unmade, 6);
}

class BoundAxes : public AxesTest {};

TEST_F(BoundAxes, RefuseWhatIsNotAlive) {
  alignas(16) static std::array<unsigned char, 8192> untagged{};
  CAxes3D axes(&gl, &transform, {0, 0, 0, 0}, {10, 10, 10, 0});
  axes.EnableAxis(0, 1);
  for (auto* bad : {static_cast<COpenGL*>(nullptr), reinterpret_cast<COpenGL*>(untagged.data())}) {
    EXPECT_EQ(Catch([&] { axes.InitAxes(bad, &transform); }), (CaughtError{16, 1, "InitAxes"}));
    EXPECT_EQ(Catch([&] { CAxes3D(bad, &transform, {}, {}); }), (CaughtError{16, 1, "InitAxes"}));
  }
  for (auto* bad :
       {static_cast<CTransform3D*>(nullptr), reinterpret_cast<CTransform3D*>(untagged.data())}) {
    EXPECT_EQ(Catch([&] { axes.InitAxes(&gl, bad); }), (CaughtError{15, 1, "InitAxes"}));
    EXPECT_EQ(Catch([&] { CAxes3D(&gl, bad, {}, {}); }), (CaughtError{15, 1, "InitAxes"}));
  }
  EXPECT_TRUE(CaptureFeedback([&] { axes.DrawAxes(); }).empty());
}

TEST_F(BoundAxes, GiveEachAxisItsLimits) {
  CAxes3D axes(&gl, &transform, {1, 2, 3, 0}, {4, 6, 1, 0});
  EXPECT_EQ(axes.GetTransformID(), transform.GetTransformID());
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(axes.GetAxis(i)->GetAxisIndex(), i);
    EXPECT_EQ(axes.GetAxis(i)->IsAxisSet(), 1);
    EXPECT_EQ(axes.GetAxis(i)->GetTransformID(), transform.GetTransformID());
    EXPECT_EQ(axes.GetAxisLabels(i)->GetTransformID(), transform.GetTransformID());
  }
  EXPECT_EQ(axes.GetAxisMin(0), 1.0);
  EXPECT_EQ(axes.GetAxisMax(1), 6.0);
  EXPECT_EQ(axes.GetAxisStart(2), 3.0);
  EXPECT_EQ(axes.GetAxisMin(2), 1.0);
  axes.SetAxesLimits({0, 0, 0, 0}, {9, 9, 9, 0});
  EXPECT_EQ(axes.GetAxisMax(2), 9.0);
  axes.SetAxisLimits(0, 3, 2);
  axes.BindAxes(&gl, &transform);  // leaves an axis's own limits
  EXPECT_EQ(axes.GetAxisStart(0), 3.0);
  axes.InitAxes(&gl, &transform);
  EXPECT_EQ(axes.GetAxisStart(0), 0.0);
  EXPECT_EQ(axes.GetAxisMax(0), 9.0);
}

TEST_F(BoundAxes, DrawNothingAtFirst) {
  CAxes3D axes(&gl, &transform, {0, 0, 0, 0}, {10, 10, 10, 0});
  EXPECT_TRUE(CaptureFeedback([&] { axes.DrawAxes(); }).empty());
  EXPECT_TRUE(CaptureFeedback([&] { CAxes3D().DrawAxes(); }).empty());
}

TEST_F(BoundAxes, DrawLinesThenPlanesThenLabels) {
  CAxes3D axes(&gl, &transform, {2, 2, 2, 0}, {8, 8, 8, 0});
  axes.SetAxisTics(0, 2, 10, 1, 0.02, 0.04, 2);
  axes.SetAxisIntercept(0, 5, 5);
  axes.SetAxisColor(0, red);
  axes.SetAxisTicColor(0, red);
  axes.SetPlaneGrid(1, 1, 0, green, 1.0, 0, 0);
  axes.SetPlaneColor(1, blue, blue);
  axes.SetOutlineMode(0);
  axes.SetPlaneColorMode(1, 0);
  axes.SetAxisLabels(0, 1, 0, 5, 0, 7, SetRGBD(1, 1, 0, 1), nullptr, 0);
  const auto drawn = CaptureFeedback([&] { axes.DrawAxes(); });
  std::string order;
  for (const FeedbackPrimitive& primitive : drawn) {
    const auto& color = primitive.vertices[0];
    const char letter =
        color.red > 0.5 ? (color.green > 0.5 ? 'L' : 'A') : (color.green > 0.5 ? 'G' : 'P');
    if (order.empty() || order.back() != letter) order += letter;
  }
  EXPECT_EQ(order, "AGPL");
}

TEST_F(BoundAxes, SetTheColorModeOfEachAxis) {
  CAxes3D axes(&gl, &transform, {0, 0, 0, 0}, {10, 10, 10, 0});
  axes.SetAxisColorMode(2, 0);
  gl.SetColorMode(1);
  axes.DrawAxes();  // even where the axes aren't drawn
  EXPECT_EQ(gl.GetColorMode(), 0);
}

}  // namespace
