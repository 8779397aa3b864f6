#include "library/formats/blender.h"

#include "library/formats/numbers.h"
#include "library/formats/python_text.h"
#include "library/formats/right_handed.h"
#include "library/moves/scene_units.h"

namespace tremolux {
namespace {

// +90 degrees about X: from a Y-up world into Blender's.
constexpr double kHalfRoot = 0.70710678118654752440;
constexpr Quaternion kYUpToZUp = {kHalfRoot, kHalfRoot, 0, 0};

constexpr const char *kHead = R"(# A camera move, written by tremolux: run it in Blender, in a text editor or as
#     blender --python THIS_FILE
# Metres; rotations are quaternions w x y z; a key on every frame, straight lines between them.
import bpy

)";

constexpr const char *kTail = R"(

scene = bpy.context.scene
scene.render.fps, scene.render.fps_base = FRAMES_PER_SECOND, FPS_BASE
scene.render.resolution_x, scene.render.resolution_y = RESOLUTION
scene.frame_start, scene.frame_end = max(FIRST_FRAME, 0), max(FIRST_FRAME + len(FRAMES) - 1, 0)

data = bpy.data.cameras.new(NAME)
data.sensor_fit = "HORIZONTAL"
data.sensor_width, data.sensor_height = FILM_BACK
camera = bpy.data.objects.new(NAME, data)
camera.rotation_mode = "QUATERNION"
scene.collection.objects.link(camera)
scene.camera = camera


def animate(owner, path, index, values):
    """Keys of one number: `values` by frame."""
    if owner.animation_data is None:
        owner.animation_data_create()
    if owner.animation_data.action is None:
        owner.animation_data.action = bpy.data.actions.new(owner.name)
    curve = owner.animation_data.action.fcurves.new(path, index=index)
    curve.keyframe_points.add(len(values))
    points = [number for i, value in enumerate(values) for number in (FIRST_FRAME + i, value)]
    curve.keyframe_points.foreach_set("co", points)
    linear = bpy.types.Keyframe.bl_rna.properties["interpolation"].enum_items["LINEAR"].value
    curve.keyframe_points.foreach_set("interpolation", [linear] * len(values))
    curve.update()


columns = list(zip(*FRAMES))
for axis in range(3):
    animate(camera, "location", axis, columns[axis])
for part in range(4):
    animate(camera, "rotation_quaternion", part, columns[3 + part])
animate(data, "lens", 0, columns[7])
animate(data, "dof.focus_distance", 0, columns[8])
if IS_ORTHOGRAPHIC:
    data.type, data.ortho_scale = "ORTHO", FILM_BACK[0] / 1000
for path, values in LENS.items():
    if path == "dof.aperture_fstop":
        data.dof.use_dof = values[0] > 0
    animate(data, path, 0, values)
scene.frame_set(scene.frame_start)
)";

// What Blender's cameras have of the traits. A lens shift is a share of the film back's width there.
struct BlenderTrait {
    TraitChannel channel;
    const char *path;
    enum { kAsItIs, kMetres, kShareOfWidth } unit;
};
constexpr BlenderTrait kTraits[] = {{kHorizontalOffset, "shift_x", BlenderTrait::kShareOfWidth},
                                    {kVerticalOffset, "shift_y", BlenderTrait::kShareOfWidth},
                                    {kFStop, "dof.aperture_fstop", BlenderTrait::kAsItIs},
                                    {kNearClip, "clip_start", BlenderTrait::kMetres},
                                    {kFarClip, "clip_end", BlenderTrait::kMetres}};

std::string LensText(const CameraMove &move) {
    std::string text = "# By frame, or one number for all\nLENS = {\n";
    for (const BlenderTrait &trait : kTraits) {
        const std::vector<double> &values = move.traits.channels[trait.channel];
        if (values.empty()) continue;
        const double unit = trait.unit == BlenderTrait::kMetres         ? kMetresPerSceneUnit
                            : trait.unit == BlenderTrait::kShareOfWidth ? 1 / move.aperture_width
                                                                        : 1;
        text += std::string("    \"") + trait.path + "\": [";
        for (std::size_t i = 0; i < values.size(); ++i) text += (i > 0 ? ", " : "") + FormatNumber(values[i] * unit);
        text += "],\n";
    }
    return text + "}\n";
}

}  // namespace

std::string WriteBlender(const CameraMove &move, const FormatOptions &options) {
    std::string text = kHead;
    const double height = move.aperture_height.value_or(move.aperture_width * options.height / options.width);
    text += PythonRange(move, options) + "NAME = " + PythonText(move.traits.Name()) + "\n# Millimetres: width and height\nFILM_BACK = (" +
            FormatNumber(move.aperture_width) + ", " + FormatNumber(height) +
            ")\nIS_ORTHOGRAPHIC = " + (move.traits.is_orthographic ? "True" : "False") + "\n" + LensText(move) +
            "# x, y, z, rotation w, x, y, z, focal length in millimetres, focus distance\nFRAMES = [\n";
    Quaternion turn{1, 0, 0, 0};
    for (const CameraSample &sample : move.samples) {
        const host::Vector metres = ZUpOf(RightHanded(sample)).off * kMetresPerSceneUnit;
        turn = InHemisphereOf(turn, kYUpToZUp * RightHandedQuaternion(sample.angles));
        text += "    (";
        for (const double value : {metres.x, metres.y, metres.z, turn.w, turn.x, turn.y, turn.z, sample.focal_length})
            text += FormatNumber(value) + ", ";
        text += FormatNumber(sample.focus_distance * kMetresPerSceneUnit) + "),\n";
    }
    return text + "]" + kTail;
}

}  // namespace tremolux
