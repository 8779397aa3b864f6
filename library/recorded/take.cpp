#include "library/recorded/take.h"

#include <algorithm>
#include <cmath>

#include "host/scene/angles.h"
#include "library/direction/smoother_step.h"
#include "library/failure.h"
#include "library/recorded/split.h"

namespace tremolux {
namespace {

constexpr double kShortest = 0.5, kLongestFade = 1;  // seconds
constexpr double kFadeShare = 0.25;                  // of a short take

// Of three numbers about a mirror in the camera's picture: a way along it, and a turn about an axis.
Eigen::Vector3d MirroredWay(const Eigen::Vector3d &way) { return {-way.x(), way.y(), way.z()}; }
TurnVector MirroredTurn(const TurnVector &turn) { return {turn.x(), -turn.y(), -turn.z()}; }

TakenShake Mirrored(const TakenShake &shake) { return {MirroredWay(shake.position), MirroredTurn(shake.turn)}; }

TakenShake Sum(const TakenShake &a, double weight_a, const TakenShake &b, double weight_b) {
    return {a.position * weight_a + b.position * weight_b, a.turn * weight_a + b.turn * weight_b};
}

Eigen::Vector3d ToEigen(const host::Vector &vector) { return {vector.x, vector.y, vector.z}; }

// Where the end of the arm goes when it turns.
Eigen::Vector3d ArmMotion(const TurnVector &turn, double arm) {
    const Eigen::Vector3d held(0, 0, arm);
    return Turned(Eigen::Quaterniond::Identity(), turn) * held - held;
}

// Catmull and Rom, A Class of Local Interpolating Splines, 1974.
Eigen::Vector3d Spline(const Eigen::Vector3d &a, const Eigen::Vector3d &b, const Eigen::Vector3d &c,
                       const Eigen::Vector3d &d, double t) {
    return b + 0.5 * t * (c - a + t * (2 * a - 5 * b + 4 * c - d + t * (3 * (b - c) + d - a)));
}

}  // namespace

Take::Take(const CameraMove &recording, double hertz, double arm) : rate_(recording.rate.PerSecond()) {
    const SplitMove parts = Split(recording, hertz);
    frames_.reserve(parts.fast.size());
    for (std::size_t i = 0; i < parts.fast.size(); ++i) {
        const FastPart &fast = parts.fast[i];
        const Eigen::Quaterniond slow = RotationOf(parts.slow.samples[i].angles);
        frames_.push_back({slow.conjugate() * ToEigen(fast.position) + ArmMotion(fast.turn, arm), fast.turn});
    }
    if (Seconds() < kShortest)
        throw Failure(kExitInput, "found a recording of " + std::to_string(frames_.size()) +
                                      " frames, expected one of half a second or more");
    fade_ = std::min(kLongestFade, kFadeShare * Seconds());
}

double Take::Seconds() const { return static_cast<double>(frames_.size() - 1) / rate_; }

TakenShake Take::Inside(double seconds) const {
    const double place = std::clamp(seconds * rate_, 0.0, static_cast<double>(frames_.size() - 1));
    const auto before = std::min(static_cast<std::size_t>(place), frames_.size() - 2);
    const TakenShake &a = frames_[before == 0 ? 0 : before - 1], &b = frames_[before], &c = frames_[before + 1],
                     &d = frames_[std::min(before + 2, frames_.size() - 1)];
    const double t = place - static_cast<double>(before);
    return {Spline(a.position, b.position, c.position, d.position, t), Spline(a.turn, b.turn, c.turn, d.turn, t)};
}

TakenShake Take::At(double seconds) const {
    const double period = Seconds() - fade_, round = std::floor(seconds / period), now = seconds - round * period;
    const bool is_mirrored = std::fmod(round, 2) != 0;
    TakenShake coming = is_mirrored ? Mirrored(Inside(now)) : Inside(now);
    if (round == 0 || now >= fade_) return coming;
    const TakenShake going = is_mirrored ? Inside(now + period) : Mirrored(Inside(now + period));
    const double quarter = host::kPi / 2 * SmootherStep(now / fade_);
    return Sum(coming, std::sin(quarter), going, std::cos(quarter));
}

CameraMove PutOn(const CameraMove &move, const Take &take, const TakeOptions &options) {
    CameraMove shaken = move;
    for (std::size_t i = 0; i < shaken.samples.size(); ++i) {
        const TakenShake shake = take.At(static_cast<double>(i) / move.rate.PerSecond() * options.speed);
        CameraSample &sample = shaken.samples[i];
        const Eigen::Quaterniond own = RotationOf(sample.angles);
        const Eigen::Vector3d way = own * (shake.position * options.amount);
        sample.position = sample.position + host::Vector{way.x(), way.y(), way.z()};
        sample.angles = host::OptimalAngle(sample.angles, AnglesOf(Turned(own, shake.turn * options.amount)));
    }
    return shaken;
}

}  // namespace tremolux
