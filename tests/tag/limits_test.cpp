// What the panel lets a user type.
#include <cmath>

#include "host/ui/attribute_manager.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

class Typing : public WithScene {
  protected:
    double Type(std::int32_t id, double value) {
        EXPECT_TRUE(host::EditParameter(scene().tag, host::MakeId(id), host::Data(value))) << id;
        return scene().Real(id);
    }
};

TEST_F(Typing, AHundredAndFiftyPercentOfPositionIntensityIsAccepted) { EXPECT_EQ(Type(6020, 1.5), 1.5); }

TEST_F(Typing, InitialPositionSmoothStopsAtAHundredPercent) {
    EXPECT_EQ(Type(6155, 1.5), 1);
    EXPECT_EQ(Type(6155, -0.5), 0);
    EXPECT_EQ(Type(6155, 0.3), 0.3);
}

TEST_F(Typing, FocusSmoothGoesToTenThousandPercentAndFocusSmoothingToAHundred) {
    EXPECT_EQ(Type(6059, 100), 100);
    EXPECT_EQ(Type(6059, 150), 100);
    EXPECT_EQ(Type(6064, 2), 1);
}

TEST_F(Typing, TheSeedStaysBetweenZeroAndNinetyNineThousandNineHundredAndNinetyNine) {
    EXPECT_EQ(Type(6142, 1e6), 99999);
    EXPECT_EQ(Type(6142, -5), 0);
    EXPECT_EQ(Type(6142, 777), 777);
    EXPECT_EQ(scene().State().Find(6142)->type, host::kDataReal);
}

TEST_F(Typing, AWholeNumberIsStoredAsARealWhereARealIsDescribed) {
    EXPECT_TRUE(host::EditParameter(scene().tag, host::MakeId(6142), host::Data(std::int32_t{42})));
    EXPECT_TRUE(host::EditParameter(scene().tag, host::MakeId(6022), host::Data(std::int32_t{3})));
    for (const std::int32_t id : {6142, 6022}) EXPECT_EQ(scene().State().Find(id)->type, host::kDataReal) << id;
    EXPECT_EQ(scene().Real(6142), 42);
    EXPECT_EQ(scene().Real(6022), 3);
}

TEST_F(Typing, PositionRatiosStopAtAThousandAndRotationRatiosDoNot) {
    for (const std::int32_t id : {6076, 6077, 6078}) EXPECT_EQ(Type(id, 5000), 1000) << id;
    for (const std::int32_t id : {6100, 6101, 6102}) {
        EXPECT_EQ(Type(id, 5000), 5000) << id;
        EXPECT_EQ(Type(id, -1), 0) << id;
    }
}

TEST_F(Typing, AmountsWithALowestValueOnlyAreFreeUpwards) {
    for (const std::int32_t id : {6037, 6140, 6134, 6135, 6136, 6138, 6152}) {
        EXPECT_EQ(Type(id, -1), 0) << id;
        EXPECT_EQ(Type(id, 12), 12) << id;
    }
}

TEST_F(Typing, TheShakeAmountsAndTheTimeOffsetAreFreeBothWays) {
    for (const std::int32_t id : {6024, 6025, 6026, 6028, 6029, 6030, 6144, 6151, 6021, 6022}) {
        EXPECT_EQ(Type(id, -12), -12) << id;
        EXPECT_EQ(Type(id, 12), 12) << id;
    }
}

}  // namespace
