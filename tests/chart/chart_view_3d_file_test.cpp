#include <gtest/gtest.h>

#include "chart/view_fixture.h"
#include "orvalix/chart/header_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "support/caught_error.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

Bytes SavedView(const CChartView3D& view) {
  const TemporaryFile file;
  view.Save(file.Path());
  return file.Read();
}

TEST(ChartViewFile, AnEmptyViewIsItsOwnFields) {
  CChartView3D view;
  view.SetFont("Sans", 400, 2, 3, 100);
  view.SetViewBkMode(9);
  view.EnableBorder(4);
  const Bytes bytes = SavedView(view);
  const Bytes start{0x90, 1,   0,   0,  // font weight 400
                    100,  0,   0,   0,  // font characters
                    2,    0,   0,   0,  // italics
                    3,    0,   0,   0,  // underline
                    4,    0,   0,   0,  // length of the font name
                    'S',  'a', 'n', 's'};
  // The header is 44 bytes and three texts of 152.
  ASSERT_EQ(bytes.size(), start.size() + 32 + 4 + 8 + 32 + 4 + 4 + 4 + 44 + 3 * 152);
  EXPECT_EQ(Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(start.size())), start);
  EXPECT_EQ(bytes[24 + 6], 0xF0);  // background red 1.0 ends in F0 3F
  EXPECT_EQ(bytes[24 + 7], 0x3F);
  EXPECT_EQ(bytes[56], 9);          // background mode
  EXPECT_EQ(bytes[60 + 7], 0x3F);   // border thickness 1.0
  EXPECT_EQ(bytes[68 + 31], 0x3F);  // border colour: alpha 1.0
  EXPECT_EQ(bytes[100], 4);         // border enable
  EXPECT_EQ(bytes[104], 0);         // number of charts
  EXPECT_EQ(bytes[108], 0);         // number of legends
}

TEST(ChartViewFile, AnEmptyFontNameIsFourZeroBytes) {
  CChartView3D view;
  view.SetFont("", 700, 128);
  const Bytes bytes = SavedView(view);
  EXPECT_EQ(Bytes(bytes.begin() + 16, bytes.begin() + 20), (Bytes{0, 0, 0, 0}));
  view.SetFont("Arial", 700, 128);
  const TemporaryFile file(bytes);
  view.Load(file.Path());
  EXPECT_STREQ(view.GetFontName(), "");
}

TEST(ChartViewFile, LoadingReplacesEverything) {
  ViewOn source(60, 60);
  source.view->SetViewBkColor(SetRGBD(0, 0, 1, 1));
  source.view->SetFont("Sans", 400, 100);
  source.view->NewChart3D()->SetChartPosition({0, 0, 0.5, 0.5});
  CTransform3D* transform = nullptr;
  CChart3D* second = source.view->NewChart3D({0, 0, 0, 0}, {1, 1, 1, 0}, &transform);
  second->SetChartPosition({0.5, 0.5, 0.5, 0.5});
  second->SetChartBkColor(SetRGBD(0, 1, 0, 1));
  const TemporaryFile file;
  source.view->Save(file.Path());

  ViewOn target(60, 60);
  for (int i = 0; i < 5; ++i) target.view->NewChart3D();
  target.view->DrawViewScreen();
  target.view->Load(file.Path());
  EXPECT_EQ(target.view->GetNumCharts(), 2);
  EXPECT_EQ(target.view->GetChart(1)->GetNumTransforms(), 1);
  EXPECT_STREQ(target.view->GetFontName(), "Sans");
  EXPECT_EQ(target.view->GetFontWeight(), 400);
  EXPECT_EQ(SavedView(*target.view), file.Read());
  target.view->DrawViewScreen();
  EXPECT_EQ(target.WindowPixel(15, 45), kWhite);
  EXPECT_EQ(target.WindowPixel(45, 15), kGreen);
  EXPECT_EQ(target.WindowPixel(15, 15), kBlue);
}

TEST(ChartViewFile, KeepsTheTitlesOfTheView) {
  ViewOn source(60, 60);
  source.view->GetHeader()->SetTitle1("First");
  source.view->GetHeader()->SetFooter("Last");
  const TemporaryFile file;
  source.view->Save(file.Path());
  ViewOn target(60, 60);
  target.view->Load(file.Path());
  EXPECT_STREQ(target.view->GetHeader()->GetTitle1(), "First");
  EXPECT_STREQ(target.view->GetHeader()->GetFooter(), "Last");
  EXPECT_EQ(SavedView(*target.view), file.Read());
}

TEST(ChartViewFile, KeepsTitlesThatAreLoadedBeforeTheViewCanDraw) {
  ViewOn source(60, 60);
  source.view->GetHeader()->SetTitle1("First");
  const TemporaryFile file;
  source.view->Save(file.Path());
  CWnd window;
  CChartView3D view(&window);
  view.Load(file.Path());
  EXPECT_EQ(SavedView(view), file.Read());
  ASSERT_TRUE(window.CreateOffscreen(60, 60));
  view.DrawViewScreen(window.GetDC());
  EXPECT_STREQ(view.GetHeader()->GetTitle1(), "First");
  EXPECT_GT(view.GetHeader()->GetTitle1Obj()->TextWidth(), 0.0);
}

TEST(ChartViewFile, ReportsFilesThatCannotBeOpened) {
  ViewOn target(10, 10);
  target.view->NewChart3D();
  EXPECT_EQ(Catch([&] { target.view->Load("/no/such/file"); }), (CaughtError{5, 6, "Load"}));
  EXPECT_EQ(target.view->GetNumCharts(), 1);  // unchanged
  EXPECT_EQ(Catch([&] { target.view->Save("/no/such/folder/file"); }), (CaughtError{6, 6, "Save"}));
  EXPECT_EQ(Catch([&] { target.view->Save("/dev/full"); }), (CaughtError{7, 6, "Save"}));
}

TEST(ChartViewFile, SurvivesEveryTruncation) {
  CChartView3D view;
  view.SetViewBkMode(9);
  const Bytes bytes = SavedView(view);
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    CChartView3D loaded;
    const TemporaryFile file(
        Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)));
    const CaughtError error = Catch([&] { loaded.Load(file.Path()); });
    if (error != kNoError) {
      EXPECT_EQ(error.type, 7) << length;
      EXPECT_EQ(error.place, "Load") << length;
    }
    EXPECT_EQ(loaded.GetViewBkMode(), length >= 61 ? 9 : 2) << length;
  }
}

TEST(ChartViewFile, DistrustsTheNumberOfCharts) {
  ViewOn target(10, 10);
  Bytes bytes = SavedView(*target.view);
  constexpr std::size_t kNumberOfCharts = 105;  // behind the fields with "Arial"
  for (const int last : {0x7F, 0xFF}) {
    bytes[kNumberOfCharts + 3] = static_cast<unsigned char>(last);
    const TemporaryFile file(bytes);
    EXPECT_EQ(Catch([&] { target.view->Load(file.Path()); }), (CaughtError{7, 6, "Load"}));
    EXPECT_EQ(target.view->GetNumCharts(), 0);
  }
}

}  // namespace
