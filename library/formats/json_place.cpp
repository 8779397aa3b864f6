#include "library/formats/json_place.h"

#include <algorithm>

#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"

namespace tremolux {
namespace {

using nlohmann::json;

// The longest move of our own, every number of it in the document, stays below.
constexpr std::size_t kMaxValues = 16000000;
constexpr int kMaxJsonDepth = 200;

// "line:column" of the byte number `at`.
std::string PlaceText(std::string_view text, std::size_t at) {
    const std::string_view before = text.substr(0, at);
    const std::size_t line_start = before.rfind('\n');
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t column = line_start == std::string_view::npos ? at + 1 : at - line_start;
    return std::to_string(line) + ":" + std::to_string(column);
}

std::string Found(const json *value) {
    if (value == nullptr) return "nothing";
    if (value->is_object()) return "an object";
    if (value->is_array()) return "an array of " + std::to_string(value->size());
    if (value->is_string()) return Quoted(value->get_ref<const std::string &>());
    return value->dump();
}

}  // namespace

json ParseJson(const std::string &file, std::string_view text) {
    std::size_t values = 0;
    const auto count = [&](int depth, json::parse_event_t, const json &) {
        if (depth > kMaxJsonDepth)
            throw Failure(kExitInput, file + ": found JSON nested more than " + std::to_string(kMaxJsonDepth) +
                                          " deep, expected a camera file");
        if (++values > kMaxValues)
            throw Failure(kExitInput, file + ": found more than " + std::to_string(kMaxValues) +
                                          " values, expected a camera file");
        return true;
    };
    try {
        return json::parse(text.begin(), text.end(), count);
    } catch (const json::parse_error &error) {
        const std::size_t at = std::min(text.size(), error.byte > 0 ? error.byte - 1 : 0);
        const std::string found = at < text.size() ? Quoted(text.substr(at, 1)) : "the end of the file";
        throw Failure(kExitInput, file + ":" + PlaceText(text, at) + ": found " + found + ", expected JSON");
    } catch (const json::out_of_range &) {
        throw Failure(kExitInput, file + ": found a number beyond every limit, expected JSON with finite numbers");
    }
}

JsonPlace JsonPlace::Member(const char *name) const {
    if (value_ != nullptr && !value_->is_object()) Refuse("an object");
    const json *member = nullptr;
    if (value_ != nullptr) {
        const auto found = value_->find(name);
        if (found != value_->end()) member = &*found;
    }
    return {file_, member, pointer_ + "/" + name};
}

JsonPlace JsonPlace::Element(std::size_t index) const {
    return {file_, &(*value_)[index], pointer_ + "/" + std::to_string(index)};
}

JsonPlace JsonPlace::ElementNamedBy(const JsonPlace &index) const {
    const std::size_t size = Size();
    if (!index.value_ || !index.value_->is_number_unsigned() || index.value_->get<std::uint64_t>() >= size)
        index.Refuse("the number of one of the " + std::to_string(size) + " of " + pointer_);
    return Element(index.value_->get<std::size_t>());
}

std::size_t JsonPlace::Size() const {
    if (value_ == nullptr) return 0;
    if (!value_->is_array()) Refuse("an array");
    return value_->size();
}

double JsonPlace::Number(double minimum, double maximum) const {
    if (value_ != nullptr && value_->is_number()) {
        const double number = value_->get<double>();
        if (number >= minimum && number <= maximum) return number;
    }
    Refuse("a number from " + FormatNumber(minimum) + " to " + FormatNumber(maximum));
}

double JsonPlace::Number(double minimum, double maximum, double fallback) const {
    return value_ == nullptr ? fallback : Number(minimum, maximum);
}

std::uint64_t JsonPlace::Whole(std::uint64_t maximum) const {
    // Exporters write whole numbers with a point, too.
    const double number = Number(0, static_cast<double>(maximum));
    if (number != static_cast<double>(static_cast<std::uint64_t>(number))) Refuse("a whole number");
    return static_cast<std::uint64_t>(number);
}

std::uint64_t JsonPlace::Whole(std::uint64_t maximum, std::uint64_t fallback) const {
    return value_ == nullptr ? fallback : Whole(maximum);
}

std::string JsonPlace::Text() const {
    if (value_ == nullptr) return {};
    if (!value_->is_string()) Refuse("a text");
    return value_->get<std::string>();
}

void JsonPlace::Refuse(const std::string &found, const std::string &expected) const {
    throw Failure(kExitInput, *file_ + ":" + pointer_ + ": found " + found + ", expected " + expected);
}

void JsonPlace::Refuse(const std::string &expected) const { Refuse(Found(value_), expected); }

}  // namespace tremolux
