// What is done to a shot besides its settings: presets, buttons, targets, bakes; and undo.
#include "generated/module_ids.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"
#include "library/interface/buffer.h"
#include "library/interface/move.h"
#include "library/interface/shot.h"
#include "library/formats/numbers.h"
#include "library/frame_rates/keep_hz.h"
#include "library/presets/mix.h"
#include "library/presets/pair.h"
#include "library/presets/preset_file.h"
#include "library/shots/second_camera.h"

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

tremolux_status tremolux_shot_apply_mix(tremolux_shot shot, const char *preset, const char *second, double share) {
    return InOneStep(shot, host::kUndoChangeSmall, [&](ShotTarget &target) {
        RequirePointer(preset, "preset");
        RequirePointer(second, "second");
        if (!(share >= 0 && share <= 1)) RefuseInput("share", FormatNumber(share), "0 to 1");
        const std::vector<CatalogEntry> &catalog = Runtime::Get().Presets();
        ChooseMix({{FindPreset(catalog, preset, "preset"), 1 - share}, {FindPreset(catalog, second, "second"), share}},
                  target.Tag());
        ForgetSecond(target.Tag());
    });
}

tremolux_status tremolux_shot_keep_hertz(tremolux_shot shot, double made_for) {
    return InOneStep(shot, host::kUndoChangeSmall, [&](ShotTarget &target) {
        if (!(made_for >= 1 && made_for <= kMaxFramesPerSecond)) RefuseInput("made_for", FormatNumber(made_for), "1 to 2500");
        KeepHertz(made_for, target.move.rate.PerSecond(), target.Tag());
        CarrySecond(target.Tag(), made_for);
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
        std::string bytes = WritePresetFile(name, target.Tag());
        if (IsPair(*target.Tag())) {
            BringSecond(&*target.stage);
            const std::string second = WritePresetFile(name, target.stage->SecondTag());
            bytes = BytesOfPreset(WithSecond(PresetOfBytes("preset", bytes), PresetOfBytes("preset", second)));
        }
        *buffer = NewBuffer(std::move(bytes));
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
        if (IsPair(*target.Tag())) RefuseInput("shot", "a pair of cameras", "one camera");
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
