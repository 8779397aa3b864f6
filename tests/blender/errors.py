"""What cannot be shaken is said in a line, and leaves what is there: no traceback, nothing lost."""
import json
import os
import shutil
import subprocess
import tempfile

import bpy
from edits import own_keys, shake_of
from scenes import FRAMES, expect, new_camera, new_scene, seen

MILLION = 1000000
# What is done to the library's file -> words of the line in the panel.
LIBRARIES = {
    "missing": "is missing in this add-on",
    "damaged": "cannot be loaded",
    "too old": "is older than this add-on",
}
WITHOUT_LIBRARY = """
import bpy
bpy.ops.preferences.addon_enable(module="tremolux")
from tremolux import properties
assert not bpy.ops.tremolux.add.poll()
bpy.ops.mesh.primitive_cube_add()
bpy.ops.preferences.addon_disable(module="tremolux")
bpy.ops.preferences.addon_enable(module="tremolux")
print("line:", properties.trouble())
"""


def refusal(operator):
    """Its line; empty where it did what it was asked."""
    try:
        operator()
    except RuntimeError as error:
        return str(error)
    return ""


def expect_kept(name, camera, operator, words):
    """The operator says that in one line, and camera and shake are what they were."""
    before, keys = shake_of(camera), own_keys(camera)
    line = refusal(operator).strip()
    expect(words in line and "Traceback" not in line and line.count("\n") == 0, f"{name}: {line or 'it is done'}")
    expect(before and shake_of(camera) == before and own_keys(camera) == keys, f"{name}: something is lost")


def check_what_is_kept():
    for mode in "XYZ", "AXIS_ANGLE":
        scene = new_scene()
        camera = new_camera(scene, mode)
        state = camera.tremolux
        bpy.ops.tremolux.add()
        motion = seen(scene, camera)
        scene.frame_end = MILLION
        expect_kept("a million frames", camera, bpy.ops.tremolux.update, f"{MILLION} frames")
        scene.frame_end = FRAMES

        state.jolts = "5,x"
        expect(state.message.count("\n") == 0 and "5,x" in state.message, f"jolts that are no frames: {state.message}")
        expect_kept("jolts that are no frames", camera, bpy.ops.tremolux.update, "5,x")
        expect(seen(scene, camera) == motion, "jolts that are no frames: it moves otherwise")
        state.jolts = ""

        preset, state.preset = state.preset, "Of Tomorrow"
        expect_kept("a newer version's preset", camera, bpy.ops.tremolux.update, "there is no preset 'Of Tomorrow'")
        state.preset = preset

        record = camera["TremoluxCam"]
        camera["TremoluxCam"] = json.dumps({**json.loads(record), "format": 2})
        expect_kept("a newer version's shake", camera, bpy.ops.tremolux.update, "newer version of the add-on")
        expect_kept("a newer version's shake, removed", camera, bpy.ops.tremolux.remove, "newer version of the add-on")
        camera["TremoluxCam"] = "{damaged"
        expect(not refusal(bpy.ops.tremolux.remove) and not shake_of(camera), "a damaged record cannot be removed")


def check_no_camera():
    scene = new_scene()
    bpy.context.view_layer.objects.active = None
    expect(not bpy.ops.tremolux.add.poll(), "it is added to nothing")
    thing = bpy.data.objects.new("Empty", None)
    scene.collection.objects.link(thing)
    bpy.context.view_layer.objects.active = thing
    expect(not bpy.ops.tremolux.add.poll(), "it is added to an empty")


def _without_library(folder, kind):
    addon = os.path.join(folder, "addons", "tremolux")
    here = next(os.path.join(path, "addons", "tremolux") for path in bpy.utils.script_paths()
                if os.path.isdir(os.path.join(path, "addons", "tremolux", "lib")))
    shutil.copytree(here, addon, ignore=shutil.ignore_patterns("lib", "__pycache__"))
    file = os.path.join(addon, "lib", "libtremolux.so")
    os.mkdir(os.path.dirname(file))
    if kind == "damaged":
        with open(file, "wb") as library:
            library.write(b"no library")
    elif kind == "too old":
        subprocess.run(["cc", "-shared", "-x", "c", "/dev/null", "-o", file], check=True)


def check_libraries():
    for kind, words in LIBRARIES.items():
        with tempfile.TemporaryDirectory() as folder:
            _without_library(folder, kind)
            result = subprocess.run(
                [bpy.app.binary_path, "--background", "--factory-startup", "--python-exit-code", "1", "--python-expr",
                 WITHOUT_LIBRARY], capture_output=True, text=True, check=False, env={**os.environ, "BLENDER_USER_SCRIPTS": folder})
        lines = [line for line in result.stdout.splitlines() if line.startswith("line:")]
        expect(result.returncode == 0 and "Traceback" not in result.stdout + result.stderr and len(lines) == 1
               and words in lines[0], f"a library that is {kind}: {lines} {result.stderr}")


def check_errors():
    check_no_camera()
    check_what_is_kept()
    check_libraries()
