#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "chart/chart_file_damage.h"
#include "support/allocation_failure.h"
#include "support/fail_at.h"

namespace {

using namespace orvalix::test;

/// Bytes asked for while a view loads that file.
std::size_t BytesToLoad(CChartView3D& view, const Bytes& bytes) {
  const MemoryFile file;
  file.Fill(bytes);
  const AllocationMeter meter;
  Catch([&] { view.Load(file.Path()); });
  return meter.Total();
}

/// Records of 1 KB at most: those around the fields that promise something.
class ChartFileMemory : public ::testing::Test {
 protected:
  ChartFileMemory() : target(20, 20) {}

  ViewOn target;
};

constexpr std::size_t kSmallFile = 1024;
constexpr std::size_t kMuchMemory = std::size_t{4} << 20;

TEST_F(ChartFileMemory, SmallFilesTakeLittleWhateverTheyPromise) {
  // A view, with its numbers of charts and legends and a header, is smaller than 1 KB.
  const Bytes empty = SavedFile(*target.view);
  ASSERT_LT(empty.size(), kSmallFile);
  const std::vector<RecordField> fields = FieldsReadBy([&] { LoadFile(*target.view, empty); });
  for (const RecordField& field : fields) {
    if (field.end - field.begin < sizeof(int)) continue;
    for (const int number : {0x7fffffff, -1, 1000, 130, 8, 1}) {
      SCOPED_TRACE(::testing::Message() << field.name << ": " << number);
      Bytes changed = empty;
      std::memcpy(&changed[field.begin], &number, sizeof(number));
      changed.resize(kSmallFile);
      EXPECT_LT(BytesToLoad(*target.view, changed), kMuchMemory);
    }
  }
}

TEST_F(ChartFileMemory, SmallFilesOfOneNumberTakeLittle) {
  // Wherever a count stands, it has that value.
  for (const int number : {0x7fffffff, -1, 100000, 1000, 256, 40, 20, 8, 7, 5, 4, 3, 2, 1, 0}) {
    Bytes file(kSmallFile);
    for (std::size_t at = 0; at < kSmallFile; at += sizeof(number)) {
      std::memcpy(&file[at], &number, sizeof(number));
    }
    for (std::size_t zeros = 0; zeros < kSmallFile; zeros += 16) {
      Bytes changed = file;  // without a font name and more, so that counts stand at other places
      std::fill_n(changed.begin(), zeros, static_cast<unsigned char>(0));
      EXPECT_LT(BytesToLoad(*target.view, changed), kMuchMemory) << number << ' ' << zeros;
    }
  }
}

/// Loads the last KB of a record from each field on that promises something.
template <class T>
void ExpectLittleMemory(const Bytes& record, const std::vector<RecordField>& fields) {
  for (const RecordField& field : fields) {
    if (field.end - field.begin != sizeof(int) || field.end > kSmallFile) continue;
    for (const int number : {0x7fffffff, -1, 100000, 1000, 130, 40}) {
      SCOPED_TRACE(::testing::Message() << field.name << ": " << number);
      Bytes changed = record;
      std::memcpy(&changed[field.begin], &number, sizeof(number));
      changed.resize(kSmallFile);
      T object;
      const AllocationMeter meter;
      Catch([&] { LoadFrom(object, changed); });
      EXPECT_LT(meter.Total(), kMuchMemory);
    }
  }
}

TEST_F(ChartFileMemory, SmallRecordsOfChildrenTakeLittle) {
  FullView full;
  const CChart3D& rows = *full.view->GetChart(0);
  const CChart3D& space = *full.view->GetChart(1);
  const auto check = [](auto object, const Bytes& record) {
    const auto fields = FieldsReadBy([&] { LoadFrom(*object, record); });
    ExpectLittleMemory<std::remove_reference_t<decltype(*object)>>(record, fields);
  };
  for (int i = 0; i < rows.GetNumChartObjs(); ++i) {
    check(std::make_unique<CChartObj3D>(), Saved(*rows.GetChartObj(i)));
  }
  for (int i = 0; i < space.GetNumChartObjs(); ++i) {
    check(std::make_unique<CChartObj3D>(), Saved(*space.GetChartObj(i)));
  }
  check(std::make_unique<CAxisLabels3D>(), Saved(*rows.GetAxes(0)->GetAxisLabels(0)));
  check(std::make_unique<CTextObj3D>(), Saved(*rows.GetChartTextObj(0)));
  check(std::make_unique<CDIBObj3D>(), Saved(*space.GetDIBObj(0)));
  check(std::make_unique<CLegend3D>(), Saved(*full.view->GetLegend(0)));
}

/// Lets each allocation of `work` fail in turn, until it needs no more.
/// @param check gets the number of the allocation and the error
/// @return how many failed
template <class Work, class Check>
int FailEach(Work&& work, Check&& check) {
  for (int n = 1;; ++n) {
    SCOPED_TRACE(n);
    bool happened = false;
    const CaughtError error = FailAt(n, happened, work);
    if (!happened || ::testing::Test::HasFailure()) return n - 1;
    check(n, error);
  }
}

TEST(ChartFileAllocation, LoadingReportsItAndLeavesAUsableView) {
  const FullView full;  // with the file of its picture
  const TemporaryFile file;
  const CString name = file.Path();
  full.view->Save(name);
  ViewOn target(20, 20);
  target.view->NewChart3D();
  int withoutPicture = 0;
  const int failures =
      FailEach([&] { target.view->Load(name); },
               [&](int n, const CaughtError& error) {
                 if (n == 1) {  // that of the open file
                   EXPECT_EQ(error, (CaughtError{5, 6, "Load"}));
                   EXPECT_EQ(target.view->GetNumCharts(), 1);
                   return;
                 }
                 // Without memory for its name, the file of the picture can't be opened.
                 withoutPicture += error == kNoError ? 1 : 0;
                 const bool isOfPicture = error == CaughtError{1, 8, "LoadBitmapFile"};
                 EXPECT_TRUE(error == kNoError || isOfPicture || error.type == 2 || error.type == 3)
                     << error;
                 EXPECT_EQ(Catch([&] { target.view->Save("/dev/null"); }), kNoError);
                 if (n % 10 != 0) return;
                 EXPECT_EQ(Catch([&] { target.view->DrawViewScreen(); }), kNoError);
               });
  EXPECT_GT(failures, 100);
  EXPECT_LE(withoutPicture, 1);
  EXPECT_EQ(SavedFile(*target.view).size(), file.Read().size());
}

TEST(ChartFileAllocation, SavingReportsItAndKeepsTheFileBefore) {
  const FullView full;
  const Bytes before{'b', 'e', 'f', 'o', 'r', 'e'};
  const TemporaryFile file(before);
  const CString name = file.Path();
  const int failures = FailEach([&] { full.view->Save(name); },
                                [&](int, const CaughtError& error) {
                                  EXPECT_TRUE(error.type == 2 || error.type == 6) << error;
                                  EXPECT_EQ(error.place, "Save");
                                  EXPECT_EQ(file.Read(), before);
                                });
  EXPECT_GT(failures, 50);
  EXPECT_GT(file.Read().size(), before.size());
}

TEST(ChartFileAllocation, FactoriesReportItAndKeepNothingOfIt) {
  const TemporaryFile bitmap(Encode(FourColors()));
  const CString name = bitmap.Path();
  const CString text('x', 100);
  ViewOn target(20, 20);
  CChart3D* chart = target.view->NewChart3D();
  CTransform3D* transform = chart->NewTransform({0, 0, 0, 0}, {9, 9, 9, 0});
  CLegend3D* legend = target.view->NewLegend3D();
  const auto expectType = [](int, const CaughtError& error) {
    EXPECT_TRUE(error.type == 1 || error.type == 2 || error.type == 3) << error;
  };
  const auto expectPicture = [](int, const CaughtError& error) {
    const bool isOpening = error == CaughtError{5, 8, "LoadBitmapFile"};
    EXPECT_TRUE(isOpening || (error.type >= 1 && error.type <= 3)) << error;
  };
  EXPECT_GT(FailEach([&] { chart->NewDIBObj(transform, name); }, expectPicture), 3);
  EXPECT_EQ(chart->GetNumDIBObjs(), 1);
  EXPECT_GT(FailEach([&] { chart->NewChartTextObj(text); }, expectType), 1);
  EXPECT_EQ(chart->GetNumChartTextObjs(), 1);
  EXPECT_GT(FailEach([&] { chart->NewAuxObj(CAuxObj3D::kCone); }, expectType), 0);
  EXPECT_EQ(chart->GetNumAuxObjs(), 1);
  EXPECT_GT(FailEach([&] { chart->NewAxes({0, 0, 0, 0}, {1, 1, 1, 0}); }, expectType), 5);
  EXPECT_EQ(chart->GetNumAxes(), 1);
  EXPECT_GT(FailEach([&] { chart->AutoAxes(transform); }, expectType), 5);
  EXPECT_GT(FailEach([&] { legend->NewLegendObj(text); }, expectType), 1);
  EXPECT_EQ(legend->GetNumLegendObjs(), 1);
  EXPECT_GT(FailEach([&] { target.view->NewLegend3D(); }, expectType), 3);
  EXPECT_EQ(target.view->GetNumLegends(), 2);
  EXPECT_EQ(Catch([&] { target.view->DrawViewScreen(); }), kNoError);
  EXPECT_GT(SavedFile(*target.view).size(), 1000U);
}

}  // namespace
