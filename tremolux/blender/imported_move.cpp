#include "tremolux/blender/imported_move.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/right_handed.h"
#include "library/formats/source_text.h"
#include "library/moves/scene_units.h"

namespace tremolux {
namespace {

using nlohmann::json;

constexpr double kShortestAxis = 1e-9;
constexpr int kMaxRenderSide = 1000000;

// Numbers of a sample: right, up, back and position, three each; then these.
enum Column : std::size_t { kLens = 12, kFocus, kShiftX, kShiftY, kSampleFStop, kClipStart, kClipEnd, kColumnCount };

class Result {
  public:
    Result(const std::string &file, const json &facts) : file_(file), facts_(facts) {}

    ImportedMove Move() const {
        ImportedMove imported;
        CameraMove &move = imported.move;
        move.rate = Rate();
        move.first_frame =
            static_cast<std::int64_t>(Number(facts_.at("first"), -kMaxFrameNumber, kMaxFrameNumber, "frame"));
        move.traits.path = facts_.at("camera").get<std::string>();
        move.traits.is_orthographic = IsOrthographic();
        move.notes = facts_.at("notes").get<std::vector<std::string>>();
        ReadFilmBack(&imported);
        ReadSamples(&move);
        MakeContinuous(&move.samples);
        return imported;
    }

  private:
    [[noreturn]] void Refuse(const std::string &found, const std::string &expected) const {
        throw Failure(kExitInput, file_ + ": found " + found + ", expected " + expected);
    }

    double Number(const json &value, double minimum, double maximum, const std::string &words) const {
        const double number = value.is_number() ? value.get<double>() : std::nan("");
        if (number >= minimum && number <= maximum) return number;
        Refuse("the " + words + " " + value.dump(),
               "one from " + FormatNumber(minimum) + " to " + FormatNumber(maximum));
    }

    FrameRate Rate() const {
        const double base = Number(facts_.at("fps_base"), 1e-6, 1e6, "fps_base"),
                     fps = Number(facts_.at("fps"), 1, 1e6, "fps");
        if (const std::optional<FrameRate> rate = FrameRateOf(fps / base)) return *rate;
        Refuse(FormatNumber(fps / base) + " frames per second", kExpectedFrameRate);
    }

    std::string Kind() const { return facts_.at("kind").get<std::string>(); }

    bool IsOrthographic() const { return facts_.at("orthographic").get<bool>(); }
    double UnitInMetres() const { return Number(facts_.at("metres"), 1e-6, 1e6, "unit of length"); }

    // Millimetres, across (0) or up (1). What an orthographic camera sees is as large in either direction.
    double Sensor(std::size_t i) const {
        if (!IsOrthographic()) return Number(facts_.at("sensor").at(i), 1e-3, 1e6, "sensor");
        return Number(facts_.at("view"), 1e-6, kMaxNumber, "size of what is seen") * UnitInMetres() * 1000;
    }

    // The sensor lies along the picture's wider side, or as its fit says; the other side is cut by the picture's shape.
    // A file that knows no picture has the sensor's own height, where it says one.
    void ReadFilmBack(ImportedMove *imported) const {
        const auto pixels = [&](std::size_t i) {
            return Number(facts_.at("picture").at(i), 1, kMaxRenderSide, "size of the picture");
        };
        const auto shape = [&](std::size_t i) {
            return Number(facts_.at("pixel").at(i), 1e-3, 1e3, "shape of a pixel");
        };
        const double width = pixels(0) * shape(0), height = pixels(1) * shape(1);
        const std::string fit = facts_.at("fit").get<std::string>();
        const bool upright = fit == "VERTICAL" || (fit == "AUTO" && height > width);
        double film_width, film_height;
        if (upright) {
            film_height = Sensor(fit == "VERTICAL" ? 1 : 0);
            film_width = film_height * width / height;
        } else {
            film_width = Sensor(0);
            film_height = Kind() == ".fbx" && !IsOrthographic() ? Sensor(1) : film_width * height / width;
        }
        CameraMove &move = imported->move;
        const ApertureLimits limits = LimitsOfAperture(IsOrthographic());
        move.aperture_width = Number(film_width, limits.least, limits.most, "film back's width");
        if (Kind() == ".fbx" || Kind() == ".blend")
            move.aperture_height = Number(film_height, limits.least, limits.most, "film back's height");
        if (Kind() != ".blend") return;
        imported->width = static_cast<int>(pixels(0));
        imported->height = static_cast<int>(pixels(1));
    }

    // Blender's shifts are parts of the sensor's side that the fit says.
    double ShiftedSide(const CameraMove &move) const {
        const std::string fit = facts_.at("fit").get<std::string>();
        const double height = move.aperture_height.value_or(0);
        if (fit == "VERTICAL") return Sensor(1);
        return fit == "AUTO" ? std::max(move.aperture_width, Kind() == ".blend" ? height : 0) : move.aperture_width;
    }

    void ReadSamples(CameraMove *move) const {
        const json &rows = facts_.at("samples");
        if (rows.empty() || rows.size() > kMaxFrames)
            Refuse(std::to_string(rows.size()) + " frames", "1 to " + std::to_string(kMaxFrames));
        const double unit = UnitInMetres() * kSceneUnitsPerMetre;
        const double side = ShiftedSide(*move);
        std::array<std::vector<double>, kTraitChannelCount> channels;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::string frame = " of frame " + std::to_string(move->first_frame + static_cast<std::int64_t>(i));
            const auto number = [&](std::size_t column, double scale, double minimum, double maximum,
                                    const char *words) {
                const double value = Number(rows[i].at(column), -kMaxNumber, kMaxNumber, words + frame);
                return Number(value * scale, minimum, maximum, words + frame);
            };
            const auto any = [&](std::size_t column, double scale, const char *words) {
                return number(column, scale, -kMaxNumber, kMaxNumber, words);
            };
            const auto vector = [&](std::size_t column, double scale, const char *words) {
                return host::Vector{any(column, scale, words), any(column + 1, scale, words),
                                    any(column + 2, scale, words)};
            };
            const host::Matrix camera = {vector(9, unit, "position"), vector(0, 1, "matrix"), vector(3, 1, "matrix"),
                                         vector(6, 1, "matrix")};
            const double turned = host::Dot(host::Cross(camera.v1, camera.v2), camera.v3);
            if (!(turned > kShortestAxis * kShortestAxis * kShortestAxis))
                Refuse("a mirrored or flat matrix" + frame, "a camera that is turned and placed");
            CameraSample sample;
            SetFromRightHanded(YUpOf(camera), &sample);
            sample.focal_length = number(kLens, 1, kMinFocalLength, kMaxFocalLength, "focal length");
            sample.focus_distance = number(kFocus, unit, 0, kMaxNumber, "focus distance");
            move->samples.push_back(sample);
            channels[kHorizontalOffset].push_back(any(kShiftX, side, "shift"));
            channels[kVerticalOffset].push_back(any(kShiftY, side, "shift"));
            channels[kFStop].push_back(any(kSampleFStop, 1, "f-stop"));
            channels[kNearClip].push_back(any(kClipStart, unit, "clipping"));
            channels[kFarClip].push_back(any(kClipEnd, unit, "clipping"));
        }
        for (std::size_t i = 0; i < channels.size(); ++i) move->traits.channels[i] = Short(std::move(channels[i]), i);
    }

    // One number for all frames that are the same; nothing for a shift or an f-stop that is not there.
    static std::vector<double> Short(std::vector<double> values, std::size_t channel) {
        if (values.empty()) return values;
        const double first = values.front();
        if (std::any_of(values.begin(), values.end(), [first](double value) { return value != first; })) return values;
        const bool absent =
            first == 0 && (channel == kHorizontalOffset || channel == kVerticalOffset || channel == kFStop);
        return absent ? std::vector<double>() : std::vector<double>{first};
    }

    const std::string &file_;
    const json &facts_;
};

}  // namespace

ImportedMove ReadImported(const std::string &file, std::string_view result) {
    try {
        const json facts = json::parse(result);
        if (facts.contains("refused")) throw Failure(kExitInput, file + ": " + facts.at("refused").get<std::string>());
        return Result(file, facts).Move();
    } catch (const json::exception &) {
        throw Failure(kExitInput, file + ": found a result of Blender that is cut off, expected the camera's frames");
    }
}

}  // namespace tremolux
