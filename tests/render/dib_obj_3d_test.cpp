#include "orvalix/render/dib_obj_3d.h"

#include <cmath>
#include <limits>
#include <type_traits>

#include "orvalix/render/transform_3d.h"
#include "render/drawing_fixture.h"
#include "support/allocation_failure.h"
#include "support/bitmap_files.h"
#include "support/caught_error.h"
#include "support/hex_bytes.h"
#include "support/temporary_file.h"

namespace {

using namespace orvalix::test;

static_assert(!std::is_copy_constructible_v<CDIBObj3D> && !std::is_copy_assignable_v<CDIBObj3D>);

class DIBObj3D : public DrawingTest {
 protected:
  DIBObj3D() : file(Encode(FourColors())), transform(&gl, {0, 0, 0, 0}, {1, 1, 1, 0}) {}

  /// A point of normalised coordinates in the view volume. The transform turns the z-up box by -90
  /// degrees about x: y up is z, and depth is -y.
  static Vertex InView(const point3Dtype& point) { return {point.x, point.z, -point.y}; }

  static void ExpectPoint(const point3Dtype& point, double x, double y, double z) {
    EXPECT_NEAR(point.x, x, 1e-12);
    EXPECT_NEAR(point.y, y, 1e-12);
    EXPECT_NEAR(point.z, z, 1e-12);
  }

  TemporaryFile file;
  CTransform3D transform;
};

TEST_F(DIBObj3D, HasDefaults) {
  const int before = CDIBObj3D::nSelfID;
  const CDIBObj3D picture;
  EXPECT_EQ(CDIBObj3D::nSelfID, before);  // counted only once it is bound
  point3Dtype one;
  point3Dtype two;
  point3Dtype three;
  picture.GetPlanePoints(one, two, three);
  ExpectPoint(one, 0, 0, 0);
  ExpectPoint(two, 0, 0, 1);
  ExpectPoint(three, 1, 0, 1);
  picture.GetNormPlanePoints(one, two, three);
  ExpectPoint(one, 0, 0, 0);
  ExpectPoint(two, 0, 0, 1);
  ExpectPoint(three, 1, 0, 1);
  EXPECT_STREQ(picture.GetDIBFilename(), "");
  EXPECT_EQ(picture.GetRepeatFactorX(), 1);
  EXPECT_EQ(picture.GetRepeatFactorY(), 1);
  EXPECT_EQ(picture.GetNormMode(), 0);
  EXPECT_EQ(picture.GetTransformID(), 0);
  EXPECT_EQ(picture.GetClassTag(), 1010);
}

TEST_F(DIBObj3D, IsBoundByItsConstructor) {
  const int before = CDIBObj3D::nSelfID;
  const CDIBObj3D picture(&gl, &transform, file.Path());
  EXPECT_EQ(CDIBObj3D::nSelfID, before + 1);
  EXPECT_STREQ(picture.GetDIBFilename(), file.Path());
  EXPECT_EQ(picture.GetTransformID(), transform.GetTransformID());
}

TEST_F(DIBObj3D, DefaultPointsSpanTheWorldFromZeroToOne) {
  CDIBObj3D picture(&gl, &transform, file.Path());
  transform.SetScale({-1, -1, -1, 0}, {3, 3, 3, 0});
  // 0 lies at a quarter of the scale, 1 at half of it; the box spans -0.5 to 0.5.
  const auto drawn = CaptureFeedback([&] { picture.DrawDIBObj(); });
  ASSERT_EQ(drawn.size(), 1U);
  const FeedbackPrimitive quad = FromTextureOrigin(drawn[0]);
  ExpectVertices(quad, {InView({-0.25, -0.25, -0.25, 0}), InView({-0.25, -0.25, 0, 0}),
                        InView({0, -0.25, 0, 0}), InView({0, -0.25, -0.25, 0})});
  point3Dtype one;
  point3Dtype two;
  point3Dtype three;
  picture.GetNormPlanePoints(one, two, three);
  ExpectPoint(one, -0.25, -0.25, -0.25);
  ExpectPoint(two, -0.25, -0.25, 0);
  ExpectPoint(three, 0, -0.25, 0);
}

TEST_F(DIBObj3D, TheFourthCornerHasTheHeightOfTheFirst) {
  CDIBObj3D picture(&gl, &transform, file.Path());
  picture.SetNormPlanePoints({-0.5, 0.1, -0.4, 0}, {-0.3, 0.2, 0.4, 0}, {0.5, 0.3, 0.2, 0});
  picture.SetRepeatFactors(2, 3);
  const auto drawn = CaptureFeedback([&] { picture.DrawDIBObj(); });
  ASSERT_EQ(drawn.size(), 1U);
  const FeedbackPrimitive quad = FromTextureOrigin(drawn[0]);
  ExpectVertices(quad, {InView({-0.5, 0.1, -0.4, 0}), InView({-0.3, 0.2, 0.4, 0}),
                        InView({0.5, 0.3, 0.2, 0}), InView({0.5, 0.3, -0.4, 0})});
  const std::vector<std::array<double, 2>> coordinates{{0, 0}, {0, 3}, {2, 3}, {2, 0}};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(quad.vertices[i].t, coordinates[i][0]) << i;
    EXPECT_EQ(quad.vertices[i].t2, coordinates[i][1]) << i;
  }
}

TEST_F(DIBObj3D, PointsSetTheNormMode) {
  CDIBObj3D picture(&gl, &transform, file.Path());
  picture.SetNormPlanePoints({-1, 0, -1, 0}, {-1, 0, 1, 0}, {1, 0, 1, 0});
  EXPECT_EQ(picture.GetNormMode(), 1);
  picture.DrawDIBObj();
  point3Dtype one;
  point3Dtype two;
  point3Dtype three;
  picture.GetNormPlanePoints(one, two, three);
  ExpectPoint(one, -1, 0, -1);  // used as they are
  picture.SetPlanePoints({0.5, 0.5, 0.5, 0}, {0.5, 0.5, 1, 0}, {1, 0.5, 1, 0});
  EXPECT_EQ(picture.GetNormMode(), 0);
  picture.GetNormPlanePoints(one, two, three);
  ExpectPoint(one, -1, 0, -1);  // made by the drawing
  picture.DrawDIBObj();
  picture.GetNormPlanePoints(one, two, three);
  ExpectPoint(one, 0, 0, 0);
  ExpectPoint(three, 0.5, 0, 0.5);
  picture.GetPlanePoints(one, two, three);
  ExpectPoint(two, 0.5, 0.5, 1);
}

TEST_F(DIBObj3D, ShowsThePictureUpright) {
  CDIBObj3D picture(&gl, &transform, file.Path());
  picture.SetNormPlanePoints({-1, 0, -1, 0}, {-1, 0, 1, 0}, {1, 0, 1, 0});
  gl.Clear(0x4100);
  picture.DrawDIBObj();
  gl.UpdateBitmap(200, 100);
  const auto pixel = [this](int x, int y) { return target.memory.GetPixel(x, 99 - y); };
  EXPECT_EQ(pixel(50, 75), RGB(255, 0, 0));
  EXPECT_EQ(pixel(150, 75), RGB(0, 255, 0));
  EXPECT_EQ(pixel(50, 25), RGB(0, 0, 255));
  EXPECT_EQ(pixel(150, 25), RGB(255, 255, 255));
}

TEST_F(DIBObj3D, LeavesTheMatrixAsItWas) {
  CDIBObj3D picture(&gl, &transform, file.Path());
  gl.SelectModelView();
  gl.LoadIdentity();
  gl.Translate3D(0.25, 0.5, 0.75);
  glMatrixMode(GL_PROJECTION);  // as before a view's first drawing
  picture.DrawDIBObj();
  std::array<double, 16> matrix{};
  gl.ReadModelViewMatrix(matrix.data());
  EXPECT_EQ(matrix[12], 0.25);
  EXPECT_EQ(matrix[13], 0.5);
  EXPECT_EQ(Integer(GL_MODELVIEW_STACK_DEPTH), 1);
  EXPECT_EQ(Integer(GL_PROJECTION_STACK_DEPTH), 1);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(DIBObj3D, DrawsNothingWithoutBindingOrPictureOrPlace) {
  CDIBObj3D unbound;
  EXPECT_TRUE(CaptureFeedback([&] { unbound.DrawDIBObj(); }).empty());
  CDIBObj3D unnamed(&gl, &transform, "");
  EXPECT_TRUE(CaptureFeedback([&] { unnamed.DrawDIBObj(); }).empty());
  CDIBObj3D picture(&gl, &transform, file.Path());
  const double wrong = std::numeric_limits<double>::infinity();
  picture.SetPlanePoints({wrong, 0, 0, 0}, {0, 0, 1, 0}, {1, 0, 1, 0});
  EXPECT_TRUE(CaptureFeedback([&] { picture.DrawDIBObj(); }).empty());
  picture.InitDIBObjDefaults();
  EXPECT_TRUE(CaptureFeedback([&] { picture.DrawDIBObj(); }).empty());
  EXPECT_STREQ(picture.GetDIBFilename(), "");
}

TEST_F(DIBObj3D, AFileThatIsNoBitmapDrawsNothing) {
  static int messages;
  messages = 0;
  SetMessageBoxHandler([](const char* text) {
    EXPECT_STREQ(text, "Not a bitmap file");
    return ++messages;
  });
  const TemporaryFile other(Bytes(100, 'x'));
  const int before = CDIBObj3D::nSelfID;
  CDIBObj3D picture(&gl, &transform, other.Path());
  SetMessageBoxHandler(nullptr);
  EXPECT_EQ(messages, 1);
  EXPECT_EQ(CDIBObj3D::nSelfID, before + 1);  // bound all the same
  EXPECT_TRUE(CaptureFeedback([&] { picture.DrawDIBObj(); }).empty());
}

TEST_F(DIBObj3D, RefusesWhatItCannotBeBoundTo) {
  const CaughtError context{16, 10, "InitDIBObj"};
  const CaughtError noTransform{15, 10, "InitDIBObj"};
  CDIBObj3D picture(&gl, &transform, file.Path());
  const int before = CDIBObj3D::nSelfID;
  EXPECT_EQ(Catch([&] { picture.InitDIBObj(nullptr, &transform); }), context);
  EXPECT_EQ(Catch([&] { picture.InitDIBObj(&gl, nullptr); }), noTransform);
  EXPECT_EQ(Catch([&] { CDIBObj3D other(nullptr, nullptr, file.Path()); }), context);
  EXPECT_EQ(CDIBObj3D::nSelfID, before);
  // Bound as before.
  EXPECT_EQ(CaptureFeedback([&] { picture.DrawDIBObj(); }).size(), 1U);
}

TEST_F(DIBObj3D, AMissingFileLeavesItBoundWithItsName) {
  const CaughtError missing{5, 8, "LoadBitmapFile"};
  EXPECT_EQ(Catch([&] { CDIBObj3D other(&gl, &transform, "/no/such.bmp"); }), missing);
  CDIBObj3D picture(&gl, &transform, file.Path());
  CTransform3D second(&gl);
  const int before = CDIBObj3D::nSelfID;
  picture.SetDIBFilename("/no/such.bmp");
  EXPECT_EQ(CaptureFeedback([&] { picture.DrawDIBObj(); }).size(), 1U);  // until it is bound anew
  EXPECT_EQ(Catch([&] { picture.InitDIBObj(&gl, &second); }), missing);
  EXPECT_EQ(CDIBObj3D::nSelfID, before);
  EXPECT_EQ(picture.GetTransformID(), second.GetTransformID());
  EXPECT_STREQ(picture.GetDIBFilename(), "/no/such.bmp");
  EXPECT_TRUE(CaptureFeedback([&] { picture.DrawDIBObj(); }).empty());
  picture.SetDIBFilename(file.Path());
  picture.InitDIBObj(&gl, &second);
  EXPECT_EQ(CaptureFeedback([&] { picture.DrawDIBObj(); }).size(), 1U);
}

TEST_F(DIBObj3D, MemoryThatRunsOutIsAnError) {
  CDIBObj3D picture(&gl, &transform, file.Path());
  int ofObject = 0;
  FailEachAllocation([&] {
    const CaughtError error = Catch([&] { picture.InitDIBObj(&gl, &transform); });
    ofObject += error == CaughtError{3, 10, "InitDIBObj"};
    if (error == kNoError) return;
    EXPECT_TRUE(error.errorClass == 8 || error.place == "InitDIBObj") << error;
    EXPECT_TRUE(CaptureFeedback([&] { picture.DrawDIBObj(); }).empty());
  });
  EXPECT_EQ(ofObject, 1);
  const CString name('x', 100);
  const CString longer('y', 200);
  picture.SetDIBFilename(name);
  {
    const AllocationFailure failure(1);
    EXPECT_EQ(Catch([&] { picture.SetDIBFilename(longer); }),
              (CaughtError{2, 10, "SetDIBFilename"}));
  }
  {
    const AllocationFailure failure(1);
    EXPECT_EQ(Catch([&] { picture.GetDIBFilename(); }), (CaughtError{2, 10, "GetDIBFilename"}));
  }
  EXPECT_STREQ(picture.GetDIBFilename(), name);
}

/// What the fixture of the record sets.
void SetEverything(CDIBObj3D& picture) {
  picture.SetNormPlanePoints({-1, 0, 0, 0}, {0, -1, 0, 0}, {0, 0, -1, 0});
  picture.SetPlanePoints({1, 0, 0, 2}, {0, 1, 0, 0}, {0, 0, 1, 0});
  picture.SetRepeatFactors(3, -1);
  picture.SetDIBFilename("a.b");
}

TEST_F(DIBObj3D, HasARecord) {
  const std::string zero = "0000000000000000 ";
  const std::string one = "000000000000f03f ";
  const std::string minus = "000000000000f0bf ";
  const std::string two = "0000000000000040 ";
  const Bytes expected = FromHex("11220000 00000000" + one + zero + zero + two +  // plane points
                                 zero + one + zero + zero + zero + zero + one + zero +  //
                                 minus + zero + zero + zero +  // norm plane points
                                 zero + minus + zero + zero + zero + zero + minus + zero +
                                 "03000000 ffffffff"  // repeat factors
                                 "00000000"           // norm mode
                                 "03000000 612e62");  // length and bytes of the file name
  EXPECT_EQ(expected.size(), 216U + 3U);
  const int before = CDIBObj3D::nSelfID;
  CDIBObj3D picture;
  SetEverything(picture);
  CDIBObj3D::nSelfID = 0x2211;
  EXPECT_EQ(Saved(picture), expected);
  CDIBObj3D::nSelfID = before;
  CDIBObj3D loaded;
  LoadFrom(loaded, expected);
  EXPECT_EQ(CDIBObj3D::nSelfID, 0x2211);  // becomes the stored one
  EXPECT_EQ(Saved(loaded), expected);
  EXPECT_STREQ(loaded.GetDIBFilename(), "a.b");
  CDIBObj3D::nSelfID = before;
}

TEST_F(DIBObj3D, KeepsWhatARecordDoesNotHold) {
  CDIBObj3D picture;
  SetEverything(picture);
  picture.SetNormPlanePoints({}, {}, {});
  const int before = CDIBObj3D::nSelfID;
  const Bytes record = Saved(picture);
  for (std::size_t length = 0; length < record.size(); ++length) {
    CDIBObj3D loaded;
    const Bytes cut(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(length));
    const CaughtError error = Catch([&] { LoadFrom(loaded, cut); });
    // A name whose length the file doesn't hold is refused.
    EXPECT_EQ(error, length < 216 ? kNoError : (CaughtError{7, 10, "Load"})) << length;
    EXPECT_EQ(loaded.GetRepeatFactorX(), length >= 204 ? 3 : 1) << length;
    EXPECT_EQ(loaded.GetRepeatFactorY(), length >= 208 ? -1 : 1) << length;
    EXPECT_EQ(loaded.GetNormMode(), length >= 212 ? 1 : 0) << length;
  }
  CDIBObj3D::nSelfID = before;
}

TEST_F(DIBObj3D, ReportsFailingFiles) {
  CDIBObj3D picture;
  picture.Save(nullptr);
  picture.Load(nullptr);
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { picture.Save(full.m_hFile); }), (CaughtError{7, 10, "Save"}));
  CFile closed;
  EXPECT_EQ(Catch([&] { picture.Load(closed.m_hFile); }), (CaughtError{7, 10, "Load"}));
}

}  // namespace
