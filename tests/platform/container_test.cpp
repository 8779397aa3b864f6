#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "c4d_customdatatypeplugin.h"
#include "customgui_splinecontrol.h"
#include "ge_autoptr.h"
#include "host/application.h"
#include "lib_description.h"
#include "platform/glue/host.h"

namespace {

class ContainerTest : public testing::Test {
  protected:
    void SetUp() override { host_table = host::Application::Table(); }
    void TearDown() override { host_table = nullptr; }
};

using GeDataTest = ContainerTest;

TEST_F(GeDataTest, NumbersConvertIntoOneAnother) {
    EXPECT_EQ(GeData(2.9).GetLong(), 2);
    EXPECT_EQ(GeData(-2.9).GetLong(), -2);
    EXPECT_EQ(GeData(1e300).GetLong(), 2147483647);
    EXPECT_EQ(GeData(-1e300).GetLLong(), std::numeric_limits<LLONG>::min());
    EXPECT_EQ(GeData(std::nan("")).GetLong(), 0);
    EXPECT_EQ(GeData(LONG(7)).GetReal(), 7.0);
}

TEST_F(GeDataTest, OtherTypesGiveEmptyValues) {
    const GeData text(String("5"));
    EXPECT_EQ(text.GetType(), DA_STRING);
    EXPECT_EQ(text.GetLong(), 0);
    EXPECT_EQ(text.GetReal(), 0.0);
    EXPECT_TRUE(text.GetVector() == Vector());
    EXPECT_EQ(text.GetContainer(), nullptr);
    EXPECT_EQ(text.GetBaseLink(), nullptr);
    EXPECT_EQ(text.GetCustomDataType(CUSTOMDATATYPE_SPLINE), nullptr);
    EXPECT_FALSE(GeData(Vector(1, 2, 3)).GetString().Content());
}

TEST_F(GeDataTest, CopiesAreDeep) {
    BaseContainer inner;
    inner.SetString(1, "calm");
    GeData a(inner), b(a);
    b.GetContainer()->SetString(1, "wild");
    EXPECT_TRUE(a.GetContainer()->GetString(1) == "calm");
    EXPECT_TRUE(a != b);
    a = b;
    EXPECT_TRUE(a == b);
    // A value out of the middle of the one that it replaces.
    a = a.GetContainer()->GetData(1);
    EXPECT_TRUE(a.GetString() == "wild");
}

TEST_F(ContainerTest, ASplineGoesThroughItsKnots) {
    AutoAlloc<SplineData> spline;
    ASSERT_TRUE(spline);
    spline->InsertKnot(1.0, 4.0);
    spline->InsertKnot(0.0, 2.0);
    EXPECT_EQ(spline->GetKnot(0)->vPos.x, 0.0);
    EXPECT_EQ(spline->GetKnot(2), nullptr);
    spline->GetKnot(0)->interpol = CustomSplineKnotInterpolationLinear;
    EXPECT_NEAR(spline->GetPoint(0.25).y, 2.5, 1e-9);
}

TEST_F(ContainerTest, ReturnsWhatWasStored) {
    BaseContainer bc(77);
    bc.SetBool(-5, TRUE);
    bc.SetLong(-1, 12);
    bc.SetReal(2, 0.5);
    bc.SetVector(3, Vector(1, 2, 3));
    bc.SetString(5, "calm");
    bc.SetFilename(6, Filename("a") + "b");
    bc.SetTime(7, BaseTime(1, 30));
    const BaseContainer copy(bc);
    EXPECT_EQ(copy.GetId(), 77);
    EXPECT_TRUE(copy.GetBool(-5));
    EXPECT_EQ(copy.GetType(-5), DA_LONG);
    EXPECT_EQ(copy.GetLong(-1), 12);
    EXPECT_EQ(copy.GetReal(2), 0.5);
    EXPECT_TRUE(copy.GetVector(3) == Vector(1, 2, 3));
    EXPECT_TRUE(copy.GetString(5) == "calm");
    EXPECT_TRUE(copy.GetFilename(6) == Filename("a") + "b");
    EXPECT_TRUE(copy.GetTime(7) == BaseTime(1, 30));
    EXPECT_TRUE(copy == bc);
}

TEST_F(ContainerTest, NumericGettersConvert) {
    BaseContainer bc;
    bc.SetReal(1, 0.5);
    bc.SetLong(2, 3);
    bc.SetReal(3, std::nan(""));
    EXPECT_TRUE(bc.GetBool(1));
    EXPECT_EQ(bc.GetLong(1, 9), 0);
    EXPECT_EQ(bc.GetReal(2), 3.0);
    EXPECT_EQ(bc.GetLong(3, 9), 0);
}

TEST_F(ContainerTest, AbsentEntriesAndOtherTypesGiveThePreset) {
    BaseContainer bc;
    bc.SetString(1, "5");
    for (LONG id : {1, 2}) {
        EXPECT_TRUE(bc.GetBool(id, TRUE));
        EXPECT_EQ(bc.GetLong(id, 4), 4);
        EXPECT_EQ(bc.GetReal(id, 4.5), 4.5);
        EXPECT_TRUE(bc.GetVector(id, Vector(1)) == Vector(1));
        EXPECT_TRUE(bc.GetTime(id, BaseTime(1, 2)) == BaseTime(1, 2));
        EXPECT_EQ(bc.GetContainerInstance(id), nullptr);
        EXPECT_EQ(bc.GetLink(id, nullptr), nullptr);
    }
    bc.SetReal(3, 1.0);
    EXPECT_TRUE(bc.GetString(3, "none") == "none");
}

TEST_F(ContainerTest, SettingKeepsThePlaceOfAnEntry) {
    BaseContainer bc;
    bc.SetLong(30, 1);
    bc.SetLong(10, 2);
    bc.SetReal(30, 3.0);
    EXPECT_EQ(bc.GetIndexId(0), 30);
    EXPECT_EQ(bc.GetIndexId(1), 10);
    EXPECT_EQ(bc.GetIndexId(2), NOTOK);
    EXPECT_EQ(bc.GetReal(30), 3.0);
    EXPECT_TRUE(bc.RemoveData(30));
    EXPECT_EQ(bc.GetIndexId(0), 10);
    EXPECT_FALSE(bc.RemoveData(30));
}

TEST_F(ContainerTest, InstancesAreLive) {
    BaseContainer bc;
    bc.SetContainer(1, BaseContainer(5));
    bc.GetContainerInstance(1)->SetLong(2, 3);
    EXPECT_EQ(bc.GetContainer(1).GetLong(2), 3);
    EXPECT_EQ(bc.GetContainer(1).GetId(), 5);
    EXPECT_EQ(bc.GetDataPointer(1), bc.GetIndexData(0));
}

TEST_F(ContainerTest, FlushingKeepsTheOwnNumberAndCountsAsAWrite) {
    BaseContainer bc(5);
    bc.SetLong(1, 1);
    const ULONG dirty = bc.GetDirty();
    bc.FlushAll();
    EXPECT_EQ(bc.GetId(), 5);
    EXPECT_EQ(bc.GetIndexId(0), NOTOK);
    EXPECT_GT(bc.GetDirty(), dirty);
}

TEST_F(ContainerTest, MergingWritesOverAndAdds) {
    BaseContainer bc, source;
    bc.SetLong(1, 1);
    bc.SetLong(2, 2);
    source.SetLong(2, 20);
    source.SetLong(3, 30);
    bc.MergeContainer(source);
    EXPECT_EQ(bc.GetLong(1), 1);
    EXPECT_EQ(bc.GetLong(2), 20);
    EXPECT_EQ(bc.GetLong(3), 30);
    bc.MergeContainer(bc);
    EXPECT_EQ(bc.GetIndexId(2), 3);
    EXPECT_EQ(bc.GetIndexId(3), NOTOK);
}

TEST_F(ContainerTest, PresetOfADataTypeCarriesItsNumber) {
    EXPECT_EQ(GetCustomDataTypeDefault(DTYPE_REAL).GetId(), DTYPE_REAL);
}

}  // namespace
