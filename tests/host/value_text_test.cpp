#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <string>

#include "host/value/memory.h"
#include "host/value/text.h"
#include "host/value/time.h"
#include "host/value/vector.h"

namespace host {
namespace {

std::string RoundTrip(std::string_view utf8) {
    TableString text{};
    Assign(&text, utf8);
    const std::string back = ToUtf8(&text);
    ReleaseText(&text);
    return back;
}

TEST(Text, CharactersOfEveryLengthSurviveTheBorder) {
    // One, two, three and four bytes: A, a with dots, the euro sign, a face outside the first plane.
    const std::string all = "A\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80";
    EXPECT_EQ(RoundTrip(all), all);
    EXPECT_EQ(ToUtf16(all), u"A\u00E4\u20AC\U0001F600");
    EXPECT_EQ(ToUtf16(all).size(), 5u);  // the face takes two units
}

TEST(Text, WhatIsNoTextBecomesTheReplacementCharacter) {
    EXPECT_EQ(ToUtf16("a\x80z"), u"a\uFFFDz");          // a lonely continuation
    EXPECT_EQ(ToUtf16("a\xE2\x82z"), u"a\uFFFDz");      // broken off
    EXPECT_EQ(ToUtf16("\xE2\x82"), u"\uFFFD");          // broken off by the end
    EXPECT_EQ(ToUtf16("\xC0\xAF"), u"\uFFFD\uFFFD");    // C0 never starts a character
    EXPECT_EQ(ToUtf16("\xE0\x80\xAF"), u"\uFFFD");      // longer than need be
    EXPECT_EQ(ToUtf16("\xED\xA0\x80"), u"\uFFFD");      // half of a pair
    EXPECT_EQ(ToUtf16("\xF4\x90\x80\x80"), u"\uFFFD");  // past the last character
    EXPECT_EQ(ToUtf16("\xFF"), u"\uFFFD");
    const std::uint16_t halves[] = {0xDC00, 'a', 0xD800};
    EXPECT_EQ(ToUtf8(halves, 3),
              "\xEF\xBF\xBD"
              "a"
              "\xEF\xBF\xBD");
}

TEST(Text, TheEmptyTextHoldsNoMemory) {
    TableString text{};
    Assign(&text, "something");
    ASSERT_NE(text.text, nullptr);
    EXPECT_EQ(text.length, 9);
    EXPECT_EQ(text.text[9], 0);
    Assign(&text, "");
    EXPECT_EQ(text.text, nullptr);
    EXPECT_EQ(text.length, 0);
    EXPECT_EQ(ToUtf8(nullptr), "");
    EXPECT_EQ(ToUtf8(nullptr, 5), "");
}

TEST(Text, IsCopiedDeeplyAndMayBeAssignedToItself) {
    TableString a{}, b{};
    Assign(&a, "first");
    Assign(&b, a);
    Assign(&a, a);
    EXPECT_NE(a.text, b.text);
    EXPECT_EQ(ToUtf8(&a), "first");
    EXPECT_EQ(ToUtf8(&b), "first");
    ReleaseText(&a);
    ReleaseText(&b);
}

TEST(Text, PathsKeepTheirCharacters) {
    TableFilename name{};
    const std::filesystem::path path = PathFromText("folder/sch\xC3\xB6n.csv");
    Assign(&name, path);
    EXPECT_EQ(ToPath(&name), path);
    EXPECT_EQ(PathText(path.filename()), "sch\xC3\xB6n.csv");
    ReleaseText(&name.path);
    EXPECT_EQ(ToPath(nullptr), std::filesystem::path());
}

RC_GTEST_PROP(TextProperty, AnyBytesBecomeTextThatSurvives, (const std::string &bytes)) {
    const std::string once = RoundTrip(bytes);
    RC_ASSERT(RoundTrip(once) == once);
}

TEST(Memory, RefusesSizesThatCannotBe) {
    EXPECT_EQ(Allocate(-1), nullptr);
    EXPECT_EQ(AllocateUncleared(-1), nullptr);
    void *nothing = Allocate(0);
    EXPECT_NE(nothing, nullptr);
    Release(nothing);
    Release(nullptr);
}

TEST(Memory, IsCleared) {
    auto *bytes = static_cast<unsigned char *>(Allocate(64));
    for (int i = 0; i < 64; ++i) EXPECT_EQ(bytes[i], 0);
    Release(bytes);
}

TEST(Time, AFrameAtARateIsAReducedFraction) {
    const Time time = MakeTime(12, 30);  // 12/30 = 2/5
    EXPECT_EQ(time.numerator, 2);
    EXPECT_EQ(time.denominator, 5);
    EXPECT_EQ(FrameOf(time, 30), 12);  // floor(2 * 30) / floor(5)
    EXPECT_EQ(FrameOf(MakeTime(1, 30), 30), 1);
    EXPECT_EQ(Seconds(MakeTime(3, 24)), 0.125);
}

TEST(Time, RoundsBothPartsAndKeepsTheSignInTheNumerator) {
    const Time time = MakeTime(-7.4, -14.6);  // 7/15, signs cancel
    EXPECT_EQ(time.numerator, 7);
    EXPECT_EQ(time.denominator, 15);
    EXPECT_EQ(MakeTime(10, -4).numerator, -5);
    EXPECT_EQ(MakeTime(10, -4).denominator, 2);
    EXPECT_EQ(MakeTime(3, 0.2).denominator, 1);  // at least 1
    EXPECT_EQ(MakeTime(0, 30).denominator, 1);
}

TEST(Time, WhatIsNoFractionIsZero) {
    for (const Time &time :
         {MakeTime(std::nan(""), 30), MakeTime(1, std::nan("")), MakeTime(HUGE_VAL, 30), MakeTime(1, -HUGE_VAL)}) {
        EXPECT_EQ(time.numerator, 0);
        EXPECT_EQ(time.denominator, 1);
    }
    EXPECT_EQ(Seconds({5, 0}), 0);
}

TEST(Time, FramesAreCutOffTowardZeroAndSaturate) {
    EXPECT_EQ(FrameOf(MakeTime(-1, 60), 30), 0);   // floor(-30) / 60 = -0.5
    EXPECT_EQ(FrameOf(MakeTime(-3, 60), 30), -1);  // -1/20: floor(-30) / 20 = -1.5
    EXPECT_EQ(FrameOf({5, 0}, 30), 0);
    EXPECT_EQ(FrameOf({5, 0.5}, 30), 0);
    EXPECT_EQ(FrameOf({1e300, 1}, 30), 2147483647);
    EXPECT_EQ(FrameOf({-1e300, 1}, 30), -2147483647 - 1);
    EXPECT_EQ(FrameOf({std::nan(""), 1}, 30), 0);
}

TEST(Time, IsComparedByValue) {
    EXPECT_TRUE(SameTime({2, 5}, {12, 30}));
    EXPECT_FALSE(SameTime({2, 5}, {13, 30}));
    EXPECT_TRUE(Before({1, 30}, {1, 24}));
    EXPECT_FALSE(Before({1, 24}, {1, 30}));
    EXPECT_FALSE(Before({2, 5}, {2, 5}));
    EXPECT_TRUE(Before({-1, 30}, {0, 1}));
}

RC_GTEST_PROP(TimeProperty, EveryFrameComesBackAtItsRate, ()) {
    const auto frame = *rc::gen::inRange(0, 10000000);
    const auto rate = *rc::gen::inRange(1, 2501);
    RC_ASSERT(FrameOf(MakeTime(frame, rate), rate) == frame);
}

TEST(Matrix, AProductAppliesTheRightOneFirst) {
    const Matrix turn = {{0, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}};  // X becomes Y
    const Matrix move = {{10, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    EXPECT_TRUE(TransformPoint(turn * move, {1, 0, 0}) == (Vector{0, 11, 0}));
    EXPECT_TRUE(TransformPoint(move * turn, {1, 0, 0}) == (Vector{10, 1, 0}));
    EXPECT_TRUE(TransformDirection(move, {1, 2, 3}) == (Vector{1, 2, 3}));
}

TEST(Matrix, TheInverseUndoesAndASingularOneIsIdentity) {
    const Matrix m = {{5, -6, 7}, {0, 2, 0}, {-4, 0, 0}, {0, 0, 0.5}};
    EXPECT_TRUE(TransformPoint(Inverse(m), TransformPoint(m, {1, 2, 3})) == (Vector{1, 2, 3}));
    EXPECT_TRUE(Inverse({{1, 2, 3}, {1, 0, 0}, {1, 0, 0}, {0, 0, 1}}) == kIdentity);
    const double nan = std::nan("");
    EXPECT_TRUE(Inverse({{1, 2, 3}, {nan, 0, 0}, {1, 0, 0}, {0, 0, 1}}) == kIdentity);
    EXPECT_FALSE(IsFinite(Matrix{{nan, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
}

TEST(Vector, LengthsOutsideTheRangeOfSquaresAreRight) {
    EXPECT_EQ(Length({3, 4, 0}), 5);
    EXPECT_NEAR(Length({3e200, 4e200, 0}) / 1e200, 5, 1e-14);
    EXPECT_NEAR(Length({3e-200, 4e-200, 0}) / 1e-200, 5, 1e-14);
    EXPECT_TRUE(Normalized({0, 0, 0}) == (Vector{0, 0, 0}));
    EXPECT_TRUE(Normalized({0, -2, 0}) == (Vector{0, -1, 0}));
    EXPECT_TRUE(Cross({1, 0, 0}, {0, 1, 0}) == (Vector{0, 0, 1}));
}

}  // namespace
}  // namespace host
