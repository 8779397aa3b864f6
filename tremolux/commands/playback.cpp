#include "tremolux/commands/playback.h"

#include <algorithm>
#include <cstdio>

#include "generated/module_ids.h"
#include "generated/module_version.h"
#include "host/files/folders.h"
#include "host/files/safe_write.h"
#include "host/value/descid.h"
#include "library/events/take_events.h"
#include "library/failure.h"
#include "library/formats/source_text.h"
#include "library/frame_rates/keep_hz.h"
#include "library/moves/cut.h"
#include "library/parameters/setting_keys.h"
#include "library/parameters/settings.h"
#include "library/presets/catalog.h"
#include "library/presets/chosen_preset.h"
#include "library/presets/facts.h"
#include "library/presets/mix.h"
#include "library/presets/pair.h"
#include "library/shots/jolt_watch.h"
#include "library/shots/rest.h"
#include "library/shots/second_camera.h"
#include "tremolux/commands/aim_point.h"
#include "tremolux/process/interrupt.h"
#include "tremolux/process/progress.h"

namespace tremolux {
namespace {

Envelope ReadEnvelopeFile(const std::string &name) {
    std::string bytes, reason;
    if (!host::ReadFile(std::filesystem::u8path(name), &bytes, &reason)) throw Failure(kExitInput, reason);
    return ReadEnvelope(name, bytes);
}

}  // namespace

Playback::Playback(const MoveOptions &options)
    : Playback(options, ReadMoveFile(options.input, options.ReadOptions())) {}

Playback::Playback(const MoveOptions &options, const CameraMove &move)
    : formats_(options.formats.Options()),
      input_(options.input),
      presets_(options.presets),
      then_(options.then),
      keeps_preset_hertz_(options.keep_hz.empty() && !options.no_keep_hz),
      settings_(options.AllSettings()),
      keys_(options.keys),
      direction_(options.direction),
      made_for_(options.MadeFor()),
      recording_(options.recording.file),
      rests_(options.recording.is_alone),
      host_options_(options.host),
      quiet_(options.quiet) {
    const auto range = options.FrameRange();
    move_ = move;
    if (!options.target.empty()) target_ = ReadAimPoint("--target", options.target.front(), move_, formats_);
    if (!options.focus_object.empty())
        focus_object_ = ReadAimPoint("--focus-object", options.focus_object.front(), move_, formats_);
    first_frame_ = range ? range->first : move_.first_frame;
    last_frame_ = range ? range->second : move_.LastFrame();
    if (first_frame_ < move_.first_frame || last_frame_ > move_.LastFrame()) {
        throw Failure(kExitInput, "--frames: found " + Quoted(options.frames) + ", expected frames of the move, " +
                                      std::to_string(move_.first_frame) + " to " + std::to_string(move_.LastFrame()));
    }
    direction_.Options(move_);
    jolts_ = ReadJolts(options.jolts, move_, settings_);
    if (!options.envelope.empty()) envelope_ = ReadEnvelopeFile(options.envelope);
    last_played_ = last_frame_;
    if (direction_.loop) PlanTheLoop(options.input);
    staged_ = options.recording.PutOnto(loop_ ? staged_ : move_, formats_);
}

void Playback::PlanTheLoop(const std::string &input) {
    const CameraMove round = CutMove(move_, first_frame_, last_frame_);
    loop_ = PlanLoop(round);
    if (!loop_) {
        throw Failure(kExitInput, input +
                                      ": found a last frame that does not flow into the first, expected a camera that "
                                      "stands still or a move that loops, for --loop");
    }
    const CameraMove longer = RunOn(round, *loop_);
    staged_ = move_;
    staged_.samples.resize(static_cast<std::size_t>(first_frame_ - move_.first_frame));
    staged_.samples.insert(staged_.samples.end(), longer.samples.begin(), longer.samples.end());
    last_played_ = staged_.LastFrame();
}

void Playback::Start() {
    host_ = std::make_unique<EmbeddedHost>(host_options_.ModuleFile(), host_options_.Home());
    stage_ = std::make_unique<Stage>(staged_);
    host::Tag *tag = &stage_->CameraTag();
    if (presets_.empty()) {
        applied_preset_ = tag->Data().Text(ids::kAppliedPresetName);
        AddSecondCamera(std::nullopt);
    } else {
        ChoosePresets();
    }
    if (target_) stage_->AddTarget(*target_);
    if (focus_object_) stage_->AddFocusObject(*focus_object_);
    if (rests_) ComeToRest(tag);
    const std::int64_t presets_seed = tag->Data().Whole(ids::kSeed);
    ApplySettings(settings_, Rate().Whole(), tag);
    if (stage_->SecondTag() != nullptr) SeedSecond(*tag, presets_seed, stage_->SecondTag());
    TakeEvents(jolts_.frames, Rate().Whole(), tag);
    if (!envelope_.empty()) ApplyEnvelope(envelope_, staged_, tag);
    ApplyKeys(keys_, Rate().Whole(), tag);
    if (!made_for_) return;
    for (const std::string &note : KeepHertz(*made_for_, Rate().PerSecond(), tag))
        std::fprintf(stderr, "--keep-hz: %s\n", note.c_str());
    if (stage_->SecondTag() != nullptr) KeepHertz(*made_for_, Rate().PerSecond(), stage_->SecondTag());
}

void Playback::ChoosePresets() {
    host::Tag *tag = &stage_->CameraTag();
    if (presets_.size() == 1) {
        if (const std::optional<ChosenPreset> opened = OpenPresetFile(presets_.front(), tag)) {
            applied_preset_ = opened->name;
            AddSecondCamera(opened->second);
            return;
        }
    }
    std::optional<host::Container> second;
    const std::vector<PresetShare> mix = ReadPresetShares(ReadCatalog(tag), presets_, "--preset");
    ChooseMix(mix, tag);
    applied_preset_ = MixName(mix);
    if (mix.size() == 1) second = SecondOfEntry(mix.front().preset, host_->ModuleFile(), *tag);
    CarryHertz(RateOf(mix, ReadPresetFacts(host_->ModuleFile())), tag);
    AddSecondCamera(second);
}

void Playback::CarryHertz(double rate, host::Tag *tag) {
    if (!keeps_preset_hertz_ || rate == 0 || rate == Rate().PerSecond()) return;
    preset_rate_ = rate;
    KeepHertz(rate, Rate().PerSecond(), tag);
}

void Playback::AddSecondCamera(const std::optional<host::Container> &own) {
    if (then_.empty() && !own) return;
    host::Tag *tag = stage_->AddSecondCamera();
    if (then_.empty()) {
        ApplyPresetValues(*own, tag);
        CarryHertz(preset_rate_, tag);
    } else {
        const ChosenPreset then = ChooseNamedPreset(then_, "--then", host_->ModuleFile(), tag);
        applied_preset_ += (applied_preset_.empty() ? "" : ", then ") + then.name;
        CarryHertz(then.made_for, tag);
    }
    FollowExactly(tag);
}

void Playback::Play(const std::function<void(std::int64_t)> &at_frame) {
    Progress progress(last_played_ - move_.first_frame + 1, quiet_);
    for (std::int64_t frame = move_.first_frame; frame <= last_played_; ++frame) {
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
    motion.output = motion.input;
    std::vector<CameraSample> played;
    JoltWatch jolts(stage_->CameraTag());
    Play([&](std::int64_t frame) {
        played.push_back(stage_->Output());
        if (jolts.Hit() && frame <= last_frame_) motion.jolts.push_back(frame);
    });
    motion.output.samples = loop_ ? Looped(motion.input, played, *loop_) : std::move(played);
    if (!direction_.IsNone()) motion.output = Directed(motion.input, motion.output, direction_.Options(move_));
    return motion;
}

std::string TitleOf(const Playback &playback) {
    return CaptionOf(playback) + ", " + FrameRateWords(playback.Rate()) + ", TremoluxCam " + TREMOLUX_VERSION_TEXT;
}

std::string CaptionOf(const Playback &playback) {
    std::string caption = std::filesystem::u8path(playback.Input()).filename().u8string();
    if (!playback.Recording().empty())
        caption += ", shake of " + std::filesystem::u8path(playback.Recording()).filename().u8string();
    if (playback.RestsOtherwise()) return caption;
    if (!playback.Preset().empty()) caption += ", " + playback.Preset();
    return caption + ", seed " + std::to_string(playback.GetStage().CameraTag().Data().Whole(ids::kSeed));
}

}  // namespace tremolux
