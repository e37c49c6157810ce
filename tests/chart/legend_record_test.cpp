#include <array>
#include <cstring>

#include "chart/legend_fixture.h"
#include "support/caught_error.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

int IntegerAt(const Bytes& bytes, std::size_t at) {
  int value = 0;
  std::memcpy(&value, bytes.data() + at, sizeof(value));
  return value;
}

double RealAt(const Bytes& bytes, std::size_t at) {
  double value = 0;
  std::memcpy(&value, bytes.data() + at, sizeof(value));
  return value;
}

constexpr std::size_t kTextBytes = 152;  // of an empty text
constexpr std::size_t kReals = 12 * 4;
constexpr std::size_t kColors = kReals + 11 * 8;
constexpr std::size_t kPlace = kColors + 3 * 32;
constexpr std::size_t kTexts = kPlace + 32 + 16;

void FillIn(CLegend3D& legend) {
  legend.SetLegendOrientation(3);
  legend.SetColorMode(4);
  legend.SetLegendRows(5);
  legend.SetLegendColumns(6);
  legend.EnableLegend(7);
  legend.EnableLegendBorder(8);
  legend.SetViewAspect(1.5);
  legend.SetFontHeightSF(2.5);
  legend.SetFontSize(3.5);
  legend.SetBorderThickness(4.5);
  legend.SetLegendYLoc(5.5);
  legend.SetSymbolTextSpace(6.5);
  legend.SetLegendPosition({0.1, 0.2, 0.3, 0.4});
}

TEST(LegendRecord, HoldsItsFieldsInOrder) {
  CLegend3D legend;
  FillIn(legend);
  CLegend3D::nSelfID = 42;
  const Bytes record = Saved(legend);
  ASSERT_EQ(record.size(), kTexts + 8 + 4 + 3 * kTextBytes);
  EXPECT_EQ(IntegerAt(record, 0), 42);
  EXPECT_EQ(IntegerAt(record, 4), 0);   // transform id
  EXPECT_EQ(IntegerAt(record, 8), 0);   // entries
  EXPECT_EQ(IntegerAt(record, 12), 3);  // orientation
  EXPECT_EQ(IntegerAt(record, 20), 0);  // contours
  EXPECT_EQ(IntegerAt(record, 24), 4);  // colour mode
  EXPECT_EQ(IntegerAt(record, 28), 5);
  EXPECT_EQ(IntegerAt(record, 32), 6);
  EXPECT_EQ(IntegerAt(record, 36), 1);  // contour text colour flag
  EXPECT_EQ(IntegerAt(record, 40), 7);
  EXPECT_EQ(IntegerAt(record, 44), 8);
  const std::array<double, 11> reals{1.5, 1.0, 2.5, 3.5, 0.1, 0.25, 0.1, 0.2, 4.5, 5.5, 6.5};
  for (std::size_t i = 0; i < reals.size(); ++i) {
    EXPECT_EQ(RealAt(record, kReals + 8 * i), reals[i]) << i;
  }
  EXPECT_EQ(RealAt(record, kColors + 32), 1.0);  // background: white
  EXPECT_EQ(RealAt(record, kColors + 64), 0.0);  // border: black
  EXPECT_EQ(RealAt(record, kPlace + 24), 0.4);   // height
  EXPECT_EQ(IntegerAt(record, kTexts), 0);       // no upper text
  EXPECT_EQ(IntegerAt(record, kTexts + 8), 0);   // no entries
  CLegend3D loaded;
  LoadFrom(loaded, record);
  EXPECT_EQ(CLegend3D::nSelfID, 42);
  EXPECT_EQ(Saved(loaded), record);
  loaded.Save(nullptr);
  loaded.Load(nullptr);
}

TEST(LegendRecord, HoldsContoursEntriesAndTitles) {
  CLegend3D legend;
  const std::array<double, 2> values{7, 8};
  const std::array<RGBDType, 3> colors{{{1, 0, 0, 1}, {0, 1, 0, 1}, {0, 0, 1, 1}}};
  legend.ContourLegend(values.data(), colors.data(), 2, 1, {0, 0, 0, 1}, 1, "up", "low");
  legend.NewLegendObj("last", 12, colors[2])->SetSymbolScale(0.5);
  legend.SetTitle1("T1");
  legend.SetFooter("F");
  const Bytes record = Saved(legend);
  EXPECT_EQ(IntegerAt(record, 8), 3);
  EXPECT_EQ(IntegerAt(record, 20), 2);
  const std::size_t contours = kTexts + 4 + 2 + 4 + 3;
  EXPECT_EQ(RealAt(record, contours + 8), 8.0);
  EXPECT_EQ(RealAt(record, contours + 16), 1.0);            // red of the first colour
  EXPECT_EQ(IntegerAt(record, contours + 16 + 3 * 32), 3);  // entries
  CLegend3D loaded;
  LoadFrom(loaded, record);
  EXPECT_EQ(loaded.GetNumLegendObjs(), 3);
  EXPECT_STREQ(loaded.GetText(0), "up   7.0");
  EXPECT_STREQ(loaded.GetText(2), "last");
  EXPECT_EQ(loaded.GetSymbolScale(2), 0.5);
  EXPECT_STREQ(loaded.GetTitle1Obj()->GetString(), "T1");
  EXPECT_EQ(Saved(loaded), record);
  LoadFrom(loaded, record);  // appends
  EXPECT_EQ(loaded.GetNumLegendObjs(), 6);
}

TEST(LegendRecord, SurvivesEveryTruncationAndHostileCounts) {
  CLegend3D legend;
  const std::array<double, 2> values{7, 8};
  legend.ContourLegend2(values.data(), nullptr, 2, 1, {0, 0, 0, 1}, 1);
  const Bytes record = Saved(legend);
  for (std::size_t length = 0; length < record.size(); ++length) {
    CLegend3D loaded;
    const CaughtError error = Catch([&] {
      LoadFrom(loaded, Bytes(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(length)));
    });
    if (error != kNoError) {
      EXPECT_EQ(error.type, 7) << length;
      EXPECT_EQ(error.place, "Load");
    }
    EXPECT_LE(loaded.GetNumLegendObjs(), 2);
    Saved(loaded);
  }
  for (const std::size_t place : {std::size_t{20}, kTexts + 8 + 16 + 96}) {
    for (const int count : {-1, 1000000, 2147483647}) {
      Bytes changed = record;
      std::memcpy(changed.data() + place, &count, sizeof(count));
      CLegend3D loaded;
      EXPECT_EQ(Catch([&] { LoadFrom(loaded, changed); }), (CaughtError{7, 15, "Load"}))
          << place << ' ' << count;
    }
  }
}

TEST(LegendRecord, ComesBackWithItsView) {
  const TemporaryFile file;
  ViewOn on(100, 100);
  CLegend3D* legend = on.view->NewLegend3D();
  legend->SetLegendPosition({0.25, 0.25, 0.5, 0.5});
  legend->NewLegendObj("one", 3, {0.0, 1.0, 0.0, 1.0});
  on.view->NewLegend3D()->SetTitle1("second");
  on.view->DrawViewScreen();
  on.view->Save(file.Path());
  ViewOn other(100, 100);
  other.view->NewLegend3D();
  other.view->Load(file.Path());
  ASSERT_EQ(other.view->GetNumLegends(), 2);
  EXPECT_STREQ(other.view->GetLegend(0)->GetText(0), "one");
  EXPECT_STREQ(other.view->GetLegend(1)->GetTitle1Obj()->GetString(), "second");
  other.view->DrawViewScreen();
  for (int y = 0; y < 100; y += 5) {
    for (int x = 0; x < 100; x += 5) EXPECT_EQ(other.BitmapPixel(x, y), on.BitmapPixel(x, y));
  }
}

}  // namespace
