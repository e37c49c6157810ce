#include "orvalix/render/aux_obj_3d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>

#include "support/caught_error.h"
#include "support/hex_bytes.h"
#include "support/temporary_file.h"

namespace {

using orvalix::test::Bytes;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::FromHex;
using orvalix::test::kNoError;
using orvalix::test::LoadFrom;
using orvalix::test::Saved;

void ExpectPoint(const point3Dtype& p, const point3Dtype& expected) {
  EXPECT_EQ(p.x, expected.x);
  EXPECT_EQ(p.y, expected.y);
  EXPECT_EQ(p.z, expected.z);
  EXPECT_EQ(p.v, expected.v);
}

void ExpectRGBD(const RGBDType& color, const RGBDType& expected) {
  EXPECT_EQ(color.red, expected.red);
  EXPECT_EQ(color.green, expected.green);
  EXPECT_EQ(color.blue, expected.blue);
  EXPECT_EQ(color.alpha, expected.alpha);
}

TEST(AuxObj3D, StartsWithItsDefaults) {
  const CAuxObj3D shape;
  EXPECT_EQ(shape.GetAuxObjType(), 0);
  EXPECT_EQ(shape.GetSolidType(), 1);
  EXPECT_EQ(shape.GetColorMode(), 1);
  EXPECT_EQ(shape.GetSizeParameter1(), 1.0);
  EXPECT_EQ(shape.GetSizeParameter2(), 1.0);
  EXPECT_EQ(shape.GetSizeParameter3(), 1.0);
  EXPECT_EQ(shape.GetScaleFactor(), 0.05);
  ExpectPoint(shape.GetLocation(), {0, 0, 0, 0});
  ExpectPoint(shape.GetNormLocation(), {0, 0, 0, 0});
  ExpectPoint(shape.GetRotation(), {0, 0, 0, 0});
  ExpectRGBD(shape.GetColor(), {1, 1, 1, 1});
  EXPECT_EQ(shape.GetLineThickness(), 1.0);
  EXPECT_EQ(shape.GetOutlineMode(), 0);
  EXPECT_EQ(shape.GetTransformID(), 0);
  EXPECT_EQ(shape.GetClassTag(), 101);
}

TEST(AuxObj3D, CountsItsObjects) {
  CAuxObj3D::nSelfID = 5;
  const CAuxObj3D first;
  EXPECT_EQ(CAuxObj3D::nSelfID, 6);
  { const CAuxObj3D second; }
  EXPECT_EQ(CAuxObj3D::nSelfID, 7);  // one that is gone stays counted
  EXPECT_EQ(Catch([] { const CAuxObj3D unbound(nullptr, nullptr, 1); }),
            (CaughtError{16, 0, "InitAuxObj"}));
  EXPECT_EQ(CAuxObj3D::nSelfID, 8);
  CAuxObj3D::nSelfID = std::numeric_limits<int>::max();
  const CAuxObj3D last;
  EXPECT_EQ(CAuxObj3D::nSelfID, std::numeric_limits<int>::min());
  CAuxObj3D::nSelfID = 0;
}

CAuxObj3D Filled() {
  CAuxObj3D shape;
  shape.SetAuxObjType(9);
  shape.SetSolidType(2);
  shape.SetColorMode(3);
  shape.SetSizeParameters(2, 3, 4);
  shape.SetScaleFactor(0.5);
  shape.SetLocation({5, 6, 7, 8});
  shape.SetNormLocation({9, 10, 11, 12});
  shape.SetRotation({13, 14, 15, 16});
  shape.SetColor({0.125, 0.25, 0.5, 0.75});
  shape.SetLineThickness(6);
  shape.SetOutlineMode(7);
  return shape;
}

void ExpectFilled(const CAuxObj3D& shape) {
  EXPECT_EQ(shape.GetAuxObjType(), 9);
  EXPECT_EQ(shape.GetSolidType(), 2);
  EXPECT_EQ(shape.GetColorMode(), 3);
  EXPECT_EQ(shape.GetSizeParameter1(), 2.0);
  EXPECT_EQ(shape.GetSizeParameter2(), 3.0);
  EXPECT_EQ(shape.GetSizeParameter3(), 4.0);
  EXPECT_EQ(shape.GetScaleFactor(), 0.5);
  ExpectPoint(shape.GetLocation(), {5, 6, 7, 8});
  ExpectPoint(shape.GetNormLocation(), {9, 10, 11, 12});
  ExpectPoint(shape.GetRotation(), {13, 14, 15, 16});
  ExpectRGBD(shape.GetColor(), {0.125, 0.25, 0.5, 0.75});
  EXPECT_EQ(shape.GetLineThickness(), 6.0);
}

TEST(AuxObj3D, KeepsItsProperties) {
  const CAuxObj3D shape = Filled();
  ExpectFilled(shape);
  EXPECT_EQ(shape.GetOutlineMode(), 7);
}

/// Filled() with the transform id 0x22.
Bytes FilledRecord() {
  return FromHex(R"(
      11000000 22000000 09000000 02000000 03000000         # counter, transform, type, solid, mode
      0000000000000040 0000000000000840 0000000000001040  # sizes
      000000000000e03f                                     # scale factor
      0000000000001440 0000000000001840 0000000000001c40 0000000000002040  # location
      0000000000002240 0000000000002440 0000000000002640 0000000000002840  # normalised
      0000000000002a40 0000000000002c40 0000000000002e40 0000000000003040  # rotation, spare
      000000000000c03f 000000000000d03f 000000000000e03f 000000000000e83f  # colour
      0000000000001840                                     # line thickness
  )");
}

TEST(AuxObj3DRecord, HasItsFieldsInOrder) {
  const CAuxObj3D shape = Filled();
  CAuxObj3D::nSelfID = 0x11;
  Bytes expected = FilledRecord();
  ASSERT_EQ(expected.size(), 188U);
  expected[4] = 0;  // bound to no transform
  EXPECT_EQ(Saved(shape), expected);
  CAuxObj3D::nSelfID = 0;
}

TEST(AuxObj3DRecord, IsReadBack) {
  CAuxObj3D shape;
  shape.SetOutlineMode(5);
  LoadFrom(shape, FilledRecord());
  EXPECT_EQ(CAuxObj3D::nSelfID, 0x11);
  EXPECT_EQ(shape.GetTransformID(), 0x22);
  ExpectFilled(shape);
  EXPECT_EQ(shape.GetOutlineMode(), 5);  // not in the record
  EXPECT_EQ(shape.GetClassTag(), 101);
  EXPECT_EQ(Saved(shape), FilledRecord());
  const CAuxObj3D next;
  EXPECT_EQ(CAuxObj3D::nSelfID, 0x12);
  CAuxObj3D::nSelfID = 0;
}

TEST(AuxObj3DRecord, TakesNumbersOfAnyKind) {
  const Bytes record(188, 0xFF);
  CAuxObj3D shape;
  LoadFrom(shape, record);
  EXPECT_EQ(CAuxObj3D::nSelfID, -1);
  EXPECT_EQ(shape.GetAuxObjType(), -1);
  EXPECT_TRUE(std::isnan(shape.GetLineThickness()));
  EXPECT_EQ(Saved(shape), record);
  const CAuxObj3D next;
  EXPECT_EQ(CAuxObj3D::nSelfID, 0);
}

TEST(AuxObj3DRecord, MissingFieldsKeepTheirValues) {
  const Bytes record = FilledRecord();
  for (std::size_t length = 0; length <= record.size(); ++length) {
    SCOPED_TRACE(length);
    CAuxObj3D shape;
    CAuxObj3D::nSelfID = 77;
    EXPECT_EQ(Catch([&] {
                LoadFrom(shape, Bytes(record.begin(),
                                      record.begin() + static_cast<std::ptrdiff_t>(length)));
              }),
              kNoError);
    // Each field with the byte behind its last one.
    EXPECT_EQ(CAuxObj3D::nSelfID, length >= 4 ? 0x11 : 77);
    EXPECT_EQ(shape.GetTransformID(), length >= 8 ? 0x22 : 0);
    EXPECT_EQ(shape.GetAuxObjType(), length >= 12 ? 9 : 0);
    EXPECT_EQ(shape.GetSolidType(), length >= 16 ? 2 : 1);
    EXPECT_EQ(shape.GetColorMode(), length >= 20 ? 3 : 1);
    EXPECT_EQ(shape.GetSizeParameter1(), length >= 28 ? 2.0 : 1.0);
    EXPECT_EQ(shape.GetSizeParameter2(), length >= 36 ? 3.0 : 1.0);
    EXPECT_EQ(shape.GetSizeParameter3(), length >= 44 ? 4.0 : 1.0);
    EXPECT_EQ(shape.GetScaleFactor(), length >= 52 ? 0.5 : 0.05);
    EXPECT_EQ(shape.GetLocation().x, length >= 84 ? 5.0 : 0.0);
    EXPECT_EQ(shape.GetNormLocation().x, length >= 116 ? 9.0 : 0.0);
    EXPECT_EQ(shape.GetRotation().x, length >= 148 ? 13.0 : 0.0);
    EXPECT_EQ(shape.GetColor().red, length >= 180 ? 0.125 : 1.0);
    EXPECT_EQ(shape.GetLineThickness(), length >= 188 ? 6.0 : 1.0);
  }
  CAuxObj3D::nSelfID = 0;
}

TEST(AuxObj3DRecord, FileErrorsNameTheClass) {
  CAuxObj3D shape = Filled();
  shape.Save(nullptr);
  shape.Load(nullptr);
  ExpectFilled(shape);
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { shape.Save(full.m_hFile); }), (CaughtError{7, 0, "Save"}));
  // A file that is open for writing can't be read.
  EXPECT_EQ(Catch([&] { shape.Load(full.m_hFile); }), (CaughtError{7, 0, "Load"}));
  ExpectFilled(shape);
}

}  // namespace
