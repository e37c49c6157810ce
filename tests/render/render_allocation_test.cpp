#include <gtest/gtest.h>

#include <vector>

#include "support/allocation_failure.h"
#include "support/caught_error.h"
#include "support/offscreen.h"

namespace {

using orvalix::test::AllocationFailure;
using orvalix::test::Catch;
using orvalix::test::CaughtError;
using orvalix::test::FailEachAllocation;
using orvalix::test::kNoError;
using orvalix::test::Offscreen;

HPALETTE SelectedPalette(CDC& dc) {
  const HDC handle = dc.GetSafeHdc();
  const HPALETTE selected =
      SelectPalette(handle, static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)), FALSE);
  SelectPalette(handle, selected, FALSE);
  return selected;
}

TEST(RenderAllocation, APaletteWithoutMemoryIsAClearErrorAndLeavesTheOldOne) {
  Offscreen target(16, 16, 8);
  target.gl->CreateRGBPalette();
  const HPALETTE selected = SelectedPalette(target.memory);
  const HPALETTE ofSection = target.dib->GetPaletteHandle();
  int errors = 0;
  const int failures = FailEachAllocation([&] {
    const CaughtError error = Catch([&] { target.gl->CreateRGBPalette(); });
    if (error == kNoError) return;
    EXPECT_EQ(error, (CaughtError{2, 17, "CreateRGBPalette"}));
    EXPECT_EQ(SelectedPalette(target.memory), selected);
    ++errors;
  });
  EXPECT_GE(failures, 3);  // the description, the palette and its entries
  EXPECT_EQ(errors, failures);

  errors = 0;
  const int sectionFailures = FailEachAllocation([&] {
    const CaughtError error = Catch([&] { target.dib->CreateRGBPalette(); });
    if (error == kNoError) return;
    EXPECT_EQ(error, (CaughtError{2, 9, "CreateRGBPalette"}));
    EXPECT_EQ(target.dib->GetPaletteHandle(), ofSection);
    ++errors;
  });
  EXPECT_GE(sectionFailures, 3);
  EXPECT_EQ(errors, sectionFailures);
}

TEST(RenderAllocation, AContextWithoutMemoryIsAClearError) {
  const CaughtError noContext{3, 17, "InitContext"};
  const CaughtError noPalette{2, 9, "CreateRGBPalette"};
  // The binding and its platform's part, the colours of an 8-bit picture, the palette. What comes
  // after these belongs to OpenGL's driver, which no failing allocation may be tried on.
  const std::vector<CaughtError> trueColor{noContext, noContext};
  const std::vector<CaughtError> indexed{noContext, noContext, noContext,
                                         noPalette, noPalette, noPalette};
  for (const int bits : {8, 24, 32}) {
    Offscreen target(16, 16, bits);  // the display has been found
    const auto& expected = bits == 8 ? indexed : trueColor;
    for (std::size_t i = 0; i < expected.size(); ++i) {
      const AllocationFailure failure(static_cast<int>(i) + 1);
      const CaughtError error =
          Catch([&] { const COpenGL gl(target.window.GetDC(), target.dib.get()); });
      EXPECT_EQ(error, expected[i]) << bits << " bits, allocation " << i + 1;
    }
  }
}

}  // namespace
