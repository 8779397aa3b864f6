// What the motion is computed from and what it remembers, beside the container that holds both: read where the
// container has changed, written where the motion has.
#pragma once

#include "c4d.h"
#include "engine/frame.h"
#include "tag/parameters.h"

// Parts of the memory that are written together.
enum class MotionPart { kTimeline, kClocks, kPosition, kRotation, kZoom, kFocus, kJolts, kPreviousAngles };

// What the zoom's operation is handed though no formula asks for it.
struct ZoomHidden {
    engine::Time time;
    Real value_1 = 0.0, value_2 = 0.0, value_3 = 0.0, value_4 = 0.0;
};

class MotionState {
  public:
    engine::Settings settings;
    engine::FrameMemory memory;
    ZoomHidden zoom_hidden;

    // Makes both what the container says. One that is known and has not changed is not read again; `may_be_known`
    // FALSE: another one may stand in its place.
    void Read(const BaseContainer &data, Bool may_be_known) {
        if (!may_be_known || !IsKnown(data)) ReadAnew(data);
    }
    // Each time that a container was read, another number.
    LONG Readings() const { return readings_; }
    // What has changed of a part since it was read or written.
    void Write(MotionPart part, BaseContainer *data);
    void WriteSpring(engine::Channel channel, BaseContainer *data);
    // All of them whether they have changed or not.
    void WriteAllParts(BaseContainer *data);
    void WriteWholeSpring(engine::Channel channel, BaseContainer *data);
    // Lets `write` write entries that are neither settings nor memory.
    template <typename Write>
    void WriteBeside(BaseContainer *data, Write write) {
        const Bool was_known = IsKnown(*data);
        write(data);
        if (was_known) stamp_ = data->GetDirty();
    }
    // Lets `write` write settings alone, if any: TRUE.
    template <typename Write>
    void WriteSettings(BaseContainer *data, Write write) {
        const Bool was_known = IsKnown(*data);
        if (!write(data) || !was_known) return;
        ReadParameters(*data);
        stamp_ = data->GetDirty();
    }
    // The next reading reads whatever the container's count of changes says.
    void Forget() { data_ = NULL; }

  private:
    void ReadAnew(const BaseContainer &data);
    void ReadParameters(const BaseContainer &data);
    Bool IsKnown(const BaseContainer &data) const { return data_ == &data && stamp_ == data.GetDirty(); }
    template <typename Writing>
    void Change(BaseContainer *data, Writing writing);

    const BaseContainer *data_ = NULL;  // the one that is known; compared alone
    ULONG stamp_ = 0;                   // and how often it had been written to
    LONG readings_ = 0;
    engine::FrameMemory stored_;  // what stands in it
};

// The spring of a channel, and the other one where there are two of angles.
engine::Spring &SpringOf(engine::Channel channel, engine::FrameMemory *memory);
LONG BaseOf(engine::Channel channel);
// FALSE for the base of no channel.
Bool FindChannel(LONG base, engine::Channel *channel);
