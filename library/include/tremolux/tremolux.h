/* The engine as a library: a camera move and settings in, frames of a hand-held camera out.
 *
 * Every function that can fail answers with a tremolux_status, and leaves what its pointers lead to alone when it fails;
 * tremolux_last_error has the line that says what was found and what was expected. Nothing is printed, nothing ends the
 * program, nothing is written to a disk. Texts are UTF-8 and end with a zero byte.
 *
 * Threads: different moves and shots may be used by different threads at once. A shot belongs to one call at a time;
 * another gets TREMOLUX_BUSY, but for tremolux_shot_cancel, which is for any thread.
 *
 * Space is left-handed, Y up; a camera looks along +Z. Lengths are in scene units (centimetres), angles in radians as
 * heading, pitch, bank, lens and film back in millimetres. */
#ifndef TREMOLUX_H
#define TREMOLUX_H

#include <stddef.h>
#include <stdint.h>

#ifdef _WIN32
#ifdef TREMOLUX_BUILDS_LIBRARY
#define TREMOLUX_API __declspec(dllexport)
#else
#define TREMOLUX_API __declspec(dllimport)
#endif
#else
#define TREMOLUX_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef enum tremolux_status {
    TREMOLUX_OK = 0,
    TREMOLUX_INTERNAL = 1, /* memory ran out, or a mistake of the library's own */
    TREMOLUX_INPUT = 2,    /* a value, a text or bytes that were handed in */
    TREMOLUX_MODULE = 3,   /* the module gave up */
    TREMOLUX_HANDLE = 5,   /* a handle that is null, freed, or of something else */
    TREMOLUX_BUSY = 6,     /* the shot is in use by another call */
    TREMOLUX_CANCELLED = 130
} tremolux_status;

/* Handles. None is ever given out twice, so that a freed one is told. */
typedef struct tremolux_move_handle *tremolux_move;
typedef struct tremolux_shot_handle *tremolux_shot;

/* The version of the library and its module, "major.minor". */
TREMOLUX_API const char *tremolux_version(void);

/* What went wrong last in a call with this handle, as one line without a line end, empty when nothing did. For NULL, and for
 * what is no handle: in the calling thread's calls that had no valid handle. Holds until the next call with the handle. */
TREMOLUX_API const char *tremolux_last_error(const void *handle);

/* ---- Bytes that the library made */

typedef struct tremolux_buffer {
    const char *bytes; /* with a zero byte behind them */
    size_t size;
    void *owner;
} tremolux_buffer;

/* Frees the bytes, and clears the struct; a cleared one is left alone. */
TREMOLUX_API void tremolux_buffer_free(tremolux_buffer *buffer);

/* ---- The settings of a shot */

typedef enum tremolux_kind {
    TREMOLUX_NUMBER = 1,
    TREMOLUX_SWITCH = 2, /* 0 or 1 */
    TREMOLUX_TIME = 3,   /* frames */
    TREMOLUX_TEXT = 4,
    TREMOLUX_CHOICE = 5, /* the number of one entry of a list */
    TREMOLUX_LINK = 6,
    TREMOLUX_BUTTON = 7
} tremolux_kind;

typedef enum tremolux_unit {
    TREMOLUX_NO_UNIT = 0,
    TREMOLUX_PERCENT = 1, /* stored as a fraction: 1.5 is 150 % */
    TREMOLUX_ANGLE = 2,   /* stored in radians */
    TREMOLUX_FRAMES = 3
} tremolux_unit;

typedef struct tremolux_parameter {
    size_t size; /* sizeof(tremolux_parameter), set by the caller */
    int32_t id;
    int32_t kind; /* a tremolux_kind */
    int32_t unit; /* a tremolux_unit */
    const char *label; /* for as long as the library is loaded */
    double minimum, maximum; /* in the stored unit, of a time in seconds; infinite where there is no limit */
    double default_value;    /* of a number, a switch or a time; else 0 */
} tremolux_parameter;

/* In the order of the panel; 0 when the module does not start. */
TREMOLUX_API size_t tremolux_parameter_count(void);
TREMOLUX_API tremolux_status tremolux_parameter_at(size_t index, tremolux_parameter *parameter);

typedef struct tremolux_preset {
    size_t size; /* sizeof(tremolux_preset), set by the caller */
    const char *category, *name; /* for as long as the library is loaded */
    const char *sentence;        /* what it imitates */
} tremolux_preset;

/* The built-in presets in the order of the panel; 0 when the module does not start. */
TREMOLUX_API size_t tremolux_preset_count(void);
TREMOLUX_API tremolux_status tremolux_preset_at(size_t index, tremolux_preset *preset);

/* ---- Moves: what a camera does, frame by frame */

/* Numbers of one frame, in this order: position x, y, z; heading, pitch, bank; focal length; focus distance. */
#define TREMOLUX_NUMBERS_PER_FRAME 8

typedef struct tremolux_move_info {
    size_t size; /* sizeof(tremolux_move_info), set by the caller */
    int64_t first_frame;
    uint64_t frame_count;
    int32_t rate_numerator, rate_denominator; /* frames per second: 1 to 2500, 24000 / 1001 for instance */
    double aperture_width;                    /* of the film back */
} tremolux_move_info;

/* From TREMOLUX_NUMBERS_PER_FRAME numbers for each of info->frame_count frames, at most a million frames; `count` is how many
 * numbers there are. */
TREMOLUX_API tremolux_status tremolux_move_from_numbers(const tremolux_move_info *info, const double *numbers,
                                                        size_t count, tremolux_move *move);
/* From the bytes of a camera file. `name` is for messages, and says the format by its extension (".csv", ".usda", ...). */
TREMOLUX_API tremolux_status tremolux_move_from_bytes(const char *name, const void *bytes, size_t size,
                                                      tremolux_move *move);
TREMOLUX_API tremolux_status tremolux_move_info_of(tremolux_move move, tremolux_move_info *info);
/* All numbers of the move; `count` says how many there is room for: TREMOLUX_NUMBERS_PER_FRAME times the frames, or more. */
TREMOLUX_API tremolux_status tremolux_move_numbers(tremolux_move move, double *numbers, size_t count);
/* The bytes of a camera file of the format that the name's extension says. */
TREMOLUX_API tremolux_status tremolux_move_to_bytes(tremolux_move move, const char *name, tremolux_buffer *buffer);
/* NULL is left alone. */
TREMOLUX_API tremolux_status tremolux_move_free(tremolux_move move);

/* ---- Shots: a move, and the hand-held camera that follows it */

/* The move is copied: it may be freed. The shot begins with the module's defaults. */
TREMOLUX_API tremolux_status tremolux_shot_new(tremolux_move move, tremolux_shot *shot);
/* NULL is left alone. A shot that another thread plays goes when that is over. */
TREMOLUX_API tremolux_status tremolux_shot_free(tremolux_shot shot);

/* A setting as a number in its stored unit, of a time in frames; held to its limits by a refusal. */
TREMOLUX_API tremolux_status tremolux_shot_set(tremolux_shot shot, int32_t parameter, double value);
TREMOLUX_API tremolux_status tremolux_shot_get(tremolux_shot shot, int32_t parameter, double *value);
/* "LABEL=VALUE" or "ID=VALUE", as a user types it: "Shake Speed=150%", "Interval=1.5s". */
TREMOLUX_API tremolux_status tremolux_shot_set_text(tremolux_shot shot, const char *setting);
/* 1 when the module lets a user change it as things stand, else 0. */
TREMOLUX_API tremolux_status tremolux_shot_is_enabled(tremolux_shot shot, int32_t parameter, int32_t *enabled);
/* "CATEGORY/NAME", a name, or a part that only one preset has. */
TREMOLUX_API tremolux_status tremolux_shot_apply_preset(tremolux_shot shot, const char *preset);
/* Presses a button of the panel. */
TREMOLUX_API tremolux_status tremolux_shot_press(tremolux_shot shot, int32_t button);
/* What the camera turns to, or focuses on: the positions of a move, of which a single frame holds for all time. Once each. */
TREMOLUX_API tremolux_status tremolux_shot_set_target(tremolux_shot shot, tremolux_move points);
TREMOLUX_API tremolux_status tremolux_shot_set_focus_object(tremolux_shot shot, tremolux_move points);

/* Called after each frame; anything but 0 cancels. */
typedef int32_t (*tremolux_progress)(uint64_t done, uint64_t frames, void *user);

/* Plays the shot from its first frame to its last. `progress` may be NULL. A cancelled play leaves the numbers of the last whole
 * one. */
TREMOLUX_API tremolux_status tremolux_shot_play(tremolux_shot shot, tremolux_progress progress, void *user);
/* The same from a frame on, as after a jump to it: clocks stand where they would, what swings starts from rest. The frames before
 * it keep what the last whole play showed, which must have been. */
TREMOLUX_API tremolux_status tremolux_shot_play_from(tremolux_shot shot, int64_t frame, tremolux_progress progress,
                                                     void *user);
/* From any thread: a play that runs ends with TREMOLUX_CANCELLED, any other is left alone. */
TREMOLUX_API tremolux_status tremolux_shot_cancel(tremolux_shot shot);
/* What the last whole play showed, as tremolux_move_numbers gives a move's. */
TREMOLUX_API tremolux_status tremolux_shot_numbers(tremolux_shot shot, double *numbers, size_t count);
/* The numbers at any time between the first frame and the last, in frames: a smooth curve through all frames. Neither positions
 * nor turning speed leap. There is room for TREMOLUX_NUMBERS_PER_FRAME numbers. */
TREMOLUX_API tremolux_status tremolux_shot_numbers_at(tremolux_shot shot, double frame, double *numbers);
/* The same as a move of its own. */
TREMOLUX_API tremolux_status tremolux_shot_result(tremolux_shot shot, tremolux_move *move);

/* What each layer of the motion added on a frame: input, smoothed, overshoot, shake or drift, jolt and result of position (scene
 * units), rotation (degrees), zoom (millimetres) and focus (scene units), as JSON. Plays the shot up to the frame. */
TREMOLUX_API tremolux_status tremolux_shot_layers(tremolux_shot shot, int64_t frame, tremolux_buffer *buffer);

typedef struct tremolux_measures {
    size_t size; /* sizeof(tremolux_measures), set by the caller */
    double position_rms, position_peak; /* how far the camera strayed from its input: scene units */
    double turn_rms, turn_peak;         /* radians about any axis */
    int64_t position_peak_frame, turn_peak_frame;
    /* In the band from 0.1 to 0.5 Hz, in which pictures make people sick soonest: RMS of the sway as a share of the picture's width,
     * and of the bank in radians. */
    double sway_rms, bank_rms;
} tremolux_measures;

/* Of what the last whole play added. */
TREMOLUX_API tremolux_status tremolux_shot_measure(tremolux_shot shot, tremolux_measures *measures);

typedef enum tremolux_interpolation {
    TREMOLUX_SMOOTH = 1, /* flat at the keys */
    TREMOLUX_LINEAR = 2,
    TREMOLUX_HOLD = 3
} tremolux_interpolation;

/* `interpolation` is a tremolux_interpolation. A key of a number or a switch on its own track, in the setting's stored unit; in place of one that is on that frame. The track has the last
 * word over tremolux_shot_set. */
TREMOLUX_API tremolux_status tremolux_shot_key(tremolux_shot shot, int32_t parameter, int64_t frame, double value,
                                               int32_t interpolation);

typedef enum tremolux_bake {
    TREMOLUX_BAKE_QUICKLY = 1,       /* from the curves of the camera: sees no zoom */
    TREMOLUX_BAKE_BY_BRUTE_FORCE = 2 /* frame by frame: sees everything */
} tremolux_bake;

/* Turns the motion into keys, which are played from then on; `kind` is a tremolux_bake. */
TREMOLUX_API tremolux_status tremolux_shot_bake(tremolux_shot shot, int32_t kind);

#ifdef __cplusplus
}
#endif

#endif
