#include "library/recorded/split.h"

#include <algorithm>
#include <cmath>

#include "host/scene/angles.h"

namespace tremolux {
namespace {

using Eigen::Quaterniond;

constexpr double kReach = 4;   // standard deviations, beyond which the kernel is nothing
constexpr int kRounds = 4;     // of the mean on the sphere, which settles quadratically

// exp(-2 pi^2 sigma^2 f^2) is the root of a half at f: sigma = sqrt(ln 2) / (2 pi f).
std::vector<double> GaussianKernel(double hertz, double rate, std::size_t longest) {
    const double sigma = std::sqrt(std::log(2.0)) / (2 * host::kPi * hertz) * rate;
    const auto reach = static_cast<std::size_t>(std::min(std::ceil(kReach * sigma), static_cast<double>(longest)));
    std::vector<double> kernel(reach + 1);
    double sum = 0;
    for (std::size_t i = 0; i <= reach; ++i) {
        const double place = static_cast<double>(i) / sigma;
        kernel[i] = std::exp(-0.5 * place * place);
        sum += (i == 0 ? 1 : 2) * kernel[i];
    }
    for (double &weight : kernel) weight /= sum;
    return kernel;
}

// Frame `i` of a move that goes on beyond its ends turned round about them.
struct Places {
    const std::vector<CameraSample> &samples;
    std::ptrdiff_t Last() const { return static_cast<std::ptrdiff_t>(samples.size()) - 1; }
    host::Vector At(std::ptrdiff_t i) const {
        const auto at = [&](std::ptrdiff_t k) { return samples[static_cast<std::size_t>(k)].position; };
        if (i < 0) return at(0) * 2 - at(-i);
        if (i > Last()) return at(Last()) * 2 - at(2 * Last() - i);
        return at(i);
    }
};

struct Rotations {
    std::vector<Quaterniond> rotations;
    std::ptrdiff_t Last() const { return static_cast<std::ptrdiff_t>(rotations.size()) - 1; }
    Quaterniond At(std::ptrdiff_t i) const {
        const auto at = [&](std::ptrdiff_t k) { return rotations[static_cast<std::size_t>(k)]; };
        const auto about = [&](std::ptrdiff_t end, std::ptrdiff_t k) {
            return Turned(at(end), -TurnTo(at(end), at(k)));
        };
        if (i < 0) return about(0, -i);
        if (i > Last()) return about(Last(), 2 * Last() - i);
        return at(i);
    }
};

// The same rotation, with as many whole turns as bring it nearest to the one before: a quick pan goes on, and does not come back
// the short way.
TurnVector NearestTurn(const TurnVector &turn, const TurnVector &before) {
    const double half_angle = turn.norm();
    if (half_angle < 1e-12) return turn;
    const TurnVector axis = turn / half_angle;
    return axis * (half_angle + host::kPi * std::round((axis.dot(before) - half_angle) / host::kPi));
}

Quaterniond MeanRotation(const Rotations &rotations, std::ptrdiff_t frame, const std::vector<double> &kernel) {
    Quaterniond mean = rotations.At(frame);
    for (int round = 0; round < kRounds; ++round) {
        const TurnVector middle = TurnTo(mean, rotations.At(frame));
        TurnVector way = middle * kernel[0], before = middle, after = middle;
        for (std::size_t i = 1; i < kernel.size(); ++i) {
            const auto k = static_cast<std::ptrdiff_t>(i);
            before = NearestTurn(TurnTo(mean, rotations.At(frame - k)), before);
            after = NearestTurn(TurnTo(mean, rotations.At(frame + k)), after);
            way += (before + after) * kernel[i];
        }
        mean = Turned(mean, way);
    }
    return mean;
}

}  // namespace

SplitMove Split(const CameraMove &move, double hertz) {
    SplitMove parts{move, {}};
    if (move.samples.size() < 2) {
        parts.fast.resize(move.samples.size());
        return parts;
    }
    const std::vector<double> kernel = GaussianKernel(hertz, move.rate.PerSecond(), move.samples.size() - 1);
    const Places places{move.samples};
    Rotations rotations;
    rotations.rotations.reserve(move.samples.size());
    for (const CameraSample &sample : move.samples) rotations.rotations.push_back(RotationOf(sample.angles));
    parts.fast.reserve(move.samples.size());
    for (std::size_t i = 0; i < move.samples.size(); ++i) {
        const auto frame = static_cast<std::ptrdiff_t>(i);
        host::Vector position = places.At(frame) * kernel[0];
        for (std::size_t k = 1; k < kernel.size(); ++k) {
            const auto away = static_cast<std::ptrdiff_t>(k);
            position = position + (places.At(frame - away) + places.At(frame + away)) * kernel[k];
        }
        const Quaterniond rotation = MeanRotation(rotations, frame, kernel);
        CameraSample &slow = parts.slow.samples[i];
        parts.fast.push_back({slow.position - position, TurnTo(rotation, rotations.At(frame)), slow.angles});
        slow.position = position;
        slow.angles = host::OptimalAngle(slow.angles, AnglesOf(rotation));
    }
    return parts;
}

CameraMove Joined(const SplitMove &parts, double share) {
    CameraMove move = parts.slow;
    for (std::size_t i = 0; i < move.samples.size(); ++i) {
        CameraSample &sample = move.samples[i];
        sample.position = sample.position + parts.fast[i].position * share;
        sample.angles = host::OptimalAngle(parts.fast[i].angles,
                                           AnglesOf(Turned(RotationOf(sample.angles), parts.fast[i].turn * share)));
    }
    return move;
}

}  // namespace tremolux
