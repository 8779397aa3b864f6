#include "tremolux/commands/judging_options.h"

#include "library/fit/against.h"
#include "library/fit/fit.h"
#include "tremolux/commands/move_options.h"
#include "tremolux/commands/option_values.h"

namespace tremolux {
namespace {

constexpr double kLongestReadout = 1000, kMillisecond = 0.001;

}  // namespace

Judgement JudgingChoices::Read(const FormatOptions &formats) {
    Judgement judgement;
    judgement.width = formats.width;
    if (!readout.empty()) judgement.readout = NumberOption("--readout", readout, 0, kLongestReadout);
    judgement.recording = against;
    if (against.empty()) return judgement;
    recording_ = ReadMoveFile(against, formats);
    CutIntoParts(recording_, against);
    return judgement;
}

void JudgingChoices::Judge(const PlayedMotion &motion, Judgement *judgement) const {
    if (!readout.empty())
        judgement->shutter = MeasureRollingShutter(motion.output, judgement->readout * kMillisecond, judgement->width);
    if (!against.empty()) judgement->distance = DistanceFromRecording(motion, recording_, against);
}

void AddJudgingOptions(Command command, JudgingChoices *choices) {
    command.Add("--readout", &choices->readout,
                "milliseconds that a sensor takes to be read line by line: how much the shake leans and stretches the "
                "picture, in pixels");
    command.Add("--against", &choices->against,
                "a recorded camera, " + KnownExtensions(FormatUse::kRead) +
                    ": how far the shake is from its, as D of tremolux fit");
}

}  // namespace tremolux
