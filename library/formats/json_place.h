// A JSON document of limited size, and places in it that know their pointer and refuse what stands there.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace tremolux {

// Throws the Failure "file:line:column: found ..., expected JSON", also for a document that is nested too deep or holds
// more values than any camera file.
nlohmann::json ParseJson(const std::string &file, std::string_view text);

// A value of the document, or the lack of one. File and document must live as long as this.
class JsonPlace {
  public:
    JsonPlace(const std::string &file, const nlohmann::json &document) : file_(&file), value_(&document) {}

    explicit operator bool() const { return value_ != nullptr; }
    const nlohmann::json &Value() const { return *value_; }
    // Of an object, which may itself be missing.
    JsonPlace Member(const char *name) const;
    // Of an array; `index` below Size().
    JsonPlace Element(std::size_t index) const;
    // The element that a number elsewhere names; refuses one that is not there.
    JsonPlace ElementNamedBy(const JsonPlace &index) const;
    std::size_t Size() const;  // 0 where the array is missing

    double Number(double minimum, double maximum) const;
    double Number(double minimum, double maximum, double fallback) const;
    std::uint64_t Whole(std::uint64_t maximum) const;
    std::uint64_t Whole(std::uint64_t maximum, std::uint64_t fallback) const;
    std::string Text() const;  // empty where it is missing
    // Throws the Failure "file:/pointer: found ..., expected ...".
    [[noreturn]] void Refuse(const std::string &found, const std::string &expected) const;
    [[noreturn]] void Refuse(const std::string &expected) const;  // what is found is the value

  private:
    JsonPlace(const std::string *file, const nlohmann::json *value, std::string pointer)
        : file_(file), value_(value), pointer_(std::move(pointer)) {}

    const std::string *file_;
    const nlohmann::json *value_;  // null: missing
    std::string pointer_;
};

}  // namespace tremolux
