// What the constructor leaves in a new tag's memory.
#include <algorithm>
#include <cstring>

#include "tests/source/plain_tag.h"

namespace {

using NewInstance = WithPlainTag;

// No operation draws from it: its memory alone shows the seed.
TEST_F(NewInstance, HoldsARandomGeneratorWithTheSeedOneHundred) {
    constexpr std::size_t kWords = sizeof(TremoluxCamClass) / sizeof(ULONG);
    std::vector<ULONG> words(kWords);
    std::memcpy(words.data(), static_cast<const void *>(tag_), kWords * sizeof(ULONG));
    EXPECT_EQ(std::count(words.begin(), words.end(), 100u), 1);
}

}  // namespace
