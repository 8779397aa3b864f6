// The order in which a bake makes its tracks: what there is when one of them cannot be made.
#include <set>

#include "host/animation/track.h"
#include "host/ui/attribute_manager.h"
#include "host/watch/call_faults.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

using BakedChannel = std::pair<std::int32_t, std::int32_t>;

struct Bake {
    const char *name;
    std::int32_t button;
    std::vector<BakedChannel> order;
};

void PrintTo(const Bake &bake, std::ostream *out) { *out << bake.name; }

class BakeOrder : public WithScene, public testing::WithParamInterface<Bake> {
  protected:
    void TearDown() override {
        host::ArmCallFault(0);
        WithScene::TearDown();
    }
    // Of a bake in which this call fails; back as it was.
    std::set<BakedChannel> TracksWithout(std::int64_t call, std::string *failed) {
        host::ArmCallFault(call);
        host::PressButton(scene().tag, host::MakeId(GetParam().button));
        *failed = host::FailedCall();
        host::ArmCallFault(0);
        std::set<BakedChannel> channels;
        for (const host::Track *track : scene().camera->Tracks())
            channels.insert({host::LevelId(track->Id(), 0), host::LevelId(track->Id(), 1)});
        while (scene().document->Undo().Undo()) continue;
        scene().State().Set(kBaked, 0);
        scene().document->Undo().Flush();
        return channels;
    }
};

TEST_P(BakeOrder, IsThatOfTheTracksMadeBeforeOneFails) {
    scene().document->SetRange(0, 0);
    const std::size_t tracks = GetParam().order.size();
    std::vector<std::set<BakedChannel>> made;
    std::string failed = "none yet";
    for (std::int64_t call = 1; !failed.empty() && made.size() < tracks; ++call) {
        const std::set<BakedChannel> channels = TracksWithout(call, &failed);
        if (failed == "animation.create_track") made.push_back(channels);
    }
    ASSERT_EQ(made.size(), tracks);
    std::set<BakedChannel> expected;
    for (std::size_t i = 0; i < tracks; ++i) {
        EXPECT_EQ(made[i], expected) << "track " << i;
        expected.insert(GetParam().order[i]);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Of, BakeOrder,
    testing::Values(
        Bake{"QuickBake",
             6046,
             {{903, 1000}, {903, 1001}, {903, 1002}, {904, 1000}, {904, 1001}, {904, 1002}, {1010, 0}, {500, 0}}},
        Bake{"BruteForceBake",
             6175,
             {{1010, 0}, {500, 0}, {903, 1000}, {903, 1001}, {903, 1002}, {904, 1000}, {904, 1001}, {904, 1002}}}),
    [](const testing::TestParamInfo<Bake> &test) { return test.param.name; });

}  // namespace
