#include "tests/program/run.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace program_test {

namespace fs = std::filesystem;

namespace {

fs::path FreshFolder() {
    static int count = 0;
    const fs::path folder =
        fs::temp_directory_path() / ("tremolux-program-" + std::to_string(getpid()) + "-" + std::to_string(count++));
    fs::create_directories(folder);
    return folder;
}

std::string Quoted(const std::string &word) {
    std::string quoted = "'";
    for (char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
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
    fs::remove_all(folder_);
    fs::remove_all(settings_);
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
    const fs::path out = settings_ / "out.txt", err = settings_ / "err.txt";
    std::string command = Quoted(TREMOLUX_PROGRAM_FILE);
    for (const std::string &argument : arguments) command += " " + Quoted(argument);
    if (!arguments.empty() && arguments.front().rfind("--", 0) != 0) {
        command += " --user-folder " + Quoted((settings_ / "home").string());
        if (std::find(arguments.begin(), arguments.end(), "--module") == arguments.end())
            command += " --module " + Quoted(TREMOLUX_MODULE_FILE);
    }
    command += " >" + Quoted(out.string()) + " 2>" + Quoted(err.string()) + " </dev/null";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Contents(out), Contents(err)};
}

}  // namespace program_test
