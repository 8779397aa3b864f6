// Tables of other programs of any bytes, with columns of any kind: each is either read or refused with one line. The
// first line describes the columns; it is a known table's where it is empty.
#include "library/formats/table.h"

#include <cmath>
#include <cstdint>

#include "fuzz/require.h"
#include "library/failure.h"

namespace {

using namespace tremolux;
using fuzz::Require;

TableLayout LayoutOf(std::string_view columns) {
    if (columns.empty()) return TableNamed("--table", "trajectory");
    TableLayout layout;
    // Axes and units by the text's length: every combination comes about.
    const std::size_t choice = columns.size();
    layout.left_handed = choice % 2 == 0;
    layout.z_up = !layout.left_handed && choice % 3 == 0;
    layout.camera_y_down = !layout.left_handed && choice % 5 == 0;
    layout.radians = choice % 7 == 0;
    layout.length_unit = choice % 4 == 0 ? 100 : 1;
    AddColumns("--columns", columns, &layout);
    return layout;
}

void CheckMove(const CameraMove &move) {
    Require(!move.samples.empty() && move.samples.size() <= kMaxFrames);
    Require(move.rate.PerSecond() >= 1 && move.rate.PerSecond() <= kMaxFramesPerSecond);
    for (const CameraSample &sample : move.samples) {
        for (const host::Vector &vector : {sample.position, sample.angles})
            Require(std::isfinite(vector.x) && std::isfinite(vector.y) && std::isfinite(vector.z));
        Require(std::isfinite(sample.focal_length) && std::isfinite(sample.focus_distance));
    }
    for (const std::string &note : move.notes) Require(note.find('\n') == std::string::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    const std::size_t end = bytes.find('\n');
    const std::string_view columns = bytes.substr(0, end);
    const std::string_view text = end == std::string_view::npos ? std::string_view() : bytes.substr(end + 1);
    FormatOptions options;
    options.fills_gaps = columns.size() % 2 == 1;
    try {
        CheckMove(ReadTable("move", text, LayoutOf(columns), options));
    } catch (const Failure &failure) {
        const std::string line = failure.what();
        Require(failure.Status() == kExitInput && line.find('\n') == std::string::npos &&
                line.find(", expected ") != std::string::npos);
    }
    return 0;
}
