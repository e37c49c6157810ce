#include "inspect/inspection.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <sstream>
#include <string>

#include "orvalix/orvalix.h"
#include "support/temporary_file.h"

namespace {

using orvalix::FileKind;
using orvalix::Inspect;
using orvalix::test::Bytes;
using orvalix::test::TemporaryFile;

struct Inspected {
  std::string text;
  bool isWhole;
};

Inspected InspectBytes(const Bytes& bytes, FileKind kind = FileKind::kUnknown) {
  const TemporaryFile file(bytes);
  std::ostringstream out;
  const bool isWhole = Inspect(file.Path(), kind, out);
  return {out.str(), isWhole};
}

bool Has(const Inspected& inspected, const std::string& text) {
  return inspected.text.find(text) != std::string::npos;
}

/// A chart file with one chart, which has one transform and a title of three letters.
Bytes ChartFile() {
  CWnd window;
  window.CreateOffscreen(20, 20);
  CChartView3D view(&window);
  view.SetFont("Some \"face\"", 700, 1, 0, 128);
  CChart3D* chart = view.NewChart3D();
  chart->NewTransform({1, 2, 3, 0}, {4, 5, 6.5, 0});
  chart->GetHeader()->SetTitle1("ABC");
  const TemporaryFile file;
  view.Save(file.Path());
  return file.Read();
}

Bytes SurfaceFile() {
  const std::array<double, 4> heights{1, 2, 3, 4};
  const CPolysurface mesh(2, 2, 0, 0, 1, 1, heights.data(), 1);
  const TemporaryFile file;
  mesh.Save(CString(file.Path()));
  return file.Read();
}

TEST(Inspection, TellsEveryFieldWithItsOffset) {
  const Bytes bytes = ChartFile();
  const Inspected chart = InspectBytes(bytes);
  EXPECT_TRUE(chart.isWhole);
  EXPECT_TRUE(Has(chart, "chart file\n         0  CChartView3D\n         0    font weight: 700\n"))
      << chart.text.substr(0, 500);
  // Four integers, then the length of the name.
  EXPECT_TRUE(Has(chart, "        16    font name: \"Some \\x22face\\x22\"\n"));
  EXPECT_TRUE(Has(chart, "    number of charts: 1\n"));
  EXPECT_TRUE(Has(chart, "  CChart3D\n"));
  EXPECT_TRUE(Has(chart, "      CTransform3D\n") || Has(chart, "    CTransform3D\n"));
  EXPECT_TRUE(Has(chart, "scale minimum: (1, 2, 3, 0)\n"));
  EXPECT_TRUE(Has(chart, "scale maximum: (4, 5, 6.5, 0)\n"));
  EXPECT_TRUE(Has(chart, "string: \"ABC\"\n"));
  EXPECT_TRUE(Has(chart, "axis scale modes: [0, 0, 0, 0, 0, 0]\n"));
  EXPECT_TRUE(Has(chart, "258 in all]\n"));
  EXPECT_TRUE(Has(chart, "\nwhole: " + std::to_string(bytes.size()) + " bytes\n"));
}

TEST(Inspection, FindsOutWhatAFileIs) {
  const Inspected surface = InspectBytes(SurfaceFile());
  EXPECT_TRUE(surface.isWhole);
  EXPECT_TRUE(Has(surface, "polysurface file\n         0  CPolysurface\n         0    rows: 2\n"));
  EXPECT_TRUE(Has(surface, "polygons: 10 in all\n"));
  EXPECT_FALSE(InspectBytes(SurfaceFile(), FileKind::kChart).isWhole);
  EXPECT_FALSE(InspectBytes(ChartFile(), FileKind::kPolysurface).isWhole);
}

TEST(Inspection, TellsWhereAFileEndsTooEarly) {
  Bytes bytes = ChartFile();
  bytes.resize(18);  // within the length of the font's name
  const Inspected cut = InspectBytes(bytes);
  EXPECT_FALSE(cut.isWhole);
  EXPECT_TRUE(Has(cut,
                  "\nbroken: the file ends too early at byte 16 of 18, in CChartView3D, "
                  "\"font name\"\n"))
      << cut.text;
  const Inspected empty = InspectBytes({});
  EXPECT_FALSE(empty.isWhole);
  EXPECT_TRUE(Has(empty, "at byte 0 of 0, in CChartView3D, \"font weight\"\n")) << empty.text;
}

TEST(Inspection, TellsWhereAFileMakesNoSense) {
  Bytes bytes = ChartFile();
  bytes[19] = 0x7F;  // a name of two thousand million letters
  const Inspected broken = InspectBytes(bytes, FileKind::kChart);
  EXPECT_FALSE(broken.isWhole);
  EXPECT_TRUE(Has(broken, "\nbroken: the file makes no sense at byte 16 of "));
  EXPECT_TRUE(Has(broken, "in CChartView3D, \"font name\"\n"));
  EXPECT_TRUE(Has(broken, "        12    font underline: 0\n"));
}

TEST(Inspection, TellsWhatFollowsTheEnd) {
  Bytes bytes = SurfaceFile();
  const std::string end = std::to_string(bytes.size());
  bytes.resize(bytes.size() + 3);
  const Inspected longer = InspectBytes(bytes, FileKind::kPolysurface);
  EXPECT_FALSE(longer.isWhole);
  EXPECT_TRUE(Has(longer, "\nbroken: 3 bytes follow the end at byte " + end + "\n")) << longer.text;
}

TEST(Inspection, NeedsAFile) {
  std::ostringstream out;
  EXPECT_ANY_THROW(Inspect("/no/such/file", FileKind::kUnknown, out));
}

}  // namespace
