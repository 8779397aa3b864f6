#include "tag/motionstate.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

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
bool IsSame(bool a, bool b) { return a == b; }
bool IsSame(int a, int b) { return a == b; }

template <EntryType type>
struct FieldOf;
template <>
struct FieldOf<EntryType::kReal> {
    using Type = double;
};
template <>
struct FieldOf<EntryType::kVector> {
    using Type = engine::Vector3;
};
template <>
struct FieldOf<EntryType::kBool> {
    using Type = bool;
};
template <>
struct FieldOf<EntryType::kLong> {
    using Type = int;
};

void Get(const BaseContainer &data, LONG key, double *value) { *value = data.GetReal(key); }
void Get(const BaseContainer &data, LONG key, engine::Vector3 *value) { *value = FromHost(data.GetVector(key)); }
void Get(const BaseContainer &data, LONG key, bool *value) { *value = data.GetBool(key) != FALSE; }
void Get(const BaseContainer &data, LONG key, int *value) { *value = data.GetLong(key); }

void Set(BaseContainer *data, LONG key, double value) { data->SetReal(key, value); }
void Set(BaseContainer *data, LONG key, const engine::Vector3 &value) { data->SetVector(key, ToHost(value)); }
void Set(BaseContainer *data, LONG key, bool value) { data->SetBool(key, value); }
void Set(BaseContainer *data, LONG key, int value) { data->SetLong(key, value); }

enum class What { kChanged, kAll };

template <const auto &entries, std::size_t index>
void ReadEntry(LONG base, const BaseContainer &data, void *memory) {
    constexpr Entry entry = entries[index];
    Get(data, base + entry.key, &At<typename FieldOf<entry.type>::Type>(memory, entry.place));
}

// From `memory` into the container and into `stored`, which is what stands there. TRUE when it was written.
template <const auto &entries, std::size_t index>
Bool WriteEntry(LONG base, What what, void *memory, void *stored, BaseContainer *data) {
    constexpr Entry entry = entries[index];
    using Field = typename FieldOf<entry.type>::Type;
    const Field &is = At<Field>(memory, entry.place);
    Field &was = At<Field>(stored, entry.place);
    if (what == What::kChanged && IsSame(is, was)) return FALSE;
    Set(data, base + entry.key, is);
    was = is;
    return TRUE;
}

// All entries of a table, each of them compiled for itself: every frame writes them.
template <const auto &entries, std::size_t... index>
void ReadEach(LONG base, const BaseContainer &data, void *memory, std::index_sequence<index...>) {
    (ReadEntry<entries, index>(base, data, memory), ...);
}
template <const auto &entries, std::size_t... index>
Bool WriteEach(LONG base, What what, void *memory, void *stored, BaseContainer *data, std::index_sequence<index...>) {
    return (WriteEntry<entries, index>(base, what, memory, stored, data) | ...);
}

template <const auto &entries>
using IndicesOf = std::make_index_sequence<sizeof(entries) / sizeof(entries[0])>;

template <const auto &entries>
void ReadEntries(LONG base, const BaseContainer &data, void *memory) {
    ReadEach<entries>(base, data, memory, IndicesOf<entries>());
}
template <const auto &entries>
Bool WriteEntries(LONG base, What what, void *memory, void *stored, BaseContainer *data) {
    return WriteEach<entries>(base, what, memory, stored, data, IndicesOf<entries>());
}

struct Part {
    void (*read)(LONG base, const BaseContainer &data, void *memory);
    Bool (*write)(LONG base, What what, void *memory, void *stored, BaseContainer *data);
};
template <const auto &entries>
constexpr Part kPartOf = {ReadEntries<entries>, WriteEntries<entries>};

// In the order of MotionPart.
constexpr Part kParts[] = {kPartOf<kTimeline>, kPartOf<kClocks>, kPartOf<kPosition>, kPartOf<kRotation>,
                           kPartOf<kZoom>,     kPartOf<kFocus>,  kPartOf<kJolts>,    kPartOf<kPreviousAngles>};

void ReadSpring(LONG base, const BaseContainer &data, Spring *spring) {
    spring->has_output = data.GetDataPointer(base + kOvershootOutput) != NULL;
    spring->output = FromHost(data.GetVector(base + kOvershootOutput));
    ReadEntries<kSpringEntries>(base, data, spring);
}

Bool WriteSpringEntries(LONG base, What what, Spring *spring, Spring *stored, BaseContainer *data) {
    Bool has_written = WriteEntries<kSpringEntries>(base, what, spring, stored, data);
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

ZoomHidden ReadZoomHidden(const BaseContainer &data) {
    return {TimeOf(data.GetTime(kZoomHiddenTime)), ReadReal(data, kZoomHidden1), ReadReal(data, kZoomHidden2),
            ReadReal(data, kZoomHidden3), ReadReal(data, kZoomHidden4)};
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

void MotionState::ReadParameters(const BaseContainer &data) {
    settings = ReadSettings(data);
    zoom_hidden = ReadZoomHidden(data);
}

void MotionState::ReadAnew(const BaseContainer &data) {
    ReadParameters(data);
    for (const Part &part : kParts) part.read(0, data, &memory);
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
    Change(data, [&](What what) { return kParts[static_cast<int>(part)].write(0, what, &memory, &stored_, data); });
}

void MotionState::WriteSpring(Channel channel, BaseContainer *data) {
    Change(data, [&](What what) {
        return WriteSpringEntries(BaseOf(channel), what, &SpringOf(channel, &memory), &SpringOf(channel, &stored_),
                                  data);
    });
}

void MotionState::WriteAllParts(BaseContainer *data) {
    Change(data, [&](What) {
        for (const Part &part : kParts) part.write(0, What::kAll, &memory, &stored_, data);
        return TRUE;
    });
}

void MotionState::WriteWholeSpring(Channel channel, BaseContainer *data) {
    Change(data, [&](What) {
        return WriteSpringEntries(BaseOf(channel), What::kAll, &SpringOf(channel, &memory),
                                  &SpringOf(channel, &stored_), data);
    });
}
