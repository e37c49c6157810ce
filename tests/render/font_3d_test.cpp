#include "orvalix/render/font_3d.h"

#include <gtest/gtest.h>

#include <array>

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

TEST(Font3D, StartsWithItsDefaults) {
  const int before = CFont3D::nSelfID;
  const CFont3D font;
  EXPECT_EQ(CFont3D::nSelfID, before + 1);
  EXPECT_EQ(font.GetNumFontChars(), 128);
  EXPECT_EQ(font.GetFontExtrusion(), 0.01);
  EXPECT_EQ(font.GetFontRendering(), 0.1);
  EXPECT_EQ(font.GetFontScaleFactor(), 0.05);
  EXPECT_STREQ(font.GetFaceName(), "Arial");
  EXPECT_EQ(font.GetListBase(), 0);
  EXPECT_EQ(font.GetClassTag(), 1111);
}

TEST(Font3D, RefusesBadContexts) {
  Offscreen target;
  CDC withoutHandle;
  CFont3D font;
  EXPECT_EQ(Catch([&] { font.InitFont(target.gl.get(), nullptr, 1); }),
            (CaughtError{14, 13, "InitFont"}));
  EXPECT_EQ(Catch([&] { font.InitFont(target.gl.get(), &withoutHandle, 1); }),
            (CaughtError{14, 13, "InitFont"}));
  EXPECT_EQ(Catch([&] { font.InitFont(nullptr, &target.memory, 1); }),
            (CaughtError{16, 13, "InitFont"}));
  alignas(COpenGL) static std::array<unsigned char, sizeof(COpenGL)> untagged{};
  EXPECT_EQ(
      Catch([&] { font.InitFont(reinterpret_cast<COpenGL*>(untagged.data()), &target.memory, 1); }),
      (CaughtError{16, 13, "InitFont"}));
  const CFont3D bound(target.gl.get(), &target.memory, 77);
  EXPECT_EQ(bound.GetListBase(), 77);
}

TEST(Font3D, SavesItsScaleFactorTwice) {
  CFont3D font;
  font.SetFontExtrusion(0.5);
  font.SetFontRendering(0.25);
  font.SetFontScaleFactor(2.0);
  font.SetNumFontChars(3);
  const Bytes record = Saved(font);
  const Bytes expected{0,   0,   0,   0,                       // the spare number
                       0,   0,   0,   0,                       // list base
                       0,   0,   0,   0,                       // italic
                       0,   0,   0,   0,                       // underline
                       188, 2,   0,   0,                       // weight 700
                       3,   0,   0,   0,                       // number of characters
                       0,   0,   0,   0,   0,  0, 0xE0, 0x3F,  // extrusion 0.5
                       0,   0,   0,   0,   0,  0, 0xD0, 0x3F,  // rendering 0.25
                       0,   0,   0,   0,   0,  0, 0xF0, 0x3F,  // the spare factor 1.0
                       0,   0,   0,   0,   0,  0, 0,    0x40,  // scale factor 2.0
                       0,   0,   0,   0,   0,  0, 0,    0x40,  // and again
                       5,   0,   0,   0,                       // length of the face name
                       'A', 'r', 'i', 'a', 'l'};
  EXPECT_EQ(record, expected);

  Bytes changed = record;
  changed[63] = 0x3F;  // the second copy: bytes 56 to 63
  changed[62] = 0xF0;
  CFont3D loaded;
  LoadFrom(loaded, changed);
  EXPECT_EQ(loaded.GetFontScaleFactor(), 1.0);  // the second one holds
  EXPECT_EQ(loaded.GetFontExtrusion(), 0.5);
  EXPECT_EQ(loaded.GetNumFontChars(), 3);
  loaded.Save(nullptr);
  loaded.Load(nullptr);
}

TEST(Font3D, DistrustsItsRecord) {
  Bytes record = Saved(CFont3D());
  CFont3D font;
  record[64] = 0xFF;  // a face name of 255 bytes, of which 5 are there
  EXPECT_EQ(Catch([&] { LoadFrom(font, record); }), (CaughtError{7, 13, "Load"}));
  CFile full;
  ASSERT_TRUE(full.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(Catch([&] { font.Save(full.m_hFile); }), (CaughtError{7, 13, "Save"}));
}

TEST(Font3D, NotesWhatWasAskedForWhenNoFaceIsOpened) {
  Offscreen target;
  CFont3D font(target.gl.get(), &target.memory, 1000);
  EXPECT_EQ(font.RegisterFont("Courier", 0.3, 400, 1, 1, 50), 0);
  EXPECT_EQ(font.GetNumFontChars(), 50);
  EXPECT_EQ(font.GetFontScaleFactor(), 0.05);
  EXPECT_STREQ(font.GetFaceName(), "Arial");
  EXPECT_EQ(font.RegisterFont("Courier", 0.3, 400, 1, 60), 0);
  EXPECT_EQ(font.GetNumFontChars(), 60);
}

}  // namespace
