"""Blender's own "install from file" takes the add-on as a zip, in a Blender that has none yet."""
import os
import shutil
import subprocess
import tempfile

import bpy
from scenes import expect

INSTALL = """
import bpy
bpy.ops.preferences.addon_install(filepath={file!r})
bpy.ops.preferences.addon_enable(module="tremolux")
import tremolux
from tremolux import properties
assert tremolux.__file__.startswith({folder!r}), tremolux.__file__
assert not properties.trouble(), properties.trouble()
bpy.context.view_layer.objects.active = bpy.data.objects["Camera"]
assert bpy.ops.tremolux.add() == {{"FINISHED"}}
assert bpy.data.objects["Camera"].animation_data.nla_tracks
"""


def check_install():
    here = next(path for path in bpy.utils.script_paths() if os.path.isdir(os.path.join(path, "addons", "tremolux", "lib")))
    with tempfile.TemporaryDirectory() as folder:
        file = shutil.make_archive(os.path.join(folder, "addon"), "zip", os.path.join(here, "addons"), "tremolux")
        scripts = os.path.join(folder, "scripts")
        os.makedirs(os.path.join(scripts, "addons"))
        result = subprocess.run(
            [bpy.app.binary_path, "--background", "--factory-startup", "--python-exit-code", "1", "--python-expr",
             INSTALL.format(file=file, folder=scripts)],
            capture_output=True, text=True, check=False, env={**os.environ, "BLENDER_USER_SCRIPTS": scripts})
    expect(result.returncode == 0, f"it is not installed from a zip: {result.stdout} {result.stderr}")
