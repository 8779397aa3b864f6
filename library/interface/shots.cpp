#include <atomic>
#include <cmath>
#include <memory>
#include <optional>

#include "host/scene/parameters.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"
#include "host/value/time.h"
#include "library/formats/format.h"
#include "library/formats/numbers.h"
#include "library/interface/buffer.h"
#include "library/interface/guard.h"
#include "library/interface/move.h"
#include "library/measures/motion.h"
#include "library/measures/strayed.h"
#include "library/moves/between_frames.h"
#include "library/parameters/settings.h"
#include "library/runtime/runtime.h"
#include "library/shots/keys.h"
#include "library/shots/stage.h"
#include "library/trace/layers.h"

namespace tremolux {
namespace {

enum class PlayState { kRests, kPlays, kIsCancelled };

struct ShotTarget : HandleTarget {
    static constexpr const char *kName = "shot";
    static constexpr bool kIsWaitedFor = false;

    explicit ShotTarget(const CameraMove &given) : move(given), result(given) {
        result.samples.clear();
        const Runtime::Turn turn;
        stage.emplace(move);
    }
    ~ShotTarget() override {
        const Runtime::Turn turn;
        stage.reset();
    }
    host::Tag *Tag() const { return &stage->CameraTag(); }

    const CameraMove move;
    CameraMove result;  // of the last whole play; without samples before one
    std::optional<Stage> stage;
    std::atomic<PlayState> state = PlayState::kRests;
    bool has_target = false, has_focus_object = false;
};

const Parameter &ParameterOf(std::int32_t id) {
    for (const Parameter &parameter : Runtime::Get().Parameters())
        if (parameter.id == id) return parameter;
    RefuseInput("parameter", std::to_string(id), "a parameter's number");
}

[[noreturn]] void RefuseKind(const Parameter &parameter, const char *expected) {
    RefuseInput("parameter", std::to_string(parameter.id) + " '" + parameter.label + "'", expected);
}

const Parameter &NumberOf(std::int32_t id) {
    const Parameter &parameter = ParameterOf(id);
    switch (parameter.kind) {
        case ParameterKind::kReal:
        case ParameterKind::kBool:
        case ParameterKind::kTime:
        case ParameterKind::kChoice:
            return parameter;
        default:
            RefuseKind(parameter, "one that holds a number");
    }
}

// Throws a Refusal for a number that the setting cannot have.
host::Data StoredValue(const Parameter &parameter, double value, int frames_per_second) {
    const auto refuse = [&](const std::string &expected) {
        RefuseInput("'" + parameter.label + "' (" + std::to_string(parameter.id) + ")", FormatNumber(value), expected);
    };
    if (!(std::fabs(value) <= kMaxNumber)) refuse("a number up to 1e12");
    const bool is_whole = value == std::floor(value);
    const double stored = parameter.kind == ParameterKind::kTime ? value / frames_per_second : value;
    if (parameter.minimum && stored < *parameter.minimum) refuse("at least " + FormatNumber(*parameter.minimum));
    if (parameter.maximum && stored > *parameter.maximum) refuse("at most " + FormatNumber(*parameter.maximum));
    switch (parameter.kind) {
        case ParameterKind::kReal:
            return {value};
        case ParameterKind::kTime:
            if (!is_whole || std::fabs(value) > kMaxFrameNumber) refuse("whole frames");
            return {host::MakeTime(value, frames_per_second)};
        case ParameterKind::kBool:
            if (value != 0 && value != 1) refuse("0 or 1");
            return {static_cast<std::int32_t>(value)};
        default:
            for (const auto &choice : parameter.choices)
                if (choice.first == value) return {choice.first};
            refuse("the number of one of its entries");
            return {};
    }
}

std::string FramesOf(const CameraMove &move) {
    return std::to_string(move.first_frame) + " to " + std::to_string(move.LastFrame());
}

void AddPoints(ShotTarget *shot, tremolux_move points, bool *is_there, void (Stage::*add)(const CameraMove &)) {
    const std::shared_ptr<MoveTarget> target = RequireTarget<MoveTarget>(points);
    const CameraMove &move = target->move;
    if (*is_there) RefuseInput("points", "a second one", "one for each shot");
    if (move.samples.size() > 1 &&
        (move.first_frame > shot->move.first_frame || move.LastFrame() < shot->move.LastFrame())) {
        RefuseInput("points", "frames " + FramesOf(move), FramesOf(shot->move) + " of the shot's move");
    }
    const Runtime::Turn turn(shot->stage->Scene());
    ((*shot->stage).*add)(move);
    *is_there = true;
}

const CameraMove &ResultOf(const ShotTarget &shot) {
    if (!shot.result.samples.empty()) return shot.result;
    throw Refusal(TREMOLUX_INPUT, "found a shot that was not played, expected a played one");
}

// The frame's place in the move; throws a Refusal for one that is not in it.
std::size_t PlaceOf(const ShotTarget &shot, std::int64_t frame) {
    if (frame >= shot.move.first_frame && frame <= shot.move.LastFrame())
        return static_cast<std::size_t>(frame - shot.move.first_frame);
    RefuseInput("frame", std::to_string(frame), FramesOf(shot.move));
}

// Behind the samples that are given.
void Play(ShotTarget *shot, std::vector<CameraSample> samples, tremolux_progress progress, void *user) {
    struct Playing {
        explicit Playing(ShotTarget *given) : shot(given) { shot->state = PlayState::kPlays; }
        ~Playing() { shot->state = PlayState::kRests; }
        ShotTarget *shot;
    } const playing(shot);
    const std::size_t start = samples.size(), frames = shot->move.samples.size() - start;
    samples.reserve(start + frames);
    for (std::size_t done = 0; done < frames;) {
        shot->stage->PlayFrame(shot->move.first_frame + static_cast<std::int64_t>(start + done));
        samples.push_back(shot->stage->Output());
        ++done;
        const bool is_refused = progress != nullptr && progress(done, frames, user) != 0;
        if (is_refused || shot->state == PlayState::kIsCancelled)
            throw Refusal(TREMOLUX_CANCELLED,
                          "cancelled after " + std::to_string(done) + " of " + std::to_string(frames) + " frames");
    }
    shot->result.samples = std::move(samples);
}

// One at a time for the whole process, as a user's hands are.
template <typename Work>
tremolux_status ByHand(tremolux_shot shot, Work work) {
    return WithHandle<ShotTarget>(shot, [&](ShotTarget &target) {
        const Runtime::Turn turn(target.stage->Scene());
        work(target);
    });
}

}  // namespace
}  // namespace tremolux

using namespace tremolux;

tremolux_status tremolux_shot_new(tremolux_move move, tremolux_shot *shot) {
    return WithHandle<MoveTarget>(move, [&](const MoveTarget &target) {
        RequirePointer(shot, "shot");
        *shot = static_cast<tremolux_shot>(NewHandle(std::make_shared<ShotTarget>(target.move)));
    });
}

tremolux_status tremolux_shot_free(tremolux_shot shot) { return FreeHandle<ShotTarget>(shot); }

tremolux_status tremolux_shot_set(tremolux_shot shot, int32_t parameter, double value) {
    return ByHand(shot, [&](ShotTarget &target) {
        const Parameter &known = NumberOf(parameter);
        const host::Data data = StoredValue(known, value, target.move.rate.Whole());
        if (!target.Tag()->SetParameter(host::MakeId(parameter), data, host::kSetUserInteraction))
            throw Refusal(TREMOLUX_MODULE, "the module refuses a value of parameter " + std::to_string(parameter));
    });
}

tremolux_status tremolux_shot_get(tremolux_shot shot, int32_t parameter, double *value) {
    return ByHand(shot, [&](ShotTarget &target) {
        RequirePointer(value, "value");
        const Parameter &known = NumberOf(parameter);
        host::Data data;
        if (!target.Tag()->GetParameter(host::MakeId(parameter), &data))
            throw Refusal(TREMOLUX_MODULE, "the module has no value of parameter " + std::to_string(parameter));
        *value = known.kind == ParameterKind::kTime ? host::Seconds(data.GetTime()) * target.move.rate.Whole()
                                                    : data.Real();
    });
}

tremolux_status tremolux_shot_set_text(tremolux_shot shot, const char *setting) {
    return ByHand(shot, [&](ShotTarget &target) {
        RequirePointer(setting, "setting");
        ApplySettings({setting}, target.move.rate.Whole(), target.Tag());
    });
}

tremolux_status tremolux_shot_is_enabled(tremolux_shot shot, int32_t parameter, int32_t *enabled) {
    return ByHand(shot, [&](ShotTarget &target) {
        RequirePointer(enabled, "enabled");
        const TableDescID id = host::MakeId(ParameterOf(parameter).id);
        host::DescribedParameter described;
        const bool is_described = host::FindDescribed(target.Tag(), id, &described);
        *enabled = is_described && host::IsControlEnabled(target.Tag(), id, described.settings) ? 1 : 0;
    });
}

tremolux_status tremolux_shot_apply_preset(tremolux_shot shot, const char *preset) {
    return ByHand(shot, [&](ShotTarget &target) {
        RequirePointer(preset, "preset");
        ChoosePreset(FindPreset(Runtime::Get().Presets(), preset, "preset"), target.Tag());
    });
}

tremolux_status tremolux_shot_press(tremolux_shot shot, int32_t button) {
    return ByHand(shot, [&](ShotTarget &target) {
        const Parameter &known = ParameterOf(button);
        if (known.kind != ParameterKind::kButton) RefuseKind(known, "a button");
        if (!host::PressButton(target.Tag(), host::MakeId(button)))
            RefuseKind(known, "a button that can be pressed as things stand");
    });
}

tremolux_status tremolux_shot_set_target(tremolux_shot shot, tremolux_move points) {
    return WithHandle<ShotTarget>(
        shot, [&](ShotTarget &target) { AddPoints(&target, points, &target.has_target, &Stage::AddTarget); });
}

tremolux_status tremolux_shot_set_focus_object(tremolux_shot shot, tremolux_move points) {
    return WithHandle<ShotTarget>(shot, [&](ShotTarget &target) {
        AddPoints(&target, points, &target.has_focus_object, &Stage::AddFocusObject);
    });
}

tremolux_status tremolux_shot_play(tremolux_shot shot, tremolux_progress progress, void *user) {
    return WithHandle<ShotTarget>(shot, [&](ShotTarget &target) { Play(&target, {}, progress, user); });
}

tremolux_status tremolux_shot_play_from(tremolux_shot shot, int64_t frame, tremolux_progress progress, void *user) {
    return WithHandle<ShotTarget>(shot, [&](ShotTarget &target) {
        std::vector<CameraSample> before = ResultOf(target).samples;
        before.resize(PlaceOf(target, frame));
        Play(&target, std::move(before), progress, user);
    });
}

tremolux_status tremolux_shot_cancel(tremolux_shot shot) {
    return Guarded(&ThreadError(), [&] {
        const std::shared_ptr<ShotTarget> target = RequireTarget<ShotTarget>(shot);
        // In one step: a play that begins after this one has ended is another.
        PlayState expected = PlayState::kPlays;
        target->state.compare_exchange_strong(expected, PlayState::kIsCancelled);
    });
}

tremolux_status tremolux_shot_numbers(tremolux_shot shot, double *numbers, size_t count) {
    return WithHandle<ShotTarget>(
        shot, [&](const ShotTarget &target) { WriteNumbers(ResultOf(target).samples, numbers, count); });
}

tremolux_status tremolux_shot_numbers_at(tremolux_shot shot, double frame, double *numbers) {
    return WithHandle<ShotTarget>(shot, [&](const ShotTarget &target) {
        const CameraMove &result = ResultOf(target);
        if (!(frame >= static_cast<double>(result.first_frame) && frame <= static_cast<double>(result.LastFrame())))
            RefuseInput("frame", FormatNumber(frame), FramesOf(result));
        WriteNumbers({SampleBetween(result, frame)}, numbers, TREMOLUX_NUMBERS_PER_FRAME);
    });
}

tremolux_status tremolux_shot_result(tremolux_shot shot, tremolux_move *move) {
    return WithHandle<ShotTarget>(shot, [&](const ShotTarget &target) {
        RequirePointer(move, "move");
        *move = NewMove(ResultOf(target));
    });
}

tremolux_status tremolux_shot_layers(tremolux_shot shot, int64_t frame, tremolux_buffer *buffer) {
    return WithHandle<ShotTarget>(shot, [&](ShotTarget &target) {
        RequirePointer(buffer, "buffer");
        PlaceOf(target, frame);
        for (std::int64_t played = target.move.first_frame; played <= frame; ++played) target.stage->PlayFrame(played);
        *buffer = NewBuffer(Layers(*target.stage).dump());
    });
}

tremolux_status tremolux_shot_measure(tremolux_shot shot, tremolux_measures *measures) {
    return WithHandle<ShotTarget>(shot, [&](const ShotTarget &target) {
        RequireStruct(measures, "measures");
        const CameraMove &result = ResultOf(target);
        const Strayed strayed = MeasureStrayed(target.move, result);
        const AddedMotion added = MeasureAddedMotion(target.move, result, FormatOptions().width);
        *measures = {sizeof(*measures),
                     strayed.position.rms,
                     strayed.position.peak,
                     strayed.angle.rms * kRadiansPerDegree,
                     strayed.angle.peak * kRadiansPerDegree,
                     strayed.position.peak_frame,
                     strayed.angle.peak_frame,
                     added.sway,
                     added.roll * kRadiansPerDegree};
    });
}

tremolux_status tremolux_shot_key(tremolux_shot shot, int32_t parameter, int64_t frame, double value,
                                  int32_t interpolation) {
    return ByHand(shot, [&](ShotTarget &target) {
        const Parameter &known = NumberOf(parameter);
        const int fps = target.move.rate.Whole();
        if (known.kind != ParameterKind::kReal && known.kind != ParameterKind::kBool)
            RefuseKind(known, "a number or a switch");
        const double stored = StoredValue(known, value, fps).Real();
        PlaceOf(target, frame);
        if (interpolation < TREMOLUX_SMOOTH || interpolation > TREMOLUX_HOLD)
            RefuseInput("interpolation", std::to_string(interpolation), "1 to 3");
        KeyNumber(target.Tag(), host::MakeId(parameter), host::MakeTime(static_cast<double>(frame), fps), stored,
                  interpolation);
    });
}

tremolux_status tremolux_shot_bake(tremolux_shot shot, int32_t kind) {
    return ByHand(shot, [&](ShotTarget &target) {
        if (kind == TREMOLUX_BAKE_QUICKLY)
            target.stage->BakeQuickly();
        else if (kind == TREMOLUX_BAKE_BY_BRUTE_FORCE)
            target.stage->BakeByBruteForce();
        else
            RefuseInput("kind", std::to_string(kind), "1 or 2");
    });
}
