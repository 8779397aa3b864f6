#include "library/formats/json.h"

#include <cmath>
#include <iterator>
#include <nlohmann/json.hpp>
#include <optional>

#include "library/formats/frame_order.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"

namespace tremolux {
namespace {

using nlohmann::json;

// Where texts stand, and what they must say: a file in other units is none of these.
struct FixedText {
    const char *group, *name, *text;
};
constexpr FixedText kFixedTexts[] = {
    {"units", "position", "centimetres"},
    {"units", "hpb", "degrees"},
    {"units", "focal_length", "millimetres"},
    {"units", "focus_distance", "centimetres"},
    {"units", "film_back_width", "millimetres"},
    {"units", "film_back_height", "millimetres"},
    {"units", "film_back_offset_x", "millimetres to the right"},
    {"units", "film_back_offset_y", "millimetres up"},
    {"units", "near_clip", "centimetres"},
    {"units", "far_clip", "centimetres"},
    {"units", "shutter_open", "frames from the frame's own time"},
    {"units", "shutter_close", "frames from the frame's own time"},
    {"conventions", "axes", "left-handed, x right, y up; with hpb 0 0 0 the camera looks along +z"},
    {"conventions", "hpb",
     "heading about y, pitch about x, bank about z; with z mirrored, column vectors: Ry(heading) Rx(pitch) Rz(-bank)"},
};
constexpr const char *kFormatName = "tremolux camera move";
constexpr const char *kPerspectiveName = "perspective", *kOrthographicName = "orthographic";
constexpr double kMoveVersion = 1;

enum Entry : unsigned { kHasFrame = 1, kHasPosition = 2, kHasHpb = 4, kHasFocalLength = 8, kHasFocusDistance = 16 };
constexpr unsigned kNeeded = kHasFrame | kHasPosition | kHasHpb;
constexpr const char *kNeededText = "a frame with frame, position and hpb";

// Reads the text on, and says how far the parser has read.
class CountingIterator {
  public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char *;
    using reference = const char &;
    CountingIterator(const char *at, const char **reached) : at_(at), reached_(reached) {}
    reference operator*() const { return *at_; }
    CountingIterator &operator++() {
        *reached_ = at_++;
        return *this;
    }
    bool operator==(const CountingIterator &other) const { return at_ == other.at_; }
    bool operator!=(const CountingIterator &other) const { return at_ != other.at_; }

  private:
    const char *at_;
    const char **reached_;  // the last byte that was read
};

struct ReadNumber {
    const char *start = nullptr;  // its first byte
    double value = 0;
};

// Takes the file as it is parsed; a path such as ".frames[].hpb[]" says what a value is.
class Handler : public nlohmann::json_sax<json> {
  public:
    // `begin` is the first byte that is parsed.
    Handler(const SourceText &source, const char *begin, const FormatOptions &options, CameraMove *move)
        : source_(source), begin_(begin), options_(options), move_(*move), order_(source, options.fills_gaps) {}
    const char **Reached() { return &reached_; }
    void Finish() {
        if (move_.samples.empty()) Refuse("no frames", "at least one frame in \"frames\"");
        for (int i = 0; i < kTraitChannelCount; ++i) {
            const auto channel = static_cast<TraitChannel>(i);
            const std::size_t count = move_.traits.channels[channel].size();
            if (in_frames_[channel] && count != move_.samples.size())
                Refuse(std::to_string(count) + " frames with " + InfoOf(channel).key,
                       "it in every one of the " + std::to_string(move_.samples.size()) + ", or outside of them");
        }
        TakeFilmBack();
        order_.Finish(&move_);
    }

    bool null() override { RefuseKind("null"); }
    bool boolean(bool value) override { RefuseKind(value ? "true" : "false"); }
    bool number_integer(number_integer_t value) override { return Number(static_cast<double>(value)); }
    bool number_unsigned(number_unsigned_t value) override { return Number(static_cast<double>(value)); }
    bool number_float(number_float_t value, const string_t &) override { return Number(value); }
    bool binary(binary_t &) override { return false; }

    bool string(string_t &value) override {
        if (path_ == ".format") return Same(value, kFormatName);
        if (path_ == ".camera") {
            move_.traits.path = value;
            return true;
        }
        if (path_ == ".projection") {
            move_.traits.is_orthographic = value == kOrthographicName;
            return move_.traits.is_orthographic || Same(value, kPerspectiveName);
        }
        for (const FixedText &fixed : kFixedTexts) {
            if (path_ == std::string(".") + fixed.group + "." + fixed.name) return Same(value, fixed.text);
        }
        RefuseKind(Quoted(value));
    }

    bool start_object(std::size_t) override {
        if (!path_.empty() && path_ != ".units" && path_ != ".conventions" && path_ != ".frames[]") {
            RefuseKind("an object");
        }
        if (path_ == ".frames[]") {
            move_.samples.emplace_back();
            seen_ = 0;
        }
        bases_.push_back(path_.size());
        return true;
    }

    bool key(string_t &name) override {
        path_.resize(bases_.back());
        path_ += "." + name;
        return true;
    }

    bool end_object() override {
        Leave();
        if (path_ == ".frames[]" && (seen_ & kNeeded) != kNeeded) Refuse("the end of a frame", kNeededText);
        return true;
    }

    bool start_array(std::size_t) override {
        if (path_ == ".frames") {
            if (!move_.samples.empty()) Refuse("frames again", "\"frames\" once");
        } else if (path_ == ".frames[].position") {
            See(kHasPosition);
        } else if (path_ == ".frames[].hpb") {
            See(kHasHpb);
        } else if (path_ != ".frames_per_second") {
            RefuseKind("an array");
        }
        count_ = 0;
        bases_.push_back(path_.size());
        path_ += "[]";
        return true;
    }

    bool end_array() override {
        Leave();
        const std::string numbers = std::to_string(count_) + " numbers";
        if (path_ == ".frames_per_second") {
            TakeRate(count_ == 2 ? MakeFrameRate(rate_terms_[0], rate_terms_[1]) : std::nullopt, numbers);
        } else if (path_ != ".frames" && count_ != 3) {
            Refuse(numbers, "3 numbers");
        }
        return true;
    }

    bool parse_error(std::size_t, const std::string &token, const nlohmann::detail::exception &) override {
        Refuse(token.empty() ? "the end of the file" : Quoted(token), "JSON");
    }

  private:
    [[noreturn]] void Refuse(const std::string &found, const std::string &expected) const {
        source_.RefuseAt(number_ != nullptr ? number_ : reached_, found, expected);
    }

    [[noreturn]] void RefuseKind(const std::string &found) const {
        Refuse(found + " for " + Quoted(path_), "what docs/formats.md lists for a camera move");
    }

    void Leave() {
        path_.resize(bases_.back());
        bases_.pop_back();
    }

    bool Same(const std::string &value, const char *expected) const {
        if (value != expected) Refuse(Quoted(value), "'" + std::string(expected) + "'");
        return true;
    }

    void See(Entry entry) {
        if ((seen_ & entry) != 0) Refuse("an entry of the frame again", "each entry once");
        seen_ |= entry;
    }

    double Between(double value, double minimum, double maximum) const {
        if (value >= minimum && value <= maximum) return value;
        Refuse(FormatNumber(value),
               "a number from " + FormatNumber(minimum) + " to " + FormatNumber(maximum) + " for " + Quoted(path_));
    }

    static std::optional<std::int64_t> Whole(double value) {
        if (std::abs(value) > kMaxNumber || value != std::floor(value)) return std::nullopt;
        return static_cast<std::int64_t>(value);
    }

    double &Component(host::Vector *vector) {
        if (++count_ > 3) Refuse("another number", "3 numbers");
        return count_ == 1 ? vector->x : count_ == 2 ? vector->y : vector->z;
    }

    // The parser has read the byte behind the number too.
    const char *StartOfNumber() const {
        const char *start = reached_;
        while (start > begin_ && std::string_view("+-.0123456789Ee").find(start[-1]) != std::string_view::npos) --start;
        return start;
    }

    bool Number(double value) {
        number_ = StartOfNumber();
        TakeNumber(value);
        number_ = nullptr;
        return true;
    }

    void TakeNumber(double value) {
        if (path_ == ".frames[].position[]") {
            Component(&move_.samples.back().position) = Between(value, -kMaxNumber, kMaxNumber);
        } else if (path_ == ".frames[].hpb[]") {
            Component(&move_.samples.back().angles) = Between(value, -kMaxNumber, kMaxNumber) * kRadiansPerDegree;
        } else if (path_ == ".frames[].frame") {
            See(kHasFrame);
            if (const std::string expected = order_.Add(Whole(value)); !expected.empty())
                Refuse(FormatNumber(value), expected);
        } else if (path_ == ".frames[].focal_length") {
            See(kHasFocalLength);
            move_.samples.back().focal_length = Between(value, kMinFocalLength, kMaxFocalLength);
        } else if (path_ == ".frames[].focus_distance") {
            See(kHasFocusDistance);
            move_.samples.back().focus_distance = Between(value, 0, kMaxNumber);
        } else if (path_ == ".frames_per_second") {
            TakeRate(FrameRateOf(value), FormatNumber(value));
        } else if (path_ == ".frames_per_second[]") {
            if (++count_ > 2) Refuse("another number", "2 numbers");
            rate_terms_[count_ - 1] = Whole(value).value_or(0);
        } else if (path_ == ".film_back_width") {
            film_back_width_ = {number_, value};
        } else if (path_ == ".film_back_height") {
            film_back_height_ = {number_, value};
        } else if (path_ == ".version") {
            if (value != kMoveVersion) Refuse("version " + FormatNumber(value), "version " + FormatNumber(kMoveVersion));
        } else if (!TakeTrait(value)) {
            RefuseKind(FormatNumber(value));
        }
    }

    // What it may be depends on the projection, which may stand behind it.
    void TakeFilmBack() {
        const ApertureLimits limits = LimitsOfAperture(move_.traits.is_orthographic);
        const auto take = [&](const ReadNumber &side, const char *path) {
            path_ = path;
            number_ = side.start;
            return Between(side.value, limits.least, limits.most);
        };
        if (film_back_width_.start != nullptr) move_.aperture_width = take(film_back_width_, ".film_back_width");
        if (film_back_height_.start != nullptr) move_.aperture_height = take(film_back_height_, ".film_back_height");
    }

    // One number for all frames, or one in each of them.
    bool TakeTrait(double value) {
        constexpr std::string_view kInFrame = ".frames[].";
        if (path_.empty()) return false;
        const bool in_frame = path_.compare(0, kInFrame.size(), kInFrame) == 0;
        const std::string_view key = std::string_view(path_).substr(in_frame ? kInFrame.size() : 1);
        for (int i = 0; i < kTraitChannelCount; ++i) {
            const auto channel = static_cast<TraitChannel>(i);
            if (key != InfoOf(channel).key) continue;
            std::vector<double> &values = move_.traits.channels[channel];
            const std::size_t due = in_frame ? move_.samples.size() - 1 : 0;
            if (values.size() != due || in_frames_[channel] != (in_frame && due > 0))
                Refuse(Quoted(path_) + " here", "it once in every frame, or once outside of them");
            values.push_back(Between(value, -kMaxNumber, kMaxNumber));
            in_frames_[channel] = in_frame;
            return true;
        }
        return false;
    }

    void TakeRate(const std::optional<FrameRate> &rate, const std::string &found) {
        if (rate) move_.rate = *rate;
        if (!rate && !options_.rate)
            Refuse(found, std::string(kExpectedFrameRate) + " or [24000, 1001]; --fps says another");
    }

    const SourceText &source_;
    const char *const begin_;
    const FormatOptions &options_;
    CameraMove &move_;
    FrameOrder order_;
    const char *reached_ = begin_;
    const char *number_ = nullptr;  // the first byte of the number that is looked at
    std::string path_;
    std::vector<std::size_t> bases_;  // how long the path was outside each open object and array
    std::size_t count_ = 0;           // of numbers in the open array
    unsigned seen_ = 0;               // entries of the open frame
    std::int64_t rate_terms_[2] = {};
    ReadNumber film_back_width_, film_back_height_;
    bool in_frames_[kTraitChannelCount] = {};  // which traits the frames say
};

// What is beside the motion, and in this move not there: it has no unit either.
bool IsAbsent(const CameraMove &move, std::string_view name) {
    if (name == "film_back_height") return !move.aperture_height.has_value();
    for (int i = 0; i < kTraitChannelCount; ++i) {
        const auto channel = static_cast<TraitChannel>(i);
        if (name == InfoOf(channel).key) return !move.traits.Has(channel);
    }
    return false;
}

std::string Group(const char *name, const CameraMove &move) {
    std::string text;
    for (const FixedText &fixed : kFixedTexts) {
        if (std::string_view(fixed.group) != name || IsAbsent(move, fixed.name)) continue;
        text += std::string(text.empty() ? "" : ",\n") + "    \"" + fixed.name + "\": \"" + fixed.text + "\"";
    }
    return "  \"" + std::string(name) + "\": {\n" + text + "\n  },\n";
}

std::string RateText(const FrameRate &rate) {
    if (rate.IsWhole()) return std::to_string(rate.numerator);
    return "[" + std::to_string(rate.numerator) + ", " + std::to_string(rate.denominator) + "]";
}

std::string Triple(const host::Vector &vector) {
    return "[" + FormatNumber(vector.x) + ", " + FormatNumber(vector.y) + ", " + FormatNumber(vector.z) + "]";
}

std::string Entry(const char *key, double value) {
    return "\"" + std::string(key) + "\": " + FormatNumber(value);
}

std::string EntriesOfAllFrames(const CameraMove &move) {
    constexpr const char *kSeparator = ",\n  ";
    std::string text = kSeparator + Entry("film_back_width", move.aperture_width);
    if (move.aperture_height) text += kSeparator + Entry("film_back_height", *move.aperture_height);
    const CameraTraits &traits = move.traits;
    if (!traits.path.empty())
        text += kSeparator + ("\"camera\": " + json(traits.path).dump(-1, ' ', false, json::error_handler_t::replace));
    if (traits.is_orthographic) text += std::string(kSeparator) + "\"projection\": \"" + kOrthographicName + "\"";
    for (int i = 0; i < kTraitChannelCount; ++i) {
        const auto channel = static_cast<TraitChannel>(i);
        if (traits.Has(channel) && !traits.IsAnimated(channel))
            text += kSeparator + Entry(InfoOf(channel).key, traits.channels[channel].front());
    }
    return text;
}

std::string AnimatedTraits(const CameraTraits &traits, std::size_t index) {
    std::string text;
    for (int i = 0; i < kTraitChannelCount; ++i) {
        const auto channel = static_cast<TraitChannel>(i);
        if (traits.IsAnimated(channel)) text += ", " + Entry(InfoOf(channel).key, traits.channels[channel][index]);
    }
    return text;
}

}  // namespace

CameraMove ReadJson(const std::string &file, std::string_view bytes, const FormatOptions &options) {
    const SourceText source(file, bytes);
    if (source.Lines().empty()) source.Refuse(1, 1, "an empty file", "JSON");
    CameraMove move;
    move.aperture_width = options.aperture_width;
    if (options.rate) move.rate = *options.rate;
    const char *first = source.Lines().front().text.data();  // after the byte order mark
    Handler handler(source, first, options, &move);
    json::sax_parse(CountingIterator(first, handler.Reached()),
                    CountingIterator(bytes.data() + bytes.size(), handler.Reached()), &handler);
    handler.Finish();
    return move;
}

std::string WriteJson(const CameraMove &move, const FormatOptions &) {
    std::string text = "{\n  \"format\": \"" + std::string(kFormatName) +
                       "\",\n  \"version\": " + FormatNumber(kMoveVersion) + ",\n" + Group("units", move) + Group("conventions", move) +
                       "  \"frames_per_second\": " + RateText(move.rate) +
                       EntriesOfAllFrames(move) + ",\n  \"frames\": [\n";
    for (std::size_t i = 0; i < move.samples.size(); ++i) {
        const CameraSample &sample = move.samples[i];
        text += (i == 0 ? "" : ",\n") + std::string("    {\"frame\": ") +
                std::to_string(move.first_frame + static_cast<std::int64_t>(i)) +
                ", \"position\": " + Triple(sample.position) +
                ", \"hpb\": " + Triple(sample.angles * (1 / kRadiansPerDegree)) +
                ", \"focal_length\": " + FormatNumber(sample.focal_length) +
                ", \"focus_distance\": " + FormatNumber(sample.focus_distance) + AnimatedTraits(move.traits, i) + "}";
    }
    return text + "\n  ]\n}\n";
}

}  // namespace tremolux
