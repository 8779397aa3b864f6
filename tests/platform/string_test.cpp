#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tests/platform/bare_host.h"

namespace {

std::string EncodedBytes(const String &text, STRINGENCODING encoding = STRINGENCODING_UTF8) {
    char buffer[1000];
    text.GetCString(buffer, sizeof(buffer), encoding);
    return buffer;
}

class StringTest : public testing::Test {
    BareHost host_;
};

TEST_F(StringTest, IsEmptyAtFirst) {
    const String text;
    EXPECT_EQ(text.GetLength(), 0);
    EXPECT_FALSE(text.Content());
    EXPECT_EQ(text[0], 0);
}

TEST_F(StringTest, CopiesAreIndependent) {
    String a("shake"), b(a);
    b[0] = 'S';
    EXPECT_EQ(EncodedBytes(a), "shake");
    EXPECT_EQ(EncodedBytes(b), "Shake");
    const String &same = a;
    a = same;
    EXPECT_EQ(EncodedBytes(a), "shake");
    a = String();
    EXPECT_FALSE(a.Content());
}

TEST_F(StringTest, JoinsWithLiteralsOnEitherSide) {
    EXPECT_EQ(EncodedBytes("a" + String("b") + "c"), "abc");
    String text("ab");
    text += text;
    EXPECT_EQ(EncodedBytes(text), "abab");
}

TEST_F(StringTest, WritesOutsideOfTheTextAreIgnored) {
    String text("ab");
    text[2] = 'x';
    text[-1] = 'x';
    EXPECT_EQ(EncodedBytes(text), "ab");
}

TEST_F(StringTest, CutsPartsAtItsEnds) {
    const String text("camera");
    EXPECT_EQ(EncodedBytes(text.SubStr(2, 3)), "mer");
    EXPECT_EQ(EncodedBytes(text.SubStr(4, 100)), "ra");
    EXPECT_EQ(EncodedBytes(text.SubStr(-2, 4)), "ca");
    EXPECT_EQ(EncodedBytes(text.SubStr(9, 1)), "");
    EXPECT_EQ(EncodedBytes(text.Left(3)), "cam");
    EXPECT_EQ(EncodedBytes(text.Right(3)), "era");
    EXPECT_EQ(EncodedBytes(text.Right(99)), "camera");
}

TEST_F(StringTest, FindsAUnitFromAPlaceOn) {
    const String text("Presets/Calm/Presets");
    LONG position = 77;
    EXPECT_TRUE(text.FindFirst('/', &position));
    EXPECT_EQ(position, 7);
    EXPECT_TRUE(text.FindFirst('/', &position, 8));
    EXPECT_EQ(position, 12);
    EXPECT_TRUE(text.FindFirst('P', &position, -5));
    EXPECT_EQ(position, 0);
    position = 77;
    EXPECT_FALSE(text.FindFirst('/', &position, 13));
    EXPECT_EQ(position, 77);
}

TEST_F(StringTest, ComparesByCodeUnit) {
    EXPECT_TRUE(String("B") < String("a"));
    EXPECT_TRUE(String("ab") < String("abc"));
    EXPECT_TRUE(String("ab") == "ab");
    EXPECT_TRUE(String("ab") != "abc");
}

TEST_F(StringTest, ChangesTheCaseOfAccentedGreekAndCyrillicLetters) {
    EXPECT_EQ(EncodedBytes(String("àéöÿžš λάμδα камера ё").ToUpper()), "ÀÉÖŸŽŠ ΛΆΜΔΑ КАМЕРА Ё");
    EXPECT_EQ(EncodedBytes(String("ÀÉÖŸŽŠ ΛΆΜΔΑ КАМЕРА Ё").ToLower()), "àéöÿžš λάμδα камера ё");
    EXPECT_EQ(EncodedBytes(String("×÷ß1_").ToUpper()), "×÷ß1_");
}

TEST_F(StringTest, KeepsUtf8OfEveryLength) {
    const char *text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\xA5";  // a, e acute, euro, film camera
    const String kept(text);
    EXPECT_EQ(kept.GetLength(), 5);  // the last one takes two units
    EXPECT_EQ(kept[3], 0xD83C);      // U+1F3A5 - 0x10000 = 0xF3A5: 0xD800 + 0x3C, 0xDC00 + 0x3A5
    EXPECT_EQ(kept[4], 0xDFA5);
    EXPECT_EQ(EncodedBytes(kept), text);
    EXPECT_EQ(kept.GetCStringLen(), 10);
}

TEST_F(StringTest, ReplacesWhatIsNoUtf8) {
    const std::string mark = "\xEF\xBF\xBD";
    EXPECT_EQ(EncodedBytes(String("a\xFFz")), "a" + mark + "z");
    EXPECT_EQ(EncodedBytes(String("\xC0\xAF")), mark + mark);                        // overlong
    EXPECT_EQ(EncodedBytes(String("\xED\xA0\x80")), mark + mark + mark);             // a surrogate
    EXPECT_EQ(EncodedBytes(String("\xE2\x82z")), mark + "z");                        // cut off
    EXPECT_EQ(EncodedBytes(String("\xF4\x90\x80\x80")), mark + mark + mark + mark);  // beyond U+10FFFF
    EXPECT_EQ(EncodedBytes(String(1, 0xD83C)), mark);                                // half a pair
}

TEST_F(StringTest, ReadsAndWritesOneByteALetter) {
    const String latin("\xE9", STRINGENCODING_8BIT);
    EXPECT_EQ(latin[0], 0xE9);
    EXPECT_EQ(EncodedBytes(latin, STRINGENCODING_8BIT), "\xE9");
    EXPECT_EQ(EncodedBytes(latin, STRINGENCODING_7BIT), "?");
}

TEST_F(StringTest, NeverCutsALetterInHalf) {
    char buffer[3];
    EXPECT_EQ(String("a\xC3\xA9").GetCString(buffer, 3), 1);
    EXPECT_STREQ(buffer, "a");
}

TEST_F(StringTest, ReadsOnlyTheCountedBytes) {
    String text;
    text.SetCString("camera", 3);
    EXPECT_EQ(EncodedBytes(text), "cam");
}

TEST_F(StringTest, IsEmptyWhenThereIsNoMemory) {
    BareHost::exhausted() = true;
    const String text("camera"), filled(5, 'x');
    BareHost::exhausted() = false;
    EXPECT_FALSE(text.Content());
    EXPECT_FALSE(filled.Content());
}

TEST_F(StringTest, WithoutAHostIsEmptyAndHarmless) {
    const HostTable *table = host_table;
    host_table = nullptr;
    String text("camera");
    text += "x";
    host_table = table;
    EXPECT_FALSE(text.Content());
}

TEST_F(StringTest, NumbersAreWrittenPlainly) {
    EXPECT_EQ(EncodedBytes(LongToString(-2147483647 - 1)), "-2147483648");
    EXPECT_EQ(EncodedBytes(RealToString(1.015)), "1.015");
    EXPECT_EQ(EncodedBytes(RealToString(1.5)), "1.5");
    EXPECT_EQ(EncodedBytes(RealToString(3.0)), "3");
    EXPECT_EQ(EncodedBytes(RealToString(100.0)), "100");
    EXPECT_EQ(EncodedBytes(RealToString(0.12345)), "0.123");
    EXPECT_EQ(EncodedBytes(RealToString(-0.0001)), "0");
}

TEST_F(StringTest, NumbersCanBePadded) {
    EXPECT_EQ(EncodedBytes(RealToString(7.0, 3, 0)), "007");
    EXPECT_EQ(EncodedBytes(RealToString(-7.25, 3, 2)), "-007.25");
    EXPECT_EQ(EncodedBytes(RealToString(1234.0, 2, 1)), "1234.0");
    EXPECT_EQ(EncodedBytes(RealToString(7.0, 3, 0, FALSE, ' ')), "  7");
}

TEST_F(StringTest, ExtremeNumbersAreWrittenSafely) {
    EXPECT_EQ(RealToString(1e308).GetLength(), 309);
    EXPECT_EQ(EncodedBytes(RealToString(1e20, -1, -1, TRUE)), "1e+20");
    EXPECT_EQ(EncodedBytes(RealToString(2.5e-7, -1, -1, TRUE)), "2.5e-07");
    EXPECT_EQ(EncodedBytes(RealToString(std::nan(""))), "nan");
    EXPECT_EQ(EncodedBytes(RealToString(-HUGE_VAL)), "-inf");
    EXPECT_GT(RealToString(1e308, 100000, 100000).GetLength(), 309);
}

}  // namespace
