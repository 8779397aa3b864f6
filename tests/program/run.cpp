#include "tests/program/run.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "host/files/folders.h"
#include "host/services/platform.h"
#include "tests/support/process.h"

namespace program_test {

namespace fs = std::filesystem;

namespace {

fs::path FreshFolder() {
    static int count = 0;
    const fs::path folder = fs::temp_directory_path() /
                            ("tremolux-program-" + std::to_string(host::ProcessId()) + "-" + std::to_string(count++));
    fs::create_directories(folder);
    return folder;
}

std::string Contents(const fs::path &file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) return "(missing)";
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

}  // namespace

Workplace::Workplace() : folder_(FreshFolder()), settings_(FreshFolder()) {}

Workplace::~Workplace() {
    for (const fs::path &folder : {folder_, settings_})
        host::RemoveFile(folder, host::kRemoveFolder | host::kRemoveRecursive);
}

std::string Workplace::Write(const std::string &name, const std::string &text) const {
    std::ofstream(folder_ / name, std::ios::binary) << text;
    return Path(name);
}

std::string Workplace::Read(const std::string &name) const { return Contents(folder_ / name); }

std::vector<std::string> Workplace::Names() const {
    std::vector<std::string> names;
    for (const auto &entry : fs::directory_iterator(folder_)) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

Outcome Workplace::Run(const std::vector<std::string> &arguments) const {
    std::vector<std::string> command = arguments;
    if (!arguments.empty() && arguments.front().rfind("--", 0) != 0) {
        const auto add = [&](const char *option, const std::string &value) {
            if (std::find(arguments.begin(), arguments.end(), option) == arguments.end())
                command.insert(command.end(), {option, value});
        };
        add("--user-folder", (settings_ / "home").string());
        add("--module", TREMOLUX_MODULE_FILE);
    }
    return RunBare(command);
}

Outcome Workplace::RunBare(const std::vector<std::string> &arguments) const {
    const fs::path out = settings_ / "out.txt", err = settings_ / "err.txt";
    std::vector<std::string> command = {TREMOLUX_PROGRAM_FILE};
    command.insert(command.end(), arguments.begin(), arguments.end());
    const int status = test_support::RunProcess(command, out, err);
    return {status, Contents(out), Contents(err)};
}

}  // namespace program_test
