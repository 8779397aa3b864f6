"""The tag's settings as Blender's properties, made from the engine's table."""
import math

import bpy

from . import library

SHOWN = (library.NUMBER, library.SWITCH, library.TIME)
PER_CENT = 100.0  # panels show percentages, the engine keeps shares

NOT_OF_THE_SHAKE = "Basic"  # the tab of what every tag has


def name_of(parameter):
    """Of its property."""
    return f"p{parameter.id}"


def shown():
    """The parameters that have a property, in the order of the panel."""
    return [parameter for parameter in library.parameters()
            if parameter.kind in SHOWN and parameter.label and parameter.tab != NOT_OF_THE_SHAKE]


def to_property(parameter, value):
    if parameter.kind == library.SWITCH:
        return bool(value)
    return value * PER_CENT if parameter.unit == library.PERCENT else value


def from_property(parameter, value):
    return float(value) / PER_CENT if parameter.unit == library.PERCENT else float(value)


def _limits(parameter):
    limits = {"min": parameter.minimum, "max": parameter.maximum, "soft_min": parameter.slider_minimum,
              "soft_max": parameter.slider_maximum}
    return {name: to_property(parameter, value) for name, value in limits.items() if math.isfinite(value)}


def property_of(parameter, update):
    """What Blender registers for a parameter."""
    common = {"name": parameter.label, "description": parameter.sentence, "update": update,
              "default": to_property(parameter, parameter.default)}
    if parameter.kind == library.SWITCH:
        return bpy.props.BoolProperty(**common)
    subtype = {library.PERCENT: "PERCENTAGE", library.ANGLE: "ANGLE"}.get(parameter.unit, "NONE")
    return bpy.props.FloatProperty(subtype=subtype, precision=1 if subtype == "PERCENTAGE" else 3, **_limits(parameter), **common)
