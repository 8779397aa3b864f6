#include "library/shots/second_camera.h"

#include "generated/module_ids.h"
#include "host/value/descid.h"
#include "library/frame_rates/keep_hz.h"
#include "library/parameters/name_seed.h"
#include "library/presets/pair.h"

namespace tremolux {
namespace {

// Real, beside the second camera's settings: frames a second that they are to be carried from.
constexpr std::int32_t kMadeFor = 3010;
// Container, of a second camera's tag: the settings that it was set up by. To carry them takes ten times a play.
constexpr std::int32_t kBrought = 3011;

host::Container Applied(const host::Tag &tag) {
    const host::Data *applied = tag.Data().Find(ids::kReferencePreset);
    return applied != nullptr && applied->GetContainer() != nullptr ? *applied->GetContainer() : host::Container();
}

void WriteApplied(const host::Container &preset, host::Tag *tag) {
    tag->Data().Set(ids::kReferencePreset, host::Data(preset));
}

void SetUpSecond(const host::Container &settings, double rate, host::Tag *tag) {
    ApplyPresetValues(settings, tag);
    const double made_for = settings.Real(kMadeFor);
    if (made_for > 0) KeepHertz(made_for, rate, tag);
    FollowExactly(tag);
    tag->Data().Set(kBrought, host::Data(settings));
}

// What is done meanwhile is no change of the user's.
class NotUndone {
  public:
    explicit NotUndone(host::Document *document) : undo_(document->Undo()) { undo_.Start(); }
    ~NotUndone() { undo_.Drop(); }
    NotUndone(const NotUndone &) = delete;
    NotUndone &operator=(const NotUndone &) = delete;

  private:
    host::UndoStack &undo_;
};

}  // namespace

void SeedSecond(const host::Tag &first, std::int64_t presets_seed, host::Tag *second) {
    const std::int64_t seeds = kMaxSeed + 1, first_seed = first.Data().Whole(ids::kSeed);
    std::int64_t seed = (second->Data().Whole(ids::kSeed) + first_seed - presets_seed) % seeds;
    if (seed < 0) seed += seeds;
    if (seed == first_seed) seed = (seed + seeds / 2) % seeds;
    second->SetParameter(host::MakeId(ids::kSeed), host::Data(static_cast<std::int32_t>(seed)));
}

bool IsPair(const host::Tag &tag) { return SecondOf(Applied(tag)).has_value(); }

void ForgetSecond(host::Tag *tag) {
    host::Container preset = Applied(*tag);
    preset.Remove(ids::kPresetSecond);
    WriteApplied(preset, tag);
}

void CarrySecond(host::Tag *tag, double made_for) {
    const host::Container preset = Applied(*tag);
    std::optional<host::Container> second = SecondOf(preset);
    if (!second) return;
    second->Set(kMadeFor, host::Data(made_for));
    WriteApplied(WithSecond(preset, *second), tag);
}

void BringSecond(Stage *stage) {
    const NotUndone not_undone(stage->Scene());
    const host::Tag &first = stage->CameraTag();
    const host::Container preset = Applied(first);
    const std::optional<host::Container> second = SecondOf(preset);
    if (!second) {
        stage->RemoveSecondCamera();
        return;
    }
    host::Tag *tag = stage->SecondTag() != nullptr ? stage->SecondTag() : stage->AddSecondCamera();
    const host::Data *brought = tag->Data().Find(kBrought);
    if (brought == nullptr || !(*brought->GetContainer() == *second)) SetUpSecond(*second, stage->Rate().PerSecond(), tag);
    // From the preset's own, whatever take was played before.
    tag->SetParameter(host::MakeId(ids::kSeed), host::Data(second->Whole(ids::kSeed)));
    SeedSecond(first, preset.Whole(ids::kSeed), tag);
}

}  // namespace tremolux
