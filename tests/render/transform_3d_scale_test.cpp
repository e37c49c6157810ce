#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

#include "orvalix/render/gl_api_internal.h"
#include "orvalix/render/transform_3d.h"
#include "support/offscreen.h"
#include "support/temporary_file.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::LoadFrom;
using orvalix::test::Offscreen;
using orvalix::test::Saved;

constexpr std::size_t kReservedAt = 640;

point3Dtype P(double x, double y, double z, double v = 0.0) { return {x, y, z, v}; }

void ExpectPoint(const point3Dtype& actual, double x, double y, double z) {
  EXPECT_NEAR(actual.x, x, 1e-12);
  EXPECT_NEAR(actual.y, y, 1e-12);
  EXPECT_NEAR(actual.z, z, 1e-12);
}

/// The reserved number of a record.
int ReservedOf(const Bytes& record) {
  int reserved = -1;
  std::memcpy(&reserved, record.data() + kReservedAt, sizeof(reserved));
  return reserved;
}

TEST(Transform3DScale, EachLimitIsSetAlone) {
  CTransform3D transform;
  transform.SetScale(P(1, 2, 3), P(4, 5, 6));
  transform.SetScaleMin(P(-3, -2, -1));
  ExpectPoint(transform.GetScaleMin(), -3, -2, -1);
  ExpectPoint(transform.GetScaleMax(), 4, 5, 6);
  transform.SetScaleMax(P(7, 8, 9));
  ExpectPoint(transform.GetScaleMin(), -3, -2, -1);
  ExpectPoint(transform.GetScaleMax(), 7, 8, 9);
}

TEST(Transform3DScale, RangesBelongToTheirAxes) {
  Offscreen target;
  CTransform3D transform(target.gl.get(), P(1, 0, -1, 7), P(1000, 4, 1, 9));
  transform.SetAxisScaleMode(0, 1);
  transform.ChartTransform();
  ExpectPoint(transform.GetRange(), 999, 4, 2);
  EXPECT_EQ(transform.GetRange().v, 0.0);
  EXPECT_EQ(transform.GetAxisRange(0), 999.0);
  EXPECT_EQ(transform.GetAxisRange(1), 4.0);
  EXPECT_EQ(transform.GetAxisRange(2), 2.0);
  EXPECT_EQ(transform.GetAxisRange(-1), 0.0);
  // x runs from log10(1) = 0 to log10(1000) = 3.
  ExpectPoint(transform.GetWorkingRange(), 3, 4, 2);
  EXPECT_EQ(transform.GetWorkingRange().v, 0.0);
  EXPECT_NEAR(transform.GetAxisWorkingRange(0), 3.0, 1e-12);
  EXPECT_EQ(transform.GetAxisWorkingRange(1), 4.0);
  EXPECT_EQ(transform.GetAxisWorkingRange(2), 2.0);
  EXPECT_EQ(transform.GetAxisWorkingRange(3), 0.0);
}

TEST(Transform3DScale, EveryModeButZeroIsLogarithmic) {
  CTransform3D transform;
  for (const int mode : {1, 2, -1, std::numeric_limits<int>::min()}) {
    transform.SetAxisScaleMode(0, mode);
    EXPECT_NEAR(transform.CVTWS(0, 1000.0), 3.0, 1e-12) << mode;
    EXPECT_NEAR(transform.CVFWS(0, 3.0), 1000.0, 1e-9) << mode;
    EXPECT_NEAR(transform.LogLimits(0, -5.0), 1.0, 1e-12) << mode;
  }
}

TEST(Transform3DScale, NormalisedPointsFillTheChartRect) {
  Offscreen target;
  CTransform3D transform(target.gl.get(), P(0, 0, 0), P(10, 10, 10));
  transform.SetChartRect(P(0.4, 0.6, 0.8));
  transform.ChartTransform();
  // (10 * 2 / 10 - 1) * 0.4, (2.5 * 2 / 10 - 1) * 0.6, (7.5 * 2 / 10 - 1) * 0.8
  point3Dtype normalized;
  transform.NormalizePoint(P(10, 2.5, 7.5), normalized);
  ExpectPoint(normalized, 0.4, -0.3, 0.4);
  point3Dtype world;
  transform.UnNormalizePoint(P(0.4, -0.3, 0.4), world);
  ExpectPoint(world, 10, 2.5, 7.5);
}

TEST(Transform3DScale, LeavesNormalisedSpaceThroughTheRawLimits) {
  CTransform3D transform;
  transform.SetScale(P(-5, 0, 0), P(1, 1, 1));
  transform.SetAxisScaleMode(0, 1);
  // Half way from -5 to 1 lies -2, and 10 to the -2 is 0.01. The adjusted limits would be 1 and 1.
  point3Dtype world;
  transform.UnNormalizePoint(P(0, 0, 0), world);
  EXPECT_NEAR(world.x, 0.01, 1e-12);
}

TEST(Transform3DScale, NormalisesByTheLastChartTransform) {
  Offscreen target;
  CTransform3D transform(target.gl.get(), P(0, 0, 0), P(1, 1, 1));
  transform.ChartTransform();
  transform.SetScale(P(0, 0, 0), P(10, 10, 10));
  point3Dtype normalized;
  transform.NormalizePoint(P(1, 1, 1), normalized);
  ExpectPoint(normalized, 0.5, 0.5, 0.5);  // still at the end of 0 to 1
  transform.ChartTransform();
  transform.NormalizePoint(P(1, 1, 1), normalized);
  ExpectPoint(normalized, -0.4, -0.4, -0.4);  // (1 * 2 / 10 - 1) * 0.5
}

TEST(Transform3DScale, DefaultsCanBeSetAgain) {
  Offscreen target;
  CTransform3D transform(target.gl.get(), P(1, 2, 3), P(4, 5, 6));
  Bytes changed = Saved(transform);
  for (std::size_t i = 0; i < changed.size(); ++i) changed[i] = static_cast<unsigned char>(i);
  LoadFrom(transform, changed);
  EXPECT_EQ(Saved(transform), changed);
  const int last = CTransform3D::nSelfID;
  transform.SetTransformDefaults();
  EXPECT_EQ(transform.GetTransformID(), last + 1);
  EXPECT_EQ(CTransform3D::nSelfID, last + 1);
  // All fields behind the id are those of a new one.
  const Bytes record = Saved(transform);
  const Bytes fresh = Saved(CTransform3D());
  EXPECT_TRUE(std::equal(record.begin() + 4, record.end(), fresh.begin() + 4, fresh.end()));
  EXPECT_EQ(ReservedOf(record), 0);
  // It is bound to no context any more.
  target.gl->LoadIdentity();
  target.gl->Translate3D(1, 2, 3);
  transform.ChartTransform();
  std::array<double, 16> current{};
  target.gl->ReadModelViewMatrix(current.data());
  EXPECT_EQ(current[12], 1.0);
  EXPECT_EQ(transform.GetGraphTransform()[0], 0.0);
}

TEST(Transform3DScale, ANewRecordIsZeroWhereItIsReserved) {
  alignas(CTransform3D) std::array<unsigned char, sizeof(CTransform3D)> memory;
  memory.fill(0xAB);
  CTransform3D* transform = std::construct_at(reinterpret_cast<CTransform3D*>(memory.data()));
  EXPECT_EQ(ReservedOf(Saved(*transform)), 0);
  std::destroy_at(transform);
}

class Transform3DMatrix : public ::testing::TestWithParam<void (CTransform3D::*)()> {};

TEST_P(Transform3DMatrix, StartsFromNoOther) {
  Offscreen target;
  CTransform3D transform(target.gl.get(), P(0, 0, 0), P(1, 2, 3));
  (transform.*GetParam())();
  std::array<double, 16> expected{};
  target.gl->ReadModelViewMatrix(expected.data());

  target.gl->Translate3D(0.5, 0.25, 0.125);
  glMatrixMode(GL_PROJECTION);
  (transform.*GetParam())();
  GLint mode = 0;
  glGetIntegerv(GL_MATRIX_MODE, &mode);
  EXPECT_EQ(mode, GL_MODELVIEW);
  std::array<double, 16> matrix{};
  target.gl->ReadModelViewMatrix(matrix.data());
  EXPECT_EQ(matrix, expected);
  glGetDoublev(GL_PROJECTION_MATRIX, matrix.data());
  for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(matrix[i], i % 5 == 0 ? 1.0 : 0.0) << i;
}

INSTANTIATE_TEST_SUITE_P(ChartAndText, Transform3DMatrix,
                         ::testing::Values(&CTransform3D::ChartTransform,
                                           &CTransform3D::TextTransform));

}  // namespace
