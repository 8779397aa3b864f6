#include "engine/numbers.h"

#include <gtest/gtest.h>

namespace {

using engine::Truncate;

constexpr std::int32_t kMost = 2147483647, kLeast = -2147483647 - 1;

TEST(Truncate, CutsTowardZero) {
    EXPECT_EQ(Truncate(2.7), 2);
    EXPECT_EQ(Truncate(-2.7), -2);
    EXPECT_EQ(Truncate(0.999999), 0);
}

TEST(Truncate, StopsAtTheEndsOfTheRange) {
    EXPECT_EQ(Truncate(2147483647.0), kMost);
    EXPECT_EQ(Truncate(2147483648.0), kMost);
    EXPECT_EQ(Truncate(1e300), kMost);
    EXPECT_EQ(Truncate(HUGE_VAL), kMost);
    EXPECT_EQ(Truncate(-2147483648.0), kLeast);
    EXPECT_EQ(Truncate(-2147483647.5), kLeast + 1);
    EXPECT_EQ(Truncate(-2147483649.0), kLeast);
    EXPECT_EQ(Truncate(-HUGE_VAL), kLeast);
}

TEST(Truncate, IsZeroForWhatIsNoNumber) { EXPECT_EQ(Truncate(std::nan("")), 0); }

TEST(Held01, StopsAtNoneAndAll) {
    EXPECT_EQ(engine::Held01(-1e300), 0);
    EXPECT_EQ(engine::Held01(-0.25), 0);
    EXPECT_EQ(engine::Held01(0.25), 0.25);
    EXPECT_EQ(engine::Held01(1.25), 1);
    EXPECT_EQ(engine::Held01(HUGE_VAL), 1);
}

}  // namespace
