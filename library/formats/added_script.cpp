#include "library/formats/added_script.h"

#include "library/formats/numbers.h"
#include "library/formats/python_text.h"
#include "library/formats/right_handed.h"
#include "library/moves/scene_units.h"
#include "library/moves/turns.h"

namespace tremolux {
namespace {

constexpr const char *kAddedHead = R"(# The shake of a camera move, written by tremolux: run it in Blender, in a text editor or as
#     blender SCENE.blend --python THIS_FILE
# It goes onto a camera that is there, by keys of its own on the camera's delta channels, and leaves the camera's own keys as they
# are. Run again it replaces itself; tremolux_remove() takes everything back.
import bpy
from mathutils import Matrix, Quaternion, Vector

# None: the scene's active camera.
)";

constexpr const char *kAddedTail = R"(

MARK = "TremoluxCam"
TURNS = "delta_rotation_quaternion", "delta_rotation_euler"


def the_camera(name):
    camera = bpy.data.objects.get(name) if name else bpy.context.scene.camera
    if camera is None or camera.type != "CAMERA":
        raise ValueError(f"tremolux: found no camera {name!r}, expected one of "
                         + ", ".join(thing.name for thing in bpy.data.objects if thing.type == "CAMERA"))
    return camera


def tremolux_remove(name=CAMERA):
    """Takes the shake off a camera: its strips, their actions, and what they moved."""
    camera = the_camera(name)
    for owner in (camera, camera.data):
        animation = owner.animation_data
        for track in [track for track in animation.nla_tracks if track.name == MARK] if animation else []:
            actions = [strip.action for strip in track.strips]
            animation.nla_tracks.remove(track)
            for action in actions:
                bpy.data.actions.remove(action)
        before = owner.pop(MARK, None)
        if before is None:
            continue
        for path, value in before["values"].items():
            put(owner, path, value if isinstance(value, float) else list(value))
        if animation and "blend" in before:
            animation.action_blend_type = before["blend"]
        if animation and before["new"] and not animation.action and not animation.nla_tracks and not animation.drivers:
            owner.animation_data_clear()
    bpy.context.view_layer.update()


def put(owner, path, value):
    *way, last = path.split(".")
    for step in way:
        owner = getattr(owner, step)
    setattr(owner, last, value)


def keyed(owner):
    """What the owner's own action moves: (path, index)."""
    action = owner.animation_data.action if owner.animation_data else None
    return {(curve.data_path, curve.array_index) for curve in action.fcurves} if action else set()


def put_on(owner, curves, before):
    """A strip with `curves`, values by frame for each (path, index), below the owner's own action."""
    owner[MARK] = dict(before, new=owner.animation_data is None)
    animation = owner.animation_data or owner.animation_data_create()
    action = bpy.data.actions.new(f"{MARK} {owner.name}")
    linear = bpy.types.Keyframe.bl_rna.properties["interpolation"].enum_items["LINEAR"].value
    for (path, index), values in curves.items():
        curve = action.fcurves.new(path, index=index)
        curve.keyframe_points.add(len(values))
        curve.keyframe_points.foreach_set("co", [x for i, value in enumerate(values) for x in (FIRST_FRAME + i, value)])
        curve.keyframe_points.foreach_set("interpolation", [linear] * len(values))
        curve.update()
    track = animation.nla_tracks.new()
    track.name = MARK
    strip = track.strips.new(MARK, FIRST_FRAME, action)
    strip.extrapolation, strip.blend_type = "HOLD", "REPLACE"


def own_rotation(camera):
    if camera.rotation_mode == "QUATERNION":
        return camera.rotation_quaternion.normalized()
    return camera.rotation_euler.to_quaternion()


def delta_rotation(camera):
    if camera.rotation_mode == "QUATERNION":
        return camera.delta_rotation_quaternion.normalized()
    return camera.delta_rotation_euler.to_quaternion()


def poses(scene, camera):
    """By frame, as the camera is without the shake: rotation, its delta, and the axes of what it stands in."""
    found = []
    for i in range(len(ADDED)):
        scene.frame_set(FIRST_FRAME + i)
        seen = camera.evaluated_get(bpy.context.evaluated_depsgraph_get())
        parent = Matrix.Identity(3)
        if seen.parent:
            parent = (seen.parent.matrix_world @ seen.matrix_parent_inverse).to_3x3()
        found.append((own_rotation(seen), delta_rotation(seen), Vector(seen.delta_location), parent,
                      seen.data.lens, seen.data.dof.focus_distance))
    return found


def tremolux_apply(name=CAMERA):
    """Puts the shake onto a camera."""
    camera = the_camera(name)
    tremolux_remove(name)
    if camera.rotation_mode == "AXIS_ANGLE":
        raise ValueError(f"tremolux: found {camera.name} with the rotation mode Axis Angle, which has no deltas: expected another")
    taken = [path for path, index in keyed(camera) if path.startswith("delta_")]
    if taken:
        raise ValueError(f"tremolux: found keys on {camera.name}'s {taken[0]}, expected none: the shake goes there")
    scene = bpy.context.scene
    if TAKE_SCENE:
        scene.render.fps, scene.render.fps_base = FRAMES_PER_SECOND, FPS_BASE
        scene.render.resolution_x, scene.render.resolution_y = RESOLUTION
        scene.frame_start, scene.frame_end = max(FIRST_FRAME, 0), max(FIRST_FRAME + len(ADDED) - 1, 0)
        scene.camera = camera
    if abs(scene.render.fps / scene.render.fps_base - FRAMES_PER_SECOND / FPS_BASE) > 1e-3:
        print(f"tremolux: the scene has {scene.render.fps / scene.render.fps_base:.3f} frames a second, "
              f"the shake {FRAMES_PER_SECOND / FPS_BASE:.3f}: it is played frame by frame")
    if any(not constraint.mute for constraint in camera.constraints):
        print(f"tremolux: {camera.name} has constraints, which may have the last word over the shake")
    frame, subframe = scene.frame_current, scene.frame_subframe
    before = poses(scene, camera)

    turns = "delta_rotation_quaternion" if camera.rotation_mode == "QUATERNION" else "delta_rotation_euler"
    count = 4 if camera.rotation_mode == "QUATERNION" else 3
    curves = {("delta_location", axis): [] for axis in range(3)}
    curves.update({(turns, part): [] for part in range(count)})
    lenses, focuses, last = [], [], None
    for added, (own, delta, location, parent, lens, focus) in zip(ADDED, before):
        # The turn is about the camera's own axes, behind its rotation; a delta stands before it.
        turn = delta @ own @ Quaternion(added[3:7]) @ own.inverted()
        if count == 4:
            turn = -turn if last and turn.dot(last) < 0 else turn
            last, parts = turn, turn
        else:
            last = parts = turn.to_euler(camera.rotation_mode, last) if last else turn.to_euler(camera.rotation_mode)
        for axis, value in enumerate(location + parent.inverted_safe() @ Vector(added[:3])):
            curves["delta_location", axis].append(value)
        for part, value in enumerate(parts):
            curves[turns, part].append(value)
        lenses.append((added[7], lens))
        focuses.append((added[8], focus))
    put_on(camera, curves, {"values": {"delta_location": list(camera.delta_location), turns: list(getattr(camera, turns))}})

    if any(added for added, value in lenses + focuses):
        put_on_lens(camera.data, lenses, focuses)
    scene.frame_set(frame, subframe=subframe)
    print(f"tremolux: the shake is on {camera.name}, frames {FIRST_FRAME} to {FIRST_FRAME + len(ADDED) - 1}")


def put_on_lens(data, lenses, focuses):
    # The camera's own action has the last word on what it moves. It is added to the strip, which has 0 for what it shall not change.
    own = keyed(data)
    curves, before = {}, {"values": {"lens": data.lens, "dof.focus_distance": data.dof.focus_distance}}
    for path, numbers in (("lens", lenses), ("dof.focus_distance", focuses)):
        curves[path, 0] = [added if (path, 0) in own else added + value for added, value in numbers]
    if own & set(curves):
        before["blend"] = data.animation_data.action_blend_type
        data.animation_data.action_blend_type = "ADD"
        for path_and_index in own - set(curves):
            curves[path_and_index] = [0.0]
    put_on(data, curves, before)


tremolux_apply()
)";

// The scene's axes as Blender's camera has them: right, up and back.
Quaternion RightHandedTurn(const Eigen::Quaterniond &turn) {
    // Mirrored in z, an axis keeps its z and the turn about it its sense; x and y turn round.
    return {turn.w(), -turn.x(), -turn.y(), turn.z()};
}

}  // namespace

std::string AddedScript(const CameraMove &move, const std::vector<AddedMotionSample> &added, const std::string &camera,
                        const FormatOptions &options) {
    std::string text = kAddedHead;
    text += "CAMERA = " + (camera.empty() ? "None" : PythonText(camera)) +
            "\n# True: the scene takes the rate, the range, the size and the camera, too.\nTAKE_SCENE = False" +
            "\n" + PythonRange(move, options) +
            "# By frame: metres along the world's x, y, z; turn about the camera's own axes w, x, y, z; millimetres; metres of "
            "focus\nADDED = [\n";
    for (const AddedMotionSample &sample : added) {
        const host::Vector metres =
            ZUpOf(host::Vector{sample.position.x, sample.position.y, -sample.position.z}) * kMetresPerSceneUnit;
        const Quaternion turn = RightHandedTurn(sample.turn);
        text += "    (";
        for (const double value : {metres.x, metres.y, metres.z, turn.w, turn.x, turn.y, turn.z, sample.focal_length})
            text += FormatNumber(value) + ", ";
        text += FormatNumber(sample.focus_distance * kMetresPerSceneUnit) + "),\n";
    }
    return text + "]" + kAddedTail;
}

}  // namespace tremolux
