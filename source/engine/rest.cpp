// Where the motion starts: everything that it remembers at rest on the input camera.
#include "engine/frame.h"
#include "engine/operations.h"

namespace engine {

namespace {

struct Seeds {
    Vector3 position, angles;
    double focal_length, focus_distance;
};

Seeds SeedsOf(const Settings &settings, const FrameInput &start, const Host &host) {
    Seeds seeds = {start.position, start.angles, start.focal_length, start.focus_distance};
    if (start.has_target && settings.use_target) AimAngles(start.position, start.target, host, &seeds.angles);
    if (start.has_focus_object) seeds.focus_distance = Length(start.focus_object - start.position);
    return seeds;
}

Spring RestOn(const Vector3 &value) { return AtRest(value, value); }
Spring RestOn(double length) { return RestOn(Vector3{length, 0.0, 0.0}); }

void RestMovingSprings(const Seeds &seeds, FrameMemory *memory) {
    memory->position.spring = RestOn(seeds.position);
    memory->rotation.spring = memory->rotation.target_spring = RestOn(seeds.angles);
    memory->zoom.spring = RestOn(seeds.focal_length);
}

}  // namespace

void ClearMotion(FrameMemory *memory) {
    memory->last_frame = 0.0;
    memory->is_catching_up = false;
    memory->clocks = Clocks();
    memory->position.input = memory->position.shake = VectorFilter();
    memory->rotation.input = memory->rotation.shake = VectorFilter();
    memory->zoom.input = memory->zoom.drift = RealFilter();
    memory->focus.input = RealFilter();
    memory->focus.drift.value = 0.0;
    memory->jolts = JoltMemory();
    memory->previous_angles = Vector3();
}

void ClearAllMotion(FrameMemory *memory) {
    ClearMotion(memory);
    memory->focus.drift.carry = 0.0;
    memory->spare_spring = RestOn(0.0);
}

void RestMovingSprings(const Settings &settings, const FrameInput &start, const Host &host, FrameMemory *memory) {
    RestMovingSprings(SeedsOf(settings, start, host), memory);
}

void RestMotion(const Settings &settings, const FrameInput &start, const Host &host, FrameMemory *memory) {
    ClearAllMotion(memory);
    const Seeds seeds = SeedsOf(settings, start, host);
    memory->position.input.value = seeds.position;
    memory->rotation.input.value = seeds.angles;
    memory->zoom.input.value = seeds.focal_length;
    memory->focus.input.value = seeds.focus_distance;
    RestMovingSprings(seeds, memory);
    memory->focus.spring = RestOn(seeds.focus_distance);
}

void DropJolts(JoltMemory *memory) {
    const auto drop = [](Jolt *jolt) {
        jolt->target = jolt->envelope = jolt->carry = jolt->previous = 0.0;
        jolt->filter.value = Vector3();
    };
    drop(&memory->position);
    drop(&memory->rotation);
}

}  // namespace engine
