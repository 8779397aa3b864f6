#include "tremolux/formats/recording.h"

#include <cmath>

#include "host/scene/angles.h"

namespace tremolux {
namespace {

constexpr std::size_t kPosX = 1, kPosY = 2, kPosZ = 3, kRotX = 4, kRotY = 5, kRotZ = 6;
constexpr double kSceneUnitsPerMetre = 100;

// The columns of Rz Ry Rx, right, up and back of a right-handed camera, mirrored in Z: the scene's axes.
host::Matrix AxesOf(double x, double y, double z) {
    const double cx = std::cos(x), sx = std::sin(x), cy = std::cos(y), sy = std::sin(y), cz = std::cos(z),
                 sz = std::sin(z);
    const host::Vector right = {cy * cz, cy * sz, -sy};
    const host::Vector up = {sx * sy * cz - cx * sz, sx * sy * sz + cx * cz, sx * cy};
    const host::Vector back = {cx * sy * cz + sx * sz, cx * sy * sz - sx * cz, cx * cy};
    return {{0, 0, 0}, {right.x, right.y, -right.z}, {up.x, up.y, -up.z}, {-back.x, -back.y, back.z}};
}

}  // namespace

const CsvColumns kRecordingColumns = {{"frame", true}, {"pos_x", true}, {"pos_y", true}, {"pos_z", true},
                                      {"rot_x", true}, {"rot_y", true}, {"rot_z", true}};

bool IsRecordingHeader(const SourceText &source) {
    if (source.Lines().empty()) return false;
    for (const Field &field : CommaFields(source.Lines().front().text)) {
        if (field.text == kRecordingColumns[kPosX].name) return true;
    }
    return false;
}

CameraSample ReadRecordingRow(const CsvRow &row) {
    const auto number = [&row](std::size_t column) { return row.Number(column, -kMaxNumber, kMaxNumber); };
    CameraSample sample;
    sample.position = host::Vector{number(kPosX), number(kPosY), -number(kPosZ)} * kSceneUnitsPerMetre;
    sample.angles = host::MatrixToHpb(AxesOf(number(kRotX), number(kRotY), number(kRotZ)));
    return sample;
}

void StartNearZero(CameraSample *first) { first->angles = host::OptimalAngle({0, 0, 0}, first->angles); }

}  // namespace tremolux
