// What a handle of a shot stands for, and how calls come to it.
#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/scene/undo.h"
#include "library/direction/direct.h"
#include "library/interface/guard.h"
#include "library/runtime/runtime.h"
#include "library/shots/stage.h"

namespace tremolux {

enum class PlayState { kRests, kPlays, kIsCancelled };

struct ShotTarget : HandleTarget {
    static constexpr const char *kName = "shot";
    static constexpr bool kIsWaitedFor = false;

    explicit ShotTarget(const CameraMove &given);
    ~ShotTarget() override;
    host::Tag *Tag() const { return &stage->CameraTag(); }

    const CameraMove move;
    std::vector<CameraSample> played;  // whole; none before the first play
    std::optional<Direction> direction;
    CameraMove result;  // what was played, as it is directed
    std::optional<Stage> stage;
    std::atomic<PlayState> state = PlayState::kRests;
    std::string label;  // that a caller was given last
};

// Brings the result to what is played and how it is directed.
void Direct(ShotTarget *shot);
// "0 to 89"
std::string FramesOf(const CameraMove &move);
// The frame's place in the move; throws a Refusal for one that is not in it.
std::size_t PlaceOf(const ShotTarget &shot, std::int64_t frame);
// Throw a Refusal: no parameter has this number, or it is none of the kind that is expected.
const Parameter &ParameterOf(std::int32_t id);
[[noreturn]] void RefuseKind(const Parameter &parameter, const char *expected);

// One at a time for the whole process, as a user's hands are.
template <typename Work>
tremolux_status ByHand(tremolux_shot shot, Work work) {
    return WithHandle<ShotTarget>(shot, [&](ShotTarget &target) {
        const Runtime::Turn turn(target.stage->Scene());
        work(target);
    });
}

// The same as one step of the shot's undo, whatever steps the module makes of it; what fails leaves neither a step nor a
// change. `kept`: what is stored of the tag, a host::UndoType.
template <typename Work>
tremolux_status InOneStep(tremolux_shot shot, std::int32_t kept, Work work) {
    return ByHand(shot, [&](ShotTarget &target) {
        host::UndoStack &undo = target.stage->Scene()->Undo();
        undo.Start();
        try {
            undo.Add(kept, target.Tag());
            work(target);
        } catch (...) {
            undo.TakeBack();
            throw;
        }
        undo.End();
    });
}

}  // namespace tremolux
