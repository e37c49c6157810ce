/// What records of legends hold that no accessor tells, and where it is put.

#include <array>
#include <bit>
#include <cstdint>
#include <string>

#include "chart/legend_fixture.h"
#include "support/record_fixture.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

/// A record made by hand.
class Record {
 public:
  Record& Int(int value) { return Append(static_cast<std::uint32_t>(value), 4); }
  Record& Real(double value) { return Append(std::bit_cast<std::uint64_t>(value), 8); }
  Record& Four(double first) {
    for (int i = 0; i < 4; ++i) Real(first + i / 8.0);
    return *this;
  }
  Record& Four(const RGBDType& color) {
    return Real(color.red).Real(color.green).Real(color.blue).Real(color.alpha);
  }
  Record& Text(const std::string& text) {
    Int(static_cast<int>(text.size()));
    bytes.insert(bytes.end(), text.begin(), text.end());
    return *this;
  }

  Bytes bytes;

 private:
  Record& Append(std::uint64_t bits, int count) {
    for (int i = 0; i < count; ++i, bits >>= 8U) {
      bytes.push_back(static_cast<unsigned char>(bits & 0xFFU));
    }
    return *this;
  }
};

/// Four numbers, each 1/8 above the one before.
RGBDType ColorFrom(double first) { return {first, first + 0.125, first + 0.25, first + 0.375}; }

bool operator==(const RGBDType& a, const RGBDType& b) {
  return a.red == b.red && a.green == b.green && a.blue == b.blue && a.alpha == b.alpha;
}

/// The legend of the fixture, with margins that leave room between them.
Bytes LegendWithMargins() {
  RecordFixture record("legend_3d");
  record.Put("top margin", {0.25}).Put("left margin", {0.375}).Put("y location", {0.125});
  return record.AllBytes();
}

class LegendFields : public LegendTest {
 protected:
  ~LegendFields() override {
    CLegend3D::nSelfID = m_legends;
    CLegendObj3D::nSelfID = m_entries;
    CTextObj3D::nSelfID = m_texts;
  }

 private:
  // Records overwrite the counters.
  int m_legends = CLegend3D::nSelfID;
  int m_entries = CLegendObj3D::nSelfID;
  int m_texts = CTextObj3D::nSelfID;
};

// What no accessor tells shows in the drawing: margins of 0.25 and 0.375, and none of the steps,
// which every drawing recomputes.
TEST_F(LegendFields, LoadedMarginsPlaceTheEntries) {
  LoadFrom(legend, LegendWithMargins());
  legend.SetLegendPosition({0.0, 0.0, 1.0, 1.0});
  legend.SetLegendColumns(2);
  legend.SetFontSize(0.1);
  for (CTextObj3D* text : {legend.GetTitle1Obj(), legend.GetTitle2Obj(), legend.GetFooterObj()}) {
    text->SetString("");
  }
  legend.SetViewAspect(1.0);
  legend.SetLegendOrientation(0);
  Drawn();
  EXPECT_NEAR(legend.GetLegendObj(0)->GetTextPosition().x, 0.375 - 1.0, 1e-12);
  EXPECT_NEAR(legend.GetLegendObj(1)->GetTextPosition().x, 0.375 - 1.0 + (2.0 - 0.75) / 2.0, 1e-12);
  EXPECT_NEAR(legend.GetLegendObj(0)->GetTextPosition().z, 1.0 - 0.25 - Height("first"), 1e-12);
}

TEST_F(LegendFields, LoadedContoursAreShownAgain) {
  LoadFrom(legend, LegendWithMargins());
  // The legend's own contours: without new arrays those of the file are shown.
  legend.ContourLegend2(nullptr, nullptr, 2, 1, ColorFrom(0.5), 0);
  ASSERT_EQ(legend.GetNumLegendObjs(), 4);
  EXPECT_STREQ(legend.GetText(2), "16.5");
  EXPECT_STREQ(legend.GetText(3), "15.5");
  EXPECT_TRUE(legend.GetSymbolColor(2) == ColorFrom(21.5));
  EXPECT_TRUE(legend.GetTextColor(3) == ColorFrom(20.5));
}

// The other way: what a legend was told and has computed, at its place in the file.
TEST_F(LegendFields, SavingPutsEachWhereItBelongs) {
  const std::array<double, 3> values{1.5, 2.5, 3.5};
  const std::array<RGBDType, 4> colors{ColorFrom(1.0), ColorFrom(2.0), ColorFrom(3.0),
                                       ColorFrom(4.0)};
  legend.ContourLegend(values.data(), colors.data(), 3, 6, ColorFrom(0.375), 7, "over", "under");
  legend.NewLegendObj("fourth");
  legend.NewLegendObj("fifth");
  legend.SetLegendPosition({0.25, 0.125, 0.5, 0.375});
  legend.SetViewAspect(1.25);
  legend.SetColorMode(9);
  legend.EnableLegend(8);
  legend.SetLegendColumns(2);
  legend.SetLegendOrientation(4);
  legend.EnableLegendBorder(5);
  legend.SetFontSize(0.0625);
  legend.SetBorderThickness(6.5);
  legend.SetSymbolTextSpace(7.5);
  legend.SetLegendYLoc(0.5);
  legend.SetLegendBkColor(ColorFrom(0.125));
  legend.SetLegendBorderColor(ColorFrom(0.25));
  legend.SetTitle1("one");
  legend.SetTitle2("second");
  legend.SetFooter("at the foot");
  Drawn();
  Record expected;
  expected.Int(CLegend3D::nSelfID).Int(legend.GetTransformID());
  expected.Int(5).Int(4).Int(6).Int(3);      // entries, orientation, decimals, contours
  expected.Int(9).Int(3).Int(2);             // colour mode, rows: 5 entries in 2 columns, columns
  expected.Int(7).Int(8).Int(5);             // flag, enable, border enable
  expected.Real(1.25).Real(37.0 / 100.0);    // view aspect, that of the pixels
  expected.Real(1.0 / 0.375).Real(0.0625);   // 1 / height, font size
  expected.Real(1.8 / 6.0).Real(1.6 / 2.0);  // three rows and three texts; two columns
  expected.Real(0.1).Real(0.2);              // margins
  expected.Real(6.5).Real(0.5).Real(7.5);    // border, y location, space
  expected.Four(0.375).Four(0.125).Four(0.25);
  expected.Real(0.25).Real(0.125).Real(0.5).Real(0.375);
  expected.Int(50).Int(12).Int(100).Int(37);  // of 200 x 100 pixels
  expected.Text("over").Text("under");
  for (const double value : values) expected.Real(value);
  for (const RGBDType& color : colors) expected.Four(color);
  expected.Int(5);
  const auto append = [&](const Bytes& child) {
    expected.bytes.insert(expected.bytes.end(), child.begin(), child.end());
  };
  for (int i = 0; i < 5; ++i) append(Saved(*legend.GetLegendObj(i)));
  append(Saved(*legend.GetTitle1Obj()));
  append(Saved(*legend.GetTitle2Obj()));
  append(Saved(*legend.GetFooterObj()));
  EXPECT_EQ(Saved(legend), expected.bytes);
}

}  // namespace
