#include "library/parameters/nearest.h"

#include <gtest/gtest.h>

namespace tremolux {
namespace {

using Names = std::vector<std::string>;

TEST(EditDistance, CountsAddedRemovedAndChangedLetters) {
    EXPECT_EQ(EditDistance("", ""), 0u);
    EXPECT_EQ(EditDistance("", "abc"), 3u);
    EXPECT_EQ(EditDistance("abc", ""), 3u);
    EXPECT_EQ(EditDistance("kitten", "sitting"), 3u);  // k to s, e to i, a g more
    EXPECT_EQ(EditDistance("flaw", "lawn"), 2u);       // without the f, with an n
}

TEST(EditDistance, CountsSwappedNeighboursOnce) {
    EXPECT_EQ(EditDistance("ab", "ba"), 1u);
    EXPECT_EQ(EditDistance("ouptut", "output"), 1u);
    EXPECT_EQ(EditDistance("abcd", "badc"), 2u);
    EXPECT_EQ(EditDistance("ca", "abc"), 3u);  // swapped letters are not edited again: the same three as without
}

TEST(NearestNames, AreFoundByAMistypedLetterWhateverTheCase) {
    EXPECT_EQ(NearestNames("shke", {"presets", "shake", "batch"}), Names{"shake"});
    EXPECT_EQ(NearestNames("BTACH", {"presets", "shake", "batch"}), Names{"batch"});
    EXPECT_EQ(NearestNames("--ouptut", {"-o", "--output", "--added"}), Names{"--output"});
}

TEST(NearestNames, AreFoundByWordsAndPartsInside) {
    EXPECT_EQ(NearestNames("walk", {"Calm", "Brisk walk", "Standing still"}), Names{"Brisk walk"});
    EXPECT_EQ(NearestNames("wlak", {"Calm", "Brisk walk", "Standing still"}), Names{"Brisk walk"});
    EXPECT_EQ(NearestNames("hand held", {"Tripod/Calm", "Hand-held/Walk"}), Names{"Hand-held/Walk"});
    EXPECT_EQ(NearestNames("stand", {"Calm", "Brisk walk", "Standing still"}), Names{"Standing still"});
}

TEST(NearestNames, StandNearestFirstAndOnce) {
    EXPECT_EQ(NearestNames("walk", {"Brisk walks", "Brisk walk", "Walk", "Brisk walk"}),
              (Names{"Walk", "Brisk walk", "Brisk walks"}));
    EXPECT_EQ(NearestNames("aaaa", {"aaab", "aaac", "aaad", "aaae"}), (Names{"aaab", "aaac", "aaad"}));
}

TEST(NearestNames, AreNoneWhereNothingIsNear) {
    EXPECT_EQ(NearestNames("xylophone", {"shake", "batch"}), Names{});
    EXPECT_EQ(NearestNames("", {"shake", "k"}), Names{});
    EXPECT_EQ(NearestNames(std::string(100000, 'x'), {"shake"}), Names{});
}

TEST(DidYouMean, EndsALineWithTheNames) {
    EXPECT_EQ(DidYouMean("shke", {"shake"}), ": did you mean 'shake'?");
    EXPECT_EQ(DidYouMean("aaaa", {"aaab", "aaac"}), ": did you mean 'aaab' or 'aaac'?");
    EXPECT_EQ(DidYouMean("aaaa", {"aaab", "aaac", "aaad"}), ": did you mean 'aaab', 'aaac' or 'aaad'?");
    EXPECT_EQ(DidYouMean("aaaa", {"shake"}), "");
}

}  // namespace
}  // namespace tremolux
