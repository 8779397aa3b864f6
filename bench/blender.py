"""What the add-on costs in Blender, beside what else an artist could do: ratios of one run.

    BLENDER_USER_SCRIPTS=FOLDER blender --background --factory-startup --python blender.py
"""
import time

import bpy

FRAMES, RECOMPUTED, ROUNDS = 1000, 300, 5


def new_camera(scene, name):
    camera = bpy.data.objects.new(name, bpy.data.cameras.new(name))
    scene.collection.objects.link(camera)
    for frame in range(1, FRAMES + 1, 50):
        camera.location, camera.rotation_euler = (frame / 100, -frame / 70, 1.6), (1.5 + frame / 5000, 0, frame / 1500)
        camera.keyframe_insert("location", frame=frame)
        camera.keyframe_insert("rotation_euler", frame=frame)
    bpy.context.view_layer.objects.active = camera
    return camera


def fresh():
    bpy.ops.wm.read_factory_settings(use_empty=True)
    bpy.ops.preferences.addon_enable(module="tremolux")
    scene = bpy.context.scene
    scene.frame_start, scene.frame_end = 1, FRAMES
    return scene, new_camera(scene, "Hero")


def played(scene):
    best = float("inf")
    for _ in range(ROUNDS):
        start = time.perf_counter()
        for frame in range(1, FRAMES + 1):
            scene.frame_set(frame)
        best = min(best, time.perf_counter() - start)
    return best / FRAMES * 1e6


def main():
    scene, camera = fresh()
    plain = played(scene)
    bpy.ops.tremolux.preset(name="Nervous")
    bpy.ops.tremolux.add()
    shaken = played(scene)

    scene, camera = fresh()
    for curve in camera.animation_data.action.fcurves:
        for scale in (40, 12, 4):
            noise = curve.modifiers.new("NOISE")
            noise.scale, noise.strength = scale, 0.05
    noisy = played(scene)

    scene, camera = fresh()
    scene.frame_end = RECOMPUTED
    bpy.ops.tremolux.add()
    best = float("inf")
    for amount in range(ROUNDS * 4):
        start = time.perf_counter()
        camera.tremolux.amount = 50 + amount
        best = min(best, time.perf_counter() - start)
    camera.select_set(True)
    start = time.perf_counter()
    bpy.ops.nla.bake(frame_start=1, frame_end=RECOMPUTED, only_selected=True, visual_keying=True, bake_types={"OBJECT"})
    baked = time.perf_counter() - start
    print(f"bench: a frame of playback {plain:.1f} us, shaken {shaken:.1f} us ({shaken / plain:.2f} times), with three noise "
          f"modifiers a channel {noisy:.1f} us ({shaken / noisy:.2f} of it)")
    print(f"bench: {RECOMPUTED} frames anew in {best * 1000:.1f} ms; nla.bake of them {baked * 1000:.1f} ms")


main()
