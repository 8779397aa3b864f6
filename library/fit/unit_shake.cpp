#include "library/fit/unit_shake.h"

#include <mutex>

#include "generated/module_ids.h"
#include "host/value/descid.h"
#include "host/value/radians.h"
#include "library/fit/shake_settings.h"
#include "library/frame_rates/keep_hz.h"
#include "library/measures/spectrum.h"

namespace tremolux {
namespace {

constexpr std::int32_t kPositionLayers[kLayers] = {ids::kPositionSlow, ids::kPositionMedium, ids::kPositionFast},
                       kRotationLayers[kLayers] = {ids::kRotationSlow, ids::kRotationMedium, ids::kRotationFast};

// Nothing but the noise, on every axis alike.
const std::vector<std::string> &PlainShake() {
    static const std::vector<std::string> settings = [] {
        ShakeSettings plain;
        plain.position_ratios = plain.rotation_ratios = {1, 1, 1};
        std::vector<std::string> texts = SettingTexts(plain);
        texts.push_back(std::to_string(ids::kUseTarget) + "=off");
        return texts;
    }();
    return settings;
}

void Set(host::Tag *tag, std::int32_t id, double value) { tag->SetParameter(host::MakeId(id), host::Data(value)); }

}  // namespace

UnitShake::UnitShake(Players *players, int seeds) : players_(players), seeds_(seeds) { LearnedShakeSmoothing(); }

void UnitShake::Learn(const std::vector<Pace> &paces) {
    std::vector<Pace> unknown;
    for (const Pace &pace : paces)
        if (known_.try_emplace(pace).second) unknown.push_back(pace);
    players_->SetAll(PlainShake());
    const auto seeds = static_cast<std::size_t>(seeds_);
    std::mutex lock;
    const double rate = players_->Rate().PerSecond();
    players_->ForEach(unknown.size() * kLayers * seeds, [&](std::size_t piece, Stage *stage) {
        const Pace pace = unknown[piece / (kLayers * seeds)];
        const std::size_t layer = piece / seeds % kLayers;
        host::Tag *tag = &stage->CameraTag();
        Set(tag, ids::kShakeSpeed, pace.speed);
        Set(tag, ids::kSpeedVariation, pace.variation);
        tag->SetParameter(host::MakeId(ids::kSeed), host::Data(static_cast<std::int32_t>(piece % seeds)));
        for (std::size_t i = 0; i < kLayers; ++i) {
            Set(tag, kPositionLayers[i], i == layer ? 1 : 0);
            Set(tag, kRotationLayers[i], i == layer ? host::kRadiansPerDegree : 0);
        }
        AxisMotion take = players_->Take(stage);
        std::array<Spectrum, kAxes> spectra;
        std::array<double, kAxes> drifts{};
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            drifts[axis] = RemoveDrift(rate, &take[axis]);
            spectra[axis] = MeasureSpectrum(take[axis], rate);
        }
        const std::lock_guard<std::mutex> hold(lock);
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            LayerSpectrum &mean = known_[pace][axis][layer];
            mean.power.resize(spectra[axis].power.size());
            for (std::size_t i = 0; i < mean.power.size(); ++i) mean.power[i] += spectra[axis].power[i] / seeds_;
            mean.drift += drifts[axis] / seeds_;
        }
        step_ = spectra.front().step;
    });
}

GroupPowers UnitShake::At(const Pace &pace, double smooth) const {
    const LayerSpectra &spectra = known_.at(pace);
    const SmoothingFilter filter = LearnedShakeSmoothing().At(smooth);
    const std::size_t count = spectra.front().front().power.size();
    std::vector<double> gains(count);
    std::vector<std::size_t> bands(count, kFitBands.size());
    for (std::size_t i = 1; i < count; ++i) {
        const double hertz = step_ * static_cast<double>(i), gain = GainOf(filter, hertz / players_->Rate().PerSecond());
        gains[i] = gain * gain;
        for (std::size_t band = 0; band < kFitBands.size(); ++band)
            if (hertz > kFitBands[band].low && hertz <= kFitBands[band].high) bands[i] = band;
    }
    GroupPowers powers{};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        for (std::size_t layer = 0; layer < kLayers; ++layer) {
            TermPowers &terms = (IsPosition(axis) ? powers.position[axis] : powers.rotation[axis - kGroupAxes])[layer];
            double beyond = 0;
            for (std::size_t i = 1; i < count; ++i)
                (bands[i] < kFitBands.size() ? terms[bands[i]] : beyond) += spectra[axis][layer].power[i] * gains[i];
            terms[kTotalTerm] = beyond;
            for (std::size_t band = 0; band < kFitBands.size(); ++band) terms[kTotalTerm] += terms[band];
            // As slow as it is it passes the filter as it is.
            terms[kDriftTerm] = spectra[axis][layer].drift;
        }
    }
    return powers;
}

}  // namespace tremolux
