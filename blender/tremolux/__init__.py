"""TremoluxCam for Blender: makes a camera hand-held, by keys beside its own."""
bl_info = {
    "name": "TremoluxCam",
    "description": "Makes a camera hand-held, by keys beside its own",
    "author": "The TremoluxCam team",
    "version": (1, 15, 0),
    "blender": (3, 4, 0),
    "location": "Properties > Camera > Tremolux, and the side bar of the 3D view",
    "category": "Camera",
}

import bpy

from . import live, operators, panel, properties

CLASSES = operators.CLASSES + panel.CLASSES


def register():
    properties.register()
    for kind in CLASSES:
        bpy.utils.register_class(kind)
    live.register()


def unregister():
    live.unregister()
    for kind in reversed(CLASSES):
        bpy.utils.unregister_class(kind)
    properties.unregister()
