#include "library/formats/usd/stage.h"

#include <cmath>

#include "library/formats/numbers.h"
#include "library/moves/scene_units.h"

namespace tremolux {
namespace {

// What a file means where it says nothing.
constexpr double kFallbackMetresPerUnit = 0.01, kFallbackRate = 24;
constexpr double kMinUnit = 1e-6, kMaxUnit = 1e6;                     // metres
constexpr double kMinCodesPerSecond = 1e-3, kMaxCodesPerSecond = 1e6;  // where the frames have a rate of their own
constexpr double kSameRate = 1e-3;

class UsdStageReader {
  public:
    UsdStageReader(const SourceText &source, const UsdLayer &layer, const FormatOptions &options)
        : source_(source), layer_(layer), options_(options) {}

    UsdStage Read(std::vector<std::string> *notes) const {
        UsdStage stage;
        stage.metres_per_unit = Number("metersPerUnit", kMinUnit, kMaxUnit).value_or(kFallbackMetresPerUnit);
        stage.is_z_up = IsZUp();
        stage.start = Number("startTimeCode", -kMaxNumber, kMaxNumber);
        stage.end = Number("endTimeCode", -kMaxNumber, kMaxNumber);
        SetRate(&stage, notes);
        return stage;
    }

  private:
    std::optional<double> Number(const char *name, double minimum, double maximum) const {
        const auto entry = layer_.metadata.find(name);
        if (entry == layer_.metadata.end() || entry->second.is_none) return std::nullopt;
        const UsdValue &value = entry->second;
        if (value.numbers.size() != 1 || !(value.numbers[0] >= minimum && value.numbers[0] <= maximum)) {
            source_.RefuseAt(value.place, value.numbers.empty() ? "no number" : FormatNumber(value.numbers[0]),
                             "a number from " + FormatNumber(minimum) + " to " + FormatNumber(maximum) + " for " + name);
        }
        return value.numbers[0];
    }

    bool IsZUp() const {
        const auto entry = layer_.metadata.find("upAxis");
        if (entry == layer_.metadata.end() || entry->second.is_none) return false;
        const bool is_z = entry->second.texts == std::vector<std::string>{"Z"};
        if (!is_z && entry->second.texts != std::vector<std::string>{"Y"})
            source_.RefuseAt(entry->second.place, "another upAxis", "\"Y\" or \"Z\"");
        return is_z;
    }

    // Frames are whole time codes, unless the file counts both and counts them apart.
    void SetRate(UsdStage *stage, std::vector<std::string> *notes) const {
        const auto codes = Number("timeCodesPerSecond", 0, kMaxNumber), frames = Number("framesPerSecond", 0, kMaxNumber);
        const char *name = frames ? "framesPerSecond" : "timeCodesPerSecond";
        const double per_second = frames.value_or(codes.value_or(kFallbackRate));
        const std::optional<FrameRate> rate = FrameRateOf(per_second);
        if (!rate && !options_.rate) {
            source_.RefuseAt(layer_.metadata.at(name).place, FormatNumber(per_second),
                             std::string(kExpectedFrameRate) + ", for " + name + "; --fps says another");
        }
        const bool says_rate = rate && (codes || frames);
        stage->rate = options_.rate && !says_rate ? *options_.rate : *rate;
        if (!rate || !codes || !frames || std::abs(*codes - *frames) <= kSameRate) return;
        const double known_codes = *Number("timeCodesPerSecond", kMinCodesPerSecond, kMaxCodesPerSecond);
        const std::optional<FrameRate> exact = FrameRateOf(known_codes);
        stage->codes_per_frame = (exact ? exact->PerSecond() : known_codes) / rate->PerSecond();
        notes->push_back("it counts " + FormatNumber(known_codes) + " time codes a second and " +
                         FormatNumber(per_second) + " frames a second: the camera is taken at the frames, every " +
                         FormatNumber(stage->codes_per_frame) + " time codes");
    }

    const SourceText &source_;
    const UsdLayer &layer_;
    const FormatOptions &options_;
};

}  // namespace

double UsdStage::UnitsToScene(double units) const { return units * metres_per_unit / kMetresPerSceneUnit; }

UsdStage UsdStageOf(const SourceText &source, const UsdLayer &layer, const FormatOptions &options,
              std::vector<std::string> *notes) {
    return UsdStageReader(source, layer, options).Read(notes);
}

}  // namespace tremolux
