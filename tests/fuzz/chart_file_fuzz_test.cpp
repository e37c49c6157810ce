#include "fuzz/corpus_fuzz.h"

#include <gtest/gtest.h>

namespace {

TEST(ChartFileFuzz, NoBytesAreADanger) { orvalix::test::TryChangedSeeds(3000); }

}  // namespace
