#include "tremolux/commands/playback.h"

#include <cstdio>

#include "generated/module_ids.h"
#include "library/failure.h"
#include "library/formats/source_text.h"
#include "library/frame_rates/keep_hz.h"
#include "library/moves/cut.h"
#include "library/parameters/settings.h"
#include "library/presets/catalog.h"
#include "library/shots/jolt_watch.h"
#include "tremolux/commands/aim_point.h"
#include "tremolux/process/interrupt.h"
#include "tremolux/process/progress.h"

namespace tremolux {
Playback::Playback(const MoveOptions &options)
    : Playback(options, ReadMoveFile(options.input, options.ReadOptions())) {}

Playback::Playback(const MoveOptions &options, const CameraMove &move)
    : formats_(options.formats.Options()),
      preset_(options.preset),
      settings_(options.AllSettings()),
      made_for_(options.MadeFor()),
      host_options_(options.host),
      quiet_(options.quiet) {
    const auto range = options.FrameRange();
    move_ = move;
    if (!options.target.empty()) target_ = ReadAimPoint("--target", options.target.front(), move_, formats_);
    if (!options.focus_object.empty())
        focus_object_ = ReadAimPoint("--focus-object", options.focus_object.front(), move_, formats_);
    first_frame_ = range ? range->first : move_.first_frame;
    last_frame_ = range ? range->second : move_.LastFrame();
    if (first_frame_ >= move_.first_frame && last_frame_ <= move_.LastFrame()) return;
    throw Failure(kExitInput, "--frames: found " + Quoted(options.frames) + ", expected frames of the move, " +
                                  std::to_string(move_.first_frame) + " to " + std::to_string(move_.LastFrame()));
}

void Playback::Start() {
    host_ = std::make_unique<EmbeddedHost>(host_options_.ModuleFile(), host_options_.Home());
    stage_ = std::make_unique<Stage>(move_);
    host::Tag *tag = &stage_->CameraTag();
    if (!preset_.empty()) ChoosePreset(FindPreset(ReadCatalog(tag), preset_, "--preset"), tag);
    applied_preset_ = tag->Data().Text(ids::kAppliedPresetName);
    if (target_) stage_->AddTarget(*target_);
    if (focus_object_) stage_->AddFocusObject(*focus_object_);
    ApplySettings(settings_, Rate().Whole(), tag);
    if (!made_for_) return;
    for (const std::string &note : KeepHertz(*made_for_, Rate().PerSecond(), tag))
        std::fprintf(stderr, "--keep-hz: %s\n", note.c_str());
}

void Playback::Play(const std::function<void(std::int64_t)> &at_frame) {
    Progress progress(last_frame_ - move_.first_frame + 1, quiet_);
    for (std::int64_t frame = move_.first_frame; frame <= last_frame_; ++frame) {
        CheckForInterrupt();
        stage_->PlayFrame(frame);
        if (frame >= first_frame_) at_frame(frame);
        progress.Done(frame - move_.first_frame + 1);
    }
    CheckForInterrupt();
}

PlayedMotion Playback::Record() {
    PlayedMotion motion;
    motion.input = CutMove(move_, first_frame_, last_frame_);
    motion.input.samples.clear();
    motion.output = motion.input;
    JoltWatch jolts(stage_->CameraTag());
    Play([&](std::int64_t frame) {
        motion.input.samples.push_back(stage_->Input());
        motion.output.samples.push_back(stage_->Output());
        if (jolts.Hit()) motion.jolts.push_back(frame);
    });
    return motion;
}

}  // namespace tremolux
