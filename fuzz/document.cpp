// Saved documents of any bytes: each is read or refused with one line; what was read is saved to the same bytes again.
#include <cstdint>
#include <filesystem>

#include "fuzz/require.h"
#include "host/application.h"
#include "host/files/safe_write.h"
#include "host/files/scenefile.h"
#include "host/services/platform.h"

namespace {

namespace fs = std::filesystem;

// Lives as long as the process.
const fs::path &Folder() {
    static const fs::path folder = [] {
        fs::path made = fs::temp_directory_path() / ("tremolux-fuzz-" + std::to_string(host::ProcessId()));
        fs::create_directories(made);
        static host::Application application{host::ApplicationSettings{made, made, {}}};
        return made;
    }();
    return folder;
}

std::string Saved(host::Document *document) {
    std::string bytes, error;
    fuzz::Require(host::SaveDocument(document, Folder() / "saved", &error));
    fuzz::Require(host::ReadFile(Folder() / "saved", &bytes, &error));
    return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    std::string error;
    fuzz::Require(
        host::WriteFileSafely(Folder() / "read", std::string_view(reinterpret_cast<const char *>(data), size), &error));
    const auto document = host::LoadDocument(Folder() / "read", &error);
    if (!document) {
        fuzz::Require(!error.empty() && error.find('\n') == std::string::npos);
        return 0;
    }
    const std::string saved = Saved(document.get());
    const auto again = host::LoadDocument(Folder() / "saved", &error);
    fuzz::Require(again != nullptr);
    fuzz::Require(Saved(again.get()) == saved);
    return 0;
}
