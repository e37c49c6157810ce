#include "orvalix/axes/axis_labels_3d.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "axes/axes_fixture.h"
#include "orvalix/axes/axis_3d.h"
#include "orvalix/render/gl_api_internal.h"
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
using orvalix::test::FromHex;
using orvalix::test::LoadFrom;
using orvalix::test::Saved;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kPlusX = 3;
constexpr int kPlusY = 4;
constexpr int kDown = 2;
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(AxisLabels3D, StartWithTheirDefaults) {
  const int before = CAxisLabels3D::nSelfID;
  CAxisLabels3D labels;
  EXPECT_EQ(CAxisLabels3D::nSelfID, before + 1);
  EXPECT_EQ(labels.GetAxisLabelsPlane(), 3);
  EXPECT_EQ(labels.GetAxisLabelsDir(), 0);
  EXPECT_EQ(labels.GetAxisLabelsRotation(), 0);
  EXPECT_EQ(labels.GetAxisLabelsDecimals(), 0);
  EXPECT_EQ(labels.GetAxisLabelsFormat(), 0);
  EXPECT_EQ(labels.GetAxisLabelsEnds(), 7);
  EXPECT_EQ(labels.GetAxisLabelsXJust(), -1);
  EXPECT_EQ(labels.GetAxisLabelsYJust(), -1);
  EXPECT_EQ(labels.GetNumAxisLabelsStrings(), 0);
  EXPECT_EQ(labels.GetAxisLabelsStrings(), nullptr);
  EXPECT_EQ(labels.GetAxisTitlePlane(), 3);
  EXPECT_EQ(labels.GetAxisTitleDir(), 0);
  EXPECT_EQ(labels.GetAxisTitleRotation(), 0);
  EXPECT_EQ(labels.GetAxisTitleXJust(), 0);
  EXPECT_EQ(labels.GetAxisTitleYJust(), 1);
  EXPECT_EQ(labels.GetAxisTitleAutomatic(), 1);
  EXPECT_EQ(labels.GetAxisLabelsNthTic(), 0);
  EXPECT_EQ(labels.GetAxisLabelsTicOffset(), 1.5);
  EXPECT_EQ(labels.GetAxisLabelsSize(), 1.0);
  EXPECT_EQ(labels.GetAxisTitleSize(), 1.0);
  EXPECT_EQ(labels.GetAxisLabelsStringEnable(), 0);
  EXPECT_EQ(labels.GetAxisLabelsFlipX(), 0);
  EXPECT_EQ(labels.GetAxisLabelsFlipY(), 0);
  EXPECT_EQ(labels.GetAxisTitleFlipX(), 0);
  EXPECT_EQ(labels.GetAxisTitleFlipY(), 0);
  EXPECT_EQ(labels.GetAxisLabelsColor().alpha, 1.0);
  EXPECT_EQ(labels.GetAxisTitleColor().alpha, 0.0);  // kept
  EXPECT_STREQ(labels.GetAxisTitleObj()->GetString(), "");
  EXPECT_STREQ(labels.GetEngString(), " KMBT");
  EXPECT_EQ(labels.GetNumAxisLabelObjs(), 0);
  EXPECT_EQ(labels.GetClassTag(), 404);
}

TEST(AxisLabels3D, KeepTheirProperties) {
  CAxisLabels3D labels;
  const std::array<CString, 2> strings{"a", "b"};
  labels.SetAxisLabels(1, 2, 3, 4, 5, {1, 0, 0, 1}, strings.data(), 2);
  EXPECT_EQ(labels.GetAxisLabelsPlane(), 1);
  EXPECT_EQ(labels.GetAxisLabelsRotation(), 2);
  EXPECT_EQ(labels.GetAxisLabelsDir(), 3);
  EXPECT_EQ(labels.GetAxisLabelsDecimals(), 4);
  EXPECT_EQ(labels.GetAxisLabelsEnds(), 5);
  EXPECT_EQ(labels.GetAxisLabelsColor().red, 1.0);
  EXPECT_EQ(labels.GetNumAxisLabelsStrings(), 2);
  EXPECT_STREQ(labels.GetAxisLabelsStrings()[1], "b");
  labels.SetAxisTitle(1, 2, 3, 4, 5, 6, {0, 1, 0, 1}, "title");
  EXPECT_EQ(labels.GetAxisTitlePlane(), 1);
  EXPECT_EQ(labels.GetAxisTitleDir(), 2);
  EXPECT_EQ(labels.GetAxisTitleRotation(), 3);
  EXPECT_EQ(labels.GetAxisTitleXJust(), 4);
  EXPECT_EQ(labels.GetAxisTitleYJust(), 5);
  EXPECT_EQ(labels.GetAxisTitleAutomatic(), 6);
  EXPECT_EQ(labels.GetAxisTitleColor().green, 1.0);
  CString title;
  labels.GetAxisTitleString(title);
  EXPECT_STREQ(title, "title");
  labels.SetAxisLabelsPlane(11);
  labels.SetAxisLabelsRotation(12);
  labels.SetAxisLabelsDir(13);
  labels.SetAxisLabelsDecimals(14);
  labels.SetAxisLabelsEnds(15);
  labels.SetAxisLabelsFormat(16);
  labels.SetAxisLabelsXJust(17);
  labels.SetAxisLabelsYJust(18);
  labels.SetAxisLabelsNthTic(19);
  labels.SetAxisLabelsTicOffset(20.0);
  labels.SetAxisLabelsSize(21.0);
  labels.SetAxisLabelsFlipX(22);
  labels.SetAxisLabelsFlipY(23);
  labels.SetAxisLabelsColor({0, 0, 1, 1});
  labels.SetEngString("xyz");
  labels.SetAxisTitlePlane(24);
  labels.SetAxisTitleDir(25);
  labels.SetAxisTitleRotation(26);
  labels.SetAxisTitleXJust(27);
  labels.SetAxisTitleYJust(28);
  labels.SetAxisTitleAutomatic(0);
  labels.SetAxisTitleSize(29.0);
  labels.SetAxisTitleFlipX(30);
  labels.SetAxisTitleFlipY(31);
  labels.SetAxisTitleColor({0, 0, 0.5, 1});
  EXPECT_EQ(labels.GetAxisLabelsPlane(), 11);
  EXPECT_EQ(labels.GetAxisLabelsRotation(), 12);
  EXPECT_EQ(labels.GetAxisLabelsDir(), 13);
  EXPECT_EQ(labels.GetAxisLabelsDecimals(), 14);
  EXPECT_EQ(labels.GetAxisLabelsEnds(), 15);
  EXPECT_EQ(labels.GetAxisLabelsFormat(), 16);
  EXPECT_EQ(labels.GetAxisLabelsXJust(), 17);
  EXPECT_EQ(labels.GetAxisLabelsYJust(), 18);
  EXPECT_EQ(labels.GetAxisLabelsNthTic(), 19);
  EXPECT_EQ(labels.GetAxisLabelsTicOffset(), 20.0);
  EXPECT_EQ(labels.GetAxisLabelsSize(), 21.0);
  EXPECT_EQ(labels.GetAxisLabelsFlipX(), 22);
  EXPECT_EQ(labels.GetAxisLabelsFlipY(), 23);
  EXPECT_EQ(labels.GetAxisLabelsColor().blue, 1.0);
  EXPECT_STREQ(labels.GetEngString(), "xyz");
  EXPECT_EQ(labels.GetAxisTitlePlane(), 24);
  EXPECT_EQ(labels.GetAxisTitleDir(), 25);
  EXPECT_EQ(labels.GetAxisTitleRotation(), 26);
  EXPECT_EQ(labels.GetAxisTitleXJust(), 27);
  EXPECT_EQ(labels.GetAxisTitleYJust(), 28);
  EXPECT_EQ(labels.GetAxisTitleAutomatic(), 0);
  EXPECT_EQ(labels.GetAxisTitleSize(), 29.0);
  EXPECT_EQ(labels.GetAxisTitleFlipX(), 30);
  EXPECT_EQ(labels.GetAxisTitleFlipY(), 31);
  EXPECT_EQ(labels.GetAxisTitleColor().blue, 0.5);
}

TEST(AxisLabels3D, CopyTheirStrings) {
  CAxisLabels3D labels;
  std::array<CString, 2> strings{"a", "b"};
  labels.SetAxisLabelsStrings(strings.data(), 2);
  strings[0] = "changed";
  EXPECT_STREQ(labels.GetAxisLabelsStrings()[0], "a");
  for (const int count : {0, -1}) {
    labels.SetAxisLabelsStrings(strings.data(), 2);
    labels.SetAxisLabelsStrings(strings.data(), count);
    EXPECT_EQ(labels.GetNumAxisLabelsStrings(), 0);
  }
  labels.SetAxisLabelsStrings(strings.data(), 2);
  labels.SetAxisLabels(1, 0, 0, 0, 7, {0, 0, 0, 1}, nullptr, 5);
  EXPECT_EQ(labels.GetNumAxisLabelsStrings(), 0);
}

TEST(AxisLabels3D, SaveTheirFieldsInOrder) {
  CAxisLabels3D labels;
  CAxisLabels3D::nSelfID = 7;
  CTextObj3D::nSelfID = 9;
  const std::array<CString, 2> strings{"a", "bc"};
  labels.SetAxisLabels(1, 2, 3, 4, 5, {1, 0, 0, 0}, strings.data(), 2);
  labels.SetAxisLabelsSize(2.0);
  labels.SetAxisLabelsFormat(6);
  labels.SetAxisLabelsXJust(7);
  labels.SetAxisLabelsYJust(8);
  labels.SetAxisLabelsFlipX(9);
  labels.SetAxisLabelsFlipY(10);
  labels.SetAxisTitleFlipX(11);
  labels.SetAxisTitleFlipY(12);
  labels.SetAxisTitle(13, 14, 15, 16, 17, 18, {0, 0, 0, 0}, "T");
  labels.EnableAxisLabelsStrings(19);
  labels.SetAxisLabelsNthTic(99);  // not in the record
  labels.SetEngString("?");        // neither
  const Bytes expected = FromHex(R"(
      07000000 00000000 00000000                     # counter, transform, axis
      01000000 03000000 02000000 04000000 06000000   # plane, dir, rotation, decimals, format
      05000000 07000000 08000000 02000000            # ends, justification, number of strings
      09000000 0a000000 0b000000 0c000000            # flips
      0d000000 0e000000 0f000000 10000000 11000000 12000000  # title
      000000000000f83f 0000000000000040 000000000000f03f     # tic offset, sizes
      01000000 02000000 00000000 01000000  01000000 02000000 00000000 01000000
      02000000 02000000 02000000 00000000  01000000 02000000 00000000 01000000  # x axis
      02000000 01000000 02000000 01000000  02000000 02000000 02000000 00000000
      01000000 02000000 02000000 01000000  02000000 02000000 02000000 00000000  # y axis
      02000000 01000000 01000000 02000000  02000000 01000000 01000000 02000000
      02000000 01000000 01000000 00000000  02000000 01000000 01000000 02000000  # z axis
      01000000 00000000 13000000                     # labels set, spare, strings enabled
      000000000000f03f 0000000000000000 0000000000000000 0000000000000000  # colours
      0000000000000000 0000000000000000 0000000000000000 0000000000000000
      01000000 61 02000000 6263                      # strings
      09000000 00000000 01000000 54                  # the title: counter, transform, string
  )");
  const Bytes record = Saved(labels);
  ASSERT_GT(record.size(), expected.size());
  EXPECT_EQ(Bytes(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(expected.size())),
            expected);
  CAxisLabels3D loaded;
  LoadFrom(loaded, record);
  EXPECT_EQ(CAxisLabels3D::nSelfID, 7);
  EXPECT_EQ(Saved(loaded), record);
  Bytes changed = record;
  changed[4] = 0x31;                              // the transform's id
  changed[8] = 2;                                 // the axis
  changed[expected.size() - 32 - 64 - 1] = 0x33;  // the spare number before the strings' switch
  LoadFrom(loaded, changed);
  EXPECT_EQ(Saved(loaded), changed);
  EXPECT_EQ(loaded.GetTransformID(), 0x31);
  LoadFrom(loaded, record);
  EXPECT_EQ(loaded.GetAxisLabelsNthTic(), 0);
  EXPECT_STREQ(loaded.GetEngString(), " KMBT");
  loaded.Save(nullptr);
  loaded.Load(nullptr);
}

TEST(AxisLabels3D, DistrustTheirRecord) {
  CAxisLabels3D labels;
  const Bytes record = Saved(labels);
  constexpr std::size_t kStrings = 4 * 11;
  for (const int count : {0x7F, 0xFF}) {
    Bytes changed = record;
    changed[kStrings + 3] =
        static_cast<unsigned char>(count);  // more than the file holds, or fewer than none
    EXPECT_EQ(Catch([&] { LoadFrom(labels, changed); }), (CaughtError{7, 3, "Load"}));
  }
  for (std::size_t size = 0; size < record.size(); ++size) {
    CAxisLabels3D partial;
    const Bytes head(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(size));
    const CaughtError caught = Catch([&] { LoadFrom(partial, head); });
    EXPECT_TRUE(caught == orvalix::test::kNoError || caught.type == 7) << size;
    EXPECT_EQ(partial.GetNumAxisLabelsStrings(), 0);
  }
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { labels.Save(full.m_hFile); }), (CaughtError{7, 3, "Save"}));
}

TEST(AxisLabels3D, ReportThatTheirTitleCannotBeMade) {
  const int failures = orvalix::test::FailEachAllocation([] {
    const CaughtError caught = Catch([] { const CAxisLabels3D labels; });
    EXPECT_TRUE(caught == orvalix::test::kNoError ||
                caught == (CaughtError{3, 3, "InitAxisLabelsDefaults"}))
        << caught;
  });
  EXPECT_GE(failures, 1);
}

TEST(AxisLabels3D, ReportThatStringsCannotBeCopied) {
  const std::array<CString, 1> strings{"a text that is too long to be kept in place"};
  CAxisLabels3D labels;
  orvalix::test::FailEachAllocation([&] {
    const CaughtError caught = Catch([&] { labels.SetAxisLabelsStrings(strings.data(), 1); });
    EXPECT_TRUE(caught == orvalix::test::kNoError ||
                caught == (CaughtError{2, 3, "SetAxisLabelsStrings"}))
        << caught;
  });
  EXPECT_EQ(labels.GetNumAxisLabelsStrings(), 1);
}

class DrawnLabels : public AxesTest {
 protected:
  DrawnLabels() : axis(&gl, &transform, 0, 0, 10), labels(&gl, &transform, &axis) {
    axis.SetAxisIntercept(10, 0);
    axis.SetAxisTics(0, 1, 5, 0.02, 0.04, kDown);
    axis.SetAxisWallThickness(0.0);
    labels.SetAxisLabels(1, 0, kDown, 0, 7, red, nullptr, 0);
  }

  std::vector<std::string> Texts() {
    labels.DrawAxisLabels();
    std::vector<std::string> texts;
    for (int i = 0; i < labels.GetNumAxisLabelObjs(); ++i) {
      texts.emplace_back(labels.GetAxisLabelObj(i)->GetString());
    }
    return texts;
  }
  CTextObj3D& First() {
    labels.DrawAxisLabels();
    return *labels.GetAxisLabelObj(0);
  }

  CAxis3D axis;
  CAxisLabels3D labels;
};

TEST_F(DrawnLabels, RefuseWhatIsNotAlive) {
  alignas(16) static std::array<unsigned char, 8192> untagged{};
  for (auto* bad : {static_cast<COpenGL*>(nullptr), reinterpret_cast<COpenGL*>(untagged.data())}) {
    EXPECT_EQ(Catch([&] { labels.InitAxisLabels(bad, &transform, &axis); }),
              (CaughtError{16, 3, "InitAxisLabels"}));
  }
  for (auto* bad :
       {static_cast<CTransform3D*>(nullptr), reinterpret_cast<CTransform3D*>(untagged.data())}) {
    EXPECT_EQ(Catch([&] { labels.InitAxisLabels(&gl, bad, &axis); }),
              (CaughtError{15, 3, "InitAxisLabels"}));
  }
  for (auto* bad : {static_cast<CAxis3D*>(nullptr), reinterpret_cast<CAxis3D*>(untagged.data())}) {
    EXPECT_EQ(Catch([&] { labels.InitAxisLabels(&gl, &transform, bad); }),
              (CaughtError{10, 3, "InitAxisLabels"}));
  }
  EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(DrawnLabels, StandAtTheMajorTics) {
  EXPECT_THAT(Texts(), ElementsAre("0", "5", "10"));
  // Below the axis by the tic length of 0.04 times 1.5, of a range of 10.
  const std::array<double, 3> at{0, 5, 10};
  for (int i = 0; i < 3; ++i) {
    const point3Dtype place = labels.GetAxisLabelObj(i)->GetLocation();
    EXPECT_NEAR(place.x, at[static_cast<std::size_t>(i)], 1e-9);
    EXPECT_NEAR(place.y, 10.0, 1e-9);
    EXPECT_NEAR(place.z, -0.6, 1e-9);
  }
}

TEST_F(DrawnLabels, StandInTheirDirection) {
  struct Case {
    int direction;
    point3Dtype place;
  };
  const std::array<Case, 8> cases{{{0, {-0.6, 10, 0, 0}},
                                   {1, {0, 9.4, 0, 0}},
                                   {2, {0, 10, -0.6, 0}},
                                   {3, {0.6, 10, 0, 0}},
                                   {4, {0, 10.6, 0, 0}},
                                   {5, {0, 10, 0.6, 0}},
                                   {-1, {-0.6, 10, 0, 0}},
                                   {6, {0, 10, 0.6, 0}}}};
  for (const Case& c : cases) {
    labels.SetAxisLabelsDir(c.direction);
    const point3Dtype place = First().GetLocation();
    EXPECT_NEAR(place.x, c.place.x, 1e-9) << c.direction;
    EXPECT_NEAR(place.y, c.place.y, 1e-9) << c.direction;
    EXPECT_NEAR(place.z, c.place.z, 1e-9) << c.direction;
  }
}

TEST_F(DrawnLabels, KeepClearOfTheWall) {
  axis.SetAxisWallThickness(0.1);  // more than the tics' 0.04
  EXPECT_NEAR(First().GetLocation().z, -1.5, 1e-9);
  labels.SetAxisLabelsTicOffset(2.0);
  EXPECT_NEAR(First().GetLocation().z, -2.0, 1e-9);
}

TEST_F(DrawnLabels, AreMadeAnewEachTime) {
  Texts();
  axis.SetAxisTics(2, 2, 2, 0.02, 0.04, kDown);
  EXPECT_THAT(Texts(), ElementsAre("2", "6", "10"));
  EXPECT_EQ(labels.GetAxisLabelObj(3), nullptr);
  EXPECT_EQ(labels.GetAxisLabelObj(-1), nullptr);
}

TEST_F(DrawnLabels, AreNoMoreThanAPictureShowsApart) {
  axis.SetAxisTics(0, 0.001, 1, 0.02, 0.04, kDown);
  labels.SetAxisLabelsDecimals(3);
  // "0.000" and so on count for 6 of 10000: the 1667th reaches that.
  EXPECT_EQ(Texts().size(), 1667U);
  EXPECT_STREQ(labels.GetAxisLabelObj(1666)->GetString(), "1.666");
  labels.SetAxisLabelsDecimals(1000);
  // A zero, a point and 100 digits count for 103: the 98th reaches that.
  EXPECT_EQ(Texts().size(), 98U);
  const std::vector<CString> strings(1, CString('m', 20000));
  labels.SetAxisLabelsStrings(strings.data(), 1);
  labels.EnableAxisLabelsStrings(1);
  EXPECT_EQ(Texts().size(), 1U);  // a long one is drawn, though alone
  axis.SetAxisTics(0, 1, 5, 0.02, 0.04, kDown);
  labels.EnableAxisLabelsStrings(0);
  labels.SetAxisLabelsDecimals(0);
  EXPECT_THAT(Texts(), ElementsAre("0", "5", "10"));
}

TEST_F(DrawnLabels, GoUpFromTheCentreThenDown) {
  axis.SetAxisTics(5, 1, 2, 0.02, 0.04, kDown);
  EXPECT_THAT(Texts(), ElementsAre("5", "7", "9", "3", "1"));
}

TEST_F(DrawnLabels, TakeTheirLook) {
  labels.SetAxisLabelsRotation(30);
  labels.SetAxisLabelsPlane(2);
  labels.SetAxisLabelsSize(1.25);
  labels.SetAxisLabelsXJust(0);
  labels.SetAxisLabelsYJust(1);
  CTextObj3D& label = First();
  EXPECT_EQ(label.GetRotation(), 30);
  EXPECT_EQ(label.GetTextPlane(), 2);
  EXPECT_EQ(label.GetCharSize(), 1.25);
  EXPECT_EQ(label.GetColor().red, 1.0);
  EXPECT_EQ(label.GetXJustify(), 0);
  EXPECT_EQ(label.GetYJustify(), 1);
  EXPECT_EQ(label.GetTransformID(), transform.GetTransformID());
}

TEST_F(DrawnLabels, DropTheEndsThatAreNotAskedFor) {
  struct Case {
    int ends;
    std::vector<std::string> texts;
  };
  axis.SetAxisTics(5, 1, 5, 0.02, 0.04, kDown);  // centre, maximum, minimum
  axis.SetAxisLimits(0, 10);
  const std::vector<Case> cases{
      {7, {"5", "10", "0"}}, {0, {}},          {1, {"0"}},       {2, {"5"}},
      {4, {"10"}},           {5, {"10", "0"}}, {6, {"5", "10"}}, {8, {}},
      {-1, {"5", "10", "0"}}};
  for (const Case& c : cases) {
    labels.SetAxisLabelsEnds(c.ends);
    EXPECT_EQ(Texts(), c.texts) << c.ends;
  }
  // A label at two of the places is kept for either.
  axis.SetAxisTics(0, 1, 5, 0.02, 0.04, kDown);
  labels.SetAxisLabelsEnds(1);
  EXPECT_THAT(Texts(), ElementsAre("0", "5"));
  labels.SetAxisLabelsEnds(2);
  EXPECT_THAT(Texts(), ElementsAre("0", "5"));
  labels.SetAxisLabelsEnds(4);
  EXPECT_THAT(Texts(), ElementsAre("5", "10"));
}

TEST_F(DrawnLabels, AreAtAnEndWithinAThousandthOfTheRange) {
  axis.SetAxisTics(0.009, 1, 5, 0.02, 0.04, kDown);
  axis.SetAxisLimits(0, 10);
  labels.SetAxisLabelsEnds(6);  // not at the minimum, from which 0.009 is less than 0.01 away
  labels.SetAxisLabelsDecimals(3);
  EXPECT_THAT(Texts(), ElementsAre("0.009", "5.009"));  // but kept as the centre
  labels.SetAxisLabelsEnds(0);
  EXPECT_THAT(Texts(), ElementsAre("5.009"));
}

TEST_F(DrawnLabels, ShowStringsWhileTheyAreEnabled) {
  const std::array<CString, 2> strings{"low", ""};
  labels.SetAxisLabelsStrings(strings.data(), 2);
  EXPECT_THAT(Texts(), ElementsAre("0", "5", "10"));
  labels.EnableAxisLabelsStrings(1);
  EXPECT_THAT(Texts(), ElementsAre("low", "", ""));
  // The index counts the labels that are dropped too.
  labels.SetAxisLabelsEnds(4);
  EXPECT_THAT(Texts(), ElementsAre("", ""));
  labels.SetAxisLabelsStrings(nullptr, 0);
  EXPECT_THAT(Texts(), ElementsAre("5", "10"));
}

TEST_F(DrawnLabels, AreFormatted) {
  labels.SetAxisLabelsDecimals(2);
  EXPECT_THAT(Texts(), ElementsAre("0.00", "5.00", "10.00"));
  labels.SetAxisLabelsFormat(1);
  EXPECT_THAT(Texts(), ElementsAre("0.00e+00", "5.00e+00", "1.00e+01"));
  axis.SetAxisLimits(0, 2e6);
  axis.SetAxisTics(0, 1e6, 1, 0.02, 0.04, kDown);
  labels.SetAxisLabelsFormat(2);
  labels.SetEngString("-km");
  EXPECT_THAT(Texts(), ElementsAre("0.00", "1.00m", "2.00m"));
}

TEST_F(DrawnLabels, AreJustifiedByTheTable) {
  EXPECT_EQ(First().GetXJustify(), 1);
  EXPECT_EQ(First().GetYJustify(), 2);
  labels.SetAxisLabelsRotation(-90);
  EXPECT_EQ(First().GetXJustify(), 2);  // 0, exchanged
  EXPECT_EQ(First().GetYJustify(), 1);
}

TEST_F(DrawnLabels, ExchangeTheSidesInTheOtherDirection) {
  // The z axis in plane 0: 2 and 1. Along x, +x exchanges x; an inverted scale exchanges it back.
  axis.InitAxis(&gl, &transform, 2);
  labels.InitAxisLabels(&gl, &transform, &axis);
  labels.SetAxisLabelsPlane(0);
  labels.SetAxisLabelsDir(0);
  EXPECT_EQ(First().GetXJustify(), 2);
  labels.SetAxisLabelsDir(kPlusX);
  EXPECT_EQ(First().GetXJustify(), 0);
  EXPECT_EQ(First().GetYJustify(), 1);
  transform.SetScale({10, 0, 0, 0}, {0, 10, 10, 0});
  transform.ChartTransform();
  EXPECT_EQ(First().GetXJustify(), 2);
  labels.SetAxisLabelsDir(0);
  EXPECT_EQ(First().GetXJustify(), 0);
  // Justifications of the caller stay.
  labels.SetAxisLabelsXJust(2);
  EXPECT_EQ(First().GetXJustify(), 2);
  labels.SetAxisLabelsXJust(-1);
  // Along y it is the y justification, here of the x axis: 1 and 2.
  axis.InitAxis(&gl, &transform, 0);
  labels.InitAxisLabels(&gl, &transform, &axis);
  labels.SetAxisLabelsDir(1);
  EXPECT_EQ(First().GetYJustify(), 2);
  labels.SetAxisLabelsDir(kPlusY);
  EXPECT_EQ(First().GetYJustify(), 0);
  EXPECT_EQ(First().GetXJustify(), 1);
}

TEST_F(DrawnLabels, ExchangeOnlyWhatLiesAlongTheirDirection) {
  // The y axis in plane 3: 2 and 2.
  constexpr int kPlusZ = 5;
  axis.InitAxis(&gl, &transform, 1);
  labels.InitAxisLabels(&gl, &transform, &axis);
  labels.SetAxisLabelsPlane(3);
  const auto justify = [&](int direction) {
    labels.SetAxisLabelsDir(direction);
    return std::pair(First().GetXJustify(), First().GetYJustify());
  };
  EXPECT_EQ(justify(0), std::pair(2, 2));
  EXPECT_EQ(justify(kPlusX), std::pair(0, 2));
  EXPECT_EQ(justify(kPlusY), std::pair(2, 0));
  EXPECT_EQ(justify(kDown), std::pair(2, 2));
  EXPECT_EQ(justify(kPlusZ), std::pair(2, 2));
  transform.SetScale({0, 10, 10, 0}, {10, 0, 0, 0});
  transform.ChartTransform();
  EXPECT_EQ(justify(1), std::pair(2, 0));
  EXPECT_EQ(justify(kPlusY), std::pair(2, 2));
  EXPECT_EQ(justify(kDown), std::pair(2, 2));
  EXPECT_EQ(justify(kPlusX), std::pair(0, 2));
}

TEST_F(DrawnLabels, CountTheirStringsOverBothPasses) {
  const std::array<CString, 3> strings{"a", "b", "c"};
  labels.SetAxisLabelsStrings(strings.data(), 3);
  labels.EnableAxisLabelsStrings(1);
  axis.SetAxisTics(5, 1, 5, 0.02, 0.04, kDown);
  EXPECT_THAT(Texts(), ElementsAre("a", "b", "c"));  // 5, 10, 0
}

TEST_F(DrawnLabels, StandOutsideOfAnInvertedAxisToo) {
  transform.SetScale({0, 0, 10, 0}, {10, 10, 0, 0});
  transform.ChartTransform();
  labels.SetAxisLabelsDir(5);
  EXPECT_NEAR(First().GetLocation().z, 0.6, 1e-9);  // 0.06 of 10, towards larger values
}

TEST_F(DrawnLabels, NeedAFont) {
  gl.SetCurrentFont(99);
  labels.DrawAxisLabels();
  EXPECT_EQ(labels.GetNumAxisLabelObjs(), 0);
  EXPECT_EQ(Catch([&] { labels.InitAxisLabels(&gl, &transform, &axis); }),
            (CaughtError{17, 19, "InitTextObj"}));
  gl.SetCurrentFont(0);
}

TEST_F(DrawnLabels, ReportThatTheyCannotBeMade) {
  labels.SetAxisLabelsEnds(7);
  const CaughtError caught = Catch([&] {
    const orvalix::test::AllocationFailure failure(1);
    labels.DrawAxisLabels();
  });
  EXPECT_EQ(caught, (CaughtError{3, 3, "NewLabelObj"}));
}

TEST_F(DrawnLabels, CrossTheirFlips) {
  axis.InitAxis(&gl, &transform, 1);
  axis.SetAxisIntercept(10, 0);
  labels.InitAxisLabels(&gl, &transform, &axis);  // plane 1: 2 and 2
  labels.SetAxisLabelsFlipX(1);
  EXPECT_EQ(First().GetFlipX(), 1);
  EXPECT_EQ(First().GetXJustify(), 2);
  EXPECT_EQ(First().GetYJustify(), 0);
  labels.SetAxisLabelsFlipX(0);
  labels.SetAxisLabelsFlipY(1);
  EXPECT_EQ(First().GetFlipY(), 1);
  EXPECT_EQ(First().GetXJustify(), 0);
  EXPECT_EQ(First().GetYJustify(), 2);
  labels.SetAxisLabelsXJust(2);  // a caller's is exchanged too
  EXPECT_EQ(First().GetXJustify(), 0);
}

class DrawnTitle : public DrawnLabels {
 protected:
  DrawnTitle() { labels.SetAxisTitleString("Title"); }

  /// The title after a drawing for that axis.
  CTextObj3D& TitleOf(int index, int direction) {
    axis.InitAxis(&gl, &transform, index);
    labels.InitAxisLabels(&gl, &transform, &axis);
    labels.SetAxisLabelsDir(direction);
    labels.DrawAxisLabels();
    return *labels.GetAxisTitleObj();
  }
  /// Leaves room round the box, where labels and title are.
  void PlaceWithinTheView() {
    transform.SetChartRect({0.5, 0.5, 0.5, 0});
    transform.ChartTransform();
  }
  double Longest() {
    double longest = 0.0;
    for (int i = 0; i < labels.GetNumAxisLabelObjs(); ++i) {
      longest = std::max(longest, labels.GetAxisLabelObj(i)->TextWidth());
    }
    return longest;
  }
};

TEST_F(DrawnTitle, StandsBeyondTheLabelsOfEachAxis) {
  // The box spans -1 to 1; labels are 0.06 of it, 0.12, off the axis.
  axis.SetAxisIntercept(10, 0);
  const CTextObj3D& ofX = TitleOf(0, kDown);
  EXPECT_NEAR(ofX.GetNormLocation().x, 0.0, 1e-9);
  EXPECT_NEAR(ofX.GetNormLocation().y, 1.0, 1e-9);
  EXPECT_NEAR(ofX.GetNormLocation().z, -1.12 - 1.5 * ofX.TextHeight(), 1e-9);
  EXPECT_EQ(ofX.GetRotation(), 0);
  EXPECT_EQ(ofX.GetXJustify(), 1);
  EXPECT_EQ(ofX.GetYJustify(), 2);

  const CTextObj3D& ofY = TitleOf(1, kPlusX);
  EXPECT_NEAR(ofY.GetNormLocation().x, 1.12 + ofY.TextHeight() + Longest(), 1e-9);
  EXPECT_NEAR(ofY.GetNormLocation().y, 0.0, 1e-9);
  EXPECT_EQ(ofY.GetRotation(), 0);
  EXPECT_EQ(ofY.GetXJustify(), 1);
  EXPECT_EQ(ofY.GetYJustify(), 2);  // 0, exchanged for +x

  axis.SetAxisIntercept(0, 10);
  const CTextObj3D& ofZ = TitleOf(2, 0);
  EXPECT_NEAR(ofZ.GetNormLocation().x, -1.12 - ofZ.TextHeight() - Longest(), 1e-9);
  EXPECT_NEAR(ofZ.GetNormLocation().z, 0.0, 1e-9);
  EXPECT_EQ(ofZ.GetRotation(), 270);
  EXPECT_EQ(ofZ.GetXJustify(), 1);
  EXPECT_EQ(ofZ.GetYJustify(), 2);
}

TEST_F(DrawnTitle, ExchangesItsSidesInTheOtherDirection) {
  EXPECT_EQ(TitleOf(0, kPlusY).GetYJustify(), 2);  // of x it would be x just, whose middle stays
  EXPECT_EQ(TitleOf(0, kPlusY).GetXJustify(), 1);
  EXPECT_EQ(TitleOf(1, 0).GetYJustify(), 0);
  EXPECT_EQ(TitleOf(1, kPlusX).GetYJustify(), 2);
  EXPECT_EQ(TitleOf(2, 0).GetYJustify(), 2);
  EXPECT_EQ(TitleOf(2, kPlusX).GetYJustify(), 0);
}

TEST_F(DrawnTitle, TakesWhatTheCallerChooses) {
  labels.SetAxisTitle(2, 0, 45, 2, 0, 0, green, "Mine");
  labels.SetAxisTitleSize(1.5);
  const CTextObj3D& title = TitleOf(0, kDown);
  EXPECT_STREQ(title.GetString(), "Mine");
  EXPECT_EQ(title.GetTextPlane(), 2);
  EXPECT_EQ(title.GetRotation(), 45);
  EXPECT_EQ(title.GetXJustify(), 2);
  EXPECT_EQ(title.GetYJustify(), 0);
  EXPECT_EQ(title.GetColor().green, 1.0);
  EXPECT_EQ(title.GetCharSize(), 1.5);
  labels.SetAxisTitleFlipX(1);
  EXPECT_EQ(TitleOf(0, kDown).GetYJustify(), 2);
  EXPECT_EQ(TitleOf(0, kDown).GetYJustify(), 2);  // each drawing anew, not back and forth
  EXPECT_EQ(title.GetFlipX(), 1);
  labels.SetAxisTitleFlipX(0);
  labels.SetAxisTitleFlipY(1);
  EXPECT_EQ(TitleOf(0, kDown).GetXJustify(), 0);
  EXPECT_EQ(title.GetFlipY(), 1);
}

TEST_F(DrawnTitle, IsDrawnAfterTheLabelsInItsColor) {
  PlaceWithinTheView();
  labels.SetAxisTitleColor(blue);
  const auto drawn = CaptureFeedback([&] { labels.DrawAxisLabels(); });
  ASSERT_FALSE(drawn.empty());
  EXPECT_NEAR(drawn.front().vertices[0].red, 1.0, 1e-6);
  EXPECT_NEAR(drawn.back().vertices[0].blue, 1.0, 1e-6);
}

TEST_F(DrawnTitle, StandsWithoutLabelsToo) {
  axis.SetAxisNthTicMajor(0);
  labels.DrawAxisLabels();
  EXPECT_EQ(labels.GetNumAxisLabelObjs(), 0);
  const CTextObj3D& title = *labels.GetAxisTitleObj();
  EXPECT_NEAR(title.GetNormLocation().z, -1.12 - 1.5 * title.TextHeight(), 1e-9);
  PlaceWithinTheView();
  EXPECT_FALSE(CaptureFeedback([&] { labels.DrawAxisLabels(); }).empty());
}

TEST_F(DrawnTitle, ComesWithTheLabelsOnly) {
  PlaceWithinTheView();
  CAxisLabels3D fresh(&gl, &transform, &axis);
  fresh.SetAxisTitleString("Title");
  EXPECT_TRUE(CaptureFeedback([&] { fresh.DrawAxisLabels(); }).empty());
  CAxisLabels3D unbound;
  unbound.SetAxisLabels(1, 0, kDown, 0, 7, red, nullptr, 0);
  EXPECT_TRUE(CaptureFeedback([&] { unbound.DrawAxisLabels(); }).empty());
}

class LogarithmicAxisLabels : public DrawnLabels {
 protected:
  LogarithmicAxisLabels() {
    transform.SetScale({1, 0, 0, 0}, {1000, 10, 10, 0});
    transform.SetAxisScaleMode(0, 1);
    transform.ChartTransform();
    axis.SetAxisLimits(1, 1000);
    axis.SetAxisTics(10, 1, 1, 0.02, 0.04, kDown);
  }
};

TEST_F(LogarithmicAxisLabels, StandAtDecadesWithTheCentreTwice) {
  EXPECT_THAT(Texts(), ElementsAre("10", "100", "1000", "10", "1"));
  const point3Dtype place = labels.GetAxisLabelObj(1)->GetLocation();
  EXPECT_NEAR(place.x, 100.0, 1e-9);
  EXPECT_NEAR(place.y, 10.0, 1e-9);
  EXPECT_NEAR(place.z, -0.6, 1e-9);
}

TEST_F(LogarithmicAxisLabels, StandAtOneTwoFive) {
  axis.SetAxisNthTicMajor(10);
  EXPECT_THAT(Texts(),
              ElementsAre("10", "20", "50", "100", "200", "500", "1000", "10", "5", "2", "1"));
}

TEST_F(LogarithmicAxisLabels, DrawNothingWithoutMajorTics) {
  axis.SetAxisNthTicMajor(0);
  labels.SetAxisTitleString("Title");
  transform.SetChartRect({0.5, 0.5, 0.5, 0});
  transform.ChartTransform();
  EXPECT_TRUE(CaptureFeedback([&] { labels.DrawAxisLabels(); }).empty());
  axis.SetAxisNthTicMajor(1);
  EXPECT_FALSE(CaptureFeedback([&] { labels.DrawAxisLabels(); }).empty());
}

TEST_F(LogarithmicAxisLabels, AreNotFlippedThemselves) {
  labels.SetAxisLabelsFlipX(1);
  EXPECT_EQ(First().GetFlipX(), 0);
  EXPECT_EQ(First().GetYJustify(), 0);  // 2, exchanged
  EXPECT_EQ(First().GetTextPlane(), 1);
}

TEST_F(LogarithmicAxisLabels, DropTheEndsByTheRawRange) {
  labels.SetAxisLabelsEnds(0);
  EXPECT_THAT(Texts(), ElementsAre("100"));
  labels.SetAxisLabelsEnds(1);
  EXPECT_THAT(Texts(), ElementsAre("100", "1"));
}

TEST_F(LogarithmicAxisLabels, MeasureTheEndsByAThousandthOfTheRawRange) {
  // A thousandth of 1 to 10000 is 9.999, so that 10 is at the minimum.
  transform.SetScale({1, 0, 0, 0}, {10000, 10, 10, 0});
  transform.ChartTransform();
  axis.SetAxisLimits(1, 10000);
  axis.SetAxisTics(1, 1, 1, 0.02, 0.04, kDown);
  labels.SetAxisLabelsEnds(0);
  EXPECT_THAT(Texts(), ElementsAre("100", "1000"));
}

TEST_F(LogarithmicAxisLabels, CountTheirStringsOverBothPasses) {
  const std::array<CString, 5> strings{"a", "b", "c", "d", "e"};
  labels.SetAxisLabelsStrings(strings.data(), 5);
  labels.EnableAxisLabelsStrings(1);
  EXPECT_THAT(Texts(), ElementsAre("a", "b", "c", "d", "e"));  // 10, 100, 1000, 10, 1
}

TEST_F(LogarithmicAxisLabels, MakeInterceptsLegal) {
  // A chart whose other axes are logarithmic too, with an intercept at 0.
  transform.SetScale({1, 1, 1, 0}, {1000, 10, 10, 0});
  transform.SetAxisScaleMode(1, 1);
  transform.SetAxisScaleMode(2, 1);
  transform.ChartTransform();
  axis.SetAxisIntercept(0, -3);
  labels.SetAxisLabelsDir(1);
  const point3Dtype place = First().GetLocation();
  EXPECT_NEAR(place.y, std::pow(10.0, -0.06), 1e-9);  // from 1, by 0.06 of one decade
  EXPECT_NEAR(place.z, 1.0, 1e-9);
}

TEST_F(DrawnLabels, CentreTheTitleOfALogarithmicAxisInItsPicture) {
  transform.SetScale({1, 0, 0, 0}, {10000, 10, 10, 0});
  transform.SetAxisScaleMode(0, 1);
  transform.ChartTransform();
  axis.SetAxisLimits(1, 10000);
  axis.SetAxisTics(1, 1, 1, 0.02, 0.04, kDown);
  labels.SetAxisTitleString("Title");
  labels.DrawAxisLabels();
  EXPECT_NEAR(labels.GetAxisTitleObj()->GetNormLocation().x, 0.0, 1e-9);
}

TEST_F(DrawnLabels, EndForEveryInput) {
  for (const double bad : {0.0, kNotANumber, std::numeric_limits<double>::infinity(), 1e-300}) {
    axis.SetAxisLimits(0, 10);
    axis.SetAxisTics(0, bad, 5, 0.02, 0.04, kDown);
    EXPECT_LE(Texts().size(), 20000U);
    axis.SetAxisTics(0, 1, 5, 0.02, bad, kDown);
    labels.DrawAxisLabels();
    axis.SetAxisTics(bad, 1, 5, 0.02, 0.04, kDown);
    axis.SetAxisLimits(bad, 10);
    EXPECT_LE(Texts().size(), 20000U);
    labels.SetAxisLabelsTicOffset(bad);
    labels.DrawAxisLabels();
  }
  EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

}  // namespace
