#include "engine/noise.h"

#include <gtest/gtest.h>

#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

TEST(Sample, IsTheNoiseWhereTheSeedMovesItsPoint) {
    for (const double seed : {0.0, 12345.0})
        for (const double time : {0.0, 0.7})
            EXPECT_EQ(Sample(seed, {100, 2, 30, 400}, time, PlainHost()),
                      Noise({seed + 102, seed + 130, seed + 500}, time));
}

TEST(Layers, AreNothingUntilTheyAreSet) { EXPECT_TRUE(IsNothing(Layers())); }

}  // namespace
