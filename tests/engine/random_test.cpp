#include "tag/random.h"

#include <gtest/gtest.h>

namespace {

TEST(NextRandom, FollowsTheSequenceFromStateOne) {
    // 1 * 214013 + 2531011 = 2745024 = 41 * 65536 + 58048, so the first number is 41; the states after it are computed
    // in 64 bits with an explicit remainder.
    EXPECT_EQ(NextRandom(), 41);
    unsigned long long state = 2745024;
    for (int i = 0; i < 1000; ++i) {
        state = (state * 214013ull + 2531011ull) % 4294967296ull;
        EXPECT_EQ(NextRandom(), static_cast<LONG>(state / 65536 % 32768)) << i;
    }
}

}  // namespace
