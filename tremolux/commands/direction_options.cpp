#include "tremolux/commands/direction_options.h"

#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "tremolux/commands/option_values.h"

namespace tremolux {
namespace {

struct ChannelName {
    const char *name;
    bool Direction::*channel;
};
constexpr ChannelName kChannelNames[] = {
    {"rotation", &Direction::rotation}, {"position", &Direction::position}, {"lens", &Direction::lens}};

std::int64_t FrameOption(const char *option, const std::string &text) {
    return WholeOption(option, text, -kMaxFrameNumber, kMaxFrameNumber);
}

std::int64_t LengthOption(const char *option, const std::string &text) {
    return text.empty() ? 0 : WholeOption(option, text, 0, kMaxFrameNumber);
}

Fade FadeOf(const DirectionChoices &choices, const CameraMove &move) {
    Fade fade;
    if (!choices.from.empty()) fade.from = FrameOption("--from", choices.from);
    if (!choices.until.empty()) fade.until = FrameOption("--until", choices.until);
    fade.fade_in = LengthOption("--fade-in", choices.fade_in);
    fade.fade_out = LengthOption("--fade-out", choices.fade_out);
    if (!choices.fade_in.empty() && !fade.from) fade.from = move.first_frame;
    if (!choices.fade_out.empty() && !fade.until) fade.until = move.LastFrame();
    if (fade.from && fade.until && *fade.from > *fade.until)
        RefuseOption("--until", std::to_string(*fade.until), "a frame from " + std::to_string(*fade.from) + " on");
    if (!choices.mix.empty()) fade.mix = ShareOption("--mix", choices.mix);
    return fade;
}

void TakeOnly(const std::string &text, Direction *direction) {
    for (const ChannelName &channel : kChannelNames) direction->*channel.channel = false;
    for (const Field &field : CommaFields(text)) {
        bool is_known = false;
        for (const ChannelName &channel : kChannelNames) {
            if (Trimmed(field.text) != channel.name) continue;
            direction->*channel.channel = is_known = true;
        }
        if (!is_known)
            RefuseOption("--only", text, "rotation, position and lens, one or several with commas between them");
    }
}

// "35", "35=0.5", "=0.5", or a share alone: nothing is filmed through less than a millimetre.
LensAware LensAwareOf(const std::string &text, const CameraMove &move) {
    constexpr const char *kOption = "--lens-aware";
    LensAware lens;
    lens.focal_length = move.samples.front().focal_length;
    const std::size_t equals = text.find('=');
    const std::string length = text.substr(0, equals);
    if (equals != std::string::npos) {
        lens.share = ShareOption(kOption, text.substr(equals + 1));
    } else if (const std::optional<double> number = ParseNumber(length); number && *number < kMinFocalLength) {
        lens.share = ShareOption(kOption, length);
        return lens;
    }
    if (!length.empty()) lens.focal_length = NumberOption(kOption, length, kMinFocalLength, kMaxFocalLength);
    return lens;
}

}  // namespace

bool DirectionChoices::IsNone() const {
    return from.empty() && until.empty() && fade_in.empty() && fade_out.empty() && mix.empty() && only.empty() &&
           lens_aware.empty() && !loop;
}

Direction DirectionChoices::Options(const CameraMove &move) const {
    Direction direction;
    direction.fade = FadeOf(*this, move);
    if (!only.empty()) TakeOnly(only, &direction);
    if (!lens_aware.empty()) direction.lens_aware = LensAwareOf(lens_aware.front(), move);
    return direction;
}

void AddDirectionOptions(Command command, DirectionChoices *choices) {
    command.Add("--from", &choices->from, "the first frame that is shaken; before it the camera is the input");
    command.Add("--until", &choices->until, "the last frame that is shaken; behind it the camera is the input");
    command.Add("--fade-in", &choices->fade_in,
                "frames after --from, or after the move's first, in which the shake rises to its full amount");
    command.Add("--fade-out", &choices->fade_out,
                "frames before --until, or before the move's last, in which it goes back to nothing");
    command.Add("--mix", &choices->mix, "how much of the shake there is: 0 to 1, or 60%");
    command.Add("--only", &choices->only,
                "rotation, position or lens, with commas between several: the other channels are the input's");
    command
        .Add("--lens-aware", &choices->lens_aware,
             "MM or MM=SHARE: turns follow the focal length, so that the shake in the picture stays as it is at MM "
             "(else "
             "at the move's first focal length), by a share from 0 to 1")
        .OptionalValue();
    command.Add("--loop", &choices->loop,
                "the last frame flows into the first; of a camera that stands still or whose own move loops");
}

}  // namespace tremolux
