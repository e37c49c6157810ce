/// Stored pictures of shapes of every type and of bitmaps on planes.

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "orvalix/orvalix.h"
#include "support/bitmap_files.h"
#include "support/golden.h"
#include "support/temporary_file.h"
#include "support/view_picture.h"

namespace {

using orvalix::test::BitmapFile;
using orvalix::test::Encode;
using orvalix::test::ExpectGoldenPicture;
using orvalix::test::PackRows;
using orvalix::test::TemporaryFile;

const RGBDType kPaper{0.96, 0.96, 0.98, 1.0};

/// A view of charts in columns and rows of square cells.
class Cells {
 public:
  Cells(int columns, int rows, int cellPixels) : m_columns(columns), m_rows(rows) {
    m_window.CreateOffscreen(columns * cellPixels, rows * cellPixels);
    m_view = std::make_unique<CChartView3D>(&m_window);
    m_view->SetFont("Arial", 400, 256);
    m_view->EnableBorder(0);
    m_view->SetViewBkColor(kPaper);
  }

  /// The chart in a cell, counted by rows from the upper left one, with its title.
  CChart3D& Chart(int cell, const char* title) {
    CChart3D* chart = m_view->NewChart3D();
    const double width = 1.0 / m_columns;
    const double height = 1.0 / m_rows;
    const int fromBelow = m_rows - 1 - cell / m_columns;
    chart->SetChartPosition({cell % m_columns * width, fromBelow * height, width, height});
    chart->SetChartBkColor(kPaper);
    chart->SetFontSize(0.2);
    chart->GetHeader()->SetTitle1(title);
    return *chart;
  }

  orvalix::Picture Draw() {
    m_view->DrawViewScreen();
    return orvalix::TakePicture(*m_view);
  }

 private:
  int m_columns;
  int m_rows;
  CWnd m_window;
  std::unique_ptr<CChartView3D> m_view;
};

/// A shape as large as its cell takes it, turned so that it stands upright.
struct Shape {
  const char* name;
  CAuxObj3D::AuxObjTypes type;
  point3Dtype sizes;
  point3Dtype rotation;
  RGBDType color;
  double lowered = 0.0;  ///< below the middle, normalised units
};

constexpr std::array<Shape, 10> kShapes{{
    {"Sphere", CAuxObj3D::kSphere, {1.3, 0, 0, 0}, {}, {0.80, 0.30, 0.25, 1.0}},
    {"Cube", CAuxObj3D::kCube, {1.6, 0, 0, 0}, {}, {0.25, 0.50, 0.80, 1.0}},
    {"Box", CAuxObj3D::kBox, {2.0, 0.8, 1.4, 0}, {}, {0.30, 0.65, 0.45, 1.0}},
    {"Torus", CAuxObj3D::kTorus, {0.4, 1.1, 0, 0}, {-40, 0, 0, 0}, {0.85, 0.60, 0.20, 1.0}},
    {"Cylinder", CAuxObj3D::kCylinder, {0.9, 2.0, 0, 0}, {90, 0, 0, 0}, {0.55, 0.40, 0.75, 1.0}},
    {"Icosahedron",
     CAuxObj3D::kIcosahedron,
     {1.4, 0, 0, 0},
     {0, 0, 20, 0},
     {0.30, 0.65, 0.75, 1.0}},
    {"Octahedron", CAuxObj3D::kOctahedron, {1.5, 0, 0, 0}, {}, {0.80, 0.45, 0.60, 1.0}},
    {"Tetrahedron", CAuxObj3D::kTetrahedron, {1.5, 0, 0, 0}, {}, {0.60, 0.65, 0.25, 1.0}},
    {"Dodecahedron", CAuxObj3D::kDodecahedron, {2.5, 0, 0, 0}, {}, {0.75, 0.50, 0.30, 1.0}},
    {"Cone", CAuxObj3D::kCone, {1.1, 2.0, 0, 0}, {}, {0.40, 0.45, 0.70, 1.0}, 0.5},
}};

/// All ten shapes, five in a row.
template <class Dress>
void ExpectShapes(const char* picture, Dress dress) {
  constexpr int kColumns = 5;
  constexpr int kRows = 2;
  constexpr int kCellPixels = 176;
  Cells cells(kColumns, kRows, kCellPixels);
  int cell = 0;
  for (const Shape& shape : kShapes) {
    CChart3D& chart = cells.Chart(cell++, shape.name);
    CTransform3D* transform = chart.NewTransform({-1, -1, -1, 0}, {1, 1, 1, 0});
    transform->SetRotate({-25, 0, 30, 0});
    CAuxObj3D* drawn = chart.NewAuxObj(transform, shape.type);
    drawn->SetSizeParameters(shape.sizes.x, shape.sizes.y, shape.sizes.z);
    drawn->SetScaleFactor(0.5);
    drawn->SetRotation(shape.rotation);
    drawn->SetNormLocation({0.0, 0.0, -0.05 - shape.lowered, 0.0});
    drawn->SetColor(shape.color);
    dress(*drawn);
  }
  ExpectGoldenPicture(cells.Draw(), picture);
}

TEST(ShapesPicture, SolidsLookAsStored) {
  ExpectShapes("shapes_solid", [](CAuxObj3D&) {});
}

TEST(ShapesPicture, WiresLookAsStored) {
  ExpectShapes("shapes_wire", [](CAuxObj3D& shape) { shape.SetSolidType(0); });
}

// Spheres, rings and cones have no edges.
TEST(ShapesPicture, OutlinedSolidsLookAsStored) {
  ExpectShapes("shapes_outlined", [](CAuxObj3D& shape) { shape.SetOutlineMode(1); });
}

/// 16 x 16 pixels: a dark letter F on white, a red stripe along the top and a blue one at the left.
BitmapFile LetterF() {
  constexpr std::uint32_t kWhite = 0xFFFFFF;
  constexpr std::uint32_t kRed = 0xD03020;
  constexpr std::uint32_t kBlue = 0x2050C0;
  constexpr std::uint32_t kInk = 0x202428;
  std::vector<std::vector<std::uint32_t>> rows(16, std::vector<std::uint32_t>(16, kWhite));
  const auto fill = [&](std::size_t left, std::size_t top, std::size_t width, std::size_t height,
                        std::uint32_t color) {
    for (std::size_t y = top; y < top + height; ++y) {
      for (std::size_t x = left; x < left + width; ++x) rows[y][x] = color;
    }
  };
  fill(0, 0, 2, 16, kBlue);
  fill(0, 0, 16, 2, kRed);
  fill(5, 4, 2, 10, kInk);
  fill(5, 4, 8, 2, kInk);
  fill(5, 8, 5, 2, kInk);
  BitmapFile file;
  file.width = 16;
  file.height = 16;
  file.pixels = PackRows(rows, 24);
  return file;
}

/// Where a bitmap stands: its lower left, upper left and upper right corner.
struct Plane {
  const char* name;
  std::array<point3Dtype, 3> corners;
  int across;
  int up;
};

TEST(BitmapsPicture, LooksAsStored) {
  // The world is -1 to 1. The leaning plane's fourth corner lies below the third one, at the height
  // of the first: its left edge leans and its right one stands.
  constexpr std::array<Plane, 4> kPlanes{
      {{"Upright", {{{-1, 0, -1, 0}, {-1, 0, 1, 0}, {1, 0, 1, 0}}}, 1, 1},
       {"Mirrored", {{{-1, 0, -1, 0}, {-1, 0, 1, 0}, {1, 0, 1, 0}}}, -1, 1},
       {"Turned, 3 x 2", {{{-1, -1, -1, 0}, {-1, -1, 1, 0}, {1, 1, 1, 0}}}, 3, 2},
       {"Leaning, 3 x 2", {{{-1, -0.5, -1, 0}, {-1, 0.5, 1, 0}, {1, 0.5, 1, 0}}}, 3, 2}}};
  const TemporaryFile file(Encode(LetterF()));
  Cells cells(4, 1, 240);
  int cell = 0;
  for (const Plane& plane : kPlanes) {
    CChart3D& chart = cells.Chart(cell++, plane.name);
    chart.SetFontSize(0.15);
    CTransform3D* transform = chart.NewTransform({-1, -1, -1, 0}, {1, 1, 1, 0});
    transform->SetChartRect({0.55, 0.55, 0.55, 0});
    transform->SetRotate({-20, 0, 15, 0});
    transform->SetOffset({0, 0, -0.08, 0});
    CDIBObj3D* picture = chart.NewDIBObj(transform, file.Path());
    picture->SetPlanePoints(plane.corners[0], plane.corners[1], plane.corners[2]);
    picture->SetRepeatFactors(plane.across, plane.up);
  }
  ExpectGoldenPicture(cells.Draw(), "bitmaps");
}

}  // namespace
