#include "library/trace/json_value.h"

#include <gtest/gtest.h>

#include <limits>

#include "host/value/container.h"

namespace tremolux {
namespace {

std::string Text(const host::Data &data) { return JsonValue(data, nullptr).dump(); }

TEST(JsonValue, WritesNumbersThatJsonHasNoWordForAsTexts) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Text(host::Data(std::numeric_limits<double>::quiet_NaN())), "\"nan\"");
    EXPECT_EQ(Text(host::Data(infinity)), "\"inf\"");
    EXPECT_EQ(Text(host::Data(host::Vector{1, -infinity, 2.5})), "[1.0,\"-inf\",2.5]");
}

TEST(JsonValue, WritesEveryKindOfValue) {
    EXPECT_EQ(Text(host::Data()), "null");
    EXPECT_EQ(Text(host::Data(std::int32_t{-7})), "-7");
    EXPECT_EQ(Text(host::Data(0.5)), "0.5");
    EXPECT_EQ(Text(host::Data(host::MakeTime(15, 30))), "0.5");
    EXPECT_EQ(Text(host::Data("line\n\"two\"")), "\"line\\n\\\"two\\\"\"");
    EXPECT_EQ(Text(host::Data::LinkTo(nullptr)), "null");
    // Offset, then the three axes.
    EXPECT_EQ(Text(host::Data(host::Matrix{{1, 2, 3}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}})),
              "[[1.0,2.0,3.0],[1.0,0.0,0.0],[0.0,1.0,0.0],[0.0,0.0,1.0]]");
}

TEST(JsonValue, WritesContainersByIdInTheirOrder) {
    host::Container inner;
    inner.Set(3, host::Data(std::int32_t{1}));
    host::Container outer;
    outer.Set(9, host::Data(inner));
    outer.Set(2, host::Data(0.25));
    EXPECT_EQ(Text(host::Data(outer)), "{\"9\":{\"3\":1},\"2\":0.25}");
}

}  // namespace
}  // namespace tremolux
