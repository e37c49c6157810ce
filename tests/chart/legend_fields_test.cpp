/// Records of legends byte by byte, with another value in every field.

#include <array>
#include <bit>
#include <cstdint>
#include <string>

#include "chart/legend_fixture.h"
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
  Record& Then(const Record& other) {
    bytes.insert(bytes.end(), other.bytes.begin(), other.bytes.end());
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

// The counters of the process, which every record of a class tells.
constexpr int kLegends = 1001;
constexpr int kEntries = 2002;
constexpr int kTexts = 3003;

/// The first of four numbers, each 1/8 above the one before.
point3Dtype PointFrom(double first) { return {first, first + 0.125, first + 0.25, first + 0.375}; }
RGBDType ColorFrom(double first) { return {first, first + 0.125, first + 0.25, first + 0.375}; }

bool operator==(const RGBDType& a, const RGBDType& b) {
  return a.red == b.red && a.green == b.green && a.blue == b.blue && a.alpha == b.alpha;
}
bool operator==(const point3Dtype& a, const point3Dtype& b) {
  return a.x == b.x && a.y == b.y && a.z == b.z && a.v == b.v;
}

/// A text object with that string; all of its numbers follow from `first`.
Record TextRecord(const std::string& text, int first) {
  Record record;
  record.Int(kTexts).Int(first).Text(text);
  record.Four(first + 0.5).Four(first + 1.5);          // place, normalised place
  record.Int(first + 1).Int(first + 2);                // justifications
  record.Four(first + 2.5);                            // colour
  for (int i = 3; i < 10; ++i) record.Int(first + i);  // plane to enable
  return record.Real(first + 3.5);                     // size
}

/// An entry whose numbers follow from `first`.
Record EntryRecord(const std::string& text, int first) {
  Record record;
  record.Int(kEntries);
  record.Int(first);         // transform id
  record.Four(first + 1.0);  // text colour
  record.Four(first + 2.0);  // symbol colour
  record.Int(first + 3);     // symbol
  record.Int(first + 4);     // enable
  record.Real(first + 5.0);  // symbol scale
  record.Four(first + 6.0);  // text position
  record.Four(first + 7.0);  // symbol position
  record.Four(first + 8.0);  // symbol rotation
  return record.Then(TextRecord(text, first + 20));
}

Record LegendRecord() {
  Record record;
  record.Int(kLegends);
  record.Int(11);                          // transform id
  record.Int(2);                           // entries
  record.Int(12).Int(3);                   // orientation, contour decimals
  record.Int(2);                           // contours
  record.Int(14).Int(15).Int(16);          // colour mode, rows, columns
  record.Int(17).Int(18).Int(19);          // contour text colour flag, enable, border enable
  record.Real(20.5).Real(21.5);            // view aspect, viewport aspect
  record.Real(22.5).Real(23.5);            // font height factor, font size
  record.Real(24.5).Real(25.5);            // row step, column step
  record.Real(0.25).Real(0.375);           // top margin, left margin
  record.Real(28.5);                       // border thickness
  record.Real(0.125);                      // y location, and only then
  record.Real(30.5);                       // symbol-text space
  record.Four(0.0625);                     // contour text colour
  record.Four(0.1875).Four(0.3125);        // background, border
  record.Four(0.5);                        // position
  record.Int(31).Int(32).Int(33).Int(34);  // viewport
  record.Text("upper").Text("lower one");
  record.Real(7.5).Real(8.5);               // contour values
  record.Four(40.0).Four(41.0).Four(42.0);  // and their colours
  record.Int(2);
  record.Then(EntryRecord("first", 100)).Then(EntryRecord("the second", 200));
  record.Then(TextRecord("title one", 300));
  record.Then(TextRecord("second title", 400));
  return record.Then(TextRecord("foot", 500));
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

TEST_F(LegendFields, LoadingFindsEachWhereItBelongs) {
  LoadFrom(legend, LegendRecord().bytes);
  EXPECT_EQ(CLegend3D::nSelfID, kLegends);
  EXPECT_EQ(CLegendObj3D::nSelfID, kEntries);
  EXPECT_EQ(CTextObj3D::nSelfID, kTexts);
  EXPECT_EQ(legend.GetTransformID(), 11);
  EXPECT_EQ(legend.GetNumLegendObjs(), 2);
  EXPECT_EQ(legend.GetLegendOrientation(), 12);
  EXPECT_EQ(legend.GetColorMode(), 14);
  EXPECT_EQ(legend.GetLegendRows(), 15);
  EXPECT_EQ(legend.GetLegendColumns(), 16);
  EXPECT_EQ(legend.GetLegendEnable(), 18);
  EXPECT_EQ(legend.GetLegendBorderEnable(), 19);
  EXPECT_EQ(legend.GetFontHeightSF(), 22.5);
  EXPECT_EQ(legend.GetFontSize(), 23.5);
  EXPECT_EQ(legend.GetBorderThickness(), 28.5);
  EXPECT_EQ(legend.GetLegendYLoc(), 0.125);
  EXPECT_EQ(legend.GetSymbolTextSpace(), 30.5);
  EXPECT_TRUE(legend.GetLegendBkColor() == ColorFrom(0.1875));
  EXPECT_TRUE(legend.GetLegendBorderColor() == ColorFrom(0.3125));
  const GLViewRType position = legend.GetLegendPosition();
  EXPECT_TRUE((point3Dtype{position.x, position.y, position.width, position.height}) ==
              PointFrom(0.5));
  const GLViewportType viewport = legend.GetLegendViewport();
  EXPECT_EQ((std::array<int, 4>{viewport.x, viewport.y, viewport.width, viewport.height}),
            (std::array<int, 4>{31, 32, 33, 34}));
  EXPECT_STREQ(legend.GetTitle1Obj()->GetString(), "title one");
  EXPECT_STREQ(legend.GetTitle2Obj()->GetString(), "second title");
  EXPECT_STREQ(legend.GetFooterObj()->GetString(), "foot");
  EXPECT_EQ(Saved(legend), LegendRecord().bytes);
}

TEST_F(LegendFields, EntriesFindTheirsToo) {
  LoadFrom(legend, LegendRecord().bytes);
  const CLegendObj3D& entry = *legend.GetLegendObj(1);
  EXPECT_EQ(entry.GetTransformID(), 200);
  EXPECT_TRUE(entry.GetTextColor() == ColorFrom(201.0));
  EXPECT_TRUE(entry.GetSymbolColor() == ColorFrom(202.0));
  EXPECT_EQ(entry.GetSymbol(), 203);
  EXPECT_EQ(entry.GetLegendObjEnable(), 204);
  EXPECT_EQ(entry.GetSymbolScale(), 205.0);
  EXPECT_TRUE(entry.GetTextPosition() == PointFrom(206.0));
  EXPECT_TRUE(entry.GetSymbolPosition() == PointFrom(207.0));
  EXPECT_TRUE(entry.GetSymbolRotation() == PointFrom(208.0));
  EXPECT_STREQ(entry.GetText(), "the second");
  EXPECT_STREQ(legend.GetText(0), "first");
  CLegendObj3D alone;
  LoadFrom(alone, EntryRecord("the second", 200).bytes);
  EXPECT_EQ(Saved(alone), EntryRecord("the second", 200).bytes);
}

// What no accessor tells shows in the drawing: margins of 0.25 and 0.375, and none of the steps,
// which every drawing recomputes.
TEST_F(LegendFields, LoadedMarginsPlaceTheEntries) {
  LoadFrom(legend, LegendRecord().bytes);
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
  LoadFrom(legend, LegendRecord().bytes);
  // The legend's own contours: without new arrays those of the file are shown.
  legend.ContourLegend2(nullptr, nullptr, 2, 1, ColorFrom(0.5), 0);
  ASSERT_EQ(legend.GetNumLegendObjs(), 4);
  EXPECT_STREQ(legend.GetText(2), "8.5");
  EXPECT_STREQ(legend.GetText(3), "7.5");
  EXPECT_TRUE(legend.GetSymbolColor(2) == ColorFrom(41.0));
  EXPECT_TRUE(legend.GetTextColor(3) == ColorFrom(40.0));
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
