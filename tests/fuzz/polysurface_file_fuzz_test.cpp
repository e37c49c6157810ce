#include "fuzz/corpus_fuzz.h"

#include <gtest/gtest.h>

namespace {

TEST(PolysurfaceFileFuzz, NoBytesAreADanger) { orvalix::test::TryChangedSeeds(30000); }

}  // namespace
