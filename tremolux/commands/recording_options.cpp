#include "tremolux/commands/recording_options.h"

#include <algorithm>
#include <utility>

#include "library/failure.h"
#include "library/formats/format.h"
#include "library/formats/numbers.h"
#include "tremolux/commands/move_options.h"
#include "tremolux/commands/option_values.h"

namespace tremolux {
namespace {

constexpr double kUsualSplit = 0.3, kLeastSplit = 0.01;  // hertz
constexpr double kMostAmount = 100, kLeastSpeed = 0.01, kMostSpeed = 100;

double AmountOf(const char *option, const std::string &text, double least, double most) {
    if (text.empty()) return 1;
    const bool is_percent = text.back() == '%';
    const std::optional<double> number = ParseNumber(is_percent ? text.substr(0, text.size() - 1) : text);
    const double amount = number ? *number / (is_percent ? 100 : 1) : -1;
    if (!(amount >= least && amount <= most))
        RefuseOption(option, text,
                     "a share from " + FormatNumber(least) + " to " + FormatNumber(most) + ", or per cent");
    return amount;
}

void RefuseWithoutFile(const RecordingChoices &choices) {
    const std::pair<const char *, bool> given[] = {{"--recording-amount", !choices.amount.empty()},
                                                   {"--recording-speed", !choices.speed.empty()},
                                                   {"--split", !choices.split.empty()},
                                                   {"--arm", !choices.arm.empty()},
                                                   {"--recording-alone", choices.is_alone}};
    for (const auto &[option, is_given] : given)
        if (is_given)
            throw Failure(kExitInput, std::string(option) + ": found no --from-recording, expected one with a file");
}

}  // namespace

CameraMove RecordingChoices::PutOnto(const CameraMove &move, const FormatOptions &formats) const {
    if (file.empty()) {
        RefuseWithoutFile(*this);
        return move;
    }
    const CameraMove recording = ReadMoveFile(file, formats);
    const double half = recording.rate.PerSecond() / 2;
    const double hertz =
        split.empty() ? std::min(kUsualSplit, half) : NumberOption("--split", split, kLeastSplit, half);
    const double reach = arm.empty() ? 0 : NumberOption("--arm", arm, -kMaxNumber, kMaxNumber);
    const TakeOptions options{AmountOf("--recording-amount", amount, 0, kMostAmount),
                              AmountOf("--recording-speed", speed, kLeastSpeed, kMostSpeed)};
    try {
        return PutOn(move, Take(recording, hertz, reach), options);
    } catch (const Failure &failure) {
        throw Failure(kExitInput, file + ": " + failure.what());
    }
}

void AddRecordingOptions(Command command, RecordingChoices *choices) {
    command.Add("--from-recording", &choices->file,
                "a recorded camera, " + KnownExtensions(FormatUse::kRead) +
                    ": its own shake is put onto the move, and the tag takes that as its input");
    command.Add("--recording-amount", &choices->amount, "of the recorded shake: 150%, or the share 1.5");
    command.Add("--recording-speed", &choices->speed, "how fast it is played: 80%, or 0.8; its amplitudes stay");
    command.Add("--split", &choices->split,
                "hertz: what is quicker in the recording is its shake (else 0.3); at most half its frame rate");
    command.Add(
        "--arm", &choices->arm,
        "scene units that the camera is held in front of what it turns about: recordings that know no positions "
        "sway with it");
    command.Add("--recording-alone", &choices->is_alone,
                "the tag adds nothing of its own but what --set and --key say");
}

}  // namespace tremolux
