// Recorded motion with any bytes: each is either read or refused with one line; a move has finite angles, and what was
// recorded rises in time. The first byte says what kind of file it is.
#include <cmath>
#include <cstdint>
#include <string>

#include "fuzz/require.h"
#include "library/failure.h"
#include "library/gyro/gyro_formats.h"
#include "library/gyro/gyro_move.h"

namespace {

using namespace tremolux;
using fuzz::Require;

std::optional<CameraMove> Read(char kind, std::string_view bytes) {
    FormatOptions options;
    // Few frames: what takes long are files that say hours.
    options.rate = FrameRate{1, 1};
    switch (kind) {
        case 'f':
            return ReadFilm("a.mp4", bytes, options);
        case 'p':
            return ReadPayloads("a.raw", bytes, options);
        case 'g':
            return ReadGcsvMove("a.gcsv", bytes, options);
        default:
            return ReadSensorTable("a.csv", SourceText("a.csv", bytes), options);
    }
}

template <typename Samples>
void RequireRising(const Samples &samples) {
    for (std::size_t i = 0; i < samples.size(); ++i) {
        Require(std::isfinite(samples[i].time));
        if (i > 0) Require(samples[i].time > samples[i - 1].time);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0) return 0;
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    try {
        const std::optional<CameraMove> move = Read(text.front(), text.substr(1));
        if (!move) return 0;
        Require(!move->samples.empty() && move->samples.size() <= kMaxFrames);
        for (const CameraSample &sample : move->samples)
            Require(std::isfinite(sample.angles.x) && std::isfinite(sample.angles.y) && std::isfinite(sample.angles.z));
        const GyroLog &log = move->recorded->log;
        RequireRising(log.rates);
        RequireRising(log.accelerations);
        RequireRising(log.gravity);
        RequireRising(log.orientations);
        for (const GyroOrientation &at : move->recorded->motion.orientations)
            Require(std::abs(at.rotation.norm() - 1) < 1e-6);
    } catch (const Failure &failure) {
        const std::string line = failure.what();
        Require(!line.empty() && line.find('\n') == std::string::npos);
    }
    return 0;
}
