// In which order presets and categories are shown, and what their names become.
#include <algorithm>
#include <vector>

#include "presets/filenames.h"
#include "presets/order.h"
#include "presets/shuffle.h"
#include "tests/source/glue.h"

namespace {

class PresetOrder : public WithGlue {
  protected:
    static std::vector<String> Sorted(std::vector<String> names) {
        SortByName(&names, [](const String &name) { return name; });
        return names;
    }
};

using List = std::vector<String>;

TEST_F(PresetOrder, PutsAShorterPrefixFirst) {
    EXPECT_TRUE(ComesBefore("2_Walk", "10_Run"));
    EXPECT_FALSE(ComesBefore("10_Run", "2_Walk"));
    EXPECT_TRUE(ComesBefore("9_a", "00_a"));
}

TEST_F(PresetOrder, ComparesPrefixesOfEqualLengthAsText) {
    EXPECT_TRUE(ComesBefore("10_b", "11_a"));
    EXPECT_FALSE(ComesBefore("11_a", "10_b"));
    EXPECT_FALSE(ComesBefore("10_Run", "10_Ride"));
    EXPECT_FALSE(ComesBefore("10_Ride", "10_Run"));
}

TEST_F(PresetOrder, ComparesWholeNamesWhereAPrefixIsMissing) {
    EXPECT_TRUE(ComesBefore("apple", "Banana"));
    EXPECT_TRUE(ComesBefore("10_Run", "Handheld"));
    EXPECT_FALSE(ComesBefore("Handheld", "10_Run"));
    EXPECT_TRUE(ComesBefore("_abc", "abcd")) << "an empty prefix is none; '_' stands before letters in lower case";
}

TEST_F(PresetOrder, NeverLooksAtTheLastCharacterOfTheShorterName) {
    EXPECT_FALSE(ComesBefore("ab", "ac"));
    EXPECT_FALSE(ComesBefore("ac", "ab"));
    EXPECT_TRUE(ComesBefore("abx", "acx"));
    EXPECT_FALSE(ComesBefore("a", "z"));
    EXPECT_FALSE(ComesBefore("", "z"));
}

TEST_F(PresetOrder, IsAnInsertionSortFromTheOrderOfTheFolder) {
    // 2_z before 10_a, 10_a before 15x, 15x before 2_z: the result depends on where each began.
    ASSERT_TRUE(ComesBefore("2_z", "10_a") && ComesBefore("10_a", "15x") && ComesBefore("15x", "2_z"));
    EXPECT_EQ(Sorted({"10_a", "15x", "2_z"}), (List{"10_a", "15x", "2_z"}));
    EXPECT_EQ(Sorted({"15x", "2_z", "10_a"}), (List{"15x", "2_z", "10_a"}));
    EXPECT_EQ(Sorted({"2_z", "10_a", "15x"}), (List{"2_z", "10_a", "15x"}));
    EXPECT_EQ(Sorted({"15x", "10_a", "2_z"}), (List{"10_a", "15x", "2_z"}));
}

TEST_F(PresetOrder, KeepsTheOrderOfEquals) {
    EXPECT_EQ(Sorted({"10_Run", "10_Ride", "2_A", "10_Row"}), (List{"2_A", "10_Run", "10_Ride", "10_Row"}));
}

TEST_F(PresetOrder, DisplaysWhatFollowsTheFirstUnderscore) {
    EXPECT_EQ(DisplayName("03_Walk"), String("Walk"));
    EXPECT_EQ(DisplayName("1_a_b"), String("a_b"));
    EXPECT_EQ(DisplayName("Handheld"), String("Handheld"));
    EXPECT_EQ(DisplayName("_x"), String("x"));
    EXPECT_EQ(DisplayName("x_"), String());
    EXPECT_EQ(DisplayName(""), String());
}

// Or the shuffle would draw for ever.
TEST_F(PresetOrder, EverySlotOfAShuffleIsMetByADraw) {
    for (const LONG length : {1, 2, 3, 1000, 4000, 16384, 31999, 32000}) {
        ASSERT_LE(length, kLongestShuffle);
        std::vector<int> met(static_cast<std::size_t>(length) + 1);
        for (LONG drawn = 0; drawn <= kLargestRandom; ++drawn) {
            const LONG slot = SlotOf(drawn, length);
            ASSERT_TRUE(slot >= 0 && slot <= length);
            ++met[static_cast<std::size_t>(slot)];
        }
        for (LONG slot = 0; slot < length; ++slot)
            ASSERT_GT(met[static_cast<std::size_t>(slot)], 0) << slot << " of " << length;
    }
}

TEST_F(PresetOrder, AShuffleKeepsEveryEntry) {
    std::vector<LONG> entries;
    for (LONG i = 0; i < 500; ++i) entries.push_back(i);
    std::vector<LONG> shuffled = Shuffled(entries);
    EXPECT_NE(shuffled, entries);
    std::sort(shuffled.begin(), shuffled.end());
    EXPECT_EQ(shuffled, entries);
    EXPECT_TRUE(Shuffled(std::vector<LONG>()).empty());
}

TEST_F(PresetOrder, FileNamesKeepWhatEverySystemTakes) {
    EXPECT_EQ(FileNameOf("Slow walk (2)"), String("Slow walk (2)"));
    EXPECT_EQ(FileNameOf("console"), String("console"));
    EXPECT_EQ(FileNameOf("LPT9.old"), String("-.old"));
    EXPECT_EQ(FileNameOf("a."), String("a-"));
    EXPECT_EQ(FileNameOf(String(150, 'x')).GetLength(), 150);
    EXPECT_EQ(FileNameOf(String(151, 'x')), String());
    EXPECT_EQ(FileNameOf(String(51, 0x3042)), String()) << "three bytes each";
}

}  // namespace
