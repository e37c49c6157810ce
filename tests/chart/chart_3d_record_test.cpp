#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <cstring>

#include "chart/view_fixture.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/host/file_handle_internal.h"
#include "orvalix/render/gl_api_internal.h"
#include "support/caught_error.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

// Where the fields of the record stand.
constexpr std::size_t kViewAspect = 4;
constexpr std::size_t kBorderThickness = 44;
constexpr std::size_t kBorderColor = 52;
constexpr std::size_t kChartEnable = 84;
constexpr std::size_t kViewport = 92;
constexpr std::size_t kPosition = 108;
constexpr std::size_t kLight = 140;
constexpr std::size_t kAmbient = 172;
constexpr std::size_t kDiffuse = 204;
constexpr std::size_t kBackground = 236;
constexpr std::size_t kTextureColors = 268;
constexpr std::size_t kTextureMinimum = 268 + 258 * 32;
constexpr std::size_t kTextureMode = kTextureMinimum + 16;
constexpr std::size_t kOwnFields = kTextureMode + 8;
/// The record of a header with empty texts: 44 bytes and three texts of 152.
constexpr std::size_t kHeader = 44 + 3 * 152;
/// The counts of transforms, axes frames, texts, data series, shapes and pictures.
constexpr std::size_t kCounts = kOwnFields + kHeader;
constexpr std::size_t kLists = 6;

template <class T>
T At(const Bytes& bytes, std::size_t offset) {
  T value{};
  EXPECT_LE(offset + sizeof(T), bytes.size());
  std::memcpy(&value, bytes.data() + offset, sizeof(T));
  return value;
}

template <class T>
void Put(Bytes& bytes, std::size_t offset, T value) {
  std::memcpy(bytes.data() + offset, &value, sizeof(T));
}

TEST(Chart3DRecord, HoldsTheFieldsInOrder) {
  CChart3D chart;
  chart.SetBorderThickness(2.5);
  chart.SetBorderColor(SetRGBD(0.1, 0.2, 0.3, 0.4));
  chart.EnableChart(5);
  chart.EnableBorder(6);
  chart.SetChartViewport({7, 8, 90, 45});
  chart.SetChartPosition({0.1, 0.2, 0.3, 0.4});
  chart.SetLightPosition({1, 2, 3, 4});
  chart.SetLightComponent(12345, SetRGBD(0.5, 0, 0, 1));
  chart.SetLightComponent(GL_DIFFUSE, SetRGBD(0.6, 0, 0, 1));
  chart.SetChartBkColor(SetRGBD(0.7, 0, 0, 1));
  const RGBDType color = SetRGBD(0.8, 0, 0, 1);
  chart.SetTextureColorArray(&color, -1.5, 9.5, 1);
  chart.SetTextureMode(3);
  chart.SetFontSize(0.75);
  const Bytes record = Saved(chart);
  // Then the header, and the counts of the children, all 0.
  ASSERT_EQ(record.size(), kCounts + 4 * kLists);
  const Bytes header = Saved(*chart.GetHeader());
  EXPECT_EQ(Bytes(record.begin() + kOwnFields, record.begin() + kCounts), header);
  EXPECT_EQ(At<int>(record, 0), CChart3D::nSelfID);
  EXPECT_EQ(At<double>(record, kViewAspect), 1.0);
  EXPECT_EQ(At<double>(record, 12), 0.5);   // chart aspect, 45 / 90
  EXPECT_EQ(At<double>(record, 20), 1.0);   // font height scale factor
  EXPECT_EQ(At<double>(record, 28), 0.75);  // font size
  EXPECT_EQ(At<double>(record, 36), 0.05);  // the spare scale value
  EXPECT_EQ(At<double>(record, kBorderThickness), 2.5);
  EXPECT_EQ(At<double>(record, kBorderColor + 24), 0.4);
  EXPECT_EQ(At<int>(record, kChartEnable), 5);
  EXPECT_EQ(At<int>(record, kChartEnable + 4), 6);
  EXPECT_EQ(At<int>(record, kViewport + 12), 45);
  EXPECT_EQ(At<double>(record, kPosition + 24), 0.4);
  EXPECT_EQ(At<double>(record, kLight + 24), 4.0);
  EXPECT_EQ(At<double>(record, kAmbient), 0.5);
  EXPECT_EQ(At<double>(record, kDiffuse), 0.6);
  EXPECT_EQ(At<double>(record, kBackground), 0.7);
  EXPECT_EQ(At<double>(record, kTextureColors), 0.8);
  EXPECT_EQ(At<double>(record, kTextureColors + 32), 0.0);
  EXPECT_EQ(At<double>(record, kTextureColors + 32 + 24), 1.0);
  EXPECT_EQ(At<double>(record, kTextureMinimum), -1.5);
  EXPECT_EQ(At<double>(record, kTextureMinimum + 8), 9.5);
  EXPECT_EQ(At<int>(record, kTextureMode), 3);
  EXPECT_EQ(At<int>(record, kTextureMode + 4), 1);
  for (std::size_t i = 0; i < kLists; ++i) EXPECT_EQ(At<int>(record, kCounts + 4 * i), 0);
}

TEST(Chart3DRecord, OverwritesTheCounter) {
  const CChart3D chart;
  Bytes record = Saved(chart);
  Put(record, 0, 4321);
  const int before = CChart3D::nSelfID;
  CChart3D loaded;
  LoadFrom(loaded, record);
  EXPECT_EQ(CChart3D::nSelfID, 4321);
  CChart3D::nSelfID = before;
}

TEST(Chart3DRecord, RestoresChildrenAndTheirBinding) {
  ViewOn target(40, 40);
  CChart3D* chart = target.view->NewChart3D();
  chart->NewTransform({0, 0, 0, 0}, {1, 1, 1, 0});
  CTransform3D* transform = chart->NewTransform({0, 0, 0, 0}, {4, 5, 6, 0});
  double x = 1;
  double height = 5;
  CChartObj3D* bars = chart->NewChartObj(transform);
  bars->BarChart25D(&x, &height, 0, 0, 1, 3, 5, SetRGBD(1, 0, 0, 1), SetRGBD(0, 0, 0, 1), 0, 0, 0);
  target.view->DrawViewScreen();
  const Bytes record = Saved(*chart);

  CChart3D* loaded = target.view->NewChart3D();
  LoadFrom(*loaded, record);
  ASSERT_EQ(loaded->GetNumTransforms(), 2);
  ASSERT_EQ(loaded->GetNumChartObjs(), 1);
  EXPECT_EQ(loaded->GetTransform(1)->GetScaleMax().z, 6.0);
  EXPECT_EQ(loaded->GetTransform(1)->GetTransformID(), transform->GetTransformID());
  EXPECT_EQ(loaded->GetChartObj(0)->GetOwnerID(), transform->GetTransformID());
  // It draws the same picture: hide the first one and compare.
  const Pixel middle = target.WindowPixel(20, 20);
  chart->EnableChart(0);
  target.view->DrawViewScreen();
  EXPECT_EQ(target.WindowPixel(20, 20), middle);
  EXPECT_NE(middle, kWhite);
}

TEST(Chart3DRecord, SeriesWithoutTheirTransformStayUnbound) {
  ViewOn target(40, 40);
  CTransform3D* transform = nullptr;
  CChart3D* chart = target.view->NewChart3D({0, 0, 0, 0}, {1, 1, 1, 0}, &transform);
  chart->NewChartObj(transform);
  Bytes record = Saved(*chart);
  Put(record, kCounts + 4, -77);  // the stored transform's id
  CChart3D* loaded = target.view->NewChart3D();
  LoadFrom(*loaded, record);
  EXPECT_EQ(loaded->GetNumChartObjs(), 1);
  target.view->DrawViewScreen();
}

TEST(Chart3DRecord, SurvivesEveryTruncation) {
  ViewOn target(20, 20);
  CTransform3D* transform = nullptr;
  CChart3D* chart = target.view->NewChart3D({0, 0, 0, 0}, {1, 1, 1, 0}, &transform);
  double x = 1;
  double height = 5;
  chart->NewChartObj(transform)->BarChart25D(&x, &height, 0, 0, 1, 3, 5, SetRGBD(1, 0, 0, 1),
                                             SetRGBD(0, 0, 0, 1), 0, 0, 0);
  chart->SetTextureMode(9);
  const Bytes record = Saved(*chart);
  CChart3D unbound;
  int failures = 0;
  for (std::size_t length = 0; length < record.size();
       length += (length > kTextureColors && length + 400 < kTextureMinimum) ? 400 : 1) {
    CChart3D loaded;
    const CaughtError error = Catch([&] {
      LoadFrom(loaded, Bytes(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(length)));
    });
    if (error != kNoError) {
      EXPECT_EQ(error.type, 7) << length;
      EXPECT_EQ(error.place, "Load") << length;
      ++failures;
    }
    EXPECT_EQ(loaded.GetTextureMode(), length >= kTextureMode + 4 ? 9 : -1) << length;
  }
  EXPECT_GT(failures, 0);  // counts that the rest of the file can't hold are refused
}

TEST(Chart3DRecord, DistrustsCounts) {
  const CChart3D chart;
  const Bytes record = Saved(chart);
  for (const int count : {-1, 1, 1000000, 2147483647}) {
    Bytes changed = record;
    CChart3D loaded;
    for (std::size_t list = 0; list < kLists; ++list) {
      changed = record;
      Put(changed, kCounts + 4 * list, count);
      EXPECT_EQ(Catch([&] { LoadFrom(loaded, changed); }), (CaughtError{7, 4, "Load"})) << count;
    }
    EXPECT_EQ(loaded.GetNumTransforms(), 0);
    EXPECT_EQ(loaded.GetNumAxes(), 0);
    EXPECT_EQ(loaded.GetNumChartTextObjs(), 0);
    EXPECT_EQ(loaded.GetNumChartObjs(), 0);
    EXPECT_EQ(loaded.GetNumAuxObjs(), 0);
    EXPECT_EQ(loaded.GetNumDIBObjs(), 0);
    // Failing later, it has no more texture colours than there is room for.
    Put(changed, kTextureMode + 4, count);
    EXPECT_EQ(Catch([&] { LoadFrom(loaded, changed); }), (CaughtError{7, 4, "Load"})) << count;
    EXPECT_GE(loaded.GetNumTextureColors(), 0);
    EXPECT_LE(loaded.GetNumTextureColors(), 258);
    // A number of texture colours that the array doesn't hold.
    changed = record;
    Put(changed, kTextureMode + 4, count);
    LoadFrom(loaded, changed);
    EXPECT_GE(loaded.GetNumTextureColors(), 0);
    EXPECT_LE(loaded.GetNumTextureColors(), 258);
  }
}

TEST(Chart3DRecord, APipeHoldsNoMillionsOfChildren) {
  Bytes record = Saved(CChart3D());
  Put(record, kCounts, 2147483647);
  record.resize(kCounts + 4);
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  ASSERT_EQ(write(ends[1], record.data(), record.size()), static_cast<ssize_t>(record.size()));
  close(ends[1]);
  CChart3D loaded;
  EXPECT_EQ(Catch([&] { loaded.Load(orvalix::HandleOfDescriptor(ends[0])); }),
            (CaughtError{7, 4, "Load"}));
  close(ends[0]);
}

TEST(Chart3DRecord, ReportsFailingFiles) {
  CChart3D chart;
  chart.Save(nullptr);
  chart.Load(nullptr);
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { chart.Save(full.m_hFile); }), (CaughtError{7, 4, "Save"}));
}

}  // namespace
