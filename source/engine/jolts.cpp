// Sudden knocks: when they hit, how they fall off and where they push.
#include <algorithm>
#include <cmath>

#include "engine/filter.h"
#include "engine/noise.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

// A knock of a position or of a rotation.
struct JoltChannel {
    LONG target, envelope, carry, previous;
    FilterKeys filter;
    LONG output;
    Real rate;  // cells of noise for each unit of clock and speed
    SamplePoint points[3];
};

constexpr JoltChannel kPositionJolt = {kJoltPositionTarget,
                                       kJoltPositionEnvelope,
                                       kJoltPositionCarry,
                                       kJoltPositionPrevious,
                                       {kJoltPositionFilterCarry, kJoltPositionFilterValue},
                                       kJoltPositionOffset,
                                       0.035,
                                       {{275, 0, 6541, 1257}, {256, 0, 8745, 25894}, {1902, 0, 98745, 235874}}};
constexpr JoltChannel kRotationJolt = {kJoltRotationTarget,
                                       kJoltRotationEnvelope,
                                       kJoltRotationCarry,
                                       kJoltRotationPrevious,
                                       {kJoltRotationFilterCarry, kJoltRotationFilterValue},
                                       kJoltRotationOffset,
                                       0.1,
                                       {{2013, 0, 8796, 20999}, {14876, 0, 74587, 32458}, {315112, 0, 325874, 98745}}};

constexpr Real kSceneUnitsAtScaleOne = 1000.0;
constexpr Real kFaded = 0.0001;

// Towards zero, saturated.
LLONG WholeOf(Real value) {
    constexpr Real kLimit = 9223372036854775808.0;
    if (value >= kLimit) return 9223372036854775807LL;
    if (value < -kLimit) return -9223372036854775807LL - 1;
    return (LLONG)value;
}

// Whether the interval's knock falls on this frame of the jolt clock: each block of `interval` frames has one, at a
// place that a hash of the block's number and the seed picks.
Bool HitsInInterval(LLONG clock_frame, LONG interval, Real seed) {
    if (interval < 1) return FALSE;
    const LLONG number = clock_frame / interval;
    const Real block = (Real)number;
    const LLONG hash = WholeOf(block * block * 111.333 * block + seed * 131.92111);
    const LLONG place = hash % interval + 1;
    return WholeOf((block + 1.0) * interval - (Real)place * 0.8) == clock_frame;
}

void ClearJolt(const JoltChannel &jolt, BaseContainer *data) {
    for (LONG id : {jolt.target, jolt.envelope, jolt.carry, jolt.previous}) data->SetReal(id, 0.0);
    WriteFilter(jolt.filter, Vector(), Vector(), data);
    data->SetVector(jolt.output, Vector());
}

}  // namespace

void TremoluxCamClass::EvaluateJolts(BaseContainer *data, Real time_scale, Real seed, LONG interval, Real, LONG clock,
                                     Real time_offset, Real position_intensity, Real rotation_intensity, Real smooth,
                                     LONG flag, Real scale, Real shake_position_intensity, Real speed, Real ratio_x,
                                     Real ratio_y, Real ratio_z, Real ratio_h, Real ratio_p, Real ratio_b,
                                     Real shake_rotation_intensity, Real falloff_step, LONG frame, LONG use_list) {
    const Bool hit = HitsInInterval((LLONG)clock + Truncate(time_offset), interval, seed) ||
                     (use_list == 1 && std::binary_search(trigger_.frames.begin(), trigger_.frames.end(), frame));
    Coefficients c;
    InputSmoothingTwin(smooth, &c.a, &c.b);
    const Real time = (ReadClock(*data, kJoltClock) + time_offset) * time_scale;
    const Real size = scale * kSceneUnitsAtScaleOne * shake_position_intensity;

    const auto evaluate = [&](const JoltChannel &jolt, Real intensity, Bool moves, const Vector &sizes) {
        Real target = hit ? intensity * 0.5 * smooth + intensity : data->GetReal(jolt.target);
        target = FMax(target, 0.0);
        Real envelope = data->GetReal(jolt.envelope), carry = data->GetReal(jolt.carry);
        if (moves) {
            const Real old_carry = carry, old_envelope = envelope;
            envelope = SmoothRealValue(c.a, c.b, old_carry, old_envelope, target);
            carry = SmoothRealCarry(c.a, c.b, old_carry, old_envelope, target);
        }
        Vector push;
        if (flag == 1 && (envelope != 0.0 || data->GetReal(jolt.previous) != 0.0 || target != 0.0)) {
            const Real t = time * jolt.rate * speed;
            push = Vector(envelope * Sample(seed, jolt.points[0], t) * sizes.x,
                          envelope * Sample(seed, jolt.points[1], t) * sizes.y,
                          envelope * Sample(seed, jolt.points[2], t) * sizes.z);
        }
        if (!IsFinite(target) || !IsFinite(envelope) || !IsFinite(carry) || !IsFinite(push)) {
            ClearJolt(jolt, data);
            return;
        }
        const Vector filtered = FilterVector(jolt.filter, c, push, FALSE, data);
        data->SetReal(jolt.envelope, envelope);
        data->SetReal(jolt.carry, carry);
        data->SetReal(jolt.previous, envelope);
        data->SetReal(jolt.target, target - falloff_step);
        data->SetVector(jolt.output, envelope >= kFaded ? filtered : push);
    };
    evaluate(kPositionJolt, position_intensity, position_intensity != 0.0,
             Vector(ratio_x * size, ratio_y * size, ratio_z * size));
    evaluate(kRotationJolt, rotation_intensity, ReadReal(*data, kJoltRotationIntensity) != 0.0,
             Vector(ratio_h, ratio_p, ratio_b) * shake_rotation_intensity);
}
