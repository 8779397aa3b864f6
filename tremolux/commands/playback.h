// A move played through the module, from its first frame on.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/value/container.h"
#include "library/direction/loop.h"
#include "library/fit/envelope.h"
#include "library/moves/played_motion.h"
#include "library/shots/embedded_host.h"
#include "library/shots/stage.h"
#include "tremolux/commands/move_options.h"

namespace tremolux {

class Playback {
  public:
    // Reads and checks everything that can be without the module; throws a Failure.
    explicit Playback(const MoveOptions &options);
    // Of this move instead of the input file's.
    Playback(const MoveOptions &options, const CameraMove &move);
    // Starts the module and sets the parameters; throws a Failure.
    void Start();
    // Plays up to the last wanted frame and calls `at_frame` after each wanted one. Throws a Failure.
    void Play(const std::function<void(std::int64_t)> &at_frame);

    // The same, and keeps the cameras of the wanted frames, the shaken one as the options direct it.
    PlayedMotion Record();

    const CameraMove &Move() const { return move_; }
    std::int64_t FirstFrame() const { return first_frame_; }  // wanted
    std::int64_t LastFrame() const { return last_frame_; }
    FrameRate Rate() const { return move_.rate; }
    // What the tag began with, once it is started: the name of a preset, those of a mix, or empty.
    const std::string &Preset() const { return applied_preset_; }
    const JoltsFound &Jolts() const { return jolts_; }
    const std::string &Input() const { return input_; }          // its file
    const std::string &Recording() const { return recording_; }  // whose shake is on the move; empty: none
    bool RestsOtherwise() const { return rests_; }               // nothing else shakes it but what settings say
    // Frames a second that its settings were carried from to the move's; 0: they are as they are.
    double PresetRate() const { return preset_rate_; }
    const std::vector<std::string> &Settings() const { return settings_; }
    const FormatOptions &Formats() const { return formats_; }
    Stage &GetStage() { return *stage_; }
    const Stage &GetStage() const { return *stage_; }

  private:
    FormatOptions formats_;
    std::string input_;
    std::vector<std::string> presets_;
    std::string then_;
    std::string applied_preset_;
    bool keeps_preset_hertz_;
    double preset_rate_ = 0;
    std::vector<std::string> settings_, keys_;
    DirectionChoices direction_;
    JoltsFound jolts_;
    Envelope envelope_;
    std::optional<LoopPlan> loop_;
    std::optional<double> made_for_;
    std::string recording_;
    bool rests_;  // the tag adds nothing but what it is told
    void ChoosePresets();
    void AddSecondCamera(const std::optional<host::Container> &own);
    void CarryHertz(double rate, host::Tag *tag);
    void PlanTheLoop(const std::string &input);
    CameraMove move_;    // the user's own
    CameraMove staged_;  // that the tag takes: with a recording on it, and run on for a loop
    std::optional<CameraMove> target_, focus_object_;
    std::int64_t first_frame_, last_frame_, last_played_;
    HostOptions host_options_;
    bool quiet_;
    std::unique_ptr<EmbeddedHost> host_;
    std::unique_ptr<Stage> stage_;  // after the host: it must go first
};

// What was played: "shot.csv, Nervous, seed 12", for pictures.
std::string CaptionOf(const Playback &playback);
// The same with rate and version, for drawings.
std::string TitleOf(const Playback &playback);

}  // namespace tremolux
