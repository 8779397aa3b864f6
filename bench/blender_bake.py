"""Times a noisy camera in Blender, shown and baked: blender --background --factory-startup --python blender_bake.py -- FRAMES

A keyed camera with three layers of noise on every channel of its place and its angles: one frame after the other, and
baked with visual keying. Prints the microseconds of one frame of each.
"""
import sys
import time

import bpy

frames = int(sys.argv[sys.argv.index("--") + 1])

scene = bpy.context.scene
scene.frame_start, scene.frame_end = 0, frames - 1
camera = scene.camera
camera.rotation_mode = "YXZ"
for frame in range(0, frames, 20):
    camera.location.x = frame % 100
    camera.rotation_euler.y = 0.01 * (frame % 60)
    camera.keyframe_insert("location", frame=frame)
    camera.keyframe_insert("rotation_euler", frame=frame)
for number, curve in enumerate(camera.animation_data.action.fcurves):
    for scale, strength in ((40, 0.05), (12, 0.02), (3, 0.005)):
        noise = curve.modifiers.new("NOISE")
        noise.scale, noise.strength, noise.phase = scale, strength, 10 * number

start = time.perf_counter()
for frame in range(frames):
    scene.frame_set(frame)
shown = time.perf_counter() - start

bpy.ops.object.select_all(action="DESELECT")
camera.select_set(True)
bpy.context.view_layer.objects.active = camera
start = time.perf_counter()
bpy.ops.nla.bake(frame_start=0, frame_end=frames - 1, only_selected=True, visual_keying=True, bake_types={"OBJECT"})
baked = time.perf_counter() - start
keys = min(len(curve.keyframe_points) for curve in camera.animation_data.action.fcurves)
if keys != frames:
    sys.exit(f"blender_bake: found {keys} keys after the bake, expected {frames}")
print(f"microseconds shown {shown * 1e6 / frames:.3f}")
print(f"microseconds baked {baked * 1e6 / frames:.3f}")
