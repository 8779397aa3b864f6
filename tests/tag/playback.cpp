#include "tests/tag/playback.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include "host/files/scenefile.h"

namespace tag_test {

namespace {

constexpr char kRole[] = "--play-document";
std::filesystem::path this_program;

}  // namespace

std::string FrameLine(Scene &scene) {
    const Shot shot = scene.Camera();
    const host::Vector *rows = &shot.matrix.off;
    std::vector<double> numbers = {shot.focal_length, shot.focus_distance};
    for (int i = 0; i < 4; ++i) numbers.insert(numbers.end(), {rows[i].x, rows[i].y, rows[i].z});
    for (const std::int32_t key : kClocks) numbers.push_back(scene.Real(key));
    std::string line;
    for (const double number : numbers) {
        char text[40];
        std::snprintf(text, sizeof text, "%a ", number);
        line += text;
    }
    return line;
}

std::vector<std::string> PlayFrames(Scene &scene, std::int64_t first_frame, std::int64_t last_frame) {
    std::vector<std::string> lines;
    for (std::int64_t frame = first_frame; frame <= last_frame; ++frame) {
        scene.Show(frame);
        lines.push_back(FrameLine(scene));
    }
    return lines;
}

double Difference(const std::vector<std::string> &a, const std::vector<std::string> &b) {
    if (a.size() != b.size()) return HUGE_VAL;
    double largest = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const char *left = a[i].c_str(), *right = b[i].c_str();
        while (true) {
            char *left_end, *right_end;
            const double difference = std::fabs(std::strtod(left, &left_end) - std::strtod(right, &right_end));
            if ((left_end == left) != (right_end == right)) return HUGE_VAL;
            if (left_end == left) break;
            largest = std::fmax(largest, difference);
            left = left_end, right = right_end;
        }
    }
    return largest;
}

std::vector<std::string> PlayFile(const std::filesystem::path &file, std::int64_t first_frame,
                                  std::int64_t last_frame) {
    RunningHost running;
    if (!running.Started()) return {};
    std::string error;
    std::unique_ptr<host::Document> document = host::LoadDocument(file, &error);
    if (!document) return {};
    Scene scene(running, std::move(document));
    if (!scene.tag) return {};
    scene.Evaluate();
    return PlayFrames(scene, first_frame, last_frame);
}

std::vector<std::string> PlayFileInNewProcess(const std::filesystem::path &file, std::int64_t first_frame,
                                              std::int64_t last_frame) {
    const std::filesystem::path out = file.parent_path() / "played.txt";
    std::string command = "\"" + this_program.string() + "\" " + kRole + " \"" + file.string() + "\" \"" +
                          out.string() + "\" " + std::to_string(first_frame) + " " + std::to_string(last_frame);
#ifdef _WIN32
    command = "\"" + command + "\"";  // the shell takes the outermost pair away
#endif
    if (std::system(command.c_str()) != 0) return {};
    std::vector<std::string> lines;
    std::ifstream in(out);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

int RunAsPlayer(int argc, char **argv) {
    this_program = std::filesystem::absolute(argv[0]);
    if (argc != 6 || std::strcmp(argv[1], kRole) != 0) return -1;
    const auto lines = PlayFile(argv[2], std::atoll(argv[4]), std::atoll(argv[5]));
    std::ofstream out(argv[3]);
    for (const std::string &line : lines) out << line << '\n';
    return lines.empty() || !out.flush() ? 1 : 0;
}

}  // namespace tag_test
