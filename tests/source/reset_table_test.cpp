// Every entry of the container that belongs to the motion alone: nothing of an old motion is saved with a new one.
#include "tests/source/probe.h"

namespace {

constexpr double kOld = 12.5;

struct Operation {
    const char *name;
    void (*run)(ProbeTag *probe, BaseContainer *data, BaseObject *camera, BaseDocument *doc);
    Real last_frame;  // that it leaves
};

void PrintTo(const Operation &operation, std::ostream *out) { *out << operation.name; }

// A replay to the start counts no frame.
const Operation kOperations[] = {{"Reset",
                                  [](ProbeTag *probe, BaseContainer *data, BaseObject *camera, BaseDocument *doc) {
                                      probe->ResetSimulation(data, camera, doc);
                                  },
                                  0},
                                 {"Replay",
                                  [](ProbeTag *probe, BaseContainer *data, BaseObject *camera, BaseDocument *) {
                                      probe->SimulateToFrame(0, data, camera);
                                  },
                                  -1}};

// Without an input camera nothing is at rest on anything: all is 0.
class WithoutInput : public WithProbe, public testing::WithParamInterface<Operation> {
  protected:
    void SetUp() override {
        WithProbe::SetUp();
        State().Set(6001, host::Data::LinkTo(nullptr));
    }
    void Run() { GetParam().run(probe_, Data(), Camera(), Doc()); }
};

TEST_P(WithoutInput, EveryNumberOfTheMotionIsZero) {
    const LONG clocks[] = {20000, 10051, 10052, 10053, 10054, 10055, 10056};
    const LONG engine[] = {10058, 10027, 10041, 10040, 10045, 10046, 5008,  5009,
                           5010,  5013,  5014,  5016,  11004, 10025, 10026, 10065};
    for (const LONG key : clocks) State().SetReal(key, kOld);
    for (const LONG key : engine) State().SetReal(key, kOld);
    State().SetReal(10044, kOld);
    Run();
    for (const LONG key : clocks) EXPECT_EQ(State().Real(key), 0) << key;
    for (const LONG key : engine) EXPECT_EQ(State().Real(key), 0) << key;
    EXPECT_EQ(State().Real(10044), GetParam().last_frame);
}

TEST_P(WithoutInput, EveryVectorOfTheMotionIsZero) {
    const LONG vectors[] = {10060, 10061, 20002, 5000, 5001, 5002, 5003, 5004, 5005, 5006, 5007, 11000, 11001};
    for (const LONG key : vectors) State().SetVector(key, {kOld, kOld, kOld});
    Run();
    for (const LONG key : vectors) EXPECT_EQ(host::Length(State().GetVector(key)), 0) << key;
}

TEST_P(WithoutInput, TheFlagIsOffAndTheWorkContainerIsEmpty) {
    host::Container full;
    full.Set(1, 2);
    State().Set(20004, host::Data(full));
    State().Set(5021, 1);
    Run();
    EXPECT_EQ(State().Whole(5021, 7), 0);
    ASSERT_NE(State().Find(20004), nullptr);
    ASSERT_NE(State().Find(20004)->GetContainer(), nullptr);
    EXPECT_EQ(State().Find(20004)->GetContainer()->Count(), 0);
}

INSTANTIATE_TEST_SUITE_P(Of, WithoutInput, testing::ValuesIn(kOperations),
                         [](const testing::TestParamInfo<Operation> &test) { return test.param.name; });

}  // namespace
