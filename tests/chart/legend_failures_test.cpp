/// Legends whose memory, files or parameters fail.

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <array>
#include <csignal>
#include <memory>
#include <vector>

#include "chart/legend_fixture.h"
#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/fail_at.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

constexpr RGBDType kOrange{0.9, 0.5, 0.1, 1.0};
const CaughtError kNoEntry{3, 15, "NewLegendObj"};
const CaughtError kNoEntryText{3, 16, "InitLegendObjDefaults"};
const CaughtError kNoString{2, 19, "SetString"};

/// Lets each allocation of `work` fail in turn and runs `check` after each; every failure has to be
/// reported as one of these errors, and each of them has to occur.
template <class Work, class Check>
void ExpectEachFailure(const std::vector<CaughtError>& expected, Work&& work, Check&& check) {
  std::vector<CaughtError> seen;
  for (int n = 1; n < 1000; ++n) {
    bool happened = false;
    const CaughtError caught = FailAt(n, happened, work);
    if (!happened) break;
    EXPECT_THAT(expected, ::testing::Contains(caught)) << "allocation " << n;
    seen.push_back(caught);
    check(caught);
  }
  for (const CaughtError& error : expected) EXPECT_THAT(seen, ::testing::Contains(error));
}

TEST(LegendFailures, LegendsThatCannotBeMade) {
  constexpr int kLegends = 3;
  ViewOn on(20, 20);
  for (int i = 0; i < kLegends; ++i) on.view->NewLegend3D();
  const auto unchanged = [&](const CaughtError&) { EXPECT_EQ(on.view->GetNumLegends(), kLegends); };
  ExpectEachFailure(
      {{3, 15, "InitLegend"}}, [] { const CLegend3D legend; }, unchanged);
  ExpectEachFailure(
      {{3, 15, "InitLegend"}}, [&] { const CLegend3D legend(on.view.get()); }, unchanged);
  ExpectEachFailure(
      {{3, 6, "NewLegend3D"}, {3, 15, "InitLegend"}}, [&] { on.view->NewLegend3D(); }, unchanged);
  EXPECT_EQ(on.view->GetNumLegends(), kLegends + 1);
  on.view->DrawViewScreen();
}

TEST(LegendFailures, LegendsThatCannotBeBoundStayAsTheyWere) {
  ViewOn on(20, 20);
  CLegend3D legend;
  legend.NewLegendObj();
  ExpectEachFailure(
      {{3, 15, "InitLegend"}}, [&] { legend.InitLegend(on.view.get()); },
      [&](const CaughtError&) { EXPECT_EQ(legend.GetTransformID(), 0); });
  EXPECT_NE(legend.GetTransformID(), 0);
  on.view->DrawViewScreen();
}

TEST(LegendFailures, EntriesThatCannotBeMadeAreInNoList) {
  const CString text('x', 100);
  ViewOn on(20, 20);
  CLegend3D& legend = *on.view->NewLegend3D();
  int entries = 0;
  const auto unchanged = [&](const CaughtError&) { EXPECT_EQ(legend.GetNumLegendObjs(), entries); };
  ExpectEachFailure(
      {kNoEntry, kNoEntryText}, [&] { legend.NewLegendObj(); }, unchanged);
  EXPECT_EQ(legend.GetNumLegendObjs(), ++entries);
  ExpectEachFailure(
      {kNoEntry, kNoEntryText, kNoString}, [&] { legend.NewLegendObj(text); }, unchanged);
  EXPECT_EQ(legend.GetNumLegendObjs(), ++entries);
  ExpectEachFailure(
      {kNoEntry, kNoEntryText, kNoString}, [&] { legend.NewLegendObj(text, 3, kOrange); },
      unchanged);
  EXPECT_EQ(legend.GetNumLegendObjs(), ++entries);
}

/// Each entry that is there is whole: a text, the cube and its colour.
void ExpectWholeEntries(const CLegend3D& legend) {
  for (int i = 0; i < legend.GetNumLegendObjs(); ++i) {
    EXPECT_GT(legend.GetText(i).GetLength(), 20) << i;
    EXPECT_EQ(legend.GetSymbol(i), 3) << i;
    EXPECT_GT(legend.GetSymbolColor(i).red, 0.0) << i;
    EXPECT_EQ(legend.GetTextColor(i).green, 0.5) << i;
  }
}

TEST(LegendFailures, ContoursLeaveWholeEntriesAndCopiesThatBelongTogether) {
  // Numbers as long as texts that need memory of their own.
  const std::array<double, 3> values{1.5e40, 2.5e40, 3.5e40};
  const std::array<RGBDType, 4> colors{{{0.1, 0, 0, 1}, {0.2, 0, 0, 1}, {0.3, 0, 0, 1}, {}}};
  const RGBDType textColor{0.0, 0.5, 0.0, 1.0};
  const CString upper('u', 40);
  const CString lower('l', 40);
  const std::vector<CaughtError> expected{{2, 15, "InitContourValueStorage"},
                                          {2, 15, "InitContourColorsStorage"},
                                          kNoEntry,
                                          kNoEntryText,
                                          kNoString};
  std::unique_ptr<CLegend3D> legend;
  const auto check = [&](const CaughtError& caught) {
    ExpectWholeEntries(*legend);
    EXPECT_LT(legend->GetNumLegendObjs(), 3);
    if (caught.type == 2 && caught.errorClass == 15) {
      // Neither values nor colours are kept: there is nothing to show.
      EXPECT_EQ(legend->GetNumLegendObjs(), 0);
      legend->ContourLegend2(nullptr, nullptr, 3, 0, textColor, 1);
      EXPECT_EQ(legend->GetNumLegendObjs(), 0);
    }
  };
  // The legend is made outside of what fails.
  const auto each = [&](auto&& fill) {
    std::vector<std::unique_ptr<CLegend3D>> spare(1000);
    for (auto& made : spare) made = std::make_unique<CLegend3D>();
    ExpectEachFailure(
        expected,
        [&] {
          legend = std::move(spare.back());
          spare.pop_back();
          fill(*legend);
        },
        check);
    EXPECT_EQ(legend->GetNumLegendObjs(), 3);
    ExpectWholeEntries(*legend);
  };
  each([&](CLegend3D& filled) {
    filled.ContourLegend(values.data(), colors.data(), 3, 2, textColor, 1, upper, lower);
  });
  each([&](CLegend3D& filled) {
    filled.ContourLegend2(values.data(), colors.data(), 3, 2, textColor, 1);
  });
}

/// Memory that holds no live object.
template <class T>
T* Dead() {
  alignas(16) static std::array<unsigned char, sizeof(T)> memory{};
  return reinterpret_cast<T*>(memory.data());
}

TEST_F(LegendTest, RefusesWhatIsNotAlive) {
  COpenGL* gl = view.GetOpenGLPntr();
  CTransform3D transform(gl);
  for (COpenGL* bad : {static_cast<COpenGL*>(nullptr), Dead<COpenGL>()}) {
    const CaughtError error{16, 16, "InitLegendObj"};
    CLegendObj3D entry;
    EXPECT_EQ(Catch([&] { entry.InitLegendObj(bad, &transform); }), error);
    EXPECT_EQ(Catch([&] { CLegendObj3D(bad, &transform); }), error);
    EXPECT_EQ(Catch([&] { CLegendObj3D(bad, &transform, "text"); }), error);
    // The context is looked at first.
    EXPECT_EQ(Catch([&] { entry.InitLegendObj(bad, nullptr); }), error);
    EXPECT_EQ(entry.GetTransformID(), 0);
  }
  for (CTransform3D* bad : {static_cast<CTransform3D*>(nullptr), Dead<CTransform3D>()}) {
    const CaughtError error{15, 16, "InitLegendObj"};
    CLegendObj3D entry;
    EXPECT_EQ(Catch([&] { entry.InitLegendObj(gl, bad); }), error);
    EXPECT_EQ(Catch([&] { CLegendObj3D(gl, bad); }), error);
    EXPECT_EQ(Catch([&] { CLegendObj3D(gl, bad, "text"); }), error);
    entry.DrawLegendObj();  // bound to nothing
  }
  for (CChartView3D* bad : {static_cast<CChartView3D*>(nullptr), Dead<CChartView3D>()}) {
    const CaughtError error{13, 15, "InitLegend"};
    EXPECT_EQ(Catch([&] { legend.InitLegend(bad); }), error);
    EXPECT_EQ(Catch([&] { CLegend3D made(bad); }), error);
  }
  // The legend is still that of its view.
  legend.NewLegendObj("text", 3, kOrange);
  EXPECT_FALSE(Drawn().empty());
}

/// Files can't grow beyond that many bytes while it lives.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(std::size_t bytes) {
    m_oldAction = std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &m_oldLimit);
    const rlimit limit{static_cast<rlim_t>(bytes), m_oldLimit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &m_oldLimit);
    std::signal(SIGXFSZ, m_oldAction);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit m_oldLimit{};
  void (*m_oldAction)(int) = nullptr;
};

template <class T>
CaughtError SaveInto(const T& object, std::size_t bytes) {
  const TemporaryFile file;
  CFile out;
  EXPECT_TRUE(out.Open(file.Path(), CFile::modeCreate | CFile::modeWrite));
  const CaughtError caught = Catch([&] {
    const FileSizeLimit limit(bytes);
    object.Save(out.m_hFile);
  });
  out.Close();
  return caught;
}

// The parts of a legend's record with two contour values and one entry of empty texts.
constexpr std::size_t kTextRecord = 152;
constexpr std::size_t kEntryFields = 184;
constexpr std::size_t kContours = 12 * 4 + 11 * 8 + 3 * 32 + 32 + 16 + 8;
constexpr std::size_t kContourBytes = 2 * 8 + 3 * 32;
constexpr std::size_t kEntries = kContours + kContourBytes + 4;
constexpr std::size_t kEntryText = kEntries + kEntryFields;
constexpr std::size_t kTitles = kEntryText + kTextRecord;
constexpr std::size_t kLeastEntry = 320;  // to be counted as one
constexpr std::size_t kWholeLegend = kTitles + 3 * kTextRecord;

/// A legend with that record.
void FillIn(CLegend3D& legend) {
  const std::array<double, 2> values{1, 2};
  const std::array<RGBDType, 3> colors{};
  CLegend3D filled;
  filled.ContourLegend2(values.data(), colors.data(), 2, 0, kOrange, 1);
  filled.SetText(0, "");
  filled.SetText(1, "");
  Bytes record = Saved(filled);
  // Without the second of the entries.
  record[kEntries - 4] = 1;
  record.erase(record.begin() + kTitles, record.begin() + kTitles + (kTitles - kEntries));
  LoadFrom(legend, record);
}

TEST(LegendFailures, WritesThatFailAnywhereNameTheirClass) {
  CLegend3D legend;
  FillIn(legend);
  ASSERT_EQ(Saved(legend).size(), kWholeLegend);
  for (std::size_t bytes = 0; bytes < kWholeLegend; ++bytes) {
    const int errorClass = bytes < kEntries ? 15 : bytes < kEntryText ? 16 : 19;
    EXPECT_EQ(SaveInto(legend, bytes), (CaughtError{7, errorClass, "Save"})) << bytes;
  }
  EXPECT_EQ(SaveInto(legend, kWholeLegend), kNoError);
  const CLegendObj3D& entry = *legend.GetLegendObj(0);
  for (std::size_t bytes = 0; bytes < kEntryFields + kTextRecord; ++bytes) {
    const int errorClass = bytes < kEntryFields ? 16 : 19;
    EXPECT_EQ(SaveInto(entry, bytes), (CaughtError{7, errorClass, "Save"})) << bytes;
  }
  EXPECT_EQ(SaveInto(entry, kEntryFields + kTextRecord), kNoError);
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { legend.Save(full.m_hFile); }), (CaughtError{7, 15, "Save"}));
  EXPECT_EQ(Catch([&] { entry.Save(full.m_hFile); }), (CaughtError{7, 16, "Save"}));
}

// Fields that a file no longer holds keep their values; an array or an entry that it promises but
// doesn't hold is an error.
TEST(LegendFailures, FilesThatEndAnywhereLeaveTheRestAsItWas) {
  CLegend3D legend;
  FillIn(legend);
  const Bytes record = Saved(legend);
  for (std::size_t bytes = 0; bytes <= kWholeLegend; ++bytes) {
    SCOPED_TRACE(bytes);
    CLegend3D loaded;
    loaded.SetTitle1("before");
    const Bytes head(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(bytes));
    const bool inContours = bytes >= kContours && bytes < kContours + kContourBytes;
    const bool inEntry = bytes >= kEntries && bytes < kEntries + kLeastEntry;
    EXPECT_EQ(Catch([&] { LoadFrom(loaded, head); }),
              inContours || inEntry ? (CaughtError{7, 15, "Load"}) : kNoError);
    EXPECT_EQ(loaded.GetNumLegendObjs(), bytes < kEntries + kLeastEntry ? 0 : 1);
    // Counter, id and length come before the text's string.
    EXPECT_STREQ(loaded.GetTitle1Obj()->GetString(), bytes < kTitles + 12 ? "before" : "");
  }
}

TEST(LegendFailures, FilesThatCannotBeReadNameTheirClass) {
  CFile writeOnly;
  ASSERT_TRUE(writeOnly.Open("/dev/null", CFile::modeWrite));
  CLegend3D legend;
  CLegendObj3D entry;
  EXPECT_EQ(Catch([&] { legend.Load(writeOnly.m_hFile); }), (CaughtError{7, 15, "Load"}));
  EXPECT_EQ(Catch([&] { entry.Load(writeOnly.m_hFile); }), (CaughtError{7, 16, "Load"}));
  EXPECT_EQ(legend.GetNumLegendObjs(), 0);
}

TEST(LegendFailures, NoFileDoesNothing) {
  CLegend3D legend;
  legend.SetLegendColumns(3);
  legend.NewLegendObj("text", 3, kOrange);
  const Bytes before = Saved(legend);
  legend.Save(nullptr);
  legend.Load(nullptr);
  EXPECT_EQ(Saved(legend), before);
  CLegendObj3D& entry = *legend.GetLegendObj(0);
  const Bytes ofEntry = Saved(entry);
  entry.Save(nullptr);
  entry.Load(nullptr);
  EXPECT_EQ(Saved(entry), ofEntry);
}

TEST(LegendFailures, LoadingWithoutMemoryAddsNoHalfEntry) {
  CLegend3D legend;
  FillIn(legend);
  const Bytes record = Saved(legend);
  const TemporaryFile file(record);
  CFile in;
  ASSERT_TRUE(in.Open(file.Path(), CFile::modeRead));
  CLegend3D loaded;
  ExpectEachFailure(
      {{2, 15, "Load"}, kNoEntry, kNoEntryText},
      [&] {
        in.SeekToBegin();
        loaded.Load(in.m_hFile);
      },
      [&](const CaughtError& caught) { EXPECT_EQ(loaded.GetNumLegendObjs(), 0) << caught; });
  EXPECT_EQ(loaded.GetNumLegendObjs(), 1);
  CLegend3D again;
  LoadFrom(again, record);
  EXPECT_EQ(Saved(again), record);
}

}  // namespace
