#include "orvalix/render/transform_3d.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>
#include <vector>

#include "orvalix/foundation/points.h"
#include "orvalix/render/gl_api_internal.h"
#include "support/caught_error.h"
#include "support/offscreen.h"
#include "support/temporary_file.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::LoadFrom;
using orvalix::test::Offscreen;
using orvalix::test::Saved;

point3Dtype P(double x, double y, double z, double v = 0.0) { return {x, y, z, v}; }

void ExpectPoint(const point3Dtype& actual, double x, double y, double z,
                 double tolerance = 1e-12) {
  EXPECT_NEAR(actual.x, x, tolerance);
  EXPECT_NEAR(actual.y, y, tolerance);
  EXPECT_NEAR(actual.z, z, tolerance);
}

/// A matrix by rows, so that a product reads as in a textbook.
using Matrix = std::array<std::array<double, 4>, 4>;

Matrix operator*(const Matrix& a, const Matrix& b) {
  Matrix product{};
  for (std::size_t i = 0; i < 4; ++i)
    for (std::size_t j = 0; j < 4; ++j)
      for (std::size_t k = 0; k < 4; ++k) product[i][j] += a[i][k] * b[k][j];
  return product;
}

Matrix Translation(double x, double y, double z) {
  return {{{1, 0, 0, x}, {0, 1, 0, y}, {0, 0, 1, z}, {0, 0, 0, 1}}};
}

Matrix Scaling(double x, double y, double z) {
  return {{{x, 0, 0, 0}, {0, y, 0, 0}, {0, 0, z, 0}, {0, 0, 0, 1}}};
}

Matrix Turn(double degrees, int axis) {
  const double c = std::cos(degrees * std::numbers::pi / 180.0);
  const double s = std::sin(degrees * std::numbers::pi / 180.0);
  switch (axis) {
    case 0:
      return {{{1, 0, 0, 0}, {0, c, -s, 0}, {0, s, c, 0}, {0, 0, 0, 1}}};
    case 1:
      return {{{c, 0, s, 0}, {0, 1, 0, 0}, {-s, 0, c, 0}, {0, 0, 0, 1}}};
    default:
      return {{{c, -s, 0, 0}, {s, c, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
  }
}

void ExpectMatrix(const double* columns, const Matrix& expected, double tolerance) {
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      EXPECT_NEAR(columns[column * 4 + row], expected[row][column], tolerance)
          << "row " << row << ", column " << column;
    }
  }
}

TEST(Transform3D, StartsWithItsDefaults) {
  const CTransform3D transform;
  CTransform3D changing;
  point3Dtype min;
  point3Dtype max;
  transform.GetScale(min, max);
  ExpectPoint(min, 0, 0, 0);
  ExpectPoint(max, 1, 1, 1);
  transform.GetWorkingScale(min, max);
  ExpectPoint(min, 0, 0, 0);
  ExpectPoint(max, 1, 1, 1);
  ExpectPoint(transform.GetCentroid(), 0, 0, 0);
  ExpectPoint(transform.GetOffset(), 0, 0, 0);
  ExpectPoint(transform.GetRotation(), 0, 0, 0);
  ExpectPoint(transform.GetChartRect(), 0.5, 0.5, 0.5);
  EXPECT_EQ(transform.GetClipping(), 0);
  for (int axis = 0; axis < 6; ++axis) EXPECT_EQ(transform.GetAxisScaleMode(axis), 0);
  EXPECT_EQ(transform.GetFontAspect(), 1.0);
  EXPECT_EQ(transform.GetFontHeightSF(), 1.0);
  EXPECT_EQ(transform.GetClassTag(), 1616);
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(changing.GetGraphTransform()[i], 0.0);
    EXPECT_EQ(changing.GetFontTransform()[i], 0.0);
  }
  // The adjusted scale, 1 to 10 at first, can only be seen in the record: bytes 548 to 611.
  const Bytes record = Saved(transform);
  std::array<double, 8> adjusted{};
  std::memcpy(adjusted.data(), record.data() + 548, sizeof(adjusted));
  EXPECT_EQ(adjusted, (std::array<double, 8>{1, 1, 1, 0, 10, 10, 10, 0}));
}

TEST(Transform3D, TakesTheNextId) {
  const int before = CTransform3D::nSelfID;
  const CTransform3D first;
  const CTransform3D second;
  EXPECT_EQ(first.GetTransformID(), before + 1);
  EXPECT_EQ(second.GetTransformID(), before + 2);
  EXPECT_EQ(CTransform3D::nSelfID, before + 2);
}

TEST(Transform3D, ConstructorsSetTheScale) {
  Offscreen target;
  const CTransform3D plain(target.gl.get());
  ExpectPoint(plain.GetScaleMin(), -1, -1, -1);
  ExpectPoint(plain.GetScaleMax(), 1, 1, 1);
  const CTransform3D scaled(target.gl.get(), P(1, 2, 3), P(4, 5, 6));
  ExpectPoint(scaled.GetScaleMin(), 1, 2, 3);
  ExpectPoint(scaled.GetScaleMax(), 4, 5, 6);
  ExpectPoint(scaled.GetRange(), 3, 3, 3);
  EXPECT_EQ(scaled.GetAxisRange(1), 3.0);
  EXPECT_EQ(scaled.GetAxisRange(3), 0.0);
}

TEST(Transform3D, RefusesWhatIsNoContext) {
  const CaughtError expected{16, 20, "InitTransform"};
  EXPECT_EQ(Catch([] { CTransform3D transform(nullptr); }), expected);
  alignas(COpenGL) static std::array<unsigned char, sizeof(COpenGL)> untagged{};
  CTransform3D transform;
  EXPECT_EQ(Catch([&] { transform.InitTransform(reinterpret_cast<COpenGL*>(untagged.data())); }),
            expected);
  Offscreen target;
  transform.InitTransform(target.gl.get());
  EXPECT_EQ(Catch([&] { transform.InitTransform(nullptr); }), expected);
  // Bound to none again: nothing is loaded and nothing crashes.
  transform.ChartTransform();
  EXPECT_EQ(transform.GetGraphTransform()[0], 0.0);
}

TEST(Transform3D, NormalisesTheDefaultScale) {
  Offscreen target;
  CTransform3D transform;
  transform.InitTransform(target.gl.get());
  transform.ChartTransform();
  ExpectPoint(transform.GetCentroid(), 0.5, 0.5, 0.5);
  ExpectPoint(transform.GetNormalizationFactors(), 2, 2, 2);
  point3Dtype out;
  transform.NormalizePoint(P(0, 0.5, 1, 7), out);
  ExpectPoint(out, -0.5, 0, 0.5);
  EXPECT_EQ(out.v, 7.0);
}

TEST(Transform3D, WorksInLogarithmsOnALogarithmicAxis) {
  Offscreen target;
  CTransform3D transform(target.gl.get(), P(1, 0, 0), P(1000, 1, 1));
  transform.SetAxisScaleMode(0, 1);
  transform.ChartTransform();
  EXPECT_NEAR(transform.GetAdjustedScaleMin().x, 1.0, 1e-12);
  EXPECT_NEAR(transform.GetAdjustedScaleMax().x, 1000.0, 1e-9);
  point3Dtype min;
  point3Dtype max;
  transform.GetWorkingScale(min, max);
  EXPECT_NEAR(min.x, 0.0, 1e-12);
  EXPECT_NEAR(max.x, 3.0, 1e-12);
  EXPECT_NEAR(transform.GetAxisWorkingRange(0), 3.0, 1e-12);
  // log10(100) = 2, at two thirds of 0 to 3: (2 * 2/3 - 1) * 0.5 = 1/6.
  point3Dtype out;
  transform.NormalizePoint(P(100, 0, 0), out);
  EXPECT_NEAR(out.x, 1.0 / 6.0, 1e-12);
}

TEST(Transform3D, MakesLogarithmicLimitsLegal) {
  Offscreen target;
  CTransform3D transform(target.gl.get(), P(-5, -5, 1e-31), P(100, 100, 1e31));
  transform.SetAxisScaleMode(0, 1);
  transform.SetAxisScaleMode(2, 2);
  EXPECT_NEAR(transform.GetAdjustedScaleMin().x, 1.0, 1e-12);  // 0 or below becomes 1
  EXPECT_NEAR(transform.GetAdjustedScaleMax().x, 100.0, 1e-9);
  EXPECT_EQ(transform.GetAdjustedScaleMin().y, -5.0);          // y is linear
  EXPECT_NEAR(transform.GetAdjustedScaleMin().z, 1.0, 1e-12);  // 10 to the 1e-30
  EXPECT_TRUE(std::isinf(transform.GetAdjustedScaleMax().z));  // 10 to the 1e30
  EXPECT_NEAR(transform.LogLimits(0, -5.0), 1.0, 1e-12);
  EXPECT_EQ(transform.LogLimits(1, -5.0), -5.0);
  EXPECT_EQ(transform.LogLimits(3, -5.0), -5.0);  // entry 3, not axis 0
}

TEST(Transform3D, ReducesAxesModuloThreeWhereValuesAreConverted) {
  CTransform3D transform;
  transform.SetAxisScaleMode(1, 1);
  EXPECT_NEAR(transform.CVTWS(4, 1000.0), 3.0, 1e-12);
  EXPECT_EQ(transform.CVTWS(3, 1000.0), 1000.0);
  EXPECT_NEAR(transform.CVFWS(4, 3.0), 1000.0, 1e-9);
  EXPECT_EQ(transform.CVTWS(-2, 1000.0), 1000.0);
  EXPECT_EQ(transform.GetAxisScaleMode(4), 0);  // entry 4, not y
  transform.SetAxisScaleMode(4, 9);
  EXPECT_EQ(transform.GetAxisScaleMode(4), 9);
  EXPECT_EQ(transform.GetAxisScaleMode(1), 1);
  transform.SetAxisScaleMode(6, 5);
  transform.SetAxisScaleMode(-1, 5);
  EXPECT_EQ(transform.GetAxisScaleMode(6), 0);
  EXPECT_EQ(transform.GetAxisScaleMode(-1), 0);
}

TEST(Transform3D, ConvertsPoints) {
  CTransform3D transform;
  transform.SetAxisScaleMode(0, 1);
  const point3Dtype working = transform.CPTWS(P(1000, 5, 6, 7));
  ExpectPoint(working, 3, 5, 6);
  EXPECT_EQ(working.v, 7.0);
  point3Dtype world = P(0, 0, 0, 9);
  transform.CPFWS(world, working);
  ExpectPoint(world, 1000, 5, 6, 1e-9);
  EXPECT_EQ(world.v, 9.0);
  std::vector<point3Dtype> points{P(10, 1, 1, 4), P(100, 2, 2, 5), P(1000, 3, 3, 6)};
  transform.C3DATWS(points.data(), 2);
  ExpectPoint(points[0], 1, 1, 1);
  ExpectPoint(points[1], 2, 2, 2);
  ExpectPoint(points[2], 1000, 3, 3);  // beyond the count
  transform.C3DATWS(points.data(), -1);
  transform.C3DATWS(nullptr, 3);
  ExpectPoint(points[0], 1, 1, 1);
}

TEST(Transform3D, ReturnsFromNormalisedSpaceOnLinearAxesOnly) {
  Offscreen target;
  CTransform3D transform(target.gl.get(), P(2, -4, 1), P(10, 4, 1000));
  transform.SetAxisScaleMode(2, 1);
  transform.ChartTransform();
  point3Dtype normalized;
  transform.NormalizePoint(P(3, 1, 10, 8), normalized);
  point3Dtype world = P(0, 0, 0);
  transform.UnNormalizePoint(normalized, world);
  EXPECT_NEAR(world.x, 3.0, 1e-12);
  EXPECT_NEAR(world.y, 1.0, 1e-12);
  EXPECT_EQ(world.v, 8.0);
  // z: 10 lies at a third of the working range; a third of 1 to 1000 is 334, and 10 to the 334 is
  // beyond a double.
  EXPECT_TRUE(std::isinf(world.z));
}

TEST(Transform3D, TellsInvertedAxes) {
  Offscreen target;
  CTransform3D transform(target.gl.get(), P(0, 10, 0), P(1, -10, 1));
  EXPECT_EQ(transform.IsScaleInverted(1), 0);  // not before the working scale is computed
  transform.ChartTransform();
  EXPECT_EQ(transform.IsScaleInverted(0), 0);
  EXPECT_EQ(transform.IsScaleInverted(1), 1);
  EXPECT_EQ(transform.IsScaleInverted(4), 1);
  EXPECT_EQ(transform.IsScaleInverted(-2), 0);
  // The axis is mirrored: its minimum is drawn where a maximum would be.
  point3Dtype out;
  transform.NormalizePoint(P(0, 10, 0), out);
  EXPECT_NEAR(out.y, -0.5, 1e-12);
  EXPECT_LT(transform.GetNormalizationFactors().y, 0.0);
}

TEST(Transform3D, KeepsTheRotationsCarriedValue) {
  CTransform3D transform;
  transform.SetRotate(P(1, 2, 3, 99));
  ExpectPoint(transform.GetRotation(), 1, 2, 3);
  EXPECT_EQ(transform.GetRotation().v, 0.0);
  transform.SetOffset(P(1, 2, 3, 99));
  EXPECT_EQ(transform.GetOffset().v, 99.0);
}

TEST(Transform3D, StoresItsProperties) {
  CTransform3D transform;
  transform.SetScaleMin(P(-3, -2, -1));
  transform.SetScaleMax(P(3, 2, 1));
  ExpectPoint(transform.GetScaleMin(), -3, -2, -1);
  ExpectPoint(transform.GetScaleMax(), 3, 2, 1);
  transform.SetChartRect(P(0.1, 0.2, 0.3));
  ExpectPoint(transform.GetChartRect(), 0.1, 0.2, 0.3);
  transform.SetCentroid(P(4, 5, 6));
  ExpectPoint(transform.GetCentroid(), 4, 5, 6);
  transform.SetFontAspect(1.5);
  transform.SetFontHeightSF(2.5);
  EXPECT_EQ(transform.GetFontAspect(), 1.5);
  EXPECT_EQ(transform.GetFontHeightSF(), 2.5);
  transform.SetClipping(3);
  EXPECT_EQ(transform.GetClipping(), 3);
}

// The matrix is Rx(-90) T(offset) Rx Ry Rz S(chart rect) S(2 / working range) T(-centroid).
TEST(Transform3D, LoadsTheProductOfItsSteps) {
  Offscreen target;
  CTransform3D transform(target.gl.get(), P(0, 100, 1), P(10, -100, 10000));
  transform.SetAxisScaleMode(2, 1);
  transform.SetRotate(P(20, 30, 40));
  transform.SetOffset(P(0.1, -0.2, 0.3));
  transform.SetChartRect(P(0.5, 0.6, 0.7));
  transform.ChartTransform();
  // Working ranges 10, -200, 4; centroid (5, 0, 2).
  const Matrix turned =
      Turn(-90, 0) * Translation(0.1, -0.2, 0.3) * Turn(20, 0) * Turn(30, 1) * Turn(40, 2);
  const Matrix expected = turned * Scaling(0.5, 0.6, 0.7) *
                          Scaling(2.0 / 10.0, 2.0 / -200.0, 2.0 / 4.0) * Translation(-5, 0, -2);
  ExpectMatrix(transform.GetGraphTransform(), expected, 2e-6);
  std::array<double, 16> current{};
  target.gl->ReadModelViewMatrix(current.data());
  ExpectMatrix(current.data(), expected, 2e-6);

  transform.TextTransform();
  ExpectMatrix(transform.GetFontTransform(), turned, 2e-6);
  target.gl->ReadModelViewMatrix(current.data());
  ExpectMatrix(current.data(), turned, 2e-6);
}

TEST(Transform3D, TurnsZUpAndLargerYNearer) {
  Offscreen target;
  CTransform3D transform(target.gl.get(), P(-1, -1, -1), P(1, 1, 1));
  transform.ChartTransform();
  // Half of Rx(-90): x stays, z becomes y, y becomes -z.
  const Matrix expected = {{{0.5, 0, 0, 0}, {0, 0, 0.5, 0}, {0, -0.5, 0, 0}, {0, 0, 0, 1}}};
  ExpectMatrix(transform.GetGraphTransform(), expected, 1e-6);
}

TEST(Transform3D, LeavesTheMatrixStackAsItWas) {
  Offscreen target;
  CTransform3D transform(target.gl.get());
  GLint before = 0;
  glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &before);
  transform.ChartTransform();
  transform.TextTransform();
  GLint after = 0;
  glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &after);
  EXPECT_EQ(after, before);
}

TEST(Transform3D, ClipsToTheWorkingScale) {
  Offscreen target;
  CTransform3D transform(target.gl.get(), P(1, 0, 0), P(100, 10, 10));
  transform.SetAxisScaleMode(0, 1);
  transform.ChartTransform();
  transform.SetClipping(1);
  EXPECT_EQ(transform.GetClipping(), 1);
  // In working coordinates, where x runs from 0 to 2: keep x >= 0 + 2 * 0.00123456.
  target.gl->LoadIdentity();
  std::array<double, 4> plane{};
  transform.ChartTransform();
  for (GLenum i = 0; i < 6; ++i) EXPECT_TRUE(glIsEnabled(GL_CLIP_PLANE0 + i));
  target.gl->LoadIdentity();
  transform.SetClipping(1);
  glGetClipPlane(GL_CLIP_PLANE0, plane.data());
  EXPECT_NEAR(plane[0], 1.0, 1e-6);
  EXPECT_NEAR(plane[3], -2.0 * 0.00123456, 1e-6);
  glGetClipPlane(GL_CLIP_PLANE3, plane.data());
  EXPECT_NEAR(plane[3], 2.0 + 2.0 * 0.00123456, 1e-6);
  transform.SetClipping(0);
  for (GLenum i = 0; i < 6; ++i) EXPECT_FALSE(glIsEnabled(GL_CLIP_PLANE0 + i));
}

TEST(Transform3D, SurvivesDegenerateScales) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Offscreen target;
  for (const double bad : {0.0, nan, kInfinity, -kInfinity, 1e300}) {
    CTransform3D transform(target.gl.get(), P(bad, bad, bad), P(bad, bad, bad));
    transform.ChartTransform();
    point3Dtype out;
    transform.NormalizePoint(P(bad, 0, 1), out);
    transform.UnNormalizePoint(P(bad, 0, 1), out);
    transform.SetClipping(1);
    target.gl->DrawCube(1.0, {1, 0, 0, 1}, {0, 0, 0, 1});
    transform.SetClipping(0);
  }
  CTransform3D flat(target.gl.get(), P(0, 0, 0), P(0, 1, 1));
  flat.ChartTransform();
  EXPECT_TRUE(std::isinf(flat.GetNormalizationFactors().x));
}

void AppendInt(Bytes& bytes, int value) {
  for (unsigned shift = 0; shift < 32; shift += 8) {
    bytes.push_back(static_cast<unsigned char>(static_cast<unsigned>(value) >> shift));
  }
}

void AppendDouble(Bytes& bytes, double value) {
  unsigned long long bits = 0;
  std::memcpy(&bits, &value, sizeof(bits));
  for (unsigned shift = 0; shift < 64; shift += 8) {
    bytes.push_back(static_cast<unsigned char>(bits >> shift));
  }
}

void AppendPoint(Bytes& bytes, const point3Dtype& point) {
  for (const double value : {point.x, point.y, point.z, point.v}) AppendDouble(bytes, value);
}

Bytes SampleRecord() {
  Bytes bytes;
  AppendInt(bytes, 12345);                                      // id
  for (int i = 0; i < 16; ++i) AppendDouble(bytes, 100.0 + i);  // graph transform
  for (int i = 0; i < 16; ++i) AppendDouble(bytes, 200.0 + i);  // font transform
  AppendPoint(bytes, P(1, 2, 3, 4));                            // centroid
  AppendPoint(bytes, P(5, 6, 7, 8));                            // offset
  AppendPoint(bytes, P(9, 10, 11, 12));                         // rotation
  AppendPoint(bytes, P(13, 14, 15, 16));                        // normalisation factors
  AppendPoint(bytes, P(17, 18, 19, 20));                        // chart rect
  AppendPoint(bytes, P(21, 22, 23, 24));                        // scale min
  AppendPoint(bytes, P(25, 26, 27, 28));                        // scale max
  AppendPoint(bytes, P(29, 30, 31, 32));                        // working scale min
  AppendPoint(bytes, P(33, 34, 35, 36));                        // working scale max
  AppendPoint(bytes, P(37, 38, 39, 40));                        // adjusted scale min
  AppendPoint(bytes, P(41, 42, 43, 44));                        // adjusted scale max
  for (int i = 0; i < 6; ++i) AppendInt(bytes, 50 + i);         // axis scale modes
  AppendInt(bytes, 60);                                         // clipping
  AppendInt(bytes, 61);                                         // reserved
  AppendDouble(bytes, 1.5);                                     // font aspect
  AppendDouble(bytes, 2.5);                                     // font height scale factor
  return bytes;
}

TEST(Transform3DRecord, ReadsAndWritesThe660BytesInOrder) {
  const Bytes record = SampleRecord();
  ASSERT_EQ(record.size(), 660U);
  CTransform3D transform;
  const int counter = CTransform3D::nSelfID;
  LoadFrom(transform, record);
  EXPECT_EQ(transform.GetTransformID(), 12345);
  EXPECT_EQ(CTransform3D::nSelfID, counter);
  EXPECT_EQ(transform.GetGraphTransform()[15], 115.0);
  EXPECT_EQ(transform.GetFontTransform()[1], 201.0);
  ExpectPoint(transform.GetCentroid(), 1, 2, 3);
  EXPECT_EQ(transform.GetCentroid().v, 4.0);
  ExpectPoint(transform.GetOffset(), 5, 6, 7);
  ExpectPoint(transform.GetRotation(), 9, 10, 11);
  ExpectPoint(transform.GetNormalizationFactors(), 13, 14, 15);
  ExpectPoint(transform.GetChartRect(), 17, 18, 19);
  ExpectPoint(transform.GetScaleMin(), 21, 22, 23);
  ExpectPoint(transform.GetScaleMax(), 25, 26, 27);
  point3Dtype min;
  point3Dtype max;
  transform.GetWorkingScale(min, max);
  ExpectPoint(min, 29, 30, 31);
  ExpectPoint(max, 33, 34, 35);
  EXPECT_EQ(transform.GetAxisScaleMode(5), 55);
  EXPECT_EQ(transform.GetClipping(), 60);
  EXPECT_EQ(transform.GetFontAspect(), 1.5);
  EXPECT_EQ(transform.GetFontHeightSF(), 2.5);
  EXPECT_EQ(Saved(transform), record);
}

TEST(Transform3DRecord, LeavesWhatAShortFileDoesNotHold) {
  const Bytes record = SampleRecord();
  for (std::size_t length = 0; length <= record.size(); ++length) {
    CTransform3D transform;
    transform.SetFontHeightSF(77.0);
    LoadFrom(transform,
             Bytes(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(length)));
    EXPECT_EQ(transform.GetFontHeightSF(), length == record.size() ? 2.5 : 77.0) << length;
    EXPECT_EQ(transform.GetAxisScaleMode(0), length >= 616 ? 50 : 0) << length;
  }
}

TEST(Transform3DRecord, IgnoresNullFilesAndReportsFailingOnes) {
  CTransform3D transform;
  transform.Save(nullptr);
  transform.Load(nullptr);
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { transform.Save(full.m_hFile); }), (CaughtError{7, 20, "Save"}));
  CFile writeOnly;
  const orvalix::test::TemporaryFile file;
  ASSERT_TRUE(writeOnly.Open(file.Path(), CFile::modeCreate | CFile::modeWrite));
  EXPECT_EQ(Catch([&] { transform.Load(writeOnly.m_hFile); }), (CaughtError{7, 20, "Load"}));
}

}  // namespace
