#include "library/formats/recording.h"

#include "library/formats/right_handed.h"
#include "library/formats/rotation_order.h"
#include "library/moves/scene_units.h"

namespace tremolux {
namespace {

constexpr std::size_t kPosX = 1, kPosY = 2, kPosZ = 3, kRotX = 4, kRotY = 5, kRotZ = 6;
constexpr double kMaxMetres = kMaxNumber / kSceneUnitsPerMetre;

}  // namespace

const CsvColumns kRecordingColumns = {{"frame", true}, {"pos_x", true}, {"pos_y", true}, {"pos_z", true},
                                      {"rot_x", true}, {"rot_y", true}, {"rot_z", true}};

bool IsRecordingHeader(const SourceText &source) {
    if (source.Lines().empty()) return false;
    const std::string_view line = source.Lines().front().text;
    for (const Field &field : SeparatedFields(line, SeparatorOf(line))) {
        if (field.text == kRecordingColumns[kPosX].name) return true;
    }
    return false;
}

CameraSample ReadRecordingRow(const CsvRow &row) {
    const auto angle = [&row](std::size_t column) { return row.Number(column, -kMaxNumber, kMaxNumber); };
    const auto place = [&row](std::size_t column) { return row.Number(column, -kMaxMetres, kMaxMetres); };
    CameraSample sample;
    host::Matrix camera = RotationOf({angle(kRotX), angle(kRotY), angle(kRotZ)}, kOrderXyz);
    camera.off = host::Vector{place(kPosX), place(kPosY), place(kPosZ)} * kSceneUnitsPerMetre;
    SetFromRightHanded(camera, &sample);
    return sample;
}

}  // namespace tremolux
