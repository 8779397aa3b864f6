"""The engine's C library, by ctypes: a move and settings in, frames of a hand-held camera out.

What each function does is said in the library's header, tremolux.h. Numbers of a frame: position x, y, z in centimetres; heading,
pitch, bank in radians; focal length in millimetres; focus distance in centimetres.
"""
import ctypes
import functools
import json
import os
import platform
import sys
from collections import namedtuple

NUMBERS_PER_FRAME = 8
NUMBER, SWITCH, TIME, TEXT = 1, 2, 3, 4
NO_UNIT, PERCENT, ANGLE, FRAMES, SECONDS = 0, 1, 2, 3, 4
PANEL_GROUP = 1
LINEAR = 2

FILES = {"linux": "libtremolux.so", "win32": "tremolux.dll"}


class LibraryError(Exception):
    """What the library refused, or why there is none, in one line."""


class _Parameter(ctypes.Structure):
    _fields_ = [("size", ctypes.c_size_t), ("id", ctypes.c_int32), ("kind", ctypes.c_int32), ("unit", ctypes.c_int32),
                ("label", ctypes.c_char_p), ("minimum", ctypes.c_double), ("maximum", ctypes.c_double),
                ("default_value", ctypes.c_double), ("group", ctypes.c_int32), ("tab", ctypes.c_char_p),
                ("section", ctypes.c_char_p), ("sentence", ctypes.c_char_p), ("slider_minimum", ctypes.c_double),
                ("slider_maximum", ctypes.c_double), ("step", ctypes.c_double)]


class _Preset(ctypes.Structure):
    _fields_ = [("size", ctypes.c_size_t), ("category", ctypes.c_char_p), ("name", ctypes.c_char_p),
                ("sentence", ctypes.c_char_p), ("made_for", ctypes.c_double), ("is_pair", ctypes.c_int32)]


class _MoveInfo(ctypes.Structure):
    _fields_ = [("size", ctypes.c_size_t), ("first_frame", ctypes.c_int64), ("frame_count", ctypes.c_uint64),
                ("rate_numerator", ctypes.c_int32), ("rate_denominator", ctypes.c_int32), ("aperture_width", ctypes.c_double)]


class _Direction(ctypes.Structure):
    _fields_ = [("size", ctypes.c_size_t), ("first", ctypes.c_int64), ("last", ctypes.c_int64), ("fade_in", ctypes.c_int64),
                ("fade_out", ctypes.c_int64), ("mix", ctypes.c_double), ("position", ctypes.c_int32),
                ("rotation", ctypes.c_int32), ("lens", ctypes.c_int32), ("lens_aware", ctypes.c_double),
                ("focal_length", ctypes.c_double)]


class _Buffer(ctypes.Structure):
    _fields_ = [("bytes", ctypes.c_void_p), ("size", ctypes.c_size_t), ("owner", ctypes.c_void_p)]


Parameter = namedtuple("Parameter", "id kind unit label minimum maximum default tab section sentence slider_minimum "
                                    "slider_maximum")
Preset = namedtuple("Preset", "category name sentence made_for is_pair")
Rate = namedtuple("Rate", "numerator denominator")


@functools.lru_cache(maxsize=None)
def _library():
    name = FILES.get(sys.platform)
    if name is None or platform.machine().lower() not in ("x86_64", "amd64"):
        raise LibraryError(f"there is no engine for {platform.system()} on {platform.machine()} in this add-on")
    file = os.path.join(os.path.dirname(os.path.abspath(__file__)), "lib", name)
    if not os.path.exists(file):
        raise LibraryError(f"{name} is missing in this add-on: install it again")
    try:
        library = ctypes.CDLL(file)
        library.tremolux_shot_direct, library.tremolux_events_from_bytes  # pylint: disable=pointless-statement,expression-not-assigned
    except OSError as error:
        raise LibraryError(f"{name} cannot be loaded: {error}") from error
    except AttributeError as error:
        raise LibraryError(f"{name} is older than this add-on: install it again") from error
    library.tremolux_last_error.restype = ctypes.c_char_p
    library.tremolux_last_error.argtypes = [ctypes.c_void_p]
    library.tremolux_version.restype = ctypes.c_char_p
    library.tremolux_parameter_count.restype = library.tremolux_preset_count.restype = ctypes.c_size_t
    return library


def _check(status, handle=None):
    if status != 0:
        raise LibraryError(_library().tremolux_last_error(handle).decode())


def version():
    return _library().tremolux_version().decode()


def _table(kind, count, at, convert):
    rows = []
    for index in range(count()):
        row = kind(size=ctypes.sizeof(kind))
        _check(at(ctypes.c_size_t(index), ctypes.byref(row)))
        rows.append(convert(row))
    return rows


@functools.lru_cache(maxsize=None)
def parameters():
    """Of the tag, in the order of its panel."""
    library = _library()
    if library.tremolux_parameter_count() == 0:
        raise LibraryError("the engine does not start: install the add-on again")
    return _table(_Parameter, library.tremolux_parameter_count, library.tremolux_parameter_at, lambda row: Parameter(
        row.id, row.kind, row.unit, row.label.decode(), row.minimum, row.maximum, row.default_value, row.tab.decode(),
        row.section.decode(), row.sentence.decode(), row.slider_minimum, row.slider_maximum))


@functools.lru_cache(maxsize=None)
def presets():
    """The built-in ones, in the order of the panel."""
    library = _library()
    return _table(_Preset, library.tremolux_preset_count, library.tremolux_preset_at, lambda row: Preset(
        row.category.decode(), row.name.decode(), row.sentence.decode(), row.made_for, bool(row.is_pair)))


class Move:
    """A camera's motion; `numbers` is flat. Raises a LibraryError."""

    def __init__(self, first_frame, rate, numbers, aperture_width=36.0):
        self.frames = len(numbers) // NUMBERS_PER_FRAME
        info = _MoveInfo(ctypes.sizeof(_MoveInfo), first_frame, self.frames, rate.numerator, rate.denominator, aperture_width)
        self.handle = ctypes.c_void_p()
        array = (ctypes.c_double * len(numbers))(*numbers)
        _check(_library().tremolux_move_from_numbers(ctypes.byref(info), array, ctypes.c_size_t(len(numbers)),
                                                     ctypes.byref(self.handle)))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        _library().tremolux_move_free(self.handle)


class Shot:
    """A move with the hand-held camera that follows it. Raises a LibraryError."""

    def __init__(self, move):
        self.frames = move.frames
        self.handle = ctypes.c_void_p()
        _check(_library().tremolux_shot_new(move.handle, ctypes.byref(self.handle)), move.handle)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        _library().tremolux_shot_free(self.handle)

    def _call(self, name, *given):
        _check(getattr(_library(), f"tremolux_shot_{name}")(self.handle, *given), self.handle)

    def set(self, parameter, value):
        self._call("set", ctypes.c_int32(parameter), ctypes.c_double(value))

    def get(self, parameter):
        value = ctypes.c_double()
        self._call("get", ctypes.c_int32(parameter), ctypes.byref(value))
        return value.value

    def set_text(self, parameter, text):
        self._call("set_text", f"{parameter}={text}".encode())

    def key(self, parameter, frame, value):
        self._call("key", ctypes.c_int32(parameter), ctypes.c_int64(frame), ctypes.c_double(value), ctypes.c_int32(LINEAR))

    def apply_preset(self, preset):
        """As it was made, at whatever rate the shot has."""
        self._call("apply_preset", f"{preset.category}/{preset.name}".encode())
        if preset.made_for > 0:
            self._call("keep_hertz", ctypes.c_double(preset.made_for))

    def apply_preset_bytes(self, data):
        self._call("apply_preset_bytes", data, ctypes.c_size_t(len(data)))

    def set_target(self, move):
        self._call("set_target", move.handle)

    def set_focus_object(self, move):
        self._call("set_focus_object", move.handle)

    def direct(self, first, last, fade_in, fade_out, mix):
        direction = _Direction(ctypes.sizeof(_Direction), first, last, fade_in, fade_out, mix, 1, 1, 1, 0.0, 36.0)
        self._call("direct", ctypes.byref(direction))

    def played(self):
        """The shaken camera's numbers, flat."""
        self._call("play", None, None)
        numbers = (ctypes.c_double * (self.frames * NUMBERS_PER_FRAME))()
        self._call("numbers", numbers, ctypes.c_size_t(len(numbers)))
        return numbers


def events(move, name, data):
    """Frames and strengths of what a file's bytes have: sound, notes, cuts, a table."""
    buffer = _Buffer()
    _check(_library().tremolux_events_from_bytes(move.handle, name.encode(), data, ctypes.c_size_t(len(data)),
                                                 ctypes.c_double(50), ctypes.c_int32(0), ctypes.byref(buffer)), move.handle)
    found = json.loads(ctypes.string_at(buffer.bytes, buffer.size))
    _library().tremolux_buffer_free(ctypes.byref(buffer))
    return [(event["frame"], event["strength"]) for event in found["events"]]
