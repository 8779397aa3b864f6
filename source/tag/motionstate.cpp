#include "tag/motionstate.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "tag/hostmaths.h"
#include "tag/parameters.h"
#include "tag/state.h"

namespace {

using engine::Channel;
using engine::FrameMemory;
using engine::Spring;

enum class EntryType { kReal, kVector, kBool, kLong };

// An entry of the container and the place in the memory, or in a spring, that it is kept in.
struct Entry {
    LONG key;
    EntryType type;
    std::size_t place;
};

#define REAL(key, field) \
    { key, EntryType::kReal, offsetof(FrameMemory, field) }
#define VECTOR(key, field) \
    { key, EntryType::kVector, offsetof(FrameMemory, field) }

constexpr Entry kTimeline[] = {REAL(kStartFrame, start_frame),
                               REAL(kLastFrame, last_frame),
                               {kCatchingUp, EntryType::kBool, offsetof(FrameMemory, is_catching_up)}};
constexpr Entry kClocks[] = {REAL(kClockStep, clocks.step),   REAL(kShakeClock, clocks.shake),
                             REAL(kFocusClock, clocks.focus), REAL(kZoomDriftClock, clocks.zoom_drift),
                             REAL(kJoltClock, clocks.jolt),   REAL(kAuxiliaryClock, clocks.auxiliary),
                             REAL(kZoomClock, clocks.zoom)};
constexpr Entry kPosition[] = {
    VECTOR(kPositionCarry, position.input.carry), VECTOR(kPositionValue, position.input.value),
    VECTOR(kPositionShakeCarry, position.shake.carry), VECTOR(kPositionShakeValue, position.shake.value)};
constexpr Entry kRotation[] = {
    VECTOR(kRotationCarry, rotation.input.carry), VECTOR(kRotationValue, rotation.input.value),
    VECTOR(kRotationShakeCarry, rotation.shake.carry), VECTOR(kRotationShakeValue, rotation.shake.value)};
constexpr Entry kZoom[] = {REAL(kZoomCarry, zoom.input.carry), REAL(kZoomValue, zoom.input.value),
                           REAL(kZoomDriftCarry, zoom.drift.carry), REAL(kZoomDriftValue, zoom.drift.value)};
constexpr Entry kFocus[] = {REAL(kFocusCarry, focus.input.carry), REAL(kFocusValue, focus.input.value),
                            REAL(kFocusDriftCarry, focus.drift.carry), REAL(kFocusDriftValue, focus.drift.value)};
constexpr Entry kJolts[] = {REAL(kJoltPositionTarget, jolts.position.target),
                            REAL(kJoltRotationTarget, jolts.rotation.target),
                            REAL(kJoltPositionEnvelope, jolts.position.envelope),
                            REAL(kJoltRotationEnvelope, jolts.rotation.envelope),
                            REAL(kJoltPositionCarry, jolts.position.carry),
                            REAL(kJoltRotationCarry, jolts.rotation.carry),
                            REAL(kJoltPositionPrevious, jolts.position.previous),
                            REAL(kJoltRotationPrevious, jolts.rotation.previous),
                            VECTOR(kJoltPositionFilterCarry, jolts.position.filter.carry),
                            VECTOR(kJoltPositionFilterValue, jolts.position.filter.value),
                            VECTOR(kJoltRotationFilterCarry, jolts.rotation.filter.carry),
                            VECTOR(kJoltRotationFilterValue, jolts.rotation.filter.value),
                            VECTOR(kJoltPositionOffset, jolts.position.offset),
                            VECTOR(kJoltRotationOffset, jolts.rotation.offset)};
constexpr Entry kPreviousAngles[] = {VECTOR(kPreviousRotation, previous_angles)};

#undef REAL
#undef VECTOR

// Behind the base of the spring's channel.
constexpr Entry kSpringEntries[] = {{kOvershootInput, EntryType::kVector, offsetof(Spring, input)},
                                    {kOvershootVelocity, EntryType::kVector, offsetof(Spring, velocity)},
                                    {kOvershootDistance, EntryType::kReal, offsetof(Spring, distance)},
                                    {kOvershootPreviousDistance, EntryType::kReal, offsetof(Spring, previous_distance)},
                                    {kOvershootRamp, EntryType::kReal, offsetof(Spring, ramp)},
                                    {kOvershootRampIncrement, EntryType::kReal, offsetof(Spring, ramp_increment)},
                                    {kOvershootStiffnessFade, EntryType::kReal, offsetof(Spring, stiffness_fade)},
                                    {kOvershootDampingFade, EntryType::kReal, offsetof(Spring, damping_fade)},
                                    {kOvershootMoving, EntryType::kLong, offsetof(Spring, moving)}};

struct Part {
    const Entry *begin, *end;
};

// In the order of MotionPart.
constexpr Part kParts[] = {
    {std::begin(kTimeline), std::end(kTimeline)}, {std::begin(kClocks), std::end(kClocks)},
    {std::begin(kPosition), std::end(kPosition)}, {std::begin(kRotation), std::end(kRotation)},
    {std::begin(kZoom), std::end(kZoom)},         {std::begin(kFocus), std::end(kFocus)},
    {std::begin(kJolts), std::end(kJolts)},       {std::begin(kPreviousAngles), std::end(kPreviousAngles)}};

struct SpringPlace {
    LONG base;
    std::size_t place;
};

// In the order of Channel.
constexpr SpringPlace kSprings[] = {{kOvershootRotation, offsetof(FrameMemory, rotation.spring)},
                                    {kOvershootPosition, offsetof(FrameMemory, position.spring)},
                                    {kOvershootTarget, offsetof(FrameMemory, rotation.target_spring)},
                                    {kOvershootZoom, offsetof(FrameMemory, zoom.spring)},
                                    {kOvershootSpare, offsetof(FrameMemory, spare_spring)},
                                    {kOvershootFocus, offsetof(FrameMemory, focus.spring)}};

const SpringPlace &PlaceOf(Channel channel) { return kSprings[static_cast<int>(channel)]; }

template <typename T>
T &At(void *memory, std::size_t place) {
    return *static_cast<T *>(static_cast<void *>(static_cast<char *>(memory) + place));
}

// Bit by bit, so that what is no number equals itself.
std::uint64_t BitsOf(double value) {
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}
bool IsSame(double a, double b) { return BitsOf(a) == BitsOf(b); }
bool IsSame(const engine::Vector3 &a, const engine::Vector3 &b) {
    return IsSame(a.x, b.x) && IsSame(a.y, b.y) && IsSame(a.z, b.z);
}

void ReadEntry(const Entry &entry, LONG base, const BaseContainer &data, void *memory) {
    const LONG key = base + entry.key;
    switch (entry.type) {
        case EntryType::kReal:
            At<double>(memory, entry.place) = data.GetReal(key);
            break;
        case EntryType::kVector:
            At<engine::Vector3>(memory, entry.place) = FromHost(data.GetVector(key));
            break;
        case EntryType::kBool:
            At<bool>(memory, entry.place) = data.GetBool(key) != FALSE;
            break;
        case EntryType::kLong:
            At<int>(memory, entry.place) = data.GetLong(key);
            break;
    }
}

enum class What { kChanged, kAll };

// From `memory` into the container and into `stored`, which is what stands there. TRUE when it was written.
Bool WriteEntry(const Entry &entry, LONG base, What what, void *memory, void *stored, BaseContainer *data) {
    const LONG key = base + entry.key;
    const auto write = [&](const auto &is, auto *was, bool is_same, auto set) {
        if (what == What::kChanged && is_same) return FALSE;
        set(is);
        *was = is;
        return TRUE;
    };
    switch (entry.type) {
        case EntryType::kReal: {
            const double is = At<double>(memory, entry.place);
            double &was = At<double>(stored, entry.place);
            return write(is, &was, IsSame(is, was), [&](double value) { data->SetReal(key, value); });
        }
        case EntryType::kVector: {
            const engine::Vector3 &is = At<engine::Vector3>(memory, entry.place);
            engine::Vector3 &was = At<engine::Vector3>(stored, entry.place);
            return write(is, &was, IsSame(is, was),
                         [&](const engine::Vector3 &value) { data->SetVector(key, ToHost(value)); });
        }
        case EntryType::kBool: {
            const bool is = At<bool>(memory, entry.place);
            bool &was = At<bool>(stored, entry.place);
            return write(is, &was, is == was, [&](bool value) { data->SetBool(key, value); });
        }
        case EntryType::kLong: {
            const int is = At<int>(memory, entry.place);
            int &was = At<int>(stored, entry.place);
            return write(is, &was, is == was, [&](int value) { data->SetLong(key, value); });
        }
    }
    return FALSE;
}

Bool WriteEntries(const Part &part, LONG base, What what, void *memory, void *stored, BaseContainer *data) {
    Bool has_written = FALSE;
    for (const Entry *entry = part.begin; entry != part.end; ++entry)
        if (WriteEntry(*entry, base, what, memory, stored, data)) has_written = TRUE;
    return has_written;
}

void ReadSpring(LONG base, const BaseContainer &data, Spring *spring) {
    spring->has_output = data.GetDataPointer(base + kOvershootOutput) != NULL;
    spring->output = FromHost(data.GetVector(base + kOvershootOutput));
    for (const Entry &entry : kSpringEntries) ReadEntry(entry, base, data, spring);
}

Bool WriteSpringEntries(LONG base, What what, Spring *spring, Spring *stored, BaseContainer *data) {
    Bool has_written =
        WriteEntries({std::begin(kSpringEntries), std::end(kSpringEntries)}, base, what, spring, stored, data);
    const LONG key = base + kOvershootOutput;
    const bool is_same = spring->has_output == stored->has_output && IsSame(spring->output, stored->output);
    if (what == What::kChanged && is_same) return has_written;
    if (spring->has_output) {
        data->SetVector(key, ToHost(spring->output));
        has_written = TRUE;
    } else if (data->GetDataPointer(key)) {
        data->RemoveData(key);
        has_written = TRUE;
    }
    stored->has_output = spring->has_output;
    stored->output = spring->output;
    return has_written;
}

// A clock that is not finite begins anew.
void MakeSound(engine::Clocks *clocks) {
    for (double *clock : {&clocks->step, &clocks->shake, &clocks->focus, &clocks->zoom_drift, &clocks->jolt,
                          &clocks->auxiliary, &clocks->zoom})
        if (!engine::IsFinite(*clock)) *clock = 0.0;
}

}  // namespace

Spring &SpringOf(Channel channel, FrameMemory *memory) { return At<Spring>(memory, PlaceOf(channel).place); }

LONG BaseOf(Channel channel) { return PlaceOf(channel).base; }

Bool FindChannel(LONG base, Channel *channel) {
    for (int i = 0; i < (int)(sizeof(kSprings) / sizeof(kSprings[0])); i++) {
        if (kSprings[i].base != base) continue;
        *channel = static_cast<Channel>(i);
        return TRUE;
    }
    return FALSE;
}

void MotionState::Read(const BaseContainer &data, Bool may_be_known) {
    if (may_be_known && IsKnown(data)) return;
    settings = ReadSettings(data);
    for (const Part &part : kParts)
        for (const Entry *entry = part.begin; entry != part.end; ++entry) ReadEntry(*entry, 0, data, &memory);
    for (const SpringPlace &spring : kSprings) ReadSpring(spring.base, data, &At<Spring>(&memory, spring.place));
    stored_ = memory;
    MakeSound(&memory.clocks);
    data_ = &data;
    stamp_ = data.GetDirty();
    readings_++;
}

// Somebody else may have written in between, and a host need not count what is written: such a container is read again.
template <typename Writing>
void MotionState::Change(BaseContainer *data, Writing writing) {
    const Bool was_known = IsKnown(*data);
    const ULONG before = data->GetDirty();
    const Bool has_written = writing(was_known ? What::kChanged : What::kAll);
    stamp_ = data->GetDirty();
    if (!was_known || (has_written && stamp_ == before)) Forget();
}

void MotionState::Write(MotionPart part, BaseContainer *data) {
    Change(data,
           [&](What what) { return WriteEntries(kParts[static_cast<int>(part)], 0, what, &memory, &stored_, data); });
}

void MotionState::WriteSpring(Channel channel, BaseContainer *data) {
    Change(data, [&](What what) {
        return WriteSpringEntries(BaseOf(channel), what, &SpringOf(channel, &memory), &SpringOf(channel, &stored_),
                                  data);
    });
}

void MotionState::WriteAllParts(BaseContainer *data) {
    Change(data, [&](What) {
        for (const Part &part : kParts) WriteEntries(part, 0, What::kAll, &memory, &stored_, data);
        return TRUE;
    });
}

void MotionState::WriteWholeSpring(Channel channel, BaseContainer *data) {
    Change(data, [&](What) {
        return WriteSpringEntries(BaseOf(channel), What::kAll, &SpringOf(channel, &memory),
                                  &SpringOf(channel, &stored_), data);
    });
}
