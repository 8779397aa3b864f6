#include "tag/random.h"

#include <gtest/gtest.h>

namespace {

// In 64 bits with an explicit remainder.
class Model {
  public:
    LONG Next() {
        state_ = (state_ * 214013ull + 2531011ull) % 4294967296ull;
        return static_cast<LONG>(state_ / 65536 % 32768);
    }

  private:
    unsigned long long state_ = 1;
};

TEST(NextRandom, FollowsTheSequenceFromStateOne) {
    // 1 * 214013 + 2531011 = 2745024 = 41 * 65536 + 58048.
    EXPECT_EQ(Model().Next(), 41);
    // Whatever ran before in this process has drawn some already.
    constexpr int kNumbers = 1000, kMostDrawn = 100000;
    LONG drawn[kNumbers];
    for (LONG &number : drawn) number = NextRandom();
    Model sequence;
    for (int skipped = 0; skipped < kMostDrawn; ++skipped, sequence.Next()) {
        Model model = sequence;
        int same = 0;
        while (same < kNumbers && model.Next() == drawn[same]) ++same;
        if (same == kNumbers) return;
    }
    FAIL() << "the numbers stand nowhere in the sequence";
}

}  // namespace
