#include "bench/ratios.h"

#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>

#include "host/files/safe_write.h"

namespace bench {
namespace {

constexpr double kNoAim = 0;

// A ratio of two measurements: one of `measured` against `count` of `against`.
struct Row {
    const char *name, *measured, *against;
    double count;
    const char *unit;
    double aim;
};

constexpr char kSample[] = "NoiseSample", kFrame[] = "EvaluatedFrame", k25[] = "25 noise samples",
               kOneSample[] = "noise sample", kOneFrame[] = "frame";
constexpr char kOneShake[] = "ProgramShake", kAShake[] = "shake of 10 seconds";
constexpr Row kRows[] = {
    {"Frame, every layer on", kFrame, kSample, 25, k25, 3},
    {"Frame, every layer on, the tag alone", "EvaluatedTag", kSample, 25, k25, kNoAim},
    {"Frame, no layer on", "Layer/0", kSample, 25, k25, kNoAim},
    {"  with smoothing", "Layer/1", kSample, 25, k25, kNoAim},
    {"  with overshoot", "Layer/2", kSample, 25, k25, kNoAim},
    {"  with position shake", "Layer/3", kSample, 25, k25, kNoAim},
    {"  with rotation shake", "Layer/4", kSample, 25, k25, kNoAim},
    {"  with jolts", "Layer/5", kSample, 25, k25, kNoAim},
    {"  with zoom drift", "Layer/6", kSample, 25, k25, kNoAim},
    {"  with focus drift", "Layer/7", kSample, 25, k25, kNoAim},
    {"  with a target", "Layer/8", kSample, 25, k25, kNoAim},
    {"Container, get a number", "ContainerRead", kSample, 1, kOneSample, kNoAim},
    {"Container, set a number", "ContainerWrite", kSample, 1, kOneSample, kNoAim},
    {"Curve, build", "CurveBuild", kSample, 1, kOneSample, kNoAim},
    {"Curve, evaluate", "CurveValue", kSample, 1, kOneSample, kNoAim},
    {"First jump to frame 100", "FirstJump/100", kFrame, 1, kOneFrame, kNoAim},
    {"First jump to frame 10,000", "FirstJump/10000", kFrame, 1, kOneFrame, kNoAim},
    {"First jump to frame 1,000,000", "FirstJump/1000000", kFrame, 1, kOneFrame, kNoAim},
    {"Later jump to frame 100", "LaterJump/100", kFrame, 1, kOneFrame, kNoAim},
    {"Later jump to frame 10,000", "LaterJump/10000", kFrame, 1, kOneFrame, kNoAim},
    {"Later jump to frame 1,000,000", "LaterJump/1000000", kFrame, 1, kOneFrame, kNoAim},
    {"Quick bake, a frame", "QuickBake/10000", kFrame, 1, kOneFrame, 1.5},
    {"Brute force bake, a frame", "BruteForceBake/10000", kFrame, 1, kOneFrame, 1.5},
    {"Library, a frame after a change", "ShotPlayedAgain", "StageFrames", 1, kOneFrame, 1.3},
    {"Preset library, a preset", "FirstTagWithAThousandPresets", kFrame, 1, kOneFrame, kNoAim},
    {"Copy of a tag", "CopyOfATagWithAThousandPresets", kFrame, 1, kOneFrame, kNoAim},
    {"Preview of 10 seconds", "ProgramPreview", kOneShake, 1, kAShake, kNoAim},
    {"Report on 10 seconds", "ProgramReport", kOneShake, 1, kAShake, kNoAim},
    {"Batch of 40 shots, on all cores", "ProgramBatch/0", kOneShake, 40, kAShake, kNoAim},
    {"The same one by one, to that", "ProgramBatch/1", "ProgramBatch/0", 1, "batch on all cores", kNoAim},
    {"Shake of 1,000,000 frames, 300 of them", "ProgramLongShake", kOneShake, 1000000 / 300.0, kAShake, kNoAim},
    {"Panel", "Panel", kFrame, 1, kOneFrame, kNoAim},
    {"Save, a key of 10,000", "SaveKeys", kSample, 1, kOneSample, kNoAim},
    {"Load, a key of 10,000", "LoadKeys", kSample, 1, kOneSample, kNoAim},
};

// 0 when one of its measurements was not run.
double RatioOf(const Row &row, const Medians &medians) {
    const Time *measured = medians.Find(row.measured), *against = medians.Find(row.against);
    return measured == nullptr || against == nullptr ? 0 : measured->median / (row.count * against->median);
}

// Ratio and name, a line each.
std::map<std::string, double> ReadRatios(const std::filesystem::path &file) {
    std::map<std::string, double> ratios;
    std::ifstream in(file);
    double ratio = 0;
    for (std::string name; in >> ratio && in.get() == ' ' && std::getline(in, name);) ratios[name] = ratio;
    return ratios;
}

double Known(const std::map<std::string, double> &ratios, const Row &row) {
    const auto found = ratios.find(row.name);
    return found == ratios.end() ? 0 : found->second;
}

std::string Figure(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.*f", value < 10 ? 2 : 0, value);
    return value > 0 ? text : "";
}

std::string Duration(double nanoseconds) {
    constexpr struct {
        double nanoseconds;
        const char *unit;
    } kUnits[] = {{1e6, "ms"}, {1e3, "us"}};
    for (const auto &unit : kUnits)
        if (nanoseconds >= unit.nanoseconds) return Figure(nanoseconds / unit.nanoseconds) + " " + unit.unit;
    return Figure(nanoseconds) + " ns";
}

}  // namespace

void PrintRatios(const Medians &medians, const std::filesystem::path &committed) {
    const std::map<std::string, double> ratios = ReadRatios(committed);
    std::printf("%-38s %9s %6s %8s %-18s %5s %7s\n", "", "time", "noise", "ratio", "to one", "aim", "before");
    if (const Time *sample = medians.Find(kSample))
        std::printf("%-38s %9s %5.1f%%\n", "Noise sample", Duration(sample->median).c_str(), 100 * sample->noise);
    for (const Row &row : kRows) {
        const double ratio = RatioOf(row, medians);
        if (ratio == 0) continue;
        const Time &time = *medians.Find(row.measured);
        std::printf("%-38s %9s %5.1f%% %8s %-18s %5s %7s\n", row.name, Duration(time.median).c_str(), 100 * time.noise,
                    Figure(ratio).c_str(), row.unit, Figure(row.aim).c_str(), Figure(Known(ratios, row)).c_str());
    }
}

bool WriteRatios(const Medians &medians, const std::filesystem::path &committed) {
    const std::map<std::string, double> ratios = ReadRatios(committed);
    std::ostringstream text;
    text.precision(4);
    for (const Row &row : kRows) {
        const double ratio = RatioOf(row, medians);
        if (ratio > 0 || Known(ratios, row) > 0)
            text << (ratio > 0 ? ratio : Known(ratios, row)) << ' ' << row.name << '\n';
    }
    std::string error;
    if (host::WriteFileSafely(committed, text.str(), &error)) return true;
    std::fprintf(stderr, "bench: %s\n", error.c_str());
    return false;
}

}  // namespace bench
