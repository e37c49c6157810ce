#include "orvalix/chart/header_3d.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "chart/view_fixture.h"
#include "orvalix/render/font_3d.h"
#include "orvalix/render/text_obj_3d.h"
#include "support/caught_error.h"
#include "support/feedback.h"
#include "support/hex_bytes.h"
#include "support/offscreen.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

TEST(Header3D, StartsWithItsDefaults) {
  const int before = CHeader3D::nSelfID;
  const CHeader3D header;
  EXPECT_EQ(CHeader3D::nSelfID, before + 1);
  EXPECT_EQ(header.GetHeaderEnable(), 1);
  EXPECT_EQ(header.GetFontHeightSF(), 1.0);
  EXPECT_EQ(header.GetFontSize(), 0.1);
  EXPECT_STREQ(header.GetTitle1(), "");
  EXPECT_STREQ(header.GetTitle2(), "");
  EXPECT_STREQ(header.GetFooter(), "");
  EXPECT_EQ(header.GetClassTag(), 1212);
}

TEST(Header3D, SavesItsFieldsInOrder) {
  CHeader3D header;
  header.SetTitle1("A");
  header.SetTitle2("B");
  header.SetFooter("C");
  header.SetViewAspect(2.0);
  header.SetFontHeightSF(3.0);
  header.SetFontSize(4.0);
  header.EnableHeader(5);
  CHeader3D::nSelfID = 6;
  const Bytes record = Saved(header);
  const Bytes fields = FromHex(R"(
      06000000 00000000                  # counter, transform id
      9a9999999999a93f 0000000000000040  # margin 0.05, view aspect
      0000000000000840 0000000000001040  # font height factor, font size
      05000000                           # enable
  )");
  ASSERT_EQ(record.size(), fields.size() + 3 * 153);
  EXPECT_EQ(Bytes(record.begin(), record.begin() + 44), fields);
  EXPECT_EQ(record[44 + 12], 'A');
  EXPECT_EQ(record[44 + 153 + 12], 'B');
  EXPECT_EQ(record[44 + 2 * 153 + 12], 'C');
  CHeader3D loaded;
  LoadFrom(loaded, record);
  EXPECT_EQ(CHeader3D::nSelfID, 6);
  EXPECT_EQ(Saved(loaded), record);
  loaded.Save(nullptr);
  loaded.Load(nullptr);
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { header.Save(full.m_hFile); }), (CaughtError{7, 14, "Save"}));
  // A file that is open for writing can't be read.
  EXPECT_EQ(Catch([&] { header.Load(full.m_hFile); }), (CaughtError{7, 14, "Load"}));
}

class DrawnHeader : public ::testing::Test {
 protected:
  DrawnHeader() : target(200, 200), header(target.gl.get()) {
    target.gl->RegisterFont("Arial", 0.1, 400, 0, 0, 128);
  }

  struct Box {
    double left = 1e9, bottom = 1e9, right = -1e9, top = -1e9;
  };
  /// Bounds of what has that colour, in the units of the view.
  Box Bounds(const RGBDType& color) {
    Box box;
    for (const FeedbackPrimitive& primitive : Drawn()) {
      for (const FeedbackVertex& vertex : primitive.vertices) {
        if (vertex.red != color.red || vertex.green != color.green || vertex.blue != color.blue) {
          continue;
        }
        box.left = std::min(box.left, vertex.x / 100.0 - 1.0);
        box.right = std::max(box.right, vertex.x / 100.0 - 1.0);
        box.bottom = std::min(box.bottom, vertex.y / 100.0 - 1.0);
        box.top = std::max(box.top, vertex.y / 100.0 - 1.0);
      }
    }
    return box;
  }
  std::vector<FeedbackPrimitive> Drawn() {
    return CaptureFeedback([this] { header.DrawHeader(); });
  }
  /// The aspect of the header's transform, as the width of a text shows it that is drawn by itself.
  double HeaderTransformAspect() {
    Box box;
    for (const FeedbackPrimitive& primitive :
         CaptureFeedback([this] { header.GetTitle1Obj()->OutTextNorm(); })) {
      for (const FeedbackVertex& vertex : primitive.vertices) {
        box.left = std::min(box.left, vertex.x);
        box.right = std::max(box.right, vertex.x);
      }
    }
    return box.right - box.left;
  }
  void SetColors() {
    header.GetTitle1Obj()->SetColor(kRedColor);
    header.GetTitle2Obj()->SetColor(kGreenColor);
    header.GetFooterObj()->SetColor(kBlueColor);
  }

  static constexpr RGBDType kRedColor{1, 0, 0, 1};
  static constexpr RGBDType kGreenColor{0, 1, 0, 1};
  static constexpr RGBDType kBlueColor{0, 0, 1, 1};
  static constexpr double kTolerance = 2e-3;
  Offscreen target;
  CHeader3D header;
};

TEST_F(DrawnHeader, RefusesWhatIsNoContext) {
  alignas(16) static std::array<unsigned char, 8192> untagged{};
  for (auto* bad : {static_cast<COpenGL*>(nullptr), reinterpret_cast<COpenGL*>(untagged.data())}) {
    EXPECT_EQ(Catch([&] { header.InitHeaders(bad); }), (CaughtError{16, 14, "InitHeaders"}));
    EXPECT_EQ(Catch([&] { CHeader3D another(bad); }), (CaughtError{16, 14, "InitHeaders"}));
  }
}

TEST_F(DrawnHeader, DrawsNothingWithoutTexts) {
  EXPECT_TRUE(Drawn().empty());
  EXPECT_TRUE(CaptureFeedback([] { CHeader3D().DrawHeader(); }).empty());
}

TEST_F(DrawnHeader, StacksItsTitlesAtTheTop) {
  SetColors();
  header.SetTitle1("HHH");
  header.SetTitle2("HH");
  header.SetFooter("H");
  const double height = header.GetTitle1Obj()->TextHeight();
  const Box title1 = Bounds(kRedColor);
  EXPECT_NEAR(title1.top, 0.95, kTolerance);
  EXPECT_NEAR(title1.top - title1.bottom, height, kTolerance);
  EXPECT_NEAR(title1.left + title1.right, 0.0, 2.0 * kTolerance);
  const Box title2 = Bounds(kGreenColor);
  EXPECT_NEAR(title2.top, 0.95 - height * 5.0 / 3.0, kTolerance);
  EXPECT_NEAR(title2.left + title2.right, 0.0, 2.0 * kTolerance);
  const Box footer = Bounds(kBlueColor);
  EXPECT_NEAR(footer.bottom, -0.95, kTolerance);
  EXPECT_NEAR(footer.left + footer.right, 0.0, 2.0 * kTolerance);
}

TEST_F(DrawnHeader, TheSecondTitleTakesTheTopLineAlone) {
  SetColors();
  header.SetTitle2("H");
  EXPECT_NEAR(Bounds(kGreenColor).top, 0.95, kTolerance);
}

TEST_F(DrawnHeader, AFooterStandsAloneAtTheBottom) {
  SetColors();
  header.SetFooter("H");
  EXPECT_NEAR(Bounds(kBlueColor).bottom, -0.95, kTolerance);
  const point3Dtype place = header.GetFooterObj()->GetNormLocation();
  EXPECT_NEAR(place.z, -0.95, 1e-12);
  EXPECT_EQ(header.GetFooterObj()->GetXJustify(), 1);
  EXPECT_EQ(header.GetFooterObj()->GetYJustify(), 0);
}

TEST_F(DrawnHeader, FollowsItsFactors) {
  SetColors();
  header.SetTitle1("H");
  const Box normal = Bounds(kRedColor);
  header.SetViewAspect(0.5);
  EXPECT_NEAR(Bounds(kRedColor).right, 0.5 * normal.right, kTolerance);
  header.SetFontHeightSF(2.0);
  EXPECT_NEAR(Bounds(kRedColor).right, normal.right, kTolerance);
  header.SetFontSize(50.0);  // stored only
  EXPECT_NEAR(Bounds(kRedColor).right, normal.right, kTolerance);
}

TEST_F(DrawnHeader, ADisabledOneDrawsNothing) {
  header.SetTitle1("H");
  header.SetViewAspect(0.25);
  Drawn();
  const double wide = HeaderTransformAspect();
  header.SetViewAspect(0.75);
  header.EnableHeader(0);
  EXPECT_TRUE(Drawn().empty());
  EXPECT_EQ(HeaderTransformAspect(), wide);  // it doesn't touch its transform
}

TEST_F(DrawnHeader, LoadingKeepsItsTransform) {
  CHeader3D other(target.gl.get());
  other.SetTitle1("H");
  other.GetTitle1Obj()->SetColor(kRedColor);
  const Bytes record = Saved(other);
  LoadFrom(header, record);
  EXPECT_EQ(Saved(header), record);  // with the stored transform id
  EXPECT_NEAR(Bounds(kRedColor).top, 0.95, kTolerance);
}

TEST(HeaderOfAView, LiesUnderTheChartsInTheSameSizeEveryFrame) {
  ViewOn target(200, 200);
  CHeader3D* header = target.view->GetHeader();
  ASSERT_NE(header, nullptr);
  header->SetTitle1("H");
  header->SetFooter("H");
  target.view->DrawViewScreen();
  COpenGL& gl = *target.view->GetOpenGLPntr();
  // Aspect 1: the letter is 0.2 em, as the font is registered.
  EXPECT_NEAR(header->GetTitle1Obj()->TextHeight(),
              0.2 * gl.GetFont()->GetGlyphMetrics('H').gmfBlackBoxY, 1e-6);
  const auto inkIn = [&](int low, int high) {
    int ink = 0;
    for (int y = low; y < high; ++y) {
      for (int x = 80; x < 120; ++x) ink += target.BitmapPixel(x, y) == kBlack;
    }
    return ink;
  };
  const int ink = inkIn(175, 197);
  EXPECT_GT(ink, 30);
  EXPECT_GT(inkIn(3, 25), 30);
  CChart3D* chart = target.view->NewChart3D();
  chart->SetFontSize(0.05);
  chart->SetChartPosition({0, 0, 1, 0.5});
  target.view->DrawViewScreen();
  target.view->DrawViewScreen();
  EXPECT_EQ(inkIn(175, 197), ink);
  EXPECT_EQ(inkIn(3, 25), 0);  // the chart covers the footer
  EXPECT_EQ(CChartView3D().GetHeader(), nullptr);
}

TEST(HeaderOfAView, KeepsItsShapeInAWideView) {
  ViewOn target(400, 100);
  CHeader3D* header = target.view->GetHeader();
  header->SetTitle1("H");
  CHeader3D* ofChart = nullptr;
  target.view->DrawViewScreen();
  target.view->GetOpenGLPntr()->MakeCurrent();
  const auto shape = [&](CHeader3D& drawn) {
    double left = 1e9;
    double right = -1e9;
    double low = 1e9;
    double high = -1e9;
    for (const FeedbackPrimitive& primitive : CaptureFeedback([&] { drawn.DrawHeader(); })) {
      for (const FeedbackVertex& vertex : primitive.vertices) {
        left = std::min(left, vertex.x);
        right = std::max(right, vertex.x);
        low = std::min(low, vertex.y);
        high = std::max(high, vertex.y);
      }
    }
    return (right - left) / (high - low);
  };
  const GLYPHMETRICSFLOAT letter = target.view->GetOpenGLPntr()->GetFont()->GetGlyphMetrics('H');
  const double expected = static_cast<double>(letter.gmfBlackBoxX / letter.gmfBlackBoxY);
  EXPECT_NEAR(shape(*header), expected, 0.02);
  // So does that of a chart, in a rectangle of another shape.
  CChart3D* chart = target.view->NewChart3D();
  chart->SetChartPosition({0, 0, 0.5, 1});
  ofChart = chart->GetHeader();
  ofChart->SetTitle1("H");
  target.view->DrawViewScreen();
  EXPECT_NEAR(shape(*ofChart), expected, 0.02);
}

}  // namespace
