#include "library/interface/shot.h"

namespace tremolux {

ShotTarget::ShotTarget(const CameraMove &given) : move(given), result(given) {
    result.samples.clear();
    const Runtime::Turn turn;
    stage.emplace(move);
    // Setting itself up is no change that a user made.
    stage->Scene()->Undo().Flush();
}

ShotTarget::~ShotTarget() {
    const Runtime::Turn turn;
    stage.reset();
}

void Direct(ShotTarget *shot) {
    shot->result.samples = shot->played;
    if (shot->direction && !shot->played.empty()) shot->result = Directed(shot->move, shot->result, *shot->direction);
}

std::string FramesOf(const CameraMove &move) {
    return std::to_string(move.first_frame) + " to " + std::to_string(move.LastFrame());
}

std::size_t PlaceOf(const ShotTarget &shot, std::int64_t frame) {
    if (frame >= shot.move.first_frame && frame <= shot.move.LastFrame())
        return static_cast<std::size_t>(frame - shot.move.first_frame);
    RefuseInput("frame", std::to_string(frame), FramesOf(shot.move));
}

const Parameter &ParameterOf(std::int32_t id) {
    for (const Parameter &parameter : Runtime::Get().Parameters())
        if (parameter.id == id) return parameter;
    RefuseInput("parameter", std::to_string(id), "a parameter's number");
}

void RefuseKind(const Parameter &parameter, const char *expected) {
    RefuseInput("parameter", std::to_string(parameter.id) + " '" + parameter.label + "'", expected);
}

}  // namespace tremolux
