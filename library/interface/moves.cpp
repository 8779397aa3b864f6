
#include <array>

#include "host/value/text.h"
#include "library/formats/format.h"
#include "library/formats/numbers.h"
#include "library/interface/buffer.h"
#include "library/interface/guard.h"
#include "library/interface/move.h"

namespace tremolux {
namespace {

constexpr std::size_t kNumbers = TREMOLUX_NUMBERS_PER_FRAME;

// The numbers of a frame in the order of the interface.
std::array<double *, kNumbers> Places(CameraSample *sample) {
    return {&sample->position.x, &sample->position.y,    &sample->position.z,
            &sample->angles.x,   &sample->angles.y,      &sample->angles.z,
            &sample->focal_length, &sample->focus_distance};
}
constexpr std::size_t kFocalLengthPlace = 6, kFocusDistancePlace = 7;

// false for what is no number.
bool IsBetween(double value, double minimum, double maximum) { return value >= minimum && value <= maximum; }

void CheckInfo(const tremolux_move_info &info) {
    if (info.frame_count < 1 || info.frame_count > kMaxFrames)
        RefuseInput("info->frame_count", std::to_string(info.frame_count), "1 to " + std::to_string(kMaxFrames));
    if (info.first_frame < -kMaxFrameNumber || info.first_frame > kMaxFrameNumber)
        RefuseInput("info->first_frame", std::to_string(info.first_frame), "at most " + std::to_string(kMaxFrameNumber));
    if (!IsBetween(info.aperture_width, kMinAperture, kMaxAperture))
        RefuseInput("info->aperture_width", FormatNumber(info.aperture_width), "millimetres from 1 to 2000");
}

FrameRate RateOf(const tremolux_move_info &info) {
    if (const auto rate = MakeFrameRate(info.rate_numerator, info.rate_denominator)) return *rate;
    RefuseInput("info->rate_numerator and info->rate_denominator",
                std::to_string(info.rate_numerator) + " / " + std::to_string(info.rate_denominator),
                kExpectedFrameRate);
}

CameraSample SampleOf(const double *numbers, std::size_t frame) {
    CameraSample sample;
    const auto places = Places(&sample);
    for (std::size_t i = 0; i < kNumbers; ++i) {
        const double number = numbers[frame * kNumbers + i];
        const auto check = [&](double least, double most, const char *expected) {
            if (!IsBetween(number, least, most))
                RefuseInput("numbers[" + std::to_string(frame * kNumbers + i) + "]", FormatNumber(number), expected);
        };
        if (i == kFocalLengthPlace) {
            check(kMinFocalLength, kMaxFocalLength, "a focal length from 1 to 10000 mm");
        } else if (i == kFocusDistancePlace) {
            check(0, kMaxNumber, "a focus distance from 0 to 1e12");
        } else {
            check(-kMaxNumber, kMaxNumber, "a number up to 1e12");
        }
        *places[i] = number;
    }
    return sample;
}

}  // namespace

tremolux_move NewMove(CameraMove move) {
    return static_cast<tremolux_move>(NewHandle(std::make_shared<MoveTarget>(std::move(move))));
}

void WriteNumbers(const std::vector<CameraSample> &samples, double *numbers, std::size_t count) {
    RequirePointer(numbers, "numbers");
    const std::size_t needed = samples.size() * kNumbers;
    if (count < needed) RefuseInput("count", std::to_string(count), "room for " + std::to_string(needed) + " numbers");
    for (CameraSample sample : samples)
        for (const double *place : Places(&sample)) *numbers++ = *place;
}

}  // namespace tremolux

using namespace tremolux;

tremolux_status tremolux_move_from_numbers(const tremolux_move_info *info, const double *numbers, size_t count,
                                           tremolux_move *move) {
    return Guarded(&ThreadError(), [&] {
        RequireStruct(info, "info");
        RequirePointer(numbers, "numbers");
        RequirePointer(move, "move");
        CheckInfo(*info);
        if (count != info->frame_count * kNumbers)
            RefuseInput("count", std::to_string(count), std::to_string(info->frame_count * kNumbers));
        CameraMove made;
        made.first_frame = info->first_frame;
        made.rate = RateOf(*info);
        made.aperture_width = info->aperture_width;
        for (std::size_t frame = 0; frame < info->frame_count; ++frame) made.samples.push_back(SampleOf(numbers, frame));
        *move = NewMove(std::move(made));
    });
}

tremolux_status tremolux_move_from_bytes(const char *name, const void *bytes, size_t size, tremolux_move *move) {
    return Guarded(&ThreadError(), [&] {
        RequirePointer(name, "name");
        if (size > 0) RequirePointer(bytes, "bytes");
        RequirePointer(move, "move");
        *move = NewMove(MoveFromBytes(name, {static_cast<const char *>(bytes), size}, {}));
    });
}

tremolux_status tremolux_move_info_of(tremolux_move move, tremolux_move_info *info) {
    return WithHandle<MoveTarget>(move, [&](const MoveTarget &target) {
        RequireStruct(info, "info");
        *info = {sizeof(*info), target.move.first_frame, target.move.samples.size(), target.move.rate.numerator, target.move.rate.denominator,
                 target.move.aperture_width};
    });
}

tremolux_status tremolux_move_numbers(tremolux_move move, double *numbers, size_t count) {
    return WithHandle<MoveTarget>(
        move, [&](const MoveTarget &target) { WriteNumbers(target.move.samples, numbers, count); });
}

tremolux_status tremolux_move_to_bytes(tremolux_move move, const char *name, tremolux_buffer *buffer) {
    return WithHandle<MoveTarget>(move, [&](const MoveTarget &target) {
        RequirePointer(name, "name");
        RequirePointer(buffer, "buffer");
        *buffer = NewBuffer(MoveText(host::PathFromText(name), target.move, {}));
    });
}

tremolux_status tremolux_move_free(tremolux_move move) { return FreeHandle<MoveTarget>(move); }
