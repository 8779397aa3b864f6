#include <gtest/gtest.h>

#include "ge_dynamicarray.h"
#include "tests/platform/bare_host.h"

namespace {

int constructed = 0;
int destroyed = 0;

struct First {
    virtual ~First() {}
    LONG first;
};
struct Second {
    virtual ~Second() {}
    LONG second;
};
struct Both : First, Second {
    explicit Both(LONG value) : value_(value) { ++constructed; }
    ~Both() override { ++destroyed; }
    LONG value_;
};

class MemoryTest : public testing::Test {
  protected:
    void SetUp() override { constructed = destroyed = 0; }
    BareHost host_;
};

TEST_F(MemoryTest, DeletesThroughAnyBaseAndClearsThePointer) {
    Both *both = gNew Both(7);
    ASSERT_NE(both, nullptr);
    EXPECT_EQ(both->value_, 7);
    Second *base = both;  // lies inside the object: releasing its address would be an error
    gDelete(base);
    EXPECT_EQ(base, nullptr);
    EXPECT_EQ(destroyed, 1);
    gDelete(base);
    EXPECT_EQ(destroyed, 1);
}

TEST_F(MemoryTest, WithoutMemoryNoConstructorRuns) {
    BareHost::exhausted() = true;
    Both *both = gNew Both(7);
    BareHost::exhausted() = false;
    EXPECT_EQ(both, nullptr);
    EXPECT_EQ(constructed, 0);
}

TEST_F(MemoryTest, TypedCountsThatOverflowAreRefused) {
    EXPECT_EQ(GeAllocType(Real, VLONG(VULONG(-1) / 2 - 15)), nullptr);
    EXPECT_EQ(GeAllocType(Real, -1), nullptr);
}

TEST_F(MemoryTest, DynamicArrayKeepsItsItems) {
    GeDynamicArray<String> names;
    for (int i = 0; i < 50; ++i) ASSERT_TRUE(names.Push(LongToString(i)));
    ASSERT_TRUE(names.Insert(names[49], 0));
    EXPECT_EQ(names.GetCount(), 51);
    EXPECT_TRUE(names[0] == "49");
    EXPECT_TRUE(names[1] == "0");
    EXPECT_TRUE(names.Remove(0, 2));
    EXPECT_EQ(names.Find("1"), 0);
    EXPECT_EQ(names.Find("0"), NOTOK);
    EXPECT_TRUE(names.Pop());
    EXPECT_FALSE(names.Remove(99));
    EXPECT_TRUE(names.ReSize(60));
    EXPECT_FALSE(names[59].Content());
    names.FreeArray();
    EXPECT_FALSE(names.Pop());
}

}  // namespace
