#include "tremolux/blender/import_script.h"

namespace tremolux {

const char *const kImportScript = R"PYTHON(import gzip
import json
import math
import os
import re
import sys

import bpy

# Kinds whose importers put a key at seconds * scene.render.fps, whatever fps_base is.
WHOLE_FPS_KEYS = {".fbx", ".gltf", ".glb"}
# Kinds that say their own rate.
OWN_RATE = {".blend", ".fbx"}
MOST_FRAMES = 1000000


class Refusal(Exception):
    """Found something else than expected."""


def built_with(option, words):
    if not getattr(bpy.app.build_options, option, False):
        raise Refusal(f"found a Blender {bpy.app.version_string} that is built without {words}, expected one with it")


def with_add_on(name):
    import addon_utils
    if addon_utils.enable(name) is None:
        raise Refusal(f"found a Blender {bpy.app.version_string} without its add-on {name}, expected one with it")


def open_blend(file):
    bpy.ops.wm.open_mainfile(filepath=file, load_ui=False, use_scripts=False)


def open_fbx(file):
    with_add_on("io_scene_fbx")
    # Without the offset, time 0 is frame 0.
    bpy.ops.import_scene.fbx(filepath=file, anim_offset=0.0)


def open_gltf(file):
    with_add_on("io_scene_gltf2")
    bpy.ops.import_scene.gltf(filepath=file)


def open_collada(file):
    built_with("collada", "COLLADA")
    # Blender itself writes the lens keys of a camera to OBJECT-CAMERA, which is no element's id: they would be passed over.
    with open(file, "rb") as scene:
        text = scene.read()
    for camera in set(re.findall(rb'<camera id="([^"]+)"', text)):
        text = re.sub(rb'target="[^"/]*-' + re.escape(camera) + rb'/', lambda match: b'target="' + camera + b'/', text)
    copy = RESULT + ".dae"
    with open(copy, "wb") as scene:
        scene.write(text)
    bpy.ops.wm.collada_import(filepath=copy, import_units=False)


def open_x3d(file):
    with_add_on("io_scene_x3d")
    with open(file, "rb") as scene:
        text = scene.read()
    if not text.startswith(b"\x1f\x8b"):
        # The add-on opens files that are not packed in a way that newer Pythons refuse. It goes by the name's end.
        file = RESULT + os.path.splitext(file)[1].lower()
        with gzip.open(file, "wb", compresslevel=1) as scene:
            scene.write(text)
    # By itself it turns the world round by half a turn.
    bpy.ops.import_scene.x3d(filepath=file, axis_forward="-Z", axis_up="Y")


def open_alembic(file):
    built_with("alembic", "Alembic")
    bpy.ops.wm.alembic_import(filepath=file, as_background_job=False)


def open_usd(file):
    built_with("usd", "USD")
    bpy.ops.wm.usd_import(filepath=file)


OPENERS = {
    ".blend": open_blend, ".fbx": open_fbx, ".gltf": open_gltf, ".glb": open_gltf, ".dae": open_collada,
    ".x3d": open_x3d, ".wrl": open_x3d, ".abc": open_alembic, ".usd": open_usd, ".usda": open_usd,
    ".usdc": open_usd, ".usdz": open_usd,
}


def path_of(thing):
    return (path_of(thing.parent) if thing.parent else "") + "/" + thing.name


def the_camera(wanted):
    cameras = [thing for thing in bpy.context.scene.objects if thing.type == "CAMERA"]
    if not cameras:
        raise Refusal("found no camera, expected one")
    listed = ", ".join(path_of(camera) for camera in cameras)
    if wanted:
        cameras = [camera for camera in cameras if wanted in (camera.name, path_of(camera))]
        if not cameras:
            raise Refusal(f"found no camera '{wanted}', expected one of {listed}")
    if len(cameras) > 1:
        raise Refusal(f"found {len(cameras)} cameras, expected one, or --camera with one of {listed}")
    return cameras[0]


def what_moves(camera):
    """Everything whose keys the camera's motion and lens hang on."""
    thing = camera
    while thing is not None:
        yield thing
        thing = thing.parent
    yield camera.data


def take_own_actions(camera):
    """Of a file with several takes, Blender gives the first to every object, whosever it is."""
    for thing in what_moves(camera):
        takes = [action for action in bpy.data.actions if action.name.startswith(thing.name + "|")
                 and any(curve.data_path == "lens" for curve in action.fcurves) == isinstance(thing, bpy.types.Camera)]
        # TAKE|OBJECT|ACTION, where Blender has put every action on every object; an action is named after its own.
        own = [action for action in takes if action.name.startswith(f"{thing.name}|{thing.name}|{thing.name}")]
        if len(takes) > 1 and own:
            thing.animation_data.action = own[0]
        if len(takes) > 1:
            yield f"{thing.name} has {len(takes)} takes: taken is {thing.animation_data.action.name}"


def take_resting_actions(camera):
    """Of several animations, Blender plays the first alone; those of other objects rest in tracks."""
    for thing in what_moves(camera):
        animation = thing.animation_data
        if animation is None or animation.action or not animation.nla_tracks:
            continue
        tracks = [track for track in animation.nla_tracks if track.strips]
        if tracks:
            animation.action = tracks[0].strips[0].action
            for track in tracks:
                track.mute = True
        if len(tracks) > 1:
            yield f"{thing.name} has {len(tracks)} animations: taken is {tracks[0].name}"


def keyed_range(camera):
    ranges = [thing.animation_data.action.frame_range for thing in what_moves(camera)
              if thing.animation_data and thing.animation_data.action]
    return (min(r[0] for r in ranges), max(r[1] for r in ranges)) if ranges else None


def frame_range(camera, kind, frame_step):
    scene = bpy.context.scene
    if kind == ".blend":
        return scene.frame_start, scene.frame_end
    keyed = keyed_range(camera)
    if keyed:
        nearly = 1e-3
        first = math.ceil(keyed[0] / frame_step - nearly)
        return first, max(first, math.floor(keyed[1] / frame_step + nearly))
    if any(thing.constraints for thing in what_moves(camera) if hasattr(thing, "constraints")):
        return scene.frame_start, scene.frame_end
    return scene.frame_start, scene.frame_start


def focus_of(data, camera, depsgraph):
    if data.dof.focus_object is None:
        return data.dof.focus_distance
    target = data.dof.focus_object.evaluated_get(depsgraph).matrix_world.translation
    back = camera.matrix_world.col[2].to_3d().normalized()
    return max(0.0, -(target - camera.matrix_world.translation).dot(back))


def sample(camera):
    depsgraph = bpy.context.evaluated_depsgraph_get()
    seen = camera.evaluated_get(depsgraph)
    data = seen.data
    matrix = [seen.matrix_world[row][column] for column in range(4) for row in range(3)]
    return matrix + [data.lens, focus_of(data, seen, depsgraph), data.shift_x, data.shift_y,
                     data.dof.aperture_fstop if data.dof.use_dof else 0.0, data.clip_start, data.clip_end]


def main(file, wanted, frames, fps, fps_base):
    kind = os.path.splitext(file)[1].lower()
    scene = bpy.context.scene
    if kind != ".blend":
        for thing in list(bpy.data.objects):
            bpy.data.objects.remove(thing)
        if fps:
            scene.render.fps, scene.render.fps_base = int(fps), float(fps_base)
    OPENERS[kind](file)
    scene = bpy.context.scene
    camera = the_camera(wanted)
    notes = []
    if kind == ".fbx":
        notes += take_own_actions(camera)
    if kind == ".dae":
        notes.append("COLLADA has no film back, and Blender takes no keys of the focus distance from it")
    if kind in (".gltf", ".glb"):
        notes += take_resting_actions(camera)
        notes.append("Blender takes no keys of the field of view from glTF, and no focus distance")
    if kind in (".x3d", ".wrl"):
        notes.append("X3D and VRML have no film back and no focus distance")
    if camera.data.type == "PANO":
        raise Refusal(f"found the panoramic camera {path_of(camera)}, expected one with a lens")
    # A 32-bit number in Blender.
    fps_base = round(scene.render.fps_base, 6)
    frame_step = fps_base if kind in WHOLE_FPS_KEYS else 1.0
    first, last = (int(frame) for frame in frames.split(":")) if frames else frame_range(camera, kind, frame_step)
    count = last - first + 1
    if count > MOST_FRAMES:
        raise Refusal(f"found {count} frames, expected at most {MOST_FRAMES}; --frames FIRST:LAST takes fewer")
    if kind == ".blend" and bpy.app.autoexec_fail:
        notes.append("scripts in the file were not run, and drivers with them")
    if kind not in OWN_RATE and not fps:
        notes.append(f"the file says seconds alone: taken at {scene.render.fps} frames a second; --fps says another rate")
    samples, views, percent = [], [], -1
    for i in range(count):
        place = (first + i) * frame_step
        whole = math.floor(place)
        # The place of a frame on a key is rounded.
        if abs(place - round(place)) < 1e-6:
            place = whole = round(place)
        scene.frame_set(whole, subframe=place - whole)
        samples.append(sample(camera))
        views.append(camera.evaluated_get(bpy.context.evaluated_depsgraph_get()).data.ortho_scale)
        if (i + 1) * 100 // count != percent:
            percent = (i + 1) * 100 // count
            print(f"tremolux: {i + 1} of {count}", flush=True)
    data, render = camera.data, scene.render
    if data.type == "ORTHO" and min(views) != max(views):
        notes.append(f"what the orthographic camera sees changes its size: taken is that of frame {first}")
    return {
        "camera": path_of(camera), "orthographic": data.type == "ORTHO", "view": views[0], "kind": kind,
        "fps": render.fps, "fps_base": fps_base, "metres": scene.unit_settings.scale_length,
        "sensor": [data.sensor_width, data.sensor_height], "fit": data.sensor_fit,
        "picture": [render.resolution_x, render.resolution_y], "pixel": [render.pixel_aspect_x, render.pixel_aspect_y],
        "first": first, "samples": samples, "notes": notes,
    }


FILE, RESULT, CAMERA, FRAMES, FPS, FPS_BASE = sys.argv[sys.argv.index("--") + 1:]
try:
    result = main(FILE, CAMERA, FRAMES, FPS, FPS_BASE)
except Refusal as refusal:
    result = {"refused": str(refusal)}
except Exception as error:
    # An operator tells a whole traceback, and where it was called: what happened stands before that.
    lines = [line for line in str(error).splitlines() if line.strip() and not line.startswith("Location:")]
    words = " ".join(lines[-1].split()) if lines else type(error).__name__
    result = {"refused": f"found what Blender {bpy.app.version_string} does not open ({words}), expected a file that it does"}
with open(RESULT, "w", encoding="utf-8", errors="replace") as output:
    json.dump(result, output)
)PYTHON";

}  // namespace tremolux
