#include <gtest/gtest.h>

#include "c4d.h"
#include "lib_description.h"

namespace {

TEST(DescID, OfANumberHasOneLevelWithoutType) {
    const DescID id(903);
    EXPECT_EQ(id.GetDepth(), 1);
    EXPECT_EQ(id[0].id, 903);
    EXPECT_EQ(id[0].dtype, 0);
    EXPECT_EQ(id[1].id, 0);
    EXPECT_EQ(id[-1].id, 903);
    EXPECT_EQ(DescID()[-1].id, 0);
}

TEST(DescID, IsPartOfWhatItLeads) {
    const DescID vector(903), component(DescLevel(903, DTYPE_VECTOR, 0), DescLevel(VECTOR_X, DTYPE_REAL, 0));
    LONG levels = -1;
    EXPECT_TRUE(vector.IsPartOf(component, &levels));
    EXPECT_EQ(levels, 1);
    EXPECT_TRUE(vector.IsPartOf(vector, NULL));
    EXPECT_FALSE(component.IsPartOf(vector, &levels));
    EXPECT_EQ(levels, 1);
    EXPECT_FALSE(DescID(904).IsPartOf(component, NULL));
    EXPECT_FALSE(DescID(DescLevel(903, DTYPE_REAL, 0)).IsPartOf(component, NULL));
}

TEST(DescID, GrowsByLevels) {
    DescID id(1);
    id.PushId(DescLevel(2));
    EXPECT_EQ(id.GetDepth(), 2);
    EXPECT_EQ(id[0].id, 1);
    EXPECT_EQ(id[-1].id, 2);
}

TEST(DescID, DropsLevelsBeyondTheEighth) {
    DescID id;
    for (LONG i = 1; i <= 12; ++i) id.PushId(DescLevel(i));
    EXPECT_EQ(id.GetDepth(), 8);
    EXPECT_EQ(id[-1].id, 8);
}

}  // namespace
