// Shots from the first frame to the last: played, looked at, measured.
#include "library/formats/format.h"
#include "library/formats/numbers.h"
#include "library/interface/buffer.h"
#include "library/interface/move.h"
#include "library/interface/shot.h"
#include "library/measures/motion.h"
#include "library/measures/strayed.h"
#include "library/moves/between_frames.h"
#include "library/shots/second_camera.h"
#include "library/trace/layers.h"

namespace tremolux {
namespace {

const CameraMove &ResultOf(const ShotTarget &shot) {
    if (!shot.result.samples.empty()) return shot.result;
    throw Refusal(TREMOLUX_INPUT, "found a shot that was not played, expected a played one");
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
    if (IsPair(*shot->Tag()) || shot->stage->SecondTag() != nullptr) {
        const Runtime::Turn turn(shot->stage->Scene());
        BringSecond(&*shot->stage);
    }
    for (std::size_t done = 0; done < frames;) {
        shot->stage->PlayFrame(shot->move.first_frame + static_cast<std::int64_t>(start + done));
        samples.push_back(shot->stage->Output());
        ++done;
        const bool is_refused = progress != nullptr && progress(done, frames, user) != 0;
        if (is_refused || shot->state == PlayState::kIsCancelled)
            throw Refusal(TREMOLUX_CANCELLED,
                          "cancelled after " + std::to_string(done) + " of " + std::to_string(frames) + " frames");
    }
    shot->played = std::move(samples);
    Direct(shot);
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

tremolux_status tremolux_shot_play(tremolux_shot shot, tremolux_progress progress, void *user) {
    return WithHandle<ShotTarget>(shot, [&](ShotTarget &target) { Play(&target, {}, progress, user); });
}

tremolux_status tremolux_shot_play_from(tremolux_shot shot, int64_t frame, tremolux_progress progress, void *user) {
    return WithHandle<ShotTarget>(shot, [&](ShotTarget &target) {
        ResultOf(target);
        std::vector<CameraSample> before = target.played;
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

tremolux_status tremolux_shot_trace(tremolux_shot shot, tremolux_progress progress, void *user, tremolux_buffer *buffer) {
    return WithHandle<ShotTarget>(shot, [&](ShotTarget &target) {
        RequirePointer(buffer, "buffer");
        std::string text = "[";
        for (std::size_t i = 0; i < target.move.samples.size(); ++i) {
            target.stage->PlayFrame(target.move.first_frame + static_cast<std::int64_t>(i));
            if (i > 0) text += ',';
            text += Layers(*target.stage).dump();
            if (progress != nullptr && progress(i + 1, target.move.samples.size(), user) != 0)
                throw Refusal(TREMOLUX_CANCELLED, "cancelled at frame " + std::to_string(i));
        }
        *buffer = NewBuffer(text + "]");
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
