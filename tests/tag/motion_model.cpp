#include "tests/tag/motion_model.h"

#include <algorithm>

namespace model {
namespace {

constexpr double kPi = 3.14159265358979323846;

// ---- Curves from (0, 0) to (1, 1) with the inner Bezier points (x1, y1) and (x2, y2)

struct Bezier {
    double x1, y1, x2, y2;

    double At(double x) const {
        if (x <= 0) return 0;
        if (x >= 1) return 1;
        double low = 0, high = 1;
        for (int i = 0; i < 120; ++i) {
            const double middle = 0.5 * (low + high);
            if (Blend(x1, x2, middle) < x)
                low = middle;
            else
                high = middle;
        }
        return Blend(y1, y2, 0.5 * (low + high));
    }
    static double Blend(double p1, double p2, double s) {
        const double r = 1 - s;
        return 3 * p1 * s * r * r + 3 * p2 * s * s * r + s * s * s;
    }
};

constexpr Bezier kAmount = {0.019, 0.063, 0.469, 0.891};
constexpr Bezier kSmooth = {0, 0.711, 0.762, 0.922};
constexpr Bezier kShakeSmooth = {0, 0.352, 0.875, 1};
constexpr Bezier kLoose = {0, 0.45, 0.75, 0.99};

double Unit(double x) { return std::min(std::max(x, 0.0), 1.0); }

struct Pair {
    double a, b;
};
Pair InputPair(double amount) {
    const double share = kSmooth.At(kAmount.At(Unit(amount)));
    return {0.95 * share, 0.15 + 0.85 * share};
}
Pair ShakePair(double amount) {
    const double share = kShakeSmooth.At(Unit(amount));
    return {0.95 * share, 0.25 * share};
}

// ---- Filters

double Step(FilterState *filter, Pair pair, double goal) {
    const double error = goal - filter->value + (1 - pair.b) * filter->carry;
    filter->carry = pair.a * error;
    filter->value += (1 - pair.a) * error;
    return filter->value;
}

Triple Step(std::array<FilterState, 3> *filter, Pair pair, const Triple &goal, bool without_past) {
    Triple values;
    for (int i = 0; i < 3; ++i) {
        if (without_past) (*filter)[i] = {goal[i], 0};
        values[i] = without_past ? goal[i] : Step(&(*filter)[i], pair, goal[i]);
    }
    return values;
}

// ---- Angles

// Moved by whole turns into [-pi, pi).
double ShortWay(double angle) { return angle - 2 * kPi * std::floor((angle + kPi) / (2 * kPi)); }

Triple Closest(const Triple &reference, const Triple &angles) {
    const Triple mirrored = {angles[0] + kPi, kPi - angles[1], angles[2] + kPi};
    Triple plain_way, mirrored_way;
    double plain_sum = 0, mirrored_sum = 0;
    for (int i = 0; i < 3; ++i) {
        plain_way[i] = ShortWay(angles[i] - reference[i]);
        mirrored_way[i] = ShortWay(mirrored[i] - reference[i]);
        plain_sum += std::fabs(plain_way[i]);
        mirrored_sum += std::fabs(mirrored_way[i]);
    }
    const Triple &way = mirrored_sum < plain_sum - 1e-12 ? mirrored_way : plain_way;
    return {reference[0] + way[0], reference[1] + way[1], reference[2] + way[2]};
}

double Distance(const Triple &a, const Triple &b) {
    return std::sqrt((a[0] - b[0]) * (a[0] - b[0]) + (a[1] - b[1]) * (a[1] - b[1]) + (a[2] - b[2]) * (a[2] - b[2]));
}

// The look from one point to another; nothing when they are one.
std::optional<Triple> Look(const Triple &from, const Triple &to) {
    const double x = to[0] - from[0], y = to[1] - from[1], z = to[2] - from[2];
    const double flat = std::hypot(x, z), length = std::hypot(flat, y);
    if (length == 0) return std::nullopt;
    if (flat / length < 0.00001) return Triple{0, y > 0 ? kPi / 2 : -kPi / 2, 0};
    return Triple{std::atan2(-x, z), std::atan2(y, flat), 0};
}

Triple Sum(const Triple &a, const Triple &b) { return {a[0] + b[0], a[1] + b[1], a[2] + b[2]}; }

SpringState RestingOn(const Triple &value) {
    SpringState spring;
    spring.has_output = true;
    spring.output = spring.input = value;
    return spring;
}

}  // namespace

std::array<Triple, 3> AxesOf(const Triple &hpb) {
    const double sh = std::sin(hpb[0]), ch = std::cos(hpb[0]), sp = std::sin(hpb[1]), cp = std::cos(hpb[1]),
                 sb = std::sin(hpb[2]), cb = std::cos(hpb[2]);
    return {Triple{cb * ch - sb * sp * sh, -sb * cp, cb * sh + sb * sp * ch},
            Triple{sb * ch + cb * sp * sh, cb * cp, sb * sh - cb * sp * ch}, Triple{-cp * sh, sp, cp * ch}};
}

// ---- Where the motion starts

void Motion::Reset(const MotionInput &input) {
    clocks_ = Clocks();
    position_shake_ = rotation_shake_ = {};
    zoom_drift_ = focus_drift_ = {};
    position_jolt_ = rotation_jolt_ = {};
    previous_angles_ = {};

    const Pose &camera = input.camera;
    Triple angles = camera.angles;
    if (Aims(input)) angles = Look(camera.position, *input.target).value_or(camera.angles);
    const double distance = input.focus_object ? Distance(*input.focus_object, camera.position) : camera.focus_distance;
    for (int i = 0; i < 3; ++i) {
        position_[i] = {camera.position[i], 0};
        rotation_[i] = {angles[i], 0};
    }
    zoom_ = {camera.focal_length, 0};
    focus_ = {distance, 0};
    springs_[kPositionSpring] = RestingOn(camera.position);
    springs_[kRotationSpring] = springs_[kTargetSpring] = RestingOn(angles);
    springs_[kZoomSpring] = RestingOn({camera.focal_length, 0, 0});
    springs_[kFocusSpring] = RestingOn({distance, 0, 0});
}

Pose Motion::Restart(const MotionInput &input) {
    Reset(input);
    return Evaluate(start_frame_, input, false);
}

Pose Motion::Jump(std::int64_t frame, const MotionInput &input) {
    Reset(input);
    for (std::int64_t f = start_frame_; f < frame; ++f) clocks_.Advance(static_cast<double>(f), Rates());
    return Evaluate(frame, input, true);
}

// ---- One frame

Pose Motion::Evaluate(std::int64_t frame, const MotionInput &input, bool catching_up) {
    clocks_.Advance(static_cast<double>(frame), Rates());
    const bool first = frame == start_frame_, without_past = first || catching_up;

    Pose pose;
    pose.focal_length = Zoom(first, input.camera.focal_length);
    const Triple position = Position(without_past, input.camera.position);
    const Triple angles = Rotation(without_past, input, position);
    pose.focus_distance = Focus(first, input, position);
    Jolts(frame);
    pose.position = Sum(position, position_jolt_.offset);
    pose.angles = Closest(frame == 0 ? Triple{} : previous_angles_, Sum(angles, rotation_jolt_.offset));
    previous_angles_ = pose.angles;
    return pose;
}

double Motion::Zoom(bool first, double focal_length) {
    const Triple smoothed = {Step(&zoom_, InputPair(set_(6162)), focal_length), 0, 0};
    zoom_.value = PlainSpring(kZoomSpring, smoothed, set_(6053), set_(6054))[0];
    if (set_(6016) != 1) return zoom_.value;
    const double drift = focal_length * ZoomDrift(WholeOffset(), Seed(), set_(6138),
                                                  {set_(6134), set_(6135), set_(6136)}, set_(6152), clocks_.zoom_drift);
    if (first) {
        zoom_drift_ = {drift, 0};
    } else {
        // The carry is reckoned against the value just reached.
        const Pair pair = ShakePair(set_(6165));
        const double back = (1 - pair.b) * zoom_drift_.carry;
        const double value = zoom_drift_.value + (1 - pair.a) * (back + drift - zoom_drift_.value);
        zoom_drift_ = {value, pair.a * (back + value - zoom_drift_.value)};
    }
    return zoom_.value + zoom_drift_.value;
}

Triple Motion::Position(bool without_past, const Triple &input) {
    const Triple smoothed = Step(&position_, InputPair(set_(6155)), input, without_past);
    Triple position = PlainSpring(kPositionSpring, smoothed, set_(6153), set_(6154));
    Triple shake{};
    bool any = false;
    for (int axis = 0; axis < 3; ++axis) {
        if (set_(6010 + axis) != 1) continue;
        any = true;
        shake[axis] = PositionShake(axis, Seed(), set_(6151), {2 * set_(6024), set_(6025), set_(6026)},
                                    set_(6076 + axis), set_(6020), 0.15 * set_(6022), set_(6152), clocks_.shake);
    }
    if (any) position = Sum(position, Step(&position_shake_, ShakePair(set_(6158)), shake, without_past));
    return position;
}

Triple Motion::Rotation(bool without_past, const MotionInput &input, const Triple &position) {
    const Triple present = {rotation_[0].value, rotation_[1].value, rotation_[2].value};
    const bool aims = Aims(input);
    const Triple goal = aims ? Look(position, *input.target).value_or(present) : input.camera.angles;
    const Triple smoothed =
        Step(&rotation_, InputPair(aims ? set_(6161) : set_(6156)), Closest(present, goal), without_past);
    Triple angles = aims ? AngleSpring(kTargetSpring, smoothed, set_(6071), set_(6072))
                         : AngleSpring(kRotationSpring, smoothed, set_(6034), set_(6035));
    Triple shake{};
    bool any = false;
    for (int angle = 0; angle < 3; ++angle) {
        if (set_(6013 + angle) != 1) continue;
        any = true;
        shake[angle] = RotationShake(angle, Seed(), WholeOffset(), {set_(6028), set_(6029), set_(6030)},
                                     set_(6100 + angle), set_(6021), set_(6152), clocks_.shake);
    }
    if (any) angles = Sum(angles, Step(&rotation_shake_, ShakePair(set_(6158)), shake, without_past));
    return angles;
}

double Motion::Focus(bool first, const MotionInput &input, const Triple &position) {
    const double goal = input.focus_object ? Distance(*input.focus_object, position) : input.camera.focus_distance;
    const double drift_distance = input.focus_object ? goal : focus_.value;
    const Triple smoothed = {Step(&focus_, InputPair(set_(6064)), goal), 0, 0};
    focus_.value = PlainSpring(kFocusSpring, smoothed, set_(6063), set_(6163))[0];
    if (set_(6017) != 1) return focus_.value;
    const double drift = FocusDrift(clocks_.focus, WholeOffset(), {set_(6128), set_(6129), set_(6130)}, Seed(),
                                    set_(6132), set_(6152), drift_distance);
    if (first || drift == 0) return focus_.value + drift;
    const double value = Step(&focus_drift_, ShakePair(set_(6059)), drift);
    focus_drift_.value = drift;  // the raw drift is what is remembered
    return focus_.value + value;
}

// ---- Springs

Triple Motion::PlainSpring(SpringName name, const Triple &input, double amount, double fade) {
    if (amount == 0) {
        springs_[name] = SpringState();
        return input;
    }
    return MoveSpring(&springs_[name], input, amount, fade, false);
}

// The springs of rotation and target go in step, so that there is one past for both.
Triple Motion::AngleSpring(SpringName name, const Triple &input, double amount, double fade) {
    SpringState &spring = springs_[name];
    SpringState &other = springs_[name == kTargetSpring ? kRotationSpring : kTargetSpring];
    if (amount == 0) {
        spring = other = SpringState();
        return input;
    }
    Triple output = MoveSpring(&spring, input, amount, fade, true);
    other = RestingOn(output);
    other.input = spring.input;
    if (name == kTargetSpring) spring.velocity[2] = spring.output[2] = spring.input[2] = output[2] = 0;
    return output;
}

Triple Motion::MoveSpring(SpringState *spring, Triple input, double amount, double fade, bool angles) {
    if (!spring->has_output) *spring = RestingOn(input);
    const double loose = 0.99 * kLoose.At(Unit(amount));
    const double stiffness = 1 - kLoose.At(loose);
    double ramp = 0.005 + 0.05 * (1 - loose);

    if (angles) input = Closest(spring->input, input);
    const double step = Distance(input, spring->input);
    const double counted = step < (angles ? 0.01 : 1.0) ? 0 : step;
    const bool settles = counted == 0 || counted + (angles ? 0.001 : 0.025) < spring->distance;
    const bool was_moving = spring->moving;
    double damping = stiffness;
    if (!settles) {
        if (!was_moving) ramp = 0;
        spring->moving = true;
        spring->stiffness_fade = spring->damping_fade = 0;
    } else if (was_moving && !(spring->distance > counted)) {
        spring->stiffness_fade = spring->damping_fade = 0;
    } else {
        if (was_moving) ramp = 0;
        spring->moving = false;
        spring->stiffness_fade += Unit(fade) * 0.01;
        spring->damping_fade += Unit(fade) * 0.02;
        damping = 0;
    }
    const double damped = std::min(1.0, ramp + damping + spring->damping_fade);
    const double pulled = std::min(1.0, ramp + stiffness + spring->stiffness_fade);
    Triple output;
    for (int i = 0; i < 3; ++i) {
        spring->velocity[i] = pulled * (input[i] - spring->output[i]) + (1 - damped) * spring->velocity[i];
        output[i] = spring->output[i] + spring->velocity[i];
    }
    if (angles) output = Closest(spring->output, output);
    spring->output = output;
    spring->input = input;
    spring->distance = step;
    return output;
}

// ---- Jolts

bool Motion::JoltHits(std::int64_t frame) const {
    if (std::find(set_.triggers.begin(), set_.triggers.end(), frame) != set_.triggers.end()) return true;
    if (set_.interval < 1) return false;
    const std::int64_t now = static_cast<std::int64_t>(clocks_.jolt) + WholeOffset();
    const auto k = static_cast<double>(now / set_.interval);
    const auto hash = static_cast<std::int64_t>(k * k * 111.333 * k + Seed() * 131.92111);
    const auto place = static_cast<double>(hash % set_.interval + 1);
    return static_cast<std::int64_t>((k + 1) * static_cast<double>(set_.interval) - 0.8 * place) == now;
}

void Motion::Jolts(std::int64_t frame) {
    const bool hit = JoltHits(frame);
    const double time = 1.25 * (clocks_.jolt + set_(6151)) * set_(6152), s = Seed();
    const auto at = [&](const Place &place, double rate) { return Noise(place.At(s), time * rate); };
    const double size = 0.15 * set_(6022) * 1000 * set_(6020);
    Jolt(&position_jolt_, hit, set_(6037),
         {at({275, 0, 6541, 1257}, 0.035), at({256, 0, 8745, 25894}, 0.035), at({1902, 0, 98745, 235874}, 0.035)},
         {size * set_(6076), size * set_(6077), size * set_(6078)});
    Jolt(&rotation_jolt_, hit, set_(6144),
         {at({2013, 0, 8796, 20999}, 0.1), at({14876, 0, 74587, 32458}, 0.1), at({315112, 0, 325874, 98745}, 0.1)},
         {set_(6021) * set_(6100), set_(6021) * set_(6101), set_(6021) * set_(6102)});
}

void Motion::Jolt(JoltState *jolt, bool hit, double intensity, const Triple &noise, const Triple &sizes) {
    const Pair pair = InputPair(set_(6170));
    if (hit) jolt->target = intensity * (1 + 0.5 * set_(6170));
    jolt->target = std::max(jolt->target, 0.0);
    if (intensity != 0) {
        FilterState envelope = {jolt->envelope, jolt->carry};
        Step(&envelope, pair, jolt->target);
        jolt->envelope = envelope.value;
        jolt->carry = envelope.carry;
    }
    Triple push{};
    if (set_(6145) == 1 && (jolt->envelope != 0 || jolt->previous != 0 || jolt->target != 0))
        for (int i = 0; i < 3; ++i) push[i] = jolt->envelope * noise[i] * sizes[i];
    const Triple filtered = Step(&jolt->filter, pair, push, false);
    jolt->offset = jolt->envelope >= 0.0001 ? filtered : push;
    jolt->previous = jolt->envelope;
    jolt->target -= 0.1 * set_(6140);
}

}  // namespace model
