#include "host/services/resource.h"

#include <charconv>
#include <sstream>
#include <string_view>
#include <system_error>

#include "host/files/safe_write.h"

namespace host {

namespace {

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// The name that the symbols give to a number: a line "NAME = 1000," in c4d_symbols.h.
std::string SymbolOf(const std::string &symbols, std::int32_t id) {
    std::istringstream lines(symbols);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos) continue;
        const std::string_view number = Trimmed(std::string_view(line).substr(equals + 1));
        std::int32_t value = 0;
        const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
        if (read.ec == std::errc() && value == id)
            return std::string(Trimmed(std::string_view(line).substr(0, equals)));
    }
    return {};
}

// The text of a name: a line "NAME "text";" in c4d_strings.str.
std::string TextOf(const std::string &texts, const std::string &name) {
    std::istringstream lines(texts);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t open = line.find('"'), close = line.rfind('"');
        if (open == close || Trimmed(std::string_view(line).substr(0, open)) != name) continue;
        return line.substr(open + 1, close - open - 1);
    }
    return {};
}

}  // namespace

bool IsResourceFolder(const std::filesystem::path &folder) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(folder / "c4d_symbols.h", ignored);
}

std::string ResourceString(const std::filesystem::path &folder, std::int32_t id) {
    std::string symbols, texts, ignored;
    if (!ReadFile(folder / "c4d_symbols.h", &symbols, &ignored) ||
        !ReadFile(folder / "strings_us" / "c4d_strings.str", &texts, &ignored))
        return {};
    const std::string name = SymbolOf(symbols, id);
    return name.empty() ? name : TextOf(texts, name);
}

}  // namespace host
