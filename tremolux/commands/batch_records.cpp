#include "tremolux/commands/batch_records.h"

#include <cstdio>
#include <nlohmann/json.hpp>

#include "host/files/safe_write.h"
#include "host/value/text.h"
#include "library/failure.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

std::string ContentOf(const fs::path &file) { return Fingerprint().AddFile(file).Text(); }

}  // namespace

Fingerprint &Fingerprint::Add(std::string_view text) {
    const auto add = [this](unsigned char byte) { hash_ = (hash_ ^ byte) * 1099511628211ULL; };
    for (std::size_t length = text.size(), i = 0; i < sizeof length; ++i)
        add(static_cast<unsigned char>(length >> (8 * i)));
    for (const char c : text) add(static_cast<unsigned char>(c));
    return *this;
}

Fingerprint &Fingerprint::AddFile(const fs::path &file) {
    std::string bytes, error;
    return host::ReadFile(file, &bytes, &error) ? Add(bytes) : Add("").Add("missing");
}

std::string Fingerprint::Text() const {
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash_));
    return text;
}

std::optional<std::string> BatchRecords::Row(const fs::path &output, const std::string &made_of) const {
    std::string bytes, error;
    if (!host::ReadFile(FileOf(output), &bytes, &error)) return std::nullopt;
    const Json record = Json::parse(bytes, nullptr, false);
    if (!record.is_object()) return std::nullopt;
    const auto text = [&record](const char *key) {
        const auto entry = record.find(key);
        return entry != record.end() && entry->is_string() ? entry->get<std::string>() : std::string();
    };
    if (text("made_of") != made_of || text("content") != ContentOf(output)) return std::nullopt;
    return text("row");
}

void BatchRecords::Keep(const fs::path &output, const std::string &made_of, const std::string &row) const {
    std::error_code ignored;
    fs::create_directories(folder_, ignored);
    const Json record = {{"output", host::PathText(output.filename())},
                         {"made_of", made_of},
                         {"content", ContentOf(output)},
                         {"row", row}};
    std::string error;
    if (!host::WriteFileSafely(FileOf(output), record.dump(1, ' ', false, Json::error_handler_t::replace) + "\n",
                               &error))
        throw Failure(kExitOutput, error);
}

fs::path BatchRecords::FileOf(const fs::path &output) const {
    // Where the folder lies must not matter: it may be mounted elsewhere on another machine.
    const fs::path place = output.lexically_relative(folder_.parent_path());
    return folder_ / (Fingerprint().Add(host::PathText(place)).Text() + ".json");
}

}  // namespace tremolux
