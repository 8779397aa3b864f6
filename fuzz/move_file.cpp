// Camera files of any bytes: each is either read or refused with one line, and what was read survives being written.
#include <cmath>
#include <cstdint>

#include "fuzz/require.h"
#include "library/failure.h"
#include "library/formats/format.h"
#include "library/measures/strayed.h"

namespace {

using namespace tremolux;
using fuzz::Require;

const MoveFormat &Format() { return FormatOf("move" TREMOLUX_FUZZED_EXTENSION, FormatUse::kRead); }

void CheckRoundTrip(const CameraMove &move) {
    Require(!move.samples.empty() && move.samples.size() <= kMaxFrames);
    // A still or wild camera takes more digits than a file has: only what can be told apart is compared.
    const CameraMove again = Format().read("again", Format().write(move, {}), {});
    Require(again.samples.size() == move.samples.size() && again.first_frame == move.first_frame);
    for (std::size_t i = 0; i < move.samples.size(); ++i) {
        const CameraSample &a = move.samples[i], &b = again.samples[i];
        const double size = 1 + host::Length(a.position);
        Require(host::Length(a.position - b.position) <= 1e-9 * size);
        const double turns = 1 + std::abs(a.angles.x) + std::abs(a.angles.y) + std::abs(a.angles.z);
        Require(TurnBetween(a.angles, b.angles) <= 1e-6 * turns);
    }
    if ((Format().carries & kProjectionTrait) != 0)
        Require(again.traits.is_orthographic == move.traits.is_orthographic);
}

// Frames that a file leaves out are filled in, and what is beside the motion with them.
void CheckFilled(const std::string &bytes) {
    FormatOptions options;
    options.fills_gaps = true;
    const CameraMove move = Format().read("move", bytes, options);
    for (const std::vector<double> &values : move.traits.channels)
        Require(values.size() <= 1 || values.size() == move.samples.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char *>(data), size);
    CameraMove move;
    try {
        CheckFilled(bytes);
        move = Format().read("move", bytes, {});
    } catch (const Failure &failure) {
        const std::string line = failure.what();
        Require(failure.Status() == kExitInput && line.find('\n') == std::string::npos &&
                line.find(", expected ") != std::string::npos);
        return 0;
    }
    CheckRoundTrip(move);
    return 0;
}
