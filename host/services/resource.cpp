#include "host/services/resource.h"

#include <charconv>
#include <regex>
#include <system_error>

#include "host/files/safe_write.h"

namespace host {

namespace {

// The name that the symbols give to a number: "NAME = 1000" in c4d_symbols.h.
std::string SymbolOf(const std::string &symbols, std::int32_t id) {
    static const std::regex kSymbol("([A-Za-z_][A-Za-z0-9_]*)\\s*=\\s*([0-9]+)");
    for (std::sregex_iterator i(symbols.begin(), symbols.end(), kSymbol), end; i != end; ++i) {
        const std::string number = (*i)[2];
        std::int32_t value = -1;
        std::from_chars(number.data(), number.data() + number.size(), value);
        if (value == id) return (*i)[1];
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
    if (name.empty()) return {};
    std::smatch match;
    if (!std::regex_search(texts, match, std::regex("\\b" + name + "\\s+\"([^\"]*)\""))) return {};
    return match[1];
}

}  // namespace host
