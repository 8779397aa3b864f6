// What is done to a shot besides its settings: presets, buttons, targets, bakes; and undo.
#include "generated/module_ids.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"
#include "library/interface/buffer.h"
#include "library/interface/move.h"
#include "library/interface/shot.h"
#include "library/presets/preset_file.h"

namespace tremolux {
namespace {

using AddToStage = host::Object *(Stage::*)(const CameraMove &);
using FindOnStage = const host::Object *(Stage::*)() const;

tremolux_status AddPoints(tremolux_shot shot, tremolux_move points, AddToStage add, FindOnStage find) {
    return InOneStep(shot, host::kUndoChangeSmall, [&](ShotTarget &target) {
        const CameraMove &move = RequireTarget<MoveTarget>(points)->move;
        Stage &stage = *target.stage;
        if ((stage.*find)() != nullptr) RefuseInput("points", "a second one", "one for each shot");
        if (move.samples.size() > 1 &&
            (move.first_frame > target.move.first_frame || move.LastFrame() < target.move.LastFrame())) {
            RefuseInput("points", "frames " + FramesOf(move), FramesOf(target.move) + " of the shot's move");
        }
        stage.Scene()->Undo().Add(host::kUndoNew, (stage.*add)(move));
    });
}

tremolux_status Step(tremolux_shot shot, std::int32_t *done, bool (host::UndoStack::*step)()) {
    return ByHand(shot, [&](ShotTarget &target) {
        RequirePointer(done, "done");
        *done = (target.stage->Scene()->Undo().*step)() ? 1 : 0;
    });
}

}  // namespace
}  // namespace tremolux

using namespace tremolux;

tremolux_status tremolux_shot_apply_preset(tremolux_shot shot, const char *preset) {
    return InOneStep(shot, host::kUndoChangeSmall, [&](ShotTarget &target) {
        RequirePointer(preset, "preset");
        ChoosePreset(FindPreset(Runtime::Get().Presets(), preset, "preset"), target.Tag());
    });
}

tremolux_status tremolux_shot_apply_preset_bytes(tremolux_shot shot, const void *bytes, size_t size) {
    return InOneStep(shot, host::kUndoChangeSmall, [&](ShotTarget &target) {
        RequirePointer(bytes, "bytes");
        ApplyPresetFile({static_cast<const char *>(bytes), size}, target.Tag());
    });
}

tremolux_status tremolux_shot_preset_to_bytes(tremolux_shot shot, const char *name, tremolux_buffer *buffer) {
    return ByHand(shot, [&](ShotTarget &target) {
        RequirePointer(name, "name");
        RequirePointer(buffer, "buffer");
        *buffer = NewBuffer(WritePresetFile(name, target.Tag()));
    });
}

tremolux_status tremolux_shot_press(tremolux_shot shot, int32_t button) {
    return InOneStep(shot, host::kUndoChangeSmall, [&](ShotTarget &target) {
        const Parameter &known = ParameterOf(button);
        if (known.kind != ParameterKind::kButton) RefuseKind(known, "a button");
        if (!host::PressButton(target.Tag(), host::MakeId(button)))
            RefuseKind(known, "a button that can be pressed as things stand");
    });
}

tremolux_status tremolux_shot_set_target(tremolux_shot shot, tremolux_move points) {
    return AddPoints(shot, points, &Stage::AddTarget, &Stage::Target);
}

tremolux_status tremolux_shot_set_focus_object(tremolux_shot shot, tremolux_move points) {
    return AddPoints(shot, points, &Stage::AddFocusObject, &Stage::FocusObject);
}

tremolux_status tremolux_shot_bake(tremolux_shot shot, int32_t kind) {
    return InOneStep(shot, host::kUndoChangeSmall, [&](ShotTarget &target) {
        if (kind == TREMOLUX_BAKE_QUICKLY)
            target.stage->BakeQuickly();
        else if (kind == TREMOLUX_BAKE_BY_BRUTE_FORCE)
            target.stage->BakeByBruteForce();
        else
            RefuseInput("kind", std::to_string(kind), "1 or 2");
    });
}

tremolux_status tremolux_shot_undo(tremolux_shot shot, int32_t *done) {
    return Step(shot, done, &host::UndoStack::Undo);
}

tremolux_status tremolux_shot_redo(tremolux_shot shot, int32_t *done) {
    return Step(shot, done, &host::UndoStack::Redo);
}
