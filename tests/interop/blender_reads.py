"""Opens a camera file in Blender and holds its camera against the table that the file was made from.

    blender --background --factory-startup --python blender_reads.py -- TABLE.csv FILE [fixed-zoom]

On every frame the camera's world matrix and both fields of view must be those of the table to 1e-5 (metres, radians; a
position far from the origin to 1e-6 of its distance, as Blender keeps 32-bit numbers). With fixed-zoom the fields of view
are those of the first frame. The expected matrix is built from the table's angles here, apart from the program's own code.
"""
import csv
import math
import runpy
import sys

import bpy
from mathutils import Matrix, Vector

WIDTH, HEIGHT, FILM_BACK = 1920, 1080, 36
TOLERANCE = 1e-5


def expected_matrix(row):
    """R = Ry(h) Rx(p) Rz(-b), the position mirrored in z; then +90 degrees about x into Blender's world, in metres."""
    h, p, b = (math.radians(float(row[name])) for name in "hpb")
    turn = Matrix.Rotation(h, 4, "Y") @ Matrix.Rotation(p, 4, "X") @ Matrix.Rotation(-b, 4, "Z")
    place = Matrix.Translation(Vector((float(row["x"]), float(row["y"]), -float(row["z"]))) / 100)
    return Matrix.Rotation(math.pi / 2, 4, "X") @ place @ turn


def open_chan(file):
    import addon_utils
    addon_utils.enable("io_anim_nuke_chan")
    data = bpy.data.cameras.new("Camera")
    data.sensor_fit, data.sensor_width = "HORIZONTAL", FILM_BACK
    camera = bpy.data.objects.new("Camera", data)
    camera.rotation_mode = "QUATERNION"
    bpy.context.scene.collection.objects.link(camera)
    bpy.context.view_layer.objects.active = camera
    bpy.ops.import_scene.import_chan(filepath=file, rotation_order="ZXY", z_up=True)
    return camera


def open_gltf(file):
    bpy.ops.import_scene.gltf(filepath=file)
    return next(thing for thing in bpy.data.objects if thing.type == "CAMERA")


def open_script(file):
    runpy.run_path(file)
    return bpy.context.scene.camera


OPENERS = {".chan": open_chan, ".gltf": open_gltf, ".py": open_script}


def main(table, file, *options):
    with open(table, encoding="utf-8", newline="") as lines:
        rows = list(csv.DictReader(lines))
    for thing in list(bpy.data.objects):
        bpy.data.objects.remove(thing)
    scene = bpy.context.scene
    scene.render.resolution_x, scene.render.resolution_y = WIDTH, HEIGHT
    scene.render.fps = 30
    camera = OPENERS[file[file.rindex("."):]](file)
    worst_matrix = worst_angle = 0.0
    for row in rows:
        scene.frame_set(int(row["frame"]))
        depsgraph = bpy.context.evaluated_depsgraph_get()
        seen = camera.evaluated_get(depsgraph)
        expected = expected_matrix(row)
        scale = max(1, 0.1 * expected.translation.length)
        for i in range(3):
            for j in range(4):
                off = abs(seen.matrix_world[i][j] - expected[i][j]) / (scale if j == 3 else 1)
                worst_matrix = max(worst_matrix, off)
        focal_length = float((rows[0] if "fixed-zoom" in options else row)["focal_length"])
        projection = seen.calc_matrix_camera(depsgraph, x=WIDTH, y=HEIGHT)
        for axis, aperture in ((0, FILM_BACK), (1, FILM_BACK * HEIGHT / WIDTH)):
            angle = 2 * math.atan(1 / projection[axis][axis])
            worst_angle = max(worst_angle, abs(angle - 2 * math.atan(aperture / 2 / focal_length)))
    print(f"interop: {file.rsplit('/', 1)[-1]} in Blender: {len(rows)} frames, world matrix within {worst_matrix:.1e}, "
          f"field of view within {worst_angle:.1e} radians")
    return 0 if worst_matrix <= TOLERANCE and worst_angle <= TOLERANCE else 1


try:
    status = main(*sys.argv[sys.argv.index("--") + 1:])
except Exception as error:
    print(f"interop: {error}")
    status = 1
sys.exit(status)
